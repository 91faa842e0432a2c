#pragma once

#include "core/KMTreeWidget.h"

class KMBone;
class KMBoneContainer;

/// How rows of bones are moved about, each time as one step of the history.
namespace KMBoneMoves {

/// Moves bones, with all below them, beside or into another one of their rig, in their order; a null target moves them
/// to the end of the top level. Those that would come to stand below themselves stay, and a message says so.
void move(const QList<KMBone *> &bones, KMBone *target, KMTreeWidget::Place place);

/// The same with copies of the selected bones of a rig, which become the selected ones.
void copy(KMBoneContainer *rig, KMBone *target, KMTreeWidget::Place place);

/// Moves the selected bones with all below them to the top level of another rig. They get other names where theirs are
/// taken there; their keys don't come along, joints don't reach from rig to rig, and a message says so.
void moveToRig(KMBoneContainer *from, KMBoneContainer *to);

} // namespace KMBoneMoves
