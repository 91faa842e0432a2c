#include "core/KMBasicShaderNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeClone.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveCommands.h"
#include "support/CommandProof.h"
#include "support/DocumentDump.h"
#include "support/MeshProbe.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QTextStream>

#include <cmath>
#include <limits>
#include <memory>

class tst_KMPrimitives : public QObject
{
    Q_OBJECT
private slots:
    void counts_data();
    void counts();
    void facesLookOutwards_data();
    void facesLookOutwards();
    void cubeCorners();
    void planeFacesUp();
    void roundShapes();
    void uvs_data();
    void uvs();
    void outOfRangeKeepsTheMesh_data();
    void outOfRangeKeepsTheMesh();
    void hugeCountsAreRefused();
    void transformIsInTheVertices();
    void valueNodesRebuild();
    void parametersAreSetAtOnce();
    void cloneIsIndependent_data();
    void cloneIsIndependent();
    void commands_data();
    void commands();
    void undoLeadsBackThroughBadValues();
    void removedShader();
    void sceneKnowsTheMesh();
};

namespace {

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();
constexpr int billion = 1000000000;

using Primitive = std::shared_ptr<KMPrimitiveNode>;
using Make = KMPrimitiveNode *(*)();
using MakeCommand = std::function<KMUndoCommand *()>;

template <class Node, class... Values>
Primitive made(Values... values)
{
    auto node = std::make_shared<Node>();
    node->setParameters({values...});
    return node;
}

template <class Node>
KMPrimitiveNode *make()
{
    return new Node;
}

KMTransform placed(const kvm::Vector3 &scale = {1, 1, 1})
{
    KMTransform transform;
    transform.scale = scale;
    transform.rotation = kvm::Quaternion::fromEuler(0.3f, -0.7f, 1.1f);
    transform.translation = {3, -20, 7};
    return transform;
}

/// Counts what the program logs while it lives.
class LogCounter
{
public:
    LogCounter()
    {
        lines = 0;
        m_before = qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) { ++lines; });
    }
    ~LogCounter() { qInstallMessageHandler(m_before); }
    static int lines;

private:
    QtMessageHandler m_before;
};

int LogCounter::lines = 0;

/// A document's text with the shape of its primitives.
class PrimitiveDump : public DocumentDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override
    {
        if (isPrimitive(node->type())) {
            const auto *primitive = static_cast<const KMPrimitiveNode *>(node);
            out << " shader " << primitive->shader() << '\n' << meshText(*primitive->mesh());
        }
    }
};

} // namespace

Q_DECLARE_METATYPE(Primitive)

void tst_KMPrimitives::counts_data()
{
    QTest::addColumn<Primitive>("primitive");
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("triangles"); // faces of three corners
    QTest::addColumn<int>("quads");
    QTest::newRow("cube") << made<KMPrimCubeNode>() << 8 << 0 << 6;
    QTest::newRow("sphere") << made<KMPrimSphereNode>() << 2 + 24 * 13 << 48 << 24 * 12;
    QTest::newRow("smallest sphere") << made<KMPrimSphereNode>(25.0f, 3, 4) << 5 << 6 << 0;
    QTest::newRow("cylinder") << made<KMPrimCylinderNode>() << 26 << 24 << 12;
    QTest::newRow("divided cylinder") << made<KMPrimCylinderNode>(10.0f, 5.0f, 7, 4) << 2 + 5 * 3 << 6 << 12;
    QTest::newRow("plane") << made<KMPrimPlaneNode>() << 4 << 0 << 1;
    QTest::newRow("divided plane") << made<KMPrimPlaneNode>(10.0f, 20.0f, 3, 2) << 12 << 0 << 6;
    QTest::newRow("torus") << made<KMPrimTorusNode>() << 384 << 0 << 384;
    QTest::newRow("smallest torus") << made<KMPrimTorusNode>(10.0f, 2.0f, 3, 3) << 9 << 0 << 9;
}

