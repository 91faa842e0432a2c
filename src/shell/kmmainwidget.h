#pragma once

#include "core/KMSessionWindow.h"
#include "shell/docks/KMDockWidget.h"

#include <QList>
#include <QMainWindow>

class KMCameraNode;
class KMCameraSet;
class KMComContainer;
class KMCommandContainer;
class KMContainerNode;
class KMCustomPanel;
class KMDrawer;
class KMEnvToolBar;
class KMHelpWidget;
class KMMainBox;
class KMMessageLabel;
class KMNativeFormat;
class KMNode;
class KMNodeClipboard;
class KMOpenGLWidget;
class KMPanelBar;
class KMPlayback;
class KMSnackbar;
class KMStyle;
class KMToolBar;
class KMZenMode;
class QMimeData;
class QUndoStack;
class kmanimationpanel;
class kmattributewidget;
class kmbonewidget;
class kmhistorywidget;
class kmnodewidget;
class kmshaderwidget;
class kmtexturewidget;
class kmtoolwidget;

/// The one top-level window. It makes the session, the document and the history, and takes them down again when it
/// is closed; it has no model logic of its own: its slots open dialogues, or call the project, the session or a
/// family of commands.
///
/// What its parts are is told in tables: the docks in kmmainwidgetDocks.cpp, the actions in kmmainwidgetActions.cpp
/// and the menus in kmmainwidgetMenus.cpp; the slots stand in kmmainwidgetFile.cpp, kmmainwidgetExchange.cpp,
/// kmmainwidgetEdit.cpp, kmmainwidgetView.cpp, kmmainwidgetTools.cpp, kmmainwidgetPanels.cpp and kmmainwidgetHelp.cpp.
class kmmainwidget : public QMainWindow, public KMSessionWindow
{
    Q_OBJECT
public:
    /// gSettings stands already. The style is the application's, may be null and is not owned.
    explicit kmmainwidget(KMStyle *style, QWidget *parent = nullptr);
    ~kmmainwidget() override; ///< deletes the session's objects that are still there, gSettings included

    bool recoverBackup();   ///< the question about a backup of an abnormal end; true when nothing else is to be opened
    bool loadStartupFile(); ///< the most recent file, when the settings ask for it

    /// Makes the dialogue of the preferences, hands it to gSettings and follows what it changes. Once, after the
    /// settings have been read.
    void createPreferences();

    QUndoStack *undoStack() const { return m_undoStack; }
    KMMainBox *mainBox() const { return m_mainBox; }
    KMPanelBar *undoToolBar() const { return m_undoToolBar; }
    KMPanelBar *toolBar() const;    ///< of the tools
    KMPanelBar *envToolBar() const; ///< of what the mouse works on
    const QList<KMCustomPanel *> &customPanels() const { return m_customPanels; }
    KMZenMode *zenMode() const { return m_zen; }
    /// The views alone, or all the rest as it was before, or, where one is given, as in that state of the window.
    void setZen(bool on, const QByteArray &state = {});
    KMHelpWidget *helpWidget() const { return m_help; }
    const QList<KMDockWidget *> &docks() const { return m_docks; } ///< in the order in which they were made
    kmnodewidget *nodeDock() const { return m_nodeDock; }
    kmattributewidget *attributeDock() const { return m_attributeDock; }
    QAction *action(const char *objectName) const; ///< of the window or a command family; null for an unknown name

    /// Reads a file that was dropped on the window or named otherwise: opens a model, imports what other programs
    /// wrote, takes a picture as a texture.
    void openDroppedFile(const QString &path);

