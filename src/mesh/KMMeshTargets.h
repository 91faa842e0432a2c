#pragma once

#include <QFlags>
#include <QList>

class KMContainerNode;
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

/// The node whose state counts for a mesh: the modifier or primitive that made it, else the mesh itself.
const KMContainerNode &stateNode(const KMMeshNode &mesh);

/// What the user has chosen in the tree: a mesh that is selected or lies below a selected node. The result of a
/// modifier or primitive is chosen when that itself is selected.
bool isChosen(const KMMeshNode &mesh);

/// The chosen meshes, results included, that are not locked, in the order of the tree; with what is hidden or not.
QList<KMMeshNode *> chosen();
bool isEditable(const KMMeshNode &mesh); ///< not locked, in the scene, and shown there

/// The points that a modifier offers to be moved by hand, such as a lattice.
bool isControl(const KMMeshNode &mesh);
/// Its faces are drawn, and so hide, catch and hold what meets them: those of points to be moved by hand are not.
bool hasSurface(const KMMeshNode &mesh);
/// Of a chain with such points, while the user works at these and not at the mesh itself: the mouse means the points.
bool isUnderControl(const KMMeshNode &mesh);

/// Its vertices are the user's: what a primitive makes isn't to be moved one by one, nor is the result of a modifier
/// that has points for this.
bool hasOwnVertices(const KMMeshNode &mesh);
/// So are its edges and faces, and which vertices there are: steps that cut and join may work on it.
bool hasOwnTopology(const KMMeshNode &mesh);

/// The kinds of elements that the session's edit filter lets the mouse work on.
Elements filteredElements();

} // namespace KMMeshTargets
