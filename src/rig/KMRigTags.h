#pragma once

#include <QList>
#include <QVector>

class KMBone;
class KMBoneContainer;
class KMContainerNode;
class KMNode;
class KMTagBase;
class KMTagJoint;
class KMTagRigidBody;

/// What hangs on the bones of a rig: its live rigid bodies and joints, in the order of bones and of their tags.
namespace KMRigTags {

QList<KMTagRigidBody *> bodies(const KMBoneContainer *container); ///< none for null
QList<KMTagJoint *> joints(const KMBoneContainer *container);
QList<KMTagRigidBody *> bodiesBeside(const KMBone *bone); ///< of the rig that the bone belongs to; none for null

/// A tag and what was copied of it.
struct Copied
{
    KMTagBase *source;
    KMTagBase *copy;
};
using Copies = QVector<Copied>;
/// Joints among the copies hold the copies of their bodies, where these were copied along.
void relinkCopies(const Copies &copies);

/// What keeps the tags of a node from being edited: a bone that is locked, or its rig; null where nothing does.
const KMContainerNode *lockOf(const KMNode *owner);

/// The rig of the current node, else of the current bone, whether it is locked or not; null for none.
KMBoneContainer *currentRig();

} // namespace KMRigTags
