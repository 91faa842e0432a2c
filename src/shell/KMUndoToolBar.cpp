#include "shell/KMUndoToolBar.h"

#include <QMenu>

namespace {

struct StyleRow
{
    Qt::ToolButtonStyle style;
    const char *text;
};

constexpr StyleRow styleRows[] = {
    {Qt::ToolButtonIconOnly, QT_TRANSLATE_NOOP("KMUndoToolBar", "Icons")},
    {Qt::ToolButtonTextOnly, QT_TRANSLATE_NOOP("KMUndoToolBar", "Texts")},
    {Qt::ToolButtonTextBesideIcon, QT_TRANSLATE_NOOP("KMUndoToolBar", "Icons with text beside")},
    {Qt::ToolButtonTextUnderIcon, QT_TRANSLATE_NOOP("KMUndoToolBar", "Icons with text below")},
};

} // namespace

KMUndoToolBar::KMUndoToolBar(const QList<QAction *> &actions, QWidget *parent)
    : QToolBar(tr("Undo Panel"), parent)
{
    setObjectName(QStringLiteral("KMUndoToolBar"));
    addActions(actions);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &KMUndoToolBar::showMenu);
}

void KMUndoToolBar::showMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const StyleRow &row : styleRows) {
        QAction *choice = menu->addAction(tr(row.text), this, [this, style = row.style] { setToolButtonStyle(style); });
        choice->setObjectName(QStringLiteral("undoPanelStyle%1").arg(int(row.style)));
        choice->setStatusTip(tr("How the buttons of this bar look"));
        choice->setCheckable(true);
        choice->setChecked(toolButtonStyle() == row.style);
    }
    menu->popup(mapToGlobal(position));
}
