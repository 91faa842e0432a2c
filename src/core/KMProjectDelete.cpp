// How nodes leave the scene, with everything that refers to them.

#include "core/KMBasicShaderNode.h"
#include "core/KMBlockModel.h"
#include "core/KMBluePrint.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMShaderCommands.h"
#include "core/KMShelfCommands.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMTexturePath.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"

#include <utility>

namespace {

/// What goes with a node. The bones below a bone stay.
QList<KMNode *> nodesOfSubtree(KMContainerNode *node)
{
    if (node->type() == KMNodeType::Bone)
        return {node};
    QList<KMNode *> nodes;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(node->item()))
        nodes << KMTreeWidget::nodeOf(row);
    return nodes;
}

/// A reference to a texture after the texture at an index went: its own become none, later ones move down.
int withoutTexture(int reference, int index)
{
    return reference == index ? -1 : reference > index ? reference - 1 : reference;
}

KMBasicShader withoutTexture(KMBasicShader values, int index)
{
    for (int &slot : values.textures)
        slot = withoutTexture(slot, index);
    return values;
}

KMBluePrintValues withoutTexture(KMBluePrintValues values, int index)
{
    values.texture = withoutTexture(values.texture, index);
    return values;
}

/// As commands of the history, where something changes.
template <class Command, class Node>
void pushWithoutTexture(Node *node, int index)
{
    const auto values = withoutTexture(node->values(), index);
    if (values != node->values())
        gSolution->push(new Command(node, values));
}

} // namespace

void KMProject::deleteNode(KMContainerNode *node)
{
    const KMUndoMacro macro(tr("Delete Node"));
    const int type = node->type();
    if (isShader(type))
        deleteShader(nodeAs<KMShaderNode>(node));
    if (isTexture(type))
        deleteTexture(nodeAs<KMTextureNode>(node));
    if (isTreeNode(type))
        deleteTreeNode(node);
    else
        deleteBlocks({node});
}

void KMProject::deleteTreeNode(KMContainerNode *node)
{
    const QList<KMNode *> subtree = nodesOfSubtree(node);
    QList<KMNode *> tagMembers;
    for (KMNode *member : subtree) {
        for (KMTagBase *tag : nodeAs<KMContainerNode>(member)->tags())
            tagMembers << tag->blockNodes();
    }
    deleteBlocks(tagMembers);
    for (KMNode *member : subtree)
        nodeAs<KMContainerNode>(member)->pushContentsDeleted();
    node->pushDeleteCommand();
    checkModifiers();
    deleteBlocks(subtree);
}

void KMProject::deleteBlocks(const QList<KMNode *> &nodes)
{
    if (!m_blocks)
        return;
    for (KMNode *node : nodes)
        m_blocks->pushDeleteBlock(node);
}

void KMProject::deleteShader(KMShaderNode *shader)
{
    const int index = shaders().indexOf(shader);
    if (index < 0)
        return;
    // Only what is in the scene: the history may let go of a deleted node before it lets go of this step.
    const QList<KMNode *> users = currentList(MeshesInTree) + currentList(PrimitivesInTree);
    for (KMNode *user : users)
        nodeAs<KMContainerNode>(user)->pushShaderRemoved(index);
    gSolution->push(new deleteShaderNodeCommand(shader));
}

void KMProject::deleteTexture(KMTextureNode *texture)
{
    const int index = textures().indexOf(texture);
    if (index < 0)
        return;
    for (KMShaderNode *shader : shaders()) { // a deleted one comes back with the indices of its own time
        if (shader->type() == KMNodeType::BasicShader)
            pushWithoutTexture<editShaderNodeCommand>(nodeAs<KMBasicShaderNode>(shader), index);
    }
    for (KMBluePrint *bluePrint : bluePrints()) {
        if (!bluePrint->isDeleted())
            pushWithoutTexture<blueprintSetParamCommand>(bluePrint, index);
    }
    gSolution->push(new deleteTextureNodeCommand(texture));
}

KMFileTextureNode *KMProject::addTextureFile(const QString &path)
{
    const QString place = KMTexturePath::place(path);
    for (KMTextureNode *texture : textures()) {
        if (texture->type() == KMNodeType::FileTexture && nodeAs<KMFileTextureNode>(texture)->path() == place)
            return nodeAs<KMFileTextureNode>(texture);
    }
    auto *texture = new KMFileTextureNode(place);
    addToScene(texture);
    return texture;
}

QList<KMNode *> &KMProject::shelfList(Shelf shelf)
{
    return m_lists[shelf == Shelf::Shaders ? Shaders : Textures];
}

void KMProject::markShelf(Shelf shelf)
{
    (shelf == Shelf::Shaders ? m_shadersTold : m_texturesTold) = false;
}

void KMProject::announceShelves()
{
    if (signalsBlocked())
        return; // who blocks them asks again at the end
    if (!std::exchange(m_shadersTold, true))
        emit shadersChanged();
    if (!std::exchange(m_texturesTold, true))
        emit texturesChanged();
}

void KMProject::attachToShelf(Shelf shelf, int index, KMContainerNode *node)
{
    QList<KMNode *> &list = shelfList(shelf);
    list.insert(index < 0 ? list.size() : index, node);
    markShelf(shelf);
}

int KMProject::detachFromShelf(Shelf shelf, KMContainerNode *node)
{
    const int index = shelfList(shelf).indexOf(node);
    shelfList(shelf).removeOne(node);
    markShelf(shelf);
    return index;
}
