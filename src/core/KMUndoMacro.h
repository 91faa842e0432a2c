#pragma once

#include <QString>

/// Groups all commands that are pushed while it lives into one step of the history.
class KMUndoMacro
{
    Q_DISABLE_COPY(KMUndoMacro)
public:
    enum class Start {
        Now,
        WhenUsed ///< without a command there is no step
    };
    explicit KMUndoMacro(const QString &text, Start start = Start::Now);
    ~KMUndoMacro();
};
