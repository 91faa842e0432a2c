#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/KMBoneMMDTemplate.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagConstraint.h"
#include "support/CommandProof.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QRandomGenerator>
#include <QTest>

#include <functional>

namespace {

/// a(b(c d) e) f, keys on a, b and e, a tag on b, b selected by its head, the row of b expanded; and a second rig with
/// x.
class Figure : public RigScene
{
public:
    Figure()
        : other(new KMBoneContainer)
    {
        gProject->addNode(other);
        a = addBone(QStringLiteral("a"), nullptr, {0, 0, 0}, {0, 10, 0});
        b = addBone(QStringLiteral("b"), a, {0, 10, 0}, {3, 20, 0});
        c = addBone(QStringLiteral("c"), b, {3, 20, 0}, {3, 30, 5});
        d = addBone(QStringLiteral("d"), b, {3, 20, 0}, {9, 20, 0});
        e = addBone(QStringLiteral("e"), a, {0, 10, 0}, {-3, 20, 0});
        f = addBone(QStringLiteral("f"), nullptr, {50, 0, 0}, {50, 1, 0});
        x = new KMBone;
        gSolution->push(new addBoneCommand(other, x, nullptr));
        for (const char *name : {"a", "b", "e"}) {
            KMBoneKey key;
            key.name = QString::fromLatin1(name);
            key.frameno = 4;
            rig->animation()->setKey(key);
        }
        tag = new TestTag(QStringLiteral("tag"));
        b->addTag(tag);
        b->setSelectMask(KMBone::HeadSelected);
        b->item()->setExpanded(true);
        forget();
    }

    KMBoneContainer *other;
    KMBone *a, *b, *c, *d, *e, *f, *x;
    TestTag *tag;
};

using Make = std::function<KMUndoCommand *(Figure &)>;

BoneLimit someLimit()
{
    BoneLimit limit;
    limit.minP = -1.0f;
    limit.enabled = true;
    return limit;
}

KMBoneKey keyAt(const char *name, quint32 frame)
{
    KMBoneKey key;
    key.name = QString::fromLatin1(name);
    key.frameno = frame;
    key.position = {1, 2, 3};
    return key;
}

} // namespace
Q_DECLARE_METATYPE(Make)

class tst_BoneCommands : public QObject
{
    Q_OBJECT
private slots:
    void proof_data();
    void proof();
    void refusedMoves();
    void uniqueNames_data();
    void uniqueNames();
    void limitsOfSeveralBones();
    void deletedContainerMarksItsBones();
    void deletedGroupTakesItsRigAlong();
    void manySelectedHaveACurrentBone();
    void templateOfAFigure();
    void randomWalk();
};

