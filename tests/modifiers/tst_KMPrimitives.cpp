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
#include "support/ModifierStage.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QTextStream>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

class tst_KMPrimitives : public QObject
{
    Q_OBJECT
private slots:
    void randomShapes_data();
    void randomShapes();
    void planeFacesUp();
    void roundShapes();
    void outOfRangeKeepsTheMesh_data();
    void outOfRangeKeepsTheMesh();
    void hugeCountsAreRefused();
    void transformIsInTheVertices();
    void valueNodesRebuild();
    void cloneIsIndependent_data();
    void cloneIsIndependent();
    void commands_data();
    void commands();
    void undoLeadsBackThroughBadValues();
    void removedShader();
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

class Random
{
public:
    int whole(int low, int high) { return low + int(m_engine() % unsigned(high - low + 1)); }
    float size() { return 1.0f + float(whole(0, 4000)) / 100.0f; }
    float length() { return whole(0, 1) ? size() : -size(); } ///< of either sign

private:
    std::mt19937 m_engine{7};
};

/// A primitive with what its mesh must be at rest.
struct Shape
{
    Primitive node;
    int vertices, triangles, quads, euler;
    double volume, uvArea;
};

double regularArea(int corners, double radius)
{
    return corners * radius * radius * std::sin(2.0 * M_PI / corners) / 2.0;
}

Shape cubeShape(Random &random)
{
    const float x = random.length(), y = random.length(), z = random.length();
    return {made<KMPrimCubeNode>(x, y, z), 8, 0, 6, 2, std::abs(double(x) * double(y) * double(z)), 6.0};
}

Shape sphereShape(Random &random)
{
    const float radius = random.size();
    const int rings = random.whole(3, 12), sectors = random.whole(4, 14), around = sectors - 1;
    double volume = 0.0; // of the frustums between the rows
    for (int i = 0; i + 1 < rings; ++i) {
        const double low = M_PI * i / (rings - 1) - M_PI / 2, high = M_PI * (i + 1) / (rings - 1) - M_PI / 2;
        const double a = regularArea(around, double(radius) * std::cos(low));
        const double b = regularArea(around, double(radius) * std::cos(high));
        volume += double(radius) * (std::sin(high) - std::sin(low)) / 3.0 * (a + std::sqrt(a * b) + b);
    }
    return {made<KMPrimSphereNode>(radius, rings, sectors),
            around * (rings - 2) + 2,
            2 * around,
            around * (rings - 3),
            2,
            volume,
            double(rings - 2) / (rings - 1)};
}

Shape cylinderShape(Random &random)
{
    const float height = random.length(), radius = random.size();
    const int rings = random.whole(4, 9), sectors = random.whole(4, 14), around = sectors - 1;
    return {made<KMPrimCylinderNode>(height, radius, rings, sectors),
            around * (rings - 2) + 2,
            2 * around,
            around * (rings - 3),
            2,
            regularArea(around, double(radius)) * std::abs(double(height)),
            double(rings - 2) / (rings - 1)};
}

Shape torusShape(Random &random)
{
    const float radius = random.size(), outer = radius + random.size();
    const int around = random.whole(3, 20), across = random.whole(3, 12);
    const double volume = around * std::sin(2.0 * M_PI / around) * double(outer) * regularArea(across, double(radius));
    return {made<KMPrimTorusNode>(outer, radius, around, across), around * across, 0, around * across, 0, volume, 1.0};
}

Shape planeShape(Random &random)
{
    const int u = random.whole(1, 9), v = random.whole(1, 9);
    return {made<KMPrimPlaneNode>(random.length(), random.length(), u, v), (u + 1) * (v + 1), 0, u * v, 0, 0.0, 1.0};
}

using MakeShape = Shape (*)(Random &);

} // namespace

Q_DECLARE_METATYPE(Primitive)
Q_DECLARE_METATYPE(MakeShape)

void tst_KMPrimitives::randomShapes_data()
{
    QTest::addColumn<MakeShape>("make");
    QTest::newRow("cube") << MakeShape(&cubeShape);
    QTest::newRow("sphere") << MakeShape(&sphereShape);
    QTest::newRow("cylinder") << MakeShape(&cylinderShape);
    QTest::newRow("torus") << MakeShape(&torusShape);
    QTest::newRow("plane") << MakeShape(&planeShape);
}

