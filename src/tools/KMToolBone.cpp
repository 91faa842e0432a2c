#include "tools/KMToolBone.h"

#include "core/KMCommand.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLWidget.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "tools/KMBoneMarquee.h"
#include "tools/KMBoneTargets.h"
#include "tools/KMHandleCode.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSquare.h"

#include <QCoreApplication>
#include <QLineF>

#include <cmath>

using kvm::Vector3;

namespace {

constexpr int allViews = 31;

constexpr int bodyLines[][2] = {{0, 2}, {0, 3}, {0, 4}, {1, 2}, {1, 3}, {1, 4}, {2, 3}, {3, 4}, {4, 2}, {2, 5}, {0, 5}};

void addBody(const KMBoneRest &rest, QVector<Vector3> &points, QVector<KMToolMesh::Line> &lines)
{
    const int first = points.size();
    for (const Vector3 &vertex : KMBoneShape::bodyVertices(KMBoneShape::Polygon))
        points << rest.head + rest.rotation.rotate(vertex) * rest.lengthScale;
    for (const auto &line : bodyLines)
        lines << KMToolMesh::Line(first + line[0], first + line[1]);
}

/// Says so when the rig that is current can't take a bone.
bool isRefused()
{
    KMNode *node = gSolution->currentNode();
    if (!node || node->type() != KMNodeType::BoneContainer)
        return false;
    const auto *rig = nodeAs<KMBoneContainer>(node);
    if (!rig->isLocked() && rig->isVisible())
        return false;
    const QString fault = rig->isLocked() ? KMToolBone::tr("%1 is locked") : KMToolBone::tr("%1 is hidden");
    gSolution->showMessage(fault.arg(rig->name()), KMCommand::MessageLevel);
    return true;
}

/// A rig that is still to be made stands at the origin.
KMSymmetryPlane planeOf(const KMBoneContainer *container)
{
    return container ? container->mirrorPlane() : KMSymmetryPlane({}, {1.0f, 0.0f, 0.0f});
}

} // namespace

KMToolBone::KMToolBone(QWidget *parent)
    : KMTool(KMToolKind::Bone, parent)
    , m_bones(KMBoneDrag::Reach::Ends)
{
    addModeName(tr("Make"));
    addModeName(tr("Move"));
}

KMToolBone::~KMToolBone() = default;

void KMToolBone::setOptions(const Options &options)
{
    m_options = options;
    emit optionsChanged();
}

void KMToolBone::setMode(int mode)
{
    if (mode < 0 || mode >= ModeCount)
        return;
    cancel();
    KMTool::setMode(mode);
}

void KMToolBone::resetOptions()
{
    setMode(Make);
    setOptions({});
}

// Life

void KMToolBone::initialize()
{
    KMTool::initialize();
    m_preview = new KMToolMesh(KMToolOverlay::Edges);
    m_preview->setDisplayColor(DP_HOT_BONE);
    m_hint = new KMToolMesh(KMToolOverlay::Points);
    m_square = new KMToolSquare;
    addMesh(EdgeMeshes, m_preview);
    addMesh(PointMeshes, m_hint);
    addMesh(ScreenLines, m_square);
}

void KMToolBone::finalize()
{
    KMTool::finalize();
    m_preview = m_hint = nullptr;
    m_square = nullptr;
}

void KMToolBone::cancel()
{
    if (m_gesture == Gesture::None)
        return;
    if (m_gesture == Gesture::Moving)
        m_bones.cancel();
    end();
    gSolution->setProgress({});
    gSolution->refreshViews(allViews);
}

void KMToolBone::begin(Gesture gesture)
{
    m_gesture = gesture;
    m_hasMoved = false;
    setEditing(true);
}

void KMToolBone::end()
{
    m_gesture = Gesture::None;
    m_widget = nullptr;
    m_pressed = {};
    m_preview->setVisible(false);
    m_hint->setVisible(false);
    setEditing(false);
}

// Mouse

/// Bones of the current rig go before those of others.
KMBonePicker::Hit KMToolBone::pickAt(const QPointF &position, const KMCameraNode &camera) const
{
    const KMBonePicker::Hit hit = KMBoneTargets::pickBefore(camera, position);
    return hit.isHit() ? hit : KMBonePicker::pickBone(camera, position);
}

bool KMToolBone::mousePress(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_gesture != Gesture::None)
        return true;
    if (event->buttons() != Qt::LeftButton || (event->modifiers() & Qt::AltModifier) || !m_preview)
        return false;
    const KMCameraNode &camera = *widget->camera();
    m_pressPos = m_lastPos = event->localPos();
    m_widget = widget;
    m_pressed = pickAt(m_pressPos, camera);
    m_mirrorTolerance = KMBoneDrag::mirrorTolerance(camera, m_pressed.isHit() ? m_pressed.point : camera.pivot());
    if (m_pressed.isHit()) {
        pressBone(m_pressed, *event);
    } else if (mode() == Make) {
        if (!isRefused())
            beginMaking({});
    } else {
        begin(Gesture::Area);
    }
    return true;
}

