#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/PmxExporter.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSdvNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMResultCopy.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"
#include "support/ModifierStage.h"
#include "support/PmxScene.h"
#include "support/StrictReader.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QSet>
#include <QTest>

#include <cerrno>
#include <csignal>
#include <cstring>
#include <memory>

#include <sys/resource.h>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

bool isNear(const Vector3 &a, const Vector3 &b, float tolerance = 1e-5f)
{
    return (a - b).length() < tolerance;
}

/// As long as it lives, files don't get longer, as on a full disk.
class FileSizeLimit
{
    Q_DISABLE_COPY(FileSizeLimit)
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        ::getrlimit(RLIMIT_FSIZE, &m_before);
        const rlimit limit{bytes, m_before.rlim_max};
        ::signal(SIGXFSZ, SIG_IGN);
        ::setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit() { ::setrlimit(RLIMIT_FSIZE, &m_before); }

private:
    rlimit m_before{};
};

/// A stage that has one vertex more as soon as one of the input stands above a height.
class TestGrowth : public KMModifierNode
{
public:
    TestGrowth()
        : KMModifierNode(KMNodeType::ModSolid, QStringLiteral("growth"))
    {
    }
    TestGrowth *clone() const override { return new TestGrowth; }

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override
    {
        QVector<int> faces;
        KMResultCopy::copyMesh(input, result, m_vertexMap, faces);
        if (height(input) > 0.5f)
            result.addVertexRaw({});
    }
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override
    {
        KMResultCopy::copyPositions(input, result, m_vertexMap);
        return (height(input) > 0.5f) != (result.vertexCount() > input.vertexCount());
    }

private:
    static float height(const KMMeshNode &mesh)
    {
        float height = 0.0f;
        for (const KMVertex *vertex : mesh.vertices())
            height = std::max(height, vertex->pos.y);
        return height;
    }
};

} // namespace

class tst_PmxExporter : public QObject
{
    Q_OBJECT
private slots:
    void header();
    void verticesAndFaces();
    void weights_data();
    void weights();
    void bones();
    void constraints();
    void chains();
    void armAxes();
    void bodies();
    void joints();
    void mirroredPhysics();
    void materials();
    void morphsAcrossMeshes();
    void morphsOfTwoTags();
    void morphsThatGrow();
    void morphedMeshes();
    void posedSkin();
    void whatIsTaken();
    void displayFrames();
    void documentStays();
    void failures();
    void strictReader();
};

void tst_PmxExporter::header()
{
    PmxScene scene;
    scene.addMesh(MeshFixtures::grid(17, 17)); // 324 vertices
    gProject->setTextInfo(1, QStringLiteral("名前"));
    gProject->setTextInfo(2, QStringLiteral("a\nb"));
    gProject->setTextInfo(4, QStringLiteral("c\n"));
    const QByteArray bytes = scene.bytes();
    QVERIFY(bytes.startsWith(QByteArray::fromHex("504d5820"
                                                 "00000040"
                                                 "08"
                                                 "0000"
                                                 "020101010101")));
    const PmxRecords file(bytes);
    QCOMPARE(file.fault, QString());
    QCOMPARE(file.texts,
             QStringList({QStringLiteral("名前"), QString(), QStringLiteral("a\r\nb"), QStringLiteral("c\r\n")}));
    QCOMPARE(file.vertices.size(), 18 * 18);
}

void tst_PmxExporter::verticesAndFaces()
{
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(1, 1));
    mesh->vertex(1)->pos = {2, 3, 4};
    mesh->face(0)->uvs[1] = {0.25f, 0.75f};
    mesh->markDirty(KMMeshDirty::All);
    const KMFace quad = *mesh->face(0);
    scene.options.scale = 0.5f;
    for (const bool flipped : {false, true}) {
        scene.options.developmentFlip = flipped;
        const PmxRecords file = scene.exported();
        QCOMPARE(file.vertices.size(), 4);
        for (int v = 0; v < 4; ++v) {
            Vector3 place = mesh->position(v) * 0.5f, normal = mesh->face(0)->normals[quad.cornerOf(v)];
            if (flipped) {
                place.x = -place.x;
                normal.x = -normal.x;
            }
            QCOMPARE(file.vertices[v].position, place);
            QCOMPARE(file.vertices[v].normal, normal);
            QVERIFY(file.vertices[v].uv == mesh->face(0)->uvs[quad.cornerOf(v)]);
            QCOMPARE(file.vertices[v].edge, 1.0f);
        }
        const int *c = quad.indices;
        QCOMPARE(file.corners, flipped ? QVector<int>({c[0], c[1], c[2], c[0], c[2], c[3]})
                                       : QVector<int>({c[0], c[2], c[1], c[0], c[3], c[2]}));
    }
}

