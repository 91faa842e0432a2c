#pragma once

#include "core/KMNullNode.h"

class KMShownAngles;

/// What the panels do to transforms: one number is set, on a node and on all that are selected with it, as one step.
namespace KMTransformEdit {

enum Part { Position, Rotation, Scale, PartCount };
enum class Reach {
    Object, ///< vertices and what lies below move along
    Frame   ///< only the axes of the node move
};

/// The three numbers that a panel shows for a part; the rotation in degrees, by way of the angles shown before.
kvm::Vector3 shown(const KMNullNode *node, Part part, KMShownAngles &angles);

/// Sets one of them. The angles are those that the panel shows for the node. False, after a message, when nothing was
/// changed because a scale of zero would press a mesh flat.
bool set(KMNullNode *node, Part part, int axis, double number, KMShownAngles &angles, Reach reach);

} // namespace KMTransformEdit
