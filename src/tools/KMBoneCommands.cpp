#include "tools/KMBoneCommands.h"

#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMPhysicsMaking.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagRigidBody.h"
#include "tools/KMAlignVertexDialog.h"

#include <QApplication>

#include <algorithm>

namespace {

/// Asks for one of several choices; false when cancelled.
bool choose(const QString &title, const QString &key, const QString &label, const QStringList &choices, int *choice)
{
    KMOptionForm form{title, {{key, label, KMOption::Choice, *choice}}, QApplication::activeWindow()};
    form.options.first().choices = choices;
    if (!KMPrompt::current().options(form))
        return false;
    const int answer = form.value(key).toInt();
    if (answer < 0 || answer >= choices.size())
        return false;
    *choice = answer;
    return true;
}

/// The smallest box around points.
struct Bounds
{
    kvm::Vector3 low{1e30f, 1e30f, 1e30f};
    kvm::Vector3 high{-1e30f, -1e30f, -1e30f};

    void take(const kvm::Vector3 &point)
    {
        for (int axis = 0; axis < 3; ++axis) {
            low[axis] = std::min(low[axis], point[axis]);
            high[axis] = std::max(high[axis], point[axis]);
        }
    }
    int thinnestAxis() const
    {
        const kvm::Vector3 size = high - low;
        return size.x <= size.y && size.x <= size.z ? 0 : size.y <= size.z ? 1 : 2;
    }
};

Bounds boundsOf(const QList<KMBone *> &bones, const kvm::Matrix4 &toSpace)
{
    Bounds bounds;
    for (const KMBone *bone : bones) {
        if (bone->selectMask() & KMBone::HeadSelected)
            bounds.take(toSpace * bone->restHead());
        if (bone->selectMask() & KMBone::TailSelected)
            bounds.take(toSpace * bone->restTail());
    }
    return bounds;
}

/// Whether a bone only moves to its new ends, but for rounding. It keeps its roll then.
bool isSameWay(const kvm::Vector3 &head, const kvm::Vector3 &tail, const KMBoneRest &rest)
{
    constexpr float roundingStep = 4e-7f;
    const kvm::Vector3 difference = (tail - head) - (rest.tail() - rest.head);
    return difference.length() <= roundingStep * (head.length() + tail.length());
}

QList<KMTagRigidBody *> selectedBodies(const KMBoneContainer &container)
{
    QList<KMTagRigidBody *> bodies = KMRigTags::bodies(&container);
    const auto isLeftOut = [](const KMTagRigidBody *body) { return !body->isSelected(); };
    bodies.erase(std::remove_if(bodies.begin(), bodies.end(), isLeftOut), bodies.end());
    return bodies;
}

/// The partner that is to be changed or copied; null for a bone that has none on the other side.
KMBone *partnerOf(const KMBone *bone, const KMBoneContainer &container)
{
    if (KMBone *partner = bone->mirrorBone())
        return partner == bone ? nullptr : partner;
    const QString name = KMBoneEdit::mirroredName(bone->name());
    return name.isEmpty() ? nullptr : container.bone(name); // a file may hold bones without a name
}

} // namespace

KMBoneCommand::Work BoneComEditViewMode::plan(KMBoneContainer &container)
{
    struct Mode
    {
        QString label;
        int viewType;
    };
    const Mode modes[] = {
        {tr("Polygon"), KMBoneShape::Polygon}, {tr("Line"), KMBoneShape::Line}, {tr("Point"), KMBoneShape::Point}};
    const QList<KMBone *> bones = container.selectedBones();
    QStringList labels;
    int choice = 0;
    for (const Mode &mode : modes) {
        if (bones.first()->viewType() == mode.viewType)
            choice = labels.size();
        labels << mode.label;
    }
    if (!choose(text(), QStringLiteral("view-mode"), tr("ViewMode"), labels, &choice))
        return {};
    const int viewType = modes[choice].viewType;
    const auto differs = [viewType](const KMBone *bone) { return bone->viewType() != viewType; };
    if (std::none_of(bones.begin(), bones.end(), differs))
        return nothing(tr("The bones are shown so already."));
    return [bones, viewType, differs] {
        for (KMBone *bone : bones) {
            if (differs(bone))
                gSolution->push(new editBoneViewTypeCommand(bone, viewType));
        }
    };
}

