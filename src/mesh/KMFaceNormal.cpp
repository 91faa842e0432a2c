#include "mesh/KMFaceNormal.h"

#include <cmath>

using kvm::Vector3;

Vector3 KMFaceNormal::ofTriangle(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2)
{
    return cross(p1 - p2, p0 - p1).normalized();
}

Vector3 KMFaceNormal::ofQuad(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2, const Vector3 &p3)
{
    // The sides and the two diagonals are all that the four triangles need.
    const Vector3 a = p0 - p1;
    const Vector3 b = p1 - p2;
    const Vector3 c = p2 - p3;
    const Vector3 d = p3 - p0;
    const Vector3 even = p0 - p2;
    const Vector3 odd = p1 - p3;
    const Vector3 n[4] = {cross(b, a), cross(c, even), cross(c, b), cross(d, odd)};

    // One lane for each triangle, so that the roots and divisions run at the same time.
    float length[4];
    for (int i = 0; i < 4; ++i)
        length[i] = std::sqrt(n[i].x * n[i].x + n[i].y * n[i].y + n[i].z * n[i].z);
    float scale[4];
    for (int i = 0; i < 4; ++i)
        scale[i] = length[i] > 0.0f ? 1.0f / length[i] : 0.0f;
    const Vector3 first[2] = {n[0] * scale[0], n[1] * scale[1]};
    const Vector3 second[2] = {n[2] * scale[2], n[3] * scale[3]};
    const bool takesFirst = dot(first[0], first[1]) > dot(second[0], second[1]);
    return (takesFirst ? first[0] + first[1] : second[0] + second[1]).normalized();
}
