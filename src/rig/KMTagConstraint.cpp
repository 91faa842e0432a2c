#include "rig/KMTagConstraint.h"

#include "core/KMNodeType.h"

bool operator==(const ConstraintData &a, const ConstraintData &b)
{
    return a.target == b.target && a.value == b.value && a.loop == b.loop && a.type == b.type && a.ikDepth == b.ikDepth;
}

bool operator!=(const ConstraintData &a, const ConstraintData &b)
{
    return !(a == b);
}

KMTagConstraint::KMTagConstraint()
{
    setType(KMNodeType::TagConstraint);
    setName(tr("Constraint"));
}

KMTagConstraint *KMTagConstraint::clone() const
{
    auto *copy = new KMTagConstraint;
    copy->setName(name());
    copy->setData(m_data);
    return copy;
}
