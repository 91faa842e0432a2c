#include "shell/KMMainBox.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QAction>
#include <QApplication>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QStackedLayout>
#include <QVBoxLayout>

namespace {

enum Gradient { Flat, TopDown, BottomUp }; // as the setting numbers them

QLabel *centredLabel(const QString &objectName, const QString &text)
{
    auto *label = new QLabel(text);
    label->setObjectName(objectName);
    label->setAlignment(Qt::AlignCenter);
    return label;
}

QString line(const QAction *action)
{
    const QString text = QString(action->text()).remove(QLatin1Char('&'));
    const QString keys = action->shortcut().toString(QKeySequence::NativeText);
    return keys.isEmpty() ? text : QStringLiteral("%1    %2").arg(text, keys);
}

} // namespace

KMMainBox::KMMainBox(QWidget *parent)
    : QWidget(parent)
    , m_pages(new QStackedLayout(this))
    , m_startLines(new QVBoxLayout)
    , m_startPage(createStartPage())
{
    setObjectName(QStringLiteral("KMMainBox"));
    m_pages->setContentsMargins(0, 0, 0, 0);
    m_pages->setSpacing(0);
    m_pages->addWidget(m_startPage);
    setMinimumSize(dpiScaled(200), dpiScaled(200));
    connect(gSettings, &KMSettings::DPColorChanged, this, &KMMainBox::matchInkToBackground);
    matchInkToBackground();
}

QWidget *KMMainBox::createStartPage()
{
    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    QLabel *name = centredLabel(QStringLiteral("startName"), QApplication::applicationName());
    QFont font = name->font();
    font.setPointSizeF(font.pointSizeF() * 2.6);
    font.setLetterSpacing(QFont::AbsoluteSpacing, dpiScaled(4));
    name->setFont(font);
    m_startLines->setSpacing(dpiScaled(6));
    layout->addStretch(2);
    layout->addWidget(name);
    layout->addSpacing(dpiScaled(12));
    layout->addLayout(m_startLines);
    layout->addStretch(3);
    return page;
}

void KMMainBox::setStartActions(const QList<QAction *> &actions)
{
    for (const QAction *action : actions) {
        QLabel *label = centredLabel(action->objectName() + QStringLiteral("Line"), line(action));
        m_startLines->addWidget(label);
        connect(action, &QAction::changed, label, [label, action] { label->setText(line(action)); });
    }
    m_startLines->addWidget(centredLabel(QStringLiteral("dropLine"), tr("or drop a file here")));
}

void KMMainBox::setView(QWidget *view)
{
    m_pages->addWidget(view);
    m_pages->setCurrentWidget(view);
}

void KMMainBox::closeViews()
{
    m_pages->setCurrentWidget(m_startPage);
    while (m_pages->count() > 1)
        delete m_pages->widget(m_pages->count() - 1);
}

/// The background is the user's colour and not the palette's, so the text follows it.
void KMMainBox::matchInkToBackground()
{
    const bool dark = gSettings->displayColor(DP_BG).lightness() < 140;
    QPalette inks = m_startPage->palette();
    inks.setColor(QPalette::WindowText, dark ? QColor(255, 255, 255, 190) : QColor(0, 0, 0, 170));
    m_startPage->setPalette(inks);
    update();
}

void KMMainBox::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::ApplicationPaletteChange && gSettings)
        matchInkToBackground();
}

void KMMainBox::paintEvent(QPaintEvent *)
{
    if (!gSettings)
        return;
    const QColor color = gSettings->displayColor(DP_BG);
    QPainter painter(this);
    if (gSettings->gradBG == Flat) {
        painter.fillRect(rect(), color);
        return;
    }
    const QColor top = gSettings->gradBG == TopDown ? color.lighter(115) : color.darker(125);
    const QColor bottom = gSettings->gradBG == TopDown ? color.darker(125) : color.lighter(115);
    QLinearGradient gradient(rect().topLeft(), rect().bottomLeft());
    gradient.setColorAt(0.0, top);
    gradient.setColorAt(1.0, bottom);
    painter.fillRect(rect(), gradient);
}
