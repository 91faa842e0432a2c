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

/// The current rig, also when it is hidden or locked, while bones of it are selected. Null without. What is done to the
/// selection means these then, and not the rig.
KMBoneContainer *rigWithSelection();
QVector<KMJointMove::Grabbed> selected(); ///< heads and tails of that rig that are selected, shown and not locked

/// Selects it by the rule of clicks, as one step. A rig that isn't current becomes so. Whether the part is selected
/// afterwards.
bool click(const KMBonePicker::Hit &hit, KMMeshSelect::Mode mode);

/// Takes what is selected of meshes out of the selection, and while a rig is at hand that of all rigs, as one step;
/// none where nothing is.
void unselectAll();
/// Likewise what is selected of rigs alone; one of them may keep its selection.
void unselectBones(const KMBoneContainer *except = nullptr);

/// Selects it with all below it, or takes them out of the selection, as one step.
void selectBranch(KMBone *bone, bool on);

/// The selected bones of a rig that a deletion reaches: hidden and locked ones stay. Says so where some do.
QList<KMBone *> deletable(const KMBoneContainer &rig);
/// Their children stay. Opens no macro.
void pushDelete(QList<KMBone *> bones);
/// Those of the current rig that are deletable, as one step. False where no bone is selected: where a selection only
/// can't be deleted, its rig isn't meant either.
bool deleteSelected();
/// Deletes a bone, with symmetry on also its partner, as one step.
void deleteBone(KMBone *bone, float mirrorTolerance);

} // namespace KMBoneTargets
