#include "shell/docks/kmoutputwidget.h"

#include "core/KMOutput.h"

#include <QFontDatabase>
#include <QMenu>
#include <QTextEdit>

kmoutputwidget::kmoutputwidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmoutputwidget"), tr("Output"), QStringLiteral("output"), parent)
    , m_text(new QTextEdit)
{
    m_text->setObjectName(QStringLiteral("outputText"));
    m_text->setReadOnly(true);
    m_text->setUndoRedoEnabled(false);
    m_text->setAcceptRichText(false);
    m_text->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    m_text->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_text, &QWidget::customContextMenuRequested, this, &kmoutputwidget::showMenu);
    setWidget(m_text);
    gOutputEdit = m_text;
}

kmoutputwidget::~kmoutputwidget()
{
    if (gOutputEdit == m_text)
        gOutputEdit = nullptr;
}

void kmoutputwidget::showMenu(const QPoint &position)
{
    auto *menu = m_text->createStandardContextMenu(position);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addSeparator();
    QAction *clear = menu->addAction(tr("Clear"), m_text, &QTextEdit::clear);
    clear->setObjectName(QStringLiteral("outputClear"));
    clear->setStatusTip(tr("Empty the log"));
    menu->popup(m_text->viewport()->mapToGlobal(position));
}
