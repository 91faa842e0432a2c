#include "shell/KMShortcutFile.h"

#include "core/KMSettings.h"
#include "core/KMVersion.h"

#include <QAction>
#include <QSet>
#include <QSettings>

namespace {

const QString versionKey = QStringLiteral("Version/AppVer");

QString shortcutFile()
{
    return gSettings->filePath(QStringLiteral("shortcuts.ini"));
}

} // namespace

void KMShortcutFile::read(const QList<QAction *> &actions)
{
    const QSettings file(shortcutFile(), QSettings::IniFormat);
    for (QAction *action : actions) {
        const QString present = action->shortcut().toString(QKeySequence::PortableText);
        const QString keys = file.value(action->objectName(), present).toString();
        action->setShortcut(QKeySequence::fromString(keys, QKeySequence::PortableText));
        action->setShortcutVisibleInContextMenu(true);
    }
}

void KMShortcutFile::save(const QList<QAction *> &actions)
{
    QSettings file(shortcutFile(), QSettings::IniFormat);
    QSet<QString> known{versionKey};
    file.setValue(versionKey, double(KMVersion::Number));
    for (const QAction *action : actions) {
        known << action->objectName();
        file.setValue(action->objectName(), action->shortcut().toString(QKeySequence::PortableText));
    }
    for (const QString &key : file.allKeys()) {
        if (!known.contains(key))
            file.remove(key);
    }
}
