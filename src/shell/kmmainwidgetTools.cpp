// The tools in the window: their bars, their pages and keys, and what holds still during a drag.

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "shell/KMMainBox.h"
#include "shell/docks/kmtoolwidget.h"
#include "shell/kmmainwidget.h"
#include "shell/toolpages/KMBevelPage.h"
#include "shell/toolpages/KMBoneToolPage.h"
#include "shell/toolpages/KMBoneWeightPage.h"
#include "shell/toolpages/KMExtrudePage.h"
#include "shell/toolpages/KMSelPage.h"
#include "shell/toolpages/KMUnivPage.h"
#include "shell/toolpages/KMWeightPage.h"
#include "tools/KMEnvToolBar.h"
#include "tools/KMTool.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolBevel.h"
#include "tools/KMToolBone.h"
#include "tools/KMToolBoneWeight.h"
#include "tools/KMToolExtrude.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSel.h"
#include "tools/KMToolUniv.h"
#include "tools/KMToolWeight.h"

#include <QAction>
#include <QPointer>

namespace {

constexpr int everything = 31; // of KMOpenGLContainer::repaint()

QWidget *makePage(KMTool *tool)
{
    switch (tool->toolId()) {
    case KMToolKind::Select:
        return new KMSelPage(static_cast<KMToolSel *>(tool));
    case KMToolKind::Move:
    case KMToolKind::Rotate:
    case KMToolKind::Scale:
    case KMToolKind::Universal:
    case KMToolKind::SRT:
    case KMToolKind::Animation:
        return new KMUnivPage(static_cast<KMToolUniv *>(tool));
    case KMToolKind::Weight:
        return new KMWeightPage(static_cast<KMToolWeight *>(tool));
    case KMToolKind::Extrude:
        return new KMExtrudePage(static_cast<KMToolExtrude *>(tool));
    case KMToolKind::Bone:
        return new KMBoneToolPage(static_cast<KMToolBone *>(tool));
    case KMToolKind::Bevel:
        return new KMBevelPage(static_cast<KMToolBevel *>(tool));
    case KMToolKind::BoneWeight:
        return new KMBoneWeightPage(static_cast<KMToolBoneWeight *>(tool));
    default:
        return nullptr;
    }
}

/// Actions that are silent for a while.
class BlockedActions
{
public:
    void block(const QList<QAction *> &actions)
    {
        for (QAction *action : actions) {
            action->blockSignals(true);
            m_actions << action;
        }
    }
    void release()
    {
        for (const QPointer<QAction> &action : std::as_const(m_actions)) {
            if (action)
                action->blockSignals(false);
        }
        m_actions.clear();
    }

private:
    QList<QPointer<QAction>> m_actions;
};

} // namespace

KMPanelBar *kmmainwidget::toolBar() const
{
    return m_toolBar;
}

KMPanelBar *kmmainwidget::envToolBar() const
{
    return m_envToolBar;
}

void kmmainwidget::createToolBars()
{
    m_toolBar = new KMToolBar(this);
    m_envToolBar = new KMEnvToolBar(this);
    addToolBar(m_toolBar);
    addToolBar(m_envToolBar);
    connect(m_toolBar, &KMToolBar::commandChanged, m_toolDock, &kmtoolwidget::showTool);
    connect(m_toolBar, &KMToolBar::editingChanged, this, &kmmainwidget::onEditingChanged);
    // At the end of a drag the list of actions may be another than at its start.
    connect(m_toolBar, &KMToolBar::editingChanged, this, [this, blocked = BlockedActions()](bool editing) mutable {
        if (editing)
            blocked.block(shortcutActions());
        else
            blocked.release();
    });
    connect(m_toolBar, &KMToolBar::onSpeech, gSolution, &KMSolution::speech);
    connect(m_envToolBar, &KMEnvToolBar::onEditFilterChanged, this, &kmmainwidget::onEditFilterChanged);
}

/// After the views, which the tools draw into.
void kmmainwidget::createTools()
{
    m_toolBar->createTools();
    QList<QAction *> actions;
    for (KMTool *tool : m_toolBar->tools()) {
        m_toolDock->addPage(tool, makePage(tool));
        actions << tool->action();
    }
    addActions(actions);
    gSettings->setActionGroup(tr("Tools"), actions);
    QList<QAction *> choices = m_envToolBar->actions();
    choices.erase(std::remove_if(choices.begin(), choices.end(), [](QAction *action) { return action->isSeparator(); }),
                  choices.end());
    addActions(choices);
    gSettings->setActionGroup(tr("Operation Panel"), choices);
    m_mainBox->views()->setToolSource([this](int id) { return m_toolBar->tool(id); });
    m_toolBar->initialize();
    // A click on a row makes it current before it chooses it. Queued, as the nodes are to know of the choice by then.
    const auto refreshTool = [this] {
        KMTool *tool = gProject && !gProject->isDestroying() ? m_toolBar->current() : nullptr;
        if (tool && !tool->isEditing())
            tool->refresh();
    };
    connect(gProject->tree(), &QTreeWidget::itemSelectionChanged, this, refreshTool, Qt::QueuedConnection);
}

/// A key or a menu in mid-drag would change what the drag works on.
void kmmainwidget::onEditingChanged(bool editing)
{
    for (KMDockWidget *dock : std::as_const(m_docks))
        dock->blockSignals(editing);
}

void kmmainwidget::onEditFilterChanged()
{
    if (KMTool *tool = m_toolBar->current())
        tool->refresh();
    m_mainBox->views()->repaint(everything);
}