    QString documentTitle() const override;
    void setDocumentTitle(const QString &title) override;
    void addRecentFile(const QString &path) override;
    void commitOpenEditors() override;
    void refreshAttributes() override;
    void refreshSetup() override;
    void repaintTrees() override;
    void resetPanels() override;
    void showMessage(const QString &text, int level) override;
    void setProgress(const QString &text) override;
    QAction *repeatAction() const override;
    bool hasHistoryView() const override;
    QStringList historyStrings() const override;

public slots:
    void onNodeChanged(KMNode *node, int type);
    void onUndoIndexChanged(int index);
    void onPaletteChanged();
    void onPanelNameChanged(const QString &name, int index); ///< of a custom panel, 0 to 3
    void onSettingsApplied();                                ///< takes over what the preferences have changed

protected:
    void closeEvent(QCloseEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool event(QEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private slots:
    void onMenuNew();
    void onMenuOpen();
    void onMenuSave();
    void onMenuSaveAs();
    void openRecentFile();
    void onClearRecentFile();
    void onMenuProject();
    void onMenuImportKMD();
    void onMenuExportKMDVer1();
    void onMenuImportPMX();
    void onMenuExportPMX();
    void onMenuImportVMD();
    void onMenuImportVPD();
    void onMenuQuit();

    void onMenuCopy();
    void onMenuCut();
    void onMenuPaste();
    void onMenuInsertPaste();
    void onMenuMirrorPaste();
    void onMenuDuplicate();
    void onMenuGroup();
    void onMenuRename();
    void onMenuSelectionDelete();
    void onMenuPreferences();

    void onMenuCreateIntNode();
    void onMenuCreateFloatNode();
    void onMenuCreateBoolNode();
    void onMenuCreateNullNode();
    void onMenuCreateMeshNode();
    void onMenuCreateBoneNode();
    void onMenuCreateSphereNode();
    void onMenuCreateCubeNode();
    void onMenuCreateCylinderNode();
    void onMenuCreatePlaneNode();
    void onMenuCreateTorusNode();
    void onMenuCreate3DTextNode();
    void onMenuCreatePSVGNode();
    void onMenuCreateSubdivisionNode();
    void onMenuCreateSymmetryNode();
    void onMenuCreatePipeNode();
    void onMenuCreateFFDNode();
    void onMenuCreateSolidifyNode();
    void onMenuCreateClonerNode();
    void onMenuCreateBoneDeformNode();
    void onMenuCreateAnchorNode();
    void onMenuCreateShaderNode();
    void onMenuCreatePbrShaderNode();
    void onMenuCreatePTextureNode();
    void onMenuCreateEmbeddedTextureNode();
    void onMenuCreateFileTextureNode();

    void onMenuSingleView();
    void onMenuDualView();
    void onMenuQuadView();
    void onMenuCameraFront();
    void onMenuCameraBack();
    void onMenuCameraRight();
    void onMenuCameraLeft();
    void onMenuCameraTop();
    void onMenuCameraBottom();
    void onMenuCameraOrtho();
    void onMenuCameraReset();
    void onMenuCameraAutoOrtho();
    void onMenuCameraCentering();
    void onMenuShowTexture();
    void onMenuShowGrid();
    void onMenuGridSetting();
    void onCameraBoxClicked(int code); ///< of KMCameraBoxShape
    void syncViewActions();            ///< their check marks are those of the current view

    void onMenuZen();
    void onToggleDockWidgets(); ///< hides the panels that are open, or brings these back
    void onMenuPanelIndex();
    void onDrawerChosen(int entry);

    void onMenuHelpIndex();
    void onMenuOnlineManual();
    void onMenuAbout();
    void onMenuAboutQt();
    void onMenuCheckUpdate();
    void onMenuBenchMark();
    void onMenuDebug();
    void onPreMenuWidget();
    void onPreMenuToolBar();
    void onEditingChanged(bool editing); ///< a drag of a tool has begun or ended
    void onEditFilterChanged();
    void onTopLevelChanged(bool floating);

private:
    void createSession();
    void endProject();

    void createActions();
    void createUndoActions();
    void createCommands();

    void createDocks();
    void addDock(KMDockWidget *dock, Qt::DockWidgetArea area);
    void connectDocks();
    void arrangeDocks();

    void createBars();
    void createToolBars();
    void createTools();
    void createOverlays();
    void showDock(const char *objectName);
    void inform(const QString &title, const QString &text, const QString &more);
    void createStatusBar();
    void createViews();
    void centreOnCurrent(KMOpenGLWidget *view);
    void dropNodes(const QMimeData *data, const QPoint &position);
    void createMenus();
    QMenu *addMenu(const QString &title, const char *key);
    void fill(QMenu *menu, const QList<const char *> &items);
    void createFileMenu();
    void createEditMenu();
    void createCreateMenu();
    void createSelectionMenu();
    void createNodesMenu();
    const KMCameraNode *modelCamera() const; ///< null where no view shows the model
    void createFamilyMenu(const QString &title, const char *key, KMCommandContainer *family);
    void createViewMenu();
    void createWidgetMenu();
    void createPanelMenu();
    void createHelpMenu();
    void rebuildRecentMenu();
    void listActionGroup(QMenu *menu, QAction *showMenu);
    QList<QAction *> shortcutActions() const;
    void limitFocusToClicks();

    bool mayLeaveDocument(); ///< asks about changes; false when the document must stay
    void saveDocument();
    QString askOpenPath(const QString &title, const QString &filter); ///< an existing file; empty when cancelled
    QString askSavePath(const QString &title, const QString &filter,
                        const QString &addition = {});               ///< with a suffix; empty when cancelled
    void importModel(const QString &path, int mask, float scale);    ///< the mask is of KMD::Take
    void importAs(const QString &suffix, const QString &given = {}); ///< asks for the path where none is given
    void exportAs(const QString &suffix);
    void create(KMContainerNode *node);
    bool editInPanel(KMDockWidget::Edit edit); ///< false when the panel that has the focus leaves it to the nodes
    bool
    editBones(KMDockWidget::Edit edit); ///< false when no bones of the current rig are selected, or nodes are meant
    bool worksOnElements() const;       ///< the edit menu means the elements of meshes: the node panel hasn't the focus
    void updateCounts();

    KMStyle *m_style; // the application's
    QUndoStack *m_undoStack = nullptr;
    KMNativeFormat *m_format = nullptr; // the one of the program
    KMCameraSet *m_cameras = nullptr;
    KMNodeClipboard *m_clipboard = nullptr;
    KMComContainer *m_commands = nullptr;
    QList<KMCommandContainer *> m_families; // of commands on what a mesh holds, each with a menu of its own
    QList<QAction *> m_actions;             // the window's own

    QList<KMDockWidget *> m_docks;
    kmnodewidget *m_nodeDock = nullptr;
    kmbonewidget *m_boneDock = nullptr;
    kmhistorywidget *m_historyDock = nullptr;
    kmtexturewidget *m_textureDock = nullptr;
    kmshaderwidget *m_shaderDock = nullptr;
    kmattributewidget *m_attributeDock = nullptr;
    kmtoolwidget *m_toolDock = nullptr;

    KMPlayback *m_playback = nullptr;
    KMMainBox *m_mainBox = nullptr;
    KMPanelBar *m_undoToolBar = nullptr;
    KMToolBar *m_toolBar = nullptr;
    KMEnvToolBar *m_envToolBar = nullptr;
    kmanimationpanel *m_animationPanel = nullptr;
    QList<KMCustomPanel *> m_customPanels;
    KMZenMode *m_zen = nullptr;
    QList<QDockWidget *> m_hiddenDocks; ///< to be brought back together
    KMSnackbar *m_snackbar = nullptr;
    KMDrawer *m_drawer = nullptr;
    KMHelpWidget *m_help = nullptr;
    KMMessageLabel *m_messageLabel = nullptr;
    KMMessageLabel *m_progressLabel = nullptr;
    KMMessageLabel *m_countLabel = nullptr;
    QMenu *m_recentMenu = nullptr;
    QMenu *m_widgetMenu = nullptr;
    QMenu *m_panelMenu = nullptr;
    QString m_interruptedMessage; // what the message line said before the status tip of an action
};
