#include "modifiers/KMResultWeights.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMCarriedTag.h"

bool KMResultWeights::begin(const KMMeshNode &input)
{
    auto *from = static_cast<KMCarriedTag *>(input.findTag(KMNodeType::TagBoneWeight));
    if (m_tag)
        m_tag->setDeleted(!from);
    if (!from)
        return false;
    if (!m_tag) {
        m_tag = from->cloneEmpty();
        m_result.addTagKeepName(m_tag);
    }
    m_tag->beginCarry(*from);
    return true;
}

void KMResultWeights::carry(const QVector<int> &map, int offset)
{
    for (int i = 0; i < map.size(); ++i) {
        if (map.at(i) >= 0)
            m_tag->carry(i, map.at(i) + offset);
    }
}

void KMResultWeights::carryOne(int fromVertex, int vertex)
{
    if (fromVertex >= 0 && vertex >= 0)
        m_tag->carry(fromVertex, vertex);
}

void KMResultWeights::mirrorAcross(const KMSymmetryPlane &plane)
{
    m_tag->mirrorAcross(plane);
}

bool KMResultWeights::isMirrorOther(const KMMeshNode &input, const KMSymmetryPlane &plane) const
{
    const auto *from = static_cast<const KMCarriedTag *>(input.findTag(KMNodeType::TagBoneWeight));
    return from && m_tag && !m_tag->isDeleted() && m_tag->isMirrorOther(*from, plane);
}

void KMResultWeights::carryMirrored(int fromVertex, int vertex)
{
    if (fromVertex >= 0 && vertex >= 0)
        m_tag->carryMirrored(fromVertex, vertex);
}

void KMResultWeights::carryMixed(const int *fromVertices, const float *ratios, int count, int vertex)
{
    m_tag->carryMixed(fromVertices, ratios, count, vertex);
}
