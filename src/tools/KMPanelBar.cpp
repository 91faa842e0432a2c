#include "tools/KMPanelBar.h"

#include <QMenu>

namespace {

struct StyleRow
{
    Qt::ToolButtonStyle style;
    const char *text;
};

constexpr StyleRow styleRows[] = {
    {Qt::ToolButtonIconOnly, QT_TRANSLATE_NOOP("KMPanelBar", "IconOnly")},
    {Qt::ToolButtonTextOnly, QT_TRANSLATE_NOOP("KMPanelBar", "TextOnly")},
    {Qt::ToolButtonTextBesideIcon, QT_TRANSLATE_NOOP("KMPanelBar", "TextBesideIcon")},
    {Qt::ToolButtonTextUnderIcon, QT_TRANSLATE_NOOP("KMPanelBar", "TextUnderIcon")},
};

} // namespace

KMPanelBar::KMPanelBar(const QString &objectName, const QString &title, QWidget *parent)
    : QToolBar(title, parent)
{
    setObjectName(objectName);
    toggleViewAction()->setObjectName(QStringLiteral("show_") + objectName);
    setContextMenuPolicy(Qt::CustomContextMenu);
    connect(this, &QWidget::customContextMenuRequested, this, &KMPanelBar::showMenu);
}

void KMPanelBar::setButtonStyle(int style)
{
    setToolButtonStyle(Qt::ToolButtonStyle(qBound(int(Qt::ToolButtonIconOnly), style, int(Qt::ToolButtonFollowStyle))));
}

void KMPanelBar::showMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    addEntries(menu);
    for (const StyleRow &row : styleRows) {
        QAction *choice = menu->addAction(tr(row.text), this, [this, style = row.style] { setToolButtonStyle(style); });
        choice->setObjectName(QStringLiteral("panelStyle%1").arg(int(row.style)));
        choice->setStatusTip(tr("How the buttons of this bar look"));
        choice->setCheckable(true);
        choice->setChecked(toolButtonStyle() == row.style);
    }
    menu->popup(mapToGlobal(position));
}
