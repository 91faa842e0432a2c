// The docks of the window: which there are, where they stand and how they start.

#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "shell/docks/KMEmptyDock.h"
#include "shell/docks/kmanimationwidget.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmbonewidget.h"
#include "shell/docks/kmcoodinatewidget.h"
#include "shell/docks/kmhistorywidget.h"
#include "shell/docks/kmmorphwidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/docks/kmoutputwidget.h"
#include "shell/docks/kmsetupwidget.h"
#include "shell/docks/kmshaderwidget.h"
#include "shell/docks/kmtexturewidget.h"
#include "shell/docks/kmtoolwidget.h"
#include "shell/kmmainwidget.h"

namespace {

constexpr Qt::DockWidgetArea Left = Qt::LeftDockWidgetArea;
constexpr Qt::DockWidgetArea Right = Qt::RightDockWidgetArea;

void floatHidden(QDockWidget *dock)
{
    dock->setFloating(true);
    dock->hide();
}

} // namespace

void kmmainwidget::addDock(KMDockWidget *dock, Qt::DockWidgetArea area)
{
    addDockWidget(area, dock);
    m_docks << dock;
    connect(dock, &QDockWidget::topLevelChanged, this, &kmmainwidget::onTopLevelChanged);
}

void kmmainwidget::createDocks()
{
    const auto empty = [](const char *objectName, const QString &title, const char *icon, const QString &purpose) {
        return new KMEmptyDock(QLatin1String(objectName), title, QLatin1String(icon), purpose);
    };
    addDock(new kmoutputwidget, Right);
    addDock(empty("kmcodeeditorwidget", tr("Code Editor"), "code", tr("Scripts are written and run here.")), Right);
    addDock(empty("kmschematicwidget", tr("Schematic"), "schematic", tr("Nodes are wired to one another here.")),
            Right);
    addDock(m_nodeDock = new kmnodewidget(gProject->tree()), Left);
    addDock(m_historyDock = new kmhistorywidget(m_undoStack), Right);
    addDock(m_boneDock = new kmbonewidget, Left);
    addDock(new kmmorphwidget, Left);
    addDock(m_toolDock = new kmtoolwidget, Right);
    addDock(m_textureDock = new kmtexturewidget, Left);
    addDock(m_shaderDock = new kmshaderwidget, Left);
    addDock(new kmcoodinatewidget, Left);
    addDock(m_attributeDock = new kmattributewidget, Right);
    addDock(new kmanimationwidget(m_playback), Left);
    addDock(new kmsetupwidget, Right);
    m_docks.last()->setAllowedAreas(Qt::NoDockWidgetArea);
}

void kmmainwidget::arrangeDocks()
{
    constexpr int width = 220;
    const int narrowest = int(180 * gSettings->dpiScale);
    const auto dock = [this](const char *objectName) {
        return findChild<KMDockWidget *>(QLatin1String(objectName), Qt::FindDirectChildrenOnly);
    };
    for (const char *objectName : {"kmoutputwidget", "kmcodeeditorwidget", "kmschematicwidget", "kmhistorywidget",
                                   "kmbonewidget", "kmmorphwidget", "kmanimationwidget", "kmsetupwidget"})
        floatHidden(dock(objectName));
    dock("kmcoodinatewidget")->hide();
    dock("kmoutputwidget")->setGeometry(0, dpiScaled(120), dpiScaled(260), dpiScaled(300));
    m_nodeDock->setMinimumWidth(narrowest);
    m_attributeDock->setMinimumWidth(narrowest);
    m_shaderDock->setMinimumHeight(1);
    tabifyDockWidget(m_textureDock, m_shaderDock);

    const int wanted = int(width * gSettings->dpiScale);
    resizeDocks({m_nodeDock, m_shaderDock, m_attributeDock}, {wanted, wanted, wanted}, Qt::Horizontal);
    resizeDocks({dock("kmcoodinatewidget")}, {dpiScaled(100)}, Qt::Vertical);
    resizeDocks({m_nodeDock, m_shaderDock}, {dpiScaled(360), dpiScaled(240)}, Qt::Vertical);
    resizeDocks({m_toolDock, m_attributeDock}, {dpiScaled(240), dpiScaled(360)}, Qt::Vertical);
}

void kmmainwidget::connectDocks()
{
    for (KMDockWidget *dock : {static_cast<KMDockWidget *>(m_nodeDock), static_cast<KMDockWidget *>(m_boneDock),
                               static_cast<KMDockWidget *>(m_textureDock), static_cast<KMDockWidget *>(m_shaderDock)})
        connect(dock, &KMDockWidget::onNodeChanged, this, &kmmainwidget::onNodeChanged);

    auto *setup = findChild<kmsetupwidget *>();
    connect(setup, &KMDockWidget::onNodeChanged, this, &kmmainwidget::onNodeChanged);
    connect(setup, &KMDockWidget::onNodeChanged, this, &kmmainwidget::repaintTrees); // they mark the selected tags

    // The morphs that are shown are those of the chosen tag, wherever one is chosen, or another in its place.
    auto *morphs = findChild<kmmorphwidget *>();
    for (KMDockWidget *dock : {static_cast<KMDockWidget *>(m_nodeDock), static_cast<KMDockWidget *>(m_boneDock),
                               static_cast<KMDockWidget *>(setup)})
        connect(dock, &KMDockWidget::onNodeChanged, morphs, &kmmorphwidget::refresh);
    for (KMTreeDock *dock : {static_cast<KMTreeDock *>(m_nodeDock), static_cast<KMTreeDock *>(m_boneDock)}) {
        connect(dock, &KMTreeDock::tagSelectionChanged, setup, &kmsetupwidget::refreshSheet);
        connect(dock, &KMTreeDock::tagSelectionChanged, morphs, &kmmorphwidget::refresh);
    }

    const auto actions = [this](const QList<const char *> &items) {
        QList<QAction *> list;
        for (const char *item : items)
            list << (item ? action(item) : nullptr);
        return list;
    };
    const QList<const char *> editActions{"actionRename", "actionDuplicate", "actionCut",
                                          "actionCopy",   "actionPaste",     "actionDelete"};
    for (KMTreeDock *dock : {static_cast<KMTreeDock *>(m_nodeDock), static_cast<KMTreeDock *>(m_boneDock)}) {
        dock->setClipboard(m_clipboard);
        dock->setTagActions(actions(editActions));
    }
    m_nodeDock->setMenuActions(actions({"actionCreateNull", "actionCreateInt", "actionCreateFloat", "actionCreateBool",
                                        nullptr, "actionRename", "actionDuplicate", "actionGroup", nullptr, "actionCut",
                                        "actionCopy", "actionPaste", "actionDelete"}));
    m_boneDock->setMenuActions(actions({"actionRename", nullptr, "actionPaste"}));
    for (KMShelfDock *shelf : {static_cast<KMShelfDock *>(m_shaderDock), static_cast<KMShelfDock *>(m_textureDock)}) {
        shelf->setClipboard(m_clipboard);
        shelf->setEditActions(actions(editActions));
    }
    m_shaderDock->setAddActions(actions({"actionCreateShader", "actionCreatePbrShader"}));
    m_textureDock->setAddActions(
        actions({"actionCreateFileTexture", "actionCreatePTexture", "actionCreateEmbeddedTexture"}));
}

/// A floating panel is a window of its own, and so it may be larger than the room beside the views.
void kmmainwidget::onTopLevelChanged(bool floating)
{
    auto *dock = qobject_cast<QDockWidget *>(sender());
    if (floating && dock && dock->isVisible())
        dock->raise();
}
