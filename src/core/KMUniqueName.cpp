#include "core/KMUniqueName.h"

namespace {

/// The number that the text spells without a sign or leading zeros, else -1; only up to three digits matter here.
int plainNumber(const QStringRef &text)
{
    constexpr int longest = 3;
    const bool leadingZero = text.size() > 1 && text.at(0) == QLatin1Char('0');
    if (text.isEmpty() || text.size() > longest || leadingZero)
        return -1;
    int number = 0;
    for (const QChar c : text) {
        if (c < QLatin1Char('0') || c > QLatin1Char('9'))
            return -1;
        number = number * 10 + (c.unicode() - '0');
    }
    return number;
}

} // namespace

KMNumberedNames::KMNumberedNames(const QString &base)
    : m_base(base)
{
}

void KMNumberedNames::take(const QString &name)
{
    if (!name.startsWith(m_base))
        return;
    const int number = plainNumber(name.midRef(m_base.size()));
    if (number >= 0)
        m_taken.set(size_t(number));
}

QString KMNumberedNames::firstFree() const
{
    int number = 0;
    while (number < Limit - 1 && m_taken.test(size_t(number)))
        ++number;
    return m_base + QString::number(number); // not arg(): a name may hold "%1" itself
}

QString withoutTrailingDigits(const QString &name)
{
    int length = name.size();
    while (length > 0 && name.at(length - 1).isDigit())
        --length;
    return name.left(length);
}
