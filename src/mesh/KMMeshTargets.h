#pragma once

#include <QFlags>
#include <QList>

class KMMeshNode;

/// The meshes that a user command works on.
namespace KMMeshTargets {

enum Element { Vertices = 1, Edges = 2, Faces = 4 };
Q_DECLARE_FLAGS(Elements, Element)
Q_DECLARE_OPERATORS_FOR_FLAGS(Elements)

bool hasSelected(const KMMeshNode &mesh, Elements elements); ///< a selected element of one of the kinds

/// The meshes in the tree, in its order, that are selected, not locked, have a live tag of the type, and a
/// selected element of one of the kinds; without kinds no element is asked for.
QList<KMMeshNode *> find(Elements elements, int tagType);

} // namespace KMMeshTargets
