#pragma once

#include <QtGlobal>

/// Bits of the flag bytes of vertices, edges, faces and face corners.
namespace KMElementFlag {

enum Bit : quint8 {
    Hot = 2,       ///< edges: highlighted under the cursor
    HotSecond = 4, ///< edges: highlighted, second stage
    Selected = 8,  ///< on a corner: its UV is selected
    UVLocked = 16, ///< corners
    Hidden = 32    ///< faces
};

} // namespace KMElementFlag
