#pragma once

#include "math/Quaternion.h"

/// A quarter turn about X, between the axes of a rigid body in a player and those of its tag: there Y runs along the
/// body, on a tag Z does. A tag's rotation is that of the player times this one.
constexpr kvm::Quaternion KMPlayerAxes{0.7071067690849304f, -0.7071067690849304f, 0.0f, 0.0f};
