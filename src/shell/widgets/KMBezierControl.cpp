#include "shell/widgets/KMBezierControl.h"

#include "core/KMDpi.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace {

constexpr CBezier straight{0.25f, 0.25f, 0.75f, 0.75f};

bool isSame(const CBezier &a, const CBezier &b)
{
    return a.x1 == b.x1 && a.y1 == b.y1 && a.x2 == b.x2 && a.y2 == b.y2;
}

/// New keys have all numbers 0, which is straight: its handles would lie on each other.
CBezier asShown(const CBezier &curve)
{
    return isSame(curve, {0.0f, 0.0f, 0.0f, 0.0f}) ? straight : curve;
}

} // namespace

KMBezierControl::KMBezierControl(QWidget *parent)
    : QWidget(parent)
{
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setMinimumSize(dpiScaled(56), dpiScaled(56));
    setFocusPolicy(Qt::ClickFocus);
    setMouseTracking(true); // a move without a button tells that the release went elsewhere
    setToolTip(tr("Drag the two handles; a double click makes the curve straight"));
}

QSize KMBezierControl::sizeHint() const
{
    return {dpiScaled(84), dpiScaled(84)};
}

void KMBezierControl::showCurve(const CBezier &curve)
{
    if (m_handle < 0 && !isSame(m_curve, curve)) {
        m_curve = curve;
        update();
    }
}

QRectF KMBezierControl::square() const
{
    const int margin = dpiScaled(6);
    const int side = std::min(width(), height()) - 2 * margin;
    QRectF box(0, 0, side, side);
    box.moveCenter(QRectF(rect()).center());
    return box;
}

QPointF KMBezierControl::placeOf(float x, float y) const
{
    const QRectF box = square();
    return {box.left() + double(x) * box.width(), box.bottom() - double(y) * box.height()};
}

QPoint KMBezierControl::handlePosition(int handle) const
{
    const CBezier shown = asShown(m_curve);
    return (handle == 0 ? placeOf(shown.x1, shown.y1) : placeOf(shown.x2, shown.y2)).toPoint();
}

void KMBezierControl::moveHandle(const QPoint &position)
{
    const QRectF box = square();
    m_curve = asShown(m_curve);
    const float x = std::clamp(float((position.x() - box.left()) / box.width()), 0.0f, 1.0f);
    const float y = std::clamp(float((box.bottom() - position.y()) / box.height()), 0.0f, 1.0f);
    if (m_handle == 0)
        m_curve.set(x, y, m_curve.x2, m_curve.y2);
    else
        m_curve.set(m_curve.x1, m_curve.y1, x, y);
    update();
}

void KMBezierControl::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    const auto distance = [this, event](int handle) {
        return (handlePosition(handle) - event->pos()).manhattanLength();
    };
    emit pressed();
    m_before = m_curve;
    m_handle = distance(1) < distance(0) ? 1 : 0;
    const bool isOnHandle = distance(m_handle) <= dpiScaled(8);
    m_isHeld = false;
    m_slack = isOnHandle ? dpiScaled(2) : QApplication::startDragDistance();
    m_grip = isOnHandle ? handlePosition(m_handle) - event->pos() : QPoint();
    m_pressed = event->pos();
}

void KMBezierControl::mouseMoveEvent(QMouseEvent *event)
{
    if (m_handle < 0)
        return;
    if (!(event->buttons() & Qt::LeftButton))
        return cancel(); // the release went elsewhere
    m_isHeld = m_isHeld || (event->pos() - m_pressed).manhattanLength() >= m_slack;
    if (m_isHeld)
        moveHandle(event->pos() + m_grip);
}

void KMBezierControl::mouseReleaseEvent(QMouseEvent *event)
{
    if (m_handle < 0 || event->button() != Qt::LeftButton)
        return;
    m_handle = -1;
    if (!isSame(m_curve, m_before))
        emit committed(m_curve);
}

void KMBezierControl::cancel()
{
    if (m_handle < 0)
        return;
    m_handle = -1;
    m_curve = m_before;
    update();
}

void KMBezierControl::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    m_handle = -1;
    if (isSame(asShown(m_curve), straight))
        return;
    m_curve = straight;
    update();
    emit committed(m_curve);
}

void KMBezierControl::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape || m_handle < 0)
        return QWidget::keyPressEvent(event);
    cancel();
}

void KMBezierControl::focusOutEvent(QFocusEvent *event)
{
    cancel();
    QWidget::focusOutEvent(event);
}

void KMBezierControl::hideEvent(QHideEvent *event)
{
    cancel();
    QWidget::hideEvent(event);
}

void KMBezierControl::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::EnabledChange && !isEnabled())
        cancel();
    QWidget::changeEvent(event);
}

void KMBezierControl::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const QPalette::ColorGroup group = isEnabled() ? QPalette::Active : QPalette::Disabled;
    const QColor line = palette().color(group, QPalette::Text);
    QColor faint = line;
    faint.setAlphaF(0.3);
    painter.fillRect(square(), palette().color(group, QPalette::Base));
    painter.setPen(faint);
    painter.drawRect(square());
    if (!isEnabled())
        return;
    const CBezier shown = asShown(m_curve);
    const QPointF first = placeOf(shown.x1, shown.y1);
    const QPointF second = placeOf(shown.x2, shown.y2);
    painter.drawLine(placeOf(0, 0), first);
    painter.drawLine(placeOf(1, 1), second);
    QPainterPath path(placeOf(0, 0));
    path.cubicTo(first, second, placeOf(1, 1));
    painter.setPen(QPen(line, dpiScaled(2)));
    painter.drawPath(path);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette().color(group, QPalette::Highlight));
    const double radius = dpiScaled(3);
    painter.drawEllipse(first, radius, radius);
    painter.drawEllipse(second, radius, radius);
}
