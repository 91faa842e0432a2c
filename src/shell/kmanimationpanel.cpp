#include "shell/kmanimationpanel.h"

#include "core/KMDpi.h"

#include <QAction>
#include <QLabel>

kmanimationpanel::kmanimationpanel(QWidget *parent)
    : KMPanelBar(QStringLiteral("kmanimationpanel"), tr("Animation Panel"), parent)
{
    auto *label = new QLabel(tr("Playback and the current frame of the motion stand here."));
    label->setMargin(dpiScaled(4));
    label->setEnabled(false); // dimmed: there is nothing to act on
    addWidget(label);
    toggleViewAction()->setStatusTip(tr("Show or hide the playback of the motion"));
}
