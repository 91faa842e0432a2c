// The window's slots around the views: layouts, cameras, grid, and what is dropped on a view.

#include "core/KMCommand.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "render/KMCameraBoxShape.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "render/KMGridNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMViewAnimation.h"
#include "render/KMViewFilter.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"
#include "shell/views/KMViewBar.h"
#include "shell/views/KMViewDrop.h"
#include "shell/views/kmgriddialog.h"

#include <QAction>

namespace {

constexpr int everything = 31; // of KMOpenGLContainer::repaint()

struct LayoutAction
{
    int layout;
    const char *action;
};

constexpr LayoutAction layoutActions[] = {{KMOpenGLContainer::Single, "actionSingleView"},
                                          {KMOpenGLContainer::Dual, "actionDualView"},
                                          {KMOpenGLContainer::Quad, "actionQuadView"}};

KMViewAnimation::Repaint repaintOf(KMOpenGLWidget *view)
{
    return [view] { view->repaint(); };
}

} // namespace

void kmmainwidget::createViews()
{
    m_mainBox = new KMMainBox;
    setCentralWidget(m_mainBox);
    KMOpenGLContainer *views = m_mainBox->views();
    gSolution->setViews(views);
    KMViewFilter::reset();
    m_cameras->setThumbnailSource([views] {
        // After a fault nothing may be drawn any more, and the window takes no updates.
        KMOpenGLWidget *view = views->current();
        return view && view->updatesEnabled() ? view->grabFramebuffer() : QImage();
    });
    connect(views, &KMOpenGLContainer::cameraBoxClicked, this, &kmmainwidget::onCameraBoxClicked);
    connect(views, &KMOpenGLContainer::currentChanged, this, &kmmainwidget::syncViewActions);
    const auto repaintAll = [views] { views->repaint(everything); }; // what is current or chosen looks different
    connect(gSolution, &KMSolution::currentNodeChanged, views, repaintAll);
    connect(gProject->tree(), &QTreeWidget::itemSelectionChanged, views, repaintAll);
    connect(m_mainBox, &KMMainBox::viewModeChanged, this, &kmmainwidget::syncViewActions);
    m_mainBox->bar()->setCameraActions({action("actionCameraFront"), action("actionCameraBack"),
                                        action("actionCameraRight"), action("actionCameraLeft"),
                                        action("actionCameraTop"), action("actionCameraBottom"), nullptr,
                                        action("actionCameraOrtho"), action("actionAutoOrtho"), nullptr,
                                        action("actionCameraReset"), action("actionCentering")});
    m_mainBox->bar()->setViewActions({action("actionSingleView"), action("actionDualView"), action("actionQuadView"),
                                      nullptr, action("actionShowGrid"), action("actionGridSetting")});
    views->refreshViews(everything);
}

void kmmainwidget::syncViewActions()
{
    for (const LayoutAction &row : layoutActions)
        action(row.action)->setChecked(m_mainBox->viewMode() == row.layout);
    action("actionAutoOrtho")->setChecked(gSettings->autoOrtho);
    action("actionShowTexture")->setChecked(KMViewFilter::isOn(KMViewFilter::Texture));
    const KMOpenGLWidget *view = m_mainBox->views()->current();
    const KMCameraNode *camera = view ? view->camera() : nullptr;
    action("actionShowGrid")->setChecked(camera && camera->viewFlag(KMCameraNode::ShowGrid));
}

void kmmainwidget::onMenuSingleView()
{
    m_mainBox->setViewMode(KMOpenGLContainer::Single);
}

void kmmainwidget::onMenuDualView()
{
    m_mainBox->setViewMode(KMOpenGLContainer::Dual);
}

void kmmainwidget::onMenuQuadView()
{
    m_mainBox->setViewMode(KMOpenGLContainer::Quad);
}

void kmmainwidget::onMenuCameraFront()
{
    onCameraBoxClicked(KMCameraBoxShape::Front);
}

void kmmainwidget::onMenuCameraBack()
{
    onCameraBoxClicked(KMCameraBoxShape::Back);
}

void kmmainwidget::onMenuCameraRight()
{
    onCameraBoxClicked(KMCameraBoxShape::Right);
}

void kmmainwidget::onMenuCameraLeft()
{
    onCameraBoxClicked(KMCameraBoxShape::Left);
}

void kmmainwidget::onMenuCameraTop()
{
    onCameraBoxClicked(KMCameraBoxShape::Top);
}

