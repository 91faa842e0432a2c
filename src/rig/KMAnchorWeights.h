#pragma once

#include "mesh/KMSurfaceTree.h"
#include "rig/BoneWeightEntry.h"

#include <QList>
#include <QVector>

#include <vector>

class KMDisplayAnchorNode;
class KMTagBoneWeight;

/// The weights that helpers give to a place in the world. It holds for the helpers as they were when it was made.
///
/// How far a face is from a place is the distance to the nearest point of its triangles; a quad is those of its corners
/// 0, 1, 2 and 2, 3, 0. At that point the face has the weights between those of its corners. Of faces that are just as
/// near the first one of the first helper counts.
///
/// A helper reaches what lies in its box, grown on all sides by its margin: a quarter of the box's longest side. Those
/// without faces or without a live bone have no say.
class KMAnchorWeights
{
public:
    enum Method : int {
        NearestFace, ///< the weights of the nearest face
        FacesInRange ///< the mean over all triangles that are farther than the nearest by no more than their helper's
                     ///< margin, each by one over its distance
    };
    /// Whether a place out of the reach of all helpers gets weights too; any helper has a say then, wherever it is.
    enum class Reach { InBoxes, Everywhere };

    KMAnchorWeights(const QList<KMDisplayAnchorNode *> &helpers, Method method, Reach reach);

    bool isEmpty() const { return m_helpers.empty(); }
    /// By bone, in place of what the list holds; none where no helper reaches. Which vertices the entries name says
    /// nothing.
    void at(const kvm::Vector3 &place, QVector<BoneWeightEntry> &sums) const;

private:
    struct Helper
    {
        const KMTagBoneWeight *tag;
        KMSurfaceTree surface;
        float margin;
    };

    void addAllWithin(float least, const kvm::Vector3 &place, QVector<BoneWeightEntry> &sums) const;
    bool hasSay(const Helper &helper, const kvm::Vector3 &place) const;

    Method m_method;
    Reach m_reach;
    std::vector<Helper> m_helpers;
};
