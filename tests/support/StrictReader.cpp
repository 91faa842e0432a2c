#include "support/StrictReader.h"

#include "support/TestPaths.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

namespace {

QString script()
{
    return TestPaths::sourceDir() + QStringLiteral("/../shared/tools/pmx_dump.py");
}

} // namespace

bool StrictReader::isHere()
{
    return QFile::exists(script());
}

QStringList StrictReader::complaints(const QString &path)
{
    QProcess process;
    process.start(QStringLiteral("python3"), {script(), path});
    process.waitForFinished();
    const QJsonObject said = QJsonDocument::fromJson(process.readAllStandardOutput()).object();
    if (said.isEmpty())
        return {QString::fromLocal8Bit(process.readAllStandardError())};
    QStringList kinds;
    for (const char *level : {"errors", "warnings"}) {
        for (const QJsonValue &complaint : said.value(QLatin1String(level)).toArray())
            kinds << complaint[QLatin1String("kind")].toString();
    }
    kinds.sort();
    return kinds;
}
