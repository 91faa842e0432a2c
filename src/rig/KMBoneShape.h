#pragma once

#include "math/Vector3.h"

#include <QVector>

class KMMeshNode;

/// What a bone looks like: the geometry of its body for each view type, and of the marks at its head. The body lies
/// along the negative Z axis and is a hundred long; its vertices 0 and 1 are the handles of head and tail.
namespace KMBoneShape {

enum ViewType : int { Polygon = 0, Point = 1, Line = 2 };
constexpr int ShaderIndex = -6; ///< of the body's faces: a built-in shader

const QVector<kvm::Vector3> &bodyVertices(int viewType); ///< before the bone's length and place come in
void buildBody(KMMeshNode &mesh, int viewType);          ///< in place of what the mesh holds
void buildRing(KMMeshNode &mesh);                        ///< a hexagon around the head
void buildCross(KMMeshNode &mesh);                       ///< two lines that cross at the head

} // namespace KMBoneShape
