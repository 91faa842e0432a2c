#pragma once

#include "rig/KMWeightParameters.h"
#include "rig/SdefPair.h"

#include <QHash>

class KMMeshNode;

/// Collects the vertices that are blended spherically by their pairs of bones. Those of a pair are ascending: of
/// equally far ones the last counts.
class KMSdefPairs
{
public:
    explicit KMSdefPairs(int sdefMethod = KMWeightParameters::Both);

    /// Enters a vertex between two bones, of which the first has the higher place in the container; all before it have
    /// been entered. Answers the number of their pair.
    int add(int vertex, KMBone *first, KMBone *second);

    // Single vertices of pairs that are there

    int find(KMBone *first, KMBone *second) const { return m_numbers.value({first, second}, -1); } ///< -1 for none
    void enter(int number, int vertex);
    void take(int number, int vertex);

    /// Looks which vertices of a pair reach farthest, where others came or went since, and what they weigh. Answers
    /// whether any of this is other than before. weightOf(vertex, bone) is asked for the weights.
    template <class WeightOf>
    bool measure(int number, const KMMeshNode &mesh, WeightOf weightOf)
    {
        SdefPair &pair = m_pairs[number];
        const SdefPair::Farthest before = pair.farthest();
        if (!pair.isMeasured)
            findFarthest(pair, mesh);
        pair.farWeightA = pair.farVertexA < 0 ? 0.0f : weightOf(pair.farVertexA, pair.boneA);
        pair.farWeightB = pair.farVertexB < 0 ? 0.0f : weightOf(pair.farVertexB, pair.boneB);
        return pair.farthest() != before;
    }

    const SdefPair &at(int number) const { return m_pairs.at(number); }
    const QVector<SdefPair> &pairs() const { return m_pairs; }

private:
    void place(SdefPair &pair) const;
    static void findFarthest(SdefPair &pair, const KMMeshNode &mesh);

    int m_method;
    QVector<SdefPair> m_pairs; // in the order in which they were met
    QHash<QPair<const void *, const void *>, int> m_numbers;
};