bool KMBoneAxisCommand::askAxis()
{
    const QStringList axes{QStringLiteral("+X"), QStringLiteral("+Y"), QStringLiteral("+Z"),
                           QStringLiteral("-X"), QStringLiteral("-Y"), QStringLiteral("-Z")};
    return choose(text(), QStringLiteral("axis"), tr("axis"), axes, &m_choice);
}

KMBoneCommand::Work BoneComAlignUpVector::plan(KMBoneContainer &container)
{
    if (!askAxis())
        return {};
    kvm::Vector3 up;
    up[axis()] = sign();
    return workOf(KMBoneEdit::upAligned(container.selectedBones(), up));
}

KMBoneCommand::Work BoneComConvertAxis::plan(KMBoneContainer &container)
{
    if (!askAxis())
        return {};
    constexpr float half = 0.70710677f;
    kvm::Vector3 turn;
    turn[axis()] = half * sign();
    return workOf(KMBoneEdit::turned(container.selectedBones(), {half, turn.x, turn.y, turn.z}));
}

KMBoneCommand::Work BoneComAlignPosition::plan(KMBoneContainer &container)
{
    const QList<KMBone *> bones = container.selectedBones();
    const auto toWorld = [&container](bool isWorld) { return isWorld ? kvm::Matrix4() : container.worldMatrix(); };
    const auto centre = [&bones, &toWorld](bool isWorld) {
        const Bounds bounds = boundsOf(bones, toWorld(isWorld).inverse());
        return (bounds.low + bounds.high) * 0.5f;
    };
    KMAlignVertexDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(text());
    connect(&dialog, &KMAlignVertexDialog::onSetWorld, this,
            [&centre](KMAlignVertexDialog *shown, bool isWorld) { shown->setValues(centre(isWorld)); });
    dialog.setValues(centre(true));
    dialog.setAligns(boundsOf(bones, {}).thinnestAxis(), true);
    if (!KMPrompt::current().dialog(dialog))
        return {};
    const kvm::Matrix4 fromSpace = toWorld(dialog.isWorld());
    const kvm::Matrix4 toSpace = fromSpace.inverse();
    const auto aligned = [&dialog, &fromSpace, &toSpace](const kvm::Vector3 &point) {
        kvm::Vector3 place = toSpace * point;
        for (int axis = 0; axis < 3; ++axis) {
            if (dialog.aligns(axis))
                place[axis] = dialog.values()[axis];
        }
        return dialog.isWorld() ? place : fromSpace * place;
    };
    KMBoneEdit::Changes changes;
    for (KMBone *bone : bones) {
        KMBoneRest rest = bone->rest();
        const bool takesHead = bone->isPoint() || bone->selectMask() & KMBone::HeadSelected;
        const bool takesTail = !bone->isPoint() && bone->selectMask() & KMBone::TailSelected;
        const kvm::Vector3 head = takesHead ? aligned(rest.head) : rest.head;
        const kvm::Vector3 tail = takesTail ? aligned(rest.tail()) : rest.tail();
        if (bone->isPoint() || isSameWay(head, tail, rest))
            rest.head = head;
        else
            rest = restBone(head, tail, rest);
        changes.append({bone, rest});
    }
    return workOf(changes);
}

QString BoneComSymmetrize::obstacle() const
{
    const QString reason = KMBoneCommand::obstacle();
    if (!reason.isEmpty())
        return reason;
    const KMBoneContainer *container = KMBoneContainer::activeBoneContainer();
    const QList<KMBone *> bones = container->selectedBones();
    if (bones.size() != 2)
        return tr("Bone Selection not found.");
    KMBoneEdit::Fault fault;
    KMBoneEdit::symmetrized(bones[0], bones[1], container->mirrorPlane(), &fault);
    switch (fault) {
    case KMBoneEdit::Fault::None:
        break;
    case KMBoneEdit::Fault::Heads:
        return tr("illegal head position");
    case KMBoneEdit::Fault::Tails:
        return tr("illegal tail position");
    }
    return {};
}

