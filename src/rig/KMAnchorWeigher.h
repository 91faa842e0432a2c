#pragma once

#include "math/Vector3.h"
#include "rig/BoneWeightEntry.h"
#include "rig/KMWeightLists.h"

#include <QVarLengthArray>
#include <QVector>

#include <memory>

class KMAnchorWeights;
class KMMeshNode;
class KMTagBoneWeight;

/// Gives the vertices of a result what helpers give to their places, and remembers these: where only vertices have
/// moved, only they are weighed again. Vertices are weighed where they stand without morphs, so that an open mouth
/// doesn't leave the helper of its head.
class KMAnchorWeigher
{
public:
    KMAnchorWeigher();
    ~KMAnchorWeigher();

    bool hasHelpers() const { return m_helpers != nullptr; }
    void setHelpers(std::unique_ptr<KMAnchorWeights> helpers); ///< null when those that it knew are out of date
    void forgetPlaces() { m_places.clear(); }

    /// All live vertices of the input, by the table to those of the result whose tag it is. That has the weights of the
    /// input, and keeps them where no helper reaches.
    void weigh(const KMMeshNode &input, const QVector<int> &vertexMap, KMTagBoneWeight &tag);
    /// The same for vertices that stand elsewhere now; those that no helper reaches any more get the weights that they
    /// have in the tag of the input. Whether there were any; none when nothing was weighed yet.
    bool follow(const KMMeshNode &input, const KMTagBoneWeight &from, const QVector<int> &vertexMap,
                KMTagBoneWeight &tag);

private:
    bool weighOne(int vertex, const kvm::Vector3 &place, KMTagBoneWeight &tag);
    void carryOne(KMShareView shares, const KMTagBoneWeight &from, int vertex, KMTagBoneWeight &tag);

    std::unique_ptr<KMAnchorWeights> m_helpers;
    QVector<kvm::Vector3> m_places;  // by slot of the input
    QVector<BoneWeightEntry> m_sums; // these two keep their memory from one vertex to the next
    QVarLengthArray<KMBoneShare, 16> m_shares;
};
