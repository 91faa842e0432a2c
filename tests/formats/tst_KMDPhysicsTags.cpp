#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMDReader.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMPhysicsMaking.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagFloatValue.h"
#include "rig/KMTagGroup.h"
#include "rig/KMTagSelection.h"
#include "rig/KMTagText.h"
#include "support/DocumentText.h"
#include "support/RandomNumbers.h"
#include "support/RigScene.h"
#include "support/TestRegistry.h"

#include <QDataStream>
#include <QTest>

#include <cmath>

using namespace RandomNumbers;

namespace {

PoseTransform pose(Random &random)
{
    // A quarter turn about y is where two of the three angles are one.
    const float y = random() % 5 ? number(random) : 1.5707964f;
    return {point(random), kvm::Quaternion::fromEuler(number(random), y, number(random)), point(random)};
}

RigidBodyData body(Random &random)
{
    return {int(random() % 3),  int(random() % 3), number(random),    number(random),
            number(random),     number(random),    number(random),    number(random),
            number(random),     number(random),    random() % 2 == 0, quint32(random() % 65536),
            int(random() % 16), pose(random)};
}

/// A rig of some bones with bodies, joints between any of them, and groups that list bones.
void fill(RigScene &scene, Random &random)
{
    QList<KMBone *> bones;
    for (int i = 0; i < 8; ++i)
        bones << scene.addBone(QStringLiteral("b%1").arg(i), bones.value(i - 1), point(random), point(random));
    KMPhysicsMaking::pushBodies(bones.mid(0, 6), 0, true);
    const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(scene.rig);
    const auto any = [&] { return bodies.value(int(random() % uint(bodies.size() + 1))); };
    for (KMTagRigidBody *tag : bodies)
        tag->setParameters(body(random));
    for (KMTagJoint *joint : KMRigTags::joints(scene.rig)) {
        JointData data{any(), any(), pose(random), {}, {}, point(random), point(random)};
        for (float &limit : data.linearLimit)
            limit = number(random);
        for (float &limit : data.angularLimit)
            limit = number(random);
        joint->setParameters(data);
    }
    for (int i = 0; i < 3; ++i) {
        auto *group = new KMDisplayNode;
        group->setName(QStringLiteral("枠%1").arg(i));
        KMDisplayNode::Items items;
        for (int left = i; left > 0; --left)
            items << DisplayItem::of(bones[int(random() % 8)]);
        group->setItems(items);
        gProject->addToScene(group);
    }
    scene.forget();
}

KMBoneContainer *onlyRig()
{
    return static_cast<KMBoneContainer *>(gProject->ctrlsInTree().at(0));
}

bool isSame(const PoseTransform &a, const PoseTransform &b)
{
    return a.scale == b.scale && a.offset == b.offset && std::abs(std::abs(dot(a.rotation, b.rotation)) - 1.0f) < 1e-5f;
}

bool isSame(RigidBodyData a, const RigidBodyData &b)
{
    const bool stands = isSame(a.pose, b.pose);
    a.pose = b.pose;
    return stands && a == b;
}

QStringList groupsAndItems()
{
    QStringList text;
    for (const KMDisplayNode *group : moveDisplayNodeCommand::liveGroups()) {
        text << group->name();
        for (const DisplayItem &item : group->liveItems())
            text << item.node->name() + QString::number(item.type);
    }
    return text;
}

} // namespace

/// What the native file keeps of physics data, display groups and small tags.
class tst_KMDPhysicsTags : public QObject
{
    Q_OBJECT
private slots:
    void roundTrip();
    void orderOfABody();
    void deletedOnesAreLeftOut();
    void importScale();
    void smallTags();
    void mutations();
};

