#include "shell/KMRecentFiles.h"

#include "core/KMSettings.h"

#include <QFileInfo>
#include <QSettings>

namespace {

const QString listKey = QStringLiteral("recentFileList");

} // namespace

QStringList KMRecentFiles::paths()
{
    return QSettings(gSettings->kelmoFile(), QSettings::IniFormat).value(listKey).toStringList();
}

bool KMRecentFiles::add(const QString &path)
{
    if (QFileInfo(path).baseName() == QLatin1String("_backup_"))
        return false;
    QSettings file(gSettings->kelmoFile(), QSettings::IniFormat);
    QStringList list = file.value(listKey).toStringList();
    list.removeAll(path);
    list.prepend(path);
    file.setValue(listKey, QStringList(list.mid(0, Limit)));
    return true;
}

void KMRecentFiles::remove(const QString &path)
{
    QSettings file(gSettings->kelmoFile(), QSettings::IniFormat);
    QStringList list = file.value(listKey).toStringList();
    list.removeAll(path);
    file.setValue(listKey, list);
}

void KMRecentFiles::clear()
{
    QSettings(gSettings->kelmoFile(), QSettings::IniFormat).remove(listKey);
}

QString KMRecentFiles::entryText(int number, const QString &path)
{
    QString name = QFileInfo(path).fileName();
    name.replace(QLatin1Char('&'), QLatin1String("&&"));
    return QStringLiteral("&%1 %2").arg(number).arg(name);
}
