#pragma once

#include "math/Vector3.h"

#include <algorithm>
#include <limits>

namespace kvm {

/// The box along the axes about all points that were added.
struct Box3
{
    Vector3 low{std::numeric_limits<float>::max(), std::numeric_limits<float>::max(),
                std::numeric_limits<float>::max()};
    Vector3 high = -low;

    void add(const Vector3 &p)
    {
        for (int k = 0; k < 3; ++k) {
            low[k] = std::min(low[k], p[k]);
            high[k] = std::max(high[k], p[k]);
        }
    }
    bool isEmpty() const { return !(low.x <= high.x && low.y <= high.y && low.z <= high.z); } ///< no point came
    Vector3 size() const { return isEmpty() ? Vector3() : high - low; }
    Vector3 centre() const { return isEmpty() ? Vector3() : low * 0.5f + high * 0.5f; }
};

} // namespace kvm
