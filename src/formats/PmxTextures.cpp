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

void logFailure(const QString &path)
{
    qDebug().noquote() << "texture save [NG]" << path;
}

} // namespace

PmxTextures::PmxTextures(const QString &modelPath, const PmxExportOptions &options)
    : m_options(options)
    , m_modelPath(modelPath)
{
}

void PmxTextures::take(int texture)
{
    const QList<KMNode *> textures = gProject->textures().nodes();
    if (texture < 0 || texture >= textures.size() || m_places.contains(texture))
        return;
    m_places.insert(texture, m_paths.size());
    m_paths.append(written(pathOf(*static_cast<KMTextureNode *>(textures.at(texture)))));
}

/// Beside the model, under a name that no other picture of this file has got.
QString PmxTextures::newPath(const QString &name)
{
    const QDir folder = QFileInfo(m_modelPath).absoluteDir();
    const QString base = baseNameFrom(name);
    QString path = folder.filePath(base + QStringLiteral(".png"));
    for (int i = 1; m_stored.contains(path); ++i)
        path = folder.filePath(QStringLiteral("%1_%2.png").arg(base).arg(i));
    m_stored.insert(path);
    return path;
}

QString PmxTextures::pathOf(const KMTextureNode &texture)
{
    if (texture.type() == KMNodeType::FileTexture) {
        const QString path = static_cast<const KMFileTextureNode &>(texture).path();
        return m_options.psdToPng && isOfPaintingProgram(QFileInfo(path).suffix()) ? converted(path) : path;
    }
    const QString path = newPath(texture.name());
    const QImage image = texture.image();
    if (image.isNull() || (mayWrite(path) && !image.save(path, "png")))
        logFailure(path);
    return path;
}

/// The path of the PNG beside it; its own where it can't be read or the PNG not be written.
QString PmxTextures::converted(const QString &path) const
{
    const QFileInfo file(path);
    const QString png = file.dir().filePath(file.completeBaseName() + QStringLiteral(".png"));
    const QImage image(path);
    if (!image.isNull() && (!mayWrite(png) || image.save(png, "png")))
        return png;
    logFailure(png);
    return path;
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
    return KMPrompt::current().message(question) == QMessageBox::Ok;
}

QString PmxTextures::written(const QString &path) const
{
    if (!m_options.relativePaths || path.isEmpty())
        return path;
    const QFileInfo file(path);
    if (file.isRelative() && !file.exists())
        return path; // of another system, or relative already to what isn't known here
    return QFileInfo(m_modelPath).absoluteDir().relativeFilePath(file.absoluteFilePath());
}
