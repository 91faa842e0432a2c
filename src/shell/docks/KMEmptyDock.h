#pragma once

#include "shell/docks/KMDockWidget.h"

/// A dock whose panel is still to come: it keeps its place in the layout and says in one line what it will hold.
class KMEmptyDock : public KMDockWidget
{
    Q_OBJECT
public:
    KMEmptyDock(const QString &objectName, const QString &title, const QString &icon, const QString &purpose,
                QWidget *parent = nullptr);
};