void tst_PmxExporter::weights_data()
{
    using Floats = QVector<float>;
    using Ints = QVector<int>;
    QTest::addColumn<Floats>("entries"); // for the bones of the rig in their order; below 0 for none
    QTest::addColumn<int>("deform");
    QTest::addColumn<Ints>("bones");
    QTest::addColumn<Floats>("written");
    QTest::newRow("none") << Floats{} << 0 << Ints{0} << Floats{};
    QTest::newRow("one, whatever it bears") << Floats{-1, -1, 0.5f} << 0 << Ints{2} << Floats{};
    QTest::newRow("two") << Floats{0.25f, -1, 0.75f} << 1 << Ints{0, 2} << Floats{0.25f};
    QTest::newRow("three") << Floats{0.25f, 0.5f, 0.25f} << 2 << Ints{0, 1, 2, 0} << Floats{0.25f, 0.5f, 0.25f, 0};
    QTest::newRow("five") << Floats{0.125f, 0.25f, 0.125f, 0.25f, 0.25f} << 2 << Ints{0, 1, 2, 3}
                          << Floats{0.125f, 0.25f, 0.125f, 0.5f};
    QTest::newRow("nothing of two bones") << Floats{0, 0.5f, 0} << 0 << Ints{1} << Floats{};
    QTest::newRow("nothing of all") << Floats{-1, 0, 0} << 0 << Ints{1} << Floats{};
    QTest::newRow("four that count") << Floats{0.5f, 0, 0.25f, 0.125f, 0.125f} << 2 << Ints{0, 2, 3, 4}
                                     << Floats{0.5f, 0.25f, 0.125f, 0.125f};
    // What four bones leave of 1 is written as it is, also where the user gave them more than that.
    QTest::newRow("more than 1") << Floats{0.5f, 0.5f, 0.5f, 0.5f} << 2 << Ints{0, 1, 2, 3}
                                 << Floats{0.5f, 0.5f, 0.5f, -0.5f};
}

void tst_PmxExporter::weights()
{
    QFETCH(QVector<float>, entries);
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(1, 1));
    KMTagBoneWeight *tag = PmxScene::weigh(mesh);
    for (int i = 0; i < entries.size(); ++i) {
        if (entries[i] >= 0.0f)
            tag->addEntry({2, entries[i], scene.rig->bones().at(i)});
    }
    KMBoneContainer other; // bones of another rig aren't in the file
    auto *stranger = new KMBone;
    other.attachBone(stranger, nullptr);
    other.rebuildOrder();
    tag->addEntry({2, 0.5f, stranger});
    const PmxRecords file = scene.exported();
    QTEST(file.vertices[2].deform, "deform");
    QTEST(file.vertices[2].bones, "bones");
    QTEST(file.vertices[2].weights, "written");
    tag->clearEntries();
}

void tst_PmxExporter::bones()
{
    PmxScene scene;
    scene.arm->setMovable(true);
    scene.hand->setVisible(false);
    const PmxRecords file = scene.exported();
    QCOMPARE(file.fault, QString());
    QCOMPARE(file.bones.size(), 5);
    const int flags[] = {0x081a, 0x081e, 0x081a, 0x0812, 0x081a};
    const int parents[] = {-1, 0, 1, 2, -1};
    for (int i = 0; i < 5; ++i) {
        const KMBone *bone = scene.rig->bones().at(i);
        const PmxRecords::Bone &written = file.bones[i];
        QCOMPARE(written.name, bone->name());
        QCOMPARE(written.flags, flags[i]);
        QCOMPARE(written.parent, parents[i]);
        QCOMPARE(written.layer, 0);
        QCOMPARE(written.head, bone->restHead() * 0.1f);
        QCOMPARE(written.tail, (bone->restTail() - bone->restHead()) * 0.1f);
        QCOMPARE(written.localX, bone->rotation().rotate({1, 0, 0}));
        QCOMPARE(written.localZ, bone->rotation().rotate({0, 0, 1}));
        QVERIFY(isNear(written.localZ, (bone->restHead() - bone->restTail()).normalized())); // bones point along -Z
    }
    scene.options.developmentFlip = true;
    const PmxRecords::Bone flipped = scene.exported().bones[2];
    QCOMPARE(flipped.head.x, -file.bones[2].head.x);
    QCOMPARE(flipped.localX.x, -file.bones[2].localX.x);
    QCOMPARE(flipped.localX.y, file.bones[2].localX.y);
}

