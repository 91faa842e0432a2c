#pragma once

#include "rig/SdefPair.h"

#include <QHash>

class KMMeshNode;

/// Collects the vertices that are blended spherically by their pairs of bones.
class KMSdefPairs
{
public:
    explicit KMSdefPairs(int sdefMethod); ///< of KMWeightParameters

    /// Enters a vertex between two bones, of which the first has the higher place in the container. Answers the number
    /// of their pair.
    int add(int vertex, KMBone *first, KMBone *second);

    /// Finds the vertices that reach farthest. weightOf(vertex, bone) is asked for their weights.
    template <class WeightOf>
    void measure(const KMMeshNode &mesh, WeightOf weightOf)
    {
        for (SdefPair &pair : m_pairs) {
            for (const int vertex : std::as_const(pair.vertices))
                measureVertex(pair, vertex, mesh);
            pair.farWeightA = pair.farVertexA < 0 ? 0.0f : weightOf(pair.farVertexA, pair.boneA);
            pair.farWeightB = pair.farVertexB < 0 ? 0.0f : weightOf(pair.farVertexB, pair.boneB);
        }
    }

    const SdefPair &at(int number) const { return m_pairs.at(number); }
    const QVector<SdefPair> &pairs() const { return m_pairs; }

private:
    void place(SdefPair &pair) const;
    static void measureVertex(SdefPair &pair, int vertex, const KMMeshNode &mesh);

    int m_method;
    QVector<SdefPair> m_pairs; // in the order in which they were met
    QHash<QPair<const void *, const void *>, int> m_numbers;
};
