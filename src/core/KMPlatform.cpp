#include "core/KMPlatform.h"

#include <QSysInfo>

QString desktopWallpaperFile()
{
    return {}; // each X11 desktop keeps it somewhere else, and none answers a common question
}

KMOperatingSystem operatingSystem()
{
    return {QSysInfo::prettyProductName(), true};
}
