// The window's slots that edit the document.

#include "core/KMBasicShaderNode.h"
#include "core/KMCommand.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMValueNodeContainer.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectionDelete.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "modifiers/KMPrim3DTextNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMPrimCylinderNode.h"
#include "modifiers/KMPrimPlaneNode.h"
#include "modifiers/KMPrimSVGNode.h"
#include "modifiers/KMPrimSphereNode.h"
#include "modifiers/KMPrimTorusNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "shell/KMImageFiles.h"
#include "shell/KMMainBox.h"
#include "shell/KMMeshClipboard.h"
#include "shell/KMNodeClipboard.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmbonewidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/docks/kmshaderwidget.h"
#include "shell/docks/kmtexturewidget.h"
#include "shell/kmmainwidget.h"
#include "shell/kmpreferenceswidget.h"
#include "tools/KMBoneTargets.h"

#include <QApplication>
#include <QMenuBar>

#include <algorithm>

namespace {

/// Says that a command found no node to work on.
bool noneSelected(const QList<KMContainerNode *> &nodes)
{
    if (nodes.isEmpty())
        gSolution->showMessage(kmmainwidget::tr("Select a node first"), KMCommand::MessageLevel);
    return nodes.isEmpty();
}

/// Elements are selected that no deletion reaches. Their nodes aren't meant then.
bool areElementsSelected()
{
    const QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    const KMMeshTargets::Elements all = KMMeshTargets::Vertices | KMMeshTargets::Edges | KMMeshTargets::Faces;
    return std::any_of(meshes.cbegin(), meshes.cend(), [all](const KMMeshNode *mesh) {
        return KMMeshTargets::isEditable(*mesh) && KMMeshTargets::hasSelected(*mesh, all);
    });
}

/// Whether vertices lie on the positive side of the world's X, and none on the other.
bool isHalfAtPlusX(const KMMeshNode &mesh, float margin)
{
    const QVector<KMVertex *> &vertices = mesh.vertices();
    const auto isAt = [margin](float side) {
        return [margin, side](const KMVertex *vertex) { return vertex && vertex->pos.x * side > margin; };
    };
    return std::any_of(vertices.begin(), vertices.end(), isAt(1.0f))
           && std::none_of(vertices.begin(), vertices.end(), isAt(-1.0f));
}

} // namespace

bool kmmainwidget::editInPanel(KMDockWidget::Edit edit)
{
    const QWidget *focus = QApplication::focusWidget();
    for (KMDockWidget *dock : std::as_const(m_docks)) {
        if (dock->holds(focus))
            return dock->edit(edit);
    }
    return false;
}

bool kmmainwidget::editBones(KMDockWidget::Edit edit)
{
    const KMBoneContainer *rig = worksOnElements() ? KMBoneTargets::rigWithSelection() : nullptr;
    if (rig && rig != KMBoneTargets::container()) {
        gSolution->showMessage(tr("%1 is locked or hidden").arg(rig->name()), KMCommand::MessageLevel);
        return true;
    }
    return rig && m_boneDock->editRows(edit);
}

bool kmmainwidget::worksOnElements() const
{
    return !m_nodeDock->isAncestorOf(QApplication::focusWidget());
}

void kmmainwidget::onMenuCopy()
{
    if (editInPanel(KMDockWidget::Edit::Copy) || editBones(KMDockWidget::Edit::Copy)
        || (worksOnElements() && KMMeshClipboard::copyFaces()))
        return;
    const QList<KMContainerNode *> nodes = KMNodeEdits::selectedNodes();
    if (noneSelected(nodes))
        return;
    m_clipboard->copy(nodes);
}

void kmmainwidget::onMenuCut()
{
    commitOpenEditors();
    if (editInPanel(KMDockWidget::Edit::Cut) || editBones(KMDockWidget::Edit::Cut))
        return;
    if (worksOnElements() && KMMeshClipboard::copyFaces()) {
        KMMeshEdit::deleteSelection(KMMeshTargets::Faces);
        return;
    }
    const QList<KMContainerNode *> nodes = KMNodeEdits::selectedNodes();
    if (noneSelected(nodes))
        return;
    m_clipboard->copy(nodes);
    KMNodeEdits::remove(nodes);
}

