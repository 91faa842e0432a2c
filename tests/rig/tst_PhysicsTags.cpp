#include "core/KMNodePropertyCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "math/MathReference.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneCopy.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMPhysicsMaking.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagMorph.h"
#include "rig/KMTagValueCommands.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <functional>

using namespace reference;

namespace {

/// arm and elbow with a body each and a joint between them, hand without; all in the group "Frame".
class Figure : public RigScene
{
public:
    Figure()
        : frame(new KMDisplayNode)
        , other(new KMDisplayNode)
    {
        arm = addBone(QStringLiteral("arm"), nullptr, {1, 2, 3}, {11, 2, 3});
        elbow = addBone(QStringLiteral("elbow"), arm, {11, 2, 3}, {18, 5, -2});
        hand = addBone(QStringLiteral("hand"), elbow, {18, 5, -2}, {20, 5, -2});
        KMPhysicsMaking::pushBodies({arm, elbow}, KMTagRigidBody::Capsule, true);
        frame->setItems({DisplayItem::of(arm), DisplayItem::of(elbow), DisplayItem::of(hand)});
        gProject->addToScene(frame);
        gProject->addToScene(other);
        forget();
    }
    KMTagRigidBody *body(KMBone *bone) const { return KMPhysicsMaking::firstBody(bone); }
    KMTagJoint *joint(int index) const { return KMRigTags::joints(rig).value(index); }

    KMBone *arm, *elbow, *hand;
    KMDisplayNode *frame, *other;
};

using Make = std::function<KMUndoCommand *(Figure &)>;

Mat shortest(const Vec &from, const Vec &to)
{
    const Vec axis = cross(from, to);
    return rotation(unit(axis), std::atan2(length(axis), dot(from, to)));
}

/// A chain of bones without offsets: heads and rotations in the world by the local rotations.
struct Chain
{
    QVector<Vec> rests; // of the heads, and the tail of the last one at the end
    QVector<Mat> local;

    Mat world(int bone) const { return bone == 0 ? local[0] : product(world(bone - 1), local[bone]); }
    Vec at(int point) const // of rests
    {
        if (point == 0)
            return rests[0];
        return plus(at(point - 1), reference::apply(world(point - 1), minus(rests[point], rests[point - 1])));
    }
};

} // namespace
Q_DECLARE_METATYPE(Make)

class tst_PhysicsTags : public QObject
{
    Q_OBJECT
private slots:
    void proof_data();
    void proof();
    void gizmoStandsOnTheBoneAtRest();
    void madeBodies();
    void sideJoint();
    void copiesKeepToThemselves();
    void solverAgainstDoubles();
    void solverLeavesAlone();
    void groupSwitchesChildren();
    void groupSwitchesModifiers();
    void rememberedSelection();
    void itemsOfMorphs();
    void severalItemsAtOnce();
    void randomWalk();
};

void tst_PhysicsTags::proof_data()
{
    QTest::addColumn<Make>("make");
    const auto row = [](const char *name, const Make &make) { QTest::newRow(name) << make; };
    row("body", [](Figure &s) {
        RigidBodyData data = s.body(s.arm)->parameters();
        data.friction = 0.25f;
        data.pose.offset.x = 5.0f;
        return new editTagRigidBodyCommand(s.body(s.arm), data);
    });
    row("joint", [](Figure &s) {
        JointData data = s.joint(1)->parameters();
        std::swap(data.bodyA, data.bodyB);
        data.angularLimit[3] = 30.0f;
        return new editTagJointCommand(s.joint(1), data);
    });
    row("delete a body", [](Figure &s) { return new deleteTagBoneContainerCommand(s.arm, s.body(s.arm)); });
    row("delete the bone of a body", [](Figure &s) { return new deleteBoneCommand(s.arm); });
    row("delete a bone of a group", [](Figure &s) { return new deleteBoneCommand(s.hand); });
    row("add a group", [](Figure &) {
        auto *group = new KMDisplayNode;
        gProject->addRaw(group);
        group->setDeleted(true);
        return new addDisplayNodeCommand(group);
    });
    row("remove a group", [](Figure &s) { return new removeDisplayNodeCommand(s.frame); });
    row("move a group", [](Figure &s) { return new moveDisplayNodeCommand(s.frame, 1); });
    row("rename a group", [](Figure &s) { return new renameDisplayNodeCommand(s.frame, QStringLiteral("Root")); });
    row("add an item", [](Figure &s) { return new addDisplayItemCommand(s.other, DisplayItem::of(s.arm)); });
    row("remove an item", [](Figure &s) { return new removeDisplayItemCommand(s.frame, 1); });
    row("move an item", [](Figure &s) { return new moveDisplayItemCommand(s.frame, 0, 2); });
}

