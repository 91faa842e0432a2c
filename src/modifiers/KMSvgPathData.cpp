#include "modifiers/KMSvgPathData.h"

#include "modifiers/KMSvgScanner.h"

#include <array>
#include <cmath>

namespace {

/// An elliptic arc as a path has it: radii, turn of the ellipse in degrees, and which of the four arcs.
struct Arc
{
    double rx, ry, turn;
    bool isLarge, isSweep;
    QPointF end;
};

double angleOf(const QPointF &v)
{
    return std::atan2(v.y(), v.x());
}

/// Adds the arc as cubics of a quarter turn at most.
void addArc(QPainterPath &path, Arc arc)
{
    const QPointF start = path.currentPosition();
    if (start == arc.end)
        return;
    arc.rx = std::abs(arc.rx);
    arc.ry = std::abs(arc.ry);
    if (arc.rx < 1e-9 || arc.ry < 1e-9)
        return path.lineTo(arc.end);

    // In the frame where the ellipse is the unit circle.
    QTransform toCircle;
    toCircle.scale(1.0 / arc.rx, 1.0 / arc.ry);
    toCircle.rotate(-arc.turn);
    QPointF a = toCircle.map(start);
    QPointF b = toCircle.map(arc.end);
    double grow = 1.0;
    const double halfChord = std::hypot(b.x() - a.x(), b.y() - a.y()) / 2.0;
    if (halfChord > 1.0) { // radii too small to reach: the smallest ellipse that does
        grow = halfChord;
        a /= grow;
        b /= grow;
    }
    const QPointF middle = (a + b) / 2.0;
    const QPointF chord = b - a;
    const double chordLength = std::hypot(chord.x(), chord.y());
    if (chordLength < 1e-12)
        return path.lineTo(arc.end);
    const double rise = std::sqrt(std::max(0.0, 1.0 - chordLength * chordLength / 4.0));
    const QPointF across(-chord.y() / chordLength, chord.x() / chordLength);
    const QPointF centre = middle + across * (arc.isLarge == arc.isSweep ? -rise : rise);

    const double from = angleOf(a - centre);
    double sweep = angleOf(b - centre) - from;
    if (arc.isSweep && sweep < 0.0)
        sweep += 2.0 * M_PI;
    if (!arc.isSweep && sweep > 0.0)
        sweep -= 2.0 * M_PI;

    QTransform fromCircle;
    fromCircle.rotate(arc.turn);
    fromCircle.scale(arc.rx * grow, arc.ry * grow);
    const int pieces = std::max(1, int(std::ceil(std::abs(sweep) / (M_PI / 2.0) - 1e-9)));
    const double step = sweep / pieces;
    const double handle = 4.0 / 3.0 * std::tan(step / 4.0);
    for (int i = 0; i < pieces; ++i) {
        const double t0 = from + i * step;
        const double t1 = t0 + step;
        const QPointF p0(std::cos(t0), std::sin(t0));
        const QPointF p1(std::cos(t1), std::sin(t1));
        const QPointF c0 = p0 + QPointF(-p0.y(), p0.x()) * handle;
        const QPointF c1 = p1 - QPointF(-p1.y(), p1.x()) * handle;
        const QPointF end = i + 1 == pieces ? arc.end : fromCircle.map(centre + p1);
        path.cubicTo(fromCircle.map(centre + c0), fromCircle.map(centre + c1), end);
    }
}

class Reader
{
public:
    Reader(const QString &text, int mostElements)
        : m_scanner(text)
        , m_mostElements(mostElements)
    {
    }

    KMSvgPathData::Result read();

private:
    bool readCommand();
    bool readOne(); ///< the arguments of the command once
    bool takePoint(QPointF *point);
    bool takeAlong(double origin, double *value);
    bool readMove();
    bool readLine();
    bool readCubic(bool isSmooth);
    bool readQuadratic(bool isSmooth);
    bool readArc();
    QPointF mirrored(QChar family) const;
    QPointF origin() const { return m_isRelative ? m_path.currentPosition() : QPointF(); }

