#include "core/KMBasePositions.h"
#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMJointMove.h"
#include "rig/KMMorphDeltas.h"
#include "rig/KMRigCarry.h"
#include "rig/KMTagMorph.h"
#include "rig/KMTagRigidBody.h"
#include "support/MeshFixtures.h"
#include "support/RigDump.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

Q_DECLARE_METATYPE(KMTransform)

/// A group of a rig and a mesh with morphs, and what its transform does to them.
class tst_KMRigCarry : public QObject
{
    Q_OBJECT
private slots:
    void follows_data();
    void follows();
};

namespace {

constexpr float share = 2e-4f;

bool isClose(const Vector3 &a, const Vector3 &b)
{
    return (a - b).length() < share * (1.0f + a.length());
}

KMBone *add(KMBoneContainer *rig, const QString &name, KMBone *parent, const Vector3 &head, const Vector3 &tail)
{
    auto *bone = new KMBone;
    bone->setName(name);
    bone->setMovable(true);
    bone->setRest(restBone(head, tail));
    gSolution->push(new addBoneCommand(rig, bone, parent));
    KMBoneKey key;
    key.name = name;
    key.position = {1.0f, -2.0f, 0.5f};
    key.rotation = Quaternion::fromEuler(0.4f, -0.7f, 0.9f);
    rig->animation()->setKey(key);
    return bone;
}

QVector<Vector3> positionsOf(const KMMeshNode &mesh)
{
    QVector<Vector3> positions;
    for (int i = 0; i < mesh.vertexCount(); ++i)
        positions << mesh.position(i);
    return positions;
}

QVector<Vector3> baseOf(const KMMeshNode &mesh)
{
    const KMBasePositions base(&mesh);
    return positionsOf(mesh);
}

QVector<Matrix4> skinsOf(const KMBoneContainer &rig)
{
    QVector<Matrix4> skins;
    for (const KMBone *bone : rig.bones())
        skins << bone->skinMatrix();
    return skins;
}

} // namespace

void tst_KMRigCarry::follows_data()
{
    QTest::addColumn<KMTransform>("after");
    const Quaternion turn = Quaternion::fromEuler(0.3f, 1.1f, -0.8f);
    QTest::newRow("move") << KMTransform{{1, 1, 1}, {}, {5, -30, 12}};
    QTest::newRow("turn") << KMTransform{{1, 1, 1}, turn, {}};
    QTest::newRow("scale") << KMTransform{{2, 2, 2}, {}, {3, 0, 0}};
    QTest::newRow("mirror") << KMTransform{{1, 1, -1}, turn, {0, 8, 0}};
    QTest::newRow("all") << KMTransform{{-0.5f, 0.5f, 0.5f}, turn, {1, 2, 3}};
}

/// Whatever is done to the group: the figure is that of before seen through the step, at rest, posed and morphed.
void tst_KMRigCarry::follows()
{
    QFETCH(KMTransform, after);
    const KMHeadlessSession session;
    auto *group = new KMNullNode;
    auto *rig = new KMBoneContainer;
    KMMeshNode *mesh = MeshFixtures::cube();
    for (KMContainerNode *node : {static_cast<KMContainerNode *>(group), static_cast<KMContainerNode *>(rig),
                                  static_cast<KMContainerNode *>(mesh)})
        gProject->addNode(node);
    for (KMContainerNode *node : {static_cast<KMContainerNode *>(rig), static_cast<KMContainerNode *>(mesh)}) {
        gProject->tree()->takeRow(node->item());
        gProject->tree()->insertRow(group->item(), -1, node->item());
    }
    KMMeshNode *below = MeshFixtures::cube(); // the rig, which is no frame for it
    gProject->addNode(below);
    gProject->tree()->takeRow(below->item());
    gProject->tree()->insertRow(rig->item(), -1, below->item());
    KMBone *arm = add(rig, QStringLiteral("arm"), nullptr, {4, 40, 1}, {30, 45, 3});
    KMBone *hand = add(rig, QStringLiteral("hand"), arm, {30, 45, 3}, {38, 60, -9});
    auto *body = new KMTagRigidBody;
    RigidBodyData data;
    data.pose.offset = {1, 2, -5};
    data.width = 4.0f;
    body->setParameters(data);
    hand->addTag(body);
    auto *tag = new KMTagMorph;
    for (const float value : {0.0f, 1.0f}) {
        auto *morph = new KMMorph;
        MorphDeltas deltas;
        appendDelta(deltas, 2, {0.3f, 1.7f + value, -0.4f});
        morph->setDeltas(deltas);
        morph->setValue(value);
        tag->addMorph(morph);
    }
    mesh->addTag(tag);
    tag->layAnew();
    rig->animation()->applyFrame(0);
    RigDump dump;
    const QString before = dump.text();
    const QVector<Vector3> shown = positionsOf(*mesh), base = baseOf(*mesh);
    const QVector<Matrix4> skins = skinsOf(*rig);
    const Vector3 tails[] = {arm->restTail(), hand->restTail()};
    const Vector3 bodyPlace = body->worldMatrix().translation();
    const KMSymmetryPlane plane = rig->mirrorPlane();
    const Matrix4 step = KMObjectTransform::worldStep(group, group->transform(), after);
    const float factor = (step.transformDirection({1, 0, 0})).length();

    const KMRigCarry drag(rig);
    drag.show(step);
    const QVector<Matrix4> dragged = skinsOf(*rig);
    drag.restore();
    QCOMPARE(dump.text(), before);
    {
        const KMUndoMacro macro(QStringLiteral("Move"));
        KMObjectTransform::push(group, after);
    }
    rig->refreshAfterEdit();

    const QVector<Vector3> morphed = positionsOf(*mesh), rest = baseOf(*mesh);
    for (int i = 0; i < shown.size(); ++i) {
        QVERIFY(isClose(morphed[i], step * shown[i]));
        QVERIFY(isClose(rest[i], step * base[i]));
    }
    const QList<KMMorph *> morphs = tag->liveMorphs();
    QVERIFY(isClose(morphs[0]->deltas().first().offset(), step.transformDirection({0.3f, 1.7f, -0.4f})));
    QVERIFY(isClose(arm->restTail(), step * tails[0]) && isClose(hand->restTail(), step * tails[1]));
    QVERIFY(KMJointMove::isAttached(*hand));
    QVERIFY(isClose(body->worldMatrix().translation(), step * bodyPlace));
    QVERIFY(qAbs(body->parameters().width - 4.0f * factor) < share);
    const QVector<Matrix4> now = skinsOf(*rig);
    const Vector3 point(20, 50, -3);
    for (int i = 0; i < now.size(); ++i) {
        QVERIFY(isClose(now[i] * (step * point), step * (skins[i] * point)));
        QVERIFY(isClose(now[i] * point, dragged[i] * point));
    }
    QVERIFY(isClose(rig->mirrorPlane().reflected(step * point), step * plane.reflected(point)));
    QVERIFY(isClose(below->worldMatrix() * point, mesh->worldMatrix() * point));

    gSolution->undoStack()->undo();
    QCOMPARE(dump.text(), before);
    QCOMPARE(positionsOf(*mesh), shown);
    QCOMPARE(baseOf(*mesh), base);
}

KM_TEST(tst_KMRigCarry);
#include "tst_KMRigCarry.moc"