void tst_KMPrimitives::counts()
{
    QFETCH(Primitive, primitive);
    QFETCH(int, triangles);
    QFETCH(int, quads);
    KMMeshNode *mesh = primitive->mesh();
    QTEST(mesh->vertexCount(), "vertices");
    QCOMPARE(mesh->faceCount(), triangles + quads);
    const auto isTriangle = [](const KMFace *face) { return face->count == 3; };
    QCOMPARE(int(std::count_if(mesh->faces().cbegin(), mesh->faces().cend(), isTriangle)), triangles);
    QCOMPARE(mesh->dirtyMask(), quint32(KMMeshDirty::All));
    mesh->refreshMesh(mesh->dirtyMask());
    QCOMPARE(mesh->triangleCount(), triangles + 2 * quads);
    QCOMPARE(mesh->liveVertices().size(), mesh->vertexCount());
    QVERIFY(mesh->ownerNode() == primitive.get());
}

void tst_KMPrimitives::facesLookOutwards_data()
{
    QTest::addColumn<Primitive>("primitive");
    QTest::addColumn<double>("volume"); // of the smooth body; that of the mesh is a little less
    QTest::addColumn<int>("euler");
    const double ball = 4.0 / 3.0 * M_PI * 25.0 * 25.0 * 25.0;
    QTest::newRow("cube") << made<KMPrimCubeNode>() << 125000.0 << 2;
    QTest::newRow("cube with a negative side") << made<KMPrimCubeNode>(50.0f, -50.0f, 50.0f) << 125000.0 << 2;
    QTest::newRow("sphere") << made<KMPrimSphereNode>() << ball << 2;
    QTest::newRow("cylinder") << made<KMPrimCylinderNode>(50.0f, 25.0f, 6, 60) << M_PI * 625.0 * 50.0 << 2;
    QTest::newRow("cylinder downwards") << made<KMPrimCylinderNode>(-50.0f, 25.0f, 6, 60) << M_PI * 625.0 * 50.0 << 2;
    QTest::newRow("torus") << made<KMPrimTorusNode>(50.0f, 15.0f, 60, 40) << 2.0 * M_PI * M_PI * 50.0 * 225.0 << 0;
}

void tst_KMPrimitives::facesLookOutwards()
{
    QFETCH(Primitive, primitive);
    QFETCH(double, volume);
    QFETCH(int, euler);
    for (const kvm::Vector3 &scale :
         {kvm::Vector3(1, 1, 1), kvm::Vector3(-1, 1, 1), kvm::Vector3(-1, -1, -1), kvm::Vector3(1, -1, -1)}) {
        primitive->setTransform(placed(scale));
        const MeshProbe probe(*primitive->mesh());
        QVERIFY(probe.isClosed());
        QCOMPARE(probe.euler(), euler);
        QVERIFY2(probe.volume > 0.95 * volume && probe.volume < 1.001 * volume,
                 qPrintable(QString::number(probe.volume)));
    }
}

void tst_KMPrimitives::cubeCorners()
{
    KMPrimCubeNode cube;
    QCOMPARE(cube.mesh()->position(0), kvm::Vector3(25, 25, -25));
    cube.setParameters({2.0f, 4.0f, 6.0f});
    QCOMPARE(cube.mesh()->position(6), kvm::Vector3(1, 2, 3));
    QVERIFY((cube.mesh()->faceCorners(4) == std::array<int, 4>{6, 4, 2, 0}));
    const auto uvs = cube.mesh()->faceUVs(5);
    QVERIFY(uvs[0] == kvm::Vector2(1, 0) && uvs[1] == kvm::Vector2(0, 0) && uvs[2] == kvm::Vector2(0, 1)
            && uvs[3] == kvm::Vector2(1, 1));
}

