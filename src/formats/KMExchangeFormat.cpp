#include "formats/KMExchangeFormat.h"

#include "formats/PmxExchange.h"
#include "formats/VmdImporter.h"
#include "formats/VpdImporter.h"

#include <algorithm>

const QVector<KMExchangeFormat> &exchangeFormats()
{
    static const QVector<KMExchangeFormat> formats = {
        // Models
        pmxFormat(),

        // Motions and poses
        vmdFormat(),
        vpdFormat(),
    };
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
