#pragma once

#include <QImage>
#include <QString>

/// Compares a picture with the one that tests/pictures keeps under this name, by a tolerance that forgives another
/// driver's rounding. Empty when they agree, else what differs; both and their difference are left in the folder
/// "pictures" of the working directory then.
///
/// With KELMO_STORE_PICTURES set in the environment the picture is stored instead. Look at it before you commit it.
QString pictureFault(const QImage &picture, const QString &name);

/// Mean difference of the channels of two pictures of one size, 0 to 255.
double meanDifference(const QImage &a, const QImage &b);

/// Pictures side by side, in rows of so many.
QImage contactSheet(const QVector<QImage> &pictures, int columns);
