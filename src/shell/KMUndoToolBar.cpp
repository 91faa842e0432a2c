#include "shell/KMUndoToolBar.h"

#include <QAction>

KMUndoToolBar::KMUndoToolBar(const QList<QAction *> &actions, QWidget *parent)
    : KMPanelBar(QStringLiteral("KMUndoToolBar"), tr("Undo Panel"), parent)
{
    addActions(actions);
    toggleViewAction()->setStatusTip(tr("Show or hide the buttons for undo and redo"));
}
