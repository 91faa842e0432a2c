#include "render/TabletSupport.h"

#include "core/KMSettings.h"

#include <QCoreApplication>
#include <QDebug>
#include <QTabletEvent>

TabletSupport *gTablet = nullptr;

TabletSupport::TabletSupport(QObject *parent)
    : KMInputDevice(parent)
{
    gTablet = this;
    QCoreApplication::instance()->installEventFilter(this);
    constexpr int byService = 1;
    if (gSettings && gSettings->penMode == byService)
        qDebug("No Device found!");
}

TabletSupport::~TabletSupport()
{
    if (gTablet == this)
        gTablet = nullptr;
}

QString TabletSupport::name() const
{
    return QStringLiteral("Tablet");
}

void TabletSupport::take(const QEvent &event)
{
    if (event.type() != QEvent::TabletPress && event.type() != QEvent::TabletMove
        && event.type() != QEvent::TabletRelease)
        return;
    const auto &tablet = static_cast<const QTabletEvent &>(event);
    if (tablet.deviceType() != QTabletEvent::Stylus)
        return;
    m_pressure = qBound(0.0, tablet.pressure(), 1.0);
    if (event.type() != QEvent::TabletMove)
        m_isPenDown = event.type() == QEvent::TabletPress;
}

bool TabletSupport::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::TabletEnterProximity && watched == QCoreApplication::instance())
        qDebug("TabletEnterProximity");
    if (event->type() == QEvent::TabletLeaveProximity && watched == QCoreApplication::instance())
        qDebug("TabletLeaveProximity");
    return false;
}
