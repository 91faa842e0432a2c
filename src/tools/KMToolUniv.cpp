#include "tools/KMToolUniv.h"

#include "core/KMNodePropertyCommands.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "render/KMRenderer.h"
#include "tools/KMBoneDrag.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMElementClick.h"
#include "tools/KMHandleCode.h"
#include "tools/KMSelectionDrag.h"
#include "tools/KMToolCircle.h"
#include "tools/KMToolHandle.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolLasso.h"
#include "tools/KMToolSquare.h"
#include "tools/KMWindowGeometry.h"

#include <QLineF>

#include <algorithm>

using namespace KMHandleCode;

namespace {

constexpr int allViews = 31;
constexpr float hoverMargin = 10.0f;

int defaultMode(int toolId)
{
    switch (toolId) {
    case KMToolKind::Move:
        return Translates | HasCentre;
    case KMToolKind::Rotate:
        return Rotates | HasRing | HasCentre;
    case KMToolKind::Scale:
        return Scales | HasCentre;
    case KMToolKind::Animation:
        return Translates | Rotates | HasRing | HasCentre;
    default:
        return Everything;
    }
}

} // namespace

KMToolUniv::KMToolUniv(int id, QWidget *parent)
    : KMToolUniv(id, std::make_unique<KMElementDrag>(std::make_unique<KMSelectionDrag>(), KMBoneDrag::Reach::Ends),
                 parent)
{
}

KMToolUniv::KMToolUniv(int id, std::unique_ptr<KMDragSubject> subject, QWidget *parent)
    : KMTool(id, parent)
    , m_handleMode(defaultMode(id))
    , m_subject(std::move(subject))
{
}

KMToolUniv::~KMToolUniv() = default;

// Options

void KMToolUniv::setHandleMode(int mode)
{
    m_handleMode = mode;
    if (m_handle)
        m_handle->setMode(mode);
    emit optionsChanged();
    gSolution->refreshViews(allViews);
}

void KMToolUniv::setHandleShown(bool shown)
{
    m_isHandleShown = shown;
    emit optionsChanged();
    gSolution->refreshViews(allViews);
}

void KMToolUniv::setLocal(bool local)
{
    m_isLocal = local;
    updateCentre();
    emit optionsChanged();
    gSolution->refreshViews(allViews);
}

void KMToolUniv::setFlowing(bool flowing)
{
    m_isFlowing = flowing;
    emit optionsChanged();
}

void KMToolUniv::resetOptions()
{
    setFlowing(false);
    setHandleShown(true);
    setLocal(false);
    setHandleMode(defaultMode(toolId()));
}

// Life

void KMToolUniv::initialize()
{
    KMTool::initialize();
    m_handle = new KMToolHandle;
    m_handle->setMode(m_handleMode);
    m_square = new KMToolSquare;
    m_lasso = new KMToolLasso;
    m_brush = new KMToolCircle;
    m_brushRadius = m_brush->radius();
    m_hint = new KMToolMesh(KMToolOverlay::Points);
    addMesh(FaceMeshes, m_handle);
    for (KMToolMesh *marquee :
         {static_cast<KMToolMesh *>(m_square), static_cast<KMToolMesh *>(m_lasso), static_cast<KMToolMesh *>(m_brush)})
        addMesh(ScreenLines, marquee);
    addMesh(PointMeshes, m_hint);
}

void KMToolUniv::finalize()
{
    KMTool::finalize();
    m_handle = nullptr;
    m_square = nullptr;
    m_lasso = nullptr;
    m_brush = nullptr;
    m_hint = nullptr;
}

void KMToolUniv::activate()
{
    refresh();
}

void KMToolUniv::deactivate()
{
    KMTool::deactivate();
    m_hasCentre = false;
    m_hover = {};
}

void KMToolUniv::refresh()
{
    if (m_operation == Operation::None)
        updateCentre();
}

void KMToolUniv::currentNodeChanged(KMNode *)
{
    refresh();
}

