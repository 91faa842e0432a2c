#include "render/KMPenPressure.h"

#include <QTabletEvent>

namespace {

double storedPressure = 1.0;
bool isPenDown = false;

} // namespace

void KMPenPressure::take(const QEvent &event)
{
    if (event.type() != QEvent::TabletPress && event.type() != QEvent::TabletMove
        && event.type() != QEvent::TabletRelease)
        return;
    const auto &tablet = static_cast<const QTabletEvent &>(event);
    if (tablet.deviceType() != QTabletEvent::Stylus)
        return;
    storedPressure = qBound(0.0, tablet.pressure(), 1.0);
    if (event.type() != QEvent::TabletMove)
        isPenDown = event.type() == QEvent::TabletPress;
}

double KMPenPressure::current()
{
    return isPenDown ? storedPressure : 1.0;
}

void KMPenPressure::released()
{
    storedPressure = 1.0;
}