void tst_PmxExporter::constraints()
{
    using Tag = KMTagConstraint;
    PmxScene scene;
    PmxScene::constrain(scene.arm, Tag::Rotate, scene.center, 0.5f);
    PmxScene::constrain(scene.arm, Tag::Translate, scene.goal, 0.25f);
    PmxScene::constrain(scene.elbow, Tag::TranslateAndRotate, scene.hand, 2.0f);
    PmxScene::constrain(scene.hand, Tag::Rotate, nullptr, 1.0f);
    PmxScene::constrain(scene.hand, Tag::Twist, nullptr);
    PmxScene::constrain(scene.goal, Tag::Rotate, scene.hand, 1.0f)->setDeleted(true);
    const PmxRecords file = scene.exported();
    QCOMPARE(file.fault, QString()); // so both flags together are followed by one record
    const int flags[] = {0, 0x300, 0x300, 0x400, 0};
    const int targets[] = {-2, 4, 3, -2, -2};
    const float ratios[] = {0.0f, 0.25f, 2.0f, 0.0f, 0.0f};
    for (int i = 0; i < 5; ++i) {
        QCOMPARE(file.bones[i].flags & 0x0720, flags[i]);
        QCOMPARE(file.bones[i].inheritTarget, targets[i]);
        QCOMPARE(file.bones[i].inheritRatio, ratios[i]);
    }
    QCOMPARE(file.bones[3].axis, Vector3(0.1f, 0, 0)); // of unit length, and scaled as lengths are
}

void tst_PmxExporter::chains()
{
    PmxScene scene;
    KMTagConstraint *tag = PmxScene::constrain(scene.goal, KMTagConstraint::IK, scene.hand, 114.59155902616465f);
    scene.elbow->setLimits({0.6f, 0.1f, 0.7f, 0.2f, 0.8f, 0.3f, true});
    PmxRecords file = scene.exported();
    const PmxRecords::Bone &goal = file.bones[4];
    QCOMPARE(goal.flags & 0x0720, 0x0020);
    QCOMPARE(goal.ikTarget, 3);
    QCOMPARE(goal.loop, 40);
    QCOMPARE(goal.angle, 2.0f);
    QCOMPARE(goal.links.size(), 2);
    QCOMPARE(goal.links[0].bone, 2);
    QCOMPARE(goal.links[0].limits, QVector<float>({0.1f, 0.2f, 0.3f, 0.6f, 0.7f, 0.8f}));
    QCOMPARE(goal.links[1].bone, 1);
    QVERIFY(goal.links[1].limits.isEmpty());

    tag->setIkDepth(9); // the chain ends at the top, and its count says so
    file = scene.exported();
    QCOMPARE(file.fault, QString());
    QCOMPARE(file.bones[4].links.size(), 3);
}

void tst_PmxExporter::armAxes()
{
    PmxScene scene;
    scene.options.convertAxis = true;
    const PmxRecords file = scene.exported();
    for (int i = 1; i <= 3; ++i) { // the arm and what hangs on it
        const PmxRecords::Bone &bone = file.bones[i];
        QVERIFY(isNear(bone.localX, bone.tail.normalized()));
        QVERIFY(qAbs(dot(bone.localX, bone.localZ)) < 1e-6f);
        const Vector3 y = cross(bone.localZ, bone.localX);
        QVERIFY(y.y > 0.0f && qAbs(bone.localZ.y) < 1e-6f); // as far up as the bone allows
    }
    scene.arm->setName(QStringLiteral("左腕"));
    QCOMPARE(scene.exported().bones[3].localX, file.bones[3].localX);
    scene.options.convertAxis = false;
    const PmxRecords plain = scene.exported();
    QCOMPARE(file.bones[0].localX, plain.bones[0].localX);
    QCOMPARE(file.bones[4].localZ, plain.bones[4].localZ);
}

