#pragma once

#include "core/KMNullNode.h"

/// Moves objects as their user sees them. The vertices of a mesh stand in world space and the shape of a primitive
/// follows its own transform only, so both have to be taken along when the transform of a node above them changes.
namespace KMObjectTransform {

/// Whether the transform would press a mesh flat, which no other scale could undo.
bool wouldFlatten(const KMNullNode *node, const KMTransform &transform);

/// Sets the transform of a node and moves the vertices of the mesh that it is and of the meshes below it, and the
/// primitives below it. Pushes several commands; the caller opens the macro. An axis that the old or the new scale
/// presses flat is taken over as it is.
void push(KMNullNode *node, const KMTransform &transform);

} // namespace KMObjectTransform
