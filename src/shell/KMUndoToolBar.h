#pragma once

#include <QToolBar>

/// Undo and redo. Its menu chooses between icons and texts.
class KMUndoToolBar : public QToolBar
{
    Q_OBJECT
public:
    explicit KMUndoToolBar(const QList<QAction *> &actions, QWidget *parent = nullptr);

private:
    void showMenu(const QPoint &position);
};
