#include "rig/KMTagBoneWeight.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"

#include <algorithm>
#include <cmath>
#include <limits>

KMTagBoneWeight::KMTagBoneWeight()
{
    setType(KMNodeType::TagBoneWeight);
    setName(tr("BoneWeightTag"));
    if (gProject)
        connect(gProject, &KMProject::boneDestroyed, this, &KMTagBoneWeight::forgetBone);
}

KMMeshNode *KMTagBoneWeight::mesh() const
{
    return owner() && owner()->type() == KMNodeType::Mesh ? static_cast<KMMeshNode *>(owner()) : nullptr;
}

void KMTagBoneWeight::setParameters(const KMWeightParameters &parameters)
{
    m_parameters = parameters;
    m_parameters.sdefMethod =
        std::clamp<int>(parameters.sdefMethod, KMWeightParameters::Parent, KMWeightParameters::Both);
    if (!std::isfinite(m_parameters.sdefBlend))
        m_parameters.sdefBlend = KMWeightParameters().sdefBlend;
    m_isStale = true;
}

float KMTagBoneWeight::bounded(float weight)
{
    return std::isnan(weight) ? 0.0f : std::clamp(weight, 0.0f, 1.0f);
}

int KMTagBoneWeight::numberOf(KMBone *bone)
{
    const auto known = m_numbers.constFind(bone);
    if (known != m_numbers.constEnd())
        return *known;
    m_numbers.insert(bone, m_bones.size());
    m_bones.append(bone);
    return m_bones.size() - 1;
}

void KMTagBoneWeight::exchangeBone(int number, KMBone *bone)
{
    m_numbers.remove(m_bones.at(number));
    m_bones[number] = bone;
    if (bone)
        m_numbers.insert(bone, number);
    staleAll();
}

bool KMTagBoneWeight::isLive(int number) const
{
    const KMBone *bone = m_bones.at(number);
    return bone && !bone->isDeleted();
}

/// Whatever else it was is gone already when it tells.
void KMTagBoneWeight::forgetBone(KMNode *bone)
{
    const auto known = m_numbers.find(static_cast<KMBone *>(bone));
    if (known == m_numbers.end())
        return;
    m_bones[*known] = nullptr;
    m_numbers.erase(known);
    staleAll();
}

void KMTagBoneWeight::touch(int vertex)
{
    ++m_revision;
    if (m_isStale)
        return;
    m_touched.append(vertex);
    if (m_touched.size() > m_lists.vertexCount()) {
        m_touched.clear();
        m_isStale = true;
    }
}

void KMTagBoneWeight::staleAll()
{
    ++m_revision;
    m_isStale = true;
}

void KMTagBoneWeight::addEntry(const BoneWeightEntry &entry)
{
    if (entry.vertex < 0 || !entry.bone)
        return;
    const int number = numberOf(entry.bone);
    const int place = m_lists.placeOf(entry.vertex, number);
    if (place < 0)
        m_lists.append(entry.vertex, {number, bounded(entry.weight)});
    else
        m_lists.edit(entry.vertex)[place].weight = bounded(entry.weight);
    touch(entry.vertex);
}

bool KMTagBoneWeight::removeEntry(int vertex, const KMBone *bone)
{
    const int place = m_lists.placeOf(vertex, knownNumberOf(bone));
    if (place < 0)
        return false;
    m_lists.remove(vertex, place);
    touch(vertex);
    return true;
}

std::optional<BoneWeightEntry> KMTagBoneWeight::entry(int vertex, const KMBone *bone) const
{
    const int number = knownNumberOf(bone);
    const int place = number < 0 ? -1 : m_lists.placeOf(vertex, number);
    if (place < 0)
        return {};
    return BoneWeightEntry{vertex, m_lists.of(vertex)[place].weight, m_bones.at(number)};
}

bool KMTagBoneWeight::hasEntry(int vertex, const KMBone *bone) const
{
    return entry(vertex, bone).has_value();
}

float KMTagBoneWeight::weight(int vertex, const KMBone *bone) const
{
    const std::optional<BoneWeightEntry> found = entry(vertex, bone);
    return found ? found->weight : 0.0f;
}

QVector<BoneWeightEntry> KMTagBoneWeight::entriesOf(int vertex) const
{
    QVector<BoneWeightEntry> entries;
    for (const KMBoneShare &share : m_lists.of(vertex)) {
        if (KMBone *bone = m_bones.at(share.bone))
            entries.append({vertex, share.weight, bone});
    }
    return entries;
}

QVector<BoneWeightEntry> KMTagBoneWeight::entries() const
{
    QVector<BoneWeightEntry> entries;
    entries.reserve(m_lists.shareCount());
    for (int i = 0; i < m_lists.vertexCount(); ++i)
        entries += entriesOf(i);
    return entries;
}

void KMTagBoneWeight::clearEntries()
{
    m_lists.clear();
    m_sdefFlags.clear();
    m_areSdefVerticesKnown = false;
    staleAll();
}

void KMTagBoneWeight::setShares(int vertex, KMShareView shares)
{
    m_lists.set(vertex, shares);
    for (int i = 0; i < shares.size(); ++i) {
        float &weight = m_lists.edit(vertex)[i].weight;
        weight = bounded(weight);
    }
    touch(vertex);
}

void KMTagBoneWeight::setSdefFlag(int vertex, bool flagged)
{
    if (vertex < 0 || hasSdefFlag(vertex) == flagged)
        return;
    if (vertex >= m_sdefFlags.size())
        m_sdefFlags.resize(vertex + 1);
    m_sdefFlags[vertex] = flagged;
    m_areSdefVerticesKnown = false;
    touch(vertex);
}

