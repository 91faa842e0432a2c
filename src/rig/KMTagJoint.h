#pragma once

#include "rig/KMTagRigidBody.h"

#include <QPointer>

#include <array>

/// What a joint says to the player of the model.
struct JointData
{
    /// Lowest and highest value about or along X, Y and Z, in this order.
    using Limits = std::array<float, 6>;

    QPointer<KMTagRigidBody> bodyA; ///< null for none
    QPointer<KMTagRigidBody> bodyB;
    PoseTransform pose; ///< against the bone at rest
    Limits linearLimit{};
    Limits angularLimit{}; ///< degrees
    kvm::Vector3 linearSpring;
    kvm::Vector3 angularSpring;
};

bool operator==(const JointData &a, const JointData &b); ///< exact
bool operator!=(const JointData &a, const JointData &b);

/// Holds two rigid bodies together in the physics of the player. It hangs on a bone, by which it is placed.
class KMTagJoint : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagJoint)
public:
    using Parameters = JointData;

    KMTagJoint();
    ~KMTagJoint() override;

    const JointData &parameters() const { return m_data; }
    void setParameters(const JointData &data); ///< the wire follows
    KMTagRigidBody *bodyA() const { return m_data.bodyA; }
    KMTagRigidBody *bodyB() const { return m_data.bodyB; }
    void linkBodies(KMTagRigidBody *a, KMTagRigidBody *b); ///< not owned; null for none
    void setPose(const PoseTransform &pose);
    void setLinearLimit(const JointData::Limits &limit) { m_data.linearLimit = limit; }
    void setAngularLimit(const JointData::Limits &degrees) { m_data.angularLimit = degrees; }
    void setLinearSpring(const kvm::Vector3 &spring) { m_data.linearSpring = spring; }
    void setAngularSpring(const kvm::Vector3 &spring) { m_data.angularSpring = spring; }

    KMBone *bone() const;             ///< the owner; null where that is none
    kvm::Matrix4 worldMatrix() const; ///< with the bone at rest
    KMMeshNode *gizmo() const;        ///< the wire in the world; made when it is first asked for
    void updateGizmo() { m_gizmoStale = true; }

    void setOwner(KMNode *owner) override;
    void onFullRefresh() override { updateGizmo(); } ///< the bone has moved
    KMTagJoint *clone() const override;              ///< between the same bodies

private:
    JointData m_data;
    mutable std::unique_ptr<KMMeshNode> m_gizmo;
    mutable bool m_gizmoStale = true;
};

/// A side of a joint and the body that was taken off it, for undo.
struct KMJointSide
{
    QPointer<KMTagJoint> joint;
    QPointer<KMTagRigidBody> body;
    bool isA;

    void restore() const;
};
