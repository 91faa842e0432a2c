#include "rig/KMBoneMMDTemplate.h"

#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagConstraint.h"

#include <QHash>

namespace {

enum Flag { Attached = 0, Floating = 1, Movable = 2, MovableFloating = 3 };

/// A bone of the middle or of the left side. Its direction need not be of unit length.
struct BoneRow
{
    const char *name;
    const char *rightName; ///< of its image across x = 0; null in the middle
    const char *parent;    ///< null at the top
    kvm::Vector3 head;
    kvm::Vector3 direction;
    float length;
    int flags;
};

struct ConstraintRow
{
    const char *bone;
    KMTagConstraint::Type type;
    const char *target; ///< null for none
    float value;
    int loop;
    int links;
};

constexpr kvm::Vector3 up{0.0f, 1.0f, 0.0f};
constexpr kvm::Vector3 down{0.0f, -1.0f, 0.0f};
constexpr kvm::Vector3 forward{0.0f, 0.0f, -1.0f};
constexpr kvm::Vector3 backward{0.0f, 0.0f, 1.0f};
constexpr kvm::Vector3 alongArm{42.7796f, -29.6717f, 0.0f}; // from the arm's head to the wrist, in four equal parts

// A bone is two lines, its names and its numbers.
// clang-format off
const BoneRow rows[] = {
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "root"), nullptr,
     nullptr, {0.0f, 0.0f, 0.0f}, forward, 50.0f, MovableFloating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "center"), nullptr,
     "root", {0.0f, 70.0f, 0.0f}, down, 70.0f, MovableFloating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "upper body"), nullptr,
     "center", {0.0f, 119.1549f, -2.7093f}, {0.0f, 19.7169f, 0.5205f}, 19.7238f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "upper body2"), nullptr,
     "upper body", {0.0f, 138.8718f, -2.1888f}, {0.0f, 23.3282f, 3.1697f}, 23.5426f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "neck"), nullptr,
     "upper body2", {0.0f, 162.2f, 0.9809f}, up, 2.74f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "head"), nullptr,
     "neck", {0.0f, 164.94f, 0.9809f}, up, 22.5667f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "eyes"), nullptr,
     "head", {0.0f, 198.33f, 1.6015f}, forward, 14.9823f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "eye_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "eye_R"),
     "head", {3.9312f, 172.88f, 0.1381f}, forward, 9.09522f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "shoulder_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "shoulder_R"),
     "upper body2", {4.5286f, 156.7817f, 3.0f}, {7.1014f, -0.9017f, 0.0f}, 7.15841f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "arm_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "arm_R"),
     "shoulder_L", {11.63f, 155.88f, 3.0f}, alongArm, 13.0156f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "arm twist_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "arm twist_R"),
     "arm_L", {22.3249f, 148.4621f, 3.0f}, alongArm, 13.0156f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "elbow_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "elbow_R"),
     "arm twist_L", {33.0198f, 141.0442f, 3.0f}, alongArm, 13.0156f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "wrist twist_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "wrist twist_R"),
     "elbow_L", {43.7147f, 133.6262f, 3.0f}, alongArm, 13.0156f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "wrist_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "wrist_R"),
     "wrist twist_L", {54.4096f, 126.2083f, 3.0f}, alongArm, 8.0777f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "thumb1_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "thumb1_R"),
     "wrist_L", {56.6f, 124.1f, 0.4f}, {2.6f, -2.2f, -2.4f}, 4.1665f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "thumb2_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "thumb2_R"),
     "thumb1_L", {59.2f, 121.9f, -2.0f}, {2.2f, -2.1f, -1.1f}, 3.2342f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore1_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore1_R"),
     "wrist_L", {60.9f, 121.9f, -0.3f}, {3.4f, -2.7f, -0.3f}, 4.352f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore2_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore2_R"),
     "fore1_L", {64.3f, 119.2f, -0.6f}, {2.0f, -1.8f, -0.1f}, 2.6926f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore3_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "fore3_R"),
     "fore2_L", {66.3f, 117.4f, -0.7f}, {1.6f, -1.6f, 0.0f}, 2.2627f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle1_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle1_R"),
     "wrist_L", {61.2f, 121.7f, 2.0f}, {3.6f, -2.9f, 0.0f}, 4.6228f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle2_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle2_R"),
     "middle1_L", {64.8f, 118.8f, 2.0f}, {2.3f, -2.1f, 0.0f}, 3.1145f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle3_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "middle3_R"),
     "middle2_L", {67.1f, 116.7f, 2.0f}, {1.7f, -1.8f, 0.0f}, 2.4759f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third1_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third1_R"),
     "wrist_L", {60.8f, 121.6f, 4.2f}, {3.3f, -2.8f, 0.2f}, 4.3324f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third2_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third2_R"),
     "third1_L", {64.1f, 118.8f, 4.4f}, {2.1f, -2.0f, 0.1f}, 2.9017f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third3_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "third3_R"),
     "third2_L", {66.2f, 116.8f, 4.5f}, {1.5f, -1.7f, 0.0f}, 2.2672f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little1_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little1_R"),
     "wrist_L", {60.1f, 121.5f, 6.2f}, {2.6f, -2.4f, 0.4f}, 3.5609f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little2_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little2_R"),
     "little1_L", {62.7f, 119.1f, 6.6f}, {1.5f, -1.5f, 0.1f}, 2.1237f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little3_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "little3_R"),
     "little2_L", {64.2f, 117.6f, 6.7f}, {1.2f, -1.4f, 0.0f}, 1.8439f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "lower body"), nullptr,
     "center", {0.0f, 119.1549f, -2.7093f}, down, 16.7095f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "leg_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "leg_R"),
     "lower body", {9.0f, 102.11f, -3.54f}, {0.0f, -41.3425f, 0.7057f}, 41.3485f, Floating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "knee_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "knee_R"),
     "leg_L", {9.0f, 60.7675f, -2.8343f}, {0.0f, -49.0675f, 2.8343f}, 49.1493f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "ankle_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "ankle_R"),
     "knee_L", {9.0f, 11.7f, 0.0f}, {0.0f, -10.2f, -26.2063f}, 28.1215f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "toe_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "toe_R"),
     "ankle_L", {9.0f, 1.5f, -26.2063f}, forward, 5.0f, Attached},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "leg IK_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "leg IK_R"),
     "root", {9.0f, 11.7f, 0.0f}, backward, 15.9197f, MovableFloating},
    {QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "toe IK_L"), QT_TRANSLATE_NOOP("KMBoneMMDTemplate", "toe IK_R"),
     "leg IK_L", {9.0f, 1.5f, -26.2063f}, down, 8.0f, MovableFloating},
};
// clang-format on

