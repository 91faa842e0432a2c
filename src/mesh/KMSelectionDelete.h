#pragma once

#include "mesh/KMMeshTargets.h"

namespace KMMeshEdit {

/// Deletes what is selected in the chosen meshes that are visible as one step "Delete Selection Node": vertices with
/// the faces around them, faces, and of selected edges the line polygon, or where there is none the faces on them; only
/// the kinds given. Vertices that lose their last face stay in the store until the mesh is compacted. False, and no
/// step, when nothing of that is selected.
bool deleteSelection(KMMeshTargets::Elements kinds);
bool deleteSelection(); ///< of the kinds that the edit filter names

} // namespace KMMeshEdit
