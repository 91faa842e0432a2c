#pragma once

#include <QJsonObject>
#include <QProcessEnvironment>
#include <QString>
#include <QTemporaryDir>
#include <QVector>

/// The window program in a folder of its own, started as often as a test likes. Its settings, backups and dumps lie
/// in that folder. Message boxes are answered by KELMO_TEST_ANSWERS, with their default button unless set otherwise.
class ProgramRun
{
    Q_DISABLE_COPY(ProgramRun)
public:
    struct Result
    {
        bool ended = false;   ///< by itself, in time
        bool crashed = false; ///< by a signal
        int exitCode = -1;
        QVector<QJsonObject> boxes; ///< the message boxes, as KMSelfTest reports them
        QJsonObject report;         ///< what stood after the start; empty when the event loop wasn't reached

        QString boxText(int index) const { return boxes.value(index).value(QStringLiteral("box")).toString(); }
        QString reported(const char *key) const { return report.value(QLatin1String(key)).toString(); }
    };

    ProgramRun();

    bool isValid() const { return m_isValid; }
    QString path(const QString &name) const { return m_folder.filePath(name); }
    bool exists(const QString &name) const;
    QByteArray read(const QString &name) const; ///< empty when there is no such file
    bool write(const QString &name, const QByteArray &bytes) const;

    void set(const char *variable, const QString &value); ///< of the environment, for all runs from now on
    void setWorkingDirectory(const QString &folder) { m_workingDirectory = folder; } ///< of all runs from now on
    Result run(const QStringList &arguments = {});
    Result runAndClose(const QStringList &arguments = {}); ///< the window is closed as soon as it stands

private:
    static Result parsed(const QByteArray &output);

    QTemporaryDir m_folder;
    QProcessEnvironment m_environment;
    QString m_workingDirectory;
    bool m_isValid = false;
};
