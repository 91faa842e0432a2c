#pragma once

#include "mesh/KMMeshPaste.h"

/// Faces of meshes in the system's clipboard.
namespace KMMeshClipboard {

bool copyFaces(); ///< those that are selected; false, and the clipboard as it was, when none is
bool hasFaces();

/// Into the current mesh, as one step. The message line tells what is missing when there is nothing to paste or no mesh
/// to paste into.
void pasteFaces(KMMeshPaste::Kind kind);

} // namespace KMMeshClipboard
