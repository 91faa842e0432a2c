#include "shell/views/KMViewMenu.h"

#include "core/KMSettings.h"

#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

KMViewMenu::KMViewMenu(QWidget *view, QMenu *menu)
    : QObject(view)
    , m_menu(menu)
{
    view->installEventFilter(this);
}

bool KMViewMenu::isPlainClick(const QMouseEvent *event) const
{
    return event->button() == Qt::RightButton && event->modifiers() == Qt::NoModifier
           && (event->buttons() & ~Qt::RightButton) == Qt::NoButton;
}

bool KMViewMenu::isNear(const QMouseEvent *event) const
{
    return (event->globalPos() - m_press).manhattanLength() <= gSettings->operationMargin;
}

bool KMViewMenu::eventFilter(QObject *, QEvent *event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        press(static_cast<QMouseEvent *>(event));
        break;
    case QEvent::MouseMove:
        m_isPressed = m_isPressed && isNear(static_cast<QMouseEvent *>(event)); // a drag that comes back is still one
        break;
    case QEvent::MouseButtonRelease:
        release(static_cast<QMouseEvent *>(event));
        break;
    default:
        break;
    }
    return false;
}

void KMViewMenu::press(const QMouseEvent *event)
{
    m_isPressed = isPlainClick(event);
    m_press = event->globalPos();
}

void KMViewMenu::release(const QMouseEvent *event)
{
    if (m_isPressed && isPlainClick(event) && isNear(event))
        QTimer::singleShot(0, m_menu, [menu = m_menu, place = m_press] { menu->popup(place); });
    m_isPressed = false;
}
