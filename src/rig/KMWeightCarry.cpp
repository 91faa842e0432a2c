// How the weights of a modifier's input come to its result.

#include "rig/KMTagBoneWeight.h"

#include <QVarLengthArray>

#include <algorithm>

namespace {

using Shares = QVarLengthArray<KMBoneShare, 16>;

/// Two bones of the input may be one here: both have the same partner.
void add(Shares &shares, int bone, float weight)
{
    const auto isOfBone = [bone](const KMBoneShare &share) { return share.bone == bone; };
    const auto found = std::find_if(shares.begin(), shares.end(), isOfBone);
    if (found == shares.end())
        shares.append({bone, weight});
    else
        found->weight += weight;
}

KMShareView listOf(const Shares &shares)
{
    return {shares.constData(), shares.size()};
}

} // namespace

void KMTagBoneWeight::beginCarry(KMCarriedTag &from)
{
    m_from = static_cast<const KMTagBoneWeight *>(&from);
    if (name() != from.name())
        setName(from.name());
    clearEntries();
    m_bones.clear(); // no step of the history knows the numbers of a result
    m_numbers.clear();
    m_parameters = m_from->m_parameters;
    m_carried.clear();
    for (KMBone *bone : m_from->m_bones)
        m_carried.append(bone ? numberOf(bone) : -1);
}

void KMTagBoneWeight::carryShares(KMShareView from, const QVector<int> &numbers, int vertex)
{
    Shares shares;
    for (const KMBoneShare &share : from) {
        if (numbers.at(share.bone) >= 0)
            add(shares, numbers.at(share.bone), share.weight);
    }
    setShares(vertex, listOf(shares));
}

void KMTagBoneWeight::carry(int fromVertex, int vertex)
{
    carryShares(m_from->m_lists.of(fromVertex), m_carried, vertex);
    setSdefFlag(vertex, m_from->hasSdefFlag(fromVertex));
}

/// A bone without a partner stands for itself.
void KMTagBoneWeight::mirrorAcross(const KMSymmetryPlane &plane)
{
    m_partners.follow(m_from->m_bones, plane);
    m_mirrored = m_carried;
    for (int i = 0; i < m_mirrored.size(); ++i) {
        if (KMBone *partner = m_partners.of(i))
            m_mirrored[i] = numberOf(partner);
    }
}

bool KMTagBoneWeight::isMirrorOther(const KMCarriedTag &from, const KMSymmetryPlane &plane)
{
    return m_partners.follow(static_cast<const KMTagBoneWeight &>(from).m_bones, plane);
}

void KMTagBoneWeight::carryMirrored(int fromVertex, int vertex)
{
    carryShares(m_from->m_lists.of(fromVertex), m_mirrored, vertex);
    setSdefFlag(vertex, m_from->hasSdefFlag(fromVertex));
}

/// In the order of the bones, not of those that happen to come first.
void KMTagBoneWeight::carryMixed(const int *fromVertices, const float *ratios, int count, int vertex)
{
    Shares sums;
    bool isFlagged = count > 0;
    for (int i = 0; i < count; ++i) {
        for (const KMBoneShare &share : m_from->m_lists.of(fromVertices[i])) {
            if (m_carried.at(share.bone) >= 0)
                add(sums, m_carried.at(share.bone), share.weight * ratios[i]);
        }
        isFlagged = isFlagged && m_from->hasSdefFlag(fromVertices[i]);
    }
    std::sort(sums.begin(), sums.end(), [](const KMBoneShare &a, const KMBoneShare &b) { return a.bone < b.bone; });
    Shares shares;
    for (const KMBoneShare &sum : sums) {
        if (sum.weight > 0.0f)
            shares.append(sum);
    }
    setShares(vertex, listOf(shares));
    setSdefFlag(vertex, isFlagged);
}