    KMSvgScanner m_scanner;
    int m_mostElements;
    QPainterPath m_path;
    QPointF m_start;   // of the subpath
    QPointF m_control; // of the last curve
    QChar m_command;   // in capitals
    QChar m_previous;
    bool m_isRelative = false;
    bool m_isFirst = true; // the arguments are the first behind the letter
};

KMSvgPathData::Result Reader::read()
{
    while (!m_scanner.atEnd()) {
        if (!readCommand())
            return {m_path, false};
    }
    return {m_path, true};
}

bool Reader::readCommand()
{
    const QChar letter = m_scanner.peek();
    m_command = letter.toUpper();
    m_isRelative = letter.isLower();
    m_scanner.skip();
    if (!QStringLiteral("MLHVCSQTAZ").contains(m_command) || (m_previous.isNull() && m_command != QLatin1Char('M')))
        return false;
    m_isFirst = true;
    do {
        if (m_path.elementCount() >= m_mostElements || !readOne())
            return false;
        m_previous = m_command;
        m_isFirst = false;
    } while (m_command != QLatin1Char('Z') && m_scanner.atNumber());
    return true;
}

bool Reader::readOne()
{
    switch (m_command.toLatin1()) {
    case 'M':
        return readMove();
    case 'C':
        return readCubic(false);
    case 'S':
        return readCubic(true);
    case 'Q':
        return readQuadratic(false);
    case 'T':
        return readQuadratic(true);
    case 'A':
        return readArc();
    case 'Z':
        m_path.closeSubpath();
        m_path.moveTo(m_start);
        return true;
    default:
        return readLine();
    }
}

bool Reader::takePoint(QPointF *point)
{
    double x, y;
    if (!m_scanner.takeNumber(&x) || !m_scanner.takeNumber(&y))
        return false;
    *point = origin() + QPointF(x, y);
    return true;
}

bool Reader::takeAlong(double origin, double *value)
{
    if (!m_scanner.takeNumber(value))
        return false;
    *value += origin;
    return true;
}

bool Reader::readMove()
{
    QPointF to;
    if (!takePoint(&to))
        return false;
    if (!m_isFirst) { // further points behind a move are lines
        m_path.lineTo(to);
        return true;
    }
    m_path.moveTo(to);
    m_start = to;
    return true;
}

bool Reader::readLine()
{
    QPointF to = m_path.currentPosition();
    bool isRead = false;
    double value;
    if (m_command == QLatin1Char('L')) {
        isRead = takePoint(&to);
    } else if (m_command == QLatin1Char('H')) {
        isRead = takeAlong(origin().x(), &value);
        if (isRead)
            to.setX(value);
    } else {
        isRead = takeAlong(origin().y(), &value);
        if (isRead)
            to.setY(value);
    }
    if (isRead)
        m_path.lineTo(to);
    return isRead;
}

/// A smooth curve goes on in the direction in which one of its own kind came in.
QPointF Reader::mirrored(QChar family) const
{
    const QPointF at = m_path.currentPosition();
    const bool goesOn = m_previous == family || m_previous == (family == QLatin1Char('C') ? 'S' : 'T');
    return goesOn ? at * 2.0 - m_control : at;
}

bool Reader::readCubic(bool isSmooth)
{
    QPointF first = mirrored(QLatin1Char('C'));
    QPointF second, to;
    if ((!isSmooth && !takePoint(&first)) || !takePoint(&second) || !takePoint(&to))
        return false;
    m_path.cubicTo(first, second, to);
    m_control = second;
    return true;
}

bool Reader::readQuadratic(bool isSmooth)
{
    QPointF control = mirrored(QLatin1Char('Q'));
    QPointF to;
    if ((!isSmooth && !takePoint(&control)) || !takePoint(&to))
        return false;
    m_path.quadTo(control, to);
    m_control = control;
    return true;
}

bool Reader::readArc()
{
    Arc arc;
    if (!m_scanner.takeNumber(&arc.rx) || !m_scanner.takeNumber(&arc.ry) || !m_scanner.takeNumber(&arc.turn)
        || !m_scanner.takeFlag(&arc.isLarge) || !m_scanner.takeFlag(&arc.isSweep) || !takePoint(&arc.end))
        return false;
    addArc(m_path, arc);
    return true;
}

} // namespace

KMSvgPathData::Result KMSvgPathData::read(const QString &text, int mostElements)
{
    return Reader(text, mostElements).read();
}
