#include "shell/docks/KMDockWidget.h"

#include "core/KMIcon.h"

#include <QAction>

KMDockWidget::KMDockWidget(const QString &objectName, const QString &title, const QString &icon, QWidget *parent)
    : QDockWidget(title, parent)
{
    setObjectName(objectName);
    toggleViewAction()->setObjectName(QStringLiteral("show_") + objectName);
    toggleViewAction()->setStatusTip(tr("Show or hide the panel %1").arg(title));
    toggleViewAction()->setIcon(KMIcon::icon(icon));
}
