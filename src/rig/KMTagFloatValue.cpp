#include "rig/KMTagFloatValue.h"

#include "core/KMNodeType.h"

KMTagFloatValue::KMTagFloatValue()
{
    setType(KMNodeType::TagFloatValue);
    setName(tr("FloatValue"));
}

KMTagFloatValue *KMTagFloatValue::clone() const
{
    auto *copy = new KMTagFloatValue;
    copy->setName(name());
    copy->setParameters(m_data);
    return copy;
}
