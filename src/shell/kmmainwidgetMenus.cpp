// The menu bar. Each menu is a list of the names of its actions; a null is a line.

#include "core/KMIcon.h"
#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMPlayback.h"
#include "shell/KMRecentFiles.h"
#include "shell/commands/KMComContainer.h"
#include "shell/commands/KMNormalComContainer.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/docks/kmbonewidget.h"
#include "shell/docks/kmmorphwidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/docks/kmsetupwidget.h"
#include "shell/kmmainwidget.h"
#include "shell/views/KMViewMenu.h"
#include "tools/KMBoneComContainer.h"
#include "tools/KMBoneWeightComContainer.h"
#include "tools/KMMorphComContainer.h"
#include "tools/KMNodeComContainer.h"
#include "tools/KMSelComContainer.h"

#include <QMenu>
#include <QMenuBar>

namespace {

constexpr const char *passing = "isPassing"; // property of entries that come and go: nothing can lean on them

/// The lasting actions of a menu and its submenus, without those that only open a submenu.
void collectActions(const QMenu *menu, QList<QAction *> &actions)
{
    for (QAction *action : menu->actions()) {
        if (action->menu())
            collectActions(action->menu(), actions);
        else if (!action->isSeparator() && !action->objectName().isEmpty() && !action->property(passing).toBool())
            actions << action;
    }
}

bool showsModel(const KMOpenGLWidget *view)
{
    return view && view->isVisible() && view->camera() && !view->camera()->isUV();
}

} // namespace

void kmmainwidget::createMenus()
{
    menuBar()->setNativeMenuBar(gSettings->nativeMenu);
    createFileMenu();
    createEditMenu();
    createCreateMenu();
    createSelectionMenu();
    createNodesMenu();
    auto *boneCommands = new KMBoneComContainer(this);
    createFamilyMenu(tr("Bone(&B)"), "Menu Bone", boneCommands);
    m_boneDock->setBoneCommands(boneCommands);
    createFamilyMenu(tr("BoneWeight(&T)"), "Menu BoneWeight", new KMBoneWeightComContainer(this));
    auto *morphs = new KMMorphComContainer(this);
    createFamilyMenu(tr("Morph(&M)"), "Menu Morph", morphs);
    findChild<kmmorphwidget *>()->setCommands(morphs);
    createFamilyMenu(tr("Normal(&L)"), "Menu Normal", new KMNormalComContainer(this));
    createWidgetMenu();
    createPanelMenu();
    createViewMenu();
    createHelpMenu();
}

QMenu *kmmainwidget::addMenu(const QString &title, const char *key)
{
    QMenu *menu = menuBar()->addMenu(title);
    menu->setObjectName(QLatin1String(key));
    m_commands->addShowMenu(key, menu);
    return menu;
}

void kmmainwidget::fill(QMenu *menu, const QList<const char *> &items)
{
    for (const char *item : items) {
        if (item)
            menu->addAction(action(item));
        else
            menu->addSeparator();
    }
}

/// Offers a menu's actions to the dialogue of the shortcuts, with the command that opens the menu in front. A
/// shortcut works from anywhere in the window only when the window has the action.
void kmmainwidget::listActionGroup(QMenu *menu, QAction *showMenu)
{
    QList<QAction *> actions{showMenu};
    collectActions(menu, actions);
    addActions(actions);
    gSettings->setActionGroup(menu->title(), actions);
}

QList<QAction *> kmmainwidget::shortcutActions() const
{
    QList<QAction *> actions;
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        for (QAction *action : group.actions) {
            if (action && !actions.contains(action))
                actions << action;
        }
    }
    return actions;
}

