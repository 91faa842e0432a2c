#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMRestBone.h"
#include "rig/KMTagBoneWeight.h"
#include "support/AllocationCount.h"
#include "support/MeshFixtures.h"
#include "support/SkinReference.h"
#include "support/TestRegistry.h"
#include "support/WeightScene.h"

#include <QTest>
#include <QUndoStack>

#include <memory>

using kvm::Vector3;

namespace {

/// A strip from x = 1 to 5 with an arm of two bones in it, mirrored on the other side: arm_L and elbow_L on the side
/// of the mesh.
class ArmScene : public WeightScene
{
public:
    ArmScene()
        : WeightScene(MeshFixtures::grid(4, 2))
    {
        for (KMVertex *vertex : mesh->vertices())
            vertex->pos.x += 1.0f;
        for (const float side : {1.0f, -1.0f}) {
            bones << addBone(QStringLiteral("arm"), nullptr, {side, 0, 1}, {side * 3, 0, 1});
            bones << addBone(QStringLiteral("elbow"), bones.last(), {side * 3, 0, 1}, {side * 5, 0, 1});
        }
        for (int v = 0; v < mesh->vertexCount(); ++v) {
            const float share = qBound(0.0f, (mesh->position(v).x - 2.0f) / 2.0f, 1.0f);
            tag->addEntry({v, 1.0f - share, bones[0]});
            if (share > 0.0f)
                tag->addEntry({v, share, bones[1]});
        }
        forget();
    }

    void turn(KMBone *bone, const Vector3 &axis, float degrees)
    {
        PoseTransform pose;
        pose.rotation = kvm::Quaternion::fromAxisAngle(axis, degrees * float(M_PI) / 180.0f);
        bone->setKeyPose(pose);
        rig->animation()->reevaluate();
        gSolution->update(0); // as the session does after whatever moved the bone
    }

    QList<KMBone *> bones; // arm, elbow, and the same of the other side
};

/// How far the result is from its input taken where the input's own weights say.
double away(const KMModifierNode &deform)
{
    const KMTagBoneWeight *weights = WeightScene::weightsOf(*deform.input());
    const std::unique_ptr<SkinReference> words(weights ? new SkinReference(*weights) : nullptr);
    double worst = 0;
    for (int v = 0; v < deform.input()->vertexCount(); ++v) {
        if (!deform.input()->vertex(v))
            continue;
        const auto expected = words ? words->at(v) : reference::vec(deform.input()->position(v));
        const Vector3 found = deform.modMesh()->position(deform.vertexMapAt(v));
        worst = std::max(worst, reference::distance(expected, reference::vec(found)));
    }
    return worst;
}

double moved(const KMModifierNode &deform)
{
    double farthest = 0;
    for (int v = 0; v < deform.input()->vertexCount(); ++v) {
        if (deform.input()->vertex(v))
            farthest = std::max<double>(
                farthest,
                double((deform.input()->position(v) - deform.modMesh()->position(deform.vertexMapAt(v))).length()));
    }
    return farthest;
}

} // namespace

class tst_BoneDeform : public QObject
{
    Q_OBJECT
private slots:
    void poseReachesTheResult();
    void editsReachTheResult();
    void withoutBones();
    void weightsThroughTheChain_data();
    void weightsThroughTheChain();
    void mirroredWeights_data();
    void mirroredWeights();
    void coincidentBones();
    void mirrorFollowsBones();
    void freezing();
    void allocatesNothing();
};

void tst_BoneDeform::poseReachesTheResult()
{
    ArmScene scene;
    auto *deform = scene.add(new KMModBoneDeformNode);
    QVERIFY(moved(*deform) < 1e-6);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    QVERIFY(moved(*deform) > 1 && away(*deform) < 1e-5);
    scene.turn(scene.bones[0], {0, 0, 1}, 40);
    QVERIFY(away(*deform) < 1e-5);
    QVERIFY(!WeightScene::weightsOf(*deform->modMesh()));

    scene.bones[1]->setVisible(false); // visibility has no say
    scene.turn(scene.bones[0], {0, 0, 1}, 30);
    QVERIFY(away(*deform) < 1e-5 && moved(*deform) > 1);

    KMMeshEdit::deleteVertex(*scene.mesh, 4);
    QCOMPARE(deform->vertexMapAt(4), -1);
    QVERIFY(!scene.mesh->vertex(4) && away(*deform) < 1e-5 && moved(*deform) > 1);
    scene.session.stack().undo();
    QVERIFY(away(*deform) < 1e-5);
    gSolution->push(new setVisibleCommand(deform, false));
    gProject->checkModifiers();
    QVERIFY(scene.mesh->modifiers().isEmpty()); // the mesh itself never moved
    QCOMPARE(scene.mesh->position(0).y, 0.0f);
}

