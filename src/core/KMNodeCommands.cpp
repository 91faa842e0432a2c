#include "core/KMNodeCommands.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"

addNodeCommand::addNodeCommand(KMContainerNode *node)
    : KMUndoCommand(tr("Add Node"), node)
    , m_target(node)
{
}

addNodeCommand::~addNodeCommand()
{
    if (!m_applied)
        KMProject::destroyNodes({m_target});
}

void addNodeCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        attach();
    else
        detach();
}

void addNodeCommand::attach()
{
    m_applied = true;
    m_target->setDeleted(false);
    m_target->setSelected(false); // its row tells
    QTreeWidgetItem *row = KMTreeWidget::makeRow(m_target);
    m_target->setItem(row);
    placeRow(row);
    gProject->followRow(row, KMProject::RowChange::Entered);
}

void addNodeCommand::placeRow(QTreeWidgetItem *row)
{
    gProject->tree()->addTopLevelItem(row);
    KMTreeWidget::nodeOf(row)->setSelected(true);
    gProject->tree()->setCurrentItem(row);
}

void addNodeCommand::detach()
{
    m_applied = false;
    m_target->setDeleted(true);
    gSolution->forgetNode(m_target);
    // Else the view would make a neighbour current, which the session isn't to take up.
    gProject->tree()->setCurrentItem(nullptr);
    gProject->followRow(m_target->item(), KMProject::RowChange::Left);
    delete m_target->item();
    m_target->setItem(nullptr);
    emit gProject->tree()->onNodeUpdate(nullptr);
}

deleteNodeCommand::deleteNodeCommand(KMContainerNode *node)
    : KMUndoCommand(tr("Delete Node"), node)
    , m_target(node)
{
}

deleteNodeCommand::~deleteNodeCommand()
{
    if (!m_applied)
        return;
    QList<KMContainerNode *> nodes;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_row))
        nodes << KMTreeWidget::nodeOf(row);
    KMProject::destroyNodes(nodes);
    delete m_row;
}

void deleteNodeCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        detach();
    else
        attach();
}

void deleteNodeCommand::detach()
{
    m_applied = true;
    m_row = m_target->item();
    m_flags = KMTreeWidget::flagsOf(m_row);
    m_parentNode = KMTreeWidget::parentNodeOf(m_target);
    m_position = KMTreeWidget::positionOf(m_row);
    gProject->tree()->setCurrentItem(nullptr); // before the row goes, or the view would take a neighbour
    gProject->tree()->takeRow(m_row);
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_row)) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        node->setDeleted(true);
        node->setSelected(false);
        gSolution->forgetNode(node);
    }
    gProject->followRow(m_row, KMProject::RowChange::Left);
}

void deleteNodeCommand::attach()
{
    m_applied = false;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_row)) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        node->setDeleted(false);
        if (node->type() == KMNodeType::Mesh || node->type() == KMNodeType::BoneContainer)
            touch(node);
    }
    // The parent's own row may have been replaced since, so it is asked of the node.
    gProject->tree()->insertRow(m_parentNode ? m_parentNode->item() : nullptr, m_position, m_row);
    KMTreeWidget::setFlags(m_row, m_flags);
    gProject->tree()->setCurrentItem(m_row);
    gProject->followRow(m_row, KMProject::RowChange::Entered);
    m_row = nullptr;
}