void tst_KMDPhysicsTags::roundTrip()
{
    for (uint seed = 1; seed <= 20; ++seed) {
        RigScene scene;
        Random random(seed);
        fill(scene, random);
        QVector<RigidBodyData> bodies;
        for (const KMTagRigidBody *tag : KMRigTags::bodies(scene.rig))
            bodies << tag->parameters();
        QVector<JointData> joints;
        QVector<QPair<int, int>> sides;
        for (const KMTagJoint *tag : KMRigTags::joints(scene.rig)) {
            joints << tag->parameters();
            sides.append({KMRigTags::bodies(scene.rig).indexOf(tag->bodyA()),
                          KMRigTags::bodies(scene.rig).indexOf(tag->bodyB())});
        }
        const QStringList groups = groupsAndItems();
        const QByteArray bytes = savedDocument();

        gSolution->newDocument();
        KMDReader reader;
        QVERIFY2(reader.readBytes(bytes), qPrintable(reader.error()));
        QCOMPARE(reader.warnings(), QStringList());
        const QList<KMTagRigidBody *> tags = KMRigTags::bodies(onlyRig());
        QCOMPARE(tags.size(), bodies.size());
        for (int i = 0; i < tags.size(); ++i)
            QVERIFY(isSame(tags[i]->parameters(), bodies[i]));
        const QList<KMTagJoint *> read = KMRigTags::joints(onlyRig());
        QCOMPARE(read.size(), joints.size());
        for (int i = 0; i < read.size(); ++i) {
            const JointData &data = read[i]->parameters();
            QCOMPARE(tags.indexOf(data.bodyA), sides[i].first);
            QCOMPARE(tags.indexOf(data.bodyB), sides[i].second);
            QVERIFY(isSame(data.pose, joints[i].pose));
            QVERIFY(data.linearLimit == joints[i].linearLimit && data.angularLimit == joints[i].angularLimit);
            QVERIFY(data.linearSpring == joints[i].linearSpring && data.angularSpring == joints[i].angularSpring);
        }
        QCOMPARE(groupsAndItems(), groups);
        QCOMPARE(savedDocument(), bytes);
    }
}

