#pragma once

#include <QMouseEvent>

/// A mouse event as tools and cameras see it: the buttons are those that the press means, which on a navigation
/// icon aren't those that are held, and the pen's pressure comes along.
class KMMouseEvent : public QMouseEvent
{
public:
    /// The event with other buttons and modifiers; pressure is 0 to 1, and 1 for a mouse.
    KMMouseEvent(const QMouseEvent &event, Qt::MouseButtons heldButtons, Qt::KeyboardModifiers heldModifiers,
                 double penPressure = 1.0)
        : QMouseEvent(event.type(), event.localPos(), event.windowPos(), event.screenPos(), event.button(), heldButtons,
                      heldModifiers, event.source())
        , pressure(penPressure)
    {
        setTimestamp(event.timestamp());
        setAccepted(event.isAccepted());
    }
    KMMouseEvent(Type type, const QPointF &position, Qt::MouseButton button, Qt::MouseButtons heldButtons,
                 Qt::KeyboardModifiers heldModifiers = Qt::NoModifier, double penPressure = 1.0)
        : QMouseEvent(type, position, button, heldButtons, heldModifiers)
        , pressure(penPressure)
    {
    }

    double pressure;
};
