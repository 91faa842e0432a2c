#pragma once

/// The settings of a weight tag.
struct KMWeightParameters
{
    /// Along which of the two bones the reference points of a spherically blended vertex lie.
    enum SdefMethod { Parent, Child, Both };

    int sdefMethod = Both;
    bool autoNormalize = false; ///< the weights of each vertex are brought to the sum 1 before they are used
    float sdefBlend = 100.0f;   ///< percent, of the distance of the reference points from the joint

    bool operator==(const KMWeightParameters &other) const
    {
        return sdefMethod == other.sdefMethod && autoNormalize == other.autoNormalize && sdefBlend == other.sdefBlend;
    }
    bool operator!=(const KMWeightParameters &other) const { return !(*this == other); }
};
