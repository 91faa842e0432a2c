#pragma once

class KMMeshNode;
class KMMirrorMap;

/// Deletes one element, each as one step of the history. With a map the mirror image goes along, where there is one.
/// False, and no step, when the element is missing, or the mesh is locked or made by a modifier or primitive.
namespace KMElementErase {

bool eraseVertex(KMMeshNode &mesh, int index, const KMMirrorMap *mirror);  ///< with the faces around it
bool eraseEdge(KMMeshNode &mesh, int a, int b, const KMMirrorMap *mirror); ///< the faces on it, lines too
bool eraseFace(KMMeshNode &mesh, int index, const KMMirrorMap *mirror);

} // namespace KMElementErase