void kmmainwidget::createFileMenu()
{
    QMenu *menu = addMenu(tr("File(&F)"), "Menu File");
    fill(menu, {"actionNew", "actionOpen", nullptr, "actionSave", "actionSaveAs", nullptr});
    QMenu *imports = menu->addMenu(KMIcon::icon(QStringLiteral("import")), tr("Import"));
    fill(imports, {"actionImportKMD", "actionImportPMX", nullptr, "actionImportVMD", "actionImportVPD"});
    QMenu *exports = menu->addMenu(KMIcon::icon(QStringLiteral("export")), tr("Export"));
    fill(exports, {"actionExportKMDVer1", "actionExportPMX"});
    menu->addSeparator();
    m_recentMenu = menu->addMenu(KMIcon::icon(QStringLiteral("recent")), tr("Recent Files"));
    m_recentMenu->setObjectName(QStringLiteral("recentFiles"));
    rebuildRecentMenu();
    fill(menu, {nullptr, "actionProject", nullptr, "actionQuit"});
    listActionGroup(menu, action("Menu File"));
}

void kmmainwidget::rebuildRecentMenu()
{
    m_recentMenu->clear();
    const QStringList paths = KMRecentFiles::paths();
    for (int i = 0; i < paths.size(); ++i) {
        QAction *entry =
            m_recentMenu->addAction(KMRecentFiles::entryText(i + 1, paths[i]), this, &kmmainwidget::openRecentFile);
        entry->setObjectName(QStringLiteral("recentFile%1").arg(i + 1));
        entry->setProperty(passing, true);
        entry->setData(paths[i]);
        entry->setStatusTip(paths[i]);
    }
    m_recentMenu->addSeparator();
    m_recentMenu->addAction(action("actionClearRecent"));
    action("actionClearRecent")->setEnabled(!paths.isEmpty());
}

void kmmainwidget::createEditMenu()
{
    QMenu *menu = addMenu(tr("Edit(&E)"), "Menu Edit");
    fill(menu, {"actionUndo", "actionRedo", "ComDoLastCommand", nullptr, "actionCopy", "actionPaste",
                "actionInsertPaste", "actionMirrorPaste", "actionCut", "actionDuplicate", "actionGroup", "actionRename",
                "actionDelete", nullptr, "ComSelectAll", "ComUnselectAll", "ComSelectLastNode", nullptr});
    fill(menu->addMenu(tr("Show")), {"ComShowCurrentOnly", "ComShowAll", "ComHideAll"});
    fill(menu->addMenu(tr("Clean up")), {"ComDeleteCurrentNode", "ComDeleteUnusedShader", "ComDeleteUnusedTexture",
                                         "ComDeleteNull", nullptr, "ComClearBuffer"});
    fill(menu, {nullptr, "actionPreferences"});
    listActionGroup(menu, action("Menu Edit"));
}

void kmmainwidget::createCreateMenu()
{
    QMenu *menu = addMenu(tr("Create(&C)"), "Menu Create");
    fill(menu, {"actionCreateInt", "actionCreateFloat", "actionCreateBool", nullptr, "actionCreateNull",
                "actionCreateMesh", "actionCreateBone", nullptr});
    QMenu *primitives = menu->addMenu(KMIcon::icon(QStringLiteral("node-primitive")), tr("Primitive"));
    primitives->setObjectName(QStringLiteral("primitives"));
    fill(primitives, {"actionCreateSphere", "actionCreateCube", "actionCreateCylinder", "actionCreatePlane",
                      "actionCreateTorus", "actionCreate3DText", "actionCreatePSVG"});
    QMenu *modifiers = menu->addMenu(KMIcon::icon(QStringLiteral("node-modifier")), tr("Modifiers"));
    modifiers->setObjectName(QStringLiteral("modifiers"));
    fill(modifiers, {"actionCreateSubdivision", "actionCreateSymmetry", "actionCreatePipe", "actionCreateFFD",
                     "actionCreateSolidify", "actionCreateCloner", "actionCreateBoneDeform", "actionCreateAnchor"});
    fill(menu, {nullptr, "actionCreateShader", "actionCreatePbrShader", nullptr, "actionCreatePTexture",
                "actionCreateEmbeddedTexture", "actionCreateFileTexture"});
    listActionGroup(menu, action("Menu Create"));
}

