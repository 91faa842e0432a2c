#pragma once

#include <QList>

class KMBone;
class KMBoneContainer;
class KMTagJoint;
class KMTagRigidBody;

/// The live rigid bodies and joints of a rig, in the order of its bones and of their tags.
namespace KMRigTags {

QList<KMTagRigidBody *> bodies(const KMBoneContainer *container); ///< none for null
QList<KMTagJoint *> joints(const KMBoneContainer *container);
QList<KMTagRigidBody *> bodiesBeside(const KMBone *bone); ///< of the rig that the bone belongs to; none for null

} // namespace KMRigTags
