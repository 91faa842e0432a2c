#pragma once

#include "tools/KMPanelBar.h"

class QAction;

/// What the mouse works on: kinds of elements, symmetry, and the shape of marquees.
class KMEnvToolBar : public KMPanelBar
{
    Q_OBJECT
public:
    explicit KMEnvToolBar(QWidget *parent = nullptr);

    void sync(); ///< the buttons show what the session has

signals:
    void onEditFilterChanged();

private slots:
    void applyChoice(QAction *action);
};
