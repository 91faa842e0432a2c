#pragma once

#include "render/KMOpenGLWidget.h"

#include <QCoreApplication>
#include <QMouseEvent>

/// Sends a view what a mouse sends, several buttons at once included.
class ViewMouse
{
public:
    explicit ViewMouse(KMOpenGLWidget *view)
        : m_view(view)
    {
    }

    void press(Qt::MouseButton button, const QPointF &at)
    {
        m_buttons |= button;
        send(QEvent::MouseButtonPress, at, button);
    }
    void move(const QPointF &to) { send(QEvent::MouseMove, to, Qt::NoButton); }
    void release(Qt::MouseButton button, const QPointF &at)
    {
        m_buttons &= ~button;
        send(QEvent::MouseButtonRelease, at, button);
    }
    void drag(const QList<Qt::MouseButton> &buttons, const QPointF &from, const QPointF &to)
    {
        move(from);
        for (const Qt::MouseButton button : buttons)
            press(button, from);
        move((from + to) / 2);
        move(to);
        for (const Qt::MouseButton button : buttons)
            release(button, to);
    }
    void click(const QPointF &at) { drag({Qt::LeftButton}, at, at); }

    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    Qt::MouseEventSource source = Qt::MouseEventNotSynthesized;

private:
    void send(QEvent::Type type, const QPointF &at, Qt::MouseButton button)
    {
        QMouseEvent event(type, at, at, m_view->mapToGlobal(at.toPoint()), button, m_buttons, modifiers, source);
        QCoreApplication::sendEvent(m_view, &event);
    }

    KMOpenGLWidget *m_view;
    Qt::MouseButtons m_buttons;
};
