#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "render/KMBonePicker.h"
#include "render/KMCameraNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneMMDTemplate.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMJointMove.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/kmmainwidget.h"
#include "support/CommandProof.h"
#include "support/RigDump.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolBone.h"
#include "tools/KMToolHandle.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolUniv.h"

#include <QLineF>
#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <cmath>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr int front = ToolWindow::Front;

/// The window with a rig in it, or without, and a tool for bones.
struct BoneWindow : ToolWindow
{
    explicit BoneWindow(int toolId, KMMeshNode *shape = nullptr)
        : ToolWindow(shape, toolId)
    {
    }

    /// A bone between two points, which is no step to undo.
    KMBone *add(const QString &name, KMBone *parent, const Vector3 &head, const Vector3 &tail, bool isMovable = false)
    {
        if (!rig) {
            rig = new KMBoneContainer;
            gProject->addToScene(rig);
        }
        auto *bone = new KMBone;
        bone->setName(name);
        bone->setMovable(isMovable);
        bone->setRest(restBone(head, tail));
        gSolution->push(new addBoneCommand(rig, bone, parent));
        gSolution->clearHistory();
        gProject->tree()->setCurrentItem(rig->item());
        return bone;
    }
    KMBoneContainer *onlyRig() const
    {
        const auto ctrls = gProject->ctrlsInTree();
        return ctrls.size() == 1 ? static_cast<KMBoneContainer *>(ctrls.first()) : nullptr;
    }
    QPointF place(const Vector3 &point) const { return at(front, point); }
    void pull(const Vector3 &from, const Vector3 &to, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        drag(front, place(from), place(to) - place(from), modifiers);
    }
    QString step(const char *stepText, const std::function<void()> &gesture)
    {
        return ::stepFailure([this] { return bones.text(); }, QLatin1String(stepText), gesture);
    }
    QString masks() const
    {
        QStringList all;
        for (const KMBone *bone : onlyRig()->bones())
            all << bone->name() + QString::number(bone->selectMask());
        return all.join(' ');
    }
    int steps() { return (*this)->undoStack()->index(); }

    RigDump bones;
    KMBoneContainer *rig = nullptr;
};

#define STEP(window, text, ...) QCOMPARE((window).step(text, __VA_ARGS__), QString())

bool isClose(const Vector3 &a, const Vector3 &b, float tolerance = 0.05f)
{
    return (a - b).length() < tolerance;
}

QString textOf(const Vector3 &v)
{
    return QStringLiteral("(%1, %2, %3)").arg(double(v.x)).arg(double(v.y)).arg(double(v.z));
}

#define CLOSE(a, b) QVERIFY2(isClose(a, b), qPrintable(textOf(a) + " instead of " + textOf(b)))

} // namespace

/// The mouse on bones in the views of the real window.
class tst_KMBoneTools : public QObject
{
    Q_OBJECT
private slots:
    void drawsAChain();
    void drawsBothSides();
    void drawsBothSidesOfAPose();
    void snapsToVertices();
    void movesJoints_data();
    void movesJoints();
    void movesWhatIsShown();
    void mirrorsAtRest_data();
    void mirrorsAtRest();
    void newDocumentInADrag();
    void drawsIntoTheRigAtHand();
    void keysGoByNames();
    void picks();
    void marquees_data();
    void marquees();
    void areaWithoutRig();
    void transforms();
    void clicksOnNothing();
    void editMenuMeansBones();
    void attributesFollowTheMouse();
    void erases();
    void poses();
    void posesInPerspective();
    void posesMovable();
    void escape();
    void randomDrags();
};

void tst_KMBoneTools::drawsAChain()
{
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    const QString empty = window.bones.text();
    const Vector3 joints[] = {{-60, 0, 0}, {-20, 40, 0}, {20, 30, 0}, {60, 60, 0}};
    for (int i = 0; i < 3; ++i)
        STEP(window, "Add Bone", [&] { window.pull(joints[i], joints[i + 1]); });
    const KMBoneContainer *rig = window.onlyRig();
    QVERIFY(rig);
    QCOMPARE(rig->bones().size(), 3);
    for (int i = 0; i < 3; ++i) {
        const KMBone *bone = rig->bones()[i];
        QCOMPARE(bone->parentBone(), i > 0 ? rig->bones()[i - 1] : nullptr);
        QCOMPARE(bone->isFloating(), i == 0);
        CLOSE(bone->restHead(), joints[i]);
        CLOSE(bone->restTail(), joints[i + 1]);
        QCOMPARE(KMJointMove::isAttached(*bone), i > 0);
    }
    // From the joint in the middle of the chain a branch goes off.
    STEP(window, "Add Bone", [&] { window.pull(joints[1], {-20, 80, 0}); });
    QCOMPARE(rig->bones()[0]->childBones().size(), 2);
    QCOMPARE(window.steps(), 4);
    window->undoStack()->setIndex(0);
    QCOMPARE(window.bones.text(), empty);
}

