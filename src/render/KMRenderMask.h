#pragma once

#include <QtGlobal>

class KMCameraNode;
class KMMeshNode;

/// Switches of one mesh for one frame.
namespace KMRenderMask {

enum Mask : quint32 {
    Vertices = 1,
    Edges = 2,
    Faces = 4,
    UVEdges = 8,
    BoundsOnly = 16, ///< a modifier's result stands in its place: no faces
    FrontOnly = 32,  ///< elements that face the view
    UVVertices = 64,
    CageEdges = 128,
    MarkedFaces = 256, ///< of the faces those that are selected or under the cursor
    CullBack = 512,    ///< the faces alone lose those that look away
    ActiveChanged = 0x400
};

/// It or, for a modifier's result, the mesh that the chain starts from. Points to move by hand show with their modifier
/// alone, while that is current.
bool isShown(const KMMeshNode &mesh);
bool isCurrent(const KMMeshNode &mesh); ///< selected, or it or its owner is the active node
quint32 of(const KMMeshNode &mesh, const KMCameraNode &camera);

} // namespace KMRenderMask
