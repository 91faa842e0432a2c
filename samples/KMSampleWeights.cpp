#include "KMSampleWeights.h"

#include "KMSampleMeasures.h"

#include <algorithm>

namespace {

constexpr float leastShare = 0.004f;

const QVector<KMSampleWeights::Joint> spine = {
    {"lower body", 0.0f, 1.0f}, {"upper body", 117.0f, 6.0f}, {"upper body2", 137.0f, 8.0f},
    {"neck", 160.0f, 2.5f},     {"head", 164.2f, 1.8f},
};

const QVector<KMSampleWeights::Joint> armChain = {
    {"arm_L", 0.0f, 1.0f},           {"arm twist_L", 13.0f, 6.0f}, {"elbow_L", 26.03f, 3.6f},
    {"wrist twist_L", 39.05f, 6.0f}, {"wrist_L", 52.06f, 2.6f},
};

/// Measured downwards.
const QVector<KMSampleWeights::Joint> legChain = {
    {"lower body", -150.0f, 1.0f},
    {"leg_L", -99.0f, 7.0f},
    {"knee_L", -KMSampleMeasures::knee.y, 5.0f},
    {"ankle_L", -KMSampleMeasures::ankle.y, 3.0f},
};

} // namespace

float KMSampleWeights::smoothStep(float from, float to, float value)
{
    const float t = std::clamp((value - from) / (to - from), 0.0f, 1.0f);
    return t * t * (3.0f - 2.0f * t);
}

KMSampleShares KMSampleWeights::along(const QVector<Joint> &chain, float place)
{
    KMSampleShares shares{{chain.first().bone, 1.0f}};
    for (int i = 1; i < chain.size(); ++i) {
        const Joint &joint = chain.at(i);
        shares = mixed(shares, {{joint.bone, 1.0f}},
                       smoothStep(joint.start - joint.blend, joint.start + joint.blend, place));
    }
    return shares;
}

KMSampleShares KMSampleWeights::mixed(const KMSampleShares &a, const KMSampleShares &b, float t)
{
    KMSampleShares shares;
    for (const KMSampleShare &share : a)
        shares.append({share.bone, share.weight * (1.0f - t)});
    for (const KMSampleShare &share : b)
        shares.append({share.bone, share.weight * t});
    return settled(shares);
}

KMSampleShares KMSampleWeights::settled(const KMSampleShares &shares)
{
    KMSampleShares joined;
    for (const KMSampleShare &share : shares) {
        const auto known = std::find_if(joined.begin(), joined.end(),
                                        [&share](const KMSampleShare &other) { return other.bone == share.bone; });
        if (known == joined.end())
            joined.append(share);
        else
            known->weight += share.weight;
    }
    float sum = 0.0f;
    for (const KMSampleShare &share : std::as_const(joined))
        sum += share.weight;
    const auto hardlyCounts = [sum](const KMSampleShare &share) { return share.weight < leastShare * sum; };
    joined.erase(std::remove_if(joined.begin(), joined.end(), hardlyCounts), joined.end());
    std::stable_sort(joined.begin(), joined.end(),
                     [](const KMSampleShare &a, const KMSampleShare &b) { return a.weight > b.weight; });
    joined.resize(std::min(joined.size(), int(MaxBones)));
    sum = 0.0f;
    for (const KMSampleShare &share : std::as_const(joined))
        sum += share.weight;
    for (KMSampleShare &share : joined)
        share.weight /= sum;
    return joined;
}

KMSampleShares KMSampleWeights::trunk(const kvm::Vector3 &p)
{
    const KMSampleShares middle = along(spine, p.y);
    const float shoulder = 0.75f * smoothStep(3.5f, 10.0f, p.x) * smoothStep(143.0f, 155.0f, p.y);
    return mixed(middle, {{"shoulder_L", 1.0f}}, shoulder);
}

KMSampleShares KMSampleWeights::arm(const kvm::Vector3 &p)
{
    const float place = dot(p - KMSampleMeasures::armHead, KMSampleMeasures::armWay);
    return mixed(trunk(p), along(armChain, place), smoothStep(9.0f, 19.0f, p.x));
}

KMSampleShares KMSampleWeights::leg(const kvm::Vector3 &p)
{
    return along(legChain, -p.y);
}
