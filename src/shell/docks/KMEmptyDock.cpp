#include "shell/docks/KMEmptyDock.h"

#include "core/KMDpi.h"

#include <QLabel>

KMEmptyDock::KMEmptyDock(const QString &objectName, const QString &title, const QString &icon, const QString &purpose,
                         QWidget *parent)
    : KMDockWidget(objectName, title, icon, parent)
{
    auto *label = new QLabel(purpose);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setMargin(dpiScaled(12));
    label->setEnabled(false); // dimmed: there is nothing to act on
    setWidget(label);
}
