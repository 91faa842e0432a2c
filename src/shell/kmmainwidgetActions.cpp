// The window's own actions. What belongs to a family of commands stands in its container.

#include "core/KMIcon.h"
#include "shell/commands/KMComContainer.h"
#include "shell/kmmainwidget.h"

#include <QAction>
#include <QUndoStack>

void kmmainwidget::createActions()
{
    struct Row
    {
        const char *objectName;
        const char *text;
        const char *icon;
        const char *keys;
        void (kmmainwidget::*slot)();
        const char *tip;
    };
    using W = kmmainwidget;
    static constexpr Row rows[] = {
        {"actionNew", QT_TR_NOOP("New"), "new", "Ctrl+N", &W::onMenuNew, QT_TR_NOOP("Start an empty document")},
        {"actionOpen", QT_TR_NOOP("Open..."), "open", "Ctrl+O", &W::onMenuOpen, QT_TR_NOOP("Open a model file")},
        {"actionSave", QT_TR_NOOP("Save"), "save", "Ctrl+S", &W::onMenuSave, QT_TR_NOOP("Save the document")},
        {"actionSaveAs", QT_TR_NOOP("Save as"), "save-as", "Ctrl+Shift+S", &W::onMenuSaveAs,
         QT_TR_NOOP("Save the document under another name")},
        {"actionProject", QT_TR_NOOP("Project..."), "project", "", &W::onMenuProject,
         QT_TR_NOOP("Edit the name and the texts of the project")},
        {"actionImportKMD", QT_TR_NOOP("kelmo Model File..."), "", "", &W::onMenuImportKMD,
         QT_TR_NOOP("Add what a model file holds to the document; this ends the history")},
        {"actionExportKMDVer1", QT_TR_NOOP("KELMO ver1 compatibility..."), "", "", &W::onMenuExportKMDVer1,
         QT_TR_NOOP("Write the document in the form of the first release")},
        {"actionImportPMX", QT_TR_NOOP("MMD Extend Model File..."), "", "", &W::onMenuImportPMX,
         QT_TR_NOOP("Add a PMX model to the document")},
        {"actionExportPMX", QT_TR_NOOP("MMD Extend Model File..."), "", "", &W::onMenuExportPMX,
         QT_TR_NOOP("Write the document as a PMX model")},
        {"actionImportVMD", QT_TR_NOOP("MMD Motion Data..."), "", "", &W::onMenuImportVMD,
         QT_TR_NOOP("Move the bones by a motion, in place of the keys that they have")},
        {"actionImportVPD", QT_TR_NOOP("MMD Pose Data..."), "", "", &W::onMenuImportVPD,
         QT_TR_NOOP("Pose the bones by a file, with keys at the current frame")},
        {"actionQuit", QT_TR_NOOP("Quit"), "quit", "Ctrl+Q", &W::onMenuQuit, QT_TR_NOOP("Close the program")},
        {"actionClearRecent", QT_TR_NOOP("Clear"), "", "", &W::onClearRecentFile,
         QT_TR_NOOP("Forget the files that were opened last")},

        {"actionCut", QT_TR_NOOP("Cut"), "cut", "Ctrl+X", &W::onMenuCut,
         QT_TR_NOOP("Copy the selected faces or nodes and delete them")},
        {"actionCopy", QT_TR_NOOP("Copy"), "copy", "Ctrl+C", &W::onMenuCopy,
         QT_TR_NOOP("Copy the selected faces, or the selected nodes")},
        {"actionPaste", QT_TR_NOOP("Paste"), "paste", "Ctrl+V", &W::onMenuPaste,
         QT_TR_NOOP("Insert the copied faces or nodes")},
        {"actionInsertPaste", QT_TR_NOOP("Insert Paste"), "insert-paste", "Ctrl+Shift+V", &W::onMenuInsertPaste,
         QT_TR_NOOP("Insert the copied faces and join them to vertices at the same place")},
        {"actionMirrorPaste", QT_TR_NOOP("Mirror Paste"), "mirror-paste", "Ctrl+Alt+V", &W::onMenuMirrorPaste,
         QT_TR_NOOP("Insert the copied faces on the other side of the symmetry plane")},
        {"actionDuplicate", QT_TR_NOOP("Duplicate"), "", "Ctrl+D", &W::onMenuDuplicate,
         QT_TR_NOOP("Put a copy behind each selected node")},
        {"actionGroup", QT_TR_NOOP("Group under Null"), "node-null", "Ctrl+G", &W::onMenuGroup,
         QT_TR_NOOP("Put the selected nodes under a new null")},
        {"actionRename", QT_TR_NOOP("Rename"), "edit45", "F2", &W::onMenuRename, QT_TR_NOOP("Rename the current node")},
        {"actionDelete", QT_TR_NOOP("Delete"), "delete", "Del", &W::onMenuSelectionDelete,
         QT_TR_NOOP("Delete the selected elements, or the selected nodes")},
        {"actionPreferences", QT_TR_NOOP("Preferences"), "preferences", "Ctrl+,", &W::onMenuPreferences,
         QT_TR_NOOP("Settings, colors and shortcuts")},

        {"actionCreateInt", QT_TR_NOOP("Int"), "node-int", "", &W::onMenuCreateIntNode,
         QT_TR_NOOP("Add a whole number")},
        {"actionCreateFloat", QT_TR_NOOP("Float"), "node-float", "", &W::onMenuCreateFloatNode,
         QT_TR_NOOP("Add a number")},
        {"actionCreateBool", QT_TR_NOOP("Bool"), "node-bool", "", &W::onMenuCreateBoolNode, QT_TR_NOOP("Add a switch")},
        {"actionCreateNull", QT_TR_NOOP("Null"), "node-null", "", &W::onMenuCreateNullNode,
         QT_TR_NOOP("Add a null, which groups other nodes")},
        {"actionCreateMesh", QT_TR_NOOP("Mesh"), "node-mesh", "", &W::onMenuCreateMeshNode,
         QT_TR_NOOP("Add an empty mesh")},
        {"actionCreateBone", QT_TR_NOOP("Bone"), "node-bone", "", &W::onMenuCreateBoneNode,
         QT_TR_NOOP("Add a bone that goes on from the selected one")},
        {"actionCreateSphere", QT_TR_NOOP("Sphere"), "sphere", "", &W::onMenuCreateSphereNode,
         QT_TR_NOOP("Add a sphere")},
        {"actionCreateCube", QT_TR_NOOP("Cube"), "cube", "", &W::onMenuCreateCubeNode, QT_TR_NOOP("Add a cube")},
        {"actionCreateCylinder", QT_TR_NOOP("Cylinder"), "cylinder", "", &W::onMenuCreateCylinderNode,
         QT_TR_NOOP("Add a cylinder")},
        {"actionCreatePlane", QT_TR_NOOP("Plane"), "plane", "", &W::onMenuCreatePlaneNode, QT_TR_NOOP("Add a plane")},
        {"actionCreateTorus", QT_TR_NOOP("Torus"), "torus", "", &W::onMenuCreateTorusNode, QT_TR_NOOP("Add a torus")},
        {"actionCreate3DText", QT_TR_NOOP("3DText"), "text3d", "", &W::onMenuCreate3DTextNode,
         QT_TR_NOOP("Add a text as a body")},
        {"actionCreatePSVG", QT_TR_NOOP("SVG"), "svg", "", &W::onMenuCreatePSVGNode,
         QT_TR_NOOP("Add the shapes of an SVG drawing")},
        {"actionCreateSubdivision", QT_TR_NOOP("Subdivision"), "subdivision", "", &W::onMenuCreateSubdivisionNode,
         QT_TR_NOOP("Put a smooth surface over the mesh")},
        {"actionCreateSymmetry", QT_TR_NOOP("Symmetry"), "symmetry", "", &W::onMenuCreateSymmetryNode,
         QT_TR_NOOP("Join the mesh with its mirror image")},
        {"actionCreatePipe", QT_TR_NOOP("Pipe"), "pipe", "", &W::onMenuCreatePipeNode,
         QT_TR_NOOP("Make tubes of the lines of the mesh")},
        {"actionCreateFFD", QT_TR_NOOP("FFD"), "ffd", "", &W::onMenuCreateFFDNode,
         QT_TR_NOOP("Bend the mesh by the points of a lattice")},
        {"actionCreateSolidify", QT_TR_NOOP("Solidify"), "solidify", "", &W::onMenuCreateSolidifyNode,
         QT_TR_NOOP("Give the surface of the mesh a thickness")},
        {"actionCreateCloner", QT_TR_NOOP("Cloner"), "cloner", "", &W::onMenuCreateClonerNode,
         QT_TR_NOOP("Repeat the mesh in steps")},
        {"actionCreateBoneDeform", QT_TR_NOOP("BoneDeform"), "bone-deform", "", &W::onMenuCreateBoneDeformNode,
         QT_TR_NOOP("Let the bones that the mesh is weighted to move it")},
        {"actionCreateAnchor", QT_TR_NOOP("Anchor"), "anchor", "", &W::onMenuCreateAnchorNode,
         QT_TR_NOOP("Weigh the mesh by coarse boxes around the bones")},
        {"actionCreateShader", QT_TR_NOOP("Shader"), "node-shader", "", &W::onMenuCreateShaderNode,
         QT_TR_NOOP("Add a basic shader")},
        {"actionCreatePbrShader", QT_TR_NOOP("PbrShader"), "node-shader", "", &W::onMenuCreatePbrShaderNode,
         QT_TR_NOOP("Add a physically based shader")},
        {"actionCreatePTexture", QT_TR_NOOP("PTexture"), "node-texture", "", &W::onMenuCreatePTextureNode,
         QT_TR_NOOP("Add a texture that the program computes")},
        {"actionCreateEmbeddedTexture", QT_TR_NOOP("EmbeddedTexture"), "node-texture", "",
         &W::onMenuCreateEmbeddedTextureNode, QT_TR_NOOP("Add a texture that lies in the document")},
        {"actionCreateFileTexture", QT_TR_NOOP("Texture File..."), "node-texture", "", &W::onMenuCreateFileTextureNode,
         QT_TR_NOOP("Add a texture from a picture file")},

        {"actionSingleView", QT_TR_NOOP("Single View"), "", "F5", &W::onMenuSingleView,
         QT_TR_NOOP("Show one view, in perspective")},
        {"actionDualView", QT_TR_NOOP("Dual View"), "", "F6", &W::onMenuDualView,
         QT_TR_NOOP("Show the plane of the texture beside the view in perspective")},
        {"actionQuadView", QT_TR_NOOP("Quad View"), "", "F7", &W::onMenuQuadView,
         QT_TR_NOOP("Show the views from above, from the front and from the right beside the one in perspective")},
        {"actionCameraFront", QT_TR_NOOP("Front"), "", "1", &W::onMenuCameraFront,
         QT_TR_NOOP("Turn the view in perspective to the front of the model")},
        {"actionCameraBack", QT_TR_NOOP("Back"), "", "2", &W::onMenuCameraBack,
         QT_TR_NOOP("Turn the view in perspective to the back of the model")},
        {"actionCameraRight", QT_TR_NOOP("Right"), "", "3", &W::onMenuCameraRight,
         QT_TR_NOOP("Turn the view in perspective to the right side")},
        {"actionCameraLeft", QT_TR_NOOP("Left"), "", "4", &W::onMenuCameraLeft,
         QT_TR_NOOP("Turn the view in perspective to the left side")},
        {"actionCameraTop", QT_TR_NOOP("Top"), "", "5", &W::onMenuCameraTop,
         QT_TR_NOOP("Turn the view in perspective to look down on the model")},
        {"actionCameraBottom", QT_TR_NOOP("Bottom"), "", "6", &W::onMenuCameraBottom,
         QT_TR_NOOP("Turn the view in perspective to look up at the model")},
        {"actionCameraOrtho", QT_TR_NOOP("Ortho / Opposite Side"), "", "7", &W::onMenuCameraOrtho,
         QT_TR_NOOP("Switch the current view between perspective and orthographic, a fixed one to the other side")},
        {"actionCameraReset", QT_TR_NOOP("Reset Camera"), "", "Ctrl+Home", &W::onMenuCameraReset,
         QT_TR_NOOP("Bring the camera of the current view back to where it was at first")},
        {"actionAutoOrtho", QT_TR_NOOP("Auto Ortho"), "", "", &W::onMenuCameraAutoOrtho,
         QT_TR_NOOP("Become orthographic whenever the view is turned to a standard direction")},
        {"actionCentering", QT_TR_NOOP("Centering"), "", ".", &W::onMenuCameraCentering,
         QT_TR_NOOP("Center Window: bring the selection, or the current node, to the middle of the view")},
        {"actionShowTexture", QT_TR_NOOP("Show Texture"), "", "", &W::onMenuShowTexture,
         QT_TR_NOOP("Draw the model with its textures")},
        {"actionShowGrid", QT_TR_NOOP("Show Grid"), "", "", &W::onMenuShowGrid,
         QT_TR_NOOP("Show or hide the grid of the current view")},
        {"actionGridSetting", QT_TR_NOOP("Grid Setting"), "", "", &W::onMenuGridSetting,
         QT_TR_NOOP("Say how many cells the grid has and how large they are")},

        {"actionZen", QT_TR_NOOP("Zen Mode"), "", "F11", &W::onMenuZen,
         QT_TR_NOOP("Show the views alone, and all the rest again as it was")},
        {"actionToggleDocks", QT_TR_NOOP("Toggle Dock Widgets"), "", "", &W::onToggleDockWidgets,
         QT_TR_NOOP("Hide all panels, or bring those back that were hidden together")},
        {"actionPanelIndex", QT_TR_NOOP("Panel Index"), "", "F9", &W::onMenuPanelIndex,
         QT_TR_NOOP("Fold out a list of panels and bring one of them up")},

        {"actionHelpIndex", QT_TR_NOOP("Keys and Mouse"), "help", "F1", &W::onMenuHelpIndex,
         QT_TR_NOOP("What the keys and the mouse do")},
        {"actionOnlineManual", QT_TR_NOOP("Online Manual"), "earth", "", &W::onMenuOnlineManual,
         QT_TR_NOOP("Open the manual in the browser")},
        {"actionCheckUpdate", QT_TR_NOOP("Check Update"), "", "", &W::onMenuCheckUpdate,
         QT_TR_NOOP("Look in the browser whether there is a newer version")},
        {"actionBenchMark", QT_TR_NOOP("BenchMark"), "", "", &W::onMenuBenchMark,
         QT_TR_NOOP("Measure how fast a scene of known size is drawn")},
        {"actionDebug", QT_TR_NOOP("Debug"), "", "", &W::onMenuDebug,
         QT_TR_NOOP("Write to the output what a report of a fault should say about this program and machine")},
        {"actionAbout", QT_TR_NOOP("About"), "about", "", &W::onMenuAbout, QT_TR_NOOP("What this program is")},
        {"actionAboutQt", QT_TR_NOOP("About Qt"), "info", "", &W::onMenuAboutQt, QT_TR_NOOP("About the toolkit Qt")},
    };
    for (const Row &row : rows) {
        auto *made = new QAction(KMIcon::icon(QLatin1String(row.icon)), tr(row.text), this);
        made->setObjectName(QLatin1String(row.objectName));
        made->setShortcut(QKeySequence(QLatin1String(row.keys), QKeySequence::PortableText));
        made->setStatusTip(tr(row.tip));
        connect(made, &QAction::triggered, this, row.slot);
        m_actions << made;
    }
    for (const char *toggle : {"actionSingleView", "actionDualView", "actionQuadView", "actionAutoOrtho",
                               "actionShowTexture", "actionShowGrid", "actionZen"})
        action(toggle)->setCheckable(true);
    action("actionQuit")->setMenuRole(QAction::QuitRole);
    action("actionAbout")->setMenuRole(QAction::AboutRole);
    action("actionAboutQt")->setMenuRole(QAction::AboutQtRole);
    action("actionPreferences")->setMenuRole(QAction::PreferencesRole);
}