void tst_KMBoneTools::drawsBothSides()
{
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    KMEditFilter filter;
    filter.symmetry = true;
    window.filter(filter);
    STEP(window, "Add Bone", [&] { window.pull({0.2f, 0, 0}, {-0.2f, 60, 0}); }); // as good as on the plane
    STEP(window, "Add Bone", [&] { window.pull({0, 60, 0}, {40, 70, 0}); });
    STEP(window, "Add Bone", [&] { window.pull({40, 70, 0}, {80, 40, 0}); });
    const QList<KMBone *> bones = window.onlyRig()->bones();
    QCOMPARE(bones.size(), 5);
    QCOMPARE(bones[0]->restTail().x, 0.0f);
    const auto child = [](const KMBone *parent, float side) -> KMBone * {
        for (KMBone *bone : parent->childBones()) {
            if (bone->restTail().x * side > 0.0f)
                return bone;
        }
        return nullptr;
    };
    for (const float side : {1.0f, -1.0f}) {
        KMBone *arm = child(bones[0], side);
        QVERIFY(arm);
        CLOSE(arm->restHead(), Vector3(0, 60, 0));
        CLOSE(arm->restTail(), Vector3(40 * side, 70, 0));
        QCOMPARE(arm->childBones().size(), 1);
        CLOSE(arm->childBones()[0]->restTail(), Vector3(80 * side, 40, 0));
    }
    // A drag of one elbow takes the other along.
    window.bar->tool(KMToolKind::Bone)->setMode(KMToolBone::Move);
    ViewMouse(window.view(front)).click(window.place({-40, 70, 0}));
    STEP(window, "Move Bone", [&] { window.pull({-40, 70, 0}, {-50, 90, 0}); });
    for (const float side : {1.0f, -1.0f}) {
        CLOSE(child(bones[0], side)->restTail(), Vector3(50 * side, 90, 0));
        CLOSE(child(bones[0], side)->childBones()[0]->restHead(), Vector3(50 * side, 90, 0));
    }
}

/// A spine bent aside stands on the plane at rest: what goes straight on from it is its own image.
void tst_KMBoneTools::drawsBothSidesOfAPose()
{
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    KMBone *spine = window.add("spine", nullptr, {0, 0, 0}, {0, 40, 0});
    PoseTransform pose;
    pose.rotation = Quaternion::fromAxisAngle({0, 0, 1}, 0.7f);
    spine->setKeyPose(pose);
    window.rig->animation()->reevaluate();
    KMEditFilter filter;
    filter.symmetry = true;
    window.filter(filter);
    const Vector3 end = spine->tail();
    const auto shown = [&](const Vector3 &way) { return end + pose.rotation.rotate(way); };
    STEP(window, "Add Bone", [&] { window.pull(end, shown({0.2f, 30, 0})); });
    QCOMPARE(window.rig->bones().size(), 2);
    QCOMPARE(window.rig->bones()[1]->restTail().x, 0.0f);
    STEP(window, "Add Bone", [&] { window.pull(end, {0, shown({30, 0, 0}).y, 0}); }); // seen on the plane
    QCOMPARE(window.rig->bones().size(), 4);
    const QList<KMBone *> arms = spine->childBones().mid(1);
    CLOSE(arms[1]->restTail(), window.rig->mirrorPlane().reflected(arms[0]->restTail()));
}

void tst_KMBoneTools::snapsToVertices()
{
    BoneWindow window(KMToolKind::Bone, MeshFixtures::cube());
    QVERIFY(window.isReady());
    const Vector3 corner = window.mesh->position(0);
    const QPointF beside = window.at(front, 0) + QPointF(4, -3);
    const QPointF far = window.place({corner.x * 3.0f, corner.y * 3.0f, 0});
    window.drag(front, beside, far - beside);
    const Vector3 head = window.onlyRig()->bones().first()->restHead();
    QCOMPARE(head.x, corner.x); // bit for bit; of the corners behind one another the front one counts
    QCOMPARE(head.y, corner.y);
}

void tst_KMBoneTools::movesJoints_data()
{
    QTest::addColumn<bool>("takesChildren");
    QTest::addColumn<bool>("floats");
    QTest::addColumn<Vector3>("tail"); // of the first bone
    QTest::addColumn<Vector3>("childHead");
    QTest::addColumn<Vector3>("childTail");
    const Vector3 there(10, 20, 0);
    QTest::newRow("joint") << false << false << there << there << Vector3(0, 80, 0);
    QTest::newRow("joint with what hangs on it") << true << false << there << there << Vector3(10, 60, 0);
    QTest::newRow("floating head") << false << true << Vector3(0, 40, 0) << there << Vector3(0, 80, 0);
}