void tst_KMPrimitives::planeFacesUp()
{
    KMPrimPlaneNode plane;
    QCOMPARE(plane.mesh()->position(0), kvm::Vector3(-50, 0, 50));
    QVERIFY((plane.mesh()->faceCorners(0) == std::array<int, 4>{0, 1, 3, 2}));
    plane.setParameters({40.0f, 20.0f, 4, 2});
    QCOMPARE(plane.mesh()->position(1 * 3 + 2), kvm::Vector3(-10, 0, -10)); // columns run along X, in them rows
    for (const float width : {10.0f, -10.0f}) {
        for (const float depth : {20.0f, -20.0f}) {
            plane.setParameters({width, depth, 3, 2});
            for (const KMFace *face : plane.mesh()->faces())
                QCOMPARE(rawNormal(*plane.mesh(), *face).normalized(), kvm::Vector3(0, 1, 0));
        }
    }
}

void tst_KMPrimitives::roundShapes()
{
    const KMPrimSphereNode sphere;
    for (const KMVertex *vertex : sphere.mesh()->vertices())
        QVERIFY(std::abs(vertex->pos.length() - 25.0f) < 1e-4f);
    QCOMPARE(sphere.mesh()->position(0), kvm::Vector3(0, -25, 0));
    QCOMPARE(sphere.mesh()->position(sphere.mesh()->vertexCount() - 1), kvm::Vector3(0, 25, 0));

    KMPrimCylinderNode cylinder;
    cylinder.setParameters({30.0f, 10.0f, 6, 9});
    QMap<float, int> heights;
    for (const KMVertex *vertex : cylinder.mesh()->vertices()) {
        ++heights[vertex->pos.y];
        const float radius = std::hypot(vertex->pos.x, vertex->pos.z);
        QVERIFY(radius == 0.0f || std::abs(radius - 10.0f) < 1e-4f);
    }
    QCOMPARE(heights, (QMap<float, int>{{-15.0f, 9}, {-5.0f, 8}, {5.0f, 8}, {15.0f, 9}})); // centres at the rims

    const KMPrimTorusNode torus;
    for (const KMVertex *vertex : torus.mesh()->vertices()) {
        const float fromAxis = std::hypot(vertex->pos.x, vertex->pos.z) - 50.0f;
        QVERIFY(std::abs(std::hypot(fromAxis, vertex->pos.y) - 15.0f) < 1e-3f);
    }
    QCOMPARE(torus.mesh()->position(0), kvm::Vector3(0, 0, 65));
}

void tst_KMPrimitives::uvs_data()
{
    QTest::addColumn<Primitive>("primitive");
    QTest::addColumn<bool>("hasSeam"); // a vertex with u of 0 and of 1
    QTest::newRow("cube") << made<KMPrimCubeNode>() << true;
    QTest::newRow("plane") << made<KMPrimPlaneNode>(1.0f, 1.0f, 4, 4) << false;
    QTest::newRow("sphere") << made<KMPrimSphereNode>() << true;
    QTest::newRow("cylinder") << made<KMPrimCylinderNode>() << true;
    QTest::newRow("torus") << made<KMPrimTorusNode>() << true;
}

void tst_KMPrimitives::uvs()
{
    QFETCH(Primitive, primitive);
    QFETCH(bool, hasSeam);
    const KMMeshNode *mesh = primitive->mesh();
    QSet<int> left, right;
    double area = 0.0;
    for (const KMFace *face : mesh->faces()) {
        for (int c = 0; c < face->count; ++c) {
            const kvm::Vector2 uv = face->uvs[c];
            QVERIFY(uv.x >= 0.0f && uv.x <= 1.0f && uv.y >= 0.0f && uv.y <= 1.0f);
            if (uv.x == 0.0f)
                left << face->indices[c];
            if (uv.x == 1.0f)
                right << face->indices[c];
            const kvm::Vector2 next = face->uvs[c + 1 < face->count ? c + 1 : 0];
            area += double(uv.x * next.y - uv.y * next.x) / 2.0;
            if (mesh->faceCount() > 6) // no face spans the picture back to its start
                QVERIFY(std::abs(uv.x - next.x) < 0.5f && std::abs(uv.y - next.y) < 0.5f);
        }
    }
    QCOMPARE(left.intersects(right), hasSeam);
    QVERIFY(std::abs(area) > 0.5); // all face the same way in the picture
}

