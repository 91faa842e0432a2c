#pragma once

#include "modifiers/KMPathMesh.h"

#include <QCoreApplication>
#include <QStringList>

class QIODevice;

/// Reads the shapes of an SVG drawing as flat areas: paths, rectangles, circles, ellipses, polygons and lines, filled
/// and stroked as they say, with the transforms of the groups around them. Style sheets, texts, pictures, clones,
/// patterns and links are left alone; nothing outside the file is opened.
///
/// Files come from anywhere: size, nesting and the number of points have limits.
class KMSvgReader
{
    Q_DECLARE_TR_FUNCTIONS(KMSvgReader)
public:
    static constexpr qint64 MaxBytes = 16 * 1024 * 1024;
    static constexpr int MaxDepth = 256;
    static constexpr int MaxElements = 100000; ///< points and handles of all paths

    /// False when the file can't be read as a drawing; what it holds is empty then, and error() says why.
    bool readFile(const QString &path);
    bool read(QIODevice *device);

    const KMPathMesh &area() const { return m_area; } ///< Y upwards
    QString error() const { return m_error; }
    QStringList warnings() const { return m_warnings; } ///< what was left out, in words

private:
    bool fail(const QString &what);

    KMPathMesh m_area;
    QString m_error;
    QStringList m_warnings;
};
