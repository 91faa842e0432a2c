#include "rig/KMMorphDeltas.h"

#include <cmath>

void appendDelta(MorphDeltas &deltas, int vertex, const kvm::Vector3 &offset)
{
    // In doubles: the squares of short displacements are no floats any more.
    const double x = offset.x, y = offset.y, z = offset.z;
    const double length = std::sqrt(x * x + y * y + z * z);
    if (float(length) > 0.0f && std::isfinite(float(length)))
        deltas.append({vertex, float(length), {float(x / length), float(y / length), float(z / length)}});
}
