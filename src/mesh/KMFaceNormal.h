#pragma once

#include "math/Vector3.h"

/// Normals of flat faces whose corners run clockwise seen from the front. What has no direction has the zero
/// vector.
namespace KMFaceNormal {

/// The vector with unit length, by one division: three cost more than all the rest here.
kvm::Vector3 unit(const kvm::Vector3 &v);

kvm::Vector3 ofTriangle(const kvm::Vector3 &p0, const kvm::Vector3 &p1, const kvm::Vector3 &p2);

/// Of the diagonal whose two triangles lie more in one plane; of that between corners 1 and 3 when neither does.
kvm::Vector3 ofQuad(const kvm::Vector3 &p0, const kvm::Vector3 &p1, const kvm::Vector3 &p2, const kvm::Vector3 &p3);

/// Corners of several quads, sorted so that one instruction works on several of them.
struct Quads
{
    static constexpr int Size = 16;
    float x[4][Size];
    float y[4][Size];
    float z[4][Size];

    void set(int quad, int corner, const kvm::Vector3 &p)
    {
        x[corner][quad] = p.x;
        y[corner][quad] = p.y;
        z[corner][quad] = p.z;
    }
};
struct Normals
{
    float x[Quads::Size];
    float y[Quads::Size];
    float z[Quads::Size];

    kvm::Vector3 at(int quad) const { return {x[quad], y[quad], z[quad]}; }
};

/// The same as ofQuad() for each of them, to the bit. Places that were not set give no normal of use.
void ofQuads(const Quads &quads, Normals *normals);

} // namespace KMFaceNormal