/// A body that stands upright in the player lies along its bone here, and comes out with the angles it came with.
void tst_PmxExporter::bodies()
{
    PmxScene scene;
    const Quaternion f(0.7071067690849304f, -0.7071067690849304f, 0, 0);
    const Vector3 angles[] = {{0.3f, -0.4f, 0.5f}, {0.2f, float(M_PI_2), 0.0f}, {-3.0f, 1.2f, 2.0f}};
    for (int i = 0; i < 3; ++i) {
        const KMBone *bone = scene.elbow;
        RigidBodyData data;
        data.shape = KMTagRigidBody::Box;
        data.rigidType = KMTagRigidBody::PhysFix;
        data.width = 2, data.height = 4, data.depth = 6;
        data.linearDamping = 0.1f, data.angularDamping = 0.2f, data.friction = 0.3f, data.restitution = 0.4f;
        data.mass = 5.0f;
        data.group = 7;
        data.collisionMask = 0x8001;
        data.pose.offset = {1, 2, 3};
        data.pose.rotation = bone->rotation().conjugate() * Quaternion::fromEuler(angles[i]) * f;
        PmxScene::addBody(scene.elbow, QString::number(i))->setParameters(data);
    }
    const PmxRecords file = scene.exported();
    QCOMPARE(file.bodies.size(), 3);
    for (int i = 0; i < 3; ++i) {
        const PmxRecords::Body &body = file.bodies[i];
        QCOMPARE(body.name, QString::number(i));
        QCOMPARE(QVector<int>({body.bone, body.group, body.mask, body.shape, body.mode}),
                 QVector<int>({2, 7, 0x7ffe, 1, 2}));
        QVERIFY(isNear(body.size, {0.1f, 0.2f, 0.3f}));
        QVERIFY(isNear(body.position, (scene.elbow->rotation().rotate({1, 2, 3}) + scene.elbow->restHead()) * 0.1f));
        const Quaternion turn = Quaternion::fromEuler(body.rotation), meant = Quaternion::fromEuler(angles[i]);
        QVERIFY(qAbs(dot(turn, meant)) > 1.0f - 1e-5f);
        QCOMPARE(body.numbers, QVector<float>({5.0f, 0.1f, 0.2f, 0.4f, 0.3f}));
    }
    scene.options.skipPhysics = true;
    QVERIFY(scene.exported().bodies.isEmpty());
}

void tst_PmxExporter::joints()
{
    PmxScene scene;
    KMTagRigidBody *a = PmxScene::addBody(scene.center, QStringLiteral("a"));
    KMTagRigidBody *gone = PmxScene::addBody(scene.arm, QStringLiteral("gone"));
    KMTagRigidBody *b = PmxScene::addBody(scene.hand, QStringLiteral("b"));
    gone->setDeleted(true);
    KMTagJoint *joint = PmxScene::addJoint(scene.arm, b, a);
    joint->setLinearLimit({1, 2, 3, 4, 5, 6});
    joint->setAngularLimit({10, 20, 30, 40, 50, 60});
    joint->setLinearSpring({1, 2, 3});
    joint->setAngularSpring({4, 5, 6});
    PmxScene::addJoint(scene.arm, gone, nullptr);
    const PmxRecords file = scene.exported();
    QCOMPARE(file.joints.size(), 2);
    const PmxRecords::Joint &written = file.joints[0];
    QCOMPARE(QVector<int>({written.type, written.a, written.b}), QVector<int>({0, 1, 0}));
    QCOMPARE(QVector<int>({file.joints[1].a, file.joints[1].b}), QVector<int>({-1, -1}));
    const auto radians = [](float degrees) { return float(double(degrees * 0.0055555557f) * M_PI); };
    const float s = 0.1f; // the limits of lengths are scaled, and leave in an order of their own
    const QVector<float> expected{2 * s,
                                  5 * s,
                                  3 * s,
                                  1 * s,
                                  6 * s,
                                  4 * s,
                                  -radians(20),
                                  -radians(60),
                                  radians(30),
                                  -radians(10),
                                  -radians(50),
                                  radians(40),
                                  1,
                                  3,
                                  2,
                                  4,
                                  6,
                                  5};
    QCOMPARE(written.numbers, expected);
    QVERIFY(isNear(written.position, scene.arm->restHead() * s));
}

