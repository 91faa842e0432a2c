#include "tools/KMBoneDrag.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMSelectionTransform.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "tools/KMBoneTargets.h"

#include <QCoreApplication>

using kvm::Vector3;

namespace {

QString textOf(KMDragTransform::Kind kind)
{
    switch (kind) {
    case KMDragTransform::Kind::Move:
        return QCoreApplication::translate("KMBoneDrag", "Move Bone");
    case KMDragTransform::Kind::Scale:
        return QCoreApplication::translate("KMBoneDrag", "Scale Bone");
    case KMDragTransform::Kind::Rotate:
        return QCoreApplication::translate("KMBoneDrag", "Rotate Bone");
    }
    return {};
}

} // namespace

float KMBoneDrag::mirrorTolerance(const KMCameraNode &camera, const Vector3 &point)
{
    return gSettings->symmetryMargin * camera.pixelWorldLength(point) / 100.0f;
}

QVector<KMJointMove::Grabbed> KMBoneDrag::grabbed() const
{
    QVector<KMJointMove::Grabbed> all = KMBoneTargets::selected();
    if (m_reach == Reach::Wholes) {
        for (KMJointMove::Grabbed &entry : all)
            entry.ends = KMBone::BothSelected;
    }
    return all;
}

/// A joint counts once, whichever of its ends are selected.
std::optional<Vector3> KMBoneDrag::centre() const
{
    QVector<Vector3> places;
    const QVector<KMJointMove::Grabbed> ends = grabbed();
    for (const KMJointMove::Grabbed &entry : ends) {
        const bool isHeadJoint =
            KMJointMove::isAttached(*entry.bone) && (entry.bone->parentBone()->selectMask() & KMBone::TailSelected);
        if ((entry.ends & KMBone::HeadSelected) && !isHeadJoint)
            places << entry.bone->head();
        if ((entry.ends & KMBone::TailSelected) && !entry.bone->isPoint())
            places << entry.bone->tail();
    }
    if (places.isEmpty())
        return {};
    Vector3 sum;
    for (const Vector3 &place : std::as_const(places))
        sum += place;
    return sum / float(places.size());
}

kvm::Quaternion KMBoneDrag::localAxes() const
{
    const QVector<KMJointMove::Grabbed> ends = grabbed();
    if (ends.isEmpty())
        return {};
    const KMBone *bone = ends.first().bone;
    for (const KMJointMove::Grabbed &entry : ends) {
        if (entry.bone == gSolution->currentBone())
            bone = entry.bone;
    }
    return bone->solvedPose().rotation * bone->rotation();
}

bool KMBoneDrag::begin(const Grab &grab)
{
    end();
    const QVector<KMJointMove::Grabbed> ends = grabbed();
    if (ends.isEmpty())
        return false;
    m_drag = grab.drag;
    const Vector3 &anchor = m_drag.start().anchor;
    KMJointMove::Options options;
    options.takesChildren = m_takesChildren;
    options.mirrors = gSolution->editFilter().symmetry;
    options.tolerance = mirrorTolerance(grab.camera, anchor);
    m_move = KMJointMove(ends.first().bone->container(), ends, options, anchor);
    const int sessionOptions = KMSnapSearch::isOn() ? gSolution->snapOptions() : 0;
    const int snapOptions = m_snapOptions >= 0 ? m_snapOptions : sessionOptions;
    if (snapOptions != 0 && m_drag.kind() == KMDragTransform::Kind::Move)
        m_search = std::make_unique<KMSnapSearch>(QVector<KMSnapSearch::Moving>(), snapOptions);
    return !m_move.isEmpty();
}

KMDragTransform KMBoneDrag::apply(const KMDragTransform &asked, const KMCameraNode &camera)
{
    KMDragTransform transform = asked;
    m_target.reset();
    if (m_search) {
        if (gRenderer)
            gRenderer->refreshWindowCoords(camera);
        const Vector3 window = camera.worldToWindow(m_drag.start().anchor + asked.delta);
        m_target = m_search->find(camera, {double(window.x), double(window.y)});
        if (m_target)
            transform.delta = m_drag.limited(m_target->point - m_drag.start().anchor);
    }
    KMJointMove::Motion motion;
    motion.map = KMDragMap(transform);
    motion.isRigid = transform.kind == KMDragTransform::Kind::Rotate;
    if (motion.isRigid)
        motion.turn = transform.turn();
    m_move.apply(motion);
    return transform;
}

void KMBoneDrag::commit()
{
    const KMUndoMacro macro(textOf(m_drag.kind()));
    m_move.pushCommands();
    end();
}

void KMBoneDrag::cancel()
{
    m_move.restore();
    end();
}

void KMBoneDrag::end()
{
    m_move = KMJointMove();
    m_search.reset();
    m_target.reset();
}

std::optional<Vector3> KMBoneDrag::snapPoint() const
{
    return m_target ? std::optional<Vector3>(m_target->point) : std::nullopt;
}

KMElementDrag::KMElementDrag(std::unique_ptr<KMDragSubject> others, KMBoneDrag::Reach reach)
    : m_others(std::move(others))
    , m_bones(std::make_unique<KMBoneDrag>(reach))
    , m_dragged(m_others.get())
{
}

const KMDragSubject &KMElementDrag::subject() const
{
    return KMBoneTargets::selected().isEmpty() ? *m_others : *m_bones;
}

bool KMElementDrag::begin(const Grab &grab)
{
    m_dragged = KMBoneTargets::selected().isEmpty() ? m_others.get() : m_bones.get();
    return m_dragged->begin(grab);
}
