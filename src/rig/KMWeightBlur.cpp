#include "rig/KMWeightBlur.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

namespace {

constexpr float shortest = 1e-6f; // of edges; two vertices in one place share nearly everything

} // namespace

KMWeightBlur::KMWeightBlur(const KMTagBoneWeight &tag)
    : m_mesh(*tag.mesh())
    , m_tag(tag)
    , m_places(size_t(tag.bones().size()), -1)
{
}

/// By the faces and not by the table of edges, which would have to be walked whole.
void KMWeightBlur::collectNeighbours(int vertex) const
{
    m_neighbours.clear();
    const auto take = [this, vertex](int neighbour) {
        const bool isKnown = std::find(m_neighbours.begin(), m_neighbours.end(), neighbour) != m_neighbours.end();
        if (neighbour == vertex || isKnown || !m_mesh.vertex(neighbour))
            return;
        if (!m_area || (*m_area)[size_t(neighbour)])
            m_neighbours.push_back(neighbour);
    };
    for (const int f : m_mesh.vertex(vertex)->faceRefs) {
        const KMFace *face = m_mesh.face(f);
        for (int c = 0; face && c < face->count; ++c) {
            if (face->indices[c] == vertex)
                take(face->next(c));
            else if (face->next(c) == vertex)
                take(face->indices[c]);
        }
    }
}

bool KMWeightBlur::hasSay(int neighbour) const
{
    const KMShareView shares = m_tag.lists().of(neighbour);
    return std::any_of(shares.begin(), shares.end(),
                       [this](const KMBoneShare &share) { return m_tag.isLive(share.bone); });
}

float KMWeightBlur::closeness(int vertex, int neighbour) const
{
    return 1.0f / std::max((m_mesh.position(neighbour) - m_mesh.position(vertex)).length(), shortest);
}

float KMWeightBlur::meanOf(int vertex, int bone, float otherwise) const
{
    collectNeighbours(vertex);
    float sum = 0.0f, weights = 0.0f;
    for (const int neighbour : m_neighbours) {
        if (!hasSay(neighbour))
            continue;
        const float factor = closeness(vertex, neighbour);
        sum += factor;
        for (const KMBoneShare &share : m_tag.lists().of(neighbour))
            weights += share.bone == bone ? factor * share.weight : 0.0f;
    }
    return sum > 0.0f ? weights / sum : otherwise;
}

void KMWeightBlur::add(KMShareView shares, float factor)
{
    for (const KMBoneShare &share : shares) {
        if (!m_tag.isLive(share.bone))
            continue;
        int &place = m_places[size_t(share.bone)];
        if (place < 0) {
            place = m_shares.size();
            m_shares.append({share.bone, 0.0f});
        }
        m_shares[place].weight += factor * share.weight;
    }
}

const QVector<KMBoneShare> &KMWeightBlur::blurred(int vertex, float amount)
{
    m_shares.clear();
    collectNeighbours(vertex);
    float sum = 0.0f;
    for (const int neighbour : m_neighbours) {
        if (hasSay(neighbour))
            sum += closeness(vertex, neighbour);
    }
    const float ofOthers = sum == 0.0f ? 0.0f : hasSay(vertex) ? amount : 1.0f;
    add(m_tag.lists().of(vertex), 1.0f - ofOthers);
    for (const int neighbour : m_neighbours) {
        if (ofOthers > 0.0f && hasSay(neighbour))
            add(m_tag.lists().of(neighbour), ofOthers * closeness(vertex, neighbour) / sum);
    }
    for (const KMBoneShare &share : std::as_const(m_shares))
        m_places[size_t(share.bone)] = -1;
    if (sum > 0.0f)
        dropLight();
    return m_shares;
}

void KMWeightBlur::dropLight()
{
    const auto isLight = [this](const KMBoneShare &share) {
        return share.weight < m_threshold || share.weight == 0.0f;
    };
    float sum = 0.0f, kept = 0.0f;
    for (const KMBoneShare &share : std::as_const(m_shares)) {
        sum += share.weight;
        kept += isLight(share) ? 0.0f : share.weight;
    }
    if (kept == 0.0f)
        return;
    m_shares.erase(std::remove_if(m_shares.begin(), m_shares.end(), isLight), m_shares.end());
    for (KMBoneShare &share : m_shares)
        share.weight *= sum / kept;
}
