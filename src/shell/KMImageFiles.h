#pragma once

#include <QString>

/// The picture files that Qt's image plug-ins know.
namespace KMImageFiles {

QString openFilter(); ///< for a file dialogue
QString saveFilter();
bool isImage(const QString &path); ///< by its suffix

} // namespace KMImageFiles
