#include "shell/kmanimationpanel.h"

#include "shell/KMTransport.h"

#include <QAction>

kmanimationpanel::kmanimationpanel(KMPlayback *playback, QWidget *parent)
    : KMPanelBar(QStringLiteral("kmanimationpanel"), tr("Animation Panel"), parent)
    , m_transport(new KMTransport(playback))
{
    addWidget(m_transport);
    toggleViewAction()->setStatusTip(tr("Show or hide the playback of the motion"));
}
