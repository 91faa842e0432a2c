#include "tools/KMFrameAxes.h"

#include "math/Matrix4.h"

kvm::Quaternion KMFrameAxes::of(const kvm::Matrix4 &frame)
{
    const kvm::Vector3 x = frame.transformDirection({1, 0, 0}).normalized();
    const kvm::Vector3 sideways = frame.transformDirection({0, 1, 0});
    const kvm::Vector3 y = (sideways - x * dot(sideways, x)).normalized();
    const kvm::Vector3 z = cross(x, y);
    if (z.lengthSquared() < 0.5f)
        return {}; // pressed flat
    return kvm::Quaternion::fromMatrix({{x.x, x.y, x.z, 0, y.x, y.y, y.z, 0, z.x, z.y, z.z, 0, 0, 0, 0, 1}});
}
