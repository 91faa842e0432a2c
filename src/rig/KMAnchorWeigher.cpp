#include "rig/KMAnchorWeigher.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMAnchorWeights.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

#include <cstring>

using kvm::Vector3;

namespace {

/// Where the vertices of a mesh stand without its morphs.
class RestPlaces
{
public:
    explicit RestPlaces(const KMMeshNode &mesh)
        : m_mesh(mesh)
    {
        for (int i = mesh.tagCount() - 1; i >= 0; --i) { // the last one laid its offset upon those of the others
            if (mesh.tag(i)->type() == KMNodeType::TagMorph && !mesh.tag(i)->isDeleted())
                m_tags.append(static_cast<const KMTagMorph *>(mesh.tag(i)));
        }
    }
    Vector3 of(int vertex) const
    {
        Vector3 place = m_mesh.position(vertex);
        for (const KMTagMorph *tag : m_tags)
            place = tag->placeWithout(vertex, place);
        return place;
    }

private:
    const KMMeshNode &m_mesh;
    QVarLengthArray<const KMTagMorph *, 4> m_tags;
};

bool isSame(const Vector3 &a, const Vector3 &b)
{
    return std::memcmp(a.data(), b.data(), sizeof a) == 0;
}

} // namespace

KMAnchorWeigher::KMAnchorWeigher() = default;
KMAnchorWeigher::~KMAnchorWeigher() = default;

void KMAnchorWeigher::setHelpers(std::unique_ptr<KMAnchorWeights> helpers)
{
    m_helpers = std::move(helpers);
    forgetPlaces();
}

void KMAnchorWeigher::forgetPlaces()
{
    m_places.clear();
    m_given.clear();
    m_bones.clear();
}

void KMAnchorWeigher::weighOne(int vertex, const Vector3 &place)
{
    m_places[vertex] = place;
    m_helpers->at(place, m_sums);
    m_shares.clear();
    for (const BoneWeightEntry &sum : std::as_const(m_sums)) {
        int number = m_bones.indexOf(sum.bone); // there are few
        if (number < 0) {
            number = m_bones.size();
            m_bones.append(sum.bone);
        }
        m_shares.append({number, sum.weight});
    }
    m_given.set(vertex, {m_shares.constData(), m_shares.size()});
}

void KMAnchorWeigher::give(KMShareView shares, const QVector<KMBone *> &bones, int vertex, KMTagBoneWeight &tag)
{
    m_shares.clear();
    for (const KMBoneShare &share : shares) {
        if (KMBone *bone = bones.at(share.bone))
            m_shares.append({tag.numberOf(bone), share.weight});
    }
    tag.setShares(vertex, {m_shares.constData(), m_shares.size()});
}

void KMAnchorWeigher::carryOne(int from, const KMTagBoneWeight &fromTag, int vertex, KMTagBoneWeight &tag)
{
    if (!reaches(from))
        give(fromTag.lists().of(from), fromTag.bones(), vertex, tag);
}

void KMAnchorWeigher::weigh(const KMMeshNode &input, const QVector<int> &vertexMap, KMTagBoneWeight &tag)
{
    const bool areKnown = m_places.size() == input.vertexCount();
    if (!areKnown) {
        forgetPlaces();
        m_places.resize(input.vertexCount());
    }
    if (!m_helpers || m_helpers->isEmpty())
        return;
    const RestPlaces rest(input);
    for (int i = 0, n = qMin(vertexMap.size(), input.vertexCount()); i < n; ++i) {
        if (!input.vertex(i) || vertexMap.at(i) < 0)
            continue;
        const Vector3 place = rest.of(i);
        if (!areKnown || !isSame(place, m_places.at(i)))
            weighOne(i, place);
        if (reaches(i))
            give(m_given.of(i), m_bones, vertexMap.at(i), tag);
    }
}

bool KMAnchorWeigher::follow(const KMMeshNode &input, const KMTagBoneWeight &from, const QVector<int> &vertexMap,
                             KMTagBoneWeight &tag)
{
    if (!m_helpers || m_helpers->isEmpty() || m_places.size() != input.vertexCount())
        return false;
    const RestPlaces rest(input);
    bool isOther = false;
    for (int i = 0, n = qMin(vertexMap.size(), input.vertexCount()); i < n; ++i) {
        if (!input.vertex(i) || vertexMap.at(i) < 0)
            continue;
        const Vector3 place = rest.of(i);
        if (isSame(place, m_places.at(i)))
            continue;
        isOther = true;
        weighOne(i, place);
        if (reaches(i))
            give(m_given.of(i), m_bones, vertexMap.at(i), tag);
        else
            carryOne(i, from, vertexMap.at(i), tag);
    }
    return isOther;
}
