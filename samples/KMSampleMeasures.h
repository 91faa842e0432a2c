#pragma once

#include "math/Vector3.h"

/// Where the joints of the figure are. Bones are fitted to these places, and the parts are made around them.
/// The left side is positive x; she faces negative z.
namespace KMSampleMeasures {

constexpr kvm::Vector3 shoulder{3.2f, 154.2f, 1.2f};
constexpr kvm::Vector3 armHead{11.4f, 152.9f, 0.9f};
constexpr kvm::Vector3 armWay{0.82169f, -0.56993f, 0.0f}; ///< of unit length
constexpr kvm::Vector3 armUp{0.56993f, 0.82169f, 0.0f};   ///< across it, to the back of the hand
constexpr kvm::Vector3 forward{0.0f, 0.0f, -1.0f};
constexpr float armPart = 13.0156f; ///< four of them make the arm

constexpr kvm::Vector3 hip{6.9f, 101.0f, -2.4f};
constexpr kvm::Vector3 knee{6.7f, 60.8f, -2.4f};
constexpr kvm::Vector3 ankle{6.9f, 9.0f, 0.4f};
constexpr kvm::Vector3 toe{8.0f, 1.8f, -11.5f};

constexpr kvm::Vector3 eye{4.25f, 172.9f, -2.0f};

inline kvm::Vector3 wrist()
{
    return armHead + armWay * (4.0f * armPart);
}

/// A place of the hand: along it, towards the thumb, and out of its back.
inline kvm::Vector3 inHand(float along, float thumbwards, float up)
{
    return wrist() + armWay * along + forward * thumbwards + armUp * up;
}

} // namespace KMSampleMeasures
