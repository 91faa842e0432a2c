#pragma once

#include <QTransform>
#include <QXmlStreamAttributes>

/// What an element of an SVG drawing hands on to those in it: where it stands, and how its outline becomes an area.
struct KMSvgStyle
{
    QTransform transform;
    bool isFilled = true;
    bool isStroked = false;
    bool isShown = true; ///< false for all of a group that isn't displayed
    bool isVisible = true;
    double strokeWidth = 1.0;
    double miterLimit = 4.0;
    Qt::FillRule fillRule = Qt::WindingFill;
    Qt::PenCapStyle cap = Qt::FlatCap;
    Qt::PenJoinStyle join = Qt::MiterJoin;

    void inherit(const QXmlStreamAttributes &attributes); ///< takes over what an element says of itself
};

/// The transform that the text names, from left to right; the identity from a mistake on.
QTransform svgTransform(const QString &text);

/// A length in units of the drawing, also one in px, pt, pc, mm, cm or in; the fallback for anything else.
double svgLength(const QString &text, double fallback);
