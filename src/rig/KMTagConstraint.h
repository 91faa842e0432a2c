#pragma once

#include "core/KMTagBase.h"

class KMBone;

/// What a constraint says. Its numbers are for the player of the model.
struct ConstraintData
{
    KMBone *target = nullptr; ///< not owned
    float value = 0.0f;       ///< the share that is taken over; for IK the angle of a step in degrees
    int loop = 0;
    int type = 0;    ///< of KMTagConstraint::Type
    int ikDepth = 0; ///< links of the chain
};

bool operator==(const ConstraintData &a, const ConstraintData &b); ///< exact
bool operator!=(const ConstraintData &a, const ConstraintData &b);

/// A rule by which the player of the model moves the bone that has this tag. Here it is kept and shown, and changes no
/// pose.
class KMTagConstraint : public KMTagBase
{
    Q_OBJECT
public:
    /// Bits: exchange formats test them one by one.
    enum Type : int { None = 0, Translate = 1, Rotate = 2, TranslateAndRotate = 3, IK = 4, Twist = 8 };

    KMTagConstraint();

    const ConstraintData &data() const { return m_data; }
    void setData(const ConstraintData &data) { m_data = data; }
    KMTagConstraint *clone() const override;

private:
    ConstraintData m_data;
};