void KMToolBone::pressBone(const KMBonePicker::Hit &hit, const KMMouseEvent &event)
{
    const bool changesSelection = event.modifiers() & (Qt::ShiftModifier | Qt::ControlModifier);
    m_widget->camera()->setPivot(hit.point);
    if (mode() == Make && hit.part != KMBonePicker::Part::Body && !changesSelection)
        return beginMaking(hit);
    if (KMBoneTargets::click(hit, KMMeshSelect::clickMode(event.modifiers())))
        beginMoving(hit);
    else
        m_widget = nullptr;
}

void KMToolBone::beginMaking(const KMBonePicker::Hit &hit)
{
    const KMCameraNode &camera = *m_widget->camera();
    m_drawn = {};
    if (hit.isHit()) {
        // From a head that is a joint the bone is a branch of the parent; from any other head it stands apart.
        const bool isJoint = hit.part == KMBonePicker::Part::Head && KMJointMove::isAttached(*hit.bone);
        m_drawn.container = hit.bone->container();
        m_drawn.parent = isJoint ? hit.bone->parentBone() : hit.bone;
        m_drawn.isFloating = hit.part == KMBonePicker::Part::Head && !isJoint && !hit.bone->isPoint();
        m_drawn.head = hit.point;
        KMBoneEdit::pairForEdits(m_drawn.container, m_mirrorTolerance); // the image hangs on the parent's partner
    } else {
        m_drawn.container = KMBoneEdit::containerAtHand();
        m_drawn.head = KMBonePlace::at(camera, m_pressPos, depthPoint(camera), m_options.place).point;
        onPlane(m_drawn.head);
    }
    m_drawn.tail = m_drawn.head;
    begin(Gesture::Making);
}

void KMToolBone::beginMoving(const KMBonePicker::Hit &hit)
{
    const KMCameraNode &camera = *m_widget->camera();
    KMHandleDrag::Start start;
    start.code = KMHandleCode::Move;
    start.press = m_pressPos;
    start.anchor = hit.point;
    start.handle.position = hit.point;
    start.isFreeView = camera.isPerspectiveKind();
    m_drag = KMHandleDrag(camera, start);
    m_bones.setTakesChildren(m_options.takesChildren);
    const bool isJoint = hit.part != KMBonePicker::Part::Body;
    m_bones.setSnapOptions(isJoint ? KMBonePlace::snapOptions(m_options.place) : 0);
    if (m_bones.begin({camera, m_drag}))
        begin(Gesture::Moving);
}

/// Beside other bones a new one stands as deep in the view as they do.
Vector3 KMToolBone::depthPoint(const KMCameraNode &camera) const
{
    const QVector<KMJointMove::Grabbed> selected = KMBoneTargets::selected();
    return selected.isEmpty() ? camera.pivot() : selected.first().bone->tail();
}

bool KMToolBone::mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (!m_preview)
        return false;
    if (m_gesture != Gesture::None && event->buttons() == Qt::NoButton)
        cancel(); // the release went elsewhere
    if (m_gesture == Gesture::None)
        return event->buttons() == Qt::NoButton && KMBonePicker::setHot(pickAt(event->localPos(), *widget->camera()));
    if (widget != m_widget)
        return false;
    m_lastPos = event->localPos();
    const double away = QLineF(m_pressPos, m_lastPos).length();
    const float least = m_gesture == Gesture::Moving ? gSettings->operationMargin : gSettings->vertexClickMargin * 0.5f;
    m_hasMoved = m_hasMoved || away > double(least);
    if (m_hasMoved && m_gesture != Gesture::Area)
        dragTo(m_lastPos);
    return true;
}

void KMToolBone::dragTo(const QPointF &position)
{
    const KMCameraNode &camera = *m_widget->camera();
    std::optional<Vector3> snapPoint;
    if (m_gesture == Gesture::Moving) {
        const KMDragTransform done = m_bones.apply(m_drag.transform(camera, position, false), camera);
        gSolution->setProgress(m_drag.statusText(done));
        snapPoint = m_bones.snapPoint();
    } else {
        const KMBonePlace::Place place = KMBonePlace::at(camera, position, m_drawn.head, m_options.place);
        m_drawn.tail = place.point;
        onPlane(m_drawn.tail);
        showPreview();
        if (place.isSnapped)
            snapPoint = place.point;
    }
    if (snapPoint)
        m_hint->setLines({*snapPoint, *snapPoint}, {{0, 1}});
    m_hint->setVisible(bool(snapPoint));
}

