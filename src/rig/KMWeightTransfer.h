#pragma once

#include "mesh/KMSurfaceTree.h"
#include "rig/KMWeightEdit.h"

#include <QList>
#include <QVector>

#include <vector>

class KMMeshNode;
class KMTagBoneWeight;

/// Weights from the surface of other meshes: a vertex gets those at the nearest point of it, between the corners of the
/// triangle there. It holds for the other meshes as they were when it was made.
class KMWeightTransfer
{
public:
    explicit KMWeightTransfer(const QList<KMMeshNode *> &sources); ///< those without weights have no say

    bool isEmpty() const { return m_sources.empty(); } ///< no surface with weights
    /// Gives them to vertices of a mesh that lie no farther away than the reach, in world units. The others keep what
    /// they have. The tag of the edit need not hang on the mesh yet.
    void apply(const KMMeshNode &mesh, const QVector<int> &vertices, float reach, KMWeightEdit &edit) const;

private:
    struct Source
    {
        const KMTagBoneWeight *tag;
        KMSurfaceTree surface;
    };

    static QVector<BoneWeightEntry> weightsAt(const Source &source, const KMSurfaceTree::Hit &hit, int vertex);

    std::vector<Source> m_sources;
};
