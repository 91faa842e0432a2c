#include "shell/views/KMViewMenu.h"

#include "core/KMSettings.h"
#include "render/KMCameraBox.h"
#include "render/KMCameraBoxShape.h"
#include "render/KMNavigationIcons.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMToolIcons.h"

#include <QMenu>
#include <QMouseEvent>
#include <QTimer>

KMViewMenu::KMViewMenu(KMOpenGLWidget *view, QMenu *menu)
    : QObject(view)
    , m_view(view)
    , m_menu(menu)
{
    view->installEventFilter(this);
}

/// The icons and the box in the corner have a sense of their own for the right button.
bool KMViewMenu::isOnControl(const QPointF &position) const
{
    const KMCameraNode *camera = m_view->camera();
    if (!camera)
        return false;
    const KMCameraBox *box = m_view->cameraBox();
    const KMToolIcons *icons = m_view->toolIcons();
    if (icons && icons->codeAt(position) != KMToolIcons::NoHit)
        return true;
    return KMNavigationIcons::codeAt(*camera, position) != KMNavigationIcons::NoIcon
           || (box && box->codeAt(*camera, position) != KMCameraBoxShape::NoHit);
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
    m_isPressed = isPlainClick(event) && !isOnControl(event->localPos());
    m_press = event->globalPos();
}

void KMViewMenu::release(const QMouseEvent *event)
{
    if (m_isPressed && isPlainClick(event) && isNear(event))
        QTimer::singleShot(0, m_menu, [menu = m_menu, place = m_press] { menu->popup(place); });
    m_isPressed = false;
}
