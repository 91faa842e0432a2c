#include "shell/commands/KMGlobalCommands.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMBonePicker.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneSelectionCommand.h"
#include "tools/KMBoneTargets.h"

#include <QApplication>
#include <QCursor>
#include <QMenu>
#include <QSet>

#include <algorithm>

namespace {

QList<KMContainerNode *> nodesInTree()
{
    QList<KMContainerNode *> nodes;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
        nodes << KMTreeWidget::nodeOf(row);
    return nodes;
}

/// All that may refer to shaders and textures: what is in the tree and the live shaders themselves.
QSet<int> usedIndices(QSet<int> (KMContainerNode::*used)() const)
{
    QSet<int> indices;
    for (const KMContainerNode *node : nodesInTree())
        indices.unite((node->*used)());
    for (const KMShaderNode *shader : gProject->shaders())
        indices.unite((shader->*used)());
    return indices;
}

/// The user is at work in the tree: what is selected there are nodes.
bool isTreeInUse()
{
    const QTreeWidget *tree = gProject->tree();
    const QWidget *focus = QApplication::focusWidget();
    return focus && (focus == tree || tree->isAncestorOf(focus));
}

/// The rig whose bones are meant, before any mesh.
KMBoneContainer *rigInMind()
{
    return isTreeInUse() ? nullptr : KMBoneTargets::container();
}

/// The bones of a rig that the mouse could select and that aren't selected as wholes.
QList<KMBone *> bonesToSelect(const KMBoneContainer &rig)
{
    QList<KMBone *> bones;
    for (KMBone *bone : rig.bones()) {
        if (KMBonePicker::isPickable(*bone) && bone->selectMask() != KMBone::BothSelected)
            bones << bone;
    }
    return bones;
}

/// The chosen meshes that have something to select.
QList<KMMeshNode *> meshesInMind()
{
    if (!KMMeshTargets::filteredElements() || isTreeInUse())
        return {};
    QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(),
                                [](const KMMeshNode *mesh) {
                                    return !KMMeshTargets::isEditable(*mesh) || KMMeshTargets::isUnderControl(*mesh)
                                           || mesh->liveFaces().isEmpty();
                                }),
                 meshes.end());
    return meshes;
}

/// The current rig or mesh while it is locked or hidden: what is meant lies in it then, where nothing can be selected,
/// and not the rows of the tree. Null without.
const KMContainerNode *closedNode()
{
    KMNode *current = isTreeInUse() ? nullptr : gSolution->currentNode();
    if (current && current->type() == KMNodeType::BoneContainer)
        return rigInMind() ? nullptr : nodeAs<KMContainerNode>(current);
    const bool isClosed = current && current->type() == KMNodeType::Mesh && KMMeshTargets::filteredElements()
                          && !KMMeshTargets::isEditable(*nodeAs<KMMeshNode>(current)) && meshesInMind().isEmpty();
    return isClosed ? nodeAs<KMContainerNode>(current) : nullptr;
}

template <class Shelf>
QList<KMContainerNode *> unused(const Shelf &shelf, const QSet<int> &used)
{
    QList<KMContainerNode *> nodes;
    for (int i = 0; i < shelf.size(); ++i) {
        if (!used.contains(i))
            nodes << shelf.at(i);
    }
    return nodes;
}

} // namespace

ComDoLastCommand::ComDoLastCommand(QObject *parent)
    : KMGlobalCommand(tr("Do Last Command"), parent)
{
}

QString ComDoLastCommand::obstacle() const
{
    return gSolution->lastCommand() ? QString() : tr("No command was run yet");
}

void ComDoLastCommand::run()
{
    gSolution->lastCommand()->trigger();
}

ComSelectLastNode::ComSelectLastNode(QObject *parent)
    : KMGlobalCommand(tr("Select LastNode"), parent)
{
}

QString ComSelectLastNode::obstacle() const
{
    return gSolution->previousNode() ? QString() : tr("No node was selected before");
}

void ComSelectLastNode::run()
{
    gProject->tree()->setCurrentItem(nodeAs<KMContainerNode>(gSolution->previousNode())->item());
}

ComSelectAll::ComSelectAll(QObject *parent)
    : KMGlobalCommand(tr("Select All"), parent)
{
}

QString ComSelectAll::obstacle() const
{
    const KMContainerNode *closed = closedNode();
    return closed ? tr("%1 is locked or hidden").arg(closed->name()) : QString();
}

bool ComSelectAll::isOneStep() const
{
    if (const KMBoneContainer *rig = rigInMind())
        return !bonesToSelect(*rig).isEmpty();
    return !meshesInMind().isEmpty();
}

