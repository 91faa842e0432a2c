#pragma once

#include "rig/KMWeightLists.h"

#include <QVector>

#include <vector>

class KMMeshNode;
class KMTagBoneWeight;

/// The weights of a vertex mixed with those of the vertices at the other ends of its edges, the nearer the more: each
/// counts by the inverse of the length. Vertices without weights on live bones have no say. Nothing is written, so that
/// all vertices of a pass start from the same weights.
class KMWeightBlur
{
public:
    explicit KMWeightBlur(const KMTagBoneWeight &tag); ///< of a tag on a mesh, with the weights that it has now

    /// Only neighbours that have a mark take part; without marks, as at the start, all.
    void limitTo(const std::vector<bool> *area) { m_area = area; }
    /// Weights below it are left out where a heavier one stays, and the others take over what they had. 0 to 1.
    void setThreshold(float threshold) { m_threshold = threshold; }

    /// An amount of 0 answers what the vertex has, one of 1 the mean of its neighbours. The bones of the vertex come
    /// first, in their order. Valid until the next call.
    const QVector<KMBoneShare> &blurred(int vertex, float amount);
    /// Of one bone, by its number, the mean of the neighbours; the other answer where these have no say.
    float meanOf(int vertex, int bone, float otherwise) const;

private:
    void collectNeighbours(int vertex) const;
    bool hasSay(int neighbour) const;
    float closeness(int vertex, int neighbour) const;
    void add(KMShareView shares, float factor);
    void dropLight();

    const KMMeshNode &m_mesh;
    const KMTagBoneWeight &m_tag;
    const std::vector<bool> *m_area = nullptr;
    float m_threshold = 0.0f;
    mutable std::vector<int> m_neighbours;
    std::vector<int> m_places; // by number of the bone: in the answer, -1 when it isn't there
    QVector<KMBoneShare> m_shares;
};
