#include "core/KMPlatform.h"

QString desktopWallpaperFile()
{
    return {}; // each X11 desktop keeps it somewhere else, and none answers a common question
}
