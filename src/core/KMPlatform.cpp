#include "core/KMPlatform.h"

#include <QFile>
#include <QSysInfo>

QString desktopWallpaperFile()
{
    return {}; // each X11 desktop keeps it somewhere else, and none answers a common question
}

KMOperatingSystem operatingSystem()
{
    return {QSysInfo::prettyProductName(), true};
}

quint64 availableMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QIODevice::ReadOnly | QIODevice::Text))
        return 0;
    const QList<QByteArray> lines = file.readAll().split('\n');
    for (const QByteArray &line : lines) {
        if (!line.startsWith("MemAvailable:"))
            continue;
        constexpr quint64 unit = 1024;
        return line.simplified().split(' ').value(1).toULongLong() * unit;
    }
    return 0;
}
