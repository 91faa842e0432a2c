#pragma once

#include "math/Quaternion.h"
#include "math/Vector3.h"

/// A rotation as the three angles that a user reads and types. Many triples mean one rotation: what was shown or typed
/// last stays as long as it is still true, else the plainest triple is taken.
class KMShownAngles
{
public:
    const kvm::Vector3 &show(const kvm::Quaternion &rotation); ///< degrees about x first, then y, then z
    void type(int axis, float degrees);                        ///< replaces one of those that are shown
    const kvm::Vector3 &degrees() const { return m_degrees; }

    static kvm::Quaternion rotationOf(const kvm::Vector3 &degrees);
    static kvm::Vector3 degreesOf(const kvm::Quaternion &rotation); ///< the triple of the least turning

private:
    kvm::Vector3 m_degrees;
};