/// Each leaves the result as one made anew has it.
void tst_BoneDeform::editsReachTheResult()
{
    ArmScene scene;
    auto *deform = scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    const int start = scene.session.stack().index();
    gSolution->push(new setSdefFlagCommand(scene.mesh, scene.tag, {3, 8, 13}));
    gSolution->push(
        new editBoneWeightCommand(scene.mesh, scene.tag, {{9, 0.2f, scene.bones[1]}, {9, 0.8f, scene.bones[0]}}));
    gSolution->push(new addBoneWeightCommand(scene.mesh, scene.tag, {{0, 0.5f, scene.bones[1]}}));
    gSolution->push(new deleteBoneWeightCommand(scene.mesh, scene.tag, scene.tag->entriesOf(8)));
    gSolution->push(new editTagBoneWeightCommand(scene.mesh, scene.tag, {0, true, 50.0f}));
    KMMeshEdit::moveVertex(*scene.mesh, 3, {3, 1, 0.5f});
    gSolution->push(new setSdefFlagCommand(scene.mesh, scene.tag, {2, 3, 7, 12}));
    gSolution->push(new editBoneViewTypeCommand(scene.bones[0], 1));
    gSolution->push(new editBoneGeometryCommand(scene.bones[1], restBone({3, 0.5f, 1}, {5, 1, 1})));
    gSolution->push(new moveCtrlNodeCommand(scene.bones[1], nullptr));
    gSolution->push(new removeSdefFlagCommand(scene.mesh, scene.tag, {3}));
    gSolution->push(new addBoneWeightCommand(scene.mesh, scene.tag, {{2, 0.2f, scene.bones[2]}}));
    gSolution->push(new deleteBoneCommand(scene.bones[2]));
    gSolution->push(new deleteBoneCommand(scene.bones[1]));
    gSolution->push(new deleteTagCommand(scene.mesh, scene.tag));
    QUndoStack &stack = scene.session.stack();
    for (int round = 0; round < 2; ++round) {
        for (int i = stack.index(); i >= start; --i) {
            stack.setIndex(i);
            QVERIFY2(away(*deform) < 1e-5, qPrintable(stack.text(i)));
        }
        for (int i = start; i <= stack.count(); ++i) {
            stack.setIndex(i);
            QVERIFY2(away(*deform) < 1e-5, qPrintable(stack.text(i)));
        }
    }
    QVERIFY(moved(*deform) < 1e-6); // no weights any more
}

void tst_BoneDeform::withoutBones()
{
    ArmScene scene;
    auto *deform = scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    gProject->deleteNode(scene.rig);
    QVERIFY(moved(*deform) < 1e-6);
    scene.session.stack().undo();
    QVERIFY(moved(*deform) > 1 && away(*deform) < 1e-5);
}

using Make = KMModifierNode *(*)();
Q_DECLARE_METATYPE(Make)

void tst_BoneDeform::weightsThroughTheChain_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("copies"); // of each vertex in the result
    const auto row = [](const char *name, int copies, Make make) { QTest::newRow(name) << make << copies; };
    row("subdivision", 0, []() -> KMModifierNode * { return new KMModSdvNode; });
    row("symmetry", 2, []() -> KMModifierNode * { return new KMModSymNode; });
    row("lattice", 1, []() -> KMModifierNode * { return new KMModFFDNode; });
    row("solid", 2, []() -> KMModifierNode * { return new KMModSolidNode; });
    row("cloner", 4, []() -> KMModifierNode * { return new KMModClonerNode; });
    row("pipe", 0, []() -> KMModifierNode * { return new KMModPipeNode; });
}

void tst_BoneDeform::weightsThroughTheChain()
{
    QFETCH(Make, make);
    QFETCH(int, copies);
    ArmScene scene;
    KMModifierNode *stage = scene.add(make());
    auto *deform = scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    const KMMeshNode &between = *stage->modMesh();
    const auto check = [&](const char *when) {
        const KMTagBoneWeight *carried = WeightScene::weightsOf(between);
        QVERIFY2(carried && carried != scene.tag, when);
        QCOMPARE(carried->name(), scene.tag->name());
        for (int v = 0; v < between.vertexCount(); ++v) {
            double sum = 0;
            for (const BoneWeightEntry &entry : carried->entriesOf(v))
                sum += double(entry.weight);
            QVERIFY2(qAbs(sum - 1) < 1e-5, when);
        }
        if (copies > 0)
            QCOMPARE(carried->entries().size(), copies * scene.tag->entries().size());
        for (int v = 0; v < scene.mesh->vertexCount(); ++v) {
            if (stage->type() != KMNodeType::ModSdv)
                QCOMPARE(carried->entriesOf(stage->vertexMapAt(v)).size(), scene.tag->entriesOf(v).size());
        }
        QVERIFY2(away(*deform) < 1e-4 && moved(*deform) > 1, when);
    };
    check("at first");
    const int first = scene.session.stack().index();
    gSolution->push(
        new editBoneWeightCommand(scene.mesh, scene.tag, {{7, 0.9f, scene.bones[0]}, {7, 0.1f, scene.bones[1]}}));
    check("after an edit");
    KMMeshEdit::moveVertex(*scene.mesh, 7, {3, 1, 1});
    check("after a move");
    scene.session.stack().setIndex(first);
    check("undone");
    gSolution->push(new deleteTagCommand(scene.mesh, scene.tag));
    QVERIFY(!WeightScene::weightsOf(between) && moved(*deform) < 1e-6);
    scene.session.stack().undo();
    check("with the tag again");
}

