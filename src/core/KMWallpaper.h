#pragma once

#include <QPixmap>
#include <QString>

/// The picture of a file at 1280 by 720, whatever its proportions, and blurred: the ground of splash-like panels.
/// A null pixmap when the file is missing or no picture, or while there is no application with widgets.
QPixmap blurredWallpaper(const QString &file);