void tst_KMBoneTools::movesJoints()
{
    QFETCH(bool, takesChildren);
    QFETCH(bool, floats);
    QFETCH(Vector3, tail);
    QFETCH(Vector3, childHead);
    QFETCH(Vector3, childTail);
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    KMBone *first = window.add("first", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *child = window.add("child", first, {0, 40, 0}, {0, 80, 0});
    child->setFloating(floats);
    auto *tool = static_cast<KMToolBone *>(window.bar->tool(KMToolKind::Bone));
    tool->setMode(KMToolBone::Move);
    KMToolBone::Options options = tool->options();
    options.takesChildren = takesChildren;
    tool->setOptions(options);
    STEP(window, "Select Bone", [&] { ViewMouse(window.view(front)).click(window.place({0, 40, 0})); });
    QCOMPARE(window.masks(), QString("first0 child1"));
    STEP(window, "Move Bone", [&] { window.pull({0, 40, 0}, {10, 20, 0}); });
    CLOSE(first->restHead(), Vector3());
    CLOSE(first->restTail(), tail);
    CLOSE(child->restHead(), childHead);
    CLOSE(child->restTail(), childTail);
}

/// A posed rig is edited where it is seen, though the rest is what changes.
void tst_KMBoneTools::movesWhatIsShown()
{
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    KMBone *root = window.add("root", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *child = window.add("child", root, {0, 40, 0}, {0, 80, 0});
    PoseTransform pose;
    pose.rotation = Quaternion::fromAxisAngle({0, 0, 1}, 0.7f);
    root->setKeyPose(pose);
    pose.rotation = Quaternion::fromAxisAngle({0, 0, 1}, 0.4f);
    child->setKeyPose(pose);
    window.rig->animation()->reevaluate();
    window.bar->tool(KMToolKind::Bone)->setMode(KMToolBone::Move);
    const Vector3 end = child->tail();
    const Vector3 joint = child->head();
    ViewMouse(window.view(front)).click(window.place(joint));
    STEP(window, "Move Bone", [&] { window.pull(joint, {-40, 10, 0}); });
    CLOSE(child->head(), Vector3(-40, 10, 0));
    CLOSE(root->tail(), Vector3(-40, 10, 0));
    CLOSE(child->tail(), end);
    CLOSE(root->head(), Vector3());
    QVERIFY(KMJointMove::isAttached(*child));
    STEP(window, "Add Bone", [&] {
        window.bar->tool(KMToolKind::Bone)->setMode(KMToolBone::Make);
        window.pull(end, {-60, 80, 0});
    });
    const KMBone *last = child->childBones().value(0);
    QVERIFY(last);
    CLOSE(last->head(), end);
    CLOSE(last->tail(), Vector3(-60, 80, 0));
}

void tst_KMBoneTools::mirrorsAtRest_data()
{
    QTest::addColumn<float>("shoulder"); // how far from the plane
    QTest::addColumn<bool>("isPosed");
    QTest::addColumn<bool>("isUneven"); // with bones that have no partner
    QTest::newRow("arms apart") << 10.0f << false << false;
    QTest::newRow("arms from the plane") << 0.0f << false << false;
    QTest::newRow("arms apart, posed") << 10.0f << true << false;
    QTest::newRow("arms from the plane, posed") << 0.0f << true << false;
    QTest::newRow("uneven") << 10.0f << false << true;
    QTest::newRow("uneven, posed") << 10.0f << true << true;
}

/// Whatever is grabbed: the sides stay images of each other at rest, joints hold, and what the mouse has goes with it,
/// also where each side is posed in another way, and where more hangs on one.
void tst_KMBoneTools::mirrorsAtRest()
{
    QFETCH(float, shoulder);
    QFETCH(bool, isPosed);
    QFETCH(bool, isUneven);
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    QRandomGenerator random(11);
    const auto number = [&](double range) { return float((random.generateDouble() - 0.5) * range); };
    const auto way = [&](double range) { return Vector3(number(range), number(range), number(range)); };
    const auto quaternion = [&] { return Quaternion::fromAxisAngle(way(2.0).normalized(), number(2.0)); };
    KMBone *root = window.add("root", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *arms[2], *hands[2];
    for (const int side : {0, 1}) {
        const float x = side ? -1.0f : 1.0f;
        KMBone *above = root;
        if (isUneven)
            above = window.add("collar", root, {2 * x, 20 + 9 * x, 0}, {shoulder * x, 40, 0});
        arms[side] = window.add("arm", above, {shoulder * x, 40, 0}, {50 * x, 40, 0});
        hands[side] = window.add("hand", arms[side], {50 * x, 40, 0}, {80 * x, 30, 10});
        if (isUneven) { // those of the left are locked
            KMBone *finger = window.add("finger", hands[side], {80 * x, 30, 10}, {90 * x, 30, 10});
            finger->setLocked(!side);
        }
    }
    if (isUneven) {
        KMBone *sword = window.add("sword", hands[1], {-80, 30, 10}, {-80, 60, 10});
        window.add("blade", sword, {-80, 60, 10}, {-80, 90, 20});
    }
    if (isPosed) {
        for (KMBone *bone : window.rig->bones()) {
            PoseTransform pose;
            pose.rotation = quaternion();
            bone->setKeyPose(pose);
        }
        window.rig->animation()->reevaluate();
    }
    const KMSymmetryPlane plane = window.rig->mirrorPlane();
    const QList<KMBone *> bones = window.rig->bones();
    const QList<KMBone *> paired{arms[0], arms[1], hands[0], hands[1]};
    QList<KMBone *> open;
    for (KMBone *bone : bones) {
        if (!bone->isLocked() && bone != root)
            open << bone;
    }
    for (int round = 0; round < 200; ++round) {
        KMBone *bone = open[random.bounded(open.size())];
        KMBone *other = bones[random.bounded(bones.size())];
        QVector<KMJointMove::Grabbed> grabbed{{bone, random.bounded(1, 4)}};
        if (other != bone && random.bounded(2))
            grabbed.append({other, random.bounded(1, 4)});
        const bool isTail = grabbed[0].ends & KMBone::TailSelected;
        const Vector3 anchor = isTail ? bone->tail() : bone->head();
        const bool isFree = isTail || shoulder > 0.0f || bone->parentBone() != root; // else the plane holds it
        const bool isAtHand = paired.contains(bone) || grabbed.size() == 1;          // else the other side may lead
        KMJointMove::Options options;
        options.mirrors = random.bounded(4);
        options.tolerance = 0.1f;
        options.takesChildren = random.bounded(2);
        KMJointMove::Motion motion;
        motion.isRigid = random.bounded(2);
        motion.turn = quaternion();
        const Vector3 centre = way(100), delta = way(30);
        motion.map = [&](const Vector3 &p) {
            return motion.isRigid ? centre + motion.turn.rotate(p - centre) : p * 1.1f + delta;
        };
        QVector<Vector3> shown;
        for (const KMBone *each : bones)
            shown << each->head() << each->tail();
        KMJointMove move(window.rig, grabbed, options, anchor);
        move.apply(motion);
        const QByteArray where = QByteArray::number(round) + ' ' + bone->name().toUtf8() + ' '
                                 + QByteArray::number(grabbed[0].ends) + (options.takesChildren ? " all" : "");
        QVERIFY2(!isFree || !isAtHand || isClose(isTail ? bone->tail() : bone->head(), motion.map(anchor)), where);
        for (KMBone **pair : {arms, hands}) {
            const KMBone *image = options.mirrors ? pair[1] : nullptr;
            QVERIFY2(!image || isClose(image->restHead(), plane.reflected(pair[0]->restHead())), where);
            QVERIFY2(!image || isClose(image->restTail(), plane.reflected(pair[0]->restTail())), where);
        }
        for (const KMBone *each : open) {
            const KMBone *parent = each->parentBone();
            const bool isJoint = parent != root || shoulder == 0.0f;
            QVERIFY2(!isJoint || isClose(each->restHead(), parent->restTail()), where + " at " + each->name().toUtf8());
        }
        // What has no partner either comes along as it is or stays, but for what is joined to others.
        if (isUneven && grabbed.size() == 1 && paired.contains(bone)) {
            const int blade = bones.size() - 1;
            QVERIFY(bones[blade]->name() == QLatin1String("blade"));
            const KMBone *sword = bones[blade]->parentBone();
            const Vector3 length = shown[2 * blade + 1] - shown[2 * blade - 2];
            const Vector3 now = bones[blade]->tail() - sword->head();
            QVERIFY2(options.takesChildren ? std::abs(now.length() - length.length()) < 0.05f
                                           : isClose(bones[blade]->tail(), shown[2 * blade + 1]),
                     where);
        }
        if (isUneven && !isPosed && options.mirrors && grabbed.size() == 1 && paired.contains(bone)) {
            // The same drag from the other side
            QVector<Vector3> rest;
            for (const KMBone *each : bones)
                rest << each->restHead() << each->restTail();
            move.restore();
            KMBone *partner = bone->mirrorBone();
            KMJointMove::Motion image = motion;
            const Vector3 axis = -plane.reflectedWay(motion.turn.vector());
            image.turn = {motion.turn.w, axis.x, axis.y, axis.z};
            image.map = [&](const Vector3 &p) { return plane.reflected(motion.map(plane.reflected(p))); };
            move = KMJointMove(window.rig, {{partner, grabbed[0].ends}}, options, plane.reflected(anchor));
            move.apply(image);
            for (int i = 0; i < bones.size(); ++i) {
                QVERIFY2(isClose(bones[i]->restHead(), rest[2 * i]), where + " head of " + bones[i]->name().toUtf8());
                QVERIFY2(isClose(bones[i]->restTail(), rest[2 * i + 1]),
                         where + " tail of " + bones[i]->name().toUtf8());
            }
        }
        move.restore();
    }
}

/// The bones go with the old document, while the mouse still holds them.
void tst_KMBoneTools::newDocumentInADrag()
{
    for (const int toolId : {KMToolKind::Bone, KMToolKind::Universal, KMToolKind::SRT, KMToolKind::Animation}) {
        BoneWindow window(toolId);
        QVERIFY(window.isReady());
        KMBone *bone = window.add("a", nullptr, {0, 0, 0}, {0, 40, 0});
        bone->setSelectMask(KMBone::BothSelected);
        gSolution->setCurrentBone(bone);
        if (toolId == KMToolKind::Bone)
            window.bar->tool(toolId)->setMode(KMToolBone::Move);
        else
            static_cast<KMToolUniv *>(window.bar->tool(toolId))->setHandleShown(false);
        ViewMouse mouse(window.view(front));
        mouse.move(window.place({0, 20, 0}));
        mouse.press(Qt::LeftButton, window.place({0, 20, 0}));
        mouse.move(window.place({20, 35, 0}));
        QVERIFY(window.bar->tool(toolId)->isEditing());
        gSolution->newDocument();
        QVERIFY(!window.bar->tool(toolId)->isEditing());
        mouse.move(window.place({30, 30, 0}));
        mouse.release(Qt::LeftButton, window.place({30, 30, 0}));
        QCOMPARE(window.steps(), 0);
    }
}

void tst_KMBoneTools::drawsIntoTheRigAtHand()
{
    BoneWindow window(KMToolKind::Bone, MeshFixtures::cube());
    QVERIFY(window.isReady());
    window.add("a", nullptr, {90, 90, 0}, {90, 100, 0});
    const auto draw = [&] { window.pull({60, -60, 0}, {60, 60, 0}); };
    const QString before = window.bones.text();
    for (void (KMContainerNode::*set)(bool) : {&KMContainerNode::setLocked, &KMContainerNode::setVisible}) {
        const bool on = set == &KMContainerNode::setLocked;
        (window.rig->*set)(on);
        draw();
        QCOMPARE(window.rig->bones().size(), 1);
        QVERIFY(window.onlyRig());
        (window.rig->*set)(!on);
    }
    QCOMPARE(window.bones.text(), before);
    // While a mesh is current, the plane is that of the rig which takes the bone: here it lies on it.
    window.rig->setTranslation({60, 0, 0});
    gProject->tree()->setCurrentItem(window.mesh->item());
    KMEditFilter filter;
    filter.symmetry = true;
    window.filter(filter);
    draw();
    QCOMPARE(window.rig->bones().size(), 2);
    QCOMPARE(window.rig->bones()[1]->restTail().x, 60.0f);
    window.rig->setVisible(false);
    gProject->tree()->setCurrentItem(window.mesh->item());
    draw();
    QCOMPARE(window.rig->bones().size(), 2);
    QVERIFY(!window.onlyRig()); // a new one stands beside the hidden one
}

/// A key would move the first bone of the name, and not the one under the mouse.
void tst_KMBoneTools::keysGoByNames()
{
    BoneWindow window(KMToolKind::Animation);
    QVERIFY(window.isReady());
    window.add("arm", nullptr, {-60, 0, 0}, {-60, 40, 0});
    KMBone *second = window.add("arm", nullptr, {60, 0, 0}, {60, 40, 0});
    static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::Animation))->setHandleShown(false);
    window.pull({60, 20, 0}, {80, 0, 0});
    QVERIFY(window.rig->animation()->tracks().isEmpty());
    CLOSE(second->tail(), Vector3(60, 40, 0));
    window.pull({-60, 20, 0}, {-40, 0, 0});
    QCOMPARE(window.rig->animation()->tracks().size(), 1);
    CLOSE(second->tail(), Vector3(60, 40, 0));
}

void tst_KMBoneTools::picks()
{
    BoneWindow window(KMToolKind::Universal, MeshFixtures::cube());
    QVERIFY(window.isReady());
    KMBone *near = window.add("near", nullptr, {-60, 0, -300}, {60, 0, -300});
    KMBone *far = window.add("far", nullptr, {-60, 20, 300}, {60, 20, 300}); // behind the mesh
    const KMCameraNode &camera = *window.view(front)->camera();
    const auto pick = [&](const Vector3 &point, const QPointF &aside = {}) {
        return KMBonePicker::pickBone(camera, window.place(point) + aside);
    };
    using KMBonePicker::Part;
    QCOMPARE(pick({-60, 20, 0}).bone, far);
    QCOMPARE(pick({-60, 20, 0}).part, Part::Head);
    QCOMPARE(pick({60, 20, 0}).part, Part::Tail);
    QCOMPARE(pick({0, 20, 0}, {0, 5}).part, Part::Body);
    CLOSE(pick({30, 0, 0}).point, Vector3(30, 0, -300));
    QCOMPARE(pick({0, 20, 0}, {0, near->pickRadius() + 20.0}).isHit(), false);
    far->setVisible(false);
    QVERIFY(!pick({-60, 20, 0}, {0, -10}).isHit());
    near->setLocked(true);
    QVERIFY(!pick({0, 0, 0}).isHit());
    near->setLocked(false);
    window.rig->setVisible(false);
    QVERIFY(!pick({0, 0, 0}).isHit());
    // While the mesh is at hand, a press beside its elements doesn't take hold of a bone in it.
    window.rig->setVisible(true);
    gProject->tree()->setCurrentItem(window.mesh->item());
    window.filter({true, false, false});
    ViewMouse(window.view(front)).click(window.place({0, 0, 0}));
    QCOMPARE(near->selectMask(), 0);
    gProject->tree()->setCurrentItem(window.rig->item());
    ViewMouse(window.view(front)).click(window.place({5, 0, 0}));
    QCOMPARE(near->selectMask(), int(KMBone::BothSelected));
}

void tst_KMBoneTools::marquees_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("text");
    QTest::newRow("rectangle") << int(KMEditFilter::Shape::Square) << "Rect Select";
    QTest::newRow("lasso") << int(KMEditFilter::Shape::Lasso) << "Lasso Select";
    QTest::newRow("brush") << int(KMEditFilter::Shape::Brush) << "Brush Select";
}

