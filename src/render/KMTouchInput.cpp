#include "render/KMTouchInput.h"

#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"

#include <QDebug>
#include <QGestureEvent>
#include <QTouchEvent>

#include <algorithm>
#include <utility>

namespace {

constexpr int fingersOfPan = 3;
constexpr int wheelZooms = 1; // of the setting: the field of view in place of the distance

/// Gestures that a platform may tell of, and that move nothing.
struct GestureLine
{
    Qt::GestureType type;
    const char *text;
};

constexpr GestureLine gestureLines[] = {
    {Qt::SwipeGesture, "swipeTriggered"}, {Qt::TapGesture, "TapGesture"}, {Qt::TapAndHoldGesture, "TapAndHoldGesture"}};

/// A pinch is damped: fingers reach far.
float dampedScale(float s)
{
    return s > 1.0f ? (s - 1.0f) * 0.3f + 1.0f : 1.0f - (1.0f - s) * 0.7f;
}

/// A finger that is being lifted is still among the points of the event.
int fingersDown(const QTouchEvent &event)
{
    const QList<QTouchEvent::TouchPoint> &points = event.touchPoints();
    return int(std::count_if(points.begin(), points.end(), [](const QTouchEvent::TouchPoint &point) {
        return point.state() != Qt::TouchPointReleased;
    }));
}

} // namespace

KMTouchInput::KMTouchInput(KMOpenGLWidget *widget)
    : m_widget(widget)
{
}

void KMTouchInput::enable()
{
    m_widget->setAttribute(Qt::WA_AcceptTouchEvents);
    m_widget->grabGesture(Qt::PanGesture);
    m_widget->grabGesture(Qt::PinchGesture);
}

KMCameraNode *KMTouchInput::camera() const
{
    return m_widget->camera();
}

bool KMTouchInput::handle(QEvent *event)
{
    if (!gSettings || !gSettings->enableTouch || !camera())
        return false;
    switch (event->type()) {
    case QEvent::TouchBegin:
        begin(*static_cast<QTouchEvent *>(event));
        break;
    case QEvent::TouchUpdate:
        update(*static_cast<QTouchEvent *>(event));
        break;
    case QEvent::TouchCancel:
        qDebug("TouchCancel");
        end();
        break;
    case QEvent::TouchEnd:
        qDebug("TouchEnd");
        end();
        break;
    case QEvent::Gesture:
        gesture(static_cast<QGestureEvent *>(event));
        break;
    default:
        return false;
    }
    event->accept();
    return true;
}

void KMTouchInput::begin(const QTouchEvent &event)
{
    qDebug("TouchBegin");
    m_widget->container()->setHot(m_widget);
    emit m_widget->onActive(m_widget);
    const KMCameraNode &view = *camera();
    const float inPerspective = gSettings->wheel == wheelZooms ? view.fov() : view.distance();
    m_zoom = view.isOrtho() ? view.orthoZoom() : inPerspective;
    m_isTouched = true;
    m_widget->container()->setNavigating(true);
    m_state = fingersDown(event) == fingersOfPan ? ThreeFingers : TwoFingers;
    beginPan();
}

void KMTouchInput::beginPan()
{
    m_isPanNew = true;
    camera()->beginPan(m_widget->rect().center());
}

void KMTouchInput::update(const QTouchEvent &event)
{
    const int fingers = fingersDown(event);
    if (fingers >= fingersOfPan) {
        if (m_state == TwoFingers) {
            qDebug("nSwipe A");
            beginPan();
        }
        if (m_state >= TwoFingers && m_state < Panning)
            ++m_state;
    } else if (m_state > ThreeFingers) {
        m_state = Swiped;
        camera()->mouseRelease();
        qDebug("swipe cancel");
    }
}

void KMTouchInput::end()
{
    m_state = TwoFingers;
    m_isTouched = false;
    m_widget->container()->setNavigating(false);
    camera()->mouseRelease();
    camera()->updateMatrices();
    camera()->checkViewChanged();
    m_widget->container()->repaint(31);
}

void KMTouchInput::hide()
{
    if (m_isTouched && camera())
        end();
}

void KMTouchInput::gesture(QGestureEvent *event)
{
    for (const GestureLine &line : gestureLines) {
        if (event->gesture(line.type))
            qDebug("%s", line.text);
    }
    if (const auto *gesture = static_cast<QPanGesture *>(event->gesture(Qt::PanGesture)))
        pan(*gesture);
    if (const auto *gesture = static_cast<QPinchGesture *>(event->gesture(Qt::PinchGesture)))
        pinch(*gesture);
    m_widget->container()->repaint(0);
}

void KMTouchInput::pan(const QPanGesture &gesture)
{
    if (m_state == TwoFingers) {
        const float x = gSettings->reverseX ? 1.0f : -1.0f;
        const float y = gSettings->reverseY ? 1.0f : -1.0f;
        camera()->rotateBy(y * float(gesture.delta().y()), x * float(gesture.delta().x()));
    } else if (m_state == ThreeFingers) {
        qDebug("nSwipe B");
        camera()->mouseRelease();
        beginPan();
        m_state = Panning;
    }
    if (m_state >= Panning) {
        // The gesture counts from where the fingers came down, and would take back an offset that is set here.
        if (std::exchange(m_isPanNew, false))
            m_panStart = gesture.offset();
        camera()->panBy((gesture.offset() - m_panStart).toPoint());
    }
}

void KMTouchInput::pinch(const QPinchGesture &gesture)
{
    if (m_state != TwoFingers || !(gesture.changeFlags() & QPinchGesture::ScaleFactorChanged))
        return;
    const float scale = dampedScale(float(gesture.totalScaleFactor()));
    KMCameraNode &view = *camera();
    if (view.isOrtho())
        view.setOrthoZoom(m_zoom * scale); // the larger, the nearer: the other way round than the rest
    else if (gSettings->wheel == wheelZooms)
        view.setFov(m_zoom / scale);
    else
        view.setDistance(m_zoom / scale);
}
