#include "formats/PmxTextures.h"

#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "formats/PmxExportOptions.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImage>

#include <algorithm>

namespace {

/// "lip" stands in "clip" too.
bool isOfPaintingProgram(const QString &suffix)
{
    const QString parts[] = {QStringLiteral("psd"), QStringLiteral("PSD"), QStringLiteral("lip")};
    return std::any_of(std::begin(parts), std::end(parts),
                       [&suffix](const QString &part) { return suffix.contains(part); });
}

QString baseNameFrom(const QString &name)
{
    QString safe = QFileInfo(name).completeBaseName();
    for (QChar &c : safe) {
        if (QStringLiteral("<>:\"/\\|?*").contains(c) || c < QLatin1Char(' '))
            c = QLatin1Char('_');
    }
    return safe.isEmpty() ? QStringLiteral("texture") : safe;
}

/// What tells files apart, also where the system doesn't tell cases of letters.
QString fileKey(const QString &path)
{
    return QDir::cleanPath(QFileInfo(path).absoluteFilePath()).toCaseFolded();
}

} // namespace

PmxTextures::PmxTextures(const QString &modelPath, const PmxExportOptions &options)
    : m_options(options)
    , m_modelPath(modelPath)
{
    const QList<KMNode *> textures = gProject->textures().nodes();
    for (const KMNode *texture : textures) {
        const QString place = texture->type() == KMNodeType::FileTexture
                                  ? static_cast<const KMFileTextureNode *>(texture)->filePath()
                                  : QString();
        if (!place.isEmpty())
            m_taken.insert(fileKey(place));
    }
}

void PmxTextures::take(int texture)
{
    const QList<KMNode *> textures = gProject->textures().nodes();
    if (texture < 0 || texture >= textures.size() || m_places.contains(texture))
        return;
    const QString path = pathOf(*static_cast<KMTextureNode *>(textures.at(texture)));
    m_places.insert(texture, path.isEmpty() ? -1 : m_paths.size());
    if (!path.isEmpty())
        m_paths.append(path);
}

QString PmxTextures::pathOf(const KMTextureNode &texture)
{
    if (texture.type() != KMNodeType::FileTexture)
        return written(stored(texture));
    const auto &file = static_cast<const KMFileTextureNode &>(texture);
    const QString place = file.filePath();
    if (place.isEmpty())
        return file.path(); // of another system, or relative already to what isn't known here
    const bool isConverted = m_options.psdToPng && isOfPaintingProgram(QFileInfo(place).suffix());
    return written(isConverted ? converted(place) : place);
}

/// A name for a PNG that is neither that of a texture of the document nor of another PNG of this model.
QString PmxTextures::newPath(const QDir &folder, const QString &base)
{
    QString path = folder.filePath(base + QStringLiteral(".png"));
    for (int i = 1; m_taken.contains(fileKey(path)); ++i)
        path = folder.filePath(QStringLiteral("%1_%2.png").arg(base).arg(i));
    m_taken.insert(fileKey(path));
    return path;
}

/// The path of a picture that lies in the document, as a PNG beside the model; empty where there is none.
QString PmxTextures::stored(const KMTextureNode &texture)
{
    const QString path = newPath(QFileInfo(m_modelPath).absoluteDir(), baseNameFrom(texture.name()));
    return isThere(path, texture.image()) ? path : QString();
}

/// The path of the PNG beside it; its own where it can't be read or the PNG not be written.
QString PmxTextures::converted(const QString &path)
{
    QString &made = m_converted[QDir::cleanPath(path)];
    if (!made.isEmpty())
        return made;
    const QFileInfo file(path);
    const QImage image(path);
    const QString png = image.isNull() ? path : newPath(file.dir(), file.completeBaseName());
    return made = isThere(png, image) ? png : path;
}

/// Whether a picture can be referred to as a PNG: written now, or left as it was by whoever wants that.
bool PmxTextures::isThere(const QString &path, const QImage &image) const
{
    const bool isStored = !image.isNull() && (!mayWrite(path) || image.save(path, "png"));
    if (!isStored)
        qDebug().noquote() << "texture save [NG]" << path;
    return isStored;
}

bool PmxTextures::mayWrite(const QString &path) const
{
    if (m_options.noOverwritePrompt || !QFileInfo::exists(path))
        return true;
    KMMessage question;
    question.icon = QMessageBox::Question;
    question.text = path + tr(" is already exists.\nOverwrite the current file?");
    question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
    question.defaultButton = QMessageBox::Cancel;
    question.parent = m_options.parent;
    return KMPrompt::current().message(question) == QMessageBox::Ok;
}

QString PmxTextures::written(const QString &path) const
{
    return m_options.relativePaths && !path.isEmpty() ? QFileInfo(m_modelPath).absoluteDir().relativeFilePath(path)
                                                      : path;
}
