#include "rig/KMAnchorWeights.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>
#include <cmath>

using kvm::Vector3;

namespace {

constexpr float marginShare = 0.25f; // of the longest side
constexpr float leastShare = 1e-4f;  // of the margin: a place on a face is as far as that from it
constexpr float leastDistance = 1e-20f;

/// What the face has at the hit.
void add(QVector<BoneWeightEntry> &sums, const KMTagBoneWeight &tag, const KMSurfaceTree::Hit &hit, float share)
{
    for (int c = 0; c < 3; ++c) {
        const int corner = hit.face->indices[hit.corners[c]];
        for (const KMBoneShare &own : tag.lists().of(corner)) {
            const float weight = share * hit.weights[c] * own.weight;
            if (KMBone *bone = tag.bones().at(own.bone); bone && weight > 0.0f)
                addTo(sums, {corner, weight, bone});
        }
    }
}

} // namespace

KMAnchorWeights::KMAnchorWeights(const QList<KMDisplayAnchorNode *> &helpers, Method method, Reach reach)
    : m_method(method)
    , m_reach(reach)
{
    for (const KMDisplayAnchorNode *anchor : helpers) {
        KMMeshNode *mesh = anchor->mesh();
        const auto *tag = static_cast<const KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
        if (!anchor->isLive() || !tag)
            continue;
        Helper helper{tag, KMSurfaceTree({mesh}), 0.0f};
        if (helper.surface.isEmpty())
            continue;
        const Vector3 size = helper.surface.high() - helper.surface.low();
        helper.margin = marginShare * std::max({size.x, size.y, size.z});
        m_helpers.push_back(std::move(helper));
    }
}

bool KMAnchorWeights::hasSay(const Helper &helper, const Vector3 &place) const
{
    if (m_reach == Reach::Everywhere)
        return true;
    const auto isIn = [&](int k) {
        return place[k] >= helper.surface.low()[k] - helper.margin
               && place[k] <= helper.surface.high()[k] + helper.margin;
    };
    return isIn(0) && isIn(1) && isIn(2);
}

void KMAnchorWeights::at(const Vector3 &place, QVector<BoneWeightEntry> &sums) const
{
    sums.resize(0); // with the memory that it has
    const Helper *nearest = nullptr;
    KMSurfaceTree::Hit best;
    for (const Helper &helper : m_helpers) {
        if (!hasSay(helper, place) || (nearest && helper.surface.boxDistance2(place) > best.distance2))
            continue;
        const KMSurfaceTree::Hit hit = helper.surface.nearest(place);
        if (hit.isValid() && (!nearest || hit.distance2 < best.distance2)) {
            nearest = &helper;
            best = hit;
        }
    }
    if (nearest && m_method == NearestFace)
        add(sums, *nearest->tag, best, 1.0f);
    else if (nearest)
        addAllWithin(std::sqrt(best.distance2), place, sums);
}

void KMAnchorWeights::addAllWithin(float least, const Vector3 &place, QVector<BoneWeightEntry> &sums) const
{
    float total = 0.0f;
    for (const Helper &helper : m_helpers) {
        const float range = least + helper.margin;
        if (!hasSay(helper, place) || helper.surface.boxDistance2(place) > range * range)
            continue;
        helper.surface.visitWithin(place, range, [&](const KMSurfaceTree::Hit &hit) {
            const float share = 1.0f / std::max({std::sqrt(hit.distance2), leastShare * helper.margin, leastDistance});
            add(sums, *helper.tag, hit, share);
            total += share;
        });
    }
    for (BoneWeightEntry &sum : sums)
        sum.weight /= total;
}
