#include "shell/docks/kmtoolwidget.h"

#include "core/KMDpi.h"
#include "core/KMIcon.h"
#include "tools/KMTool.h"

#include <QBoxLayout>
#include <QLabel>
#include <QScrollArea>
#include <QStackedWidget>
#include <QToolButton>

namespace {

constexpr char hasOptions[] = "hasOptions"; // property of an area

QWidget *pageOfText(const QString &text)
{
    auto *label = new QLabel(text);
    label->setWordWrap(true);
    label->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    label->setMargin(dpiScaled(12));
    label->setEnabled(false); // dimmed: there is nothing to act on
    return label;
}

} // namespace

kmtoolwidget::kmtoolwidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmtoolwidget"), tr("Tool"), QStringLiteral("tool"), parent)
    , m_icon(new QLabel)
    , m_title(new QLabel)
    , m_reset(new QToolButton)
    , m_pages(new QStackedWidget)
{
    auto *content = new QWidget;
    auto *layout = new QVBoxLayout(content);
    auto *header = new QHBoxLayout;
    QFont font = m_title->font();
    font.setBold(true);
    m_title->setFont(font);
    m_title->setObjectName(QStringLiteral("toolTitle"));
    header->addWidget(m_icon);
    header->addWidget(m_title, 1);
    m_reset->setObjectName(QStringLiteral("resetToolOptions"));
    m_reset->setIcon(KMIcon::icon(QStringLiteral("reset")));
    m_reset->setAutoRaise(true);
    m_reset->setToolTip(tr("Reset Options"));
    m_reset->setStatusTip(tr("Set the options of this tool to what they are in a new installation"));
    connect(m_reset, &QToolButton::clicked, this, &kmtoolwidget::resetOptions);
    header->addWidget(m_reset);
    layout->addLayout(header);
    layout->addWidget(m_pages, 1);
    setWidget(content);
}

void kmtoolwidget::addPage(KMTool *tool, QWidget *page)
{
    const QString line = tool->isReady() ? tr("This tool has no options.") : tr("This tool isn't there yet.");
    auto *area = new QScrollArea;
    area->setObjectName(tool->objectName());
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setProperty(hasOptions, page != nullptr);
    area->setWidget(page ? page : pageOfText(line));
    m_pages->addWidget(area);
}

void kmtoolwidget::showTool(KMTool *tool)
{
    m_icon->setPixmap(QPixmap::fromImage(tool->icon()));
    m_title->setText(tool->text());
    for (int i = 0; i < m_pages->count(); ++i) {
        if (m_pages->widget(i)->objectName() == tool->objectName())
            m_pages->setCurrentIndex(i);
    }
    m_tool = tool;
    m_reset->setVisible(m_pages->currentWidget() && m_pages->currentWidget()->property(hasOptions).toBool());
}

void kmtoolwidget::resetOptions()
{
    if (m_tool && !m_tool->isEditing()) // a drag goes on with what it began with
        m_tool->resetOptions();
}
