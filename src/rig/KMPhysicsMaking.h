#pragma once

#include <QList>

class KMBone;
class KMTagRigidBody;

/// Makes rigid bodies and joints that fit to bones. Pushes commands and opens no macro.
namespace KMPhysicsMaking {

/// Gives each bone a body of its length and name. With joints, each bone also gets one that holds its new body to that
/// of the parent: to the new one there, else to the first that the parent has.
void pushBodies(const QList<KMBone *> &bones, int shape, bool withJoints); ///< of KMTagRigidBody::Shape

/// Holds two bodies together half way between their bones; the joint hangs on the bone of a.
void pushSideJoint(KMTagRigidBody *a, KMTagRigidBody *b);

KMTagRigidBody *firstBody(const KMBone *bone); ///< the first live one; null for none, and for no bone

} // namespace KMPhysicsMaking