void tst_KMBoneTools::marquees()
{
    QFETCH(int, shape);
    QFETCH(QString, text);
    BoneWindow window(KMToolKind::Universal);
    QVERIFY(window.isReady());
    KMBone *a = window.add("a", nullptr, {0, -80, 0}, {0, 0, 0});
    window.add("b", a, {0, 0, 0}, {0, 80, 0});
    window.add("c", nullptr, {90, -80, 0}, {90, 80, 0});
    KMEditFilter filter;
    filter.shape = KMEditFilter::Shape(shape);
    window.filter(filter);
    const auto sweep = [&](const Vector3 &from, const Vector3 &corner, const Vector3 &to, Qt::KeyboardModifiers keys) {
        ViewMouse mouse(window.view(front));
        mouse.modifiers = keys;
        mouse.move(window.place(from));
        mouse.press(Qt::LeftButton, window.place(from));
        mouse.move(window.place(corner));
        mouse.move(window.place(to));
        mouse.release(Qt::LeftButton, window.place(to));
    };
    // About the joint of the first two, from beside it; as a lasso a triangle, as a brush a stroke across.
    STEP(window, text.toLatin1(), [&] { sweep({-25, -20, 0}, {25, 0, 0}, {10, 25, 0}, Qt::NoModifier); });
    QCOMPARE(window.masks(), QString("a2 b1 c0"));
    STEP(window, text.toLatin1(), [&] { sweep({70, 95, 0}, {110, 85, 0}, {95, 60, 0}, Qt::ShiftModifier); });
    QCOMPARE(window.masks(), QString("a2 b1 c2"));
    STEP(window, text.toLatin1(), [&] { sweep({-25, -20, 0}, {25, 0, 0}, {10, 25, 0}, Qt::ControlModifier); });
    QCOMPARE(window.masks(), QString("a0 b0 c2"));
}

