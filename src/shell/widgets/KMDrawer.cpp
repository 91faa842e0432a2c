#include "shell/widgets/KMDrawer.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPropertyAnimation>

namespace {

constexpr int SlideTime = 140; // milliseconds
constexpr QRgb Shade = qRgba(0, 0, 0, 90);

} // namespace

KMDrawer::KMDrawer(QWidget *over)
    : QWidget(over->window())
    , m_over(over)
    , m_list(new QListWidget(this))
{
    setObjectName(QStringLiteral("KMDrawer"));
    m_list->setObjectName(QStringLiteral("drawerList"));
    m_list->setFrameShape(QFrame::NoFrame);
    m_list->setMouseTracking(true);
    QFont font = m_list->font();
    font.setBold(true);
    font.setPixelSize(dpiScaled(12));
    m_list->setFont(font);
    m_list->installEventFilter(this);
    over->installEventFilter(this);
    connect(m_list, &QListWidget::itemEntered, m_list, [this](QListWidgetItem *row) { m_list->setCurrentItem(row); });
    connect(m_list, &QListWidget::itemClicked, this, &KMDrawer::choose);
    hide();
}

void KMDrawer::addEntry(const QIcon &icon, const QString &label)
{
    auto *row = new QListWidgetItem(icon, label, m_list);
    row->setSizeHint({0, dpiScaled(30)});
}

void KMDrawer::open()
{
    if (m_open)
        return;
    m_open = true;
    m_focusBefore = QApplication::focusWidget();
    place();
    show();
    raise();
    m_list->setCurrentRow(0);
    m_list->setFocus();
    slide(-m_list->width(), 0);
}

void KMDrawer::close()
{
    if (!m_open)
        return;
    m_open = false;
    hide();
    if (m_focusBefore)
        m_focusBefore->setFocus();
}

void KMDrawer::place()
{
    setGeometry(QRect(m_over->mapTo(window(), QPoint(0, 0)), m_over->size()));
    m_list->setGeometry(0, 0, qMin(width(), dpiScaled(200)), height());
}

void KMDrawer::slide(int from, int to)
{
    if (!gSettings || !gSettings->animateGui)
        return;
    auto *animation = new QPropertyAnimation(m_list, QByteArrayLiteral("pos"), this);
    animation->setDuration(SlideTime);
    animation->setStartValue(QPoint(from, 0));
    animation->setEndValue(QPoint(to, 0));
    animation->setEasingCurve(QEasingCurve::OutCubic);
    animation->start(QAbstractAnimation::DeleteWhenStopped);
}

void KMDrawer::choose()
{
    const int entry = m_list->currentRow();
    close();
    if (entry >= 0)
        emit chosen(entry);
}

bool KMDrawer::eventFilter(QObject *watched, QEvent *event)
{
    if (!m_open)
        return QWidget::eventFilter(watched, event);
    if (watched == m_over && (event->type() == QEvent::Resize || event->type() == QEvent::Move))
        place();
    if (watched != m_list)
        return QWidget::eventFilter(watched, event);
    const bool isPress = event->type() == QEvent::KeyPress;
    const int key = isPress || event->type() == QEvent::ShortcutOverride ? static_cast<QKeyEvent *>(event)->key() : 0;
    const bool isChoice = key == Qt::Key_Return || key == Qt::Key_Enter;
    if (key != Qt::Key_Escape && !isChoice)
        return QWidget::eventFilter(watched, event);
    event->accept(); // no shortcut of the window takes the key
    if (isPress && isChoice)
        choose();
    else if (isPress)
        close();
    return true;
}

void KMDrawer::mousePressEvent(QMouseEvent *)
{
    close(); // a press on the list doesn't come here
}

void KMDrawer::paintEvent(QPaintEvent *)
{
    QPainter(this).fillRect(rect(), QColor::fromRgba(Shade));
}
