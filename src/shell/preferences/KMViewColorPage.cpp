#include "shell/preferences/KMViewColorPage.h"

#include "core/KMDpi.h"
#include "core/KMPrompt.h"
#include "core/KMSettingsValues.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QPainter>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace {

enum Column { NameColumn, ColorColumn };
constexpr int IndexRole = Qt::UserRole;

int indexOf(const QTreeWidgetItem *item)
{
    return item->data(NameColumn, IndexRole).toInt();
}

/// The colour as it is on the left, over a chequered ground on the right, so that its alpha can be judged.
QPixmap swatch(const QColor &color, const QSize &size, qreal ratio)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    const QRect area(QPoint(0, 0), size);
    const int tile = qMax(1, size.height() / 3);
    for (int y = 0; y < size.height(); y += tile) {
        for (int x = (y / tile % 2) * tile; x < size.width(); x += 2 * tile)
            painter.fillRect(x, y, tile, tile, Qt::gray);
    }
    painter.fillRect(area, color);
    painter.fillRect(area.adjusted(0, 0, -size.width() / 2, 0), QColor(color.rgb()));
    painter.setPen(Qt::darkGray);
    painter.drawRect(area.adjusted(0, 0, -1, -1));
    return picture;
}

} // namespace

KMViewColorPage::KMViewColorPage(QWidget *parent)
    : KMPreferencesPage(parent)
{
    setObjectName(QStringLiteral("View Color"));
    createList();
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_list);
    layout->addWidget(createButtons());
    updateButtons();
}

void KMViewColorPage::createList()
{
    m_list = new QTreeWidget(this);
    m_list->setObjectName(QStringLiteral("colorList"));
    m_list->setHeaderLabels({tr("Item"), tr("Color")});
    m_list->setRootIsDecorated(false);
    m_list->setAlternatingRowColors(true);
    m_list->setUniformRowHeights(true);
    m_list->setIconSize(QSize(dpiScaled(40), dpiScaled(16)));
    m_list->header()->setStretchLastSection(true);
    m_list->setColumnWidth(NameColumn, dpiScaled(220));
    for (const KMDisplayColorRow &row : displayColorRows()) {
        if (!*row.label)
            continue;
        auto *item = new QTreeWidgetItem(m_list, {QCoreApplication::translate("KMDisplayColors", row.label)});
        item->setData(NameColumn, IndexRole, int(row.index));
    }
    connect(m_list, &QTreeWidget::itemActivated, this, &KMViewColorPage::editCurrent);
    connect(m_list, &QTreeWidget::currentItemChanged, this, &KMViewColorPage::updateButtons);
}

QWidget *KMViewColorPage::createButtons()
{
    auto *bar = new QWidget(this);
    m_edit = new QPushButton(tr("Edit..."), bar);
    m_reset = new QPushButton(tr("Reset"), bar);
    auto *resetAllButton = new QPushButton(tr("Reset All"), bar);
    m_edit->setObjectName(QStringLiteral("colorEdit"));
    m_reset->setObjectName(QStringLiteral("colorReset"));
    resetAllButton->setObjectName(QStringLiteral("colorResetAll"));
    m_reset->setToolTip(tr("Gives the selected item its default color"));
    resetAllButton->setToolTip(tr("Gives all items their default colors"));
    connect(m_edit, &QPushButton::clicked, this, &KMViewColorPage::editCurrent);
    connect(m_reset, &QPushButton::clicked, this, &KMViewColorPage::resetCurrent);
    connect(resetAllButton, &QPushButton::clicked, this, &KMViewColorPage::resetAll);

    auto *layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_edit);
    layout->addWidget(m_reset);
    layout->addStretch();
    layout->addWidget(resetAllButton);
    return bar;
}

void KMViewColorPage::load(const KMSettingsValues &values)
{
    m_shown = values.displayColors;
    m_colors = m_shown;
    for (int i = 0; i < m_list->topLevelItemCount(); ++i)
        showColor(m_list->topLevelItem(i));
}

void KMViewColorPage::store(KMSettingsValues &values)
{
    for (const KMDisplayColorRow &row : displayColorRows()) {
        if (m_colors[row.index] != m_shown[row.index])
            values.displayColors[row.index] = m_colors[row.index];
    }
}

void KMViewColorPage::editCurrent()
{
    const QTreeWidgetItem *item = m_list->currentItem();
    if (!item)
        return;
    const int index = indexOf(item);
    const QColor color = KMPrompt::current().color(m_colors[index], item->text(NameColumn), window());
    if (color.isValid())
        setColor(index, color);
}

void KMViewColorPage::resetCurrent()
{
    if (const QTreeWidgetItem *item = m_list->currentItem())
        setColor(indexOf(item), defaultDisplayColors()[indexOf(item)]);
}

void KMViewColorPage::resetAll()
{
    const KMDisplayColors defaults = defaultDisplayColors();
    for (const KMDisplayColorRow &row : displayColorRows())
        setColor(row.index, defaults[row.index]);
}

void KMViewColorPage::setColor(int index, const QColor &color)
{
    m_colors[index] = QColor::fromRgba(color.rgba());
    for (int i = 0; i < m_list->topLevelItemCount(); ++i) {
        if (indexOf(m_list->topLevelItem(i)) == index)
            showColor(m_list->topLevelItem(i));
    }
}

void KMViewColorPage::showColor(QTreeWidgetItem *item)
{
    const QColor color = m_colors[indexOf(item)];
    const QPixmap picture = swatch(color, m_list->iconSize(), devicePixelRatioF());
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Selected); // or the selection would tint the color
    item->setIcon(ColorColumn, icon);
    item->setText(ColorColumn,
                  tr("%1, %2, %3, %4").arg(color.red()).arg(color.green()).arg(color.blue()).arg(color.alpha()));
}

void KMViewColorPage::updateButtons()
{
    const bool hasCurrent = m_list->currentItem() != nullptr;
    m_edit->setEnabled(hasCurrent);
    m_reset->setEnabled(hasCurrent);
}