/// What a mirror makes of places, turns and limits.
void tst_PmxExporter::mirroredPhysics()
{
    PmxScene scene;
    KMTagRigidBody *body = PmxScene::addBody(scene.elbow, QStringLiteral("a"));
    PoseTransform pose;
    pose.offset = {1, 2, 3};
    pose.rotation = Quaternion::fromEuler({0.3f, -0.4f, 0.5f});
    body->setPose(pose);
    KMTagJoint *joint = PmxScene::addJoint(scene.hand, body, nullptr);
    joint->setPose(pose);
    joint->setLinearLimit({1, 2, 3, 4, 5, 6});
    joint->setAngularLimit({10, 20, 30, 40, 50, 60});
    const PmxRecords plain = scene.exported();
    scene.options.developmentFlip = true;
    const PmxRecords mirrored = scene.exported();
    const auto across = [](const Vector3 &v) { return Vector3(-v.x, v.y, v.z); };
    const auto isMirrored = [&across](const auto &was, const auto &is) {
        const Quaternion before = Quaternion::fromEuler(was.rotation), after = Quaternion::fromEuler(is.rotation);
        for (const Vector3 &v : {Vector3(1, 0, 0), Vector3(0, 1, 0), Vector3(0, 0, 1)}) {
            if (!isNear(after.rotate(across(v)), across(before.rotate(v))))
                return false;
        }
        return is.position == across(was.position);
    };
    QVERIFY(isMirrored(plain.bodies[0], mirrored.bodies[0]));
    QVERIFY(isMirrored(plain.joints[0], mirrored.joints[0]));
    const bool turns[] = {true, false, false, false, true, true}; // shifts along and turns about x, y, z
    for (int i = 0; i < 6; ++i) {
        const int lowest = i < 3 ? i : i + 3;
        const QVector<float> &was = plain.joints[0].numbers, &is = mirrored.joints[0].numbers;
        QCOMPARE(is[lowest], turns[i] ? -was[lowest + 3] : was[lowest]);
        QCOMPARE(is[lowest + 3], turns[i] ? -was[lowest] : was[lowest + 3]);
    }
}

void tst_PmxExporter::materials()
{
    PmxScene scene;
    for (const char *name : {"skin.png", "toon.bmp", "/elsewhere/sphere.png"})
        gProject->addTextureFile(QDir(scene.folder.path()).filePath(QLatin1String(name)));
    KMBasicShader values;
    values.specular = QColor(255, 0, 255);
    values.ambient = QColor(0, 255, 255);
    values.shininess = 12;
    values.outlineEnabled = true;
    values.outlineColor = QColor(255, 255, 0, 255);
    values.outlineSize = 1.5f;
    values.diffuse = QColor(255, 0, 0, 0);
    values.textures[KMBasicShader::Sphere] = 2;
    values.textures[KMBasicShader::Toon] = 1;
    scene.addShader(QStringLiteral("unused"));
    scene.addShader(QStringLiteral("first"))->setValues(values);
    values.sphereAdd = true;
    values.outlineEnabled = false;
    values.textures[KMBasicShader::Diffuse] = 1;
    scene.addShader(QStringLiteral("second"))->setValues(values);
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(4, 1));
    const int shaders[] = {2, -1, 1, 2};
    for (int f = 0; f < 4; ++f)
        mesh->setFaceShader(f, shaders[f]);
    mesh->markDirty(KMMeshDirty::All);
    scene.options.edgeScale = 2.0f;

    const PmxRecords file = scene.exported();
    QCOMPARE(file.fault, QString());
    QCOMPARE(file.textures.mid(0, 1), QStringList({QStringLiteral("toon.bmp")}));
    QVERIFY(file.textures.value(1).endsWith(QLatin1String("../elsewhere/sphere.png")));
    QCOMPARE(file.materials.size(), 3);
    const PmxRecords::Material &second = file.materials[0], &none = file.materials[1], &first = file.materials[2];
    QCOMPARE(QVector<int>({second.corners, none.corners, first.corners}), QVector<int>({12, 6, 6}));
    QCOMPARE(first.name, QStringLiteral("first"));
    QCOMPARE(first.diffuse, QVector<float>({1, 0, 0, 0}));
    QCOMPARE(first.specular, QVector<float>({1, 0, 1}));
    QCOMPARE(first.ambient, QVector<float>({0, 1, 1}));
    QCOMPARE(first.edgeColor, QVector<float>({1, 1, 0, 1}));
    QCOMPARE(QVector<float>({first.power, first.edgeSize}), QVector<float>({12, 3}));
    QCOMPARE(QVector<int>({first.flags, first.texture, first.sphere, first.sphereMode, first.sharedToon, first.toon}),
             QVector<int>({16, -1, 1, 2, 0, 0}));
    QCOMPARE(QVector<int>({second.flags, second.texture, second.sphere, second.sphereMode, second.toon}),
             QVector<int>({0, 0, 1, 1, 0}));
    QCOMPARE(none.name, QString());
    QCOMPARE(none.diffuse, QVector<float>({0, 0, 0, 1}));
    QCOMPARE(none.edgeColor, QVector<float>({0, 0, 0, 1}));
    QCOMPARE(none.specular + none.ambient + QVector<float>({none.power, none.edgeSize}), QVector<float>(8, 0.0f));
    QCOMPARE(QVector<int>({none.flags, none.texture, none.sphere, none.sphereMode, none.toon}),
             QVector<int>({0, -1, -1, 0, -1}));
}

