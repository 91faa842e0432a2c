#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/RigScene.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"
#include "tools/KMAlignVertexDialog.h"
#include "tools/KMBoneComContainer.h"

#include <QTest>

namespace {

/// A rig with the commands, a user who answers, and a window that hears what they say.
class Desk : public RigScene
{
public:
    Desk()
        : m_scope(&prompt)
    {
        gSolution->setWindow(&window);
        prompt.acceptForms = true;
    }
    ~Desk() { gSolution->setWindow(nullptr); }

    /// Runs a command; returns how many steps came into the history.
    int run(const char *name)
    {
        const int before = session.stack().count();
        KMCommand *command = commands.unlisted(QString::fromLatin1(name));
        if (!command)
            command = commands.command(QString::fromLatin1(name));
        command->trigger();
        return session.stack().count() - before;
    }
    KMBone *bone(const char *name) const { return rig->bone(QString::fromLatin1(name)); }
    QString lastMessage() const { return window.messages.value(window.messages.size() - 1); }

    CallLog log;
    RecordingWindow window{&log};
    ScriptedPrompt prompt;
    KMBoneComContainer commands;

private:
    KMPromptScope m_scope;
};

/// arm_L from (10, 0, 0), elbow_L behind it, both on the positive side; spine on the plane.
class Arm : public Desk
{
public:
    Arm()
    {
        spine = addBone(QStringLiteral("spine"), nullptr, {0, 0, 0}, {0, 40, 0});
        arm = addBone(QStringLiteral("arm_L"), spine, {10, 40, 0}, {40, 30, 0});
        elbow = addBone(QStringLiteral("elbow_L"), arm, {40, 30, 0}, {60, 35, 8});
        forget();
    }
    KMBone *spine, *arm, *elbow;
};

bool isNear(const kvm::Vector3 &a, const kvm::Vector3 &b, float margin = 1e-4f)
{
    return (a - b).length() < margin;
}

} // namespace

class tst_KMBoneCommand : public QObject
{
    Q_OBJECT
private slots:
    void refusals();
    void oneStepAndBack_data();
    void oneStepAndBack();
    void insertGoesOnFromTheSelected();
    void createMakesARigOnce();
    void cloneRemapsInsideTheCopy();
    void symmetricBones();
    void deletesWhatIsAtHand();
    void linearize();
    void symmetrize();
    void fitting();
    void upVectorKeepsTheEnds();
    void alignPosition();
    void alignedBonesKeepTheirRoll();
    void reflectedPartner();
    void imagesKeepTheRoll();
    void sidesInNames();
    void convertAxis();
    void bonesFromEdges();
    void divideAndLayer();
    void noRigIsTooDeep();
    void bodiesAndSideJoint();
};