void tst_PhysicsTags::proof()
{
    QFETCH(Make, make);
    Figure scene;
    QCOMPARE(proofFailure(scene.dump, [&] { return make(scene); }), QString());
}

void tst_PhysicsTags::gizmoStandsOnTheBoneAtRest()
{
    Figure scene;
    KMTagRigidBody *body = scene.body(scene.elbow);
    RigidBodyData data = body->parameters();
    data.shape = KMTagRigidBody::Box;
    data.width = 2.0f;
    data.height = 4.0f;
    data.depth = 6.0f;
    data.pose.rotation = kvm::Quaternion::fromEuler(0.0f, 0.3f, 0.0f);
    data.pose.scale = {5.0f, 5.0f, 5.0f}; // which no player is told
    body->setParameters(data);
    const auto expected = [&](float x, float y, float z) {
        const KMBoneRest rest = scene.elbow->rest();
        return rest.head + rest.rotation.rotate(data.pose.offset + data.pose.rotation.rotate({x, y, z}));
    };
    for (const float side : {-1.0f, 1.0f}) {
        const kvm::Vector3 corner = expected(side, 3.0f, side * 2.0f);
        bool isThere = false;
        for (int v = 0; v < body->gizmo()->vertexCount(); ++v)
            isThere |= (body->gizmo()->position(v) - corner).length() < 1e-4f;
        QVERIFY(isThere);
    }
    const kvm::Vector3 before = body->gizmo()->position(0);
    KMBoneRest moved = scene.elbow->rest();
    moved.head.x += 10.0f;
    scene.elbow->setRest(moved);
    QVERIFY((body->gizmo()->position(0) - before - kvm::Vector3(10.0f, 0.0f, 0.0f)).length() < 1e-4f);
    scene.elbow->setKeyPose({{1, 1, 1}, kvm::Quaternion::fromEuler(1.0f, 0.0f, 0.0f), {}});
    scene.rig->animation()->reevaluate();
    QVERIFY((body->gizmo()->position(0) - before - kvm::Vector3(10.0f, 0.0f, 0.0f)).length() < 1e-4f);
}

void tst_PhysicsTags::madeBodies()
{
    struct Shape
    {
        int shape;
        float width, height, depth; // by the length
    };
    for (const Shape &row :
         {Shape{KMTagRigidBody::Sphere, 1.0f, 0.0f, 0.0f}, Shape{KMTagRigidBody::Box, 0.5f, 1.0f, 0.5f},
          Shape{KMTagRigidBody::Capsule, 0.75f, 2.0f, 0.0f}}) {
        Figure scene;
        KMPhysicsMaking::pushBodies({scene.hand}, row.shape, true);
        const RigidBodyData &data = scene.body(scene.hand)->parameters();
        QCOMPARE(scene.body(scene.hand)->name(), QStringLiteral("hand"));
        QCOMPARE(data.width, 2.0f * row.width);
        if (KMTagRigidBody::hasHeight(row.shape))
            QCOMPARE(data.height, 2.0f * row.height);
        if (KMTagRigidBody::hasDepth(row.shape))
            QCOMPARE(data.depth, 2.0f * row.depth);
        QCOMPARE(data.pose.offset, kvm::Vector3(0.0f, 0.0f, -1.0f));
        const KMTagJoint *joint = KMRigTags::joints(scene.rig).last();
        QCOMPARE(joint->bone(), scene.hand);
        QCOMPARE(joint->bodyA(), scene.body(scene.elbow)); // no subject, but it has one
        QCOMPARE(joint->bodyB(), scene.body(scene.hand));
    }
}

