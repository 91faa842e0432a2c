#include "rig/KMWeightTransfer.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

KMWeightTransfer::KMWeightTransfer(const QList<KMMeshNode *> &sources)
{
    for (KMMeshNode *mesh : sources) {
        const auto *tag = static_cast<const KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
        if (!tag || tag->isEmpty())
            continue;
        m_sources.push_back({tag, KMSurfaceTree({mesh})});
        if (m_sources.back().surface.isEmpty())
            m_sources.pop_back();
    }
}

QVector<BoneWeightEntry> KMWeightTransfer::weightsAt(const Source &source, const KMSurfaceTree::Hit &hit, int vertex)
{
    QVector<BoneWeightEntry> weights;
    for (int c = 0; c < 3; ++c) {
        for (const KMBoneShare &share : source.tag->lists().of(hit.face->indices[hit.corners[c]])) {
            KMBone *bone = source.tag->bones().at(share.bone);
            const float weight = hit.weights[c] * share.weight;
            if (!source.tag->isLive(share.bone) || !(weight > 0.0f))
                continue;
            const auto isOfBone = [bone](const BoneWeightEntry &entry) { return entry.bone == bone; };
            const auto known = std::find_if(weights.begin(), weights.end(), isOfBone);
            if (known == weights.end())
                weights.append({vertex, weight, bone});
            else
                known->weight += weight;
        }
    }
    return weights;
}

void KMWeightTransfer::apply(const KMMeshNode &mesh, const QVector<int> &vertices, float reach,
                             KMWeightEdit &edit) const
{
    for (const int vertex : vertices) {
        const Source *nearest = nullptr;
        KMSurfaceTree::Hit best;
        for (const Source &source : m_sources) {
            const KMSurfaceTree::Hit hit = source.surface.nearest(mesh.position(vertex));
            if (hit.isValid() && (!nearest || hit.distance2 < best.distance2)) {
                nearest = &source;
                best = hit;
            }
        }
        if (!nearest || best.distance2 > reach * reach)
            continue;
        const QVector<BoneWeightEntry> weights = weightsAt(*nearest, best, vertex);
        if (!weights.isEmpty())
            edit.setEntries(vertex, weights);
    }
}
