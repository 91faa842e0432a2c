#include "modifiers/KMSvgScanner.h"

#include <cmath>

namespace {

constexpr double farthest = 1e7;

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

bool isSign(QChar c)
{
    return c == QLatin1Char('+') || c == QLatin1Char('-');
}

} // namespace

void KMSvgScanner::skipSeparators()
{
    while (m_at < m_text.size() && (m_text[m_at].isSpace() || m_text[m_at] == QLatin1Char(',')))
        ++m_at;
}

bool KMSvgScanner::atEnd()
{
    skipSeparators();
    return m_at >= m_text.size();
}

bool KMSvgScanner::atNumber()
{
    skipSeparators();
    const QChar next = peek();
    return isDigit(next) || isSign(next) || next == QLatin1Char('.');
}

QString KMSvgScanner::takeWord()
{
    const int start = m_at;
    while (peek().isLetter() || peek() == QLatin1Char('-'))
        ++m_at;
    return m_text.mid(start, m_at - start);
}

int KMSvgScanner::digitsFrom(int at) const
{
    int count = 0;
    while (at + count < m_text.size() && isDigit(m_text[at + count]))
        ++count;
    return count;
}

bool KMSvgScanner::takeNumber(double *number)
{
    skipSeparators();
    int end = m_at;
    if (isSign(peek()))
        ++end;
    int digits = digitsFrom(end);
    end += digits;
    if (end < m_text.size() && m_text[end] == QLatin1Char('.')) {
        const int fraction = digitsFrom(end + 1);
        digits += fraction;
        end += 1 + fraction;
    }
    if (digits == 0)
        return false;
    if (end < m_text.size() && m_text[end].toLower() == QLatin1Char('e')) {
        const int exponent = end + 1 < m_text.size() && isSign(m_text[end + 1]) ? end + 2 : end + 1;
        if (const int count = digitsFrom(exponent)) // else the letter is a unit, as in "2em"
            end = exponent + count;
    }
    bool isNumber = false;
    *number = m_text.midRef(m_at, end - m_at).toDouble(&isNumber);
    if (!isNumber || !(std::abs(*number) <= farthest))
        return false;
    m_at = end;
    return true;
}

bool KMSvgScanner::takeFlag(bool *flag)
{
    skipSeparators();
    if (peek() != QLatin1Char('0') && peek() != QLatin1Char('1'))
        return false;
    *flag = peek() == QLatin1Char('1');
    skip();
    return true;
}
