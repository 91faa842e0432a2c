#include "tools/KMPreviewTool.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "tools/KMElementClick.h"

#include <QKeyEvent>
#include <QKeySequence>

#include <cmath>

namespace {

constexpr int allViews = 31;
const QColor previewColor(255, 170, 60);

bool isEnter(const QKeySequence &keys)
{
    return keys == QKeySequence(Qt::Key_Return) || keys == QKeySequence(Qt::Key_Enter);
}

bool isPlainLeft(const KMMouseEvent &event)
{
    return event.buttons() == Qt::LeftButton && !(event.modifiers() & Qt::AltModifier);
}

} // namespace

KMPreviewTool::KMPreviewTool(int id, QWidget *parent)
    : KMTool(id, parent)
{
}

void KMPreviewTool::initialize()
{
    KMTool::initialize();
    auto *mesh = new KMToolMesh(KMToolOverlay::Faces | KMToolOverlay::Edges);
    mesh->setColor(previewColor);
    addFaceMesh(mesh);
}

// The value

void KMPreviewTool::setValue(float value)
{
    if (!m_hasPreview && !startPreview()) {
        valueSet(); // the panel goes back to what there is
        return;
    }
    assignValue(value);
    repaint();
}

void KMPreviewTool::assignValue(float value)
{
    m_value = limited(value);
    stretch(m_value);
    updateShown();
    valueSet();
}

bool KMPreviewTool::startPreview()
{
    m_hasPreview = faceMesh(0) && build(targets());
    return m_hasPreview;
}

void KMPreviewTool::rebuild()
{
    if (!m_hasPreview)
        return;
    forget();
    if (!startPreview())
        return endPreview();
    stretch(m_value);
    updateShown();
    repaint();
}

void KMPreviewTool::updateShown()
{
    showOn(faceMesh(0));
    faceMesh(0)->setVisible(true);
}

void KMPreviewTool::endPreview()
{
    forget();
    m_hasPreview = false;
    if (KMToolMesh *mesh = faceMesh(0)) {
        mesh->clear();
        mesh->setVisible(false);
    }
    m_value = 0.0f;
    valueSet();
}

bool KMPreviewTool::apply()
{
    if (!m_hasPreview || m_gesture == Gesture::Dragging)
        return false;
    m_hasPreview = false; // the history moves, and this isn't the end of a preview that somebody else caused
    KMPicker::clearHot(); // the history would keep the mark with the faces that it takes out
    commit();
    endPreview();
    repaint();
    return true;
}

void KMPreviewTool::cancel()
{
    m_gesture = Gesture::Idle;
    setEditing(false);
    if (!m_hasPreview)
        return;
    endPreview();
    repaint();
}

/// Symmetry may have been switched on or off.
void KMPreviewTool::refresh()
{
    if (m_gesture == Gesture::Idle)
        rebuild();
}

/// The faces and edges may be others now, or gone.
void KMPreviewTool::historyChanged(int undoIndex)
{
    m_hover = {};
    cancel();
    KMTool::historyChanged(undoIndex);
}

void KMPreviewTool::repaint() const
{
    gSolution->refreshViews(allViews);
}

// Mouse and keys

bool KMPreviewTool::pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest *request) const
{
    *request = pickRequest();
    return KMElementClick::pick(camera, position, *request) && KMMeshTargets::hasOwnTopology(*request->mesh)
           && KMMeshTargets::isEditable(*request->mesh);
}

bool KMPreviewTool::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    KMCameraNode *camera = widget->camera();
    if (m_gesture != Gesture::Idle || !isPlainLeft(*event))
        return false;
    if (!m_hasPreview) {
        KMPickRequest hit;
        if (!pick(*camera, event->localPos(), &hit)) {
            if (hit.mesh)
                KMElementClick::tellWhyFixed(*hit.mesh);
            return false;
        }
        m_picked = hit;
        camera->setPivot(hit.point);
        select(hit, event->modifiers());
    }
    m_camera = camera;
    m_pressPosition = event->localPos();
    m_pressValue = m_value;
    m_gesture = Gesture::Pressed;
    return true;
}

bool KMPreviewTool::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    const KMCameraNode &camera = *widget->camera();
    if (!(event->buttons() & Qt::LeftButton) && m_gesture != Gesture::Idle)
        cancel(); // the release went elsewhere
    if (m_gesture == Gesture::Idle)
        return hover(*event, camera);
    if (m_gesture == Gesture::Pressed) {
        const QPointF way = event->localPos() - m_pressPosition;
        if (std::hypot(way.x(), way.y()) < double(gSettings->operationMargin))
            return true;
        if (!m_hasPreview && !startPreview()) {
            m_gesture = Gesture::Idle;
            return true;
        }
        m_gesture = Gesture::Dragging;
        setEditing(true);
    }
    dragTo(*event, camera);
    return true;
}

void KMPreviewTool::dragTo(const KMMouseEvent &event, const KMCameraNode &camera)
{
    const double way = event.localPos().x() - m_pressPosition.x();
    assignValue(m_pressValue + std::copysign(camera.pixelScale(float(std::abs(way))), float(way)));
}

bool KMPreviewTool::mouseRelease(KMMouseEvent *event, KMOpenGLWidget *)
{
    if (m_gesture == Gesture::Idle || (event->buttons() & Qt::LeftButton))
        return false;
    m_gesture = Gesture::Idle;
    setEditing(false);
    return true;
}

/// Lights up what a press would take. True when that is another than before.
bool KMPreviewTool::hover(const KMMouseEvent &event, const KMCameraNode &camera)
{
    if (event.buttons() != Qt::NoButton || m_hasPreview)
        return false;
    KMPickRequest request;
    if (!pick(camera, event.localPos(), &request)) {
        request.clearResult();
        KMPicker::clearHot();
    }
    const bool isOther = request.mesh != m_hover.mesh || request.face != m_hover.face || request.edge != m_hover.edge;
    m_hover = request;
    return isOther;
}

void KMPreviewTool::keyPress(QKeyEvent *event, KMOpenGLWidget *widget)
{
    const QKeySequence keys(event->key());
    if (!hasShortcut(keys))
        return KMTool::keyPress(event, widget);
    runShortcut(keys);
    event->accept();
}

bool KMPreviewTool::hasShortcut(const QKeySequence &keys) const
{
    return m_hasPreview && (isEnter(keys) || keys == QKeySequence(Qt::Key_Escape));
}

void KMPreviewTool::runShortcut(const QKeySequence &keys)
{
    if (isEnter(keys))
        apply();
    else
        cancel();
}

// What it works on

/// What modifiers and primitives made keeps its shape.
QList<KMMeshNode *> KMPreviewTool::targets() const
{
    QList<KMMeshNode *> editable;
    for (KMMeshNode *mesh : KMMeshTargets::chosen()) {
        if (KMMeshTargets::hasOwnTopology(*mesh) && KMMeshTargets::isEditable(*mesh))
            editable << mesh;
    }
    return editable;
}

float KMPreviewTool::mirrorTolerance() const
{
    const KMCameraNode *camera = m_camera ? m_camera.data() : KMCameraSet::camera(KMCameraNode::Perspective);
    return camera ? camera->pixelScale(gSettings->symmetryMargin) : 0.0f;
}
