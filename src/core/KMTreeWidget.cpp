#include "core/KMTreeWidget.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"

#include <QDataStream>
#include <QDropEvent>
#include <QMimeData>

const QString KMTreeWidget::NodeMimeType = QStringLiteral("application/kmnode");

namespace {

void appendSubtree(QTreeWidgetItem *row, QList<QTreeWidgetItem *> &rows)
{
    rows << row;
    for (int i = 0; i < row->childCount(); ++i)
        appendSubtree(row->child(i), rows);
}

bool hasSelectedAncestor(const QTreeWidgetItem *row)
{
    for (const QTreeWidgetItem *up = row->parent(); up; up = up->parent()) {
        const KMContainerNode *node = KMTreeWidget::nodeOf(up);
        if (up->isSelected() && node && node->isSelected())
            return true;
    }
    return false;
}

} // namespace

KMTreeWidget::KMTreeWidget(QWidget *parent) : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("nodeTree"));
    setColumnCount(ColumnCount);
    setSelectionMode(ExtendedSelection);
    connect(this, &QTreeWidget::currentItemChanged, this, &KMTreeWidget::currentRowChanged);
}

QTreeWidgetItem *KMTreeWidget::makeRow(KMContainerNode *node)
{
    auto *row = new QTreeWidgetItem;
    const QVariant pointer{qulonglong(reinterpret_cast<quintptr>(node))};
    row->setData(NameColumn, Qt::UserRole, pointer);
    row->setData(TagColumn, Qt::UserRole, pointer);
    row->setFlags(row->flags() | Qt::ItemIsEditable); // the delegate turns an edit into a step of the history
    showState(row);
    return row;
}

void KMTreeWidget::showState(QTreeWidgetItem *row)
{
    const KMContainerNode *node = nodeOf(row);
    const bool state = hasStateColumns(node->type());
    row->setText(NameColumn, node->name());
    row->setCheckState(VisibleColumn, state && node->isVisible() ? Qt::Checked : Qt::Unchecked);
    row->setCheckState(LockColumn, state && node->isLocked() ? Qt::Checked : Qt::Unchecked);
}

KMContainerNode *KMTreeWidget::nodeOf(const QTreeWidgetItem *row)
{
    return row ? reinterpret_cast<KMContainerNode *>(quintptr(row->data(NameColumn, Qt::UserRole).toULongLong()))
               : nullptr;
}

KMContainerNode *KMTreeWidget::parentNodeOf(const KMContainerNode *node)
{
    return node->item() ? nodeOf(node->item()->parent()) : nullptr;
}

QList<QTreeWidgetItem *> KMTreeWidget::flatten(const QTreeWidget *tree)
{
    QList<QTreeWidgetItem *> rows;
    for (int i = 0; i < tree->topLevelItemCount(); ++i)
        appendSubtree(tree->topLevelItem(i), rows);
    return rows;
}

QList<QTreeWidgetItem *> KMTreeWidget::flatten(QTreeWidgetItem *row)
{
    QList<QTreeWidgetItem *> rows;
    if (row)
        appendSubtree(row, rows);
    return rows;
}

QList<QTreeWidgetItem *> KMTreeWidget::topSelectedItems(const QTreeWidget *tree)
{
    QList<QTreeWidgetItem *> rows;
    for (QTreeWidgetItem *row : flatten(tree)) {
        if (row->isSelected() && !hasSelectedAncestor(row))
            rows << row;
    }
    return rows;
}

void KMTreeWidget::copyRowState(QTreeWidgetItem *from, QTreeWidgetItem *to)
{
    const QList<QTreeWidgetItem *> sources = flatten(from);
    const QList<QTreeWidgetItem *> targets = flatten(to);
    if (sources.size() != targets.size())
        return;
    for (int i = 0; i < sources.size(); ++i) {
        targets[i]->setHidden(sources[i]->isHidden());
        targets[i]->setExpanded(sources[i]->isExpanded());
    }
}

int KMTreeWidget::positionOf(const QTreeWidgetItem *row)
{
    if (row->parent())
        return row->parent()->indexOfChild(const_cast<QTreeWidgetItem *>(row));
    return row->treeWidget() ? row->treeWidget()->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(row)) : -1;
}

void KMTreeWidget::currentRowChanged(QTreeWidgetItem *current)
{
    emit onNodeUpdate(nodeOf(current));
}

QStringList KMTreeWidget::mimeTypes() const
{
    return {NodeMimeType};
}

QMimeData *KMTreeWidget::mimeData(const QList<QTreeWidgetItem *> items) const
{
    if (items.isEmpty())
        return nullptr;
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    for (const QTreeWidgetItem *row : topSelectedItems(this))
        out << row->data(NameColumn, Qt::UserRole).toULongLong();
    auto *data = new QMimeData;
    data->setData(NodeMimeType, bytes);
    return data;
}

QList<KMContainerNode *> KMTreeWidget::nodesOf(const QMimeData *data)
{
    QList<KMContainerNode *> nodes;
    QDataStream in(data->data(NodeMimeType));
    while (!in.atEnd()) {
        qulonglong pointer = 0;
        in >> pointer;
        nodes << reinterpret_cast<KMContainerNode *>(quintptr(pointer));
    }
    return nodes;
}

void KMTreeWidget::dropEvent(QDropEvent *event)
{
    if (event->source() != this || !event->mimeData()->hasFormat(NodeMimeType))
        return event->ignore();
    const DropIndicatorPosition indicator = dropIndicatorPosition();
    const Place place = indicator == AboveItem ? Place::Before : indicator == BelowItem ? Place::After : Place::Into;
    KMContainerNode *target = nodeOf(itemAt(event->pos()));
    const QList<KMContainerNode *> nodes = nodesOf(event->mimeData());
    // A move action would make the view delete the dragged rows after the drop.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
    emit nodesDropped(nodes, target, place);
}
