#pragma once

#include <QImage>
#include <QString>

/// The open document as one view shows it, whole and as large as it fits. Null where nothing can be drawn.
/// view: front, back, left, right, top, bottom or perspective.
QImage documentPicture(const QString &view, const QSize &size);
