// How drags, wheel and fingers move a camera.

#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"

#include <QWheelEvent>
#include <QtMath>

#include <cmath>

namespace {

constexpr float rotateSpeed = 0.5f; // degrees for each pixel
constexpr float zoomSpeed = 0.005f; // for each pixel
constexpr float dollyZoomSpeed = -0.2f;
constexpr float dragDolly = 250.0f, wheelDolly = 125.0f; // shares of the ruler at a field of view of one degree
constexpr float rulerArm = 50.0f;                        // pixels to the right and down from the middle
constexpr int rollStep = 15;                             // degrees
constexpr float upright = 5.0f;                          // a roll that is closer to none snaps there
enum Wheel { WheelDolly = 1, WheelZoom = 2 };
constexpr int alwaysFov = 2; // of the setting for drags with left and right button

float steppedDown(float degrees)
{
    return float(int(degrees / float(rollStep)) * rollStep);
}

float wrapped(float degrees)
{
    const float rest = std::fmod(degrees, 360.0f);
    return rest < 0.0f ? rest + 360.0f : rest;
}

float reversed(float value, bool isReversed)
{
    return isReversed ? -value : value;
}

} // namespace

void KMCameraNode::mousePress(KMMouseEvent *event)
{
    const Qt::MouseButtons buttons = event->buttons();
    const bool shift = event->modifiers() & Qt::ShiftModifier;
    if (!m_drag.rotateActive && !m_drag.panActive)
        m_saved = view();
    m_drag.lastPos = event->pos();
    m_drag.pressRoll = m_roll;
    if (buttons & Qt::RightButton) {
        m_drag.rotateActive = true;
        m_drag.pressPos = event->localPos();
    }
    if (m_drag.rotateActive && (buttons & Qt::LeftButton)) {
        m_drag.leftRightZoomActive = true;
        m_drag.fovZoomActive = shift;
        return;
    }
    m_drag.leftHeld = buttons & Qt::LeftButton;
    if (buttons & Qt::MiddleButton)
        startPan(event->localPos(), shift);
}

void KMCameraNode::startPan(const QPointF &position, bool keepExtent)
{
    m_saved = view();
    m_drag.panActive = true;
    m_drag.panDepth = pivotDepth();
    m_drag.panAnchor = unproject(m_saved, position, m_drag.panDepth) + m_pan;
    if (!keepExtent || m_drag.dollyZoomActive)
        return;
    m_drag.savedPivot = m_pivot;
    setPivot(-m_pivot);
    m_drag.dollyExtent = std::tan(qDegreesToRadians(m_fov) / 2.0f) * m_distance;
    m_drag.dollyZoomActive = true;
}

void KMCameraNode::beginPan(const QPoint &position)
{
    m_drag.lastPos = position;
    startPan(position, false);
}

void KMCameraNode::panBy(const QPoint &offset)
{
    panTo(m_drag.lastPos + offset);
}

/// Reckoned from the view at the start of the drag, so the point that was taken stays under the cursor.
void KMCameraNode::panTo(const QPointF &position)
{
    setPan(m_drag.panAnchor - unproject(m_saved, position, m_drag.panDepth));
}

bool KMCameraNode::mouseMove(KMMouseEvent *event)
{
    const QPoint delta = event->pos() - m_drag.lastPos;
    const bool inSteps = event->modifiers() & Qt::ShiftModifier;
    if (m_drag.leftRightZoomActive) {
        m_drag.lastPos = event->pos();
        zoomDrag(delta.y());
        return true;
    }
    if (m_drag.rotateActive && !m_drag.panActive) {
        if (isUV() && m_rollMode == RollMode::ByAngle) {
            rollTo(wrapped(angleFromPress(event->localPos()) + m_drag.pressRoll), inSteps, false);
            return true;
        }
        if (!isUV())
            m_drag.lastPos = event->pos();
        rotateDrag(delta, inSteps);
        return true;
    }
    if (m_drag.panActive && !m_drag.rotateActive) {
        m_drag.lastPos = event->pos();
        if (m_drag.dollyZoomActive)
            setFovKeepExtent(float(delta.y()) * dollyZoomSpeed);
        else
            panTo(event->localPos());
        return true;
    }
    return false;
}