constexpr ConstraintRow constraints[] = {
    {"eye_L", KMTagConstraint::Rotate, "eyes", 0.5f, 0, 0},
    {"eye_R", KMTagConstraint::Rotate, "eyes", 0.5f, 0, 0},
    {"arm twist_L", KMTagConstraint::Twist, nullptr, 0.0f, 0, 0},
    {"arm twist_R", KMTagConstraint::Twist, nullptr, 0.0f, 0, 0},
    {"wrist twist_L", KMTagConstraint::Twist, nullptr, 0.0f, 0, 0},
    {"wrist twist_R", KMTagConstraint::Twist, nullptr, 0.0f, 0, 0},
    {"leg IK_L", KMTagConstraint::IK, "ankle_L", 120.0f, 40, 2},
    {"toe IK_L", KMTagConstraint::IK, "toe_L", 230.0f, 3, 1},
    {"leg IK_R", KMTagConstraint::IK, "ankle_R", 120.0f, 40, 2},
    {"toe IK_R", KMTagConstraint::IK, "toe_R", 230.0f, 3, 1},
};

/// The parent on the same side: a bone of the middle is that of both.
QByteArray rightOf(const char *name)
{
    QByteArray right(name);
    if (right.endsWith("_L"))
        right[right.size() - 1] = 'R';
    return right;
}