/// The handle of the tools for elements stands at the selected ends, and SRT takes whole branches.
/// While a mesh is current the tool's area is for the rig at hand, and leaves the mesh alone.
void tst_KMBoneTools::areaWithoutRig()
{
    BoneWindow window(KMToolKind::Bone, MeshFixtures::cube());
    QVERIFY(window.isReady());
    KMBone *bone = window.add("a", nullptr, {-60, -60, 0}, {-60, -40, 0});
    gProject->tree()->setCurrentItem(window.mesh->item());
    window.mesh->setVertexFlag(0, KMElementFlag::Selected);
    window.bar->tool(KMToolKind::Bone)->setMode(KMToolBone::Move);
    STEP(window, "Rect Select", [&] { window.pull({-80, -30, 0}, {-50, -80, 0}); });
    QCOMPARE(bone->selectMask(), int(KMBone::BothSelected));
    QCOMPARE(gSolution->currentNode(), window.rig);
    window.rig->setLocked(true);
    const int steps = window.steps();
    window.pull({-80, -30, 0}, {-50, -80, 0}, Qt::ControlModifier);
    QCOMPARE(window.steps(), steps);
    window.rig->setLocked(false);
    STEP(window, "UnSelectAll", [&] { ViewMouse(window.view(front)).click({15, 200}); });
    QVERIFY(window.mesh->vertex(0)->hasFlag(KMElementFlag::Selected));
}

