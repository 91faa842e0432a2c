#pragma once

#include "core/KMTagBase.h"
#include "math/Matrix4.h"
#include "rig/PoseTransform.h"

#include <QCoreApplication>

#include <memory>

class KMBone;
class KMMeshNode;

/// Everything that a rigid body says to the player of the model. Sizes are full extents: what other programs call a
/// radius or a half width is half of them.
struct RigidBodyData
{
    int shape = 0;       ///< of KMTagRigidBody::Shape
    int rigidType = 0;   ///< of KMTagRigidBody::Kind
    float width = 1.0f;  ///< diameter of spheres and capsules; of boxes the extent along X
    float height = 1.0f; ///< along Z; of capsules twice the length between their half spheres
    float depth = 1.0f;  ///< of boxes along Y
    float linearDamping = 0.9f;
    float angularDamping = 0.9f;
    float friction = 0.0f;
    float restitution = 0.0f;
    float mass = 1.0f;
    bool enabled = true;
    quint32 collisionMask = 0; ///< bit for each group that it goes through
    int group = 0;             ///< 0 to 15
    PoseTransform pose;        ///< against the bone at rest
};

bool operator==(const RigidBodyData &a, const RigidBodyData &b); ///< exact
bool operator!=(const RigidBodyData &a, const RigidBodyData &b);

/// A body for the physics of the player, which hangs on a bone. Nothing is simulated here: it is set up, shown as a
/// wire and written out.
class KMTagRigidBody : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagRigidBody)
public:
    enum Shape : int { Sphere, Box, Capsule };
    enum Kind : int { Kinematic, Physics, PhysFix };
    enum : int { GroupCount = 16 };
    using Parameters = RigidBodyData;

    KMTagRigidBody();
    ~KMTagRigidBody() override;

    const RigidBodyData &parameters() const { return m_data; }
    void setParameters(const RigidBodyData &data); ///< the wire follows
    void setShape(int shape) { set(&RigidBodyData::shape, shape); }
    void setRigidType(int kind) { set(&RigidBodyData::rigidType, kind); }
    void setWidth(float width) { set(&RigidBodyData::width, width); }
    void setHeight(float height) { set(&RigidBodyData::height, height); }
    void setDepth(float depth) { set(&RigidBodyData::depth, depth); }
    void setLinearDamping(float damping) { set(&RigidBodyData::linearDamping, damping); }
    void setAngularDamping(float damping) { set(&RigidBodyData::angularDamping, damping); }
    void setFriction(float friction) { set(&RigidBodyData::friction, friction); }
    void setRestitution(float restitution) { set(&RigidBodyData::restitution, restitution); }
    void setMass(float mass) { set(&RigidBodyData::mass, mass); }
    void setEnabled(bool enabled) { set(&RigidBodyData::enabled, enabled); }
    void setCollisionMask(quint32 mask) { set(&RigidBodyData::collisionMask, mask); }
    void setGroup(int group) { set(&RigidBodyData::group, group); }
    void setPose(const PoseTransform &pose) { set(&RigidBodyData::pose, pose); }

    static QStringList shapeNames(); ///< by Shape
    static QStringList kindNames();  ///< by Kind
    static bool hasHeight(int shape) { return shape != Sphere; }
    static bool hasDepth(int shape) { return shape == Box; }

    KMBone *bone() const;             ///< the owner; null where that is none
    kvm::Matrix4 worldMatrix() const; ///< with the bone at rest
    KMMeshNode *gizmo() const;        ///< the wire in the world; made when it is first asked for
    void updateGizmo() { m_gizmoStale = true; }

    void setOwner(KMNode *owner) override;
    void onFullRefresh() override { updateGizmo(); } ///< the bone has moved
    KMTagRigidBody *clone() const override;

    /// Where something that hangs on a bone stands while the bone is at rest; a null bone is the origin. The scale has
    /// no say: a player, who isn't told of it, wouldn't show the same.
    static kvm::Matrix4 placeOn(const KMBone *bone, const PoseTransform &pose);

private:
    template <class Value>
    void set(Value RigidBodyData::*member, const Value &value)
    {
        m_data.*member = value;
        updateGizmo();
    }

    RigidBodyData m_data;
    mutable std::unique_ptr<KMMeshNode> m_gizmo;
    mutable bool m_gizmoStale = true;
};