void KMToolUniv::updateCentre()
{
    if (!m_handle)
        return;
    const std::optional<kvm::Vector3> centre =
        gSolution->tool() == this && gSolution->project() ? m_subject->centre() : std::nullopt;
    m_hasCentre = bool(centre);
    if (centre)
        m_handle->setPlace(*centre, m_isLocal ? m_subject->localAxes() : kvm::Quaternion());
}

void KMToolUniv::cancel()
{
    if (m_operation == Operation::None)
        return;
    if (m_operation == Operation::Drag)
        m_subject->cancel();
    if (isStroke()) {
        m_brushSelect.cancel();
        m_boneMarquee.cancel();
    }
    end();
    m_value.clear(); // that of a drag which didn't happen
    emit valueChanged(m_value);
    gSolution->setProgress({});
    gSolution->refreshViews(allViews);
}

void KMToolUniv::end()
{
    m_operation = Operation::None;
    m_hasMoved = false;
    m_widget = nullptr;
    m_hint->setVisible(false);
    setEditing(false);
    updateCentre();
}

// Mouse

bool KMToolUniv::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_operation != Operation::None)
        return true;
    if (event->buttons() != Qt::LeftButton || (event->modifiers() & Qt::AltModifier) || !m_handle)
        return false;
    m_pressPos = m_lastPos = event->localPos();
    m_hasLeftPress = m_isAtHandle = m_isAtBone = false;
    m_fixedMesh = m_cage = nullptr;
    m_widget = widget;
    const int code = handleCodeAt(m_pressPos, *widget);
    if (code != NoPart) {
        beginDrag(code, m_handle->position(), *event, nullptr);
        m_isAtHandle = m_operation == Operation::Drag;
        return true;
    }
    KMPickRequest request = requestFor(gSettings->vertexClickMargin);
    KMBonePicker::Hit bone;
    if (pickAny(*widget->camera(), m_pressPos, request, bone)) {
        bone.isHit() ? pressBone(bone, *event) : pressElement(request, *event);
    } else {
        m_cage = request.only;
        beginMarquee(*event);
    }
    return true;
}

/// A point behind the eye has a place in the window too.
bool KMToolUniv::canShowHandle(const KMCameraNode &camera) const
{
    const float depth = camera.worldToWindow(m_handle->position()).z;
    return m_hasCentre && m_isHandleShown && depth >= 0.0f && depth <= 1.0f;
}

int KMToolUniv::handleCodeAt(const QPointF &position, const KMOpenGLWidget &widget) const
{
    return canShowHandle(*widget.camera()) ? m_handle->codeAt(*widget.camera(), position) : int(NoPart);
}

KMPickRequest KMToolUniv::requestFor(float margin) const
{
    const KMEditFilter &filter = gSolution->editFilter();
    const QList<KMMeshNode *> chosen = KMMeshTargets::chosen();
    KMPickRequest request;
    request.margin = margin;
    request.wantVertex = filter.vertices;
    request.wantEdge = filter.edges;
    request.wantFace = filter.faces;
    request.includeChildren =
        std::any_of(chosen.begin(), chosen.end(), [](const KMMeshNode *mesh) { return mesh->ownerNode(); });
    return request;
}

bool KMToolUniv::pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request) const
{
    return KMElementClick::pick(camera, position, request);
}

QString KMToolUniv::statusText(const KMHandleDrag &drag, const KMDragTransform &transform) const
{
    return drag.statusText(transform);
}

bool KMToolUniv::clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers)
{
    return KMBoneTargets::click(hit, KMMeshSelect::clickMode(modifiers));
}

void KMToolUniv::pressElement(const KMPickRequest &hit, const KMMouseEvent &event)
{
    constexpr Qt::KeyboardModifiers both = Qt::ControlModifier | Qt::ShiftModifier;
    if ((event.modifiers() & both) == both)
        KMElementClick::log(hit);
    m_widget->camera()->setPivot(hit.point);
    if (m_isFlowing && hasMarquee() && KMMeshTargets::isChosen(*hit.mesh))
        return beginStroke(Operation::Flow, event, gSettings->vertexClickMargin, DP_FLOW);
    if (clickElement(hit, event.modifiers()))
        beginDrag(m_handleMode & Translates ? Move | AsItIs : int(Move), hit.point, event, &hit);
    else
        m_widget = nullptr;
}