void tst_KMBoneTools::transforms()
{
    BoneWindow window(KMToolKind::Universal);
    QVERIFY(window.isReady());
    KMBone *arm = window.add("arm", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *hand = window.add("hand", arm, {0, 40, 0}, {0, 60, 0});
    auto *univ = static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::Universal));
    window.filter({true, false, false, false, KMEditFilter::Shape::Square});
    univ->setHandleShown(false);
    ViewMouse(window.view(front)).click(window.place({0, 60, 0}));
    QCOMPARE(window.masks(), QString("arm0 hand2"));
    CLOSE(univ->handle()->position(), Vector3(0, 60, 0));
    STEP(window, "Move Bone", [&] { window.pull({0, 60, 0}, {20, 60, 0}); });
    CLOSE(hand->restTail(), Vector3(20, 60, 0));
    CLOSE(univ->handle()->position(), Vector3(20, 60, 0));
    window.bar->tool(KMToolKind::SRT)->requestActivation();
    auto *srt = static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::SRT));
    srt->setHandleShown(false);
    STEP(window, "Select Bone", [&] { ViewMouse(window.view(front)).click(window.place({0, 20, 0})); });
    STEP(window, "Move Bone", [&] { window.pull({0, 20, 0}, {-30, 20, 0}); });
    CLOSE(arm->restHead(), Vector3(-30, 0, 0));
    CLOSE(hand->restTail(), Vector3(-10, 60, 0)); // as long as before
    STEP(window, "UnSelectAll", [&] { ViewMouse(window.view(front)).click({15, 200}); });
    QCOMPARE(window.masks(), QString("arm0 hand0"));
}

/// It takes everything out of the selection, also in other rigs, and stays so until it is undone.
void tst_KMBoneTools::clicksOnNothing()
{
    for (const int toolId : {KMToolKind::Bone, KMToolKind::Universal}) {
        BoneWindow window(toolId);
        QVERIFY(window.isReady());
        auto *other = new KMBoneContainer;
        gProject->addToScene(other);
        auto *far = new KMBone;
        gSolution->push(new addBoneCommand(other, far, nullptr));
        far->setSelectMask(KMBone::TailSelected);
        KMBone *bone = window.add("a", nullptr, {0, 0, 0}, {0, 40, 0});
        if (toolId == KMToolKind::Bone)
            window.bar->tool(toolId)->setMode(KMToolBone::Move);
        gSolution->push(new selectBoneCommand(bone, KMBone::BothSelected));
        STEP(window, "UnSelectAll", [&] { ViewMouse(window.view(front)).click({15, 200}); });
        QVERIFY(!bone->selectMask() && !far->selectMask());
        const int steps = window.steps();
        ViewMouse(window.view(front)).click({15, 200});
        QCOMPARE(window.steps(), steps);
        window->undoStack()->undo();
        QVERIFY(bone->selectMask() == KMBone::BothSelected && far->selectMask() == KMBone::TailSelected);
    }
}

/// While the rig is current and the user isn't at work in the tree.
void tst_KMBoneTools::editMenuMeansBones()
{
    BoneWindow window(KMToolKind::Universal);
    QVERIFY(window.isReady());
    KMBone *a = window.add("a", nullptr, {0, 0, 0}, {0, 40, 0});
    window.add("b", a, {0, 40, 0}, {0, 80, 0});
    window.add("c", a, {0, 40, 0}, {50, 80, 0})->setLocked(true);
    QVERIFY(window.focus(window.view(front)));
    window.trigger("ComSelectAll");
    QCOMPARE(window.masks(), QString("a3 b3 c0"));
    for (const char *action : {"ComSelectAll", "actionCopy", "actionCut"})
        window.trigger(action);
    QCOMPARE(window.steps(), 1);
    window.trigger("actionDuplicate");
    QCOMPARE(window.steps(), 2);
    QCOMPARE(window.onlyRig()->bones().size(), 6); // with what hangs on them
    window.trigger("ComUnselectAll");
    QVERIFY(window.rig->selectedBones().isEmpty());
    QVERIFY(window.rig->item()->isSelected());
}

