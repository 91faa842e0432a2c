#pragma once

#include <QPointF>

class KMCameraNode;
class KMOpenGLWidget;
class QEvent;
class QGestureEvent;
class QPanGesture;
class QPinchGesture;
class QTouchEvent;

/// Navigation by fingers: two rotate and zoom, three pan.
class KMTouchInput
{
    Q_DISABLE_COPY(KMTouchInput)
public:
    explicit KMTouchInput(KMOpenGLWidget *widget);

    void enable();              ///< the view asks for touches and gestures from now on
    bool handle(QEvent *event); ///< false for what is none of them
    void hide();                ///< the view goes: the fingers won't be told to lift

private:
    enum State { Swiped = -1, TwoFingers = 0, ThreeFingers = 1, Panning = 2 };

    void begin(const QTouchEvent &event);
    void update(const QTouchEvent &event);
    void end();
    void gesture(QGestureEvent *event);
    void pan(const QPanGesture &gesture);
    void pinch(const QPinchGesture &gesture);
    void beginPan();
    KMCameraNode *camera() const;

    KMOpenGLWidget *m_widget;
    int m_state = TwoFingers;
    bool m_isTouched = false;
    bool m_isPanNew = false; // what the gesture has covered so far doesn't count
    QPointF m_panStart;
    float m_zoom = 1.0f; // at the first touch: what a pinch changes
};