bool KMToolUniv::clickElement(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers)
{
    return KMElementClick::select(hit, KMMeshSelect::clickMode(modifiers));
}

void KMToolUniv::clickNothing()
{
    KMBoneTargets::unselectAll();
}

void KMToolUniv::beginDrag(int code, const kvm::Vector3 &anchor, const KMMouseEvent &event, const KMPickRequest *hit)
{
    const KMCameraNode &camera = *m_widget->camera();
    KMHandleDrag::Start start;
    start.isFreeView = camera.isPerspectiveKind() && !m_isAtBone; // a bone goes with the cursor in any view
    start.code = rewritten(code, m_handleMode, event.modifiers() & Qt::ShiftModifier, start.isFreeView);
    start.press = m_pressPos;
    start.anchor = anchor;
    start.handle = m_handle->placeIn(camera);
    start.isZReversed = m_handle->isZReversed();
    m_drag = KMHandleDrag(camera, start);
    KMDragSubject::Grab grab{camera, m_drag};
    if (hit) {
        grab.mesh = hit->mesh;
        grab.vertex = KMElementClick::nearestVertex(*hit, m_pressPos);
    }
    if (m_subject->begin(grab))
        return begin(Operation::Drag);
    m_widget = nullptr;
    if (hit)
        m_fixedMesh = hit->mesh;
}

void KMToolUniv::begin(Operation operation)
{
    m_operation = operation;
    m_hasMoved = false;
    setEditing(true);
}

bool KMToolUniv::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (!m_handle)
        return false;
    if (m_operation != Operation::None && event->buttons() == Qt::NoButton)
        cancel(); // the release went elsewhere
    if (m_operation == Operation::None) {
        if (event->buttons() == Qt::NoButton)
            return hover(event->localPos(), widget);
        tellFixed(event->localPos());
        return false;
    }
    if (widget != m_widget)
        return false;
    const QPointF before = m_lastPos;
    m_lastPos = event->localPos();
    const double away = QLineF(m_pressPos, m_lastPos).length();
    m_hasLeftPress = m_hasLeftPress || away >= double(gSettings->vertexClickMargin);
    if (m_operation == Operation::Drag && (m_hasMoved || away > double(gSettings->operationMargin)))
        drag(event->modifiers());
    if (m_operation == Operation::Lasso)
        m_lasso->lengthen(m_lastPos);
    if (isStroke()) {
        m_brush->moveTo(m_lastPos);
        strokeTo(before, m_lastPos);
    }
    return true;
}

void KMToolUniv::drag(Qt::KeyboardModifiers modifiers)
{
    const DragState state = dragBy(m_lastPos - m_pressPos, modifiers);
    m_hasMoved = m_hasMoved || state.hasMoved;
    m_value = state.value;
    gSolution->setProgress(state.status);
    emit valueChanged(m_value);
}

KMToolUniv::DragState KMToolUniv::dragBy(const QPointF &, Qt::KeyboardModifiers modifiers)
{
    const KMCameraNode &camera = *m_widget->camera();
    const KMDragTransform asked = m_drag.transform(camera, m_lastPos, modifiers & Qt::ShiftModifier);
    const KMDragTransform transform = m_subject->apply(asked, camera);
    const KMHandlePlace &start = m_drag.start().handle;
    if (transform.kind == KMDragTransform::Kind::Rotate)
        m_handle->setPlace(start.position, transform.turn() * start.axes);
    else
        m_handle->setPlace(start.position + transform.delta, start.axes);
    const std::optional<kvm::Vector3> snapPoint = m_subject->snapPoint();
    if (snapPoint)
        m_hint->setLines({*snapPoint, *snapPoint}, {{0, 1}});
    m_hint->setVisible(bool(snapPoint));
    return {!transform.isIdentity(), statusText(m_drag, transform), m_drag.valueText(transform)};
}