/// A bone that is picked in a view is the one whose values show, and that a lock holds.
void tst_KMBoneTools::attributesFollowTheMouse()
{
    BoneWindow window(KMToolKind::Universal);
    QVERIFY(window.isReady());
    window.add("a", nullptr, {-60, 0, 0}, {-60, 40, 0});
    KMBone *b = window.add("b", nullptr, {60, 0, 0}, {60, 40, 0});
    const auto field = [&](const char *name) {
        return window->attributeDock()->page()->findChild<QWidget *>(QLatin1String(name));
    };
    const auto lengthShown = [&] { return field("length") ? field("name")->property("text").toString() : QString(); };
    QCOMPARE(lengthShown(), QString()); // the rig's page
    ViewMouse(window.view(front)).click(window.place({-60, 20, 0}));
    QCOMPARE(lengthShown(), QString("a"));
    gProject->tree()->setCurrentItem(nullptr);
    ViewMouse(window.view(front)).click(window.place({60, 20, 0})); // which makes the rig current as well
    QCOMPARE(gSolution->currentNode(), window.rig);
    QCOMPARE(lengthShown(), QString("b"));
    QVERIFY(field("length")->isEnabled());
    for (KMContainerNode *holder : QVector<KMContainerNode *>{b, window.rig}) {
        holder->setLocked(true);
        window->attributeDock()->refresh();
        for (const char *name : {"position", "length", "viewType", "movable", "minH"})
            QVERIFY2(!field(name)->isEnabled(), name);
        QVERIFY(field("name")->isEnabled() && field("locked")->isEnabled());
        holder->setLocked(false);
    }
}

void tst_KMBoneTools::erases()
{
    BoneWindow window(KMToolKind::Erase);
    QVERIFY(window.isReady());
    KMBone *a = window.add("a", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *b = window.add("b", a, {0, 40, 0}, {40, 60, 0});
    KMBone *c = window.add("c", a, {0, 40, 0}, {-40, 60, 0});
    window.add("d", b, {40, 60, 0}, {80, 60, 0});
    KMEditFilter filter;
    filter.symmetry = true;
    window.filter(filter);
    STEP(window, "Delete Bone", [&] { ViewMouse(window.view(front)).click(window.place({20, 50, 0})); });
    QVERIFY(b->isDeleted() && c->isDeleted());
    QCOMPARE(window.masks(), QString("a0 d0"));
    // A hidden partner stays.
    window->undoStack()->undo();
    c->setVisible(false);
    STEP(window, "Delete Bone", [&] { ViewMouse(window.view(front)).click(window.place({20, 50, 0})); });
    QVERIFY(b->isDeleted() && !c->isDeleted());
    gSolution->push(new deleteBoneCommand(c));
    // The key deletes what is selected.
    window.bar->tool(KMToolKind::Universal)->requestActivation();
    ViewMouse(window.view(front)).click(window.place({60, 60, 0}));
    QVERIFY(window.focus(window.view(front)));
    const auto press = [&] { QTest::keyClick(window.view(front), Qt::Key_Delete); };
    STEP(window, "Delete Selected Bone", press);
    QCOMPARE(window.masks(), QString("a0"));
    // Where it can't, the rig isn't meant.
    a->setSelectMask(KMBone::BothSelected);
    const int steps = window.steps();
    const QVector<KMContainerNode *> holders{a, window.rig};
    for (void (KMContainerNode::*set)(bool) : {&KMContainerNode::setLocked, &KMContainerNode::setVisible}) {
        const bool on = set == &KMContainerNode::setLocked;
        for (KMContainerNode *holder : holders) {
            (holder->*set)(on);
            press();
            (holder->*set)(!on);
        }
    }
    QCOMPARE(window.steps(), steps);
    QVERIFY(!window.rig->isDeleted() && !a->isDeleted());
}

void tst_KMBoneTools::poses()
{
    BoneWindow window(KMToolKind::Animation);
    QVERIFY(window.isReady());
    KMBone *arm = window.add("arm", nullptr, {0, 0, 0}, {0, 40, 0});
    KMBone *hand = window.add("hand", arm, {0, 40, 0}, {0, 80, 0});
    auto *tool = static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::Animation));
    tool->setHandleShown(false);
    gProject->setCurrentFrame(12);
    STEP(window, "Select Bone", [&] { ViewMouse(window.view(front)).click(window.place({0, 20, 0})); });
    CLOSE(tool->handle()->position(), Vector3());
    // A quarter turn of the arm about the direction of view.
    STEP(window, "Edit Bonekey", [&] { window.pull({0, 20, 0}, {20, 0, 0}); });
    CLOSE(arm->tail(), Vector3(40, 0, 0));
    CLOSE(hand->tail(), Vector3(80, 0, 0));
    CLOSE(hand->restTail(), Vector3(0, 80, 0));
    const KMBoneKey *key = window.rig->animation()->key("arm", 12);
    QVERIFY(key);
    QVERIFY(std::abs(std::abs(key->rotation.z) - std::sqrt(0.5f)) < 1e-3f);
    QCOMPARE(key->curves, KMBoneKey().curves);
    QCOMPARE(key->position, Vector3());
    // The next in the chain, from where it is seen now.
    window.pull({60, 0, 0}, {40, 20, 0});
    CLOSE(hand->tail(), Vector3(40, 40, 0));
    QVERIFY(window.rig->animation()->key("hand", 12));
    QVERIFY(window
                .step("Unselect Bone",
                      [&] {
                          ViewMouse mouse(window.view(front));
                          mouse.modifiers = Qt::ControlModifier;
                          mouse.click(window.place({40, 20, 0}));
                      })
                .isEmpty());
    gProject->setCurrentFrame(0);
    window->undoStack()->setIndex(0);
    QVERIFY(window.rig->animation()->tracks().isEmpty());
    CLOSE(hand->tail(), Vector3(0, 80, 0));
}

