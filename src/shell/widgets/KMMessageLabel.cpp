#include "shell/widgets/KMMessageLabel.h"

#include "core/KMDpi.h"

#include <QPainter>
#include <QTimer>

namespace {

/// Red and amber that stay legible on the window colour of light and dark palettes.
struct LevelInk
{
    int level;
    QRgb onLight;
    QRgb onDark;
};

constexpr LevelInk inks[] = {
    {KMMessageLabel::Warning, 0xff8a5a00, 0xffffc857},
    {KMMessageLabel::Error, 0xffb3201a, 0xffff8a80},
};

} // namespace

KMMessageLabel::KMMessageLabel(QWidget *parent)
    : QLabel(parent)
    , m_timer(new QTimer(this))
{
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, [this] { showMessage({}); });
}

void KMMessageLabel::setLifetime(int milliseconds)
{
    m_timer->setInterval(milliseconds);
}

void KMMessageLabel::showMessage(const QString &text, int level)
{
    m_message = text;
    m_level = level;
    setToolTip(text);
    setAccessibleName(text);
    updateGeometry();
    update();
    if (m_timer->interval() > 0 && !text.isEmpty())
        m_timer->start();
}

QSize KMMessageLabel::minimumSizeHint() const
{
    return {dpiScaled(24), fontMetrics().height() + dpiScaled(4)};
}

QSize KMMessageLabel::sizeHint() const
{
    return {fontMetrics().horizontalAdvance(m_message) + dpiScaled(16), minimumSizeHint().height()};
}

QColor KMMessageLabel::ink() const
{
    const bool dark = palette().color(QPalette::Window).lightness() < 128;
    for (const LevelInk &row : inks) {
        if (row.level == m_level)
            return QColor(dark ? row.onDark : row.onLight);
    }
    return palette().color(QPalette::WindowText);
}

void KMMessageLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setPen(ink());
    const QRect room = rect().adjusted(dpiScaled(4), 0, -dpiScaled(4), 0);
    painter.drawText(room, int(alignment()) | Qt::TextSingleLine,
                     fontMetrics().elidedText(m_message, Qt::ElideRight, room.width()));
}
