#include "rig/KMAnchorWeights.h"

#include "core/KMNodeType.h"
#include "math/Finite.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>
#include <cmath>
#include <limits>

using kvm::Vector3;

namespace {

constexpr float marginShare = 0.25f; // of the longest side
constexpr float leastShare = 1e-4f;  // of the margin: a place on a face is as far as that from it
constexpr float leastDistance = 1e-20f;

/// False for a mesh that has no place.
bool measure(const KMMeshNode &mesh, Vector3 &low, Vector3 &high)
{
    constexpr float far = std::numeric_limits<float>::max();
    low = {far, far, far};
    high = {-far, -far, -far};
    for (const KMFace *face : mesh.faces()) {
        for (int c = 0; face && face->isPolygon() && c < face->count; ++c) {
            const KMVertex *vertex = mesh.vertex(face->indices[c]);
            if (!vertex || !isFinite(vertex->pos))
                continue;
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], vertex->pos[k]);
                high[k] = std::max(high[k], vertex->pos[k]);
            }
        }
    }
    return low.x <= high.x;
}

/// Squared, 0 inside.
float distance2(const Vector3 &low, const Vector3 &high, const Vector3 &place)
{
    const auto outside = [&](int k) { return std::max({low[k] - place[k], place[k] - high[k], 0.0f}); };
    return Vector3(outside(0), outside(1), outside(2)).lengthSquared();
}

/// What the face has at the hit.
void add(QVector<BoneWeightEntry> &sums, const KMTagBoneWeight &tag, const KMSurfaceTree::Hit &hit, float share,
         int vertex)
{
    for (int c = 0; c < 3; ++c) {
        for (const KMBoneShare &own : tag.lists().of(hit.face->indices[hit.corners[c]])) {
            KMBone *bone = tag.bones().at(own.bone);
            const float weight = share * hit.weights[c] * own.weight;
            if (!bone || !(weight > 0.0f))
                continue;
            const auto isOfBone = [bone](const BoneWeightEntry &sum) { return sum.bone == bone; };
            const auto known = std::find_if(sums.begin(), sums.end(), isOfBone);
            if (known == sums.end())
                sums.append({vertex, weight, bone});
            else
                known->weight += weight;
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
        Vector3 low, high;
        if (!anchor->isLive() || !tag || !measure(*mesh, low, high))
            continue;
        const Vector3 size = high - low;
        Helper helper{tag, KMSurfaceTree({mesh}), low, high, marginShare * std::max({size.x, size.y, size.z})};
        if (!helper.surface.isEmpty())
            m_helpers.push_back(std::move(helper));
    }
}

bool KMAnchorWeights::hasSay(const Helper &helper, const Vector3 &place) const
{
    if (m_reach == Reach::Everywhere)
        return true;
    const auto isIn = [&](int k) {
        return place[k] >= helper.low[k] - helper.margin && place[k] <= helper.high[k] + helper.margin;
    };
    return isIn(0) && isIn(1) && isIn(2);
}

QVector<BoneWeightEntry> KMAnchorWeights::at(const Vector3 &place, int vertex) const
{
    QVector<BoneWeightEntry> sums;
    const Helper *nearest = nullptr;
    KMSurfaceTree::Hit best;
    for (const Helper &helper : m_helpers) {
        if (!hasSay(helper, place) || (nearest && distance2(helper.low, helper.high, place) > best.distance2))
            continue;
        const KMSurfaceTree::Hit hit = helper.surface.nearest(place);
        if (hit.isValid() && (!nearest || hit.distance2 < best.distance2)) {
            nearest = &helper;
            best = hit;
        }
    }
    if (!nearest)
        return sums;
    if (m_method == NearestFace) {
        add(sums, *nearest->tag, best, 1.0f, vertex);
        return sums;
    }
    float total = 0.0f;
    const float least = std::sqrt(best.distance2);
    for (const Helper &helper : m_helpers) {
        const float range = least + helper.margin;
        if (!hasSay(helper, place) || distance2(helper.low, helper.high, place) > range * range)
            continue;
        helper.surface.visitWithin(place, range, [&](const KMSurfaceTree::Hit &hit) {
            const float share = 1.0f / std::max({std::sqrt(hit.distance2), leastShare * helper.margin, leastDistance});
            add(sums, *helper.tag, hit, share, vertex);
            total += share;
        });
    }
    for (BoneWeightEntry &sum : sums)
        sum.weight /= total;
    return sums;
}