void tst_BoneCommands::proof_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<QString>("names");
    const char *same = "0a 1b 2c 2d 1e 0f";
    const auto row = [](const char *name, const char *names, const Make &make) {
        QTest::newRow(name) << make << QString::fromLatin1(names);
    };
    row("add", "0a 1b 2c 2d 2Bone 1e 0f", [](Figure &s) { return new addBoneCommand(s.rig, new KMBone, s.b); });
    row("add at a place", "0a 1b 2c 2d 1e 0Bone 0f",
        [](Figure &s) { return new addBoneCommand(s.rig, new KMBone, nullptr, 1); });
    row("delete with children", "0a 1c 1d 1e 0f", [](Figure &s) { return new deleteBoneCommand(s.b); });
    row("delete at the top", "0b 1c 1d 0e 0f", [](Figure &s) { return new deleteBoneCommand(s.a); });
    row("delete a leaf", "0a 1b 2c 2d 1e", [](Figure &s) { return new deleteBoneCommand(s.f); });
    row("select all", same, [](Figure &s) { return new selectAllBoneCommand(s.rig, true); });
    row("select none", same, [](Figure &s) { return new selectAllBoneCommand(s.rig, false); });
    row("float", same, [](Figure &s) { return new setFloatBoneCommand(s.c, true); });
    row("movable", same, [](Figure &s) { return new setMovableBoneCommand(s.c, true); });
    row("parent", "0a 1e 0f 1b 2c 2d", [](Figure &s) { return new setCtrlParentCommand(s.b, s.f); });
    row("to the top", "0a 1e 0f 0b 1c 1d", [](Figure &s) { return new setCtrlParentCommand(s.b, nullptr); });
    row("move among siblings", "0a 1e 1b 2c 2d 0f", [](Figure &s) { return new moveCtrlNodeCommand(s.e, s.a, 0); });
    row("to another rig", "0a 1e 0f", [](Figure &s) { return new moveBoneToOtherContainerCommand(s.b, s.other, s.x); });
    row("transform", same, [](Figure &s) { return new editSRTCommand(s.c, {{1, 1, 1}, {0, 1, 0, 0}, {7, 7, 7}}); });
    row("limits", same, [](Figure &s) { return new editBoneLimitHPBCommand(s.c, someLimit()); });
    row("delete tag", same, [](Figure &s) { return new deleteTagBoneContainerCommand(s.b, s.tag); });
    row("rename", "0a 1renamed 2c 2d 1e 0f",
        [](Figure &s) { return new renameNodeCommand(s.b, QStringLiteral("renamed")); });
    row("hide one", same, [](Figure &s) { return new setVisibleCommand(s.b, false); });
    row("link tracks", "0a 1lost 2c 2d 1e 0f", [](Figure &s) {
        s.b->setName(QStringLiteral("lost"));
        return new animationBuildBoneCommand(s.rig);
    });
}

void tst_BoneCommands::proof()
{
    QFETCH(Make, make);
    QFETCH(QString, names);
    Figure scene;
    if (QByteArray(QTest::currentDataTag()) == "link tracks")
        scene.b->setName(QStringLiteral("lost"));
    const QString failure = proofFailure(scene.dump, [&] { return make(scene); });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
    QCOMPARE(scene.names(), names);
    QCOMPARE(rigFault(*scene.rig) + rigFault(*scene.other), QString());
}

void tst_BoneCommands::refusedMoves()
{
    Figure scene;
    QVERIFY(canMoveBone(scene.b, scene.f) && canMoveBone(scene.b, nullptr) && canMoveBone(scene.c, scene.a));
    QVERIFY(!canMoveBone(scene.a, scene.c) && !canMoveBone(scene.b, scene.b) && !canMoveBone(scene.b, scene.x));
}

void tst_BoneCommands::uniqueNames_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("unique");
    QTest::newRow("digits at the end") << QStringLiteral("arm12") << QStringLiteral("arm0");
    QTest::newRow("in the middle") << QStringLiteral("left 12 arm") << QStringLiteral("left  arm0");
    QTest::newRow("taken") << QStringLiteral("g7") << QStringLiteral("g2");
    QTest::newRow("other digits stay") << QStringLiteral("腕１") << QStringLiteral("腕１0");
}

void tst_BoneCommands::uniqueNames()
{
    QFETCH(QString, name);
    QFETCH(QString, unique);
    Figure scene;
    scene.addBone(QStringLiteral("g0"), nullptr, {}, {1, 0, 0});
    scene.addBone(QStringLiteral("g1"), nullptr, {}, {1, 0, 0});
    scene.addBone(QStringLiteral("g2"), nullptr, {}, {1, 0, 0});
    gSolution->push(new deleteBoneCommand(scene.rig->bone(QStringLiteral("g2"))));
    KMBone bone;
    bone.setName(name);
    QCOMPARE(scene.rig->uniqueName(&bone), unique);
}