/// One name is one morph, and all vertices that came of one go with it.
void tst_PmxExporter::morphsAcrossMeshes()
{
    PmxScene scene;
    KMMeshNode *cube = scene.addMesh(MeshFixtures::cube());
    KMMeshNode *other = scene.addMesh(MeshFixtures::cube());
    PmxScene::addMorph(cube, QStringLiteral("a"), 0, 2.0f)->setPanel(KMMorph::LeftTop);
    PmxScene::addMorph(other, QStringLiteral("b"), 1, 1.0f);
    PmxScene::addMorph(other, QStringLiteral("a"), 3, 4.0f)->setPanel(KMMorph::RightTop);
    const PmxRecords file = scene.exported();
    QCOMPARE(file.vertices.size(), 48); // a normal for each corner of a face
    QCOMPARE(file.morphs.size(), 2);
    QCOMPARE(file.morphs[0].name + file.morphs[1].name, QStringLiteral("ab"));
    QCOMPARE(QVector<int>({file.morphs[0].panel, file.morphs[0].type}), QVector<int>({KMMorph::LeftTop, 1}));
    QCOMPARE(file.morphs[0].offsets.size(), 6);
    for (int i = 0; i < 6; ++i) {
        const auto &[vertex, offset] = file.morphs[0].offsets[i];
        QVERIFY(vertex / 24 == i / 3);
        QCOMPARE(file.vertices[vertex].position, (i < 3 ? cube->position(0) : other->position(3)) * 0.1f);
        QVERIFY(isNear(offset, {0, i < 3 ? 0.2f : 0.4f, 0}));
    }
    QCOMPARE(file.morphs[1].offsets.size(), 3);
}

/// Files may bring more than one: all are written, and none shows in what the others do.
void tst_PmxExporter::morphsOfTwoTags()
{
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    PmxScene::addMorph(mesh, QStringLiteral("a"), 2, 3.0f);
    auto *second = new KMTagMorph;
    auto *morph = new KMMorph;
    morph->setName(QStringLiteral("b"));
    second->addMorph(morph);
    mesh->addTagKeepName(second);
    morph->setDeltas({{3, 2.0f, {0, 1, 0}}});
    auto *twin = new KMMorph; // of the first tag's: one morph in the file, with each vertex once
    twin->setName(QStringLiteral("a"));
    second->addMorph(twin);
    twin->setDeltas({{2, 1.0f, {0, 1, 0}}});
    for (const bool isChain : {false, true}) {
        if (isChain)
            scene.addModifier(mesh, new KMModSdvNode);
        morph->setValue(0.0f);
        const QByteArray before = scene.bytes();
        const PmxRecords file(before);
        QCOMPARE(file.morphs.size(), 2);
        QVERIFY(!file.morphs[0].offsets.isEmpty() && !file.morphs[1].offsets.isEmpty());
        QSet<int> moved;
        for (const auto &[vertex, offset] : file.morphs[0].offsets) {
            QVERIFY(isChain || isNear(offset, {0, 0.4f, 0}));
            moved << vertex;
        }
        QCOMPARE(moved.size(), file.morphs[0].offsets.size());
        morph->setValue(0.5f);
        QCOMPARE(scene.bytes(), before);
    }
}

