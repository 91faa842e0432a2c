#include "core/KMNodeTreeCommands.h"

#include "core/KMContainerNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"

#include <QSignalBlocker>

namespace {

KMTreeWidget *tree()
{
    return gProject->tree();
}

QTreeWidgetItem *rowOf(const KMContainerNode *node)
{
    return node ? node->item() : nullptr;
}

QTreeWidgetItem *topLevelRow(QTreeWidgetItem *row)
{
    while (row->parent())
        row = row->parent();
    return row;
}

} // namespace

bool canMove(const KMContainerNode *source, const KMContainerNode *target)
{
    for (const QTreeWidgetItem *row = rowOf(target); row; row = row->parent()) {
        if (row == source->item())
            return false;
    }
    return true;
}

insertNodeCommand::insertNodeCommand(KMContainerNode *node, KMContainerNode *parent, int position, KMRowFocus focus)
    : addNodeCommand(node)
    , m_parentNode(parent)
    , m_position(position)
    , m_focus(focus)
{
}

void insertNodeCommand::placeRow(QTreeWidgetItem *row)
{
    tree()->insertRow(rowOf(m_parentNode), m_position, row);
    if (m_focus == KMRowFocus::Keep)
        return;
    KMTreeWidget::nodeOf(row)->setSelected(true);
    tree()->setCurrentItem(row);
}

moveNodeCommand::moveNodeCommand(Mode mode, KMContainerNode *target, KMContainerNode *source, KMRowFocus focus)
    : KMUndoCommand(tr("Move Node"), source)
    , m_mode(mode)
    , m_target(target)
    , m_source(source)
    , m_focus(focus)
{
    Q_ASSERT(canMove(source, mode == LastTopLevel ? nullptr : target));
}

void moveNodeCommand::apply(Direction direction)
{
    QTreeWidgetItem *row = m_source->item();
    QTreeWidgetItem *current = tree()->currentItem();
    const bool selected = row->isSelected();
    const KMRowFlags flags = KMTreeWidget::flagsOf(row);
    if (direction == Direction::Redo)
        m_origin = {KMTreeWidget::parentNodeOf(m_source), KMTreeWidget::positionOf(row)};
    {
        // While the row is out, the view would make a neighbour current and tell everybody.
        const QSignalBlocker quiet(tree());
        tree()->takeRow(row);
        const Place place = direction == Direction::Redo ? destination() : m_origin;
        tree()->insertRow(rowOf(place.parentNode), place.position, row);
        KMTreeWidget::setFlags(row, flags);
        tree()->setCurrentItem(current, KMTreeWidget::NameColumn, QItemSelectionModel::NoUpdate);
        row->setSelected(selected);
    }
    if (m_focus == KMRowFocus::Current)
        tree()->setCurrentItem(row);
    gProject->followRow(row, KMProject::RowChange::Moved);
}

/// Asked while the source is out of the tree, so that its own row doesn't count among the siblings.
moveNodeCommand::Place moveNodeCommand::destination() const
{
    switch (m_mode) {
    case LastTopLevel:
        break;
    case LastChild:
        return {m_target, -1};
    case BeforeTopLevel:
        return {nullptr, KMTreeWidget::positionOf(topLevelRow(m_target->item()))};
    case BeforeSibling:
        return {KMTreeWidget::parentNodeOf(m_target), KMTreeWidget::positionOf(m_target->item())};
    }
    return {};
}

changeNodeCommand::changeNodeCommand(KMContainerNode *newcomer, KMContainerNode *leaver)
    : KMUndoCommand(tr("Change Node"), newcomer)
    , m_newcomer(newcomer)
    , m_leaver(leaver)
{
    touch(leaver);
}

changeNodeCommand::~changeNodeCommand()
{
    KMProject::destroyNodes({m_applied ? m_leaver : m_newcomer});
}

void changeNodeCommand::apply(Direction direction)
{
    m_applied = direction == Direction::Redo;
    if (m_applied) {
        rememberLook(m_leaver->item());
        exchange(m_newcomer, m_leaver);
    } else {
        exchange(m_leaver, m_newcomer);
        restoreLook(m_leaver->item());
    }
    gProject->rebuildDerivedLists();
}

void changeNodeCommand::exchange(KMContainerNode *in, KMContainerNode *out)
{
    QTreeWidgetItem *row = out->item();
    const bool wasCurrent = tree()->currentItem() == row;
    out->setItem(nullptr);
    out->setDeleted(true);
    out->setSelected(false);
    gSolution->forgetNode(out);
    in->setItem(row);
    in->setDeleted(false);
    tree()->giveRow(row, in);
    if (wasCurrent)
        emit tree()->onNodeUpdate(in); // the same row is current, but it leads elsewhere now
}

void changeNodeCommand::rememberLook(const QTreeWidgetItem *row)
{
    m_leaverText = row->text(KMTreeWidget::NameColumn);
    m_leaverVisible = row->checkState(KMTreeWidget::VisibleColumn);
    m_leaverLocked = row->checkState(KMTreeWidget::LockColumn);
}

void changeNodeCommand::restoreLook(QTreeWidgetItem *row) const
{
    tree()->setRowText(row, m_leaverText);
    tree()->setRowBox(row, KMTreeWidget::VisibleColumn, m_leaverVisible);
    tree()->setRowBox(row, KMTreeWidget::LockColumn, m_leaverLocked);
}
