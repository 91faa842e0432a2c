#include "formats/KMNativeFormat.h"

#include "core/KMSolution.h"
#include "core/KMTexturePath.h"
#include "core/KMWaitCursor.h"
#include "formats/KMDWriter.h"
#include "formats/KMReadReport.h"

#include <QBuffer>
#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QSaveFile>

KMNativeFormat *installNativeFormat(KMSolution *solution)
{
    static KMNativeFormat format;
    solution->setDocumentFormat(&format);
    format.forgetDocument();
    QObject::connect(solution, &KMSolution::documentReset, solution, [] { format.forgetDocument(); });
    return &format;
}

void KMNativeFormat::forgetDocument()
{
    m_kept = {};
    m_told.clear();
}

bool KMNativeFormat::read(const QString &path)
{
    return readWith(path, {});
}

bool KMNativeFormat::importFile(const QString &path, int mask, float scale)
{
    KMDReader::Options options;
    options.mask = mask;
    options.importScale = scale;
    return readWith(path, options);
}

bool KMNativeFormat::readWith(const QString &path, KMDReader::Options options)
{
    options.viewParts = parts();
    KMDReader reader(options);
    bool isRead = false;
    {
        const KMWaitCursor cursor; // gone before a box comes
        isRead = reader.read(path);
    }
    if (!isRead)
        return tellFailure(path, reader.error());
    if (options.mask == KMD::TakeAll)
        m_kept.picture = reader.thumbnail();
    if (!reader.warnings().isEmpty())
        KMReadReport::show(path, reader.warnings());
    return true;
}

bool KMNativeFormat::write(const QString &path, double applicationNumber)
{
    const bool compatibility = applicationNumber < KMD::CompatibilityBelow;
    QString error;
    if (compatibility)
        qDebug("Ver1_compatibility");
    return writeTo(path, compatibility, error) || tellFailure(path, error);
}

bool KMNativeFormat::writeTo(const QString &path, bool compatibility, QString &error)
{
    QSaveFile file(path);
    // Without a name the temporary file would still open, and the renaming fail.
    if (path.isEmpty() || !file.open(QIODevice::WriteOnly)) {
        qDebug("file open error.");
        error =
            path.isEmpty() ? tr("There is no file name") : tr("The file can't be written: %1").arg(file.errorString());
        return false;
    }
    KMDWriter writer(compatibility ? KMDOutput::Form::Compatibility : KMDOutput::Form::Present, thumbnail(path),
                     parts(), KMTexturePath::folderOf(path));
    bool isWritten = false;
    {
        const KMWaitCursor cursor;
        isWritten = writer.write(&file);
        if (!isWritten)
            file.cancelWriting();
        isWritten = file.commit() && isWritten;
    }
    if (!isWritten) {
        error = tr("The file can't be written: %1").arg(file.errorString());
        return false;
    }
    tellUnwritten(path, writer.warnings());
    return true;
}

/// A picture that the user laid beside the file goes before a grab of the view.
QByteArray KMNativeFormat::thumbnail(const QString &path) const
{
    constexpr int side = 256;
    QImage image(QFileInfo(path).absoluteDir().filePath(QStringLiteral("shot.png")));
    if (image.isNull() && m_parts)
        image = m_parts->thumbnail();
    QByteArray png;
    if (image.isNull())
        return m_parts ? png : m_kept.picture;
    QBuffer buffer(&png);
    image.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation).save(&buffer, "png");
    return png;
}

bool KMNativeFormat::tellFailure(const QString &path, const QString &sentence) const
{
    KMReadReport::show(path, {sentence});
    return false;
}

/// Once while it stays the same: a document is saved over and over.
void KMNativeFormat::tellUnwritten(const QString &path, const QStringList &warnings)
{
    if (!warnings.isEmpty() && (m_isQuiet || warnings == m_told)) {
        qDebug().noquote() << path << warnings.join(QLatin1Char('\n'));
        return;
    }
    m_told = warnings;
    if (!warnings.isEmpty())
        KMReadReport::show(path, warnings);
}
