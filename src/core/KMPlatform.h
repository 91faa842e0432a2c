#pragma once

#include <QString>

// What the program asks of the system that it runs on.

/// The picture file behind the icons of the desktop. Empty where the system has no query for it.
QString desktopWallpaperFile();

/// The operating system, as the log and the start-up see it.
struct KMOperatingSystem
{
    QString name;
    bool isSupported = true; ///< the program refuses to start where it is false
};

KMOperatingSystem operatingSystem();

/// Bytes that programs may still take without harm to the others; 0 where the system doesn't say.
quint64 availableMemory();
