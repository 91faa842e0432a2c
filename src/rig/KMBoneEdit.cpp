// How bones are given another rest pose.

#include "rig/KMBoneEdit.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneSelectionCommand.h"

#include <QRegularExpression>
#include <QSet>

#include <algorithm>

namespace KMBoneEdit {

namespace {

bool isChain(const QList<KMBone *> &bones)
{
    for (int i = 1; i < bones.size(); ++i) {
        if (bones[i]->parentBone() != bones[i - 1])
            return false;
    }
    return bones.size() >= 2;
}

/// Two points as each other's image: across the place where the line between them meets the plane, at their mean
/// distance. False when they don't lie on two sides.
bool makeSymmetric(kvm::Vector3 &a, kvm::Vector3 &b, const KMSymmetryPlane &plane)
{
    const float da = plane.distance(a);
    const float db = plane.distance(b);
    if (!(da * db < 0.0f))
        return false;
    const kvm::Vector3 crossing = a + (b - a) * (da / (da - db));
    const kvm::Vector3 way = plane.normal() * ((std::abs(da) + std::abs(db)) * 0.5f);
    a = da > 0.0f ? crossing + way : crossing - way;
    b = da > 0.0f ? crossing - way : crossing + way;
    return true;
}

/// Whether two rests are one but for rounding: what is computed from its own result doesn't come out bit for bit.
bool isSame(const KMBoneRest &a, const KMBoneRest &b)
{
    constexpr float step = 1e-6f;
    const float margin = step * (1.0f + a.head.length() + a.tail().length());
    return (a.head - b.head).length() <= margin && (a.tail() - b.tail()).length() <= margin
           && (a.rotation + -b.rotation).length() <= 2.0f * step && a.scale == b.scale;
}

/// What tells the side in a name, and what stands there in the name of the partner.
struct SideMark
{
    QRegularExpression pattern;
    QString other;
};

QVector<SideMark> sideMarks()
{
    // Words in letters of two cases end where another word begins: "bright" has no side, "rightArm" has one.
    const QString noLetter = QStringLiteral("(?<![\\p{Lu}\\p{Ll}])");
    const QString noCapital = QStringLiteral("(?<!\\p{Lu})");
    const QString noSmall = QStringLiteral("(?!\\p{Ll})");
    const QString end = QStringLiteral("\\z");
    const struct
    {
        QString left, right, before, behind;
    } rows[] = {
        {QStringLiteral("_L"), QStringLiteral("_R"), {}, end},
        {QStringLiteral(".L"), QStringLiteral(".R"), {}, end},
        {QStringLiteral("_l"), QStringLiteral("_r"), {}, end},
        {QStringLiteral(".l"), QStringLiteral(".r"), {}, end},
        {QStringLiteral("左"), QStringLiteral("右"), {}, {}},
        {QStringLiteral("Left"), QStringLiteral("Right"), noCapital, noSmall},
        {QStringLiteral("left"), QStringLiteral("right"), noLetter, noSmall},
    };
    QVector<SideMark> marks;
    const auto add = [&marks](const QString &before, const QString &from, const QString &behind, const QString &to) {
        marks.append({QRegularExpression(before + QRegularExpression::escape(from) + behind), to});
    };
    for (const auto &row : rows) {
        add(row.before, row.left, row.behind, row.right);
        add(row.before, row.right, row.behind, row.left);
    }
    return marks;
}

} // namespace

QList<KMBone *> selectedWithLength(const KMBoneContainer &container)
{
    QList<KMBone *> bones;
    for (KMBone *bone : container.selectedBones()) {
        if (!bone->isPoint())
            bones << bone;
    }
    return bones;
}

void pushSelected(KMBoneContainer *rig, const QList<KMBone *> &bones)
{
    const QSet<KMBone *> wanted(bones.begin(), bones.end());
    KMBone *current = bones.isEmpty() ? nullptr : bones.last();
    QVector<selectBonesCommand::Mask> masks;
    for (KMBone *bone : rig->bones()) {
        const bool isWanted = wanted.contains(bone);
        if (bone != current && isWanted != (bone->selectMask() != 0))
            masks.append({bone, isWanted ? KMBone::BothSelected : 0});
    }
    if (current && (!current->selectMask() || gSolution->currentBone() != current))
        masks.append({current, KMBone::BothSelected});
    if (!masks.isEmpty())
        gSolution->push(new selectBonesCommand(rig, masks));
}

bool areNeeded(const Changes &changes)
{
    return std::any_of(changes.begin(), changes.end(),
                       [](const Change &change) { return !isSame(change.rest, change.bone->rest()); });
}

void pushChanges(const Changes &changes)
{
    for (const Change &change : changes) {
        if (!isSame(change.rest, change.bone->rest()))
            gSolution->push(new editBoneGeometryCommand(change.bone, change.rest));
    }
}

Changes linearized(const QList<KMBone *> &bones)
{
    QList<KMBone *> chain;
    float sum = 0.0f;
    for (KMBone *bone : bones) {
        if (bone->isPoint())
            continue;
        chain << bone;
        sum += bone->lengthScale();
    }
    if (!isChain(chain) || !(sum > 0.0f))
        return {};
    const kvm::Vector3 start = chain.first()->restHead();
    const kvm::Vector3 way = chain.last()->restTail() - start;
    Changes changes;
    float share = 0.0f;
    kvm::Vector3 head = start;
    for (KMBone *bone : std::as_const(chain)) {
        share += bone->lengthScale() / sum;
        // The last share is what the others leave of 1, so that rounding doesn't move the end.
        const kvm::Vector3 tail = bone == chain.last() ? start + way : start + way * share;
        changes.append({bone, restBone(head, tail, bone->rest())});
        head = tail;
    }
    return changes;
}

Changes symmetrized(KMBone *first, KMBone *second, const KMSymmetryPlane &plane, Fault *fault)
{
    kvm::Vector3 heads[] = {first->restHead(), second->restHead()};
    kvm::Vector3 tails[] = {first->restTail(), second->restTail()};
    const bool haveTails = !first->isPoint() && !second->isPoint();
    *fault = Fault::None;
    if (!makeSymmetric(heads[0], heads[1], plane))
        *fault = Fault::Heads;
    else if (haveTails && !makeSymmetric(tails[0], tails[1], plane))
        *fault = Fault::Tails;
    if (*fault != Fault::None)
        return {};
    Changes changes{{first, first->rest()}, {second, second->rest()}};
    for (int i = 0; i < 2; ++i) {
        if (haveTails)
            changes[i].rest = restBone(heads[i], tails[i], changes[i].rest);
        else
            changes[i].rest.head = heads[i];
    }
    return changes;
}

Changes fittedTo(KMBone *bone, const KMBone *child)
{
    return {{bone, restBone(bone->restHead(), child->restHead(), bone->rest())}};
}

Changes upAligned(const QList<KMBone *> &bones, const kvm::Vector3 &up)
{
    Changes changes;
    for (KMBone *bone : bones) {
        KMBoneRest rest = bone->rest();
        const kvm::Vector3 direction = rest.head - rest.tail();
        if (direction.lengthSquared() == 0.0f)
            continue;
        rest.rotation = directionToQuaternion(direction, up);
        changes.append({bone, rest});
    }
    return changes;
}

Changes turned(const QList<KMBone *> &bones, const kvm::Quaternion &turn)
{
    Changes changes;
    for (KMBone *bone : bones) {
        KMBoneRest rest = bone->rest();
        rest.head = turn.rotate(rest.head);
        rest.rotation = turn * rest.rotation;
        changes.append({bone, rest});
    }
    return changes;
}

KMBoneRest reflected(KMBoneRest rest, const KMSymmetryPlane &plane)
{
    // A reflection is half a turn about the normal and a turning round of all axes. That of the plane and that of the
    // bone's own X axis together are a rotation again.
    const kvm::Quaternion aboutNormal(plane.normal());
    const kvm::Quaternion backAboutX(0.0f, -1.0f, 0.0f, 0.0f); // back, so that w keeps its sign
    rest.head = plane.reflected(rest.head);
    rest.rotation = aboutNormal * rest.rotation * backAboutX;
    return rest;
}

void pairForEdits(KMBoneContainer *container, float tolerance)
{
    container->pairMirrorBones(tolerance);
    const KMSymmetryPlane plane = container->mirrorPlane();
    // Of bones at the same places several find the same partner: those that it hasn't found look on.
    QList<KMBone *> open;
    for (KMBone *bone : container->bones()) {
        const KMBone *partner = bone->mirrorBone();
        const bool isOnPlane = std::abs(plane.distance(bone->restHead())) < tolerance;
        if (partner ? partner->mirrorBone() != bone : isOnPlane)
            open << bone;
    }
    for (KMBone *bone : std::as_const(open))
        bone->setMirrorBone(nullptr);
    for (KMBone *bone : std::as_const(open)) {
        if (bone->mirrorBone())
            continue;
        const kvm::Vector3 head = plane.reflected(bone->restHead());
        const kvm::Vector3 tail = plane.reflected(bone->restTail());
        const auto isImage = [&](const KMBone *other) {
            return other != bone && !other->mirrorBone() && (other->restHead() - head).length() < tolerance
                   && (other->restTail() - tail).length() < tolerance;
        };
        const auto found = std::find_if(open.cbegin(), open.cend(), isImage);
        if (found == open.cend())
            continue;
        bone->setMirrorBone(*found);
        (*found)->setMirrorBone(bone);
    }
}

QString mirroredName(const QString &name)
{
    static const QVector<SideMark> marks = sideMarks();
    for (const SideMark &mark : marks) {
        if (mark.pattern.match(name).hasMatch())
            return QString(name).replace(mark.pattern, mark.other);
    }
    return {};
}

} // namespace KMBoneEdit
