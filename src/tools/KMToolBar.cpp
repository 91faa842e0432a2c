#include "tools/KMToolBar.h"

#include "core/KMSolution.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "tools/KMLaterTool.h"
#include "tools/KMToolAnimation.h"
#include "tools/KMToolBevel.h"
#include "tools/KMToolBone.h"
#include "tools/KMToolBoneWeight.h"
#include "tools/KMToolErase.h"
#include "tools/KMToolExtrude.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSRT.h"
#include "tools/KMToolSel.h"
#include "tools/KMToolUniv.h"
#include "tools/KMToolWeight.h"

#include <QAction>
#include <QApplication>
#include <QButtonGroup>
#include <QMainWindow>
#include <QMenu>

#include <memory>

namespace {

constexpr int allViews = 31;
constexpr int warning = 4;

std::unique_ptr<KMTool> makeTool(int id)
{
    switch (id) {
    case KMToolKind::Select:
        return std::make_unique<KMToolSel>();
    case KMToolKind::Erase:
        return std::make_unique<KMToolErase>();
    case KMToolKind::Move:
    case KMToolKind::Rotate:
    case KMToolKind::Scale:
    case KMToolKind::Universal:
        return std::make_unique<KMToolUniv>(id);
    case KMToolKind::SRT:
        return std::make_unique<KMToolSRT>();
    case KMToolKind::Weight:
        return std::make_unique<KMToolWeight>();
    case KMToolKind::Extrude:
        return std::make_unique<KMToolExtrude>();
    case KMToolKind::Animation:
        return std::make_unique<KMToolAnimation>();
    case KMToolKind::Bone:
        return std::make_unique<KMToolBone>();
    case KMToolKind::Bevel:
        return std::make_unique<KMToolBevel>();
    case KMToolKind::BoneWeight:
        return std::make_unique<KMToolBoneWeight>();
    default:
        return std::make_unique<KMLaterTool>(id);
    }
}

} // namespace

KMToolBar::KMToolBar(QWidget *parent)
    : KMPanelBar(QStringLiteral("KMToolBar"), tr("Tool Panel"), parent)
    , m_group(new QButtonGroup(this))
{
    toggleViewAction()->setStatusTip(tr("Show or hide the buttons of the tools"));
    connect(gSolution, &KMSolution::currentNodeChanged, this, &KMToolBar::onCurrentNodeChanged);
    connect(gSolution, &KMSolution::documentReset, this, [this] { cancelDrag(); });
    connect(qApp, &QApplication::focusChanged, this, [this](const QWidget *former) {
        if (qobject_cast<const KMOpenGLWidget *>(former))
            cancelDrag(); // a view that loses the keyboard doesn't learn how its drag ends
    });
    connect(this, &QToolBar::toolButtonStyleChanged, this, [this](Qt::ToolButtonStyle style) {
        for (KMTool *tool : std::as_const(m_tools))
            tool->setToolButtonStyle(style);
    });
}

/// Where the bar lies, which is how it runs.
void KMToolBar::addEntries(QMenu *menu)
{
    auto *window = qobject_cast<QMainWindow *>(parentWidget());
    if (!window)
        return;
    const QPair<QString, Qt::ToolBarArea> places[] = {{tr("Horizontal"), Qt::TopToolBarArea},
                                                      {tr("Vertical"), Qt::LeftToolBarArea}};
    for (const auto &place : places) {
        QAction *choice = menu->addAction(place.first, this, [=] { window->addToolBar(place.second, this); });
        choice->setStatusTip(tr("Where the tools lie in the window"));
        choice->setCheckable(true);
        choice->setChecked(window->toolBarArea(this) == place.second);
    }
    menu->addSeparator();
}

void KMToolBar::createTools()
{
    for (int id = 1; id <= KMToolKind::Last; ++id)
        addTool(makeTool(id).release());
}

void KMToolBar::addTool(KMTool *tool)
{
    tool->setup();
    m_group->addButton(tool, tool->toolId());
    connect(tool, &KMTool::toolClicked, this, &KMToolBar::onCommandChanged);
    connect(tool, &KMTool::enterEditing, this, &KMToolBar::onEnterEditing);
    addWidget(tool);
    tool->setToolButtonStyle(toolButtonStyle());
    m_tools << tool;
    emit toolAdded(tool);
}

void KMToolBar::initialize()
{
    for (KMTool *tool : std::as_const(m_tools))
        tool->initialize();
    for (KMTool *tool : std::as_const(m_tools)) {
        if (tool->isReady())
            return onCommandChanged(tool);
    }
}

void KMToolBar::finalize()
{
    if (KMTool *tool = current())
        tool->deactivate();
    gSolution->setTool(nullptr);
    for (KMTool *tool : std::as_const(m_tools))
        tool->finalize();
}

KMTool *KMToolBar::tool(int id) const
{
    return qobject_cast<KMTool *>(m_group->button(id));
}

KMTool *KMToolBar::current() const
{
    return gSolution ? dynamic_cast<KMTool *>(gSolution->tool()) : nullptr;
}

void KMToolBar::onCommandChanged(QAbstractButton *button)
{
    auto *chosen = qobject_cast<KMTool *>(button);
    KMTool *former = current();
    const bool isHeld = former && former->isEditing();
    if (!chosen || isHeld || !chosen->isReady()) {
        if (chosen && !isHeld)
            gSolution->showMessage(tr("The tool %1 isn't there yet.").arg(chosen->text()), warning);
        if (former)
            former->setChecked(true);
        return;
    }
    KMPicker::clearHot();
    chosen->setChecked(true);
    for (KMTool *tool : std::as_const(m_tools)) {
        if (tool != chosen)
            tool->deactivate();
    }
    gSolution->setTool(chosen);
    if (chosen != former)
        emit onSpeech(chosen->text());
    chosen->activate();
    emit commandChanged(chosen);
    gSolution->refreshViews(allViews);
}

void KMToolBar::cancelDrag()
{
    KMTool *tool = current();
    if (tool && tool->isEditing())
        tool->cancel();
}

void KMToolBar::onEnterEditing(bool editing)
{
    emit editingChanged(editing);
}

void KMToolBar::onCurrentNodeChanged(KMNode *node)
{
    if (KMTool *tool = current())
        tool->currentNodeChanged(node);
}
