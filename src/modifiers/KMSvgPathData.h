#pragma once

#include <QPainterPath>
#include <QString>

/// The path of the attribute "d" of an SVG path: all commands, absolute and relative. As browsers do, a mistake
/// ends the path there and keeps what stands before it.
namespace KMSvgPathData {

struct Result
{
    QPainterPath path;
    bool isWhole = true; ///< false when the text had a mistake or more elements than the limit
};

Result read(const QString &text, int mostElements);

} // namespace KMSvgPathData
