#pragma once

#include <QList>

class QAction;

/// The keys of the actions, in "shortcuts.ini" under the object name of each.
namespace KMShortcutFile {

/// Gives each action the keys of the file, or leaves it those it has where the file doesn't name it.
void read(const QList<QAction *> &actions);

/// Writes the keys of all these actions; keys of actions that are gone leave the file.
void save(const QList<QAction *> &actions);

} // namespace KMShortcutFile
