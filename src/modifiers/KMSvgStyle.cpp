#include "modifiers/KMSvgStyle.h"

#include "modifiers/KMSvgScanner.h"

#include <QVector>

#include <cmath>

namespace {

bool isPaint(const QString &value)
{
    return value != QLatin1String("none") && value != QLatin1String("transparent");
}

template <class T>
struct Word
{
    const char *text;
    T value;
};

template <class T, size_t N>
T valueOf(const QString &text, const Word<T> (&words)[N], T fallback)
{
    for (const Word<T> &word : words) {
        if (text == QLatin1String(word.text))
            return word.value;
    }
    return fallback;
}

void apply(KMSvgStyle &style, const QString &name, const QString &value)
{
    static constexpr Word<Qt::FillRule> rules[] = {{"nonzero", Qt::WindingFill}, {"evenodd", Qt::OddEvenFill}};
    static constexpr Word<Qt::PenCapStyle> caps[] = {
        {"butt", Qt::FlatCap}, {"round", Qt::RoundCap}, {"square", Qt::SquareCap}};
    static constexpr Word<Qt::PenJoinStyle> joins[] = {
        {"miter", Qt::MiterJoin}, {"round", Qt::RoundJoin}, {"bevel", Qt::BevelJoin}};

    if (value == QLatin1String("inherit"))
        return;
    if (name == QLatin1String("fill"))
        style.isFilled = isPaint(value);
    else if (name == QLatin1String("stroke"))
        style.isStroked = isPaint(value);
    else if (name == QLatin1String("stroke-width"))
        style.strokeWidth = svgLength(value, style.strokeWidth);
    else if (name == QLatin1String("stroke-miterlimit"))
        style.miterLimit = svgLength(value, style.miterLimit);
    else if (name == QLatin1String("fill-rule"))
        style.fillRule = valueOf(value, rules, style.fillRule);
    else if (name == QLatin1String("stroke-linecap"))
        style.cap = valueOf(value, caps, style.cap);
    else if (name == QLatin1String("stroke-linejoin"))
        style.join = valueOf(value, joins, style.join);
    else if (name == QLatin1String("display"))
        style.isShown = style.isShown && value != QLatin1String("none");
    else if (name == QLatin1String("visibility"))
        style.isVisible = value == QLatin1String("visible");
}

QTransform shear(double horizontal, double vertical)
{
    return QTransform(1.0, std::tan(vertical * M_PI / 180.0), std::tan(horizontal * M_PI / 180.0), 1.0, 0.0, 0.0);
}

/// One function of a transform; false when it is none or has another number of arguments.
bool functionOf(const QString &name, const QVector<double> &n, QTransform *result)
{
    const int count = n.size();
    if (name == QLatin1String("matrix") && count == 6)
        *result = QTransform(n[0], n[1], n[2], n[3], n[4], n[5]);
    else if (name == QLatin1String("translate") && (count == 1 || count == 2))
        *result = QTransform::fromTranslate(n[0], count == 2 ? n[1] : 0.0);
    else if (name == QLatin1String("scale") && (count == 1 || count == 2))
        *result = QTransform::fromScale(n[0], count == 2 ? n[1] : n[0]);
    else if (name == QLatin1String("rotate") && count == 1)
        *result = QTransform().rotate(n[0]);
    else if (name == QLatin1String("rotate") && count == 3)
        *result = QTransform().translate(n[1], n[2]).rotate(n[0]).translate(-n[1], -n[2]);
    else if (name == QLatin1String("skewX") && count == 1)
        *result = shear(n[0], 0.0);
    else if (name == QLatin1String("skewY") && count == 1)
        *result = shear(0.0, n[0]);
    else
        return false;
    return true;
}

} // namespace

QTransform svgTransform(const QString &text)
{
    constexpr int mostArguments = 6;
    QTransform whole;
    KMSvgScanner scanner(text);
    while (!scanner.atEnd()) {
        const QString name = scanner.takeWord();
        scanner.skipSeparators();
        if (scanner.peek() != QLatin1Char('('))
            break;
        scanner.skip();
        QVector<double> numbers;
        double number;
        while (numbers.size() <= mostArguments && scanner.takeNumber(&number))
            numbers.append(number);
        scanner.skipSeparators();
        QTransform part;
        if (scanner.peek() != QLatin1Char(')') || !functionOf(name, numbers, &part))
            break;
        scanner.skip();
        whole = part * whole;
    }
    return whole;
}

double svgLength(const QString &text, double fallback)
{
    static constexpr Word<double> units[] = {{"", 1.0},    {"px", 1.0},         {"pt", 96.0 / 72.0},
                                             {"pc", 16.0}, {"mm", 96.0 / 25.4}, {"cm", 96.0 / 2.54},
                                             {"in", 96.0}};
    KMSvgScanner scanner(text);
    double number;
    if (!scanner.takeNumber(&number))
        return fallback;
    const double unit = valueOf(scanner.takeWord(), units, 0.0);
    return unit > 0.0 && scanner.atEnd() ? number * unit : fallback;
}

void KMSvgStyle::inherit(const QXmlStreamAttributes &attributes)
{
    for (const QXmlStreamAttribute &attribute : attributes)
        apply(*this, attribute.qualifiedName().toString(), attribute.value().trimmed().toString());
    // What stands in the attribute of the style outweighs the attribute of the same name.
    const QStringList declarations = attributes.value(QLatin1String("style")).toString().split(QLatin1Char(';'));
    for (const QString &declaration : declarations) {
        const int colon = declaration.indexOf(QLatin1Char(':'));
        if (colon > 0)
            apply(*this, declaration.left(colon).trimmed(), declaration.mid(colon + 1).trimmed());
    }
    transform = svgTransform(attributes.value(QLatin1String("transform")).toString()) * transform;
}