void tst_BoneCommands::limitsOfSeveralBones()
{
    Figure scene;
    BoneLimit limit;
    limit.maxH = 0.5f;
    scene.c->setLimits(limit);
    limit.minP = -0.25f;
    editBoneLimitHPBCommand::push({scene.a, scene.b, scene.c}, limit, BoneLimit::MinP);
    QCOMPARE(scene.a->limits().minP, -0.25f);
    QCOMPARE(scene.a->limits().maxH, BoneLimit().maxH);
    QCOMPARE(scene.c->limits().maxH, 0.5f);
    const int steps = scene.session.stack().count();
    editBoneLimitHPBCommand::push({scene.a, scene.b, scene.c}, limit, BoneLimit::MinP | BoneLimit::MaxP);
    QCOMPARE(scene.session.stack().count(), steps); // all have it
}

void tst_BoneCommands::deletedContainerMarksItsBones()
{
    Figure scene;
    const QString before = scene.dump.text();
    gProject->deleteNode(scene.rig);
    for (const KMBone *bone : scene.rig->allBones())
        QVERIFY(bone->isDeleted()); // weights skip it
    QCOMPARE(gProject->ctrlsInTree().size(), 1);
    const QString after = scene.dump.text();
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
    scene.session.stack().redo();
    QCOMPARE(scene.dump.text(), after);
    scene.session.stack().undo();
    gProject->deleteNode(scene.b); // one bone, through the project
    QCOMPARE(scene.names(), QStringLiteral("0a 1c 1d 1e 0f"));
}

void tst_BoneCommands::deletedGroupTakesItsRigAlong()
{
    Figure scene;
    auto *group = new KMNullNode;
    gProject->addNode(group);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, group, scene.rig));
    gSolution->push(new selectBoneCommand(scene.c, KMBone::TailSelected));
    const QString before = scene.dump.text();
    gProject->deleteNode(group);
    for (const KMBone *bone : scene.rig->allBones())
        QVERIFY(bone->isDeleted());
    QVERIFY(!gSolution->currentBone());
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
    QCOMPARE(gSolution->currentBone(), scene.c);
}

void tst_BoneCommands::manySelectedHaveACurrentBone()
{
    Figure scene;
    const auto push = [](KMUndoCommand *command) {
        gSolution->push(command);
        return gSolution->currentBone();
    };
    QCOMPARE(push(new selectAllBoneCommand(scene.rig, true)), scene.a);
    QCOMPARE(push(new selectBoneCommand(scene.d, KMBone::TailSelected)), scene.d);
    QCOMPARE(push(new selectAllBoneCommand(scene.rig, true)), scene.d);
    QCOMPARE(push(new selectCtrlChildCommand(scene.b, false)), nullptr);
    QCOMPARE(push(new selectCtrlChildCommand(scene.b, true)), scene.b);
    QCOMPARE(push(new selectAllBoneCommand(scene.other, false)), scene.b);
    KMNode *const before[] = {nullptr, scene.a, scene.d, scene.d, nullptr, scene.b};
    for (int i = 5; i >= 0; --i) {
        scene.session.stack().undo();
        QCOMPARE(gSolution->currentBone(), before[i]);
    }
}

void tst_BoneCommands::templateOfAFigure()
{
    RigScene scene;
    KMBoneMMDTemplate::insertInto(scene.rig);
    QCOMPARE(scene.rig->bones().size(), KMBoneMMDTemplate::BoneCount);
    scene.rig->pairMirrorBones(0.001f);
    int constraints = 0;
    for (const KMBone *bone : scene.rig->bones()) {
        const bool isLeft = bone->name().endsWith(QLatin1String("_L"));
        const bool isRight = bone->name().endsWith(QLatin1String("_R"));
        QVERIFY2(bone->mirrorBone(), qPrintable(bone->name()));
        QCOMPARE(bone->mirrorBone() == bone, !isLeft && !isRight);
        QVERIFY(isLeft == (bone->restHead().x > 0) && isRight == bone->isOnMirrorSide());
        // What isn't floating begins where its parent ends.
        if (!bone->isFloating())
            QVERIFY2((bone->restHead() - bone->parentBone()->restTail()).length() < 0.2f, qPrintable(bone->name()));
        for (const kvm::Vector3 &end : {bone->restHead(), bone->restTail()})
            QVERIFY2(end.y > -7 && end.y < 200 && std::abs(end.x) < 75 && std::abs(end.z) < 51,
                     qPrintable(bone->name()));
        constraints += bone->liveTagCount();
    }
    QCOMPARE(constraints, 10);
    const KMBone *ik = scene.rig->bone(QStringLiteral("leg IK_R"));
    const ConstraintData data = static_cast<KMTagConstraint *>(ik->tag(0))->data();
    QVERIFY(data == (ConstraintData{scene.rig->bone(QStringLiteral("ankle_R")), 120.0f, 40, KMTagConstraint::IK, 2}));
    QCOMPARE(ik->tag(0)->name(), ik->name());
}

