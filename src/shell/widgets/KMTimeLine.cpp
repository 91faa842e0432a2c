#include "shell/widgets/KMTimeLine.h"

#include "core/KMDpi.h"

#include <QMouseEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionSlider>

KMTimeLine::KMTimeLine(QWidget *parent)
    : QSlider(Qt::Horizontal, parent)
{
    setMinimumWidth(dpiScaled(80));
    setMinimumHeight(dpiScaled(22));
    setFocusPolicy(Qt::ClickFocus);
}

void KMTimeLine::setKeys(const QVector<int> &frames, const QVector<int> &selected)
{
    if (m_keys == frames && m_selectedKeys == selected)
        return;
    m_keys = frames;
    m_selectedKeys = selected;
    update();
}

int KMTimeLine::handleWidth() const
{
    QStyleOptionSlider option;
    initStyleOption(&option);
    return style()->pixelMetric(QStyle::PM_SliderLength, &option, this);
}

int KMTimeLine::xOf(int frame) const
{
    const int handle = handleWidth();
    return QStyle::sliderPositionFromValue(minimum(), maximum(), frame, width() - handle) + handle / 2;
}

void KMTimeLine::goTo(const QMouseEvent *event)
{
    const int handle = handleWidth();
    setSliderPosition(QStyle::sliderValueFromPosition(minimum(), maximum(), event->x() - handle / 2, width() - handle));
}

void KMTimeLine::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return event->ignore();
    setSliderDown(true);
    goTo(event);
}

void KMTimeLine::mouseMoveEvent(QMouseEvent *event)
{
    if (isSliderDown())
        goTo(event);
}

void KMTimeLine::mouseReleaseEvent(QMouseEvent *)
{
    setSliderDown(false);
}

void KMTimeLine::paintKeys(QPainter &painter, const QVector<int> &frames, const QColor &color) const
{
    const int half = dpiScaled(2);
    const int height = dpiScaled(4);
    int lastX = -1;
    for (const int frame : frames) {
        const int x = frame <= maximum() ? xOf(frame) : -1;
        if (x < 0 || x == lastX)
            continue; // a long motion has many keys on one pixel
        lastX = x;
        painter.fillRect(x - half / 2, this->height() - height, half, height, color);
    }
}

void KMTimeLine::paintEvent(QPaintEvent *event)
{
    QSlider::paintEvent(event);
    QPainter painter(this);
    QColor dim = palette().color(QPalette::WindowText);
    dim.setAlphaF(0.45);
    paintKeys(painter, m_keys, dim);
    paintKeys(painter, m_selectedKeys, palette().color(QPalette::Highlight));
}
