#pragma once

#include "shell/docks/KMDockWidget.h"

#include <QStringList>

class QUndoStack;
class QUndoView;

/// The steps of the history; a click goes to one.
class kmhistorywidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmhistorywidget(QUndoStack *stack, QWidget *parent = nullptr);

    QStringList historyStrings() const; ///< what the rows say, from the first to the last
    void releaseDocument() override;

private:
    QUndoView *m_view;
};
