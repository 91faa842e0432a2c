#include "rig/KMDisplayCommands.h"

#include "core/KMProject.h"

#include <algorithm>

namespace {

using Items = KMDisplayNode::Items;

/// The index in the whole list at which something stands behind a number of live items.
int indexBehindLive(const Items &items, int live)
{
    int index = 0;
    for (; index < items.size(); ++index) {
        if (items[index].isLive() && live-- == 0)
            break;
    }
    return index;
}

Items with(const Items &items, const Items &added, int position)
{
    const int index = position < 0 ? items.size() : indexBehindLive(items, position);
    return items.mid(0, index) + added + items.mid(index);
}

Items without(const Items &items, const QList<int> &positions)
{
    Items rest;
    int live = 0;
    for (const DisplayItem &item : items) {
        if (!item.isLive() || !std::binary_search(positions.begin(), positions.end(), live++))
            rest << item;
    }
    return rest;
}

Items moved(Items items, const moveDisplayItemCommand::Moves &moves)
{
    for (const auto &[from, to] : moves) {
        const DisplayItem item = items.at(indexBehindLive(items, from));
        items = with(without(items, {from}), {item}, to);
    }
    return items;
}

} // namespace

addDisplayNodeCommand::addDisplayNodeCommand(KMDisplayNode *group)
    : KMUndoCommand(tr("Add DisplayNode"), group)
    , m_group(group)
{
}

addDisplayNodeCommand::~addDisplayNodeCommand()
{
    if (!m_applied)
        KMProject::destroyNodes({m_group});
}

void addDisplayNodeCommand::apply(Direction direction)
{
    m_applied = direction == Direction::Redo;
    m_group->setDeleted(!m_applied);
}

removeDisplayNodeCommand::removeDisplayNodeCommand(KMDisplayNode *group)
    : KMUndoCommand(tr("Remove DisplayNode"), group)
    , m_group(group)
{
}

removeDisplayNodeCommand::~removeDisplayNodeCommand()
{
    if (m_applied)
        KMProject::destroyNodes({m_group});
}

void removeDisplayNodeCommand::apply(Direction direction)
{
    m_applied = direction == Direction::Redo;
    m_group->setDeleted(m_applied);
}

QList<KMDisplayNode *> moveDisplayNodeCommand::liveGroups()
{
    QList<KMDisplayNode *> live;
    for (KMDisplayNode *group : gProject->displayNodes()) {
        if (!group->isDeleted())
            live << group;
    }
    return live;
}

moveDisplayNodeCommand::moveDisplayNodeCommand(KMDisplayNode *group, int position)
    : KMUndoCommand(tr("Move DisplayNode"), group)
{
    for (KMDisplayNode *member : gProject->displayNodes())
        m_before << member;
    m_after = m_before;
    m_after.removeOne(group);
    int index = 0;
    for (; index < m_after.size(); ++index) {
        if (!m_after[index]->isDeleted() && position-- == 0)
            break;
    }
    m_after.insert(index, group);
}

/// The project lists groups in the order in which they were entered. Those that came later, and that only the history
/// has now, stay behind the others.
void moveDisplayNodeCommand::apply(Direction direction)
{
    QList<KMContainerNode *> groups;
    for (const QPointer<KMDisplayNode> &group : direction == Direction::Redo ? m_after : m_before) {
        if (group)
            groups << group;
    }
    for (KMDisplayNode *group : gProject->displayNodes()) {
        if (!groups.contains(group))
            groups << group;
    }
    gProject->removeNodes(groups);
    for (KMContainerNode *group : std::as_const(groups))
        gProject->addRaw(group);
}

renameDisplayNodeCommand::renameDisplayNodeCommand(KMDisplayNode *group, const QString &name)
    : changeValueCommand(tr("Rename DisplayNode"), group, group->name(), name)
    , m_group(group)
{
}

void renameDisplayNodeCommand::write(const QString &name)
{
    m_group->setName(name);
}

KMDisplayItemsCommand::KMDisplayItemsCommand(const QString &text, KMDisplayNode *group, const Items &items)
    : changeValueCommand(text, group, group->items(), items)
    , m_group(group)
{
}

void KMDisplayItemsCommand::write(const Items &items)
{
    m_group->setItems(items);
}

addDisplayItemCommand::addDisplayItemCommand(KMDisplayNode *group, const DisplayItem &item, int position)
    : addDisplayItemCommand(group, Items{item}, position)
{
}

addDisplayItemCommand::addDisplayItemCommand(KMDisplayNode *group, const Items &items, int position)
    : KMDisplayItemsCommand(tr("Add DisplayItem"), group, with(group->items(), items, position))
{
}

removeDisplayItemCommand::removeDisplayItemCommand(KMDisplayNode *group, int position)
    : removeDisplayItemCommand(group, QList<int>{position})
{
}

removeDisplayItemCommand::removeDisplayItemCommand(KMDisplayNode *group, const QList<int> &positions)
    : KMDisplayItemsCommand(tr("Remove DisplayItem"), group, without(group->items(), positions))
{
}

moveDisplayItemCommand::moveDisplayItemCommand(KMDisplayNode *group, int from, int to)
    : moveDisplayItemCommand(group, Moves{{from, to}})
{
}

moveDisplayItemCommand::moveDisplayItemCommand(KMDisplayNode *group, const Moves &moves)
    : KMDisplayItemsCommand(tr("Move DisplayItem"), group, moved(group->items(), moves))
{
}

relinkDisplayItemsCommand::relinkDisplayItemsCommand(KMDisplayNode *group, const Items &items)
    : KMDisplayItemsCommand(tr("Relink DisplayItem"), group, items)
{
}