/// The stack keeps their texts, "Undo Add Node", and whether there is anything to undo.
void kmmainwidget::createUndoActions()
{
    QAction *undo = m_undoStack->createUndoAction(this, tr("Undo"));
    undo->setObjectName(QStringLiteral("actionUndo"));
    undo->setIcon(KMIcon::icon(QStringLiteral("undo")));
    undo->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Z));
    undo->setStatusTip(tr("Take the last step back"));
    QAction *redo = m_undoStack->createRedoAction(this, tr("Redo"));
    redo->setObjectName(QStringLiteral("actionRedo"));
    redo->setIcon(KMIcon::icon(QStringLiteral("redo")));
    redo->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Z));
    redo->setStatusTip(tr("Do the step again that was taken back"));
    m_actions << undo << redo;
}

void kmmainwidget::createCommands()
{
    m_commands = new KMComContainer(this);
    m_commands->command(QStringLiteral("ComDoLastCommand"))->setShortcut(QKeySequence(Qt::Key_F4));
    m_commands->command(QStringLiteral("ComSelectAll"))->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_A));
    m_commands->command(QStringLiteral("ComUnselectAll"))->setShortcut(QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_A));
}

QAction *kmmainwidget::action(const char *objectName) const
{
    const QLatin1String name(objectName);
    for (QAction *known : m_actions) {
        if (known->objectName() == name)
            return known;
    }
    for (const KMCommandContainer *family : m_families) {
        if (QAction *known = family->command(name))
            return known;
    }
    return m_commands ? m_commands->command(name) : nullptr;
}
