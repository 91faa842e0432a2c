#include "rig/KMWeightRecords.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"

#include <QVarLengthArray>

#include <algorithm>
#include <utility>

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

bool isFlagged(const KMWeightSource &source, int vertex)
{
    return std::binary_search(source.sdefVertices.begin(), source.sdefVertices.end(), vertex);
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
        takeOver(source, i, false);
    if (source.parameters.autoNormalize) {
        for (int i = 0, n = m_lists.vertexCount(); i < n; ++i)
            normalize(source, i);
    }
    rebuildSdef(source);
}

/// Other vertices of a pair are blended anew only where one of these reached farthest, or does now.
void KMWeightRecords::follow(const KMWeightSource &source, const QVector<int> &vertices)
{
    for (int i = m_rests.size(); i < source.bones.size() && !source.sdefVertices.isEmpty(); ++i)
        m_rests.append(restOf(source.bones.at(i)));
    QVector<int> touched; // pairs
    bool canFollow = true;
    for (const int vertex : vertices) {
        const bool blends = count(source, vertex, isFlagged(source, vertex));
        if (blends || sdefOf(vertex))
            canFollow = followPair(source, vertex, blends, touched) && canFollow;
    }
    if (!canFollow)
        return rebuildSdef(source);
    if (touched.isEmpty())
        return;
    ++m_sdefRevision;
    m_areAllDerived = false;
    m_derived.clear();
    std::sort(touched.begin(), touched.end());
    touched.erase(std::unique(touched.begin(), touched.end()), touched.end());
    for (const int pair : std::as_const(touched)) {
        if (measure(source, pair))
            m_derived += m_pairs.at(pair).vertices;
    }
    for (const QVector<int> *some : {&vertices, &std::as_const(m_derived)}) {
        for (const int vertex : *some) {
            if (sdefOf(vertex))
                derive(source, m_sdef[m_sdefOf.at(vertex)]);
        }
    }
}

/// False when it takes a pair that isn't there, or leaves one that has no other vertex.
bool KMWeightRecords::followPair(const KMWeightSource &source, int vertex, bool blends, QVector<int> &touched)
{
    const KMShareView shares = of(vertex);
    const int before = sdefOf(vertex) ? sdefOf(vertex)->pair : -1;
    const int after = blends ? m_pairs.find(source.bones.at(shares[0].bone), source.bones.at(shares[1].bone)) : -1;
    if (blends && after < 0)
        return false;
    if (before >= 0)
        touched.append(before);
    if (after == before)
        return true;
    if (before >= 0)
        m_pairs.take(before, vertex);
    if (after >= 0) {
        touched.append(after);
        m_pairs.enter(after, vertex);
        placeRecord(vertex, after);
    } else {
        dropRecord(vertex);
    }
    return before < 0 || !m_pairs.at(before).vertices.isEmpty();
}

void KMWeightRecords::placeRecord(int vertex, int pair)
{
    while (m_sdefOf.size() <= vertex)
        m_sdefOf.append(-1);
    if (m_sdefOf.at(vertex) < 0) {
        m_sdefOf[vertex] = m_sdef.size();
        m_sdef.append(KMSdefVertex());
    }
    KMSdefVertex &record = m_sdef[m_sdefOf.at(vertex)];
    record.vertex = vertex;
    record.pair = pair;
}

/// The last record takes its place.
void KMWeightRecords::dropRecord(int vertex)
{
    const int place = std::exchange(m_sdefOf[vertex], -1);
    const KMSdefVertex last = m_sdef.takeLast();
    if (last.vertex == vertex)
        return;
    m_sdef[place] = last;
    m_sdefOf[last.vertex] = place;
}

bool KMWeightRecords::derivedSince(int revision, QVector<int> &vertices) const
{
    if (revision == m_sdefRevision)
        return true;
    if (m_areAllDerived || revision != m_sdefRevision - 1)
        return false;
    vertices += m_derived;
    return true;
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

void KMWeightRecords::takeOver(const KMWeightSource &source, int vertex, bool blends)
{
    const KMShareView shares = source.lists.of(vertex);
    const auto isGoneOne = [&source](const KMBoneShare &share) { return isGone(source.bones.at(share.bone)); };
    if (std::none_of(shares.begin(), shares.end(), isGoneOne)) {
        m_lists.set(vertex, shares);
        return;
    }
    QVarLengthArray<KMBoneShare, 8> kept;
    for (const KMBoneShare &share : shares) {
        if (blends ? !isGoneOne(share) : source.bones.at(share.bone) != nullptr)
            kept.append(share);
    }
    m_lists.set(vertex, {kept.constData(), kept.size()});
}

/// The weights of a vertex as they count, and whether it is blended spherically: the bone with the higher place in the
/// container is its first then.
bool KMWeightRecords::count(const KMWeightSource &source, int vertex, bool isFlagged)
{
    const bool blends = isFlagged && canBlend(source, vertex);
    takeOver(source, vertex, blends);
    if (blends) {
        KMBoneShare *shares = m_lists.edit(vertex);
        if (source.bones.at(shares[0].bone)->boneIndex() < source.bones.at(shares[1].bone)->boneIndex())
            std::swap(shares[0], shares[1]);
    }
    normalize(source, vertex);
    return blends;
}

void KMWeightRecords::normalize(const KMWeightSource &source, int vertex)
{
    if (source.parameters.autoNormalize && !of(vertex).isEmpty())
        normalizeShares(m_lists.edit(vertex), of(vertex).size());
}

void KMWeightRecords::rebuildSdef(const KMWeightSource &source)
{
    for (const KMSdefVertex &record : std::as_const(m_sdef))
        count(source, record.vertex, false);
    ++m_sdefRevision;
    m_areAllDerived = true;
    m_derived.clear();
    m_sdef.clear();
    m_sdefOf.clear();
    m_rests.clear();
    m_pairs = KMSdefPairs(source.parameters.sdefMethod);
    for (const int vertex : source.sdefVertices) {
        if (!count(source, vertex, true))
            continue;
        const KMShareView shares = of(vertex);
        KMSdefVertex record;
        record.vertex = vertex;
        record.pair = m_pairs.add(vertex, source.bones.at(shares[0].bone), source.bones.at(shares[1].bone));
        m_sdef.append(record);
    }
    for (int pair = 0; pair < pairs().size(); ++pair)
        measure(source, pair);
    if (!m_sdef.isEmpty())
        m_sdefOf.fill(-1, m_sdef.last().vertex + 1);
    for (int i = 0; i < m_sdef.size(); ++i) {
        m_sdefOf[m_sdef.at(i).vertex] = i;
        derive(source, m_sdef[i]);
    }
    if (source.sdefVertices.isEmpty())
        return;
    for (const KMBone *bone : source.bones)
        m_rests.append(restOf(bone));
}

/// With the weights as the user gave them; the parameters use those that count.
bool KMWeightRecords::measure(const KMWeightSource &source, int pair)
{
    return m_pairs.measure(pair, source.mesh, [&source](int vertex, const KMBone *bone) {
        const KMShareView shares = source.lists.of(vertex);
        const auto isOfBone = [&](const KMBoneShare &share) { return source.bones.at(share.bone) == bone; };
        return std::find_if(shares.begin(), shares.end(), isOfBone)->weight;
    });
}

/// The parent comes first, whatever the places.
void KMWeightRecords::derive(const KMWeightSource &source, KMSdefVertex &record)
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
