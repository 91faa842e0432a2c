#pragma once

#include <QObject>
#include <QPoint>

class KMOpenGLWidget;
class QMenu;
class QMouseEvent;

/// Opens a menu where the right button is clicked in a view. A drag with that button moves the camera and opens none,
/// nor does a click with further buttons or keys.
class KMViewMenu : public QObject
{
    Q_OBJECT
public:
    KMViewMenu(KMOpenGLWidget *view, QMenu *menu); ///< belongs to the view

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    bool isOnControl(const QPointF &position) const;
    bool isPlainClick(const QMouseEvent *event) const;
    bool isNear(const QMouseEvent *event) const; ///< to the press
    void press(const QMouseEvent *event);
    void release(const QMouseEvent *event);

    KMOpenGLWidget *m_view;
    QMenu *m_menu;
    QPoint m_press; // on the screen
    bool m_isPressed = false;
};
