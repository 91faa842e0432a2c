#pragma once

#include "core/KMNullNode.h"

#include <QList>

class KMMeshNode;

/// Moves objects as their user sees them. The vertices of a mesh stand in world space, and so do primitives and
/// modifiers by their own transforms: all have to be taken along when the transform of a node above them changes.
namespace KMObjectTransform {

/// Whether the transform would press a mesh flat, which no other scale could undo.
bool wouldFlatten(const KMNullNode *node, const KMTransform &transform);

/// With what is no number, or no rotation, as it is at rest.
KMTransform sound(const KMTransform &transform);

bool isSame(const KMTransform &a, const KMTransform &b); ///< to the last digit

/// Sets the transform of a node and moves the vertices of the mesh that it is and of the meshes below it, and the
/// primitives and modifiers below it; rigs below it and the morphs of the meshes go along. Pushes several commands; the
/// caller opens the macro. An axis that the old or the new scale presses flat is taken over as it is.
void push(KMNullNode *node, const KMTransform &transform);

// The pieces of it, for what shows the effect before it becomes a step

QList<KMMeshNode *> meshesBelow(const KMNullNode *node); ///< itself included, where it is one
QList<KMContainerNode *> rigsBelow(const KMNullNode *node);
QList<KMNullNode *> placedBelow(const KMNullNode *node); ///< primitives and modifiers, without itself
/// What moves a point of the world from the frame that a transform makes of the node into that of another one.
kvm::Matrix4 worldStep(const KMNullNode *node, const KMTransform &before, const KMTransform &after);
/// A primitive's transform taken along by such a step. The shape of a primitive knows scale and rotation only: what
/// would slant it is left out.
KMTransform moved(const KMTransform &transform, const kvm::Matrix4 &step);

} // namespace KMObjectTransform
