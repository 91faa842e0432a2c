#include "shell/docks/KMMorphTree.h"

#include "core/KMDpi.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "shell/docks/KMMorphLineEdit.h"
#include "shell/docks/KMMorphValueCell.h"
#include "tools/KMMorphTargets.h"
#include "tools/morphDialogDelegate.h"

#include <QDropEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QSignalBlocker>
#include <QStyledItemDelegate>

namespace {

class NameDelegate : public QStyledItemDelegate
{
public:
    using QStyledItemDelegate::QStyledItemDelegate;

    QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &, const QModelIndex &) const override
    {
        return new KMMorphLineEdit(parent);
    }
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override
    {
        const QString name = static_cast<KMMorphLineEdit *>(editor)->name();
        if (!name.isEmpty())
            model->setData(index, name, Qt::EditRole);
    }
};

QList<KMContainerNode *> asNodes(const QList<KMMorph *> &morphs)
{
    QList<KMContainerNode *> nodes;
    for (KMMorph *morph : morphs)
        nodes << morph;
    return nodes;
}

KMMorphValueCell *cellOf(const QTreeWidget *tree, QTreeWidgetItem *row)
{
    return static_cast<KMMorphValueCell *>(tree->itemWidget(row, KMMorphTree::ValueColumn));
}

} // namespace

KMMorphTree::KMMorphTree(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("morphTree"));
    setColumnCount(ColumnCount);
    setHeaderLabels({tr("Name"), tr("Value"), tr("Panel")});
    setRootIsDecorated(false);
    setUniformRowHeights(true);
    setSelectionMode(ExtendedSelection);
    setDragDropMode(DragDrop);
    setEditTriggers(EditKeyPressed | DoubleClicked);
    setFrameShape(NoFrame);
    setItemDelegateForColumn(NameColumn, new NameDelegate(this));
    setItemDelegateForColumn(PanelColumn, new morphDialogDelegate(this));
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(ValueColumn, QHeaderView::Stretch);
    header()->resizeSection(NameColumn, dpiScaled(100));
    header()->resizeSection(PanelColumn, dpiScaled(90));
    connect(this, &QTreeWidget::itemSelectionChanged, this, &KMMorphTree::onSelectionChanged);
    connect(this, &QTreeWidget::itemChanged, this, &KMMorphTree::onItemChanged);
}

void KMMorphTree::showTag(KMTagMorph *tag)
{
    m_tag = tag;
    const QList<KMMorph *> morphs = tag ? tag->liveMorphs() : QList<KMMorph *>();
    if (morphs != m_morphs) {
        m_morphs = morphs;
        rebuild();
    }
    const QSignalBlocker quiet(this);
    for (int i = 0; i < m_morphs.size(); ++i)
        refreshRow(topLevelItem(i), m_morphs[i]);
}

void KMMorphTree::rebuild()
{
    const QSignalBlocker quiet(this);
    for (int i = 0; i < topLevelItemCount(); ++i)
        cellOf(this, topLevelItem(i))->refresh(); // ends a drag now: the view deletes its widgets late
    clear();
    for (KMMorph *morph : std::as_const(m_morphs)) {
        auto *row = new QTreeWidgetItem(this);
        row->setFlags((row->flags() | Qt::ItemIsEditable) & ~Qt::ItemIsDropEnabled);
        row->setData(PanelColumn, Qt::EditRole, morph->panel());
        setItemWidget(row, ValueColumn, new KMMorphValueCell(morph));
        row->setSelected(morph->isSelected());
    }
}

void KMMorphTree::refreshRow(QTreeWidgetItem *row, const KMMorph *morph)
{
    row->setText(NameColumn, morph->name());
    row->setData(PanelColumn, Qt::EditRole, morph->panel());
    cellOf(this, row)->refresh();
}

void KMMorphTree::forget()
{
    m_tag = nullptr;
    m_morphs.clear();
    rebuild();
}

void KMMorphTree::commit()
{
    for (int i = 0; i < topLevelItemCount(); ++i)
        cellOf(this, topLevelItem(i))->commit();
}

KMMorph *KMMorphTree::morphOf(const QTreeWidgetItem *row) const
{
    return m_morphs.value(indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(row)), nullptr);
}

QTreeWidgetItem *KMMorphTree::rowOf(const KMMorph *morph) const
{
    return topLevelItem(m_morphs.indexOf(const_cast<KMMorph *>(morph)));
}

void KMMorphTree::onSelectionChanged()
{
    for (int i = 0; i < m_morphs.size(); ++i)
        m_morphs[i]->setSelected(topLevelItem(i)->isSelected());
}

/// Only the user's edits come here.
void KMMorphTree::onItemChanged(QTreeWidgetItem *row, int column)
{
    KMMorph *morph = morphOf(row);
    if (!morph)
        return;
    const QString name = row->text(NameColumn);
    const int panel = row->data(PanelColumn, Qt::EditRole).toInt();
    if (column == NameColumn && name != morph->name())
        gSolution->push(new renameNodeCommand(morph, name));
    else if (column == PanelColumn && panel != morph->panel())
        gSolution->push(new editMorphTypeCommand(morph, panel));
}

QStringList KMMorphTree::mimeTypes() const
{
    return {KMMorphTargets::MorphMimeType};
}

QMimeData *KMMorphTree::mimeData(const QList<QTreeWidgetItem *> rows) const
{
    QList<KMMorph *> dragged;
    for (KMMorph *morph : m_morphs) { // in their order, not in that of the clicks
        if (rows.contains(rowOf(morph)))
            dragged << morph;
    }
    return dragged.isEmpty() ? nullptr : KMTreeWidget::mimeDataOf(asNodes(dragged), KMMorphTargets::MorphMimeType);
}

/// After a move the view would delete the rows that were dragged.
void KMMorphTree::startDrag(Qt::DropActions)
{
    QTreeWidget::startDrag(Qt::CopyAction);
}

void KMMorphTree::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeWidget::dragMoveEvent(event);
    event->setAccepted(
        !KMTreeWidget::nodesAmong(asNodes(m_morphs), event->mimeData(), KMMorphTargets::MorphMimeType).isEmpty());
}

void KMMorphTree::dropEvent(QDropEvent *event)
{
    QList<KMMorph *> dropped;
    for (KMContainerNode *node :
         KMTreeWidget::nodesAmong(asNodes(m_morphs), event->mimeData(), KMMorphTargets::MorphMimeType))
        dropped << nodeAs<KMMorph>(node);
    if (dropped.isEmpty())
        return event->ignore();
    const QTreeWidgetItem *row = itemAt(event->pos());
    int place = row ? indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(row)) : m_morphs.size();
    if (row && event->pos().y() > visualItemRect(row).center().y())
        ++place;
    event->setDropAction(Qt::CopyAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    emit morphsDropped(dropped, place);
}
