#include "shell/KMNodeEdits.h"

#include "core/KMBlockModel.h"
#include "core/KMCommand.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "core/KMWaitingMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMRigTags.h"
#include "shell/KMNodeTemplates.h"

#include <QCoreApplication>

#include <algorithm>
#include <utility>

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KMNodeEdits", text);
}

void deleteBlocks(const QList<KMNode *> &nodes)
{
    for (KMNode *node : gProject->blockModel() ? nodes : QList<KMNode *>())
        gProject->blockModel()->pushDeleteBlock(node);
}

/// The row behind a node that is none of those on the move.
KMContainerNode *nextSibling(KMContainerNode *node, const QList<KMContainerNode *> &moved)
{
    QTreeWidgetItem *parent = node->item()->parent();
    if (!parent)
        parent = gProject->tree()->invisibleRootItem();
    for (int i = parent->indexOfChild(node->item()) + 1; i < parent->childCount(); ++i) {
        KMContainerNode *sibling = KMTreeWidget::nodeOf(parent->child(i));
        if (!moved.contains(sibling))
            return sibling;
    }
    return nullptr;
}

void moveBefore(KMContainerNode *node, KMContainerNode *sibling)
{
    const auto mode = sibling->item()->parent() ? moveNodeCommand::BeforeSibling : moveNodeCommand::BeforeTopLevel;
    gSolution->push(new moveNodeCommand(mode, sibling, node));
}

/// As the last below a mesh; but a bone deform takes the weights that an anchor gives, and leaves none.
void placeModifier(KMContainerNode *modifier, KMContainerNode *mesh)
{
    for (int i = 0; modifier->type() == KMNodeType::ModAnchor && i < mesh->item()->childCount(); ++i) {
        KMContainerNode *child = KMTreeWidget::nodeOf(mesh->item()->child(i));
        if (child->type() == KMNodeType::ModBoneDeform)
            return moveBefore(modifier, child);
    }
    KMNodeEdits::moveTo(modifier, mesh);
}

/// Else the node would be moved up when the document is read again.
bool hasRoom(const KMContainerNode *parent, const KMContainerNode *node)
{
    if (!parent || KMTreeWidget::hasRoom(parent->item(), node->item()))
        return true;
    gSolution->showMessage(tr("Nodes can't stand deeper than %1 in one another").arg(KMTreeWidget::MaxDepth),
                           KMCommand::MessageLevel);
    return false;
}

bool hasTagNamed(const KMContainerNode *node, const QString &name)
{
    const QList<KMTagBase *> tags = node->tags();
    return std::any_of(tags.begin(), tags.end(),
                       [&name](const KMTagBase *tag) { return !tag->isDeleted() && tag->name() == name; });
}

/// The index in the list of all tags at which a tag comes to stand at a place among the live ones.
int indexAtPlace(const KMContainerNode *node, int place)
{
    const QList<KMTagBase *> tags = node->tags();
    for (int i = 0; i < tags.size() && place >= 0; ++i) {
        if (!tags[i]->isDeleted() && place-- == 0)
            return i;
    }
    return -1;
}

} // namespace

void KMNodeEdits::moveTo(KMContainerNode *node, KMContainerNode *parent)
{
    if (parent)
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, parent, node));
    else
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastTopLevel, nullptr, node));
}

KMContainerNode *KMNodeEdits::meshForModifier()
{
    QList<KMContainerNode *> candidates = selectedNodes();
    if (KMNode *current = gSolution->currentNode()) {
        if (isContainer(current->type()))
            candidates.prepend(nodeAs<KMContainerNode>(current));
    }
    for (KMContainerNode *candidate : std::as_const(candidates)) {
        KMContainerNode *node = isModifier(candidate->type()) ? KMTreeWidget::parentNodeOf(candidate) : candidate;
        if (node && node->type() == KMNodeType::Mesh)
            return node;
    }
    return nullptr;
}