void kmmainwidget::onMenuPaste()
{
    commitOpenEditors();
    if (KMMeshClipboard::hasFaces())
        KMMeshClipboard::pasteFaces(KMMeshPaste::Kind::Plain);
    else
        m_clipboard->paste();
}

void kmmainwidget::onMenuInsertPaste()
{
    commitOpenEditors();
    KMMeshClipboard::pasteFaces(KMMeshPaste::Kind::Insert);
}

void kmmainwidget::onMenuMirrorPaste()
{
    commitOpenEditors();
    KMMeshClipboard::pasteFaces(KMMeshPaste::Kind::Mirror);
}

void kmmainwidget::onMenuDuplicate()
{
    commitOpenEditors();
    if (editInPanel(KMDockWidget::Edit::Duplicate) || editBones(KMDockWidget::Edit::Duplicate))
        return;
    const QList<KMContainerNode *> nodes = KMNodeEdits::selectedNodes();
    if (!noneSelected(nodes))
        KMNodeEdits::duplicate(nodes);
}

void kmmainwidget::onMenuGroup()
{
    commitOpenEditors();
    const QList<KMContainerNode *> nodes = KMNodeEdits::selectedNodes();
    if (!noneSelected(nodes))
        KMNodeEdits::groupUnderNull(nodes);
}

void kmmainwidget::onMenuRename()
{
    if (editInPanel(KMDockWidget::Edit::Rename) || editBones(KMDockWidget::Edit::Rename))
        return;
    m_nodeDock->renameCurrent();
}

void kmmainwidget::onMenuSelectionDelete()
{
    commitOpenEditors();
    if (editInPanel(KMDockWidget::Edit::Delete)
        || (worksOnElements() && (KMMeshEdit::deleteSelection() || KMBoneTargets::deleteSelected())))
        return;
    if (worksOnElements() && areElementsSelected()) {
        gSolution->showMessage(
            tr("Nothing was deleted: the selected elements are of a kind that the edit filter leaves out, "
               "or belong to a primitive or a modifier"),
            KMCommand::MessageLevel);
        return;
    }
    const QList<KMContainerNode *> nodes = KMNodeEdits::selectedNodes();
    if (!noneSelected(nodes))
        KMNodeEdits::remove(nodes);
}

void kmmainwidget::createPreferences()
{
    gSettings->preferencesFactory = [](kmmainwidget *window) { return new kmpreferenceswidget(window); };
    gSettings->setMainWidget(this);
    const kmpreferenceswidget *preferences = gSettings->preferences;
    connect(preferences, &kmpreferenceswidget::panelNameChanged, this, &kmmainwidget::onPanelNameChanged);
    connect(preferences, &kmpreferenceswidget::settingsApplied, this, &kmmainwidget::onSettingsApplied);
    connect(preferences, &kmpreferenceswidget::autoSaveDue, gSolution, &KMSolution::autoSave);
}

/// What is asked for anew each time needs a repaint at most; the rest is handed on here. Theme and icon size are the
/// style's, and the dialogue has told it already.
void kmmainwidget::onSettingsApplied()
{
    setAnimated(gSettings->animateGui);
    menuBar()->setNativeMenuBar(gSettings->nativeMenu);
    m_mainBox->update();
    gSolution->refreshViews(31);
}

void kmmainwidget::onMenuPreferences()
{
    if (!gSettings->preferences)
        return;
    gSettings->preferences->show();
    gSettings->preferences->raise();
    gSettings->preferences->activateWindow();
}

/// A new row becomes current by itself; shaders and textures have no row, and are made current here.
void kmmainwidget::create(KMContainerNode *node)
{
    gProject->addNode(node);
    if (isShader(node->type()))
        gSolution->setCurrentShader(node);
    if (isTexture(node->type()))
        gSolution->setCurrentTexture(node);
    m_shaderDock->refresh();
    m_textureDock->refresh();
    m_attributeDock->showFor(node);
}