void tst_PhysicsTags::sideJoint()
{
    Figure scene;
    KMPhysicsMaking::pushSideJoint(scene.body(scene.arm), scene.body(scene.elbow));
    const KMTagJoint *joint = nullptr;
    for (const KMTagJoint *candidate : KMRigTags::joints(scene.rig))
        joint = candidate->name() == QLatin1String("Joint0") ? candidate : joint;
    QVERIFY(joint);
    QCOMPARE(joint->bone(), scene.arm);
    const kvm::Vector3 middle =
        (scene.arm->restHead() + scene.arm->restTail() + scene.elbow->restHead() + scene.elbow->restTail()) * 0.25f;
    QVERIFY((joint->worldMatrix().translation() - middle).length() < 1e-4f);
    // The middle of two unit quaternions of one side is the direction of their sum.
    const bool isNear = dot(scene.arm->rotation(), scene.elbow->rotation()) >= 0.0f;
    const kvm::Quaternion sum = scene.arm->rotation() + (isNear ? scene.elbow->rotation() : -scene.elbow->rotation());
    const kvm::Quaternion expected = sum.normalized() * kvm::Quaternion(0.70710677f, -0.70710677f, 0.0f, 0.0f);
    const kvm::Quaternion actual = scene.arm->rotation() * joint->parameters().pose.rotation;
    QVERIFY(std::abs(std::abs(dot(expected, actual)) - 1.0f) < 1e-5f);
}

void tst_PhysicsTags::copiesKeepToThemselves()
{
    Figure scene;
    const QList<KMBoneCopy::Placed> copies = KMBoneCopy::copies(scene.rig->bones());
    const auto copyOf = [&copies](const KMBone *bone) {
        for (const KMBoneCopy::Placed &placed : copies) {
            if (placed.source == bone)
                return placed.copy;
        }
        return static_cast<KMBone *>(nullptr);
    };
    const auto *joint = nodeAs<KMTagJoint>(copyOf(scene.elbow)->tag(1));
    QCOMPARE(joint->bodyA(), scene.body(copyOf(scene.arm)));
    QCOMPARE(joint->bodyB(), scene.body(copyOf(scene.elbow)));
    for (const KMBoneCopy::Placed &placed : copies)
        delete placed.copy;
}

/// One sweep over a chain of random bones, by the same words in another arithmetic.
void tst_PhysicsTags::solverAgainstDoubles()
{
    RandomMath random(7);
    for (int round = 0; round < 50; ++round) {
        RigScene scene;
        constexpr int bones = 5; // the last one is the target
        constexpr int links = 3;
        QVector<kvm::Vector3> points;
        QVector<KMBone *> chain;
        for (int i = 0; i <= bones; ++i)
            points << random.vector(10);
        for (int i = 0; i < bones; ++i)
            chain << scene.addBone(QStringLiteral("b%1").arg(i), i ? chain.last() : nullptr, points[i], points[i + 1]);
        KMBone *goal = scene.addBone(QStringLiteral("goal"), nullptr, random.vector(10), {0, 0, 0});
        Chain expected;
        for (int i = 0; i < bones; ++i) {
            const kvm::Quaternion turn = random.rotation();
            chain[i]->setKeyPose({{1, 1, 1}, turn, {}});
            expected.local << rotation(turn);
            expected.rests << vec(chain[i]->restHead());
        }
        const int floating = round % 2 ? 2 : -1; // the sweep ends there
        if (floating >= 0)
            chain[floating]->setFloating(true);
        scene.rig->animation()->reevaluate();

        KMTagConstraint tag;
        tag.setOwner(goal);
        tag.setData({chain.last(), 1.0f, 1, KMTagConstraint::IK, links});
        tag.solveIK();
        QCOMPARE(tag.links().size(), links);

        const int end = bones - 2; // the parent of the target, whose tail is the next head
        const Vec wanted = vec(goal->restHead());
        const Chain started = expected;
        for (int joint = end; joint > end - links; --joint) {
            // The tail of the first link, which need not be where the next head is told: it is here.
            const Vec tail = expected.at(end + 1);
            const Mat back = joint > 0 ? transposed(started.world(joint - 1)) : rotation(kvm::Quaternion());
            const Vec from = reference::apply(back, minus(tail, expected.at(joint)));
            const Vec to = reference::apply(back, minus(wanted, expected.at(joint)));
            expected.local[joint] = product(shortest(from, to), expected.local[joint]);
            if (joint == floating)
                break;
        }
        for (int i = 0; i < bones; ++i) {
            const Mat turn = rotation(chain[i]->constraintPose().rotation);
            QVERIFY2(distance(turn, expected.local[i]) < 2e-3, qPrintable(QStringLiteral("%1 %2").arg(round).arg(i)));
            const bool isLink = i <= end && i > end - links;
            QCOMPARE(chain[i]->poseWorld() == chain[i]->constraintPose(), isLink || i == 0);
        }
    }
}

