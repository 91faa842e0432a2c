#include "core/KMTreeWidget.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "core/KMTagBase.h"

#include <QCoreApplication>
#include <QDataStream>
#include <QDrag>
#include <QDropEvent>
#include <QItemSelectionModel>
#include <QMimeData>
#include <QPainter>
#include <QSet>

#include <algorithm>
#include <vector>

const QString KMTreeWidget::NodeMimeType = QStringLiteral("application/kmnode");
const QString KMTreeWidget::TagMimeType = QStringLiteral("application/kmtag");

namespace {

/// A row that knows its node without a search through its data. Every edit walks over all rows.
class NodeRow : public QTreeWidgetItem
{
public:
    static constexpr int TypeId = UserType + 1;

    NodeRow()
        : QTreeWidgetItem(TypeId)
    {
    }
    KMContainerNode *node() const { return m_node; }

    void setData(int column, int role, const QVariant &value) override
    {
        if (column == KMTreeWidget::NameColumn && role == Qt::UserRole)
            m_node = pointerIn(value);
        QTreeWidgetItem::setData(column, role, value);
    }

    static KMContainerNode *pointerIn(const QVariant &value)
    {
        return reinterpret_cast<KMContainerNode *>(quintptr(value.toULongLong()));
    }

private:
    KMContainerNode *m_node = nullptr;
};

/// Without recursion: a chain of rows may be deeper than the stack of the program.
void appendBelow(const QTreeWidgetItem *root, QList<QTreeWidgetItem *> &rows)
{
    std::vector<QTreeWidgetItem *> open;
    const auto openChildren = [&open](const QTreeWidgetItem *row) {
        for (int i = row->childCount() - 1; i >= 0; --i)
            open.push_back(row->child(i));
    };
    openChildren(root);
    while (!open.empty()) {
        QTreeWidgetItem *row = open.back();
        open.pop_back();
        rows << row;
        openChildren(row);
    }
}

/// The selected rows as they stand in the view, without those between them.
QPixmap pictureOf(const QTreeWidget *tree, QRect *area)
{
    QRegion region;
    for (const QTreeWidgetItem *row : tree->selectedItems())
        region += tree->visualItemRect(row) & tree->viewport()->rect();
    *area = region.boundingRect();
    const QPixmap shown = tree->viewport()->grab(*area);
    QPixmap picture(shown.size());
    picture.setDevicePixelRatio(shown.devicePixelRatio());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setClipRegion(region.translated(-area->topLeft()));
    painter.drawPixmap(0, 0, shown);
    return picture;
}

/// In place of the view's own drag, which deletes the rows after a move: they belong to the history.
void dragRows(QTreeWidget *tree, QMimeData *data, Qt::DropActions actions)
{
    if (!data)
        return;
    QRect area;
    auto *drag = new QDrag(tree);
    drag->setMimeData(data);
    drag->setPixmap(pictureOf(tree, &area));
    drag->setHotSpot(tree->viewport()->mapFromGlobal(QCursor::pos()) - area.topLeft());
    drag->exec(actions, Qt::MoveAction);
}

/// The pointers that were dragged, empty when another run of the program wrote them.
QList<qulonglong> pointersIn(const QByteArray &bytes)
{
    QDataStream in(bytes);
    qint64 run = 0;
    in >> run;
    QList<qulonglong> pointers;
    while (run == QCoreApplication::applicationPid() && !in.atEnd()) {
        qulonglong pointer = 0;
        in >> pointer;
        pointers << pointer;
    }
    return pointers;
}

qulonglong pointerTo(const void *object)
{
    return qulonglong(reinterpret_cast<quintptr>(object));
}

void leadTo(QTreeWidgetItem *row, KMContainerNode *node)
{
    const QVariant pointer{pointerTo(node)};
    row->setData(KMTreeWidget::NameColumn, Qt::UserRole, pointer);
    row->setData(KMTreeWidget::TagColumn, Qt::UserRole, pointer);
}

bool hasAncestorAmong(const QSet<KMContainerNode *> &nodes, const KMContainerNode *node)
{
    const KMContainerNode *up = KMTreeWidget::parentNodeOf(node);
    while (up && !nodes.contains(const_cast<KMContainerNode *>(up)))
        up = KMTreeWidget::parentNodeOf(up);
    return up;
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

KMTreeWidget::KMTreeWidget(QWidget *parent)
    : QTreeWidget(parent)
{
    setObjectName(QStringLiteral("nodeTree"));
    setColumnCount(ColumnCount);
    setSelectionMode(ExtendedSelection);
    connect(this, &QTreeWidget::currentItemChanged, this, &KMTreeWidget::currentRowChanged);
}

QTreeWidgetItem *KMTreeWidget::makeRow(KMContainerNode *node)
{
    auto *row = new NodeRow;
    leadTo(row, node);
    row->setFlags(row->flags() | Qt::ItemIsEditable); // the delegate turns an edit into a step of the history
    showState(row);
    return row;
}

void KMTreeWidget::giveRow(QTreeWidgetItem *row, KMContainerNode *node)
{
    const QSignalBlocker quiet(this);
    leadTo(row, node);
    showState(row);
}

void KMTreeWidget::setRowText(QTreeWidgetItem *row, const QString &name)
{
    const QSignalBlocker quiet(this);
    row->setText(NameColumn, name);
}

void KMTreeWidget::setRowBox(QTreeWidgetItem *row, Column column, Qt::CheckState state)
{
    const QSignalBlocker quiet(this);
    row->setCheckState(column, state);
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
    if (!row)
        return nullptr;
    if (row->type() == NodeRow::TypeId)
        return static_cast<const NodeRow *>(row)->node();
    return NodeRow::pointerIn(row->data(NameColumn, Qt::UserRole));
}

KMContainerNode *KMTreeWidget::parentNodeOf(const KMContainerNode *node)
{
    return node->item() ? nodeOf(node->item()->parent()) : nullptr;
}

QList<QTreeWidgetItem *> KMTreeWidget::flatten(const QTreeWidget *tree)
{
    QList<QTreeWidgetItem *> rows;
    appendBelow(tree->invisibleRootItem(), rows);
    return rows;
}

QList<QTreeWidgetItem *> KMTreeWidget::flatten(QTreeWidgetItem *row)
{
    QList<QTreeWidgetItem *> rows;
    if (row) {
        rows << row;
        appendBelow(row, rows);
    }
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
    setFlags(to, flagsOf(from));
}

KMRowFlags KMTreeWidget::flagsOf(QTreeWidgetItem *row)
{
    KMRowFlags flags;
    for (const QTreeWidgetItem *member : flatten(row)) {
        flags.expandedFlags << member->isExpanded();
        flags.hiddenFlags << member->isHidden();
    }
    return flags;
}

void KMTreeWidget::setFlags(QTreeWidgetItem *row, const KMRowFlags &flags)
{
    const QList<QTreeWidgetItem *> members = flatten(row);
    if (members.size() != flags.expandedFlags.size())
        return;
    for (int i = 0; i < members.size(); ++i) {
        if (members[i]->isHidden() != flags.hiddenFlags[i])
            members[i]->setHidden(flags.hiddenFlags[i]);
        if (members[i]->isExpanded() != flags.expandedFlags[i])
            members[i]->setExpanded(flags.expandedFlags[i]);
    }
}

bool KMTreeWidget::hasRoom(const QTreeWidgetItem *parent, const QTreeWidgetItem *row, int maxDepth)
{
    int depth = 0;
    for (; parent; parent = parent->parent())
        ++depth;
    QList<const QTreeWidgetItem *> level{row};
    for (; depth <= maxDepth && !level.isEmpty(); ++depth) {
        QList<const QTreeWidgetItem *> next;
        for (const QTreeWidgetItem *member : std::as_const(level)) {
            for (int i = 0; i < member->childCount(); ++i)
                next << member->child(i);
        }
        level = next;
    }
    return level.isEmpty();
}

void KMTreeWidget::setCurrentItem(QTreeWidgetItem *row)
{
    const auto command = row ? QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows
                             : QItemSelectionModel::SelectionFlags(QItemSelectionModel::Clear);
    setCurrentItem(row, NameColumn, command);
}

int KMTreeWidget::positionOf(const QTreeWidgetItem *row)
{
    if (row->parent())
        return row->parent()->indexOfChild(const_cast<QTreeWidgetItem *>(row));
    return row->treeWidget() ? row->treeWidget()->indexOfTopLevelItem(const_cast<QTreeWidgetItem *>(row)) : -1;
}

void KMTreeWidget::insertRow(QTreeWidgetItem *parent, int position, QTreeWidgetItem *row)
{
    if (!parent)
        parent = invisibleRootItem();
    parent->insertChild(position < 0 ? parent->childCount() : position, row);
}

void KMTreeWidget::takeRow(QTreeWidgetItem *row)
{
    QTreeWidgetItem *parent = row->parent() ? row->parent() : invisibleRootItem();
    parent->takeChild(positionOf(row));
}

void KMTreeWidget::currentRowChanged(QTreeWidgetItem *current)
{
    emit onNodeUpdate(nodeOf(current));
}

QStringList KMTreeWidget::mimeTypes() const
{
    return {nodeMimeType(), tagMimeType()};
}

QMimeData *KMTreeWidget::mimeData(const QList<QTreeWidgetItem *> items) const
{
    if (items.isEmpty())
        return nullptr;
    QList<KMContainerNode *> nodes; // all of them: what takes children along is the receiver's affair
    for (const QTreeWidgetItem *row : flatten(this)) {
        if (row->isSelected())
            nodes << nodeOf(row);
    }
    return mimeDataOf(nodes, nodeMimeType());
}

QMimeData *KMTreeWidget::mimeDataOf(const QList<KMContainerNode *> &nodes, const QString &mimeType)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QCoreApplication::applicationPid();
    for (const KMContainerNode *node : nodes)
        out << pointerTo(node);
    auto *data = new QMimeData;
    data->setData(mimeType, bytes);
    return data;
}

/// Pointers of nodes that are gone are none of these.
QList<KMContainerNode *> KMTreeWidget::nodesAmong(const QList<KMContainerNode *> &known, const QMimeData *data,
                                                  const QString &mimeType)
{
    const QList<qulonglong> pointers = pointersIn(data->data(mimeType));
    const QSet<qulonglong> dragged(pointers.cbegin(), pointers.cend());
    QList<KMContainerNode *> nodes;
    for (KMContainerNode *node : known) {
        if (dragged.contains(pointerTo(node)))
            nodes << node;
    }
    return nodes;
}

/// Without those below another one, which go along with it.
QList<KMContainerNode *> KMTreeWidget::nodesOf(const QMimeData *data) const
{
    QList<KMContainerNode *> inTree;
    for (const QTreeWidgetItem *row : flatten(this))
        inTree << nodeOf(row);
    QList<KMContainerNode *> nodes = nodesAmong(inTree, data, nodeMimeType());
    const QSet<KMContainerNode *> dragged(nodes.cbegin(), nodes.cend());
    const auto goesAlong = [&dragged](const KMContainerNode *node) { return hasAncestorAmong(dragged, node); };
    nodes.erase(std::remove_if(nodes.begin(), nodes.end(), goesAlong), nodes.end());
    return nodes;
}

QMimeData *KMTreeWidget::mimeDataOf(const KMTagBase *tag) const
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << QCoreApplication::applicationPid() << pointerTo(tag->owner()) << pointerTo(tag);
    auto *data = new QMimeData;
    data->setData(tagMimeType(), bytes);
    return data;
}