void tst_KMPrimitives::outOfRangeKeepsTheMesh_data()
{
    QTest::addColumn<Primitive>("primitive");
    QTest::addColumn<std::function<void()>>("change");
    const auto row = [](const char *name, auto node, auto parameters) {
        QTest::newRow(name) << Primitive(node) << std::function<void()>([=] { node->setParameters(parameters); });
    };
    const auto sphere = std::make_shared<KMPrimSphereNode>();
    row("sphere radius", sphere, KMPrimSphere{-1.0f, 15, 25});
    row("sphere rings", sphere, KMPrimSphere{25.0f, 2, 25});
    row("sphere sectors", sphere, KMPrimSphere{25.0f, 15, 3});
    row("sphere without a number", sphere, KMPrimSphere{noNumber, 15, 25});
    const auto cylinder = std::make_shared<KMPrimCylinderNode>();
    row("cylinder radius", cylinder, KMPrimCylinder{50.0f, -0.1f, 4, 13});
    row("cylinder rings", cylinder, KMPrimCylinder{50.0f, 25.0f, 3, 13});
    const auto torus = std::make_shared<KMPrimTorusNode>();
    row("torus rings", torus, KMPrimTorus{50.0f, 15.0f, 2, 12});
    row("torus radius", torus, KMPrimTorus{50.0f, -15.0f, 32, 12});
    const auto plane = std::make_shared<KMPrimPlaneNode>();
    row("plane divisions", plane, KMPrimPlane{50.0f, 15.0f, 0, 12});
    row("plane negative", plane, KMPrimPlane{50.0f, 15.0f, 2, -2147483647});
    const auto cube = std::make_shared<KMPrimCubeNode>();
    row("cube without end", cube, KMPrimCube{1.0f, std::numeric_limits<float>::infinity(), 1.0f});
}

void tst_KMPrimitives::outOfRangeKeepsTheMesh()
{
    QFETCH(Primitive, primitive);
    QFETCH(std::function<void()>, change);
    const QString before = meshText(*primitive->mesh());
    const LogCounter log;
    change();
    QCOMPARE(meshText(*primitive->mesh()), before);
    QCOMPARE(LogCounter::lines, 0);
}

void tst_KMPrimitives::hugeCountsAreRefused()
{
    KMPrimSphereNode sphere;
    KMPrimPlaneNode plane;
    const QString before = meshText(*sphere.mesh());
    const LogCounter log;
    sphere.setParameters({25.0f, billion, billion});
    QCOMPARE(LogCounter::lines, 1);
    plane.setParameters({1.0f, 1.0f, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()});
    QCOMPARE(LogCounter::lines, 2);
    QCOMPARE(meshText(*sphere.mesh()), before);
    QCOMPARE(sphere.parameters().rings, billion); // what was asked for stays to be corrected
    QCOMPARE(plane.mesh()->faceCount(), 1);
    plane.setParameters({1.0f, 1.0f, 1000, 1000});
    QCOMPARE(plane.mesh()->faceCount(), KMPrimitiveNode::MaxFaces);
}

void tst_KMPrimitives::transformIsInTheVertices()
{
    const KMTransform t = placed({2.0f, 0.5f, 3.0f});
    const Make makers[] = {&make<KMPrimCubeNode>, &make<KMPrimPlaneNode>, &make<KMPrimSphereNode>};
    for (const Make factory : makers) {
        const std::unique_ptr<KMPrimitiveNode> rest(factory());
        const std::unique_ptr<KMPrimitiveNode> moved(factory());
        moved->setTransform(t);
        for (int i = 0; i < rest->mesh()->vertexCount(); ++i) {
            const kvm::Vector3 p = rest->mesh()->position(i);
            const kvm::Vector3 expected =
                t.rotation.rotate({p.x * t.scale.x, p.y * t.scale.y, p.z * t.scale.z}) + t.translation;
            QVERIFY((moved->mesh()->position(i) - expected).length() < 1e-3f);
        }
        moved->setTransform({});
        QCOMPARE(meshText(*moved->mesh()), meshText(*rest->mesh()));
    }
}

