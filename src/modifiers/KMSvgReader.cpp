#include "modifiers/KMSvgReader.h"

#include "core/KMInputFile.h"
#include "modifiers/KMPathMesher.h"
#include "modifiers/KMSvgPathData.h"
#include "modifiers/KMSvgScanner.h"
#include "modifiers/KMSvgStyle.h"

#include <QFile>
#include <QPainterPath>
#include <QStack>
#include <QXmlStreamReader>

#include <cmath>

namespace {

constexpr double leastSize = 512.0;  // at which curves become polygons: small drawings would have corners,
constexpr double mostSize = 20000.0; // huge ones too many points
constexpr int mostStroked = 20000;   // elements of a path

/// What only takes effect where it is referred to, or isn't drawn as an area.
bool isSkipped(const QStringRef &name)
{
    static const char *const names[] = {"clipPath", "defs",   "desc",     "filter",  "foreignObject",  "linearGradient",
                                        "marker",   "mask",   "metadata", "pattern", "radialGradient", "script",
                                        "style",    "symbol", "text",     "title"};
    for (const char *skipped : names) {
        if (name == QLatin1String(skipped))
            return true;
    }
    return false;
}

class Drawing
{
    Q_DECLARE_TR_FUNCTIONS(KMSvgReader)
public:
    explicit Drawing(QIODevice *device)
        : m_xml(device)
    {
        m_styles.push(KMSvgStyle());
    }

    bool read();

    KMPathMesh area;
    QString error;
    QStringList warnings;

private:
    using Shape = QPainterPath (Drawing::*)();

    static Shape shapeOf(const QStringRef &name);
    void enter();
    void add(const QPainterPath &path, const KMSvgStyle &style);
    void addArea(const QPainterPath &path, const QTransform &transform, Qt::FillRule rule);
    void warnLeftOut(); ///< of the element that was reached
    void warn(const QString &what);
    QString attribute(const char *name) const { return m_xml.attributes().value(QLatin1String(name)).toString(); }
    double length(const char *name, double fallback = 0.0) const { return svgLength(attribute(name), fallback); }
    QPolygonF points() const;

    QPainterPath path();
    QPainterPath rectangle();
    QPainterPath circle();
    QPainterPath ellipse();
    QPainterPath line();
    QPainterPath polyline();
    QPainterPath polygon();

