#include "core/KMUniqueName.h"

QString firstFreeName(const QString &base, const QSet<QString> &taken)
{
    constexpr int limit = 1000;
    QString candidate;
    for (int i = 0; i < limit; ++i) {
        candidate = base + QString::number(i); // not arg(): a name may hold "%1" itself
        if (!taken.contains(candidate))
            break;
    }
    return candidate;
}

QString withoutTrailingDigits(const QString &name)
{
    int length = name.size();
    while (length > 0 && name.at(length - 1).isDigit())
        --length;
    return name.left(length);
}
