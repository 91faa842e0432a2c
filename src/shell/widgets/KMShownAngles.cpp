#include "shell/widgets/KMShownAngles.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr float degreesPerRadian = float(180.0 / M_PI);

/// The same angle between -180 and 180.
float wrapped(float degrees)
{
    return std::remainder(degrees, 360.0f);
}

float turning(const kvm::Vector3 &degrees)
{
    return std::abs(degrees.x) + std::abs(degrees.y) + std::abs(degrees.z);
}

/// A quaternion and its negative are one rotation.
bool isSame(const kvm::Quaternion &a, const kvm::Quaternion &b)
{
    constexpr float rounding = 2e-6f;
    float sum = 0.0f, difference = 0.0f;
    for (int i = 0; i < 4; ++i) {
        sum = std::max(sum, std::abs(a.data()[i] + b.data()[i]));
        difference = std::max(difference, std::abs(a.data()[i] - b.data()[i]));
    }
    return std::min(sum, difference) < rounding;
}

/// At the poles of y, x and z turn about the same axis: z is taken as 0 there.
bool isAtPole(const kvm::Vector3 &radians)
{
    constexpr float poleMargin = 1e-3f;
    return std::abs(std::abs(radians.y) - float(M_PI_2)) < poleMargin;
}

} // namespace

kvm::Quaternion KMShownAngles::rotationOf(const kvm::Vector3 &degrees)
{
    return kvm::Quaternion::fromEuler(degrees * (1.0f / degreesPerRadian));
}

kvm::Vector3 KMShownAngles::degreesOf(const kvm::Quaternion &rotation)
{
    const kvm::Vector3 radians = rotation.toEuler();
    const kvm::Vector3 plain = radians * degreesPerRadian;
    if (isAtPole(radians)) {
        const float x = 2.0f * std::atan2(rotation.x, rotation.w) * degreesPerRadian;
        const kvm::Vector3 pole{wrapped(x), std::copysign(90.0f, radians.y), 0.0f};
        return isSame(rotationOf(pole), rotation) ? pole : plain;
    }
    const kvm::Vector3 other{wrapped(plain.x + 180.0f), wrapped(180.0f - plain.y), wrapped(plain.z + 180.0f)};
    constexpr float clearly = 0.01f; // rounding must not let the fields jump between the two
    return turning(other) + clearly < turning(plain) ? other : plain;
}

const kvm::Vector3 &KMShownAngles::show(const kvm::Quaternion &rotation)
{
    if (!isSame(rotationOf(m_degrees), rotation))
        m_degrees = degreesOf(rotation);
    return m_degrees;
}

void KMShownAngles::type(int axis, float degrees)
{
    m_degrees[axis] = degrees;
}
