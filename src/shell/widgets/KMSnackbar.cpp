#include "shell/widgets/KMSnackbar.h"

#include "core/KMDpi.h"

#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>

namespace {

constexpr int Shortest = 2500;   // milliseconds
constexpr int PerCharacter = 45; // a longer text takes longer to read

} // namespace

KMSnackbar::KMSnackbar(QWidget *over)
    : QWidget(over->window())
    , m_over(over)
    , m_label(new QLabel)
    , m_timer(new QTimer(this))
{
    setObjectName(QStringLiteral("KMSnackbar"));
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    m_label->setWordWrap(true);
    m_label->setTextFormat(Qt::PlainText);
    m_label->setForegroundRole(QPalette::ToolTipText);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(dpiScaled(16), dpiScaled(10), dpiScaled(16), dpiScaled(10));
    layout->addWidget(m_label);
    m_timer->setSingleShot(true);
    connect(m_timer, &QTimer::timeout, this, &QWidget::hide);
    over->installEventFilter(this);
    hide();
}

QString KMSnackbar::message() const
{
    return isHidden() ? QString() : m_label->text();
}

void KMSnackbar::showMessage(const QString &text)
{
    m_timer->stop();
    m_label->setText(text);
    setVisible(!text.isEmpty());
    if (text.isEmpty())
        return;
    place();
    raise();
    m_timer->start(Shortest + PerCharacter * text.size());
}

/// As wide as its text where the widget below has the room.
void KMSnackbar::place()
{
    const int margin = dpiScaled(12);
    const QRect room(m_over->mapTo(window(), QPoint(0, 0)), m_over->size());
    const QMargins inner = layout()->contentsMargins();
    const int textWidth = m_label->fontMetrics().horizontalAdvance(m_label->text()) + dpiScaled(4);
    const int width = qMin(textWidth + inner.left() + inner.right(), qMax(1, room.width() - 2 * margin));
    const int height = layout()->hasHeightForWidth() ? layout()->heightForWidth(width) : sizeHint().height();
    setGeometry(room.center().x() - width / 2, room.bottom() - height - margin, width, height);
}

bool KMSnackbar::eventFilter(QObject *watched, QEvent *event)
{
    if (!isHidden() && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        place();
    return QWidget::eventFilter(watched, event);
}

void KMSnackbar::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(palette().color(QPalette::Highlight));
    painter.setBrush(palette().color(QPalette::ToolTipBase));
    const double corner = dpiScaled(4);
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), corner, corner);
}
