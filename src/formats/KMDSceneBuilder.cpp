#include "formats/KMDSceneBuilder.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMBluePrint.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "formats/KMDContents.h"
#include "formats/KMLoadingGuard.h"
#include "rig/KMBone.h"

#include <QDebug>

namespace {

void showBoxes(QTreeWidgetItem *row, const KMContainerNode *node)
{
    row->setCheckState(KMTreeWidget::VisibleColumn, node->isVisible() ? Qt::Checked : Qt::Unchecked);
    row->setCheckState(KMTreeWidget::LockColumn, node->isLocked() ? Qt::Checked : Qt::Unchecked);
}

/// Where the project has the first texture of each file.
QHash<QString, int> placesOfPaths()
{
    QHash<QString, int> places;
    const KMNodeListView<KMTextureNode> textures = gProject->textures();
    for (int i = textures.size() - 1; i >= 0; --i) {
        if (textures.at(i)->type() == KMNodeType::FileTexture)
            places.insert(nodeAs<KMFileTextureNode>(textures.at(i))->path(), i);
    }
    return places;
}

/// Null for a kind that this program doesn't have.
KMTextureNode *makeTexture(const KMDTextureRecord &record)
{
    if (record.type == KMNodeType::FileTexture)
        return new KMFileTextureNode(record.path);
    if (record.type == KMNodeType::ProcTexture)
        return new KMProcTextureNode;
    if (record.type != KMNodeType::EmbeddedTexture)
        return nullptr;
    auto *embedded = new KMEmbeddedTextureNode;
    embedded->setEncodedImage(record.png);
    return embedded;
}

} // namespace

KMDSceneBuilder::KMDSceneBuilder(KMDContents &contents, const KMDReader::Options &options)
    : m_contents(contents)
    , m_options(options)
{
}

void KMDSceneBuilder::build()
{
    addQuietly();
    // Emptying the history has cleared what is current, so that comes last, and the panels hear of it.
    restoreCurrent();
}

void KMDSceneBuilder::addQuietly()
{
    const KMLoadingGuard guard;
    addEverything();
    gSolution->clearHistory();
    KMLoadingGuard::selectNothing();
}

void KMDSceneBuilder::addEverything()
{
    const KMUndoMacro macro(tr("Load kmd"));
    if (takesAll())
        applyProject();
    applyViewState();
    addTextures();
    addShaders();
    addNodes();
    KMDDisplayBlock::build(m_contents);
    restoreRows();
    gProject->checkModifiers();
    qDebug() << "textures" << m_contents.textures.size() << "shaders" << m_contents.shaders.size() << "nodes"
             << m_nodes.size();
}

void KMDSceneBuilder::applyProject()
{
    gProject->setName(m_contents.name);
    gProject->setInformation(m_contents.information);
    for (int i = 0; i < int(m_contents.textInfo.size()); ++i)
        gProject->setTextInfo(i + 1, m_contents.textInfo[size_t(i)]);
    gSolution->setBackgroundColor(m_contents.background);
    gSolution->setLightAngles(m_contents.lightAngles);
}

void KMDSceneBuilder::applyViewState()
{
    KMDViewParts *parts = m_options.viewParts;
    if (m_options.mask & KMD::TakeViewState) {
        gSolution->setFogDistance(m_contents.fogDistance);
        gSolution->setViewFlags(m_contents.viewFlags);
        gSolution->setNodeFilterOn(m_contents.nodeFilterOn);
        gSolution->setDisplayMask(m_contents.displayMask);
        if (parts)
            parts->takeViewSettings(m_contents.views);
    }
    if ((m_options.mask & KMD::TakeCameras) && parts) {
        for (const KMDCamera &camera : std::as_const(m_contents.cameras))
            parts->takeCamera(camera);
    }
}

