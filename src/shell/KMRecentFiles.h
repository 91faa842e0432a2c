#pragma once

#include <QString>
#include <QStringList>

/// The files that were opened or saved last, the latest first. The list lies in "kelmo.ini", and is read and written
/// there each time, so that two running programs don't forget each other's files.
namespace KMRecentFiles {

constexpr int Limit = 9;

QStringList paths();
bool add(const QString &path); ///< to the front; false for the emergency backup, which is never listed
void remove(const QString &path);
void clear();
QString entryText(int number, const QString &path); ///< of the menu; the number is the entry's access key

} // namespace KMRecentFiles
