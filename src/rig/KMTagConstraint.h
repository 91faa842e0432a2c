#pragma once

#include "core/KMTagBase.h"
#include "rig/KMBone.h"

#include <QPointer>
#include <QVector>

/// What a constraint says. Its numbers are for the player of the model.
struct ConstraintData
{
    QPointer<KMBone> target; ///< null for none, and when it is gone for good
    float value = 0.0f;      ///< the share that is taken over; for IK the angle of a step in degrees
    int loop = 0;
    int type = 0;    ///< of KMTagConstraint::Type
    int ikDepth = 0; ///< links of the chain
};

bool operator==(const ConstraintData &a, const ConstraintData &b); ///< exact
bool operator!=(const ConstraintData &a, const ConstraintData &b);

/// A bone of an IK chain while the chain is solved.
struct IkLink
{
    KMBone *bone;
    kvm::Quaternion rotation; ///< of the key pose, before the sweep
    kvm::Vector3 restHead;
    kvm::Vector3 restTail;
    kvm::Matrix4 world; ///< as the sweep has turned it so far
};

/// A rule by which the player of the model moves the bone that has this tag. Here it is kept and shown, and changes no
/// pose.
class KMTagConstraint : public KMTagBase
{
    Q_OBJECT
public:
    /// Bits: exchange formats test them one by one.
    enum Type : int { None = 0, Translate = 1, Rotate = 2, TranslateAndRotate = 3, IK = 4, Twist = 8 };
    using Parameters = ConstraintData;

    KMTagConstraint();

    const ConstraintData &data() const { return m_data; }
    void setData(const ConstraintData &data) { m_data = data; }
    const ConstraintData &parameters() const { return m_data; } ///< the same, as pages ask for it
    void setParameters(const ConstraintData &data) { m_data = data; }
    void setTarget(KMBone *target) { m_data.target = target; }
    void setValue(float value) { m_data.value = value; }
    void setLoop(int loop) { m_data.loop = loop; }
    void setConstraintType(int type) { m_data.type = type; }
    void setIkDepth(int links) { m_data.ikDepth = links; }
    KMTagConstraint *clone() const override;

    /// Turns the bones above the target so that the chain's end comes nearer to the head of this tag's bone: one sweep
    /// of cyclic coordinate descent from the end of the chain upwards. The result stands in the constraint poses of the
    /// links and in their pose of the world. Nothing calls it while poses are evaluated: the player of the model solves
    /// its constraints itself.
    void solveIK();
    const QVector<IkLink> &links() const { return m_links; } ///< of the last solveIK(), from the target's parent up

private:
    void collectLinks();
    void turn(IkLink &joint, const kvm::Vector3 &effector, const kvm::Vector3 &goal);
    void recomputeLinks();

    ConstraintData m_data;
    QVector<IkLink> m_links;
};
