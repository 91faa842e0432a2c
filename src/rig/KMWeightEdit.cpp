#include "rig/KMWeightEdit.h"

#include "rig/KMTagBoneWeight.h"

#include <QVarLengthArray>

#include <algorithm>
#include <iterator>

KMWeightEdit::KMWeightEdit(KMTagBoneWeight *tag)
    : m_tag(tag)
{
}

int KMWeightEdit::place(int vertex)
{
    const auto known = m_places.constFind(vertex);
    if (known != m_places.constEnd())
        return *known;
    const int next = m_vertices.size();
    m_places.insert(vertex, next);
    m_vertices.append(vertex);
    m_before.set(next, m_tag->lists().of(vertex));
    m_after.set(next, m_tag->lists().of(vertex));
    return next;
}

KMShareView KMWeightEdit::shares(Side side, int vertex) const
{
    return (side == Side::Before ? m_before : m_after).of(m_places.value(vertex, -1));
}

KMShareView KMWeightEdit::now(int vertex) const
{
    return m_places.contains(vertex) ? shares(Side::After, vertex) : m_tag->lists().of(vertex);
}

bool KMWeightEdit::isEmpty() const
{
    return std::all_of(m_vertices.begin(), m_vertices.end(), [this](int vertex) {
        const KMShareView before = shares(Side::Before, vertex), after = shares(Side::After, vertex);
        return std::equal(before.begin(), before.end(), after.begin(), after.end());
    });
}

float KMWeightEdit::weight(int vertex, KMBone *bone) const
{
    for (const KMBoneShare &share : now(vertex)) {
        if (share.bone == m_tag->knownNumberOf(bone))
            return share.weight;
    }
    return 0.0f;
}

bool KMWeightEdit::hasEntry(int vertex, KMBone *bone) const
{
    const int number = m_tag->knownNumberOf(bone);
    const KMShareView shares = now(vertex);
    return std::any_of(shares.begin(), shares.end(), [number](const KMBoneShare &s) { return s.bone == number; });
}

QVector<BoneWeightEntry> KMWeightEdit::entriesOf(int vertex) const
{
    QVector<BoneWeightEntry> entries;
    for (const KMBoneShare &share : now(vertex)) {
        if (KMBone *bone = m_tag->bones().at(share.bone))
            entries.append({vertex, share.weight, bone});
    }
    return entries;
}

void KMWeightEdit::setWeight(int vertex, KMBone *bone, float weight)
{
    const int row = place(vertex);
    const int number = m_tag->numberOf(bone);
    const int known = m_after.placeOf(row, number);
    if (known < 0)
        m_after.append(row, {number, KMTagBoneWeight::bounded(weight)});
    else
        m_after.edit(row)[known].weight = KMTagBoneWeight::bounded(weight);
}

void KMWeightEdit::removeEntry(int vertex, KMBone *bone)
{
    if (!hasEntry(vertex, bone))
        return;
    const int row = place(vertex);
    m_after.remove(row, m_after.placeOf(row, m_tag->knownNumberOf(bone)));
}

void KMWeightEdit::setEntries(int vertex, const QVector<BoneWeightEntry> &entries)
{
    const auto stays = [this, &entries](const KMBoneShare &share) {
        const KMBone *bone = m_tag->bones().at(share.bone);
        const auto isOfBone = [bone](const BoneWeightEntry &entry) { return entry.bone == bone; };
        return !m_tag->isLive(share.bone) || std::any_of(entries.begin(), entries.end(), isOfBone);
    };
    const KMShareView before = now(vertex);
    QVarLengthArray<KMBoneShare, 8> kept;
    std::copy_if(before.begin(), before.end(), std::back_inserter(kept), stays);
    m_after.set(place(vertex), {kept.constData(), kept.size()});
    for (const BoneWeightEntry &entry : entries)
        setWeight(vertex, entry.bone, entry.weight);
}

void KMWeightEdit::normalize(int vertex)
{
    QVarLengthArray<KMBoneShare, 8> live;
    for (const KMBoneShare &share : now(vertex)) {
        if (m_tag->isLive(share.bone))
            live.append(share);
    }
    if (live.isEmpty())
        return;
    normalizeShares(live.data(), live.size());
    const int row = place(vertex);
    KMBoneShare *shares = m_after.edit(row);
    for (int i = 0, next = 0; next < live.size(); ++i) {
        if (shares[i].bone == live.at(next).bone)
            shares[i] = live.at(next++);
    }
}

void KMWeightEdit::write(Side side) const
{
    write(side, m_vertices);
}

void KMWeightEdit::write(Side side, const QVector<int> &vertices) const
{
    for (const int vertex : vertices)
        m_tag->setShares(vertex, shares(side, vertex));
}
