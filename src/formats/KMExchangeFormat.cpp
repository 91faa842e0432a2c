#include "formats/KMExchangeFormat.h"

#include "formats/PmxExchange.h"
#include "formats/VmdImporter.h"
#include "formats/VpdImporter.h"

#include <algorithm>

bool KMExchangeFormat::ask(const Form &questions, KMOptionForm &answers, QWidget *window)
{
    if (!questions)
        return true;
    answers = questions();
    answers.parent = window;
    return KMPrompt::current().options(answers);
}

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
