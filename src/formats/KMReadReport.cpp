#include "formats/KMReadReport.h"

#include "core/KMPrompt.h"

#include <QDebug>
#include <QDir>

namespace {

constexpr int mostWarnings = 20; // that many are told one by one, the rest are counted

} // namespace

void KMReadReport::enterSection(const QString &name)
{
    m_section = name;
    m_element = -1;
}

QString KMReadReport::place() const
{
    if (m_element < 0)
        return tr("%1, byte %2").arg(m_section).arg(m_lastRead);
    return tr("%1, element %2 of %3, byte %4").arg(m_section).arg(m_element + 1).arg(m_elementCount).arg(m_lastRead);
}

void KMReadReport::fail(const QString &what)
{
    if (ok())
        m_error = QStringLiteral("%1 (%2)").arg(what, place());
}

void KMReadReport::warn(const QString &what)
{
    if (++m_warningCount <= mostWarnings)
        m_warnings << QStringLiteral("%1 (%2)").arg(what, place());
}

/// With a line that counts those beyond the limit, out of a number that may be greater than what was kept.
QStringList KMReadReport::firstOf(QStringList lines, int count)
{
    if (lines.size() > mostWarnings + 1)
        lines = lines.mid(0, mostWarnings);
    if (count > lines.size())
        lines << tr("and %1 more").arg(count - lines.size());
    return lines;
}

QStringList KMReadReport::warnings() const
{
    return firstOf(m_warnings, m_warningCount);
}

void KMReadReport::show(const QString &path, const QStringList &lines, int onlyCounted)
{
    const QString told = firstOf(lines, lines.size() + onlyCounted).join(QLatin1Char('\n'));
    const QString text = QStringLiteral("%1\n%2").arg(QDir::toNativeSeparators(path), told);
    qDebug().noquote() << text;
    KMPrompt::current().warn(text);
}
