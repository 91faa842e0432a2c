#include "core/KMTexturePath.h"

#include "core/KMSolution.h"

#include <QDir>
#include <QFileInfo>

namespace {

/// "C:\\skin.png" means nothing here, and is absolute all the same where it comes from.
bool isOfAnotherSystem(const QString &text)
{
    return text.startsWith(QLatin1Char('\\')) || (text.size() > 1 && text.at(1) == QLatin1Char(':'));
}

bool isRelative(const QString &text)
{
    return !text.isEmpty() && !isOfAnotherSystem(text) && QFileInfo(text).isRelative();
}

} // namespace

QString KMTexturePath::folderOf(const QString &document)
{
    return document.isEmpty() ? QString() : QFileInfo(document).absolutePath();
}

QString KMTexturePath::openFolder()
{
    return gSolution ? folderOf(gSolution->fileName()) : QString();
}

QString KMTexturePath::place(const QString &text, const QString &folder)
{
    return folder.isEmpty() || !isRelative(text) ? text : QDir::cleanPath(QDir(folder).filePath(text));
}

QString KMTexturePath::written(const QString &place, const QString &folder)
{
    if (folder.isEmpty() || QFileInfo(place).isRelative())
        return place;
    const QString text = QDir(folder).relativeFilePath(place);
    return isRelative(text) && !text.startsWith(QLatin1String("../")) ? text : place;
}