void ComSelectAll::run()
{
    if (KMBoneContainer *rig = rigInMind()) {
        const QList<KMBone *> bones = bonesToSelect(*rig);
        if (!bones.isEmpty())
            gSolution->push(new selectBonesCommand(rig, bones, KMBone::BothSelected));
        return;
    }
    const QList<KMMeshNode *> meshes = meshesInMind();
    if (meshes.isEmpty())
        return gProject->tree()->selectAll();
    for (KMMeshNode *mesh : meshes)
        KMMeshSelect::selectAll(*mesh, KMMeshTargets::filteredElements());
}

ComUnselectAll::ComUnselectAll(QObject *parent)
    : KMGlobalCommand(tr("Unselect All"), parent)
{
}

void ComUnselectAll::run()
{
    if (rigInMind())
        return KMBoneTargets::unselectAll();
    if (meshesInMind().isEmpty())
        gProject->tree()->clearSelection();
    else
        KMMeshSelect::unselectAll();
}

QList<KMContainerNode *> KMVisibilityCommand::targets() const
{
    QList<KMContainerNode *> nodes;
    for (KMContainerNode *node : nodesInTree()) {
        if (!isModifier(node->type()) && node->isVisible() != shallBeVisible(node)) // theirs switches the effect
            nodes << node;
    }
    return nodes;
}

void KMVisibilityCommand::runOn(KMContainerNode *node)
{
    gSolution->push(new setVisibleCommand(node, shallBeVisible(node)));
}

ComShowCurrentOnly::ComShowCurrentOnly(QObject *parent)
    : KMVisibilityCommand(tr("Show current only"), parent)
{
}

QString ComShowCurrentOnly::obstacle() const
{
    return gSolution->currentNode() ? KMVisibilityCommand::obstacle() : tr("Select a node first");
}

bool ComShowCurrentOnly::shallBeVisible(const KMContainerNode *node) const
{
    KMNode *current = gSolution->currentNode();
    if (current && isModifier(current->type())) // it shows on its mesh
        current = KMTreeWidget::parentNodeOf(nodeAs<KMContainerNode>(current));
    return node == current;
}

ComShowAll::ComShowAll(QObject *parent)
    : KMVisibilityCommand(tr("Show All"), parent)
{
}

ComHideAll::ComHideAll(QObject *parent)
    : KMVisibilityCommand(tr("Hide All"), parent)
{
}

void KMDeleteCommand::runOn(KMContainerNode *node)
{
    gProject->deleteNode(node);
}

ComDeleteCurrentNode::ComDeleteCurrentNode(QObject *parent)
    : KMDeleteCommand(tr("Delete Node"), parent)
{
}

QList<KMContainerNode *> ComDeleteCurrentNode::targets() const
{
    KMNode *current = gSolution->currentNode();
    return current ? QList<KMContainerNode *>{nodeAs<KMContainerNode>(current)} : QList<KMContainerNode *>();
}

ComDeleteUnusedShader::ComDeleteUnusedShader(QObject *parent)
    : KMDeleteCommand(tr("Delete unused shader"), parent)
{
}

QList<KMContainerNode *> ComDeleteUnusedShader::targets() const
{
    return unused(gProject->shaders(), usedIndices(&KMContainerNode::shaderReferences));
}

ComDeleteUnusedTexture::ComDeleteUnusedTexture(QObject *parent)
    : KMDeleteCommand(tr("Delete unused texture"), parent)
{
}

QList<KMContainerNode *> ComDeleteUnusedTexture::targets() const
{
    return unused(gProject->textures(), usedIndices(&KMContainerNode::textureReferences));
}

ComDeleteNull::ComDeleteNull(QObject *parent)
    : KMDeleteCommand(tr("delete StandAlone NullNode"), parent)
{
}

QList<KMContainerNode *> ComDeleteNull::targets() const
{
    QList<KMContainerNode *> nodes;
    for (KMContainerNode *node : nodesInTree()) {
        if (node->type() == KMNodeType::Null && node->item()->childCount() == 0)
            nodes << node;
    }
    return nodes;
}

ComClearBuffer::ComClearBuffer(QObject *parent)
    : KMGlobalCommand(tr("clear Buffer"), parent)
{
}

void ComClearBuffer::run()
{
    // The steps go, the changes stay: what wasn't saved must still be asked for at the end.
    const bool wasModified = gSolution->isModified();
    gSolution->clearHistory();
    if (wasModified)
        gSolution->markUnsaved();
}

ComShowMenuCommand::ComShowMenuCommand(const QString &text, QMenu *menu, QObject *parent)
    : KMGlobalCommand(text, parent)
    , m_menu(menu)
{
}

void ComShowMenuCommand::run()
{
    m_menu->popup(QCursor::pos());
}