void tst_BoneDeform::mirroredWeights_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<Vector3>("place");
    QTest::addColumn<float>("degrees"); // about y
    QTest::addColumn<int>("partner");   // so many bones farther on
    QTest::newRow("left and right") << int(KMModSymNode::PlusX) << Vector3() << 0.0f << 2;
    QTest::newRow("front and back") << int(KMModSymNode::PlusZ) << Vector3() << 0.0f << 4;
    QTest::newRow("bones on the plane") << int(KMModSymNode::PlusY) << Vector3() << 0.0f << 0;
    QTest::newRow("turned") << int(KMModSymNode::PlusX) << Vector3() << 90.0f << 4;
    QTest::newRow("moved away") << int(KMModSymNode::PlusX) << Vector3(9, 0, 0) << 0.0f << 0;
}

/// Of two bones in one place each has its own image.
void tst_BoneDeform::coincidentBones()
{
    ArmScene scene;
    gSettings->symmetryMargin = 0.5f;
    for (int i = 0; i < 4; ++i) {
        const KMBone *bone = scene.bones.at(i);
        scene.bones << scene.addBone(QStringLiteral("twin"), nullptr, bone->restHead(), bone->restTail());
        if (i < 2)
            scene.tag->addEntry({7, 0.2f, scene.bones.last()});
    }
    auto *symmetry = new KMModSymNode;
    KMModSymNode::Parameters plane;
    plane.axis = KMModSymNode::PlusX;
    symmetry->setParameters(plane);
    scene.add(symmetry);
    const QVector<BoneWeightEntry> here = scene.tag->entriesOf(7);
    const QVector<BoneWeightEntry> there =
        WeightScene::weightsOf(*symmetry->modMesh())->entriesOf(7 + scene.mesh->vertexCount());
    QCOMPARE(there.size(), here.size());
    for (int i = 0; i < here.size(); ++i)
        QCOMPARE(there.at(i).bone, scene.bones.at(scene.bones.indexOf(here.at(i).bone) + 2));
}

void tst_BoneDeform::mirroredWeights()
{
    QFETCH(int, axis);
    QFETCH(Vector3, place);
    QFETCH(float, degrees);
    QFETCH(int, partner);
    ArmScene scene;
    gSettings->symmetryMargin = 2.5f; // more than the bones are long
    scene.bones << scene.addBone(QStringLiteral("arm"), nullptr, {1, 0, -1}, {3, 0, -1});
    scene.bones << scene.addBone(QStringLiteral("elbow"), scene.bones.last(), {3, 0, -1}, {5, 0, -1});
    auto *symmetry = new KMModSymNode;
    KMModSymNode::Parameters plane;
    plane.axis = axis;
    symmetry->setParameters(plane);
    symmetry->setTransform(
        {{1, 1, 1}, kvm::Quaternion::fromAxisAngle({0, 1, 0}, degrees * float(M_PI) / 180.0f), place});
    scene.add(symmetry);
    const int half = scene.mesh->vertexCount();
    const KMTagBoneWeight *carried = WeightScene::weightsOf(*symmetry->modMesh());
    for (int v = 0; v < half; ++v) {
        QCOMPARE(carried->entriesOf(v), scene.tag->entriesOf(v));
        const QVector<BoneWeightEntry> here = carried->entriesOf(v), there = carried->entriesOf(v + half);
        QCOMPARE(there.size(), here.size());
        for (int i = 0; i < here.size(); ++i) {
            QCOMPARE(there.at(i).weight, here.at(i).weight);
            QCOMPARE(there.at(i).bone, scene.bones.at(scene.bones.indexOf(here.at(i).bone) + partner));
        }
    }
}