void tst_PmxExporter::morphsThatGrow()
{
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(2, 2));
    TestGrowth growth;
    mesh->linkChain({{true, &growth}});
    PmxScene::addMorph(mesh, QStringLiteral("lost"), 0, 1.0f);
    PmxScene::addMorph(mesh, QStringLiteral("kept"), 0, 0.25f);
    const LogNotes notes;
    const PmxRecords file = scene.exported();
    QCOMPARE(file.morphs.size(), 1);
    QCOMPARE(file.morphs[0].name, QStringLiteral("kept"));
    const QString log = LogNotes::lines.join(QLatin1Char('\n'));
    QVERIFY(log.contains(QLatin1String("Export Failed. lost")));
    QVERIFY(log.contains(QLatin1String("mod_mesh->getVertexCount() != pre_vert_list.size() 10 9")));
    mesh->linkChain({});
}

/// A mesh without a chain is written as it is without its morphs, normals included.
void tst_PmxExporter::morphedMeshes()
{
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    KMMorph *morph = PmxScene::addMorph(mesh, QStringLiteral("m"), 0, 5.0f);
    const QByteArray before = scene.bytes();
    morph->setValue(0.75f);
    QCOMPARE(scene.bytes(), before);
    QCOMPARE(morph->value(), 0.75f);
}

/// The surface is that of the pose; the weights are those of the mesh that the bones move.
void tst_PmxExporter::posedSkin()
{
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::grid(3, 3));
    KMTagBoneWeight *weights = PmxScene::weigh(mesh);
    for (int v = 0; v < mesh->vertexCount(); ++v)
        weights->addEntry({v, 1.0f, v % 2 ? scene.arm : scene.hand});
    const auto *deform = scene.addModifier(mesh, new KMModBoneDeformNode);
    for (const bool isPosed : {false, true}) {
        PoseTransform pose;
        if (isPosed)
            pose.rotation = Quaternion::fromEuler(0.0f, 0.0f, 1.0f);
        scene.arm->setKeyPose(pose);
        scene.rig->animation()->reevaluate();
        mesh->refreshMesh(KMMeshDirty::All);
        const PmxRecords file = scene.exported();
        QCOMPARE(file.vertices.size(), mesh->vertexCount());
        for (int v = 0; v < mesh->vertexCount(); ++v) {
            QCOMPARE(file.vertices[v].position, deform->modMesh()->position(v) * 0.1f);
            QCOMPARE(file.vertices[v].bones, QVector<int>({v % 2 ? 1 : 3}));
        }
    }
    scene.options.freezeMods = false;
    const PmxRecords base = scene.exported();
    QCOMPARE(base.vertices[5].position, mesh->position(5) * 0.1f);
    QCOMPARE(base.vertices[5].normal, mesh->face(0)->normals[0]);
}

void tst_PmxExporter::whatIsTaken()
{
    PmxScene scene;
    KMMeshNode *shown = scene.addMesh(MeshFixtures::grid(2, 1));
    shown->setFaceFlag(0, KMElementFlag::Hidden);
    scene.addMesh(MeshFixtures::grid(1, 1))->setVisible(false);
    auto *cube = new KMPrimCubeNode;
    gProject->addNode(cube);
    const int box = [&] {
        int triangles = 0;
        for (const KMFace *face : cube->mesh()->faces())
            triangles += face->count - 2;
        return triangles;
    }();
    const auto triangles = [&] { return scene.exported().corners.size() / 3; };
    QCOMPARE(triangles(), 4 + box);
    scene.options.skipHideFace = true;
    QCOMPARE(triangles(), 2 + box);
    scene.options.viewNodesOnly = false;
    QCOMPARE(triangles(), 2 + 2 + box);
    shown->setFaceFlag(1, KMElementFlag::Hidden);
    cube->setVisible(false);
    QCOMPARE(triangles(), 2 + box);
    scene.options.viewNodesOnly = true;
    const PmxRecords nothing = scene.exported(); // a file without a surface is a file
    QCOMPARE(nothing.fault, QString());
    QVERIFY(nothing.vertices.isEmpty() && nothing.corners.isEmpty() && nothing.materials.isEmpty());
    QCOMPARE(nothing.bones.size(), 5);
}

