#pragma once

#include <QString>

/// A KMUndoMacro that begins with the first command that is pushed while it lives: without one it leaves no step.
class KMWaitingMacro
{
    Q_DISABLE_COPY(KMWaitingMacro)
public:
    explicit KMWaitingMacro(const QString &text);
    ~KMWaitingMacro();

    bool hasBegun() const { return m_hasBegun; }

    static void beginAll(); ///< for KMSolution: a command or another macro is on its way

private:
    QString m_text;
    KMWaitingMacro *m_outer; // that waits too
    bool m_hasBegun = false;

    static KMWaitingMacro *s_innermost;
};