/// A bone that is dragged itself points to the cursor, also where the view isn't along an axis.
void tst_KMBoneTools::posesInPerspective()
{
    BoneWindow window(KMToolKind::Animation);
    QVERIFY(window.isReady());
    const KMBone *arm = window.add("arm", nullptr, {0, 0, 0}, {0, 60, 0});
    static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::Animation))->setHandleShown(false);
    const int view = ToolWindow::Perspective;
    const QPointF head = window.at(view, arm->head());
    const QPointF from = (head + window.at(view, arm->tail())) / 2;
    const QPointF to = head + QPointF(40, -25);
    window.drag(view, from, to - from);
    const QLineF seen(head, window.at(view, arm->tail()));
    const double off = std::abs(std::remainder(seen.angleTo(QLineF(head, to)), 360.0));
    QVERIFY2(off < 8.0, qPrintable(QString::number(off))); // near and far ends of a turn look unlike
}

void tst_KMBoneTools::posesMovable()
{
    BoneWindow window(KMToolKind::Animation);
    QVERIFY(window.isReady());
    KMBone *root = window.add("root", nullptr, {0, 0, 0}, {0, 40, 0}, true);
    KMBone *child = window.add("child", root, {0, 40, 0}, {0, 80, 0}, true);
    static_cast<KMToolUniv *>(window.bar->tool(KMToolKind::Animation))->setHandleShown(false);
    window.pull({0, 20, 0}, {30, 20, 0});
    CLOSE(root->head(), Vector3(30, 0, 0));
    CLOSE(child->tail(), Vector3(30, 80, 0));
    PoseTransform pose = root->keyPose();
    pose.rotation = Quaternion::fromAxisAngle({0, 0, 1}, float(M_PI_2));
    root->setKeyPose(pose);
    window.rig->animation()->reevaluate();
    window.pull(child->head() * 0.5f + child->tail() * 0.5f,
                child->head() * 0.5f + child->tail() * 0.5f + Vector3(0, 25, 0));
    CLOSE(window.rig->animation()->key("child", 0)->position, Vector3(25, 0, 0)); // in the turned frame of the parent
}

void tst_KMBoneTools::escape()
{
    for (const int toolId : {KMToolKind::Bone, KMToolKind::Universal, KMToolKind::Animation}) {
        for (const int mode : {int(KMToolBone::Make), int(KMToolBone::Move)}) {
            BoneWindow window(toolId);
            QVERIFY(window.isReady());
            KMBone *bone = window.add("a", nullptr, {0, 0, 0}, {0, 40, 0});
            bone->setSelectMask(KMBone::BothSelected);
            gSolution->setCurrentBone(bone);
            if (toolId == KMToolKind::Bone)
                window.bar->tool(toolId)->setMode(mode);
            const QString before = window.bones.text();
            QVERIFY(window.focus(window.view(front)));
            for (const Vector3 &from : {Vector3(0, 40, 0), Vector3(0, 20, 0), Vector3(70, 20, 0)}) {
                ViewMouse mouse(window.view(front));
                mouse.move(window.place(from));
                mouse.press(Qt::LeftButton, window.place(from));
                mouse.move(window.place(from + Vector3(20, 20, 0)));
                QTest::keyClick(window.view(front), Qt::Key_Escape);
                mouse.release(Qt::LeftButton, window.place(from + Vector3(20, 20, 0)));
            }
            QCOMPARE(window.steps(), 0);
            QCOMPARE(window.bones.text(), before);
            QCOMPARE(bone->tail(), Vector3(0, 40, 0));
        }
    }
}

/// Whatever the mouse does: each drag is one step or none, the rig holds together, and all can be undone.
void tst_KMBoneTools::randomDrags()
{
    BoneWindow window(KMToolKind::Bone);
    QVERIFY(window.isReady());
    KMBone *root = window.add("root", nullptr, {0, 0, 0}, {0, 40, 0});
    window.add("left", root, {0, 40, 0}, {40, 60, 0});
    window.add("right", root, {0, 40, 0}, {-40, 60, 0});
    const QString start = window.bones.text();
    window->undoStack()->clear();
    window->undoStack()->setUndoLimit(0);
    QRandomGenerator random(7);
    const auto number = [&](double range) { return float((random.generateDouble() - 0.5) * range); };
    const int tools[] = {KMToolKind::Bone, KMToolKind::Universal, KMToolKind::Animation, KMToolKind::SRT};
    for (int i = 0; i < 40; ++i) {
        gProject->setCurrentFrame(random.bounded(3) * 10);
        KMTool *tool = window.bar->tool(tools[random.bounded(4)]);
        tool->requestActivation();
        if (tool->toolId() == KMToolKind::Bone)
            tool->setMode(random.bounded(2));
        KMEditFilter filter;
        filter.symmetry = random.bounded(2);
        window.filter(filter);
        const QList<KMBone *> bones = window.rig->bones();
        const KMBone *bone = bones[random.bounded(bones.size())];
        const Vector3 points[] = {bone->head(), bone->tail(), (bone->head() + bone->tail()) * 0.5f,
                                  Vector3(number(160), number(160), 0)};
        const Vector3 from = points[random.bounded(4)];
        const int before = window.steps();
        window.pull(from, from + Vector3(number(60), number(60), 0));
        // The choice, where there is one, and the edit
        const int edits = window.steps() - before - (window->undoStack()->text(before) == QLatin1String("Select Bone"));
        QVERIFY2(edits <= 1, qPrintable(window->undoStack()->text(before)));
        QCOMPARE(rigFault(*window.rig), QString());
    }
    window->undoStack()->setIndex(0);
    QCOMPARE(window.bones.text(), start);
}

KM_TEST(tst_KMBoneTools);
#include "tst_KMBoneTools.moc"