void tst_KMDPhysicsTags::orderOfABody()
{
    RigScene scene;
    KMPhysicsMaking::pushBodies({scene.addBone(QStringLiteral("a"), nullptr, {}, {0, 4, 0})}, 0, false);
    KMRigTags::bodies(scene.rig).first()->setParameters(
        {KMTagRigidBody::Capsule, KMTagRigidBody::Physics, 1, 2, 3, 4, 5, 6, 7, 8, true, 0xfedcu, 11, {}});
    QByteArray body;
    QDataStream out(&body, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    out << qint32(11) << qint32(0xfedc);
    for (int number = 1; number <= 8; ++number)
        out << float(number);
    out << quint8(1) << quint32(KMTagRigidBody::Capsule) << quint32(KMTagRigidBody::Physics) << 1.0f;
    QCOMPARE(savedDocument().count(body), 1);
}

void tst_KMDPhysicsTags::deletedOnesAreLeftOut()
{
    RigScene scene;
    KMBone *a = scene.addBone(QStringLiteral("a"), nullptr, {}, {0, 1, 0});
    KMBone *b = scene.addBone(QStringLiteral("b"), a, {0, 1, 0}, {0, 2, 0});
    KMPhysicsMaking::pushBodies({a, b}, 0, true);
    const QList<KMDisplayNode::Items> lists{{DisplayItem::of(a)}, {DisplayItem::of(a), DisplayItem::of(b)}, {}};
    for (const KMDisplayNode::Items &items : lists) {
        auto *group = new KMDisplayNode;
        group->setItems(items);
        gProject->addToScene(group);
    }
    gSolution->push(new deleteBoneCommand(a));
    const QByteArray bytes = savedDocument();
    gSolution->newDocument();
    QVERIFY(KMDReader().readBytes(bytes));
    // The group that had nothing else is gone, the empty one isn't.
    QCOMPARE(groupsAndItems(), (QStringList{QStringLiteral("Disp"), QStringLiteral("b0"), QStringLiteral("Disp")}));
    const KMTagJoint *joint = KMRigTags::joints(onlyRig()).value(0);
    QVERIFY(joint && !joint->bodyA());
    QCOMPARE(joint->bodyB(), KMRigTags::bodies(onlyRig()).value(0));
}

void tst_KMDPhysicsTags::importScale()
{
    RigScene scene;
    KMPhysicsMaking::pushBodies({scene.addBone(QStringLiteral("a"), nullptr, {}, {0, 4, 0})}, KMTagRigidBody::Box,
                                true);
    const QByteArray bytes = savedDocument();
    gSolution->newDocument();
    KMDReader::Options options;
    options.importScale = 0.5f;
    QVERIFY(KMDReader(options).readBytes(bytes));
    const RigidBodyData &data = KMRigTags::bodies(onlyRig()).first()->parameters();
    QCOMPARE(data.height, 2.0f);
    QCOMPARE(data.width, 1.0f);
    QCOMPARE(data.pose.offset.z, -1.0f);
}

void tst_KMDPhysicsTags::smallTags()
{
    RigScene scene;
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 5; ++i)
        mesh->addVertexRaw({float(i), float(i * i), 0.0f});
    const int corners[] = {1, 2, 3, 4};
    mesh->addFaceRaw(4, corners);
    gProject->addNode(mesh);
    KMMeshEdit::deleteVertex(*mesh, 0); // the file has no gaps
    mesh->refreshMesh(KMMeshDirty::All);
    auto *selection = new KMTagSelection;
    mesh->addTag(selection);
    selection->setParameters({{0, 2, 4}, {0}, {{1, 2}, {3, 4}}, {{0, 3}}});
    auto *text = new KMTagText;
    text->setParameters(QStringLiteral("文字\nnote"));
    mesh->addTag(text);
    auto *group = new KMTagGroup;
    group->setMode(KMTagGroup::ShowSelected);
    mesh->addTag(group);
    auto *value = new KMTagFloatValue;
    value->setParameters({2.5f});
    mesh->addTag(value);
    QStringList warnings;
    const QByteArray bytes = savedDocument(&warnings);
    QCOMPARE(warnings.size(), 1); // the number has no place

    gSolution->newDocument();
    KMDReader reader;
    QVERIFY2(reader.readBytes(bytes), qPrintable(reader.error()));
    QCOMPARE(reader.warnings(), QStringList());
    const KMMeshNode *read = gProject->meshesInTree().at(0);
    QCOMPARE(read->tagCount(), 4);
    const KMStoredSelection expected{{1, 3}, {0}, {{0, 1}, {2, 3}}, {{0, 3}}};
    QVERIFY(nodeAs<KMTagSelection>(read->tag(0))->parameters() == expected);
    QCOMPARE(nodeAs<KMTagText>(read->tag(1))->parameters(), QStringLiteral("文字\nnote"));
    QCOMPARE(nodeAs<KMTagGroup>(read->tag(2))->mode(), int(KMTagGroup::ShowSelected));
    QCOMPARE(read->tag(3)->name(), QStringLiteral("FloatValue0"));
}

/// Whatever a damaged file tells is refused, or is a document that a file can hold.
void tst_KMDPhysicsTags::mutations()
{
    const int rounds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 50000 : 400;
    RigScene scene;
    Random random(3);
    fill(scene, random);
    const QByteArray whole = savedDocument();
    const int start = whole.size() * 2 / 3; // bones, their tags and the groups
    int accepted = 0;
    for (int round = 0; round < rounds; ++round) {
        gSolution->newDocument();
        QByteArray bytes = whole;
        damage(bytes, random, 3, start);
        if (!KMDReader().readBytes(bytes))
            continue;
        ++accepted;
        const QByteArray again = savedDocument();
        gSolution->newDocument();
        QVERIFY2(KMDReader().readBytes(again), qPrintable(QString::number(round)));
        QCOMPARE(savedDocument().size(), again.size());
    }
    QVERIFY(accepted > 0 && accepted < rounds);
}

KM_TEST(tst_KMDPhysicsTags);

#include "tst_KMDPhysicsTags.moc"
