#pragma once

#include "KMSampleMesh.h"

/// How vertices hang on bones: smooth from one bone to the next, at most four of them, with the sum 1.
namespace KMSampleWeights {

constexpr int MaxBones = 4;

/// A bone of a chain, and from where along the chain on it takes over from the one before.
struct Joint
{
    const char *bone;
    float start; ///< the middle of the change
    float blend; ///< how far the change reaches to either side
};

float smoothStep(float from, float to, float value); ///< 0 at from and before it, 1 at to and beyond; from may be above
/// By the place along a chain; never more than two bones while the changes don't overlap.
KMSampleShares along(const QVector<Joint> &chain, float place);
/// One list of shares turning into another one, t from 0 to 1.
KMSampleShares mixed(const KMSampleShares &a, const KMSampleShares &b, float t);
/// Each bone once, without those that hardly count, and the sum 1.
KMSampleShares settled(const KMSampleShares &shares);

KMSampleShares trunk(const kvm::Vector3 &p); ///< of head, neck and body, shoulders included
KMSampleShares arm(const kvm::Vector3 &p);   ///< of a left sleeve; from the shoulder on those of the trunk turn into it
KMSampleShares leg(const kvm::Vector3 &p);   ///< of pelvis and left leg

} // namespace KMSampleWeights
