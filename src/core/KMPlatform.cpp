#include "core/KMPlatform.h"

#include <QFile>
#include <QRegularExpression>
#include <QSysInfo>

QString desktopWallpaperFile()
{
    return {}; // each X11 desktop keeps it somewhere else, and none answers a common question
}

KMOperatingSystem operatingSystem()
{
    return {QSysInfo::prettyProductName(), true};
}

qint64 availableMemory()
{
    QFile file(QStringLiteral("/proc/meminfo"));
    if (!file.open(QFile::ReadOnly))
        return 0;
    const QRegularExpression row(QStringLiteral("MemAvailable:\\s*(\\d+) kB"));
    return row.match(QString::fromLatin1(file.readAll())).captured(1).toLongLong() * 1024;
}