void tst_PhysicsTags::solverLeavesAlone()
{
    Figure scene;
    scene.rig->animation()->reevaluate();
    const PoseTransform before = scene.arm->poseWorld();
    KMTagConstraint tag;
    tag.setOwner(scene.hand);
    tag.setIkDepth(2);
    tag.solveIK(); // no target
    tag.setTarget(scene.elbow);
    scene.elbow->setDeleted(true);
    tag.solveIK();
    scene.elbow->setDeleted(false);
    QVERIFY(tag.links().isEmpty());
    QVERIFY(scene.arm->poseWorld() == before);

    // A limit stops the turn.
    BoneLimit limits;
    limits.enabled = true;
    limits.minH = limits.maxH = limits.minB = limits.maxB = 0.0f;
    limits.minP = -0.1f;
    limits.maxP = 0.1f;
    scene.arm->setLimits(limits);
    tag.solveIK();
    const kvm::Vector3 angles = scene.arm->constraintPose().rotation.toEuler();
    QVERIFY(std::abs(angles.x) < 1e-5f && std::abs(angles.z) < 1e-5f && std::abs(angles.y) < 0.1f + 1e-5f);
}

void tst_PhysicsTags::groupSwitchesChildren()
{
    RigScene scene;
    auto *top = new KMNullNode;
    gProject->addNode(top);
    QList<KMNullNode *> children;
    for (int i = 0; i < 3; ++i) {
        children << new KMNullNode;
        gProject->addNode(children.last());
        QTreeWidgetItem *row = children.last()->item();
        gProject->tree()->takeRow(row);
        gProject->tree()->insertRow(top->item(), -1, row);
    }
    scene.forget();
    for (KMNullNode *child : children)
        child->setSelected(child == children[1]);
    auto *tag = new KMTagGroup;
    top->addTag(tag);
    const auto shown = [&] {
        return QString::number(children[0]->isVisible()) + QString::number(children[1]->isVisible())
               + QString::number(children[2]->isVisible());
    };
    tag->applyToChildren();
    QCOMPARE(scene.session.stack().count(), 0); // all are shown already
    tag->setMode(KMTagGroup::ShowSelected);
    tag->applyToChildren();
    QCOMPARE(shown(), QStringLiteral("010"));
    QCOMPARE(scene.session.stack().undoText(), QStringLiteral("TagGroup Done"));
    tag->setMode(KMTagGroup::Hide);
    tag->applyToChildren();
    QCOMPARE(shown(), QStringLiteral("000"));
    scene.session.stack().undo();
    scene.session.stack().undo();
    QCOMPARE(shown(), QStringLiteral("111"));
}

/// The children of a mesh are its chain, which follows within the same step.
void tst_PhysicsTags::groupSwitchesModifiers()
{
    RigScene scene;
    KMMeshNode *mesh = MeshFixtures::cube();
    gProject->addNode(mesh);
    auto *symmetry = new KMModSymNode;
    gProject->addNode(symmetry);
    QTreeWidgetItem *row = symmetry->item();
    gProject->tree()->takeRow(row);
    gProject->tree()->insertRow(mesh->item(), -1, row);
    gProject->checkModifiers();
    scene.forget();
    QCOMPARE(mesh->modifiers().size(), 1);
    auto *tag = new KMTagGroup;
    mesh->addTag(tag);
    tag->setMode(KMTagGroup::Hide);
    tag->applyToChildren();
    QCOMPARE(mesh->modifiers().size(), 0);
    QCOMPARE(scene.session.stack().count(), 1);
    scene.session.stack().undo();
    QCOMPARE(mesh->modifiers().size(), 1);
}