void kmmainwidget::onMenuCreateIntNode()
{
    create(new KMIntNodeContainer);
}

void kmmainwidget::onMenuCreateFloatNode()
{
    create(new KMFloatNodeContainer);
}

void kmmainwidget::onMenuCreateBoolNode()
{
    create(new KMBoolNodeContainer);
}

void kmmainwidget::onMenuCreateNullNode()
{
    create(new KMNullNode);
}

void kmmainwidget::onMenuCreateMeshNode()
{
    create(new KMMeshNode);
}

/// It comes into the current rig; the first one brings a rig along.
void kmmainwidget::onMenuCreateBoneNode()
{
    if (KMBone *bone = KMBoneEdit::createBone())
        m_attributeDock->showFor(bone);
}

void kmmainwidget::onMenuCreateSphereNode()
{
    create(new KMPrimSphereNode);
}

void kmmainwidget::onMenuCreateCubeNode()
{
    create(new KMPrimCubeNode);
}

void kmmainwidget::onMenuCreateCylinderNode()
{
    create(new KMPrimCylinderNode);
}

void kmmainwidget::onMenuCreatePlaneNode()
{
    create(new KMPrimPlaneNode);
}

void kmmainwidget::onMenuCreateTorusNode()
{
    create(new KMPrimTorusNode);
}

void kmmainwidget::onMenuCreate3DTextNode()
{
    create(new KMPrim3DTextNode);
}

void kmmainwidget::onMenuCreatePSVGNode()
{
    create(new KMPrimSVGNode);
}

void kmmainwidget::onMenuCreateSubdivisionNode()
{
    KMNodeEdits::addModifier(new KMModSdvNode);
}

/// It keeps the side of its axis: a half model on the other side would be pressed flat.
void kmmainwidget::onMenuCreateSymmetryNode()
{
    auto *symmetry = new KMModSymNode;
    const auto *mesh = static_cast<const KMMeshNode *>(KMNodeEdits::meshForModifier());
    if (mesh && isHalfAtPlusX(*mesh, symmetry->parameters().margin)) {
        KMModSymNode::Parameters parameters = symmetry->parameters();
        parameters.axis = KMModSymNode::PlusX;
        symmetry->setParameters(parameters);
    }
    KMNodeEdits::addModifier(symmetry);
}

void kmmainwidget::onMenuCreatePipeNode()
{
    KMNodeEdits::addModifier(new KMModPipeNode);
}

void kmmainwidget::onMenuCreateFFDNode()
{
    KMNodeEdits::addModifier(new KMModFFDNode);
}

void kmmainwidget::onMenuCreateSolidifyNode()
{
    KMNodeEdits::addModifier(new KMModSolidNode);
}

void kmmainwidget::onMenuCreateClonerNode()
{
    KMNodeEdits::addModifier(new KMModClonerNode);
}

void kmmainwidget::onMenuCreateBoneDeformNode()
{
    KMNodeEdits::addModifier(new KMModBoneDeformNode);
}

void kmmainwidget::onMenuCreateAnchorNode()
{
    KMNodeEdits::addModifier(new KMModAnchorNode);
}

void kmmainwidget::onMenuCreateShaderNode()
{
    create(new KMBasicShaderNode);
}

void kmmainwidget::onMenuCreatePbrShaderNode()
{
    create(new KMPbrShaderNode);
}

void kmmainwidget::onMenuCreatePTextureNode()
{
    create(new KMProcTextureNode);
}

void kmmainwidget::onMenuCreateEmbeddedTextureNode()
{
    create(new KMEmbeddedTextureNode);
}

void kmmainwidget::onMenuCreateFileTextureNode()
{
    KMFileRequest request;
    request.title = tr("Open Image");
    request.directory = gSolution->directory().absolutePath();
    request.filter = KMImageFiles::openFilter();
    request.parent = this;
    const QString path = KMPrompt::current().openFile(request);
    if (!path.isEmpty())
        create(new KMFileTextureNode(path));
}
