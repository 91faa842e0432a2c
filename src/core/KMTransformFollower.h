#pragma once

#include "math/Matrix4.h"

/// A node or tag with data in the world, which the transforms of the nodes above don't reach by themselves.
class KMTransformFollower
{
public:
    virtual ~KMTransformFollower() = default;

    /// A node above, or its own mesh, was transformed: pushes the steps that take its data along, within the macro of
    /// that edit. Vertices have been moved by then.
    virtual void pushCarried(const kvm::Matrix4 &step) = 0;
};
