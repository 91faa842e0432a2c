#include "shell/widgets/KMColorField.h"

#include "core/KMDpi.h"
#include "core/KMPrompt.h"

#include <QPainter>

KMColorField::KMColorField(const QString &title, QWidget *parent)
    : QAbstractButton(parent)
    , m_title(title)
{
    setFocusPolicy(Qt::ClickFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setCursor(Qt::PointingHandCursor);
    connect(this, &QAbstractButton::clicked, this, &KMColorField::ask);
}

void KMColorField::showColor(const QColor &color)
{
    m_color = color;
    setToolTip(tr("Red %1, green %2, blue %3, alpha %4")
                   .arg(color.red())
                   .arg(color.green())
                   .arg(color.blue())
                   .arg(color.alpha()));
    update();
}

QSize KMColorField::sizeHint() const
{
    return {dpiScaled(80), fontMetrics().height() + dpiScaled(8)};
}

void KMColorField::ask()
{
    const QColor chosen = KMPrompt::current().color(m_color, m_title, window());
    if (chosen.isValid() && chosen.rgba() != m_color.rgba())
        emit committed(chosen);
}

void KMColorField::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRect field = rect().adjusted(0, 0, -1, -1);
    const QRect half(field.center().x(), field.top(), field.width() / 2 + 1, field.height());
    QColor opaque = m_color;
    opaque.setAlpha(255);
    painter.fillRect(field, opaque);
    painter.fillRect(half, Qt::white);
    painter.fillRect(half, QBrush(Qt::gray, Qt::Dense4Pattern));
    painter.fillRect(half, m_color);
    painter.setPen(palette().color(hasFocus() || underMouse() ? QPalette::Highlight : QPalette::Mid));
    painter.drawRect(field);
}
