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

} // namespace KMFaceNormal