/// At each step of the history the images hang on the bones that a chain made anew finds for them.
void tst_BoneDeform::mirrorFollowsBones()
{
    ArmScene scene;
    gSettings->symmetryMargin = 0.5f;
    auto *symmetry = new KMModSymNode;
    KMModSymNode::Parameters plane;
    plane.axis = KMModSymNode::PlusX;
    symmetry->setParameters(plane);
    scene.add(symmetry);
    auto *deform = scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[2], {0, 1, 0}, 70);
    QVERIFY(moved(*deform) > 1);
    QUndoStack &stack = scene.session.stack();
    const int start = stack.index();
    gSolution->push(new deleteBoneCommand(scene.bones[3]));
    gSolution->push(new editBoneGeometryCommand(scene.bones[2], restBone({-1, 0, 3}, {-3, 0, 3})));
    gSolution->push(new addBoneCommand(scene.rig, new KMBone, nullptr));
    auto *made = scene.rig->bones().last();
    gSolution->push(new editBoneGeometryCommand(made, restBone({-1, 0, 1}, {-3, 0, 1})));
    gSolution->push(new deleteBoneCommand(scene.bones[0]));
    const int image = scene.mesh->vertexCount(); // of the first vertex, which hangs on the arm
    const QVector<KMBone *> expected{scene.bones[2], scene.bones[2], scene.bones[0],
                                     scene.bones[0], made,           scene.bones[0]};
    const auto check = [&](int step) {
        stack.setIndex(start + step);
        KMChainCopy anew(*scene.mesh);
        anew.evaluate();
        const QVector<BoneWeightEntry> found = WeightScene::weightsOf(*symmetry->modMesh())->entries();
        QCOMPARE(found, WeightScene::weightsOf(*anew.stage(0)->modMesh())->entries());
        QCOMPARE(WeightScene::weightsOf(*symmetry->modMesh())->entriesOf(image).first().bone, expected.at(step));
        QVERIFY(away(*deform) < 1e-5);
    };
    for (const int step : {5, 4, 3, 2, 1, 0, 1, 2, 3, 4, 5, 0, 4})
        check(step);
    // A bone that moves and keeps its partner has nothing carried anew.
    const int carried = WeightScene::weightsOf(*symmetry->modMesh())->revision();
    gSolution->push(new editBoneGeometryCommand(made, restBone({-1, 0, 1.1f}, {-3, 0, 1})));
    QCOMPARE(WeightScene::weightsOf(*symmetry->modMesh())->revision(), carried);
}

/// The plain mesh has the weights of what it was made of, past a stage that moves by bones and through those behind it.
void tst_BoneDeform::freezing()
{
    ArmScene scene;
    for (int v = 0; v < 10; ++v) // those in between are flagged where all around them are
        scene.tag->setSdefFlag(v, true);
    scene.add(new KMModSdvNode);
    std::unique_ptr<KMMeshNode> frozen = KMFreezeModifiers::shapeOf(*scene.mesh);
    const KMTagBoneWeight *weights = WeightScene::weightsOf(*frozen);
    QVERIFY(weights && weights->mesh() == frozen.get() && frozen->liveTagCount() == 1);
    QCOMPARE(weights->entries().last().vertex, frozen->vertexCount() - 1);
    const QVector<BoneWeightEntry> entries = weights->entries();
    const QVector<int> flagged = weights->sdefVertices();
    QVERIFY(!flagged.isEmpty());
    scene.add(new KMModBoneDeformNode);
    scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    frozen = KMFreezeModifiers::shapeOf(*scene.mesh);
    QVERIFY(WeightScene::weightsOf(*frozen));
    QCOMPARE(WeightScene::weightsOf(*frozen)->entries(), entries);
    QCOMPARE(WeightScene::weightsOf(*frozen)->sdefVertices(), flagged);
    QCOMPARE(frozen->position(0), scene.mesh->modifiers().last().second->modMesh()->position(0));
    QVERIFY(!WeightScene::weightsOf(*scene.mesh->modifiers().last().second->modMesh()));

    auto *symmetry = new KMModSymNode;
    KMModSymNode::Parameters plane;
    plane.axis = KMModSymNode::PlusX;
    symmetry->setParameters(plane);
    scene.add(symmetry);
    frozen = KMFreezeModifiers::shapeOf(*scene.mesh);
    QVERIFY(frozen->vertexCount() > 0 && WeightScene::weightsOf(*frozen)->entries().size() > entries.size());
    for (int v = 0; v < frozen->vertexCount(); ++v)
        QVERIFY(!WeightScene::weightsOf(*frozen)->entriesOf(v).isEmpty());
}

void tst_BoneDeform::allocatesNothing()
{
    ArmScene scene;
    scene.tag->setSdefFlag(3, true);
    scene.tag->setSdefFlag(8, true);
    auto *deform = scene.add(new KMModBoneDeformNode);
    scene.turn(scene.bones[1], {0, 1, 0}, 70);
    const std::size_t before = allocationCount();
    QVERIFY(!deform->update());
    QCOMPARE(allocationCount(), before);
}

KM_TEST(tst_BoneDeform);

#include "tst_BoneDeform.moc"
