#include "render/KMFadeOutLabel.h"

#include "core/KMDpi.h"

#include <QPainter>
#include <QTimer>

namespace {

constexpr int holdTime = 1500; // milliseconds
constexpr int fadeTime = 400;
constexpr double rest = 0.55; // opacity in the end
constexpr int sideMargin = 7, topMargin = 2;

} // namespace

KMFadeOutLabel::KMFadeOutLabel(QWidget *parent)
    : QLabel(parent)
    , m_hold(new QTimer(this))
{
    setObjectName(QStringLiteral("viewName"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    setContentsMargins(dpiScaled(sideMargin), dpiScaled(topMargin), dpiScaled(sideMargin), dpiScaled(topMargin));
    m_hold->setSingleShot(true);
    m_hold->setInterval(holdTime);
    m_fade.setDuration(fadeTime);
    m_fade.setStartValue(1.0);
    m_fade.setEndValue(rest);
    connect(m_hold, &QTimer::timeout, this, [this] { m_fade.start(); });
    connect(&m_fade, &QVariantAnimation::valueChanged, this, [this](const QVariant &value) {
        m_opacity = value.toDouble();
        update();
    });
}

void KMFadeOutLabel::showText(const QString &shown)
{
    if (shown == text())
        return;
    setText(shown);
    adjustSize();
    standOut();
}

void KMFadeOutLabel::setActive(bool active)
{
    if (active == m_isActive)
        return;
    m_isActive = active;
    if (active)
        standOut();
    update();
}

void KMFadeOutLabel::standOut()
{
    m_fade.stop();
    m_opacity = 1.0;
    m_hold->start();
    update();
}

/// On a plate of its own: the view behind it may have any colour.
void KMFadeOutLabel::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(m_opacity);
    painter.setPen(Qt::NoPen);
    painter.setBrush(m_isActive ? palette().color(QPalette::Active, QPalette::Highlight) : QColor(0, 0, 0, 110));
    const double radius = dpiScaled(3);
    painter.drawRoundedRect(rect(), radius, radius);
    painter.setPen(m_isActive ? palette().color(QPalette::Active, QPalette::HighlightedText) : QColor(Qt::white));
    painter.drawText(rect(), Qt::AlignCenter, text());
}
