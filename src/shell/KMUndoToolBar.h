#pragma once

#include "tools/KMPanelBar.h"

/// Undo and redo.
class KMUndoToolBar : public KMPanelBar
{
    Q_OBJECT
public:
    explicit KMUndoToolBar(const QList<QAction *> &actions, QWidget *parent = nullptr);
};