void tst_KMBoneCommand::refusals()
{
    Arm desk;
    QCOMPARE(desk.run("BoneComHide"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Bone Selection not found."));
    QCOMPARE(desk.run("BoneComBoneFromEdge"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Edge Selection not found."));
    desk.rig->setLocked(true);
    QCOMPARE(desk.run("BoneComSelectAll"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("RootBone Selection not found."));
    desk.rig->setLocked(false);
    gSolution->setCurrentNode(nullptr);
    desk.window.messages.clear();
    QCOMPARE(desk.run("BoneComInsertMMDBone"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("RootBone Selection not found."));
    gSolution->setCurrentBone(desk.arm); // its container will do
    QCOMPARE(desk.run("BoneComSelectAll"), 1);
    QCOMPARE(desk.run("BoneComSelectAll"), 0); // all are
}

void tst_KMBoneCommand::oneStepAndBack_data()
{
    QTest::addColumn<QVariantMap>("answers");
    QTest::addColumn<int>("again"); // steps of a second time
    QTest::newRow("BoneComUnSelectAll") << QVariantMap() << 0;
    QTest::newRow("BoneComInsert") << QVariantMap() << 1;
    QTest::newRow("BoneComClone") << QVariantMap() << 1;
    QTest::newRow("BoneComCreateSymBone") << QVariantMap() << 0;
    QTest::newRow("BoneComHide") << QVariantMap() << 0;
    QTest::newRow("BoneComDeleteSelBone") << QVariantMap() << 0;
    QTest::newRow("BoneComEditViewMode") << QVariantMap{{"view-mode", 2}} << 0;
    QTest::newRow("BoneComAlignUpVector") << QVariantMap{{"axis", 0}} << 0;
    QTest::newRow("BoneComConvertAxis") << QVariantMap{{"axis", 5}} << 1;
    QTest::newRow("BoneComLinearize") << QVariantMap() << 0;
    QTest::newRow("BoneComInsertMMDBone") << QVariantMap() << 1;
    QTest::newRow("BoneComDevideBone") << QVariantMap() << 1;
    QTest::newRow("BoneComLayered") << QVariantMap() << 1;
}

void tst_KMBoneCommand::oneStepAndBack()
{
    QFETCH(QVariantMap, answers);
    QFETCH(int, again);
    Arm desk;
    desk.prompt.optionValues = answers;
    desk.arm->setSelectMask(KMBone::BothSelected);
    desk.elbow->setSelectMask(KMBone::HeadSelected);
    const QString before = desk.dump.text();
    const char *name = QTest::currentDataTag();
    QCOMPARE(desk.run(name), 1);
    const QString after = desk.dump.text();
    QVERIFY(after != before);
    for (int i = 0; i < 2; ++i) {
        desk.session.stack().undo();
        QCOMPARE(desk.dump.text(), before);
        desk.session.stack().redo();
        QCOMPARE(desk.dump.text(), after);
    }
    desk.window.messages.clear();
    QCOMPARE(desk.run(name), again);
    QVERIFY(again || !desk.lastMessage().isEmpty() || desk.rig->selectedBones().isEmpty());
    desk.prompt.acceptForms = false;
    desk.session.stack().setIndex(0);
    if (!answers.isEmpty())
        QCOMPARE(desk.run(name), 0); // cancelled
}

void tst_KMBoneCommand::insertGoesOnFromTheSelected()
{
    Arm desk;
    desk.arm->setSelectMask(KMBone::TailSelected);
    desk.run("BoneComInsert");
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L 2Bone0 2elbow_L"));
    QVERIFY(desk.bone("Bone0")->restHead() == desk.arm->restTail());
    QVERIFY(desk.bone("Bone0")->selectMask() && !desk.arm->selectMask());
    desk.run("BoneComInsert");
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L 2Bone0 3Bone1 2elbow_L"));
}

void tst_KMBoneCommand::createMakesARigOnce()
{
    KMHeadlessSession session;
    KMBone *first = KMBoneEdit::createBone();
    QCOMPARE(session.stack().count(), 1);
    KMBone *second = KMBoneEdit::createBone();
    QCOMPARE(gProject->ctrlsInTree().size(), 1);
    QVERIFY(first->container() == second->container() && second->parentBone() == first);
    QCOMPARE(first->container()->name(), QStringLiteral("RootBone0"));
    while (session.stack().canUndo())
        session.stack().undo();
    QCOMPARE(gProject->ctrlsInTree().size(), 0);
    while (session.stack().canRedo())
        session.stack().redo();
    QCOMPARE(first->container()->bones().size(), 2);
}

void tst_KMBoneCommand::cloneRemapsInsideTheCopy()
{
    Arm desk;
    auto *tag = new KMTagConstraint;
    tag->setData({desk.arm, 1.0f, 0, KMTagConstraint::Rotate, 0});
    desk.elbow->addTag(tag);
    auto *outward = new KMTagConstraint;
    outward->setData({desk.spine, 1.0f, 0, KMTagConstraint::Rotate, 0});
    desk.elbow->addTag(outward);
    desk.arm->setSelectMask(KMBone::BothSelected);
    desk.elbow->setSelectMask(KMBone::BothSelected); // below a selected one: copied once
    desk.run("BoneComClone");
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L 2elbow_L 1arm_L0 2elbow_L0"));
    const KMBone *copy = desk.bone("elbow_L0");
    QCOMPARE(static_cast<KMTagConstraint *>(copy->tag(0))->data().target, desk.bone("arm_L0"));
    QCOMPARE(static_cast<KMTagConstraint *>(copy->tag(1))->data().target, desk.spine);
    QVERIFY(copy->rest() == desk.elbow->rest());
}

void tst_KMBoneCommand::symmetricBones()
{
    Arm desk;
    desk.arm->setMovable(true);
    for (KMBone *bone : desk.rig->bones())
        bone->setSelectMask(KMBone::BothSelected);
    QCOMPARE(desk.run("BoneComCreateSymBone"), 1);
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L 2elbow_L 1arm_R 2elbow_R"));
    QVERIFY(isNear(desk.bone("elbow_R")->restTail(), {-60, 35, 8}));
    QVERIFY(isNear(desk.bone("arm_R")->restHead(), {-10, 40, 0}) && desk.bone("arm_R")->isMovable());
    QCOMPARE(desk.run("BoneComCreateSymBone"), 0); // each has a partner, the spine itself
    KMBone *leg = desk.addBone(QStringLiteral("leg"), desk.spine, {0, 0, 0}, {20, -40, 0}); // from the plane
    leg->setSelectMask(KMBone::BothSelected);
    QCOMPARE(desk.run("BoneComCreateSymBone"), 1);
    QCOMPARE(desk.run("BoneComCreateSymBone"), 0);
}

/// What nobody sees or may touch isn't lost.
void tst_KMBoneCommand::deletesWhatIsAtHand()
{
    Arm desk;
    for (KMBone *bone : desk.rig->bones())
        bone->setSelectMask(KMBone::BothSelected);
    desk.arm->setLocked(true);
    desk.elbow->setVisible(false);
    QCOMPARE(desk.run("BoneComDeleteSelBone"), 1);
    QCOMPARE(desk.names(), QStringLiteral("0arm_L 1elbow_L"));
    QVERIFY(desk.lastMessage().startsWith('2'));
    QCOMPARE(desk.run("BoneComDeleteSelBone"), 0);
}

void tst_KMBoneCommand::linearize()
{
    Desk desk;
    KMBone *a = desk.addBone(QStringLiteral("a"), nullptr, {0, 0, 0}, {0, 10, 0});
    KMBone *b = desk.addBone(QStringLiteral("b"), a, {1, 9, 0}, {20, 9, 0});
    KMBone *c = desk.addBone(QStringLiteral("c"), b, {20, 10, 0}, {60, 0, 0});
    const double lengths[] = {10, 19, std::sqrt(40.0 * 40 + 10 * 10)};
    const double sum = lengths[0] + lengths[1] + lengths[2];
    for (KMBone *bone : {a, b, c})
        bone->setSelectMask(KMBone::HeadSelected);
    QCOMPARE(desk.run("BoneComLinearize"), 1);
    QVERIFY(isNear(a->restTail(), {float(60 * lengths[0] / sum), 0, 0}));
    QVERIFY(isNear(b->restTail(), {float(60 * (lengths[0] + lengths[1]) / sum), 0, 0}));
    QVERIFY(isNear(b->restHead(), a->restTail()) && isNear(c->restHead(), b->restTail()));
    QVERIFY(isNear(c->restTail(), {60, 0, 0}));
    b->setSelectMask(0);
    QCOMPARE(desk.run("BoneComLinearize"), 0); // no chain any more
}

void tst_KMBoneCommand::symmetrize()
{
    Desk desk;
    KMBone *left = desk.addBone(QStringLiteral("l"), nullptr, {10, 0, 0}, {20, 5, 0});
    KMBone *right = desk.addBone(QStringLiteral("r"), nullptr, {-14, 6, 2}, {-20, 5, 4});
    for (KMBone *bone : {left, right})
        bone->setSelectMask(KMBone::BothSelected);
    QCOMPARE(desk.run("BoneComSymmetrize"), 1);
    // The line between the heads meets the plane at 10/24 of its way; both go 12 off it from there.
    QVERIFY(isNear(left->restHead(), {12, 2.5f, 20.0f / 24}) && isNear(right->restHead(), {-12, 2.5f, 20.0f / 24}));
    QVERIFY(isNear(left->restTail(), {20, 5, 2}) && isNear(right->restTail(), {-20, 5, 2}));
    left->setRest(restBone({10, 0, 0}, {-1, 0, 0}));
    QCOMPARE(desk.run("BoneComSymmetrize"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("illegal tail position"));
    left->setRest(restBone({0, 0, 0}, {10, 0, 0}));
    QCOMPARE(desk.run("BoneComSymmetrize"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("illegal head position"));
    // The tail of a point is its head, whatever its hidden direction.
    left->setRest(restBone({10, 0, 0}, {-9, 0, 0}));
    for (KMBone *bone : {left, right})
        bone->setViewType(KMBoneShape::Point);
    const kvm::Quaternion rotation = left->rotation();
    QCOMPARE(desk.run("BoneComSymmetrize"), 1);
    QVERIFY(isNear(left->restHead(), {11, right->restHead().y, right->restHead().z}));
    QVERIFY(left->rotation() == rotation && left->lengthScale() == 0.19f);
}

void tst_KMBoneCommand::fitting()
{
    Arm desk;
    desk.arm->setSelectMask(KMBone::BothSelected);
    QList<KMCommand *> namedAlike;
    for (KMCommand *command : desk.commands.commands()) {
        if (command->objectName() == QLatin1String("BoneComFitToParent"))
            namedAlike << command;
    }
    QCOMPARE(namedAlike.size(), 2);
    QCOMPARE(desk.commands.command(QStringLiteral("BoneComFitToParent")), namedAlike[1]);
    namedAlike[0]->trigger(); // to the parent
    QVERIFY(isNear(desk.spine->restTail(), {10, 40, 0}) && isNear(desk.arm->restTail(), {40, 30, 0}));
    const int steps = desk.session.stack().count();
    KMBone *sibling = desk.addBone(QStringLiteral("later"), desk.spine, {0, 9, 9}, {9, 9, 9});
    sibling->setSelectMask(KMBone::HeadSelected);
    namedAlike[0]->trigger();                          // it reaches the first child already
    QCOMPARE(desk.session.stack().count(), steps + 1); // only the new bone
    sibling->setSelectMask(0);
    desk.arm->setRest(restBone({10, 40, 0}, {1, 1, 1}));
    namedAlike[1]->trigger(); // to the first child
    QVERIFY(isNear(desk.arm->restTail(), {40, 30, 0}));
    const int fitted = desk.session.stack().count();
    namedAlike[1]->trigger();
    QCOMPARE(desk.session.stack().count(), fitted);
}

void tst_KMBoneCommand::upVectorKeepsTheEnds()
{
    Arm desk;
    desk.elbow->setSelectMask(KMBone::BothSelected);
    for (int axis = 0; axis < 6; ++axis) {
        desk.prompt.optionValues = {{"axis", axis}};
        desk.run("BoneComAlignUpVector");
        QVERIFY(isNear(desk.elbow->restHead(), {40, 30, 0}) && isNear(desk.elbow->restTail(), {60, 35, 8}));
        // Of all directions across the bone its own Y goes along the axis the most.
        kvm::Vector3 up;
        up[axis % 3] = axis < 3 ? 1.0f : -1.0f;
        QVERIFY(dot(desk.elbow->rotation().rotate({0, 1, 0}), up) > 0.3f);
        QVERIFY(std::abs(dot(desk.elbow->rotation().rotate({1, 0, 0}), up)) < 1e-5f);
    }
}

void tst_KMBoneCommand::alignPosition()
{
    Arm desk;
    desk.arm->setSelectMask(KMBone::TailSelected);
    desk.elbow->setSelectMask(KMBone::BothSelected);
    desk.prompt.onDialog = [](QDialog &shown) {
        auto &dialog = static_cast<KMAlignVertexDialog &>(shown);
        // Points are at x 40 and 60, y 30 and 35, z 0 and 8.
        const bool isRight =
            dialog.aligns(1) && !dialog.aligns(0) && !dialog.aligns(2) && std::abs(dialog.values().y - 32.5f) < 1e-4f;
        dialog.setValues({0, 50, 0});
        return isRight;
    };
    QCOMPARE(desk.run("BoneComAlignPosition"), 1);
    QVERIFY(isNear(desk.arm->restHead(), {10, 40, 0}) && isNear(desk.arm->restTail(), {40, 50, 0}));
    QVERIFY(isNear(desk.elbow->restHead(), {40, 50, 0}) && isNear(desk.elbow->restTail(), {60, 50, 8}));
}

/// A point has a direction that nobody sees, and a bone a roll: what only moves keeps both.
void tst_KMBoneCommand::alignedBonesKeepTheirRoll()
{
    Desk desk;
    KMBone *point = desk.addBone(QStringLiteral("p"), nullptr, {3, 7, 1}, {3, 27, 1});
    point->setViewType(KMBoneShape::Point);
    KMBone *level = desk.addBone(QStringLiteral("l"), nullptr, {3, 4, 1}, {13, 4, 9});
    KMBoneRest rolled = level->rest();
    rolled.rotation = rolled.rotation * kvm::Quaternion::fromEuler(0, 0, 1);
    level->setRest(rolled);
    const KMBoneRest before[] = {point->rest(), level->rest()};
    point->setSelectMask(KMBone::HeadSelected);
    level->setSelectMask(KMBone::BothSelected);
    desk.prompt.onDialog = [](QDialog &shown) {
        auto &dialog = static_cast<KMAlignVertexDialog &>(shown);
        dialog.setAligns(1, true);
        dialog.setValues({0, 50, 0});
        return true;
    };
    QCOMPARE(desk.run("BoneComAlignPosition"), 1);
    for (const auto &[bone, was] : {std::pair(point, before[0]), std::pair(level, before[1])}) {
        QVERIFY(bone->rotation() == was.rotation && bone->lengthScale() == was.lengthScale);
        QVERIFY(bone->restHead() == kvm::Vector3(was.head.x, 50, was.head.z));
    }
}

void tst_KMBoneCommand::reflectedPartner()
{
    Arm desk;
    KMBone *right = desk.addBone(QStringLiteral("arm_R"), desk.spine, {-17, 33, 0}, {-44, 20, 6}); // far off
    desk.arm->setSelectMask(KMBone::HeadSelected);
    desk.prompt.optionValues = {{"side", 0}};
    QCOMPARE(desk.run("BoneComAlignReflectBone"), 1);
    QVERIFY(isNear(right->restHead(), {-10, 40, 0}) && isNear(right->restTail(), {-40, 30, 0}));
    QVERIFY(isNear(desk.arm->restHead(), {10, 40, 0}));
    QCOMPARE(desk.run("BoneComAlignReflectBone"), 0); // they are images now
    desk.arm->setRest(restBone({0, 40, 0}, {40, 30, 0}));
    right->setRest(restBone({0, 40, 0}, {-44, 30, 6}));
    QCOMPARE(desk.run("BoneComAlignReflectBone"), 1); // also those that start on the plane
    QVERIFY(isNear(right->restTail(), {-40, 30, 0}));
    desk.arm->setRest(restBone({10, 40, 0}, {40, 30, 0}));
    KMBone *nameless = desk.addBone({}, nullptr, {-1, 2, 3}, {-4, 5, 6});
    desk.bone("elbow_L")->setName(QStringLiteral("bright")); // of no side
    desk.arm->setSelectMask(0);
    desk.elbow->setSelectMask(KMBone::HeadSelected);
    QCOMPARE(desk.run("BoneComAlignReflectBone"), 0);
    QVERIFY(isNear(nameless->restHead(), {-1, 2, 3}));
}

/// The image of a bone that was rolled by hand and of its axes, across a plane that stands anywhere.
void tst_KMBoneCommand::imagesKeepTheRoll()
{
    Desk desk;
    const kvm::Quaternion turn = kvm::Quaternion::fromEuler(0.3f, 0.8f, -0.5f);
    const kvm::Vector3 place{5, -3, 2};
    desk.rig->setTransform({{1, 1, 1}, turn, place});
    const auto world = [&](const kvm::Vector3 &point) { return turn.rotate(point) + place; };
    const auto image = [&](const kvm::Vector3 &point) {
        kvm::Vector3 local = turn.conjugate().rotate(point - place);
        local.x = -local.x;
        return world(local);
    };
    KMBone *left = desk.addBone(QStringLiteral("a_L"), nullptr, world({10, 4, 1}), world({30, 9, 6}));
    KMBone *right = desk.addBone(QStringLiteral("a_R"), nullptr, world({-20, 4, 1}), world({-25, -9, 6}));
    KMBoneRest rest = left->rest();
    rest.rotation = rest.rotation * kvm::Quaternion::fromEuler(0, 0, 1.1f);
    rest.scale = {1, 2, 3};
    left->setRest(rest);
    left->setSelectMask(KMBone::BothSelected);
    desk.prompt.optionValues = {{"side", 0}};
    QCOMPARE(desk.run("BoneComAlignReflectBone"), 1);
    QVERIFY(isNear(right->restHead(), image(left->restHead())) && isNear(right->restTail(), image(left->restTail())));
    const kvm::Vector3 y = left->restHead() + left->rotation().rotate({0, 1, 0});
    QVERIFY(isNear(right->restHead() + right->rotation().rotate({0, 1, 0}), image(y)));
    QVERIFY(right->scale() == left->scale() && right->lengthScale() == left->lengthScale());
}

void tst_KMBoneCommand::sidesInNames()
{
    const struct
    {
        const char *name, *mirrored;
    } rows[] = {{"arm_L", "arm_R"},      {"arm.r", "arm.l"},        {"左腕", "右腕"},
                {"rightArm", "leftArm"}, {"armLeft1", "armRight1"}, {"left arm", "right arm"},
                {"bright", ""},          {"upright", ""},           {"Lefty", ""},
                {"arm_Lx", ""}};
    for (const auto &row : rows)
        QCOMPARE(KMBoneEdit::mirroredName(QString::fromUtf8(row.name)), QString::fromUtf8(row.mirrored));
}

void tst_KMBoneCommand::convertAxis()
{
    Arm desk;
    desk.arm->setSelectMask(KMBone::HeadSelected);
    desk.prompt.optionValues = {{"axis", 0}};
    desk.run("BoneComConvertAxis");
    QVERIFY(isNear(desk.arm->restHead(), {10, 0, 40}) && isNear(desk.arm->restTail(), {40, 0, 30}));
    desk.prompt.optionValues = {{"axis", 3}};
    desk.run("BoneComConvertAxis");
    QVERIFY(isNear(desk.arm->restHead(), {10, 40, 0}) && isNear(desk.arm->restTail(), {40, 30, 0}));
}

void tst_KMBoneCommand::bonesFromEdges()
{
    Desk desk;
    KMMeshNode *mesh = MeshFixtures::grid(3, 1); // four vertices in a row, 0 to 3
    gProject->addNode(mesh);
    mesh->refreshMesh(KMMeshDirty::All);
    for (int i = 0; i < 3; ++i)
        mesh->setEdgeFlag(i, i + 1, KMElementFlag::Selected);
    const kvm::Vector3 ends[] = {mesh->position(0), mesh->position(3)};
    KMBone *parent = desk.addBone(QStringLiteral("p"), nullptr, ends[1] + kvm::Vector3(0, 9, 0), ends[1]);
    parent->setSelectMask(KMBone::BothSelected);
    gSolution->setCurrentBone(parent);
    QCOMPARE(desk.run("BoneComBoneFromEdge"), 1);
    QCOMPARE(desk.names(), QStringLiteral("0p 1Bone0 2Bone1 3Bone2")); // from the end that the parent reaches
    QVERIFY(isNear(desk.bone("Bone0")->restHead(), ends[1]) && isNear(desk.bone("Bone2")->restTail(), ends[0]));
}

void tst_KMBoneCommand::divideAndLayer()
{
    Arm desk;
    QVERIFY(!desk.commands.command(QStringLiteral("BoneComDevideBone"))); // not listed
    desk.arm->setSelectMask(KMBone::BothSelected);
    desk.run("BoneComDevideBone");
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L 2arm_L0 3elbow_L"));
    QVERIFY(isNear(desk.arm->restTail(), {25, 35, 0}) && isNear(desk.bone("arm_L0")->restTail(), {40, 30, 0}));
    desk.arm->setMovable(true);
    desk.run("BoneComLayered");
    QCOMPARE(desk.names(), QStringLiteral("0spine 1arm_L親2 2arm_L 3arm_L0 4elbow_L"));
    const KMBone *layer = desk.rig->bones()[1];
    QVERIFY(layer->isPoint() && layer->isMovable() && layer->restHead() == desk.arm->restHead());
}

/// A rig as deep as files can hold it gets no deeper by any command, and its chain can be taken apart and put together.
void tst_KMBoneCommand::noRigIsTooDeep()
{
    Desk desk;
    KMBone *last = nullptr;
    for (int i = 0; i <= KMBoneEdit::MaxDepth; ++i) {
        auto *bone = new KMBone;
        bone->setName(QString::number(i));
        desk.rig->attachBone(bone, last);
        last = bone;
    }
    desk.rig->rebuildOrder();
    desk.forget();
    KMMeshNode *mesh = MeshFixtures::grid(1, 1);
    gProject->addNode(mesh);
    mesh->setEdgeFlag(0, 1, KMElementFlag::Selected);
    gSolution->setCurrentNode(desk.rig);
    last->setSelectMask(KMBone::BothSelected);
    for (const char *name : {"BoneComInsert", "BoneComDevideBone", "BoneComLayered", "BoneComBoneFromEdge"}) {
        desk.window.messages.clear();
        QCOMPARE(desk.run(name), 0);
        QVERIFY2(desk.window.messages.join(' ').contains(QStringLiteral("can't be deeper than 4000 bones")), name);
    }
    QVERIFY(!KMBoneEdit::createBone());
    KMBone *middle = desk.rig->bones()[2000];
    QVERIFY(!KMBoneEdit::hasRoomFor(middle->parentBone(), desk.rig->bones()[3000]));
    const int before = desk.session.stack().index();
    gSolution->push(new deleteBoneCommand(middle));
    QCOMPARE(last->depth(), KMBoneEdit::MaxDepth - 1);
    QCOMPARE(desk.run("BoneComLayered"), 1);
    QCOMPARE(last->depth(), KMBoneEdit::MaxDepth);
    while (desk.session.stack().index() > before)
        desk.session.stack().undo();
    QCOMPARE(last->depth(), KMBoneEdit::MaxDepth);
    QCOMPARE(middle->childBones().size(), 1);
}

void tst_KMBoneCommand::bodiesAndSideJoint()
{
    Arm desk;
    QCOMPARE(desk.run("BoneComMakeRigidBody"), 0);
    QCOMPARE(desk.lastMessage(), QStringLiteral("Bone Selection not found."));
    desk.arm->setSelectMask(KMBone::BothSelected);
    desk.elbow->setSelectMask(KMBone::BothSelected);
    desk.prompt.optionValues = {{QStringLiteral("shape-type"), 1}, {QStringLiteral("with-joint"), false}};
    QCOMPARE(desk.run("BoneComMakeRigidBody"), 1);
    desk.prompt.optionValues.clear(); // the answers are remembered
    QCOMPARE(desk.run("BoneComMakeRigidBody"), 1);
    const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(desk.rig);
    QCOMPARE(bodies.size(), 4);
    QCOMPARE(KMRigTags::joints(desk.rig).size(), 0);
    QCOMPARE(bodies.last()->parameters().shape, int(KMTagRigidBody::Box));

    for (const int count : {1, 3}) {
        for (int i = 0; i < bodies.size(); ++i)
            bodies[i]->setSelected(i < count);
        QCOMPARE(desk.run("BoneComMakeSideJoint"), 0);
        QCOMPARE(desk.lastMessage(), QStringLiteral("Two RigidBody Selection not found."));
        desk.window.messages.clear();
    }
    bodies[1]->setSelected(false);
    QCOMPARE(desk.run("BoneComMakeSideJoint"), 1);
    const KMTagJoint *joint = KMRigTags::joints(desk.rig).value(0);
    QVERIFY(joint && joint->bodyA() == bodies[0] && joint->bodyB() == bodies[2]);
    desk.elbow->setViewType(KMBoneShape::Point);
    QCOMPARE(desk.run("BoneComMakeRigidBody"), 1);
    QCOMPARE(KMRigTags::bodies(desk.rig).size(), 5); // a point has no length
    while (desk.session.stack().canUndo())
        desk.session.stack().undo();
    QCOMPARE(KMRigTags::bodies(desk.rig).size(), 0);
}

KM_TEST(tst_KMBoneCommand);
#include "tst_KMBoneCommand.moc"
