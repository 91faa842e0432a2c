#pragma once

#include "math/Vector3.h"

#include <random>

/// Numbers for files that are written and read: they come back bit for bit, and their sums are exact.
namespace RandomNumbers {

using Random = std::mt19937;

inline float number(Random &random)
{
    return float(int(random() % 20001) - 10000) / 64.0f;
}

inline kvm::Vector3 point(Random &random)
{
    const float x = number(random);
    const float y = number(random);
    return {x, y, number(random)};
}

} // namespace RandomNumbers