void tst_BoneCommands::randomWalk()
{
    for (quint32 seed = 1; seed <= 12; ++seed) {
        Figure scene;
        QRandomGenerator random(seed);
        const auto below = [&random](int limit) { return limit > 0 ? int(random.bounded(limit)) : 0; };
        QStringList texts{scene.dump.text()};
        QUndoStack &stack = scene.session.stack();
        const auto anyBone = [&]() -> KMBone * {
            const QList<KMBone *> &bones = (below(4) ? scene.rig : scene.other)->bones();
            return bones.isEmpty() ? nullptr : bones[below(bones.size())];
        };
        const auto makeEdit = [&]() -> KMUndoCommand * {
            KMBone *bone = anyBone();
            if (!bone || below(6) == 0)
                return new addBoneCommand(scene.rig, new KMBone,
                                          bone && bone->container() == scene.rig ? bone : nullptr);
            KMBone *target = below(3) ? anyBone() : nullptr;
            KMBoneContainer *container = bone->container();
            switch (below(13)) {
            case 0:
                return new deleteBoneCommand(bone);
            case 1:
                return canMoveBone(bone, target) ? new setCtrlParentCommand(bone, target) : nullptr;
            case 2:
                return canMoveBone(bone, target) ? new moveCtrlNodeCommand(bone, target, 0) : nullptr;
            case 3:
                return new moveBoneToOtherContainerCommand(bone, container == scene.rig ? scene.other : scene.rig);
            case 4:
                return new selectBoneCommand(bone, below(4));
            case 5:
                return new selectCtrlChildCommand(bone, below(2));
            case 6:
                return new showCtrlChildCommand(bone, below(2));
            case 7:
                return new editBoneGeometryCommand(bone, restBone({float(below(9)), 0, 0}, {0, float(below(9)), 1}));
            case 8:
                return new editBoneViewTypeCommand(bone, below(3));
            case 9:
                bone->pushRenameCommand(QString(QLatin1Char(char('a' + below(6)))));
                return nullptr;
            case 10:
                return new addTagBoneContainerCommand(bone, new TestTag);
            case 11:
                return new removeBoneKeyCommand(container, bone->name(), quint32(below(3)));
            default:
                return new addBoneKeyCommand(container, keyAt(bone->name().toLatin1().constData(), quint32(below(3))));
            }
        };
        for (int step = 0; step < 150; ++step) {
            if (below(5) == 0) {
                const int index = below(stack.count() + 1);
                stack.setIndex(index);
                QVERIFY2(scene.dump.text() == texts[index], qPrintable(QStringLiteral("%1 %2").arg(seed).arg(step)));
                continue;
            }
            texts.erase(texts.begin() + stack.index() + 1, texts.end());
            {
                const KMUndoMacro macro(QStringLiteral("edits"));
                for (int i = below(3); i >= 0; --i) {
                    if (KMUndoCommand *command = makeEdit())
                        gSolution->push(command);
                }
            }
            texts << scene.dump.text();
            QVERIFY(!texts.last().contains(QStringLiteral("isn't what")));
        }
        while (stack.canUndo()) {
            stack.undo();
            QCOMPARE(scene.dump.text(), texts[stack.index()]);
        }
    }
}

KM_TEST(tst_BoneCommands);
#include "tst_BoneCommands.moc"