void KMCameraNode::zoomDrag(int dy)
{
    const float v = reversed(float(dy) * zoomSpeed * gSettings->zoomRatio, gSettings->reverseW);
    if (gSettings->lrDrag == alwaysFov)
        m_drag.fovZoomActive = true;
    if (m_ortho)
        setOrthoZoom((1.0f - v) * m_orthoZoom);
    else if (m_drag.fovZoomActive)
        setFov((v + 1.0f) * m_fov);
    else
        setDistance(m_distance + zoomRuler() * (dragDolly / m_fov) * v);
}

/// World length between the middle of the window and a point beside it, at the depth of the pivot.
float KMCameraNode::zoomRuler() const
{
    const QPointF middle(m_width / 2.0, m_height / 2.0);
    const float depth = pivotDepth();
    const kvm::Vector3 end = unproject(view(), middle + QPointF(double(rulerArm), double(rulerArm)), depth);
    return (end - unproject(view(), middle, depth)).length();
}

/// The UV view doesn't move along with the drag: its roll is reckoned from the press.
void KMCameraNode::rotateDrag(const QPoint &delta, bool inSteps)
{
    const float dx = reversed(float(-delta.x()), gSettings->reverseX);
    const float dy = reversed(float(-delta.y()), gSettings->reverseY);
    if (!isUV())
        rotateBy(dy, dx);
    else if (m_rollMode == RollMode::ByLength)
        rollTo(m_drag.pressRoll - dx * rotateSpeed * gSettings->rotateRatio, inSteps, true);
    else
        rollTo(m_drag.pressRoll, false, false);
}

void KMCameraNode::rollTo(float degrees, bool inSteps, bool snap)
{
    float roll = wrapped(inSteps ? steppedDown(degrees) : degrees);
    if (snap && (roll < upright || roll >= 360.0f - upright))
        roll = 0.0f;
    setAngles(180.0f, 0.0f, roll);
}

/// Counter-clockwise on the screen, degrees.
float KMCameraNode::angleFromPress(const QPointF &position) const
{
    const auto angleOf = [this](const QPointF &p) { return std::atan2(m_height / 2.0 - p.y(), p.x() - m_width / 2.0); };
    return float(qRadiansToDegrees(angleOf(position) - angleOf(m_drag.pressPos)));
}

void KMCameraNode::mouseRelease()
{
    const Drag drag = std::exchange(m_drag, {});
    if (drag.dollyZoomActive)
        setPivot(drag.savedPivot);
    commitView();
}

void KMCameraNode::setFovKeepExtent(float deltaDegrees)
{
    const auto halfTangent = [this] { return std::tan(qDegreesToRadians(m_fov) / 2.0f); };
    const float extent = m_drag.dollyZoomActive ? m_drag.dollyExtent : halfTangent() * m_distance;
    setFov(m_fov + deltaDegrees);
    setDistance(extent / halfTangent());
}

void KMCameraNode::wheel(QWheelEvent *event)
{
    if (event->buttons() != Qt::NoButton)
        return;
    const float turn = float(event->angleDelta().y());
    const float speed = reversed(reversed(std::fabs(turn * 0.01f), m_ortho), gSettings->reverseW);
    const float change = gSettings->zoomRatio * 0.1f * speed;
    const float scale = turn < 0.0f ? 1.0f + change : 1.0f - change;
    if (gSettings->wheel != WheelDolly && gSettings->wheel != WheelZoom)
        return;
    if (m_ortho)
        setOrthoZoom(m_orthoZoom * scale);
    else if (gSettings->wheel == WheelZoom)
        setFov(m_fov * scale);
    else
        setDistance(m_distance
                    - zoomRuler() * (wheelDolly / m_fov)
                          * reversed(turn * zoomSpeed * gSettings->zoomRatio, gSettings->reverseW));
}

void KMCameraNode::checkViewChanged()
{
    if (m_saved.projection == m_projection && m_saved.modelView == m_modelView)
        return;
    m_saved = view();
    emit viewChanged();
}