void KMDSceneBuilder::addTextures()
{
    QHash<QString, int> places = placesOfPaths(); // as KMProject::addTextureFile shares paths, but without its search
    for (const KMDTextureRecord &record : m_contents.textures) {
        const bool isFile = record.type == KMNodeType::FileTexture;
        int place = isFile ? places.value(record.path, -1) : -1;
        if (KMTextureNode *made = place < 0 ? makeTexture(record) : nullptr) {
            gProject->addToScene(made, KMProject::Naming::Keep);
            place = gProject->textures().size() - 1;
            if (isFile)
                places.insert(record.path, place);
        }
        KMTextureNode *texture = gProject->textures().value(place);
        if (texture)
            texture->setName(record.name);
        m_textureIndices << place;
        m_byId.insert(record.id, texture);
    }
}

/// An index beyond the textures of the file stays as it is.
int KMDSceneBuilder::redirected(int texture) const
{
    return m_textureIndices.value(texture, texture);
}

void KMDSceneBuilder::addShaders()
{
    for (KMDShaderRecord &record : m_contents.shaders) {
        KMShaderNode *shader = record.node.release();
        if (shader->type() == KMNodeType::BasicShader) {
            KMBasicShader values = nodeAs<KMBasicShaderNode>(shader)->values();
            for (int &slot : values.textures)
                slot = redirected(slot);
            nodeAs<KMBasicShaderNode>(shader)->setValues(values);
        }
        gProject->addToScene(shader, KMProject::Naming::Keep);
        m_byId.insert(record.id, shader);
    }
}

void KMDSceneBuilder::addNodes()
{
    m_nodes.reserve(int(m_contents.nodes.size()));
    gProject->rebuildDerivedLists(); // stale from here on: the rows move about behind the back of the lists
    for (KMDNodeRecord &record : m_contents.nodes) {
        KMContainerNode *node = record.node.release();
        if (node->type() == KMNodeType::BluePrint) {
            KMBluePrintValues values = nodeAs<KMBluePrint>(node)->values();
            values.texture = redirected(values.texture);
            nodeAs<KMBluePrint>(node)->setValues(values);
        }
        gProject->addToScene(node, KMProject::Naming::Keep);
        placeRow(node->item(), record);
        m_nodes << node;
        m_byId.insert(record.id, node);
    }
    gProject->rebuildDerivedLists();
}

/// A new row stands last at the top. It is moved without a command: the history is emptied anyway.
void KMDSceneBuilder::placeRow(QTreeWidgetItem *row, const KMDNodeRecord &record)
{
    if (!row || record.parent < 0)
        return;
    KMTreeWidget *tree = gProject->tree();
    tree->takeTopLevelItem(tree->topLevelItemCount() - 1);
    m_nodes[record.parent]->item()->addChild(row);
}

void KMDSceneBuilder::restoreRows()
{
    for (int i = 0; i < m_nodes.size(); ++i) {
        QTreeWidgetItem *row = m_nodes[i]->item();
        if (!row)
            continue;
        showBoxes(row, m_nodes[i]);
        row->setExpanded(m_contents.nodes[size_t(i)].expanded);
    }
}

/// What an id of the file stands for, when it is of that family; a damaged file may name anything.
KMContainerNode *KMDSceneBuilder::nodeOfFamily(quint64 id, KMNodeType::Flag family) const
{
    KMContainerNode *node = id ? m_byId.value(id) : nullptr;
    return node && (node->type() & family) ? node : nullptr;
}

void KMDSceneBuilder::restoreCurrent()
{
    if (KMContainerNode *current = nodeOfFamily(m_contents.currentNode, KMNodeType::TreeFlag)) {
        gProject->tree()->setCurrentItem(current->item());
        current->setSelected(true);
        gSolution->setCurrentNode(current);
    }
    if (!takesAll())
        return;
    gSolution->setCurrentShader(nodeOfFamily(m_contents.currentShader, KMNodeType::ShaderFlag));
    gSolution->setCurrentTexture(nodeOfFamily(m_contents.currentTexture, KMNodeType::TextureFlag));
    KMNode *bone = m_contents.objects.value(m_contents.currentBone);
    if (m_contents.currentBone == 0 || !bone || bone->type() != KMNodeType::Bone)
        return;
    nodeAs<KMBone>(bone)->setSelectMask(KMBone::BothSelected);
    gSolution->setCurrentBone(bone);
}
