#include "support/VirtualDisplay.h"

#include <QStandardPaths>

namespace {

constexpr int LongestStart = 10000;

} // namespace

/// The server chooses a free number and writes it when it is ready.
VirtualDisplay::VirtualDisplay()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("Xvfb"));
    if (program.isEmpty())
        return;
    m_server.start(program,
                   {QStringLiteral("-displayfd"), QStringLiteral("1"), QStringLiteral("-screen"), QStringLiteral("0"),
                    QStringLiteral("1280x1024x24"), QStringLiteral("-nolisten"), QStringLiteral("tcp"),
                    QStringLiteral("-noreset")}); // a held key outlives the client that pressed it
    QByteArray number;
    while (!number.endsWith('\n') && m_server.waitForReadyRead(LongestStart))
        number += m_server.readAllStandardOutput();
    if (number.endsWith('\n'))
        m_name = QLatin1Char(':') + QString::fromLatin1(number.trimmed());
}

VirtualDisplay::~VirtualDisplay()
{
    m_server.terminate();
    m_server.waitForFinished();
}

bool VirtualDisplay::holdKey(const QString &key) const
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(QStringLiteral("DISPLAY"), m_name);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("xdotool"), {QStringLiteral("keydown"), key});
    return process.waitForFinished() && process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0;
}
