#include "rig/KMWeightRecords.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMSdefPairs.h"

#include <QVarLengthArray>

#include <algorithm>

namespace {

bool isGone(const KMBone *bone)
{
    return !bone || bone->isDeleted();
}

/// Between two bones that are there; whatever else it had isn't any more.
bool canBlend(const KMWeightSource &source, int vertex)
{
    const KMShareView shares = source.lists.of(vertex);
    const auto isThere = [&source](const KMBoneShare &share) { return !isGone(source.bones.at(share.bone)); };
    return source.mesh.vertex(vertex) && std::count_if(shares.begin(), shares.end(), isThere) == 2;
}

} // namespace

bool KMWeightRecords::Rest::operator==(const Rest &other) const
{
    return head == other.head && tail == other.tail && parent == other.parent && index == other.index
           && isGone == other.isGone;
}

KMWeightRecords::Rest KMWeightRecords::restOf(const KMBone *bone)
{
    if (!bone)
        return {{}, {}, nullptr, -1, true};
    return {bone->restHead(), bone->restTail(), bone->parentBone(), bone->boneIndex(), bone->isDeleted()};
}

void KMWeightRecords::rebuild(const KMWeightSource &source)
{
    m_lists = source.lists; // shared until one of them differs
    m_sdef.clear();
    m_sdefOf.clear();
    for (int i = 0, n = source.bones.contains(nullptr) ? m_lists.vertexCount() : 0; i < n; ++i)
        takeOver(source, i);
    if (source.parameters.autoNormalize) {
        for (int i = 0, n = m_lists.vertexCount(); i < n; ++i)
            normalize(source, i);
    }
    rebuildSdef(source);
}

void KMWeightRecords::follow(const KMWeightSource &source, const QVector<int> &vertices)
{
    bool isSpherical = false;
    for (const int vertex : vertices) {
        isSpherical = isSpherical || sdefOf(vertex)
                      || std::binary_search(source.sdefVertices.begin(), source.sdefVertices.end(), vertex);
        takeOver(source, vertex);
        normalize(source, vertex);
    }
    if (isSpherical)
        rebuildSdef(source);
}

void KMWeightRecords::followPlaces(const KMWeightSource &source)
{
    if (!source.sdefVertices.isEmpty() && arePlacesOther(source))
        rebuildSdef(source);
}

void KMWeightRecords::clear()
{
    const int next = m_sdefRevision + 1;
    *this = {};
    m_sdefRevision = next;
}

/// A vertex that came or went matters too.
bool KMWeightRecords::arePlacesOther(const KMWeightSource &source) const
{
    if (m_rests.size() != source.bones.size())
        return true;
    for (int i = 0; i < m_rests.size(); ++i) {
        if (!(m_rests.at(i) == restOf(source.bones.at(i))))
            return true;
    }
    for (const KMSdefVertex &record : m_sdef) {
        const KMVertex *vertex = source.mesh.vertex(record.vertex);
        if (!vertex || vertex->pos != record.place)
            return true;
    }
    const auto canNow = [&source](int vertex) { return canBlend(source, vertex); };
    return std::count_if(source.sdefVertices.begin(), source.sdefVertices.end(), canNow) != m_sdef.size();
}

void KMWeightRecords::takeOver(const KMWeightSource &source, int vertex)
{
    const KMShareView shares = source.lists.of(vertex);
    const auto isGoneOne = [&source](const KMBoneShare &share) { return isGone(source.bones.at(share.bone)); };
    if (std::none_of(shares.begin(), shares.end(), isGoneOne)) {
        m_lists.set(vertex, shares);
        return;
    }
    const bool blends =
        canBlend(source, vertex) && std::binary_search(source.sdefVertices.begin(), source.sdefVertices.end(), vertex);
    QVarLengthArray<KMBoneShare, 8> kept;
    for (const KMBoneShare &share : shares) {
        if (blends ? !isGoneOne(share) : source.bones.at(share.bone) != nullptr)
            kept.append(share);
    }
    m_lists.set(vertex, {kept.constData(), kept.size()});
}

void KMWeightRecords::normalize(const KMWeightSource &source, int vertex)
{
    if (source.parameters.autoNormalize && !of(vertex).isEmpty())
        normalizeShares(m_lists.edit(vertex), of(vertex).size());
}

/// The pairs are measured with the weights as the user gave them, the parameters use those that count.
void KMWeightRecords::rebuildSdef(const KMWeightSource &source)
{
    for (const KMSdefVertex &record : std::as_const(m_sdef)) {
        takeOver(source, record.vertex);
        normalize(source, record.vertex);
    }
    ++m_sdefRevision;
    m_sdef.clear();
    m_sdefOf.clear();
    m_rests.clear();
    KMSdefPairs pairs(source.parameters.sdefMethod);
    for (const int vertex : source.sdefVertices) {
        takeOver(source, vertex);
        if (canBlend(source, vertex)) {
            KMBoneShare *shares = m_lists.edit(vertex);
            if (source.bones.at(shares[0].bone)->boneIndex() < source.bones.at(shares[1].bone)->boneIndex())
                std::swap(shares[0], shares[1]);
            KMSdefVertex record;
            record.vertex = vertex;
            record.pair = pairs.add(vertex, source.bones.at(shares[0].bone), source.bones.at(shares[1].bone));
            m_sdef.append(record);
        }
        normalize(source, vertex);
    }
    pairs.measure(source.mesh, [&source](int vertex, const KMBone *bone) {
        const KMShareView shares = source.lists.of(vertex);
        return std::find_if(shares.begin(), shares.end(),
                            [&](const KMBoneShare &share) { return source.bones.at(share.bone) == bone; })
            ->weight;
    });
    m_pairs = pairs.pairs();
    if (!m_sdef.isEmpty())
        m_sdefOf.fill(-1, m_sdef.last().vertex + 1);
    for (int i = 0; i < m_sdef.size(); ++i) {
        KMSdefVertex &record = m_sdef[i];
        m_sdefOf[record.vertex] = i;
        orderByParent(source, record);
    }
    if (source.sdefVertices.isEmpty())
        return;
    for (const KMBone *bone : source.bones)
        m_rests.append(restOf(bone));
}

void KMWeightRecords::orderByParent(const KMWeightSource &source, KMSdefVertex &record)
{
    KMBoneShare *shares = m_lists.edit(record.vertex);
    if (source.bones.at(shares[0].bone)->parentBone() == source.bones.at(shares[1].bone))
        std::swap(shares[0], shares[1]);
    const SdefPair &pair = m_pairs.at(record.pair);
    record.unrelated = pair.unrelated;
    record.place = source.mesh.position(record.vertex);
    record.parameters =
        KMSdefParameters::of(record.place, *source.bones.at(shares[0].bone), *source.bones.at(shares[1].bone),
                             shares[0].weight, shares[1].weight, pair, source.mesh, source.parameters);
}
