#include "core/KMInputFile.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KMInputFile", text);
}

} // namespace

QString KMInputFile::obstacle(const QString &path)
{
    constexpr qint64 mostBytes = 0x7fffffc0; // pictures, texts and whole files are read into a QByteArray
    const QFileInfo info(path);
    if (!info.exists())
        return tr("The file doesn't exist");
    if (info.isDir())
        return tr("This is a folder, not a file");
    if (!info.isFile()) // opening a pipe would wait for its other end
        return tr("This is not a regular file");
    return info.size() > mostBytes ? tr("The file is too large: %1 bytes").arg(info.size()) : QString();
}

QString KMInputFile::open(QFile &file, QIODevice::OpenMode mode)
{
    const QString fault = obstacle(file.fileName());
    if (!fault.isEmpty() || file.open(mode))
        return fault;
    return tr("The file can't be opened: %1").arg(file.errorString());
}