void tst_PhysicsTags::rememberedSelection()
{
    RigScene scene;
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 9; ++i)
        mesh->addVertexRaw({float(i % 3), float(i / 3), 0.0f});
    for (const int corner : {0, 1, 3, 4}) {
        const int corners[] = {corner, corner + 3, corner + 4, corner + 1};
        mesh->addFaceRaw(4, corners);
    }
    gProject->addNode(mesh);
    mesh->refreshMesh(KMMeshDirty::All);
    auto *tag = new KMTagSelection;
    mesh->addTag(tag);
    {
        const KMUndoMacro macro(QStringLiteral("select"));
        for (const int v : {4, 8})
            KMMeshEdit::selectVertex(*mesh, v, true);
        KMMeshEdit::selectFace(*mesh, 3, true);
        KMMeshEdit::selectEdge(*mesh, 5, 8, true);
        KMMeshEdit::selectUV(*mesh, 3, 2, true);
    }
    const KMStoredSelection stored = KMTagSelection::selectionOf(*mesh);
    gSolution->push(new editTagSelectionCommand(tag, stored));
    {
        const KMUndoMacro macro(QStringLiteral("select"));
        KMMeshEdit::selectVertex(*mesh, 0, true);
        KMMeshEdit::selectVertex(*mesh, 8, false);
        KMMeshEdit::selectFace(*mesh, 3, false);
    }
    tag->recall(KMTagSelection::Recall::Add);
    QVERIFY(KMTagSelection::selectionOf(*mesh).vertices == QVector<int>({0, 4, 8}));
    const int steps = scene.session.stack().count();
    tag->recall(KMTagSelection::Recall::Replace);
    QVERIFY(KMTagSelection::selectionOf(*mesh) == stored);
    QCOMPARE(scene.session.stack().count(), steps + 1);
    tag->recall(KMTagSelection::Recall::Replace);
    QCOMPARE(scene.session.stack().count(), steps + 1); // nothing to do

    mesh->setLocked(true);
    mesh->addTag(tag->clone());
    auto *unsorted = static_cast<KMTagSelection *>(mesh->tag(mesh->tagCount() - 1));
    const KMStoredSelection reversed{{8, 4, 0, 4}, {3}, {{5, 8}, {0, 1}}, {}};
    unsorted->setParameters(reversed);
    unsorted->recall(KMTagSelection::Recall::Replace);
    QVERIFY(KMTagSelection::selectionOf(*mesh) == stored); // a locked mesh stays
    mesh->setLocked(false);
    unsorted->recall(KMTagSelection::Recall::Replace);
    QVERIFY(KMTagSelection::selectionOf(*mesh).vertices == QVector<int>({0, 4, 8}));
    scene.session.stack().undo();

    // A corner of the grid goes, which one tag remembers; then one that is remembered, and its face with it.
    const auto remove = [mesh](int vertex) {
        const KMUndoMacro macro(QStringLiteral("delete"));
        KMMeshEdit::deleteVertex(*mesh, vertex);
        KMMeshEdit::compact(*mesh);
    };
    remove(0);
    const KMStoredSelection moved{{3, 7}, {2}, {{4, 7}}, {{2, 2}}};
    QVERIFY(tag->parameters() == moved);
    remove(7);
    const KMStoredSelection rest{{3}, {}, {}, {}};
    QVERIFY(tag->parameters() == rest);
    scene.session.stack().undo();
    QVERIFY(tag->parameters() == moved);
    scene.session.stack().undo();
    QVERIFY(tag->parameters() == stored);
    QVERIFY(unsorted->parameters() == reversed);
}

void tst_PhysicsTags::itemsOfMorphs()
{
    RigScene scene;
    auto *mesh = new KMMeshNode;
    gProject->addNode(mesh);
    auto *tag = new KMTagMorph;
    mesh->addTag(tag);
    auto *morph = new KMMorph;
    gSolution->push(new addMorphCommand(tag, morph));
    auto *group = new KMDisplayNode;
    gProject->addToScene(group);
    gSolution->push(new addDisplayItemCommand(group, DisplayItem::of(morph)));
    QCOMPARE(group->liveItems().size(), 1);
    const QList<std::function<void()>> deletions{[&] { gSolution->push(new removeMorphCommand(tag, morph)); },
                                                 [&] { gSolution->push(new deleteTagCommand(mesh, tag)); },
                                                 [&] { gProject->deleteNode(mesh); }};
    for (const auto &takeOut : deletions) {
        takeOut();
        QCOMPARE(group->liveItems().size(), 0);
        scene.session.stack().undo();
        QCOMPARE(group->liveItems().size(), 1);
    }
}

