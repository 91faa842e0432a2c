#pragma once

#include "KMBatchArguments.h"

class KMBatchPrompt;
class KMNativeFormat;

/// Runs one command of the batch program in a session without a window.
class KMBatchProgram
{
public:
    enum ExitCode { Done = 0, WrongUse = 1, BadInput = 2, NoOutput = 3 };

    explicit KMBatchProgram(const QStringList &arguments)
        : m_argumentList(arguments)
    {
    }

    /// To be called before the application is made: without a display Qt must not look for one, and paths are
    /// UTF-8 whatever the locale says.
    static void prepareEnvironment(int argc, char **argv);

    int run(); ///< an ExitCode

private:
    ExitCode runCommand(KMBatchPrompt &prompt);
    ExitCode info();
    ExitCode convert();
    ExitCode render();
    ExitCode readInput(const QString &path) const;
    ExitCode write(const QString &path) const;
    bool isMeaningless(const QString &name) const;
    ExitCode pose() const; ///< by the switches for motions and poses
    ExitCode writePicture(const QString &path) const;

    QStringList m_argumentList;
    KMBatchArguments m_arguments;
    KMNativeFormat *m_format = nullptr;
};
