#include "formats/KMExchangeFormat.h"

#include <algorithm>

const QVector<KMExchangeFormat> &exchangeFormats()
{
    static const QVector<KMExchangeFormat> formats = {};
    return formats;
}

const KMExchangeFormat *exchangeFormat(const QString &suffix)
{
    const QVector<KMExchangeFormat> &formats = exchangeFormats();
    const auto found = std::find_if(formats.cbegin(), formats.cend(), [&suffix](const KMExchangeFormat &format) {
        return format.suffix == suffix.toLower();
    });
    return found == formats.cend() ? nullptr : &*found;
}
