#include "core/KMNodeCommands.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"

addNodeCommand::addNodeCommand(KMContainerNode *node) : KMUndoCommand(tr("Add Node"), node), m_target(node) {}

addNodeCommand::~addNodeCommand()
{
    if (m_applied)
        return;
    gProject->removeNode(m_target);
    delete m_target;
}

void addNodeCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        attach();
    else
        detach();
    gProject->rebuildDerivedLists();
}

void addNodeCommand::attach()
{
    m_applied = true;
    m_target->setDeleted(false);
    m_target->setSelected(true);
    QTreeWidgetItem *row = KMTreeWidget::makeRow(m_target);
    m_target->setItem(row);
    gProject->tree()->addTopLevelItem(row);
    gProject->tree()->setCurrentItem(row);
}

void addNodeCommand::detach()
{
    m_applied = false;
    m_target->setDeleted(true);
    QTreeWidgetItem *row = m_target->item();
    m_target->setItem(nullptr);
    delete row;
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
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_row)) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        gProject->removeNode(node);
        delete node;
    }
    delete m_row;
}

void deleteNodeCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        detach();
    else
        attach();
    gProject->rebuildDerivedLists();
}

void deleteNodeCommand::detach()
{
    m_applied = true;
    QTreeWidgetItem *original = m_target->item();
    m_expandedFlags.clear();
    m_hiddenFlags.clear();
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(original)) {
        m_expandedFlags << row->isExpanded();
        m_hiddenFlags << row->isHidden();
    }
    m_parentNode = KMTreeWidget::parentNodeOf(m_target);
    m_position = KMTreeWidget::positionOf(original);
    m_row = original->clone();
    for (QTreeWidgetItem *row : KMTreeWidget::flatten(m_row)) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        node->setItem(row);
        node->setDeleted(true);
        node->setSelected(false);
        if (node->hasTag(gSolution->currentTag()))
            gSolution->setCurrentTag(nullptr);
        gSolution->forgetNode(node);
    }
    delete original;
    gProject->tree()->setCurrentItem(nullptr);
}

void deleteNodeCommand::attach()
{
    m_applied = false;
    const QList<QTreeWidgetItem *> rows = KMTreeWidget::flatten(m_row);
    for (const QTreeWidgetItem *row : rows) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        node->setDeleted(false);
        if (node->type() == KMNodeType::Mesh || node->type() == KMNodeType::BoneContainer)
            touch(node);
    }
    // The parent's own row may have been replaced by a move since, so it is asked of the node.
    if (m_parentNode)
        m_parentNode->item()->insertChild(m_position, m_row);
    else
        gProject->tree()->insertTopLevelItem(m_position, m_row);
    for (int i = 0; i < rows.size(); ++i) {
        rows[i]->setHidden(m_hiddenFlags[i]);
        rows[i]->setExpanded(m_expandedFlags[i]);
    }
    gProject->tree()->setCurrentItem(m_row);
    m_row = nullptr;
}
