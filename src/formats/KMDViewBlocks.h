#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDStream.h"

struct KMDContents;
class KMDViewParts;

/// What a native file keeps of the display: switches, cameras, the settings of the views.
namespace KMDViewBlocks {

void writeSwitches(KMDOutput &out); ///< of the session
/// What a file of that version doesn't hold is left in the contents as it was.
void readSwitches(KMDStream &in, KMDContents &contents);
void writeCameras(KMDOutput &out, const KMDViewParts *parts); ///< none without parts
void readCameras(KMDStream &in, KMDContents &contents);
void writeViews(KMDOutput &out, const KMDViewParts *parts);
void readViews(KMDStream &in, KMDContents &contents);

} // namespace KMDViewBlocks
