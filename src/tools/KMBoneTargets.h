#pragma once

#include "mesh/KMMeshSelect.h"
#include "render/KMBonePicker.h"
#include "rig/KMJointMove.h"

/// The bones that the mouse works on, and what tools do with those that are picked.
namespace KMBoneTargets {

/// The rig that is current, unless it is hidden or locked. While there is one, the mouse means bones before elements of
/// meshes. Null without.
KMBoneContainer *container();

/// The bone that the mouse means before any element: one of the current rig.
KMBonePicker::Hit pickBefore(const KMCameraNode &camera, const QPointF &position);
/// The one that it means where no element is: of any rig, while neither a rig nor a mesh is at hand. Else a drag beside
/// an element would take hold of what lies inside the mesh.
KMBonePicker::Hit pickBehind(const KMCameraNode &camera, const QPointF &position);

QVector<KMJointMove::Grabbed> selected(); ///< heads and tails of that rig that are selected, shown and not locked

/// Selects it by the rule of clicks, as one step. A rig that isn't current becomes so. Whether the part is selected
/// afterwards.
bool click(const KMBonePicker::Hit &hit, KMMeshSelect::Mode mode);

/// Takes what is selected of meshes and of the rig out of the selection, as one step; none where nothing is.
void unselectAll();

/// Selects it with all below it, or takes them out of the selection, as one step.
void selectBranch(KMBone *bone, bool on);

bool deleteSelected(); ///< the selected bones of the rig, as one step; false where there is none
/// Deletes a bone, with symmetry on also its partner, as one step.
void deleteBone(KMBone *bone, float mirrorTolerance);

} // namespace KMBoneTargets