void KMToolBone::showPreview()
{
    QVector<Vector3> points;
    QVector<KMToolMesh::Line> lines;
    addBody(restBone(m_drawn.head, m_drawn.tail), points, lines);
    if (isMirrored()) {
        const KMSymmetryPlane plane = planeOf(m_drawn.container);
        const KMBone *parent = m_drawn.parent;
        const KMBone *other = parent && parent->mirrorBone() ? parent->mirrorBone() : parent;
        const auto image = [&](const Vector3 &point) {
            return KMBoneEdit::placeAsShown(other, plane.reflected(KMBoneEdit::placeAtRest(parent, point)));
        };
        addBody(restBone(image(m_drawn.head), image(m_drawn.tail)), points, lines);
    }
    m_preview->setLines(points, lines);
    m_preview->setVisible(true);
}

/// What is drawn on the plane of symmetry is its own image, and stays there. The plane is that of the rest.
void KMToolBone::onPlane(Vector3 &point) const
{
    const KMSymmetryPlane plane = planeOf(m_drawn.container);
    const Vector3 rest = KMBoneEdit::placeAtRest(m_drawn.parent, point);
    const float distance = plane.distance(rest);
    if (gSolution->editFilter().symmetry && std::abs(distance) < m_mirrorTolerance)
        point = KMBoneEdit::placeAsShown(m_drawn.parent, rest - plane.normal() * distance);
}

bool KMToolBone::isMirrored() const
{
    const KMSymmetryPlane plane = planeOf(m_drawn.container);
    const auto isOnPlane = [&](const Vector3 &point) {
        return std::abs(plane.distance(KMBoneEdit::placeAtRest(m_drawn.parent, point))) < m_mirrorTolerance;
    };
    return gSolution->editFilter().symmetry && !(isOnPlane(m_drawn.head) && isOnPlane(m_drawn.tail));
}

bool KMToolBone::mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget)
{
    if (m_gesture == Gesture::None || widget != m_widget || (event->buttons() & Qt::LeftButton))
        return false;
    m_lastPos = event->localPos();
    const Gesture gesture = m_gesture;
    m_gesture = Gesture::None; // the step is for the panels to show, and ends nothing here
    setEditing(false);
    KMBonePicker::clearHot();
    if (gesture == Gesture::Moving)
        m_hasMoved ? m_bones.commit() : m_bones.cancel();
    else if (!m_hasMoved)
        click(event->modifiers());
    else if (gesture == Gesture::Making)
        makeBone();
    else
        selectArea(*widget->camera(), event->modifiers());
    end();
    gSolution->refreshViews(allViews);
    return true;
}

/// A press that nothing came of but itself.
void KMToolBone::click(Qt::KeyboardModifiers modifiers)
{
    if (m_pressed.isHit())
        KMBoneTargets::click(m_pressed, KMMeshSelect::clickMode(modifiers));
    else if (!(modifiers & (Qt::ShiftModifier | Qt::ControlModifier)))
        KMBoneTargets::unselectAll();
}

void KMToolBone::selectArea(const KMCameraNode &camera, Qt::KeyboardModifiers modifiers)
{
    const QRectF rect = QRectF(m_pressPos, m_lastPos).normalized();
    KMBoneMarquee marquee;
    marquee.begin(KMMeshSelect::marqueeMode(modifiers));
    marquee.touch(camera, [&rect](const QPointF &point) { return rect.contains(point); });
    marquee.commit(QCoreApplication::translate("KMMarqueeSelect", "Rect Select"));
}

void KMToolBone::makeBone()
{
    if (m_drawn.head == m_drawn.tail || !KMBoneEdit::hasRoom(m_drawn.parent, 1))
        return;
    const KMUndoMacro macro(KMBone::tr("Add Bone"));
    const bool mirrors = isMirrored(); // by the rig as it is now
    KMBoneContainer *container = m_drawn.container ? m_drawn.container.data() : KMBoneEdit::addContainer();
    if (mirrors)
        KMBoneEdit::pairForEdits(container, m_mirrorTolerance);
    KMBone *bone = KMBoneEdit::pushDrawnBone(container, m_drawn.parent, m_drawn.head, m_drawn.tail, m_drawn.isFloating);
    if (mirrors)
        KMBoneEdit::pushMirrored(container, {bone});
    if (gSolution->currentNode() != container)
        gSolution->push(new selectNodeCommand(container));
}

void KMToolBone::leave(QEvent *, KMOpenGLWidget *)
{
    if (m_gesture == Gesture::None)
        KMBonePicker::clearHot();
}

void KMToolBone::draw(KMOpenGLWidget *widget)
{
    KMTool::draw(widget);
    if (!m_square)
        return;
    m_square->setVisible(widget && widget == m_widget && m_gesture == Gesture::Area);
    if (m_square->isVisible())
        m_square->stretch(m_pressPos, m_lastPos);
}
