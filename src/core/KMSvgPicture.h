#pragma once

#include <QByteArray>
#include <QColor>
#include <QImage>
#include <QString>

/// The program's own drawings, of one ink each.
namespace KMSvgPicture {

QByteArray read(const QString &name); ///< of ":/svg/Resources/<name>.svg"; empty when there is no such drawing
/// The drawing in the middle of a transparent picture, as large as fits; sizes are pixels of the device.
QImage draw(const QByteArray &drawing, const QSize &size, const QColor &ink);

} // namespace KMSvgPicture