void KMNodeEdits::selectOnly(const QList<KMContainerNode *> &nodes)
{
    gProject->tree()->setCurrentItem(nodes.last()->item());
    for (KMContainerNode *node : nodes)
        node->item()->setSelected(true);
}

QList<KMContainerNode *> KMNodeEdits::selectedNodes()
{
    QList<KMContainerNode *> nodes;
    for (const QTreeWidgetItem *row : KMTreeWidget::topSelectedItems(gProject->tree()))
        nodes << KMTreeWidget::nodeOf(row);
    return nodes;
}

QList<KMContainerNode *> KMNodeEdits::affectedBy(KMContainerNode *node)
{
    if (!node->item() || !node->item()->isSelected())
        return {node};
    QList<KMContainerNode *> nodes;
    for (const QTreeWidgetItem *row : node->item()->treeWidget()->selectedItems())
        nodes << KMTreeWidget::nodeOf(row);
    return nodes;
}

bool KMNodeEdits::move(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place)
{
    const bool isInto = place == KMTreeWidget::Place::Into;
    KMContainerNode *parent = target && !isInto ? KMTreeWidget::parentNodeOf(target) : target;
    QList<KMContainerNode *> movable;
    for (KMContainerNode *node : nodes) {
        const bool isPossible = canMove(node, target) || (node == target && !isInto && nodes.size() > 1);
        if (isPossible && hasRoom(parent, node))
            movable << node;
    }
    if (movable.isEmpty())
        return false;

    KMContainerNode *sibling = nullptr; // the nodes go before it, or last where there is none
    if (target && !isInto) {
        const bool atTarget = place == KMTreeWidget::Place::Before && !movable.contains(target);
        sibling = atTarget ? target : nextSibling(target, movable);
    }
    const KMUndoMacro macro(tr("Move Node"));
    for (KMContainerNode *node : std::as_const(movable)) {
        if (sibling)
            moveBefore(node, sibling);
        else
            moveTo(node, parent);
    }
    gProject->checkModifiers();
    return true;
}

void KMNodeEdits::groupUnderNull(const QList<KMContainerNode *> &nodes)
{
    const auto fits = [&nodes](const KMContainerNode *node) {
        return hasRoom(nodes.first(), node); // the group will stand as deep
    };
    if (nodes.isEmpty() || !std::all_of(nodes.begin(), nodes.end(), fits))
        return;
    const KMUndoMacro macro(tr("Group"));
    auto *group = new KMNullNode;
    gProject->addToScene(group);
    moveBefore(group, nodes.first());
    for (KMContainerNode *node : nodes)
        moveTo(node, group);
    group->item()->setExpanded(true);
    gProject->checkModifiers();
    gProject->tree()->setCurrentItem(group->item());
}

void KMNodeEdits::addModifier(KMContainerNode *modifier)
{
    KMContainerNode *mesh = meshForModifier();
    const KMUndoMacro macro(tr("Add Node"));
    gSolution->push(new selectNodeCommand(gSolution->currentNode())); // undone, it is current again
    gProject->addToScene(modifier);
    if (!mesh)
        gSolution->showMessage(tr("No mesh was current: move the modifier below the mesh that it shall change"),
                               KMCommand::MessageLevel);
    else if (hasRoom(mesh, modifier))
        placeModifier(modifier, mesh);
    gProject->checkModifiers();
    if (mesh)
        mesh->item()->setExpanded(true);
    gProject->tree()->setCurrentItem(modifier->item());
}

void KMNodeEdits::remove(const QList<KMContainerNode *> &nodes)
{
    if (nodes.isEmpty())
        return;
    const KMUndoMacro macro(tr("Delete Node"));
    for (KMContainerNode *node : nodes)
        gProject->deleteNode(node);
}

