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

/// The keys of an entry; those that the action has at present when the entry names no keys at all.
QKeySequence sequenceOf(const QString &entry, const QKeySequence &present)
{
    const QKeySequence keys = QKeySequence::fromString(entry, QKeySequence::PortableText);
    for (int i = 0; i < int(keys.count()); ++i) {
        if (keys[uint(i)] == Qt::Key_unknown)
            return present;
    }
    return keys.isEmpty() && !entry.isEmpty() ? present : keys;
}

} // namespace

void KMShortcutFile::read(const QList<QAction *> &actions)
{
    const QSettings file(shortcutFile(), QSettings::IniFormat);
    for (QAction *action : actions) {
        const QString present = action->shortcut().toString(QKeySequence::PortableText);
        const QString entry = file.value(action->objectName(), present).toString();
        action->setShortcut(sequenceOf(entry, action->shortcut()));
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