const QVector<int> &KMTagBoneWeight::sdefVertices() const
{
    if (m_areSdefVerticesKnown)
        return m_sdefVertices;
    m_sdefVertices.clear();
    for (int i = 0; i < m_sdefFlags.size(); ++i) {
        if (m_sdefFlags.at(i))
            m_sdefVertices.append(i);
    }
    m_areSdefVerticesKnown = true;
    return m_sdefVertices;
}

void KMTagBoneWeight::markDirty()
{
    m_records.clear();
    m_touched.clear();
    staleAll();
}

void KMTagBoneWeight::rebuildWeights(int mask)
{
    const KMMeshNode *on = mesh();
    // Before anything is dropped: a mesh with a chain would be left without its skin.
    if (mask == OnlyEditable && (!on || on->ownerModifier() || !on->modifiers().isEmpty()))
        return;
    if (quint32(mask) & KMMeshDirty::Topology)
        m_isStale = true;
}

KMWeightSource KMTagBoneWeight::source() const
{
    return {*mesh(), m_bones, m_lists, sdefVertices(), m_parameters};
}

const KMWeightRecords &KMTagBoneWeight::editedRecords() const
{
    if (!mesh()) {
        m_records.clear();
        m_isStale = true;
        return m_records;
    }
    if (m_isStale) {
        m_records.rebuild(source());
        measureReach();
    } else if (!m_touched.isEmpty()) {
        m_records.follow(source(), m_touched);
    }
    m_touched.clear();
    m_isStale = false;
    return m_records;
}

const KMWeightRecords &KMTagBoneWeight::records() const
{
    const bool isMadeAnew = m_isStale;
    editedRecords();
    if (!isMadeAnew && mesh())
        m_records.followPlaces(source());
    return m_records;
}

VertexWeights KMTagBoneWeight::vertexWeights(int vertex) const
{
    return viewOf(records(), vertex);
}

VertexWeights KMTagBoneWeight::viewOf(const KMWeightRecords &derived, int vertex) const
{
    const bool isThere = mesh() && mesh()->vertex(vertex);
    return {isThere ? vertex : -1, derived.of(vertex), derived.sdefOf(vertex), m_bones};
}

void KMTagBoneWeight::normalizeAll()
{
    records(); // of which it is a part
}

/// How far the vertices of each bone are from its head; results of modifiers have no say.
void KMTagBoneWeight::measureReach() const
{
    if (!mesh() || mesh()->ownerModifier())
        return;
    const KMMeshNode &on = *mesh();
    m_reach.resize(m_bones.size());
    for (int i = 0; i < m_bones.size(); ++i)
        m_reach[i] = {m_bones.at(i) ? m_bones.at(i)->restHead() : kvm::Vector3(), 0.0f, -1};
    Reach *reaches = m_reach.data();
    for (int i = 0, n = m_lists.vertexCount(); i < n; ++i) {
        const KMVertex *vertex = on.vertex(i);
        for (const KMBoneShare &share : m_lists.of(i)) {
            Reach &reach = reaches[share.bone];
            if (reach.distance == 0.0f)
                reach.vertex = i;
            if (!vertex || share.weight == 0.0f || share.weight == 1.0f)
                continue;
            const float distance = (vertex->pos - reach.head).length();
            if (reach.distance > distance)
                continue;
            reach.distance = distance;
            reach.vertex = i;
        }
    }
    for (int i = 0; i < m_bones.size(); ++i) {
        if (!m_bones.at(i) || reaches[i].vertex < 0)
            continue;
        m_bones.at(i)->setReach(reaches[i].distance);
        m_bones.at(i)->setNearest(std::numeric_limits<float>::max());
        m_bones.at(i)->setFarVertex(reaches[i].vertex);
    }
}

void KMTagBoneWeight::remapIndices()
{
    const KMMeshNode *store = mesh();
    if (!store)
        return;
    Lost lost;
    KMWeightLists lists;
    lists.reserve(m_lists.vertexCount(), m_lists.shareCount());
    for (int i = 0; i < m_lists.vertexCount(); ++i) {
        const int to = store->remappedVertex(i);
        if (to >= 0) {
            lists.set(to, m_lists.of(i));
        } else if (!m_lists.of(i).isEmpty()) {
            lost.lists.set(lost.vertices.size(), m_lists.of(i));
            lost.vertices.append(i);
        }
    }
    const QVector<int> flagged = sdefVertices();
    m_sdefFlags.clear();
    m_areSdefVerticesKnown = false;
    m_lists = lists;
    markDirty();
    for (const int i : flagged) {
        if (store->remappedVertex(i) >= 0)
            setSdefFlag(store->remappedVertex(i), true);
        else
            lost.flagged.append(i);
    }
    mesh()->keepLoss(this, lost);
    if (const Lost *found = store->lossOf<Lost>(this))
        restore(*found);
}

void KMTagBoneWeight::restore(const Lost &lost)
{
    for (int k = 0; k < lost.vertices.size(); ++k)
        m_lists.set(lost.vertices.at(k), lost.lists.of(k));
    for (const int i : lost.flagged)
        setSdefFlag(i, true);
}

KMTagBoneWeight *KMTagBoneWeight::cloneEmpty() const
{
    auto *copy = new KMTagBoneWeight;
    copy->setName(name());
    copy->m_parameters = m_parameters;
    return copy;
}

KMTagBoneWeight *KMTagBoneWeight::clone() const
{
    KMTagBoneWeight *copy = cloneEmpty();
    copy->m_lists = m_lists;
    copy->m_bones = m_bones;
    copy->m_numbers = m_numbers;
    copy->m_sdefFlags = m_sdefFlags;
    return copy;
}