void tst_KMPrimitives::valueNodesRebuild()
{
    KMPrimTorusNode torus;
    for (const char *name : {"Outer Radius", "Radius", "Outer Rings", "Torus Rings"})
        QVERIFY(torus.nodePort(QLatin1String(name)));
    KMIntNode driver;
    driver.setInt(5);
    driver.addTarget(static_cast<KMVariantNode *>(torus.nodePort(QStringLiteral("Torus Rings"))));
    QCOMPARE(torus.parameters().torusRings, 5);
    QCOMPARE(torus.mesh()->faceCount(), 32 * 5);
    driver.setInt(7);
    QCOMPARE(torus.mesh()->faceCount(), 32 * 7);
}

/// Between the two shapes lies one that would be refused aloud.
void tst_KMPrimitives::parametersAreSetAtOnce()
{
    KMPrimSphereNode sphere;
    sphere.setParameters({25.0f, 3, 1002});
    const LogCounter log;
    sphere.setParameters({25.0f, 1002, 4});
    QCOMPARE(LogCounter::lines, 0);
    QCOMPARE(sphere.mesh()->faceCount(), 1001 * 3);
}

void tst_KMPrimitives::cloneIsIndependent_data()
{
    QTest::addColumn<Primitive>("primitive");
    KMPrim3DText text;
    text.text = QStringLiteral("ab");
    QTest::newRow("cube") << made<KMPrimCubeNode>(1.0f, 2.0f, 3.0f);
    QTest::newRow("sphere") << made<KMPrimSphereNode>(3.0f, 6, 7);
    QTest::newRow("text") << made<KMPrim3DTextNode>(text);
    QTest::newRow("out of range") << made<KMPrimSphereNode>(3.0f, 1, 7);
}

void tst_KMPrimitives::cloneIsIndependent()
{
    QFETCH(Primitive, primitive);
    primitive->setName(QStringLiteral("original"));
    primitive->setLocked(true);
    primitive->setVisible(false);
    primitive->setShader(3);
    primitive->setTransform(placed());
    const QString before = meshText(*primitive->mesh());
    const std::unique_ptr<KMPrimitiveNode> copy(static_cast<KMPrimitiveNode *>(cloneNode(primitive.get())));
    QVERIFY(copy);
    QCOMPARE(copy->type(), primitive->type());
    QCOMPARE(copy->name(), QStringLiteral("original"));
    QVERIFY(copy->isLocked() && !copy->isVisible() && !copy->mesh()->isVisible());
    QCOMPARE(copy->shader(), 3);
    QCOMPARE(meshText(*copy->mesh()), before);
    copy->setTransform({});
    copy->setShader(-1);
    QCOMPARE(meshText(*primitive->mesh()), before);
}

template <class Node, class Command, class Value>
void addCommand(const char *text, const Value &value)
{
    auto *node = new Node;
    QTest::newRow(text) << static_cast<KMPrimitiveNode *>(node)
                        << MakeCommand([=]() -> KMUndoCommand * { return new Command(node, value); });
}

void tst_KMPrimitives::commands_data()
{
    QTest::addColumn<KMPrimitiveNode *>("node");
    QTest::addColumn<MakeCommand>("command");
    KMPrim3DText word;
    word.text = QStringLiteral("word");
    addCommand<KMPrimSphereNode, editPrimSphereCommand>("Edit Sphere", KMPrimSphere{5.0f, 6, 7});
    addCommand<KMPrimCubeNode, editPrimCubeCommand>("Edit Cube", KMPrimCube{5.0f, 6.0f, 7.0f});
    addCommand<KMPrimCylinderNode, editPrimCylinderCommand>("Edit Cylinder", KMPrimCylinder{5.0f, 6.0f, 7, 8});
    addCommand<KMPrimTorusNode, editPrimTorusCommand>("Edit Torus", KMPrimTorus{5.0f, 3.0f, 7, 8});
    addCommand<KMPrimPlaneNode, editPrimPlaneCommand>("Edit Plane", KMPrimPlane{5.0f, 3.0f, 7, 8});
    addCommand<KMPrim3DTextNode, editPrim3DTextCommand>("Edit 3DText", word);
    addCommand<KMPrimCubeNode, primAssignShaderCommand>("Assign Shader", 2);
    addCommand<KMPrimCubeNode, editSRTCommand>("Edit SRT", placed());
}

