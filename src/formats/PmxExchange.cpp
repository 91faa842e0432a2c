#include "formats/PmxExchange.h"

#include "formats/PmxExport.h"
#include "formats/PmxImporter.h"

#include <QCoreApplication>

namespace {

const QString scaleKey = QStringLiteral("import-scale");
const QString normalsKey = QStringLiteral("import-normals");

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(PmxExchange)
};

/// What was answered last, for as long as the program runs.
struct ReadAnswers
{
    double scale = double(PmxImporter::DefaultScale);
    bool withNormals = false;
};

ReadAnswers &readAnswers()
{
    static ReadAnswers answers;
    return answers;
}

KMOptionForm readForm()
{
    KMOption scale{scaleKey, Texts::tr("scale"), KMOption::Float, readAnswers().scale, 0.0001, 10000.0};
    KMOption normals{normalsKey, Texts::tr("Import Normals"), KMOption::Bool, readAnswers().withNormals};
    return {QStringLiteral("PMX"), {scale, normals}};
}

bool read(const QString &path, const KMOptionForm &answers)
{
    readAnswers() = {answers.value(scaleKey).toDouble(), answers.value(normalsKey).toBool()};
    PmxImporter importer;
    importer.scale = float(readAnswers().scale);
    importer.importNormals = readAnswers().withNormals;
    return importer.load(path);
}

} // namespace

KMExchangeFormat pmxFormat()
{
    KMExchangeFormat format;
    format.suffix = QStringLiteral("pmx");
    format.filter = Texts::tr("MMD Extend Model File (*.pmx)");
    format.readForm = readForm;
    format.read = read;
    format.writeForm = &PmxExport::form;
    format.write = &PmxExport::write;
    return format;
}