void KMNodeEdits::duplicate(const QList<KMContainerNode *> &nodes)
{
    const KMNodeTemplates templates(nodes);
    if (templates.isEmpty())
        return; // nothing here can be copied: no step that does nothing

    const KMUndoMacro macro(tr("Duplicate"));
    const QList<KMContainerNode *> originals = templates.sources();
    const QList<KMContainerNode *> copies = templates.instantiate(true);
    for (int i = 0; i < copies.size(); ++i) {
        if (KMContainerNode *sibling = nextSibling(originals[i], {copies[i]}))
            moveBefore(copies[i], sibling);
    }
    gProject->checkModifiers();
    selectOnly(copies);
}

bool KMNodeEdits::copyTo(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place)
{
    const KMNodeTemplates templates(nodes);
    if (templates.isEmpty())
        return false;
    const KMUndoMacro macro(tr("Duplicate"));
    const QList<KMContainerNode *> copies = templates.instantiate();
    move(copies, target, place);
    selectOnly(copies);
    return true;
}

bool KMNodeEdits::canTake(const KMContainerNode *node, const KMTagBase *tag)
{
    if (!canHoldTag(node->type(), tag->type()))
        return false;
    constexpr int single[] = {KMNodeType::TagNormal, KMNodeType::TagBoneWeight, KMNodeType::TagMorph};
    if (std::find(std::begin(single), std::end(single), tag->type()) == std::end(single))
        return true;
    const QList<KMTagBase *> tags = node->tags();
    return std::none_of(tags.begin(), tags.end(),
                        [tag](const KMTagBase *other) { return other->type() == tag->type() && !other->isDeleted(); });
}

bool KMNodeEdits::moveTag(KMTagBase *tag, KMContainerNode *node, int place)
{
    if (tag->owner() != node && !canTake(node, tag))
        return false;
    gSolution->push(new moveTagCommand(tag, node, place));
    return true;
}

KMTagBase *KMNodeEdits::copyTag(const KMTagBase *tag, KMContainerNode *node, int place)
{
    if (!canTake(node, tag))
        return nullptr;
    KMTagBase *copy = tag->clone();
    copy->setName(tag->name());
    const auto naming = hasTagNamed(node, tag->name()) ? addTagCommand::Name::Numbered : addTagCommand::Name::Keep;
    const int index = indexAtPlace(node, place);
    if (node->type() == KMNodeType::Bone)
        gSolution->push(new addTagBoneContainerCommand(nodeAs<KMBone>(node), copy, index, naming));
    else
        gSolution->push(new addTagCommand(node, copy, index, naming));
    return copy;
}

bool KMNodeEdits::tellsLock(const KMNode *owner)
{
    const KMContainerNode *lock = KMRigTags::lockOf(owner);
    if (lock)
        gSolution->showMessage(tr("%1 is locked").arg(lock->name()), KMCommand::MessageLevel);
    return lock;
}

void KMNodeEdits::deleteTags(const QList<KMTagBase *> &tags)
{
    const KMWaitingMacro macro(tr("Delete Tag"));
    for (KMTagBase *tag : tags) {
        if (tellsLock(tag->owner()))
            continue;
        deleteBlocks(tag->blockNodes());
        KMNode *owner = tag->owner();
        if (owner->type() == KMNodeType::Bone)
            gSolution->push(new deleteTagBoneContainerCommand(nodeAs<KMBone>(owner), tag));
        else
            gSolution->push(new deleteTagCommand(nodeAs<KMContainerNode>(owner), tag));
    }
}

void KMNodeEdits::setVisible(const QList<KMContainerNode *> &nodes, bool visible)
{
    const KMUndoMacro macro(tr("Set Visible"));
    for (KMContainerNode *node : nodes)
        gSolution->push(new setVisibleCommand(node, visible));
    gProject->checkModifiers(); // one that is switched off drops out of its chain
}

void KMNodeEdits::setLocked(const QList<KMContainerNode *> &nodes, bool locked)
{
    const KMUndoMacro macro(tr("Set Lock"));
    for (KMContainerNode *node : nodes)
        gSolution->push(new setLockedCommand(node, locked));
}
