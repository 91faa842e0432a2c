#pragma once

#include <QtGlobal>

/// Numbers that the reader and the writer of the native file share.
namespace KMD {

constexpr float Version = 4.4f; ///< of the form that is written
constexpr float OldestVersion = 1.0f;
constexpr float CompatibilityVersion = 3.0f; ///< of the form for release 1
constexpr double CompatibilityBelow = 200.0; ///< application numbers below select the form for release 1
constexpr int StreamVersion = 16;            ///< of QDataStream

/// What a read takes out of the file.
enum Take : int {
    TakeViewState = 0x2, ///< display switches and the settings of the views
    TakeCameras = 0x4,
    TakeSchematic = 0x800,
    TakeAll = 65535 ///< the file becomes the document; anything less imports into the one that is open
};

// Limits that no real document reaches; what lies beyond them is damage.
constexpr quint32 MaxStringBytes = 1u << 26;
constexpr int MaxLargeTags = 4; ///< normal tags of one mesh, and morph tags

constexpr int ReservedInt = -1; ///< fills reserved fields
constexpr float ReservedFloat = -1.0f;
constexpr int ReservedFields = 4; ///< of each kind, where a record keeps room for later

} // namespace KMD
