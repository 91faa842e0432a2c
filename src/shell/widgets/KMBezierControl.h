#pragma once

#include "rig/CBezier.h"

#include <QWidget>

/// A square with an interpolation curve from its lower left to its upper right corner, and two handles that bend it.
/// What a drag has made is handed over when the mouse is released; Escape gives it up, and so does what takes the mouse
/// away. A press beside the handles takes the nearer one along once the mouse moves.
class KMBezierControl : public QWidget
{
    Q_OBJECT
public:
    explicit KMBezierControl(QWidget *parent = nullptr);

    void showCurve(const CBezier &curve); ///< takes no part in a running drag
    CBezier curve() const { return m_curve; }
    QPoint handlePosition(int handle) const; ///< in the widget; 0 and 1
    void cancel();                           ///< gives a running drag up

    QSize sizeHint() const override;
    bool hasHeightForWidth() const override { return true; }
    int heightForWidth(int width) const override { return width; }

signals:
    void pressed(); ///< a drag begins
    void committed(const CBezier &curve);

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    QRectF square() const;
    QPointF placeOf(float x, float y) const;
    void moveHandle(const QPoint &position);

    CBezier m_curve;
    CBezier m_before; // the drag
    int m_handle = -1;
    QPoint m_grip; // from the mouse to the handle
    QPoint m_pressed;
    int m_slack = 0;       // how far the mouse moves before it takes the handle along: clicks tremble
    bool m_isHeld = false; // it has moved so far
};
