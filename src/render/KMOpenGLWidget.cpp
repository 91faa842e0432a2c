#include "render/KMOpenGLWidget.h"

#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "render/KMBonePass.h"
#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "render/KMFadeOutLabel.h"
#include "render/KMGridNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMPhysicsPass.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"
#include "render/KMToolIcons.h"
#include "render/TabletSupport.h"

#include <QDebug>
#include <QMouseEvent>
#include <QOpenGLContext>

namespace {

constexpr int labelMargin = 8;
constexpr int everyView = 31;

/// A driver may give something else than was asked for, and the program goes on with that.
void logFormat(const QSurfaceFormat &given)
{
    const QSurfaceFormat asked = QSurfaceFormat::defaultFormat();
    if (given.version() < asked.version())
        qDebug() << "OpenGL" << given.version() << "in place of" << asked.version();
    if (given.profile() != asked.profile() && asked.version() >= qMakePair(3, 2))
        qDebug() << "OpenGL" << given.profile() << "in place of" << asked.profile();
}

} // namespace

KMOpenGLWidget::KMOpenGLWidget(KMOpenGLContainer *container, bool hasToolIcons, QWidget *parent)
    : QOpenGLWidget(parent)
    , m_container(container)
    , m_label(new KMFadeOutLabel(this))
    , m_input(this)
    , m_touch(this)
    , m_hasToolIcons(hasToolIcons)
{
    setObjectName(QStringLiteral("KMOpenGLWidget"));
    setMouseTracking(true);
    setFocusPolicy(Qt::ClickFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setMinimumSize(1, 1);
    installEventFilter(this);
    if (gSettings->enableTouch)
        m_touch.enable();
    m_label->move(dpiScaled(labelMargin), dpiScaled(labelMargin));
    updateBackground();
    connect(gSettings, &KMSettings::DPColorChanged, this, &KMOpenGLWidget::onDPColorChanged);
    connect(gSolution, &KMSolution::commandChanged, this, &KMOpenGLWidget::onCommandChanged);
}

KMOpenGLWidget::~KMOpenGLWidget()
{
    if (context())
        disconnect(context(), nullptr, this, nullptr);
    cleanup();
}

KMViewTool *KMOpenGLWidget::currentTool()
{
    return gSolution ? dynamic_cast<KMViewTool *>(gSolution->tool()) : nullptr;
}

void KMOpenGLWidget::setCamera(KMCameraNode *camera)
{
    const KMShareContext context;
    m_camera = camera;
    m_grid.reset();
    m_box.reset();
    if (!camera)
        return;
    m_grid = std::make_unique<KMGridNode>(camera->kind());
    camera->updateMatrices();
    if (m_isInitialised)
        makeBox();
    showTitle();
}

void KMOpenGLWidget::showTitle()
{
    if (m_camera)
        m_label->showText(m_camera->name());
}

void KMOpenGLWidget::setActive(bool active)
{
    m_isActive = active;
    m_label->setActive(active);
    updateBackground();
}

void KMOpenGLWidget::updateBackground()
{
    m_background = gSettings->displayColor(m_isActive ? DP_ACT_BG : DP_BG);
    m_background.setAlpha(255);
}

void KMOpenGLWidget::onDPColorChanged()
{
    updateBackground();
    if (m_grid)
        m_grid->rebuild();
    update();
}

void KMOpenGLWidget::onCommandChanged(KMSessionTool *tool)
{
    syncHudIcons(dynamic_cast<KMViewTool *>(tool));
}

void KMOpenGLWidget::syncHudIcons(const KMViewTool *tool)
{
    if (!m_toolIcons)
        return;
    m_toolIcons->sync(tool);
    update();
}

void KMOpenGLWidget::initializeGL()
{
    connect(context(), &QOpenGLContext::aboutToBeDestroyed, this, &KMOpenGLWidget::cleanup);
    if (!gRenderer)
        logFormat(context()->format());
    if (!KMRenderer::ensure())
        return;
    m_navigation = std::make_unique<KMNavigationIcons>();
    makeBox();
    makeToolIcons();
    m_isFirstFrame = true;
    m_isInitialised = true;
    if (gSolution)
        gSolution->setViewsReady(true);
}

void KMOpenGLWidget::makeBox()
{
    if (m_camera && m_camera->isPerspectiveKind())
        m_box = std::make_unique<KMCameraBox>(KMNavigationIcons::bottom());
}

void KMOpenGLWidget::makeToolIcons()
{
    if (!m_hasToolIcons)
        return;
    m_toolIcons = std::make_unique<KMToolIcons>();
    m_toolIcons->arrange(size());
    m_toolIcons->sync(currentTool());
}

/// What stands on the graphics card has to go before the context does.
void KMOpenGLWidget::cleanup()
{
    m_isInitialised = false;
    const KMShareContext context;
    if (m_grid)
        m_grid->releaseBuffers();
    m_bones.reset();
    m_physics.reset();
    m_box.reset();
    m_navigation.reset();
    m_toolIcons.reset();
}

void KMOpenGLWidget::resizeGL(int, int)
{
    if (m_toolIcons)
        m_toolIcons->arrange(size());
}

void KMOpenGLWidget::paintGL()
{
    if (!m_isInitialised || !gRenderer || !m_camera || !gProject || gRenderer->isBusy())
        return;
    if (QOpenGLContext::currentContext() != context() || !context()->isValid()) {
        qDebug() << "OpenGL context lost";
        m_isInitialised = false; // the view stays empty, and the program goes on
        return;
    }
    KMFrame frame;
    frame.camera = m_camera;
    frame.size = size();
    frame.background = m_background;
    frame.tool = currentTool();
    frame.parts = this;
    frame.widget = this;
    frame.isFirst = std::exchange(m_isFirstFrame, false);
    if (const KMOpenGLWidget *beside = m_camera->isUV() ? m_container->modelViewOfDual() : nullptr) {
        frame.referenceCamera = beside->camera();
        frame.referenceWidthRatio = float(beside->width()) / float(qMax(width(), 1));
    }
    gRenderer->paintScene(frame);
}

void KMOpenGLWidget::drawGrid(const KMCameraNode &camera)
{
    if (m_grid && camera.viewFlag(KMCameraNode::ShowGrid))
        m_grid->draw(gRenderer->program(KMShaderPrograms::Line), camera);
}

void KMOpenGLWidget::drawBones(const KMCameraNode &camera)
{
    if (!m_bones)
        m_bones = std::make_unique<KMBonePass>();
    m_bones->draw(*gRenderer, camera);
}

void KMOpenGLWidget::drawTags(const KMCameraNode &camera)
{
    if (!m_physics)
        m_physics = std::make_unique<KMPhysicsPass>();
    m_physics->draw(*gRenderer, camera);
}

void KMOpenGLWidget::drawToolIcons(const KMCameraNode &camera)
{
    if (m_toolIcons)
        m_toolIcons->draw(*gRenderer, camera);
}

void KMOpenGLWidget::drawNavigationIcons(const KMCameraNode &camera)
{
    m_navigation->draw(*gRenderer, camera, m_input.hotIcon());
}

void KMOpenGLWidget::drawCameraBox(const KMCameraNode &camera)
{
    if (m_box)
        m_box->draw(gRenderer->program(KMShaderPrograms::Face2D), camera);
}

// Input

/// Pens and fingers come through here first: the pressure goes with the mouse events that follow. What the system
/// makes of touches would be done twice; Qt makes mouse events of pens only.
bool KMOpenGLWidget::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != this || !gSettings)
        return QOpenGLWidget::eventFilter(watched, event);
    if (gTablet)
        gTablet->take(*event);
    const bool isMouse = event->type() == QEvent::MouseButtonPress || event->type() == QEvent::MouseMove
                         || event->type() == QEvent::MouseButtonRelease || event->type() == QEvent::MouseButtonDblClick;
    if (isMouse)
        return gSettings->enableTouch
               && static_cast<QMouseEvent *>(event)->source() == Qt::MouseEventSynthesizedBySystem;
    return m_touch.handle(event);
}

