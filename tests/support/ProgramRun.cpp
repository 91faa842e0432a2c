#include "support/ProgramRun.h"

#include "support/TestPaths.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QProcess>

#include <unistd.h>

namespace {

constexpr int LongestRun = 60000;

/// The program takes its folder from where it lies, so a symbolic link won't do.
bool placeProgram(const QString &target)
{
    return ::link(QFile::encodeName(TestPaths::program()).constData(), QFile::encodeName(target).constData()) == 0
           || QFile::copy(TestPaths::program(), target);
}

} // namespace

ProgramRun::ProgramRun()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    const QString translations = QFileInfo(TestPaths::program()).path() + QStringLiteral("/translations");
    m_isValid = m_folder.isValid() && placeProgram(path(QStringLiteral("kelmo2")))
                && QFile::link(translations, path(QStringLiteral("translations")));
    // A fault leaves its frames without unwinding them; what those held is no leak to report.
    set("ASAN_OPTIONS", m_environment.value(QStringLiteral("ASAN_OPTIONS")) + QStringLiteral(":detect_leaks=0"));
    set("KELMO_TEST_ANSWERS", QString());
    set("KELMO_TEST_REPORT", QStringLiteral("1"));
}

bool ProgramRun::exists(const QString &name) const
{
    return QFile::exists(path(name));
}

QByteArray ProgramRun::read(const QString &name) const
{
    QFile file(path(name));
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

bool ProgramRun::write(const QString &name, const QByteArray &bytes) const
{
    QFile file(path(name));
    return file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size();
}

void ProgramRun::set(const char *variable, const QString &value)
{
    m_environment.insert(QString::fromLatin1(variable), value);
}

ProgramRun::Result ProgramRun::run(const QStringList &arguments)
{
    QProcess process;
    process.setProcessEnvironment(m_environment);
    process.setWorkingDirectory(m_workingDirectory);
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(path(QStringLiteral("kelmo2")), arguments, QIODevice::ReadOnly);
    const bool ended = process.waitForFinished(LongestRun);
    if (!ended) {
        process.kill();
        process.waitForFinished();
    }
    Result result = parsed(process.readAllStandardOutput());
    result.ended = ended;
    result.crashed = process.exitStatus() == QProcess::CrashExit;
    result.exitCode = process.exitCode();
    return result;
}

ProgramRun::Result ProgramRun::runAndClose(const QStringList &arguments)
{
    set("KELMO_TEST_CLOSE", QStringLiteral("1"));
    const Result result = run(arguments);
    m_environment.remove(QStringLiteral("KELMO_TEST_CLOSE"));
    return result;
}

ProgramRun::Result ProgramRun::parsed(const QByteArray &output)
{
    Result result;
    const QList<QByteArray> lines = output.split('\n');
    for (const QByteArray &line : lines) {
        const QJsonObject object = QJsonDocument::fromJson(line).object();
        if (object.contains(QStringLiteral("box")))
            result.boxes << object;
        else if (object.contains(QStringLiteral("title")))
            result.report = object;
    }
    return result;
}
