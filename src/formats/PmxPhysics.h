#pragma once

#include "math/Vector3.h"

/// How rigid bodies and joints of a file stand against those of the document, for both directions.
namespace Pmx {

/// The second number of a spring belongs to what is Z on a tag. It is its own inverse.
constexpr kvm::Vector3 exchangedSpring(const kvm::Vector3 &spring)
{
    return {spring.x, spring.z, spring.y};
}

/// A limit of a joint: where it stands in a record of the document, and with which sign.
struct LimitPlace
{
    int place;
    float sign;
};

// All in the order of the file: lowest x, y, z, then highest x, y, z.

/// X and Y turn the other way round than in a file, so that their lowest angle is the highest one there.
constexpr LimitPlace AngularLimits[6] = {{1, -1.0f}, {5, -1.0f}, {2, 1.0f}, {0, -1.0f}, {4, -1.0f}, {3, 1.0f}};
constexpr int ReadLinearLimits[6] = {0, 2, 4, 1, 3, 5};
/// They leave in another order than the one in which they come: players that were fed by this program know them so.
constexpr int WrittenLinearLimits[6] = {1, 4, 2, 0, 5, 3};

} // namespace Pmx