/// A right click in a view opens it as well.
void kmmainwidget::createSelectionMenu()
{
    auto *family = new KMSelComContainer(this);
    m_families << family;
    QMenu *menu = addMenu(tr("Selection(&S)"), "Menu Selection");
    QMenu *conversions = menu->addMenu(tr("Convert Selection"));
    conversions->setObjectName(QStringLiteral("convertSelection"));
    conversions->addActions(family->conversions());
    menu->addSeparator();
    menu->addActions(family->edits());
    listActionGroup(menu, action("Menu Selection"));
    for (KMOpenGLWidget *view : m_mainBox->findChildren<KMOpenGLWidget *>())
        new KMViewMenu(view, menu);
}

/// The menu of a row in the tree offers those that fit its node.
void kmmainwidget::createNodesMenu()
{
    auto *family = new KMNodeComContainer(this);
    m_families << family;
    family->setCameraSource([this] { return modelCamera(); });
    m_nodeDock->setNodeCommands(family);
    QMenu *menu = addMenu(tr("Nodes(&N)"), "Menu Nodes");
    family->fill(menu);
    listActionGroup(menu, action("Menu Nodes"));
}

/// All commands of a family, in the family's order.
void kmmainwidget::createFamilyMenu(const QString &title, const char *key, KMCommandContainer *family)
{
    m_families << family;
    QMenu *menu = addMenu(title, key);
    menu->addActions(family->actions());
    listActionGroup(menu, action(key));
}

void kmmainwidget::createWidgetMenu()
{
    m_widgetMenu = addMenu(tr("Widget(&W)"), "Menu Widget");
    for (const KMDockWidget *dock : std::as_const(m_docks))
        m_widgetMenu->addAction(dock->toggleViewAction());
    m_widgetMenu->addAction(findChild<kmsetupwidget *>()->sheetAction());
    connect(m_widgetMenu, &QMenu::aboutToShow, this, &kmmainwidget::onPreMenuWidget);
    listActionGroup(m_widgetMenu, action("Menu Widget"));
}

void kmmainwidget::createViewMenu()
{
    QMenu *menu = addMenu(tr("View(&V)"), "Menu View");
    fill(menu, {"actionSingleView", "actionDualView", "actionQuadView", nullptr, "actionCameraFront",
                "actionCameraBack", "actionCameraRight", "actionCameraLeft", "actionCameraTop", "actionCameraBottom",
                "actionCameraOrtho", nullptr, "actionCameraReset", "actionAutoOrtho", "actionCentering", nullptr,
                "actionShowTexture", "actionShowGrid", "actionGridSetting"});
    QMenu *motion = menu->addMenu(KMIcon::icon(QStringLiteral("animation")), tr("Motion"));
    motion->setObjectName(QStringLiteral("motion"));
    motion->addActions(m_playback->actions());
    connect(menu, &QMenu::aboutToShow, this, &kmmainwidget::syncViewActions);
    listActionGroup(menu, action("Menu View"));
}

void kmmainwidget::createHelpMenu()
{
    QMenu *menu = addMenu(tr("Help(&H)"), "Menu Help");
    fill(menu, {"actionHelpIndex", "actionOnlineManual", nullptr, "actionAbout", "actionAboutQt", "actionCheckUpdate",
                nullptr, "actionBenchMark", "actionDebug"});
    listActionGroup(menu, action("Menu Help"));
}

/// A tab that lies behind another one counts as shown: the entry would bring it up in vain.
void kmmainwidget::onPreMenuWidget()
{
    for (KMDockWidget *dock : std::as_const(m_docks))
        dock->toggleViewAction()->setChecked(!dock->isHidden());
}

/// Through which the user looks at the model: that of the view where the mouse is, or was last before it went to a
/// menu.
const KMCameraNode *kmmainwidget::modelCamera() const
{
    const KMOpenGLContainer *views = m_mainBox->views();
    for (const KMOpenGLWidget *view : {views->hot(), views->current(), views->leadOf(views->layout())}) {
        if (showsModel(view))
            return view->camera();
    }
    return nullptr;
}