KMBoneCommand::Work BoneComSymmetrize::plan(KMBoneContainer &container)
{
    const QList<KMBone *> bones = container.selectedBones();
    KMBoneEdit::Fault fault;
    return workOf(KMBoneEdit::symmetrized(bones[0], bones[1], container.mirrorPlane(), &fault));
}

KMBoneCommand::Work BoneComAlignReflectBone::plan(KMBoneContainer &container)
{
    if (!choose(text(), QStringLiteral("side"), tr("Side"), {tr("Right"), tr("Left")}, &m_side))
        return {};
    const float margin = gSettings->symmetryMargin;
    KMBoneEdit::pairForEdits(&container, margin);
    const KMSymmetryPlane plane = container.mirrorPlane();
    const auto isOnSide = [&](const KMBone *bone) {
        const float head = plane.distance(bone->restHead());
        const float distance = std::abs(head) < margin ? plane.distance(bone->restTail()) : head;
        return m_side == 0 ? distance < 0.0f : distance > 0.0f;
    };
    KMBoneEdit::Changes changes;
    QSet<KMBone *> done;
    for (KMBone *bone : container.selectedBones()) {
        KMBone *partner = partnerOf(bone, container);
        if (!partner || isOnSide(bone) == isOnSide(partner))
            continue;
        KMBone *target = isOnSide(bone) ? bone : partner;
        KMBone *source = isOnSide(bone) ? partner : bone;
        if (done.contains(target))
            continue;
        done.insert(target);
        changes.append({target, KMBoneEdit::reflected(source->rest(), plane)});
    }
    return workOf(changes, tr("No selected bone has a partner on the other side."));
}

QString BoneComMakeRigidBody::obstacle() const
{
    const QString missing = KMBoneCommand::obstacle();
    if (!missing.isEmpty() || !KMBoneEdit::selectedWithLength(*KMBoneContainer::activeBoneContainer()).isEmpty())
        return missing;
    return tr("Bone Selection not found.");
}

KMBoneCommand::Work BoneComMakeRigidBody::plan(KMBoneContainer &container)
{
    KMOptionForm form{text(),
                      {{QStringLiteral("shape-type"), tr("Shape Type"), KMOption::Choice, m_shape},
                       {QStringLiteral("with-joint"), tr("With Joint"), KMOption::Bool, m_withJoints}},
                      QApplication::activeWindow()};
    form.options.first().choices = KMTagRigidBody::shapeNames();
    if (!KMPrompt::current().options(form))
        return {};
    m_shape = form.value(QStringLiteral("shape-type")).toInt();
    m_withJoints = form.value(QStringLiteral("with-joint")).toBool();
    const QList<KMBone *> bones = KMBoneEdit::selectedWithLength(container);
    return
        [bones, shape = m_shape, withJoints = m_withJoints] { KMPhysicsMaking::pushBodies(bones, shape, withJoints); };
}

QString BoneComMakeSideJoint::obstacle() const
{
    const QString missing = KMBoneCommand::obstacle();
    if (!missing.isEmpty() || selectedBodies(*KMBoneContainer::activeBoneContainer()).size() == 2)
        return missing;
    return tr("Two RigidBody Selection not found.");
}

KMBoneCommand::Work BoneComMakeSideJoint::plan(KMBoneContainer &container)
{
    const QList<KMTagRigidBody *> bodies = selectedBodies(container);
    const int first = QApplication::keyboardModifiers() & Qt::ControlModifier ? 1 : 0;
    return [a = bodies[first], b = bodies[1 - first]] { KMPhysicsMaking::pushSideJoint(a, b); };
}