/// Random sizes, divisions and transforms, mirroring ones among them, against what geometry says.
void tst_KMPrimitives::randomShapes()
{
    QFETCH(MakeShape, make);
    Random random;
    for (int round = 0; round < 60; ++round) {
        const Shape shape = make(random);
        KMTransform transform = placed({random.length(), random.length(), random.length()});
        if (round == 0)
            transform = {};
        shape.node->setTransform(transform);
        KMMeshNode &mesh = *shape.node->mesh();
        const MeshProbe probe(mesh);
        QCOMPARE(mesh.vertexCount(), shape.vertices);
        QCOMPARE(probe.vertices, shape.vertices);
        QCOMPARE(mesh.faceCount(), shape.triangles + shape.quads);
        if (shape.volume > 0.0) {
            const kvm::Vector3 &scale = transform.scale;
            const double volume = shape.volume * std::abs(double(scale.x) * double(scale.y) * double(scale.z));
            QVERIFY(probe.isClosed());
            QCOMPARE(probe.euler(), shape.euler);
            QVERIFY(std::abs(probe.volume - volume) <= 1e-4 * volume); // below 0 if it were turned inwards
        }
        double uvArea = 0.0;
        for (const KMFace *face : mesh.faces()) {
            for (int c = 0; c < face->count; ++c) {
                const kvm::Vector2 uv = face->uvs[c], next = face->uvs[c + 1 < face->count ? c + 1 : 0];
                QVERIFY(uv.x >= 0.0f && uv.x <= 1.0f && uv.y >= 0.0f && uv.y <= 1.0f);
                uvArea += double(uv.x * next.y - uv.y * next.x) / 2.0;
            }
        }
        // A face that spanned the picture back to its start would count against the others.
        QVERIFY(std::abs(std::abs(uvArea) - shape.uvArea) < 1e-3);
        mesh.refreshMesh(KMMeshDirty::All);
        QCOMPARE(mesh.triangleCount(), shape.triangles + 2 * shape.quads);
    }
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
    QCOMPARE(sphere.mesh()->position(0), kvm::Vector3(0, -25, 0));
    QCOMPARE(sphere.mesh()->position(sphere.mesh()->vertexCount() - 1), kvm::Vector3(0, 25, 0));
    KMPrimCylinderNode cylinder;
    cylinder.setParameters({30.0f, 10.0f, 6, 9});
    QMap<float, int> heights;
    for (const KMVertex *vertex : cylinder.mesh()->vertices())
        ++heights[vertex->pos.y];
    QCOMPARE(heights, (QMap<float, int>{{-15.0f, 9}, {-5.0f, 8}, {5.0f, 8}, {15.0f, 9}})); // centres at the rims
    const KMPrimTorusNode torus;
    QCOMPARE(torus.mesh()->faceCount(), 384);
    QCOMPARE(torus.mesh()->position(0), kvm::Vector3(0, 0, 65));
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
    const LogNotes log;
    change();
    QCOMPARE(meshText(*primitive->mesh()), before);
    QCOMPARE(LogNotes::lines.size(), 0);
}

void tst_KMPrimitives::hugeCountsAreRefused()
{
    KMPrimSphereNode sphere;
    KMPrimPlaneNode plane;
    const QString before = meshText(*sphere.mesh());
    const LogNotes log;
    sphere.setParameters({25.0f, billion, billion});
    QCOMPARE(LogNotes::lines.size(), 1);
    plane.setParameters({1.0f, 1.0f, std::numeric_limits<int>::max(), std::numeric_limits<int>::max()});
    QCOMPARE(LogNotes::lines.size(), 2);
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

Q_DECLARE_METATYPE(std::function<void()>)
Q_DECLARE_METATYPE(std::function<KMUndoCommand *()>)
Q_DECLARE_METATYPE(KMPrimitiveNode *)

KM_TEST(tst_KMPrimitives);

#include "tst_KMPrimitives.moc"