/// Whether the view has to be painted anew.
bool KMToolUniv::hover(const QPointF &position, KMOpenGLWidget *widget)
{
    const int code = handleCodeAt(position, *widget);
    bool isChanged = m_handle->setHot(code);
    Hover over;
    if (code == NoPart) {
        KMPickRequest request = requestFor(hoverMargin);
        KMBonePicker::Hit bone;
        if (pickAny(*widget->camera(), position, request, bone) && !bone.isHit())
            over = {request.mesh, request.vertex, request.edge ? request.edge->key() : 0, request.face};
        isChanged = KMBonePicker::setHot(bone) || isChanged;
    } else {
        KMPicker::clearHot();
        isChanged = KMBonePicker::setHot({}) || isChanged;
    }
    isChanged = isChanged || over != m_hover;
    m_hover = over;
    return isChanged;
}

void KMToolUniv::leave(QEvent *, KMOpenGLWidget *)
{
    if (m_operation != Operation::None || !m_handle)
        return;
    m_handle->setHot(NoPart);
    m_hover = {};
    KMPicker::clearHot();
    KMBonePicker::clearHot();
}

bool KMToolUniv::mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_operation == Operation::None || widget != m_widget || (event->buttons() & Qt::LeftButton))
        return false;
    m_lastPos = event->localPos();
    const Operation operation = m_operation;
    const bool hasMoved = m_hasMoved;
    if (operation == Operation::Drag && hasMoved)
        drag(event->modifiers()); // Shift may have been let go since the last move
    if (gRenderer && operation != Operation::Drag)
        gRenderer->refreshWindowCoords(*widget->camera());
    // The panels hold still until here, and the step is what they have to show.
    m_operation = Operation::None;
    setEditing(false);
    KMPicker::clearHot(); // the history would keep the mark with a record that goes
    if (operation != Operation::Drag)
        commitMarquee(operation, event->modifiers());
    else if (hasMoved)
        m_subject->commit();
    else
        m_subject->cancel();
    end();
    if (operation == Operation::Drag && !hasMoved && m_isAtHandle)
        clickThroughHandle(event->modifiers(), widget);
    return true;
}

/// The handle lies over what is selected, and only drags are meant for it.
void KMToolUniv::clickThroughHandle(Qt::KeyboardModifiers modifiers, KMOpenGLWidget *widget)
{
    KMPickRequest request = requestFor(gSettings->vertexClickMargin);
    KMBonePicker::Hit bone;
    if (pickAny(*widget->camera(), m_pressPos, request, bone))
        bone.isHit() ? clickBone(bone, modifiers) : clickElement(request, modifiers);
}

/// A drag at what can't be dragged.
void KMToolUniv::tellFixed(const QPointF &position)
{
    if (!m_fixedMesh || QLineF(m_pressPos, position).length() < double(gSettings->vertexClickMargin))
        return;
    KMElementClick::tellWhyFixed(*m_fixedMesh);
    m_fixedMesh = nullptr;
}

// What it shows

void KMToolUniv::draw(KMOpenGLWidget *widget)
{
    KMTool::draw(widget);
    if (!m_handle)
        return;
    if (followsPose())
        refresh(); // another frame moves bones without a step
    const KMCameraNode *camera = widget ? widget->camera() : nullptr;
    const bool showsHandle = camera && !camera->isUV() && canShowHandle(*camera) && !isMarquee();
    m_handle->setVisible(showsHandle);
    if (showsHandle)
        m_handle->aim(*camera);
    const auto shows = [&](Operation operation) { return widget && widget == m_widget && m_operation == operation; };
    m_square->setVisible(shows(Operation::Square) && hasMarquee());
    m_lasso->setVisible(shows(Operation::Lasso));
    m_brush->setVisible(shows(Operation::Brush) || shows(Operation::Flow));
    if (m_square->isVisible())
        m_square->stretch(m_pressPos, m_lastPos);
}
