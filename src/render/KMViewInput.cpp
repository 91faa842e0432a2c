#include "render/KMViewInput.h"

#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "render/KMHUDIcon.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "render/KMToolIcons.h"
#include "render/KMViewTool.h"
#include "render/TabletSupport.h"

#include <QAction>

namespace {

constexpr int everything = 31; // of KMOpenGLContainer::repaint()
constexpr int ofNavigation = 0;
constexpr int none = -1;

bool isRight(Qt::MouseButton button)
{
    return button == Qt::RightButton || button == Qt::ExtraButton1;
}

} // namespace

KMViewInput::KMViewInput(KMOpenGLWidget *widget)
    : m_widget(widget)
{
}

/// In the view of the texture's plane only those tools work that know it, and the UV tool works nowhere else alone.
KMViewTool *KMViewInput::tool() const
{
    KMViewTool *tool = KMOpenGLWidget::currentTool();
    if (!tool)
        return nullptr;
    const int id = tool->toolId();
    const bool inUV = m_widget->camera()->isUV() || id == KMViewTool::UVTool;
    return !inUV || id == KMViewTool::UVTool || id == KMViewTool::PaintTool ? tool : nullptr;
}

KMMouseEvent KMViewInput::translated(const QMouseEvent *event) const
{
    Qt::MouseButtons buttons;
    buttons.setFlag(Qt::LeftButton, m_buttons.left);
    buttons.setFlag(Qt::RightButton, m_buttons.right);
    buttons.setFlag(Qt::MiddleButton, m_buttons.middle);
    Qt::KeyboardModifiers modifiers = event->modifiers();
    if (m_hotIcon > 0 && (m_hotIcon & KMNavigationIcons::RightHeld))
        modifiers |= Qt::ShiftModifier;
    return {*event, buttons, modifiers, gTablet ? gTablet->pressure() : 1.0};
}

void KMViewInput::press(QMouseEvent *event)
{
    KMCameraNode *camera = m_widget->camera();
    if (!camera)
        return;
    const bool isFirst = (event->buttons() & ~event->button()) == Qt::NoButton;
    if (isFirst)
        abandon();
    if (m_drag == Drag::Over)
        return;
    hover(event->localPos());
    const bool onToolIcon = isFirst && pressToolIcon(event->localPos());
    if (!onToolIcon) {
        if (isFirst && pressCameraBox(event))
            return;
        if (m_drag != Drag::Ring && !pressIcon(event))
            pressButtons(event);
    }
    KMMouseEvent meant = translated(event);
    KMViewTool *tool = m_drag == Drag::Ordinary ? this->tool() : nullptr;
    m_toolConsumed = tool && tool->mousePress(&meant, m_widget);
    KMOpenGLContainer *container = m_widget->container();
    if (!m_toolConsumed) {
        KMPicker::clearHot();
        camera->mousePress(&meant);
        container->setNavigating(true);
    }
    container->repaint(m_toolConsumed ? everything : ofNavigation);
}

void KMViewInput::endNavigation()
{
    if (m_drag == Drag::None || m_drag == Drag::Over || m_toolConsumed)
        return;
    abandon();
    if (m_widget->camera())
        m_widget->camera()->checkViewChanged();
}

void KMViewInput::hide()
{
    endNavigation();
    if (m_drag != Drag::None)
        abandon();
    leave();
}

/// What a drag left behind whose end went elsewhere, to a window that opened under it.
void KMViewInput::abandon()
{
    if (m_drag != Drag::None && m_widget->camera())
        m_widget->camera()->mouseRelease();
    m_buttons = {};
    m_drag = Drag::None;
    m_toolConsumed = false;
    m_widget->container()->setNavigating(false);
}

bool KMViewInput::pressToolIcon(const QPointF &position)
{
    KMToolIcons *icons = m_widget->toolIcons();
    KMHUDIcon *icon = icons ? icons->icon(icons->codeAt(position)) : nullptr;
    if (!icon)
        return false;
    m_buttons = {};
    m_drag = Drag::Ordinary;
    icon->action()->setChecked(true);
    if (KMViewTool *owner = m_widget->container()->toolById(icon->toolId())) {
        owner->setMode(icon->mode());
        if (owner != KMOpenGLWidget::currentTool())
            owner->requestActivation();
    }
    icons->sync(KMOpenGLWidget::currentTool());
    return true;
}

/// True when the press was a click on a part of the box, and is over. The ring is dragged, by what rotates a view.
bool KMViewInput::pressCameraBox(const QMouseEvent *event)
{
    KMCameraBox *box = m_widget->cameraBox();
    const int code = box ? box->codeAt(*m_widget->camera(), event->localPos()) : int(KMCameraBoxShape::NoHit);
    if (code == KMCameraBoxShape::NoHit)
        return false;
    const bool isMiddle = event->button() == Qt::MiddleButton;
    if (!isMiddle && event->button() != Qt::LeftButton) {
        box->clearHot();
        return false;
    }
    if (!isMiddle && code == KMCameraBoxShape::Ring) {
        box->beginRing(*m_widget->camera(), event->localPos());
        m_buttons = {};
        m_buttons.right = true;
        m_drag = Drag::Ring;
        m_hotIcon = none;
        return false;
    }
    m_drag = Drag::Over;
    emit m_widget->cameraBoxClicked(isMiddle ? int(KMCameraBoxShape::Centre) : code);
    return true;
}

