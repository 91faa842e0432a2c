#include "rig/VertexWeights.h"

#include "rig/KMWeightRecords.h"

using kvm::Vector3;

QVector<float> VertexWeights::weights() const
{
    QVector<float> weights;
    for (const KMBoneShare &share : m_shares)
        weights.append(share.weight);
    return weights;
}

QVector<KMBone *> VertexWeights::bones() const
{
    QVector<KMBone *> bones;
    for (int i = 0; i < count(); ++i)
        bones.append(bone(i));
    return bones;
}

bool VertexWeights::unrelated() const
{
    return m_sdef && m_sdef->unrelated;
}

Vector3 VertexWeights::sdefC() const
{
    return m_sdef ? m_sdef->parameters.c : Vector3();
}

Vector3 VertexWeights::sdefR0() const
{
    return m_sdef ? m_sdef->parameters.r0 : Vector3();
}

Vector3 VertexWeights::sdefR1() const
{
    return m_sdef ? m_sdef->parameters.r1 : Vector3();
}