KMTagBase *KMTreeWidget::tagOf(const QMimeData *data) const
{
    const QList<qulonglong> pointers = pointersIn(data->data(tagMimeType()));
    for (const QTreeWidgetItem *row : flatten(this)) {
        if (pointers.size() != 2 || pointerTo(nodeOf(row)) != pointers.first())
            continue;
        for (KMTagBase *tag : nodeOf(row)->tags()) {
            if (pointerTo(tag) == pointers.last() && !tag->isDeleted())
                return tag;
        }
    }
    return nullptr;
}

void KMTreeWidget::setPressedTag(KMTagBase *tag, const QPixmap &picture)
{
    m_pressedTag = tag;
    m_pressedPicture = picture;
}

void KMTreeWidget::startDrag(Qt::DropActions actions)
{
    if (!m_pressedTag)
        return dragRows(this, model()->mimeData(selectedIndexes()), actions);
    auto *drag = new QDrag(this);
    drag->setMimeData(mimeDataOf(m_pressedTag));
    drag->setPixmap(m_pressedPicture);
    drag->exec(Qt::MoveAction | Qt::CopyAction, Qt::MoveAction);
}

void KMTreeWidget::dragMoveEvent(QDragMoveEvent *event)
{
    QTreeWidget::dragMoveEvent(event);
    if (!event->mimeData()->hasFormat(tagMimeType()))
        return;
    const KMTagBase *tag = tagOf(event->mimeData());
    const KMContainerNode *target = nodeOf(itemAt(event->pos()));
    event->setAccepted(tag && target && canHoldTag(target->type(), tag->type()));
}

void KMTreeWidget::dropEvent(QDropEvent *event)
{
    const bool asCopy = event->keyboardModifiers() & Qt::ControlModifier;
    KMContainerNode *target = nodeOf(itemAt(event->pos()));
    if (KMTagBase *tag = tagOf(event->mimeData())) {
        endDrop(event);
        if (target && canHoldTag(target->type(), tag->type()))
            emit tagDropped(tag, target, event->pos(), asCopy);
        return;
    }
    const QList<KMContainerNode *> nodes = nodesOf(event->mimeData());
    if (nodes.isEmpty())
        return event->ignore();
    const DropIndicatorPosition indicator = dropIndicatorPosition();
    const Place place = indicator == AboveItem ? Place::Before : indicator == BelowItem ? Place::After : Place::Into;
    endDrop(event);
    emit nodesDropped(nodes, target, place, asCopy);
}

void KMTreeWidget::endDrop(QDropEvent *event)
{
    // A move action would make the view delete the dragged rows after the drop.
    event->setDropAction(Qt::CopyAction);
    event->accept();
    stopAutoScroll();
    setState(NoState);
    viewport()->update();
}
