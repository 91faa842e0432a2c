#pragma once

#include "math/Vector3.h"
#include "rig/BoneWeightEntry.h"
#include "rig/KMWeightLists.h"

#include <QVarLengthArray>
#include <QVector>

#include <memory>

class KMAnchorWeights;
class KMBone;
class KMMeshNode;
class KMTagBoneWeight;

/// Gives the vertices of a result what helpers give to their places, and remembers both: a vertex is weighed again when
/// it has moved. Vertices are weighed where they stand without morphs, so that an open mouth doesn't leave the helper
/// of its head.
class KMAnchorWeigher
{
public:
    KMAnchorWeigher();
    ~KMAnchorWeigher();

    bool hasHelpers() const { return m_helpers != nullptr; }
    void setHelpers(std::unique_ptr<KMAnchorWeights> helpers); ///< null when those that it knew are out of date
    void forgetPlaces();                                       ///< the vertices are others
    /// Whether the vertex of the input had its weights from helpers when it was last weighed.
    bool reaches(int vertex) const { return !m_given.of(vertex).isEmpty(); }

    /// All live vertices of the input, by the table to those of the result whose tag it is. That has the weights of the
    /// input, and keeps them where no helper reaches.
    void weigh(const KMMeshNode &input, const QVector<int> &vertexMap, KMTagBoneWeight &tag);
    /// The same for vertices that stand elsewhere now; those that no helper reaches any more get the weights that they
    /// have in the tag of the input. Whether there were any; none when nothing was weighed yet.
    bool follow(const KMMeshNode &input, const KMTagBoneWeight &from, const QVector<int> &vertexMap,
                KMTagBoneWeight &tag);
    /// The vertex of the input has other weights: where no helper reaches it, so has that of the result.
    void carryOne(int from, const KMTagBoneWeight &fromTag, int vertex, KMTagBoneWeight &tag);

private:
    void weighOne(int vertex, const kvm::Vector3 &place);
    void give(KMShareView shares, const QVector<KMBone *> &bones, int vertex, KMTagBoneWeight &tag);

    std::unique_ptr<KMAnchorWeights> m_helpers;
    QVector<kvm::Vector3> m_places;  // by slot of the input, as the next
    KMWeightLists m_given;           // by the helpers
    QVector<KMBone *> m_bones;       // by number there; they live as long as the helpers are up to date
    QVector<BoneWeightEntry> m_sums; // these two keep their memory from one vertex to the next
    QVarLengthArray<KMBoneShare, 16> m_shares;
};
