#pragma once

#include "math/Vector3.h"
#include "rig/SdefPair.h"

class KMMeshNode;
struct KMWeightParameters;

/// What it takes to blend a vertex spherically between two bones.
struct KMSdefParameters
{
    kvm::Vector3 c;  ///< centre
    kvm::Vector3 r0; ///< reference points, relative to the middle of the two that the weights give
    kvm::Vector3 r1;

    /// Of a vertex at a place, between the bones P and Q of a pair with their weights.
    static KMSdefParameters of(const kvm::Vector3 &place, const KMBone &p, const KMBone &q, float weightP,
                               float weightQ, const SdefPair &pair, const KMMeshNode &mesh,
                               const KMWeightParameters &parameters);
};
