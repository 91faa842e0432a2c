#pragma once

#include <QString>

/// Groups all commands that are pushed while it lives into one step of the history.
class KMUndoMacro
{
    Q_DISABLE_COPY(KMUndoMacro)
public:
    explicit KMUndoMacro(const QString &text);
    ~KMUndoMacro();
};
