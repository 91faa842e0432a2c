#include "shell/docks/KMDockWidget.h"

#include "core/KMDpi.h"
#include "core/KMIcon.h"

#include <QAction>
#include <QMainWindow>

KMDockWidget::KMDockWidget(const QString &objectName, const QString &title, const QString &icon, QWidget *parent)
    : QDockWidget(title, parent)
{
    setObjectName(objectName);
    toggleViewAction()->setObjectName(QStringLiteral("show_") + objectName);
    toggleViewAction()->setStatusTip(tr("Show or hide the panel %1").arg(title));
    toggleViewAction()->setIcon(KMIcon::icon(icon));
}

void KMDockWidget::showEvent(QShowEvent *event)
{
    if (isFloating() && pos().isNull()) // it never had a place; the window manager's choice is any corner of the screen
        moveOverViews();
    QDockWidget::showEvent(event);
}

/// Into the upper left of the views, each panel a little below the ones that float there already.
void KMDockWidget::moveOverViews()
{
    const auto *window = qobject_cast<QMainWindow *>(parentWidget());
    if (!window || !window->isVisible() || !window->centralWidget())
        return;
    int others = 0;
    for (const QDockWidget *dock : window->findChildren<QDockWidget *>(QString(), Qt::FindDirectChildrenOnly))
        others += dock != this && dock->isFloating() && dock->isVisible();
    const int step = dpiScaled(32) * (others + 1);
    resize(size().expandedTo({dpiScaled(240), dpiScaled(320)}));
    move(window->centralWidget()->mapToGlobal({step, step}));
}
