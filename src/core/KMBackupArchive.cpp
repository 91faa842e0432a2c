#include "core/KMBackupArchive.h"

#include "core/KMSettings.h"

#include <quazip.h>
#include <quazipfile.h>

#include <QCoreApplication>
#include <QDateTime>
#include <QDebug>
#include <QDir>
#include <QFileInfo>

namespace {

/// The folder of the setting, beside the program or absolute; empty when neither exists.
QString backupFolder()
{
    const QString setting = gSettings->backupDir;
    const QDir program(QCoreApplication::applicationDirPath());
    const QString folder = program.absoluteFilePath(setting); // an absolute setting stays as it is
    return !setting.isEmpty() && QFileInfo(folder).isDir() ? folder : QString();
}

bool addFile(QuaZip &zip, const QString &filePath)
{
    QFile source(filePath);
    if (!source.open(QIODevice::ReadOnly))
        return false;
    QuaZipFile entry(&zip);
    if (!entry.open(QIODevice::WriteOnly, QuaZipNewInfo(QFileInfo(filePath).fileName(), filePath)))
        return false;
    constexpr qint64 blockSize = 1 << 16;
    while (!source.atEnd()) {
        const QByteArray block = source.read(blockSize);
        if (block.isEmpty() || entry.write(block) != block.size())
            return false;
    }
    entry.close();
    return entry.getZipError() == ZIP_OK;
}

} // namespace

bool KMBackupArchive::pack(const QString &archivePath, const QString &filePath)
{
    QuaZip::setDefaultFileNameCodec("Shift-JIS");
    QuaZip zip(archivePath);
    zip.setFileNameCodec("Shift-JIS");
    QDir().mkpath(QFileInfo(archivePath).absolutePath());
    bool packed = zip.open(QuaZip::mdCreate) && addFile(zip, filePath);
    if (zip.isOpen()) {
        zip.close();
        packed = packed && zip.getZipError() == ZIP_OK;
    }
    if (!packed)
        QFile::remove(archivePath);
    return packed;
}

void KMBackupArchive::afterSave(const QString &path)
{
    if (!gSettings || !gSettings->enableBackup)
        return;
    const QString folder = backupFolder();
    if (folder.isEmpty())
        return;
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyyMMddhhmmss"));
    const QString archive =
        folder + QDir::separator() + QFileInfo(path).baseName() + QLatin1Char('_') + time + QStringLiteral(".zip");
    if (!pack(archive, path))
        qDebug().noquote() << "backup failed:" << archive;
}
