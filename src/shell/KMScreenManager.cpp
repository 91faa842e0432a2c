#include "shell/KMScreenManager.h"

#include <QDebug>
#include <QGuiApplication>
#include <QScreen>

KMScreenManager::KMScreenManager(QObject *parent)
    : QObject(parent)
{
    screenStatusChanged();
    connect(qApp, &QGuiApplication::screenAdded, this, [this](const QScreen *screen) {
        watch(screen);
        screenStatusChanged();
    });
    connect(qApp, &QGuiApplication::screenRemoved, this, &KMScreenManager::screenStatusChanged);
    const QList<QScreen *> screens = QGuiApplication::screens();
    for (const QScreen *screen : screens)
        watch(screen);
}

void KMScreenManager::watch(const QScreen *screen)
{
    connect(screen, &QScreen::logicalDotsPerInchChanged, this, &KMScreenManager::screenStatusChanged);
    connect(screen, &QScreen::physicalDotsPerInchChanged, this, &KMScreenManager::screenStatusChanged);
}

/// The log of the start is shown as one text, so each display ends its own line.
void KMScreenManager::screenStatusChanged()
{
    const QList<QScreen *> screens = QGuiApplication::screens();
    if (screens.size() > 1)
        qDebug("--- multi display was detected. ---\n");
    int number = 0;
    for (const QScreen *screen : screens) {
        const QSize size = screen->size();
        qDebug("Display%d Width:%d Heigt:%d ppi:%.1f refreshRate:%.1f\n", ++number, size.width(), size.height(),
               screen->logicalDotsPerInch(), screen->refreshRate());
    }
}
