#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDStream.h"

struct KMDContents;

/// The blocks of textures and materials in the native file: the live ones, in the order of their indices.
namespace KMDShelfBlocks {

void writeTextures(KMDOutput &out, const QString &folder); ///< that of the file, empty for none
void readTextures(KMDStream &in, KMDContents &contents);
void writeShaders(KMDOutput &out);
void readShaders(KMDStream &in, KMDContents &contents);

} // namespace KMDShelfBlocks
