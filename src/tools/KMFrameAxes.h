#pragma once

#include "math/Quaternion.h"

namespace kvm {
struct Matrix4;
}

namespace KMFrameAxes {

/// The rotation in a matrix, its scale and shear left out. The x axis keeps its direction.
kvm::Quaternion of(const kvm::Matrix4 &frame);

} // namespace KMFrameAxes
