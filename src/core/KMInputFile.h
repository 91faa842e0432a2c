#pragma once

#include <QIODevice>
#include <QString>

class QFile;

/// What all readers ask of a file before they read it.
namespace KMInputFile {

/// What is in the way of reading a file, as a sentence; empty for a regular file that is there.
QString obstacle(const QString &path);

/// Opens a file. Returns the sentence on what was in the way; empty when it is open.
QString open(QFile &file, QIODevice::OpenMode mode = QIODevice::ReadOnly);

} // namespace KMInputFile