void tst_KMPrimitives::commands()
{
    QFETCH(KMPrimitiveNode *, node);
    QFETCH(MakeCommand, command);
    KMHeadlessSession session;
    gProject->addNode(node);
    PrimitiveDump dump;
    QCOMPARE(proofFailure(dump, command), QString());
    QCOMPARE(session.stack().undoText(), QString::fromLatin1(QTest::currentDataTag()));
    session.stack().clear();
}

/// While a value is out of range the last good shape shows; undo has to find the one of its own time.
void tst_KMPrimitives::undoLeadsBackThroughBadValues()
{
    KMHeadlessSession session;
    auto *sphere = new KMPrimSphereNode;
    gProject->addNode(sphere);
    QStringList shapes{meshText(*sphere->mesh())};
    const auto push = [&](KMUndoCommand *command) {
        gSolution->push(command);
        shapes << meshText(*sphere->mesh());
    };
    push(new editPrimSphereCommand(sphere, {10.0f, 5, 5}));
    push(new editPrimSphereCommand(sphere, {10.0f, 1, 5}));
    push(new editSRTCommand(sphere, placed()));
    push(new editPrimSphereCommand(sphere, {10.0f, 6, 6}));
    push(new primAssignShaderCommand(sphere, 1));
    QCOMPARE(shapes[2], shapes[1]);
    QVERIFY(shapes[3] != shapes[2]); // the last good shape moves with its node
    for (int at = shapes.size() - 2; at >= 0; --at) {
        session.stack().undo();
        QCOMPARE(meshText(*sphere->mesh()), shapes[at]);
    }
    for (int at = 1; at < shapes.size(); ++at) {
        session.stack().redo();
        QCOMPARE(meshText(*sphere->mesh()), shapes[at]);
    }
}

void tst_KMPrimitives::removedShader()
{
    SmallScene scene;
    QVector<KMPrimCubeNode *> cubes;
    for (const int shader : {-1, 0, 1, 2}) {
        cubes << new KMPrimCubeNode;
        cubes.last()->setShader(shader);
        gProject->addNode(cubes.last());
    }
    const int before = scene.session.stack().count();
    gProject->deleteNode(scene.shaders[1]);
    const QVector<int> expected{-1, 0, -1, 1};
    for (int i = 0; i < cubes.size(); ++i) {
        QCOMPARE(cubes[i]->shader(), expected[i]);
        QCOMPARE(cubes[i]->mesh()->faceShader(5), expected[i]);
    }
    QCOMPARE(scene.session.stack().count(), before + 1);
    QCOMPARE(scene.session.stack().command(before)->childCount(), 3); // two primitives and the shader itself
    scene.session.stack().undo();
    QCOMPARE(cubes[2]->mesh()->faceShader(0), 1);
    QCOMPARE(cubes[3]->shader(), 2);
}

void tst_KMPrimitives::sceneKnowsTheMesh()
{
    KMHeadlessSession session;
    auto *cube = new KMPrimCubeNode;
    gProject->addNode(cube);
    QVERIFY(gProject->renderMeshes().contains(cube->mesh()));
    QVERIFY(!gProject->meshesInTree().contains(cube->mesh()));
    QCOMPARE(cube->mesh()->triangleCount(), 12); // the session has refreshed it
    gSolution->push(new editPrimCubeCommand(cube, {1.0f, 1.0f, 1.0f}));
    QCOMPARE(cube->mesh()->dirtyMask(), 0u);
}

Q_DECLARE_METATYPE(std::function<void()>)
Q_DECLARE_METATYPE(std::function<KMUndoCommand *()>)
Q_DECLARE_METATYPE(KMPrimitiveNode *)

KM_TEST(tst_KMPrimitives);

#include "tst_KMPrimitives.moc"