void kmmainwidget::onMenuCameraBottom()
{
    onCameraBoxClicked(KMCameraBoxShape::Bottom);
}

/// Standard directions are those of the view in perspective, whichever view the user works in.
void kmmainwidget::onCameraBoxClicked(int code)
{
    KMOpenGLContainer *views = m_mainBox->views();
    KMOpenGLWidget *view = views->leadOf(views->layout());
    if (!view || !view->camera())
        return;
    if (code == KMCameraBoxShape::Centre)
        return centreOnCurrent(view);
    float pitch = 0.0f;
    float yaw = 0.0f;
    if (!KMCameraBoxShape::direction(code, pitch, yaw))
        return;
    views->endNavigation();
    KMViewAnimation(view->camera(), repaintOf(view)).turnTo(pitch, yaw);
    view->camera()->checkViewChanged();
    views->refreshViews(everything);
}

void kmmainwidget::onMenuCameraCentering()
{
    if (KMOpenGLWidget *view = m_mainBox->views()->current())
        centreOnCurrent(view);
}

void kmmainwidget::centreOnCurrent(KMOpenGLWidget *view)
{
    kvm::Vector3 centre;
    if (!KMViewAnimation::centreOf(gSolution->currentNode(), centre)) {
        gSolution->showMessage(tr("Select a node first"), KMCommand::MessageLevel);
        return;
    }
    if (view->camera()->isUV())
        return;
    view->container()->endNavigation();
    KMViewAnimation(view->camera(), repaintOf(view)).centreOn(centre);
    view->camera()->checkViewChanged();
    m_mainBox->views()->refreshViews(everything);
}

void kmmainwidget::onMenuCameraOrtho()
{
    KMOpenGLWidget *view = m_mainBox->views()->current();
    KMCameraNode *camera = view ? view->camera() : nullptr;
    if (!camera || camera->isUV())
        return;
    view->container()->endNavigation();
    if (camera->isPerspectiveKind())
        camera->setOrtho(!camera->isOrtho());
    else
        camera->setFlipped(!camera->isFlipped());
    camera->checkViewChanged();
    m_mainBox->views()->refreshViews(everything);
}

void kmmainwidget::onMenuCameraReset()
{
    m_mainBox->views()->resetCamera();
}

// What these switch can change elsewhere as well, so that they turn over what holds, not the check mark.

void kmmainwidget::onMenuCameraAutoOrtho()
{
    gSettings->autoOrtho = !gSettings->autoOrtho;
    syncViewActions();
}

void kmmainwidget::onMenuShowTexture()
{
    KMSolution::ViewFlags flags = gSolution->viewFlags();
    flags.at(KMViewFilter::Texture) = !flags.at(KMViewFilter::Texture);
    gSolution->setViewFlags(flags);
    syncViewActions();
    gSolution->refreshViews(everything);
}

void kmmainwidget::onMenuShowGrid()
{
    KMOpenGLWidget *view = m_mainBox->views()->current();
    if (!view || !view->camera())
        return;
    view->camera()->setViewFlag(KMCameraNode::ShowGrid, !view->camera()->viewFlag(KMCameraNode::ShowGrid));
    syncViewActions();
    m_mainBox->views()->refreshViews(everything);
}

/// The views of the model share one measure; the plane of the texture has its own.
void kmmainwidget::onMenuGridSetting()
{
    KMOpenGLContainer *views = m_mainBox->views();
    if (!views->current() || !views->current()->grid())
        return;
    const KMGridNode &current = *views->current()->grid();
    kmgriddialog dialog(current, this);
    if (!KMPrompt::current().dialog(dialog))
        return;
    const int rows = dialog.rows();
    const float space = dialog.space();
    const bool isUV = current.isUVMode();
    for (int i = 0; i < views->count(); ++i) {
        KMGridNode *grid = views->widget(i) ? views->widget(i)->grid() : nullptr;
        if (grid && grid->isUVMode() == isUV)
            grid->setCells(rows, space);
    }
    views->refreshViews(everything);
}

void kmmainwidget::dropNodes(const QMimeData *data, const QPoint &position)
{
    auto *view = qobject_cast<KMOpenGLWidget *>(childAt(position));
    if (!view || !view->camera())
        return;
    for (KMContainerNode *node : KMViewDrop::nodesOf(data))
        KMViewDrop::apply(*view->camera(), view->mapFrom(this, position), node);
}