    QXmlStreamReader m_xml;
    QStack<KMSvgStyle> m_styles;
    int m_elements = 0;
    qint64 m_points = 0; // of the polygons that the paths became
};

bool Drawing::read()
{
    bool isSvg = false;
    while (!m_xml.atEnd()) {
        const QXmlStreamReader::TokenType token = m_xml.readNext();
        if (token == QXmlStreamReader::EndElement)
            m_styles.pop();
        if (token != QXmlStreamReader::StartElement)
            continue;
        if (!isSvg && m_xml.name() != QLatin1String("svg")) {
            error = tr("This is not an SVG drawing");
            return false;
        }
        isSvg = true;
        if (m_styles.size() > KMSvgReader::MaxDepth) {
            error = tr("Elements lie deeper in one another than %1").arg(KMSvgReader::MaxDepth);
            return false;
        }
        if (!isSkipped(m_xml.name())) {
            enter();
            continue;
        }
        if (m_xml.name() == QLatin1String("text"))
            warnLeftOut();
        m_xml.skipCurrentElement();
    }
    if (m_xml.hasError())
        error = tr("Line %1: %2").arg(m_xml.lineNumber()).arg(m_xml.errorString());
    else if (!isSvg)
        error = tr("This is not an SVG drawing");
    return error.isEmpty();
}

Drawing::Shape Drawing::shapeOf(const QStringRef &name)
{
    struct Row
    {
        const char *name;
        Shape shape;
    };
    static constexpr Row rows[] = {
        {"path", &Drawing::path},       {"rect", &Drawing::rectangle}, {"circle", &Drawing::circle},
        {"ellipse", &Drawing::ellipse}, {"line", &Drawing::line},      {"polyline", &Drawing::polyline},
        {"polygon", &Drawing::polygon},
    };
    for (const Row &row : rows) {
        if (name == QLatin1String(row.name))
            return row.shape;
    }
    return nullptr;
}

void Drawing::enter()
{
    KMSvgStyle style = m_styles.top();
    style.inherit(m_xml.attributes());
    m_styles.push(style);
    if (m_xml.name() == QLatin1String("use") || m_xml.name() == QLatin1String("image"))
        warnLeftOut();
    const Shape shape = shapeOf(m_xml.name());
    if (shape && style.isShown && style.isVisible)
        add((this->*shape)(), style);
}

void Drawing::warnLeftOut()
{
    warn(tr("Line %1: %2 was left out").arg(m_xml.lineNumber()).arg(m_xml.name()));
}

void Drawing::warn(const QString &what)
{
    constexpr int mostWarnings = 20;
    if (warnings.size() < mostWarnings)
        warnings << what;
}

void Drawing::add(const QPainterPath &path, const KMSvgStyle &style)
{
    m_elements += path.elementCount();
    const QRectF bounds = path.boundingRect();
    const double size = std::max(bounds.width(), bounds.height());
    if (path.isEmpty() || !(size > 0.0) || m_elements > KMSvgReader::MaxElements)
        return;
    // Curves are flattened at a size where their corners don't show, then taken back.
    const double fine = qBound(leastSize, size, mostSize) / size;
    const QPainterPath large = QTransform::fromScale(fine, fine).map(path);
    const QTransform back = QTransform::fromScale(1.0 / fine, 1.0 / fine) * style.transform;
    if (style.isFilled)
        addArea(large, back, style.fillRule);
    if (!style.isStroked || !(style.strokeWidth > 0.0) || path.elementCount() > mostStroked)
        return;
    QPainterPathStroker stroker;
    stroker.setWidth(std::min(style.strokeWidth, 2.0 * size) * fine);
    stroker.setMiterLimit(style.miterLimit);
    stroker.setCapStyle(style.cap);
    stroker.setJoinStyle(style.join);
    addArea(stroker.createStroke(large), back, Qt::WindingFill);
}

void Drawing::addArea(const QPainterPath &path, const QTransform &transform, Qt::FillRule rule)
{
    QList<QPolygonF> polygons;
    for (const QPolygonF &polygon : path.toSubpathPolygons()) {
        polygons << transform.map(polygon);
        m_points += polygon.size();
    }
    // All paths together: a file may hold a great many of which each is within the limit.
    if (m_points > KMPathMesher::MaxPoints)
        return warn(
            tr("Line %1: the drawing has more than %2 points").arg(m_xml.lineNumber()).arg(KMPathMesher::MaxPoints));
    KMPathMesher mesher;
    area.append(mesher.mesh(polygons, rule));
    if (!mesher.error().isEmpty())
        warn(tr("Line %1: %2").arg(m_xml.lineNumber()).arg(mesher.error()));
}

QPainterPath Drawing::path()
{
    const KMSvgPathData::Result result = KMSvgPathData::read(attribute("d"), KMSvgReader::MaxElements - m_elements);
    if (!result.isWhole)
        warn(tr("Line %1: the path ends at a mistake or is too long").arg(m_xml.lineNumber()));
    return result.path;
}

QPainterPath Drawing::rectangle()
{
    const QRectF rect(length("x"), length("y"), length("width"), length("height"));
    const double rx = length("rx", length("ry"));
    const double ry = length("ry", rx);
    QPainterPath path;
    if (rect.width() > 0.0 && rect.height() > 0.0)
        path.addRoundedRect(rect, qBound(0.0, rx, rect.width() / 2.0), qBound(0.0, ry, rect.height() / 2.0));
    return path;
}

QPainterPath Drawing::circle()
{
    const double radius = length("r");
    QPainterPath path;
    if (radius > 0.0)
        path.addEllipse(QPointF(length("cx"), length("cy")), radius, radius);
    return path;
}

QPainterPath Drawing::ellipse()
{
    const double rx = length("rx", length("ry"));
    const double ry = length("ry", rx);
    QPainterPath path;
    if (rx > 0.0 && ry > 0.0)
        path.addEllipse(QPointF(length("cx"), length("cy")), rx, ry);
    return path;
}

QPainterPath Drawing::line()
{
    QPainterPath path(QPointF(length("x1"), length("y1")));
    path.lineTo(length("x2"), length("y2"));
    return path;
}

QPolygonF Drawing::points() const
{
    QPolygonF points;
    KMSvgScanner scanner(attribute("points"));
    double x, y;
    while (points.size() < KMSvgReader::MaxElements && scanner.takeNumber(&x) && scanner.takeNumber(&y))
        points << QPointF(x, y);
    return points;
}

QPainterPath Drawing::polyline()
{
    QPainterPath path;
    path.addPolygon(points());
    return path;
}

QPainterPath Drawing::polygon()
{
    QPainterPath path = polyline();
    path.closeSubpath();
    return path;
}

} // namespace

bool KMSvgReader::fail(const QString &what)
{
    m_area = {};
    m_error = what;
    return false;
}

bool KMSvgReader::readFile(const QString &path)
{
    QFile file(path);
    const QString fault = KMInputFile::open(file);
    return fault.isEmpty() ? read(&file) : fail(fault);
}

bool KMSvgReader::read(QIODevice *device)
{
    m_warnings.clear();
    m_error.clear();
    if (device->size() > MaxBytes)
        return fail(tr("The file is larger than %1 bytes").arg(MaxBytes));
    Drawing drawing(device);
    if (!drawing.read())
        return fail(drawing.error);
    m_area = drawing.area;
    m_warnings = drawing.warnings;
    return true;
}
