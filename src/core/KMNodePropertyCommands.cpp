#include "core/KMNodePropertyCommands.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"

namespace {

QTreeWidgetItem *rowInTree(KMNode *node)
{
    QTreeWidgetItem *row = node && isContainer(node->type()) ? nodeAs<KMContainerNode>(node)->item() : nullptr;
    return row && row->treeWidget() == gProject->tree() ? row : nullptr; // bones have theirs in another tree
}

/// The tree that shows a node, the project's or, for a bone, that of its container; null where none does.
KMTreeWidget *treeOf(const KMContainerNode *node)
{
    return node->item() ? static_cast<KMTreeWidget *>(node->item()->treeWidget()) : nullptr;
}

KMNodeSwitch switchNow(KMContainerNode *node, KMTreeWidget::Column column, bool on)
{
    const QTreeWidgetItem *row = treeOf(node) ? node->item() : nullptr;
    return {on, row ? row->checkState(column) : Qt::Unchecked};
}

KMNodeSwitch switchTo(bool on)
{
    return {on, on ? Qt::Checked : Qt::Unchecked};
}

void showBox(KMContainerNode *node, KMTreeWidget::Column column, Qt::CheckState state)
{
    if (KMTreeWidget *tree = treeOf(node))
        tree->setRowBox(node->item(), column, state);
}

} // namespace

selectNodeCommand::selectNodeCommand(KMNode *node)
    : changeValueCommand(tr("Select Node"), node, gSolution->currentNode(), node)
{
}

void selectNodeCommand::write(KMNode *const &node)
{
    QTreeWidgetItem *row = rowInTree(node);
    gProject->tree()->setCurrentItem(nullptr); // the change is announced even when the row is the same
    if (row)
        gProject->tree()->setCurrentItem(row);
    else
        gSolution->setCurrentNode(node);
}

renameNodeCommand::renameNodeCommand(KMContainerNode *node, const QString &name)
    : changeValueCommand(tr("Rename Node"), node, node->name(), name)
    , m_target(node)
{
}

void renameNodeCommand::write(const QString &name)
{
    m_target->setName(name);
    if (KMTreeWidget *tree = treeOf(m_target))
        tree->setRowText(m_target->item(), name);
    gProject->retitleBlock(m_target, name);
}

reinfoNodeCommand::reinfoNodeCommand(const QString &information)
    : changeValueCommand(tr("Edit Info"), gProject, gProject->information(), information)
{
}

void reinfoNodeCommand::write(const QString &information)
{
    gProject->setInformation(information);
}

renameKMPNodeCommand::renameKMPNodeCommand(int slot, const QString &text)
    : changeValueCommand(tr("Rename Node"), gProject, gProject->textInfo(slot + 1), text)
    , m_slot(slot)
{
}

void renameKMPNodeCommand::write(const QString &text)
{
    gProject->setTextInfo(m_slot + 1, text);
}

setVisibleCommand::setVisibleCommand(KMContainerNode *node, bool visible)
    : changeValueCommand(tr("Set Visible"), node, switchNow(node, KMTreeWidget::VisibleColumn, node->isVisible()),
                         switchTo(visible))
    , m_target(node)
{
}

void writeVisible(KMContainerNode *node, const KMNodeSwitch &visible)
{
    node->setVisible(visible.on);
    showBox(node, KMTreeWidget::VisibleColumn, visible.box);
}

void setVisibleCommand::write(const KMNodeSwitch &visible)
{
    writeVisible(m_target, visible);
}

setLockedCommand::setLockedCommand(KMContainerNode *node, bool locked)
    : changeValueCommand(tr("Set Lock"), node, switchNow(node, KMTreeWidget::LockColumn, node->isLocked()),
                         switchTo(locked))
    , m_target(node)
{
}

void setLockedCommand::write(const KMNodeSwitch &locked)
{
    m_target->setLocked(locked.on);
    showBox(m_target, KMTreeWidget::LockColumn, locked.box);
}
