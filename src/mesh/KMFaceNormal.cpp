#include "mesh/KMFaceNormal.h"

#include <cmath>

using kvm::Vector3;

Vector3 KMFaceNormal::unit(const Vector3 &v)
{
    const float length = v.length();
    return length > 0.0f ? v * (1.0f / length) : Vector3();
}

Vector3 KMFaceNormal::ofTriangle(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2)
{
    return unit(cross(p1 - p2, p0 - p1));
}

Vector3 KMFaceNormal::ofQuad(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2, const Vector3 &p3)
{
    const Vector3 a = p0 - p1;
    const Vector3 b = p1 - p2;
    const Vector3 c = p2 - p3;
    const Vector3 d = p3 - p0;
    const Vector3 n[4] = {cross(b, a), cross(c, p0 - p2), cross(c, b), cross(d, p1 - p3)};

    // All roots and divisions before the choice: they run side by side, and nothing has to be guessed.
    float scale[4];
    for (int i = 0; i < 4; ++i) {
        const float length = std::sqrt(n[i].lengthSquared());
        scale[i] = length > 0.0f ? 1.0f / length : 0.0f;
    }
    const Vector3 even[2] = {n[0] * scale[0], n[1] * scale[1]};
    const Vector3 odd[2] = {n[2] * scale[2], n[3] * scale[3]};
    const bool isEvenFlatter = dot(even[0], even[1]) > dot(odd[0], odd[1]);
    return unit(isEvenFlatter ? even[0] + even[1] : odd[0] + odd[1]);
}
