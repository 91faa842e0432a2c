#include "core/KMCommand.h"

#include "core/KMSessionWindow.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"

KMCommand::KMCommand(const QString &text, QObject *parent)
    : QAction(text, parent)
{
    connect(this, &QAction::triggered, this, &KMCommand::doCommand);
}

void KMCommand::doCommand()
{
    if (gSolution->window())
        gSolution->window()->commitOpenEditors();
    const QString reason = obstacle();
    if (!reason.isEmpty()) {
        gSolution->showMessage(reason, MessageLevel);
        return;
    }
    if (isOneStep()) {
        const KMUndoMacro macro(text());
        run();
    } else {
        run();
    }
    emit done();
}