void KMOpenGLWidget::mousePressEvent(QMouseEvent *event)
{
    m_container->setHot(this);
    emit onActive(this);
    m_input.press(event);
}

void KMOpenGLWidget::mouseMoveEvent(QMouseEvent *event)
{
    m_container->setHot(this);
    m_input.move(event);
}

void KMOpenGLWidget::mouseReleaseEvent(QMouseEvent *event)
{
    m_container->setHot(this);
    m_input.release(event);
}

void KMOpenGLWidget::wheelEvent(QWheelEvent *event)
{
    if (!m_camera)
        return;
    m_container->setHot(this);
    m_camera->wheel(event);
    m_camera->checkViewChanged();
    m_container->repaint(31);
    event->accept();
}

void KMOpenGLWidget::keyPressEvent(QKeyEvent *event)
{
    if (KMViewTool *tool = currentTool())
        tool->keyPress(event, this);
    QOpenGLWidget::keyPressEvent(event);
}

void KMOpenGLWidget::keyReleaseEvent(QKeyEvent *event)
{
    if (KMViewTool *tool = currentTool())
        tool->keyRelease(event, this);
    QOpenGLWidget::keyReleaseEvent(event);
}

void KMOpenGLWidget::enterEvent(QEvent *event)
{
    m_isMouseInside = true;
    m_container->setHot(this);
    if (KMViewTool *tool = currentTool())
        tool->enter(event, this);
}

void KMOpenGLWidget::leaveEvent(QEvent *event)
{
    m_isMouseInside = false;
    m_input.leave();
    if (KMViewTool *tool = currentTool())
        tool->leave(event, this);
    update();
    if (gSolution)
        gSolution->refreshViews(everyView); // the other views show what was under the cursor as well
}

/// Another layout may come in mid-drag, and the release goes to a view of that one.
void KMOpenGLWidget::hideEvent(QHideEvent *event)
{
    QOpenGLWidget::hideEvent(event);
    m_isMouseInside = false;
    m_input.hide();
    m_touch.hide();
}

void KMOpenGLWidget::focusInEvent(QFocusEvent *event)
{
    QOpenGLWidget::focusInEvent(event);
    update();
}

void KMOpenGLWidget::focusOutEvent(QFocusEvent *event)
{
    QOpenGLWidget::focusOutEvent(event);
    update();
}

/// Icons are drawn in the colours of the theme.
void KMOpenGLWidget::changeEvent(QEvent *event)
{
    QOpenGLWidget::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || !m_isInitialised)
        return;
    const KMShareContext context;
    m_navigation = std::make_unique<KMNavigationIcons>();
    makeToolIcons();
    update();
}
