#pragma once

#include <QList>

class KMBone;
class KMBoneContainer;
class KMContainerNode;
class KMTagBase;
class KMTagJoint;
class KMTagRigidBody;

/// What hangs on the bones of a rig: its live rigid bodies and joints, in the order of bones and of their tags.
namespace KMRigTags {

QList<KMTagRigidBody *> bodies(const KMBoneContainer *container); ///< none for null
QList<KMTagJoint *> joints(const KMBoneContainer *container);
QList<KMTagRigidBody *> bodiesBeside(const KMBone *bone); ///< of the rig that the bone belongs to; none for null

/// What locks a tag of a bone: the bone or its rig; null for a tag that may be edited.
const KMContainerNode *lockOf(const KMTagBase *tag);

/// The rig of the current node, else of the current bone, whether it is locked or not; null for none.
KMBoneContainer *currentRig();

} // namespace KMRigTags
