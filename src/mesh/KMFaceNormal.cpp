#include "mesh/KMFaceNormal.h"

#include <cmath>
#include <cstring>
#ifdef __SSE__
#include <xmmintrin.h>
#endif

using kvm::Vector3;

namespace {

/// Four numbers on which one instruction works; each of them comes out as it would alone.
using Lanes = float __attribute__((vector_size(16)));
constexpr int laneCount = 4;

float rootOf(float v)
{
    return std::sqrt(v);
}

Lanes rootOf(Lanes v)
{
#ifdef __SSE__
    return _mm_sqrt_ps(v);
#else
    for (int i = 0; i < laneCount; ++i)
        v[i] = std::sqrt(v[i]);
    return v;
#endif
}

template <class Number>
struct Triple
{
    Number x, y, z;

    Triple operator+(const Triple &o) const { return {x + o.x, y + o.y, z + o.z}; }
    Triple operator-(const Triple &o) const { return {x - o.x, y - o.y, z - o.z}; }
    Triple operator*(Number s) const { return {x * s, y * s, z * s}; }
};

template <class Number>
Triple<Number> cross(const Triple<Number> &a, const Triple<Number> &b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

template <class Number>
Number dot(const Triple<Number> &a, const Triple<Number> &b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

// Roots and divisions come before each choice: they run side by side, and nothing has to be guessed.

template <class Number>
Triple<Number> scaledToUnit(const Triple<Number> &v)
{
    const Number length = rootOf(dot(v, v));
    const Number zero = {};
    return v * (length > zero ? 1.0f / length : zero);
}

template <class Number>
Triple<Number> unitOf(const Triple<Number> &v)
{
    const Number length = rootOf(dot(v, v));
    const Number zero = {};
    const auto hasLength = length > zero;
    const Triple<Number> unit = v * (1.0f / length);
    return {hasLength ? unit.x : zero, hasLength ? unit.y : zero, hasLength ? unit.z : zero};
}

template <class Number>
Triple<Number> normalOf(const Triple<Number> (&p)[4])
{
    const Triple<Number> a = p[0] - p[1];
    const Triple<Number> b = p[1] - p[2];
    const Triple<Number> c = p[2] - p[3];
    const Triple<Number> d = p[3] - p[0];
    const Triple<Number> even[] = {scaledToUnit(cross(b, a)), scaledToUnit(cross(c, p[0] - p[2]))};
    const Triple<Number> odd[] = {scaledToUnit(cross(c, b)), scaledToUnit(cross(d, p[1] - p[3]))};
    const auto isEvenFlatter = dot(even[0], even[1]) > dot(odd[0], odd[1]);
    const Triple<Number> e = even[0] + even[1];
    const Triple<Number> o = odd[0] + odd[1];
    return unitOf(Triple<Number>{isEvenFlatter ? e.x : o.x, isEvenFlatter ? e.y : o.y, isEvenFlatter ? e.z : o.z});
}

Triple<float> tripleOf(const Vector3 &v)
{
    return {v.x, v.y, v.z};
}

Vector3 vectorOf(const Triple<float> &v)
{
    return {v.x, v.y, v.z};
}

Lanes lanesAt(const float *numbers)
{
    Lanes lanes;
    std::memcpy(&lanes, numbers, sizeof lanes);
    return lanes;
}

} // namespace

Vector3 KMFaceNormal::unit(const Vector3 &v)
{
    return vectorOf(unitOf(tripleOf(v)));
}

Vector3 KMFaceNormal::ofTriangle(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2)
{
    return unit(cross(p1 - p2, p0 - p1));
}

Vector3 KMFaceNormal::ofQuad(const Vector3 &p0, const Vector3 &p1, const Vector3 &p2, const Vector3 &p3)
{
    return vectorOf(normalOf({tripleOf(p0), tripleOf(p1), tripleOf(p2), tripleOf(p3)}));
}

void KMFaceNormal::ofQuads(const Quads &quads, Normals *normals)
{
    static_assert(Quads::Size % laneCount == 0, "no lane may stay empty");
    for (int i = 0; i < Quads::Size; i += laneCount) {
        const auto corner = [&quads, i](int c) {
            return Triple<Lanes>{lanesAt(quads.x[c] + i), lanesAt(quads.y[c] + i), lanesAt(quads.z[c] + i)};
        };
        const Triple<Lanes> normal = normalOf({corner(0), corner(1), corner(2), corner(3)});
        std::memcpy(normals->x + i, &normal.x, sizeof normal.x);
        std::memcpy(normals->y + i, &normal.y, sizeof normal.y);
        std::memcpy(normals->z + i, &normal.z, sizeof normal.z);
    }
}
