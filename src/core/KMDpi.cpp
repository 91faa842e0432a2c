#include "core/KMDpi.h"

#include <QGuiApplication>
#include <QScreen>

namespace {

constexpr double PerDotsPerInch = 0.010416666666666666; // 1 / 96

const QScreen *primaryScreen()
{
    return qobject_cast<QGuiApplication *>(QCoreApplication::instance()) ? QGuiApplication::primaryScreen() : nullptr;
}

} // namespace

double screenScale()
{
    const QScreen *screen = primaryScreen();
    return screen ? screen->logicalDotsPerInch() * PerDotsPerInch : 1.0;
}

int dpiScaled(int size)
{
    static double scale = 0.0;
    if (scale <= 0.0 && primaryScreen())
        scale = screenScale();
    return scale > 0.0 ? int(size * scale) : size;
}
