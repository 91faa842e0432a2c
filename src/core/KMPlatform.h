#pragma once

#include <QString>

/// The picture file behind the icons of the desktop. Empty where the system has no query for it.
QString desktopWallpaperFile();