/// The tree stays hidden while its rows come.
class HiddenTree
{
    Q_DISABLE_COPY(HiddenTree)
public:
    explicit HiddenTree(QWidget *tree)
        : m_tree(tree)
        , m_wasVisible(tree->isVisible())
    {
        if (m_wasVisible)
            m_tree->hide();
    }
    ~HiddenTree()
    {
        if (m_wasVisible)
            m_tree->show();
    }

private:
    QWidget *m_tree;
    bool m_wasVisible;
};

class Inserter
{
public:
    explicit Inserter(KMBoneContainer *container)
        : m_container(container)
    {
    }

    void add(const BoneRow &row);      ///< as it is written
    void addRight(const BoneRow &row); ///< across the plane x = 0
    void addConstraints();

private:
    void add(const QByteArray &name, const QByteArray &parent, const KMBoneRest &rest, int flags);

    KMBoneContainer *m_container;
    QHash<QByteArray, KMBone *> m_added;
};

KMBoneRest restOf(const BoneRow &row)
{
    KMBoneRest rest;
    rest.head = row.head;
    rest.rotation = directionToQuaternion(-row.direction, {0.0f, 0.0f, -1.0f});
    rest.lengthScale = row.length * 0.01f;
    return rest;
}

void Inserter::add(const BoneRow &row)
{
    add(row.name, row.parent, restOf(row), row.flags);
}

void Inserter::addRight(const BoneRow &row)
{
    add(row.rightName, rightOf(row.parent), KMBoneEdit::reflected(restOf(row), KMSymmetryPlane({}, {1.0f, 0.0f, 0.0f})),
        row.flags);
}

void Inserter::add(const QByteArray &name, const QByteArray &parent, const KMBoneRest &rest, int flags)
{
    auto *bone = new KMBone;
    bone->setName(KMBoneMMDTemplate::tr(name));
    bone->setRest(rest);
    bone->setFloating(flags & Floating);
    bone->setMovable(flags & Movable);
    m_added.insert(name, bone);
    gSolution->push(new addBoneCommand(m_container, bone, m_added.value(parent)));
}

void Inserter::addConstraints()
{
    for (const ConstraintRow &row : constraints) {
        KMBone *bone = m_added.value(row.bone);
        auto *tag = new KMTagConstraint;
        tag->setName(bone->name());
        tag->setData({m_added.value(row.target), row.value, row.loop, row.type, row.links});
        gSolution->push(new addTagBoneContainerCommand(bone, tag, -1, addTagCommand::Name::Keep));
    }
}

/// Where the right side of a row comes: the fingers of a hand follow one another, and so do the bones of a leg's IK;
/// the right toe stands before the left one.
enum class RightSide { None, Behind, Before, BehindBlock };

RightSide rightSideOf(const BoneRow &row)
{
    if (!row.rightName)
        return RightSide::None;
    const QByteArray name(row.name);
    if (name == "toe_L")
        return RightSide::Before;
    const bool isFinger =
        row.parent == QByteArray("wrist_L") || name.at(name.size() - 3) == '2' || name.at(name.size() - 3) == '3';
    return isFinger || name.contains("IK") ? RightSide::BehindBlock : RightSide::Behind;
}

} // namespace

void KMBoneMMDTemplate::insertInto(KMBoneContainer *container)
{
    const HiddenTree hidden(container->tree());
    Inserter inserter(container);
    QList<const BoneRow *> block; // rows whose right sides are still to come
    const auto endBlock = [&block, &inserter] {
        for (const BoneRow *row : std::as_const(block))
            inserter.addRight(*row);
        block.clear();
    };
    for (const BoneRow &row : rows) {
        const RightSide side = rightSideOf(row);
        if (side != RightSide::BehindBlock)
            endBlock();
        if (side == RightSide::Before)
            inserter.addRight(row);
        inserter.add(row);
        if (side == RightSide::Behind)
            inserter.addRight(row);
        if (side == RightSide::BehindBlock)
            block << &row;
    }
    endBlock();
    inserter.addConstraints();
}
