#include "modifiers/KMFFDBox.h"

#include <cmath>
#include <limits>

using kvm::Vector3;

namespace {

bool isFlat(float scale)
{
    return std::fabs(scale) < std::numeric_limits<float>::epsilon();
}

} // namespace

KMFFDBox KMFFDBox::sound() const
{
    const KMFFDBox fresh;
    KMFFDBox box = *this;
    for (int axis = 0; axis < 3; ++axis) {
        const float side = size[axis];
        box.size[axis] = std::isfinite(side) ? qBound(0.0f, side, MaxSize) : fresh.size[axis];
        box.nodeCounts[size_t(axis)] = qBound(MinNodes, nodeCounts[size_t(axis)], MaxNodes);
    }
    return box;
}

Vector3 KMFFDBox::restPoint(int index) const
{
    const int place[3] = {index / (nodeCounts[1] * nodeCounts[2]), index / nodeCounts[2] % nodeCounts[1],
                          index % nodeCounts[2]};
    Vector3 point = size * -0.5f;
    for (int axis = 0; axis < 3; ++axis)
        point[axis] += size[axis] * (float(place[axis]) / float(nodeCounts[size_t(axis)] - 1));
    return point;
}

Vector3 KMFFDBox::toWorld(const KMTransform &transform, const Vector3 &point)
{
    const Vector3 &scale = transform.scale;
    return transform.rotation.rotate({point.x * scale.x, point.y * scale.y, point.z * scale.z}) + transform.translation;
}

Vector3 KMFFDBox::toLocal(const KMTransform &transform, const Vector3 &point, const Vector3 &flat)
{
    Vector3 local = transform.rotation.conjugate().rotate(point - transform.translation);
    for (int axis = 0; axis < 3; ++axis)
        local[axis] = isFlat(transform.scale[axis]) ? flat[axis] : local[axis] / transform.scale[axis];
    return local;
}
