#pragma once

#include <QVector>

class KMBone;
class KMMeshNode;
class KMTagBoneWeight;
class KMWeightEdit;

/// What commands and tools on bone weights work on.
namespace KMWeightTargets {

/// The active mesh: the current node, or the mesh at the start of the chain when that is a modifier. While the user is
/// at something else, such as a rig, the node that was current before, else the first chosen mesh. Null for none.
KMMeshNode *mesh();
KMTagBoneWeight *tag(const KMMeshNode &mesh);          ///< null without one
QVector<int> selectedVertices(const KMMeshNode &mesh); ///< touched by any selected element; ascending

/// The bone that is meant: the current one, else the first selected one of the rigs in the tree. Null for none.
KMBone *bone();
KMBone *mirrorBone(KMBone *bone); ///< its partner, looked for now; the bone itself on the plane, null without one
KMBone *imageBone(KMBone *bone);  ///< the same, but of bones that lie in one place each has its own

/// Pushes an edit as one command that says what it is: only added entries, only deleted ones, or anything. Nothing
/// where nothing would change.
void push(KMMeshNode *mesh, const KMWeightEdit &edit);

} // namespace KMWeightTargets