/// Places count the live ones, before and behind one whose bone is deleted.
void tst_PhysicsTags::severalItemsAtOnce()
{
    Figure scene;
    KMBone *toe = scene.addBone(QStringLiteral("toe"), nullptr, {}, {0, 1, 0});
    KMBone *eye = scene.addBone(QStringLiteral("eye"), nullptr, {}, {0, 1, 0});
    const auto names = [&scene] {
        QString text;
        for (const DisplayItem &item : scene.frame->liveItems())
            text += item.node->name() + QLatin1Char(' ');
        return text;
    };
    gSolution->push(new deleteBoneCommand(scene.elbow));
    gSolution->push(new addDisplayItemCommand(scene.frame, {DisplayItem::of(toe), DisplayItem::of(eye)}, 1));
    QCOMPARE(names(), QStringLiteral("arm toe eye hand "));
    gSolution->push(new moveDisplayItemCommand(scene.frame, {{0, 3}, {0, 2}}));
    QCOMPARE(names(), QStringLiteral("eye hand toe arm "));
    gSolution->push(new removeDisplayItemCommand(scene.frame, QList<int>{0, 2}));
    QCOMPARE(names(), QStringLiteral("hand arm "));
    while (scene.session.stack().canUndo())
        scene.session.stack().undo();
    QCOMPARE(names(), QStringLiteral("arm elbow hand "));
}

void tst_PhysicsTags::randomWalk()
{
    for (quint32 seed = 1; seed <= 5; ++seed) {
        Figure scene;
        QRandomGenerator random(seed);
        const QString before = scene.dump.text();
        const auto anyOf = [&random](const auto &list) { return list.at(random.bounded(list.size())); };
        for (int step = 0; step < 60; ++step) {
            const QList<KMBone *> bones = scene.rig->bones();
            const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(scene.rig);
            const QList<KMTagJoint *> joints = KMRigTags::joints(scene.rig);
            const QList<KMDisplayNode *> groups = moveDisplayNodeCommand::liveGroups();
            const KMUndoMacro macro(QStringLiteral("step"));
            switch (random.bounded(9)) {
            case 0:
                if (!bones.isEmpty() && bones.size() > 2)
                    gSolution->push(new deleteBoneCommand(anyOf(bones)));
                break;
            case 1:
                KMPhysicsMaking::pushBodies({anyOf(bones)}, random.bounded(3), true);
                break;
            case 2:
                if (!bodies.isEmpty()) {
                    KMTagRigidBody *body = anyOf(bodies);
                    gSolution->push(new deleteTagBoneContainerCommand(body->bone(), body));
                }
                break;
            case 3:
                if (!joints.isEmpty()) {
                    JointData data = anyOf(joints)->parameters();
                    data.bodyA = bodies.value(random.bounded(bodies.size() + 1));
                    gSolution->push(new editTagJointCommand(joints.first(), data));
                }
                break;
            case 4:
                gSolution->push(new addDisplayItemCommand(groups.isEmpty() ? scene.frame : anyOf(groups),
                                                          DisplayItem::of(anyOf(bones))));
                break;
            case 5:
                if (groups.size() > 1)
                    gSolution->push(new moveDisplayNodeCommand(groups.first(), random.bounded(groups.size())));
                break;
            case 6:
                if (!groups.isEmpty())
                    gSolution->push(new removeDisplayNodeCommand(anyOf(groups)));
                break;
            case 7:
                gProject->addToScene(new KMDisplayNode);
                break;
            case 8:
                if (!bodies.isEmpty() && !joints.isEmpty())
                    gSolution->push(new deleteTagBoneContainerCommand(joints.last()->bone(), joints.last()));
                break;
            }
            for (const KMTagJoint *joint : KMRigTags::joints(scene.rig)) {
                for (const KMTagRigidBody *body : {joint->bodyA(), joint->bodyB()})
                    QVERIFY(!body || (!body->isDeleted() && !body->bone()->isDeleted()));
            }
        }
        const QString after = scene.dump.text();
        while (scene.session.stack().canUndo())
            scene.session.stack().undo();
        QCOMPARE(scene.dump.text(), before);
        while (scene.session.stack().canRedo())
            scene.session.stack().redo();
        QCOMPARE(scene.dump.text(), after);
    }
}

KM_TEST(tst_PhysicsTags);

#include "tst_PhysicsTags.moc"
