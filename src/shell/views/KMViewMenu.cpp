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

bool KMViewMenu::eventFilter(QObject *, QEvent *event)
{
    const auto *mouse = static_cast<const QMouseEvent *>(event);
    const auto isNear = [&] { return (mouse->globalPos() - m_press).manhattanLength() <= gSettings->operationMargin; };
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        m_isPressed = isPlainClick(mouse);
        m_press = mouse->globalPos();
        break;
    case QEvent::MouseMove:
        m_isPressed = m_isPressed && isNear(); // a drag that comes back is still a drag
        break;
    case QEvent::MouseButtonRelease:
        if (m_isPressed && isPlainClick(mouse) && isNear())
            QTimer::singleShot(0, m_menu, [menu = m_menu, place = m_press] { menu->popup(place); });
        m_isPressed = false;
        break;
    default:
        break;
    }
    return false;
}