void tst_PmxExporter::displayFrames()
{
    const QString warning = QStringLiteral("Warning: DisplayNode is insufficient to export.");
    PmxScene scene;
    KMMeshNode *mesh = scene.addMesh(MeshFixtures::cube());
    KMMorph *first = PmxScene::addMorph(mesh, QStringLiteral("a"), 0, 1.0f);
    KMMorph *second = PmxScene::addMorph(mesh, QStringLiteral("b"), 0, 1.0f);
    KMMeshNode *hidden = scene.addMesh(MeshFixtures::cube());
    KMMorph *unseen = PmxScene::addMorph(hidden, QStringLiteral("c"), 0, 1.0f);
    hidden->setVisible(false);
    KMDisplayNode *frame = scene.addFrame(QStringLiteral("表情"), {second, unseen, scene.arm, first});
    frame->setSpecial(true);
    scene.addFrame(QStringLiteral("empty"), {});
    scene.addFrame(QStringLiteral("unseen"), {unseen}); // a frame of the file, but of no use
    {
        const LogNotes notes;
        const PmxRecords file = scene.exported();
        QVERIFY(LogNotes::lines.contains(warning));
        QCOMPARE(file.fault, QString());
        QCOMPARE(file.frames.size(), 2);
        QVERIFY(file.frames[1].items.isEmpty());
        QCOMPARE(file.frames[0].special, 1);
        const QVector<QPair<int, int>> items{{1, 1}, {0, 1}, {1, 0}}; // what isn't in the file isn't counted either
        QCOMPARE(file.frames[0].items, items);
    }
    scene.addFrame(QStringLiteral("Root"), {scene.center});
    const LogNotes notes;
    QCOMPARE(scene.exported().frames.size(), 3);
    QVERIFY(!LogNotes::lines.contains(warning));
}

void tst_PmxExporter::documentStays()
{
    PmxScene scene;
    scene.addSomethingOfAll();
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (auto *tag = static_cast<KMTagMorph *>(mesh->findTag(KMNodeType::TagMorph)))
            tag->liveMorphs().first()->setValue(0.6f);
    }
    const QString before = PmxScene::document();
    const QByteArray bytes = scene.bytes();
    QCOMPARE(PmxScene::document(), before);
    QVERIFY(!bytes.isEmpty());
    QCOMPARE(scene.bytes(), bytes);
}

void tst_PmxExporter::failures()
{
    PmxScene scene;
    QFile old(scene.path());
    QVERIFY(old.open(QIODevice::WriteOnly));
    old.write("old");
    old.close();
    scene.options.root = nullptr;
    PmxExporter exporter(scene.options);
    QVERIFY(!exporter.exportTo(scene.path()));
    QCOMPARE(exporter.error(), QStringLiteral("RootBone not found."));
    QCOMPARE(old.size(), 3);

    exporter.root = scene.rig;
    const LogNotes notes;
    QVERIFY(!exporter.exportTo(scene.folder.filePath(QStringLiteral("no folder/model.pmx"))));
    QVERIFY(LogNotes::lines.contains(QLatin1String("file open error.")));
    QVERIFY(!exporter.error().isEmpty());

    scene.addMesh(MeshFixtures::grid(40, 40));
    {
        const FileSizeLimit limit(4096);
        QVERIFY(!exporter.exportTo(scene.path()));
    }
    QVERIFY2(exporter.error().contains(QString::fromLocal8Bit(::strerror(EFBIG))), qPrintable(exporter.error()));
    QCOMPARE(QFileInfo(scene.path()).size(), 3);
}

/// Another program reads the file without a complaint, but for what the layout leaves open to the user's data.
void tst_PmxExporter::strictReader()
{
    if (!StrictReader::isHere())
        QSKIP("no strict reader here");
    PmxScene scene;
    scene.addSomethingOfAll();
    QVERIFY(!scene.bytes().isEmpty());
    const QString axis = QStringLiteral("fixed axis not of unit length"); // it has the scale of the file
    QCOMPARE(StrictReader::complaints(scene.path()), QStringList(axis));

    // With a rig without bones a vertex still has to name one: the first, which isn't there.
    auto *bare = new KMBoneContainer;
    gProject->addNode(bare);
    scene.options.root = bare;
    QVERIFY(!scene.bytes().isEmpty());
    QVERIFY(StrictReader::complaints(scene.path()).contains(QLatin1String("index out of range")));
}

KM_TEST(tst_PmxExporter);

#include "tst_PmxExporter.moc"