bool KMViewInput::pressIcon(const QMouseEvent *event)
{
    const int icon = m_hotIcon > 0 ? m_hotIcon & ~KMNavigationIcons::RightHeld : 0;
    if (icon == 0)
        return false;
    if (isRight(event->button()))
        m_hotIcon |= KMNavigationIcons::RightHeld;
    m_buttons = {};
    if (icon == KMNavigationIcons::Pan)
        m_buttons.middle = true;
    else
        m_buttons.right = true;
    if (icon == KMNavigationIcons::Zoom)
        m_buttons.left = m_buttons.both = true;
    m_drag = Drag::Icon;
    return true;
}

void KMViewInput::pressButtons(const QMouseEvent *event)
{
    m_drag = Drag::Ordinary;
    if (event->button() == Qt::LeftButton) {
        m_buttons.left = true;
        m_buttons.middle = false;
        if (m_buttons.right)
            m_buttons.both = false;
    } else if (isRight(event->button())) {
        m_buttons.right = true;
        m_buttons.middle = false;
        if (m_buttons.left)
            m_buttons.both = true;
    } else if (event->button() == Qt::MiddleButton) {
        m_buttons = {};
        m_buttons.middle = true;
    }
}

void KMViewInput::move(QMouseEvent *event)
{
    KMCameraNode *camera = m_widget->camera();
    if (!camera)
        return;
    bool isChanged = false;
    if (event->buttons() == Qt::NoButton) {
        if (m_drag != Drag::None)
            abandon();
        isChanged = hover(event->localPos());
    }
    if (m_drag == Drag::Over)
        return;
    KMMouseEvent meant = translated(event);
    if (m_drag == Drag::Ring)
        return dragRing(meant);
    KMOpenGLContainer *container = m_widget->container();
    KMViewTool *tool = m_hotIcon > 0 ? nullptr : this->tool();
    if (tool && tool->mouseMove(&meant, m_widget))
        return container->repaint(everything);
    const bool movesCamera = m_drag == Drag::Ordinary || m_drag == Drag::Icon;
    if (movesCamera && !m_toolConsumed && camera->mouseMove(&meant)) {
        container->setNavigating(true);
        container->repaint(ofNavigation);
    } else if (isChanged) {
        m_widget->update();
    }
}

void KMViewInput::dragRing(const KMMouseEvent &event)
{
    const bool inSteps = event.modifiers() & Qt::ShiftModifier;
    m_widget->cameraBox()->dragRing(*m_widget->camera(), event.localPos(), inSteps);
    m_widget->container()->repaint(ofNavigation);
}

void KMViewInput::releaseButtons(const QMouseEvent *event)
{
    if (m_buttons.both || event->buttons() == Qt::NoButton)
        m_buttons = {};
    else if (event->button() == Qt::LeftButton)
        m_buttons.left = false;
    else if (isRight(event->button()))
        m_buttons.right = false;
    else if (event->button() == Qt::MiddleButton)
        m_buttons.middle = false;
}

void KMViewInput::release(QMouseEvent *event)
{
    KMCameraNode *camera = m_widget->camera();
    if (!camera)
        return;
    const bool isLast = event->buttons() == Qt::NoButton;
    const Drag drag = m_drag;
    releaseButtons(event);
    KMMouseEvent meant = translated(event);
    if (gTablet)
        gTablet->released();
    if (isLast)
        m_drag = Drag::None;
    if (drag == Drag::Over || drag == Drag::None) {
        if (isLast && hover(event->localPos())) // the box may have turned under the cursor
            m_widget->update();
        return;
    }
    KMViewTool *tool = drag == Drag::Ordinary ? this->tool() : nullptr;
    if (tool)
        tool->mouseRelease(&meant, m_widget);
    camera->mouseRelease();
    KMOpenGLContainer *container = m_widget->container();
    if (isLast) {
        m_toolConsumed = false;
        if (container->isNavigating())
            camera->checkViewChanged();
        container->setNavigating(false);
        hover(event->localPos());
    }
    container->repaint(everything);
}

/// What lights up under the cursor; whether that is new. A tool icon hides what lies below it.
bool KMViewInput::hover(const QPointF &position)
{
    const KMCameraNode &camera = *m_widget->camera();
    if (m_drag != Drag::None)
        return false;
    const KMToolIcons *icons = m_widget->toolIcons();
    const bool onToolIcon = icons && icons->codeAt(position) != KMToolIcons::NoHit;
    KMCameraBox *box = m_widget->cameraBox();
    bool isChanged = box && (onToolIcon ? box->clearHot() : box->setHotAt(camera, position));
    const int code = onToolIcon ? 0 : KMNavigationIcons::codeAt(camera, position);
    const int hot = code == KMNavigationIcons::NoIcon ? none : code;
    isChanged = isChanged || hot != m_hotIcon;
    m_hotIcon = hot;
    return isChanged;
}

void KMViewInput::leave()
{
    if (m_drag != Drag::None)
        return;
    m_hotIcon = none;
    if (KMCameraBox *box = m_widget->cameraBox())
        box->clearHot();
    KMPicker::clearHot();
}
