#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMModSymNode.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <limits>
#include <memory>
#include <random>

using kvm::Vector3;
using Parameters = KMModSymNode::Parameters;

namespace {

KMModSymNode *symmetry(const Parameters &parameters)
{
    auto *node = new KMModSymNode;
    node->setParameters(parameters);
    return node;
}

const KMTagNormal *tagOf(const KMMeshNode &mesh)
{
    return static_cast<const KMTagNormal *>(mesh.findTag(KMNodeType::TagNormal));
}

/// A mesh with the modifier as its chain.
struct Mirrored : ModifierStage
{
    explicit Mirrored(KMMeshNode *taken, const Parameters &parameters = {})
        : ModifierStage(taken, symmetry(parameters))
        , node(*static_cast<KMModSymNode *>(modifier))
    {
    }
    void move(int vertex, const Vector3 &to)
    {
        mesh->setPosition(vertex, to);
        mesh->markMoved();
        evaluate();
    }
    /// Where it differs from one that never saw anything else, its creases included, or what is wrong with it.
    QString problem()
    {
        const std::unique_ptr<KMModifierNode> fresh(node.clone());
        fresh->attach(mesh, nullptr);
        fresh->rebuild();
        const KMTagNormal *own = tagOf(result()), *other = tagOf(*fresh->modMesh());
        const bool isSame = !own == !other && (!own || own->creaseEdges() == other->creaseEdges());
        fresh->detach();
        const QString difference = rebuiltProblem();
        return !isSame ? QStringLiteral("creases") : difference.isEmpty() ? checkInvariants(result()) : difference;
    }

    KMModSymNode &node;
};

Parameters parametersOf(int axis, int crossing, float margin = 0.1f)
{
    Parameters parameters;
    parameters.axis = axis;
    parameters.crossing = crossing;
    parameters.margin = margin;
    return parameters;
}

/// Loose points along the x axis, each with a line to the next.
KMMeshNode *pointsAt(const QVector<float> &places)
{
    auto *mesh = new KMMeshNode;
    for (const float x : places)
        mesh->addVertexRaw({x, 1.0f, 2.0f});
    for (int i = 1; i < places.size(); ++i) {
        const int line[2] = {i - 1, i};
        mesh->addFaceRaw(2, line);
    }
    return mesh;
}

} // namespace

class tst_KMModSymNode : public QObject
{
    Q_OBJECT
private slots:
    void seam_data();
    void seam();
    void mirrorsAcrossItsPlace();
    void facesAndAttributes();
    void followsRandomEdits_data();
    void followsRandomEdits();
    void normalsAreMirrored();
    void badInput_data();
    void badInput();
};

void tst_KMModSymNode::seam_data()
{
    QTest::addColumn<int>("axis");
    QTest::addColumn<int>("crossing");
    QTest::addColumn<float>("margin");
    QTest::addColumn<QVector<float>>("places");
    QTest::addColumn<QString>("welded"); // a letter for each place
    const QVector<float> places{5.0f, 0.1f, 0.05f, 0.0f, -0.05f, -0.1f, -5.0f};
    QTest::newRow("one side") << int(KMModSymNode::PlusX) << 0 << 0.1f << places << "..wwwww";
    QTest::newRow("one side, the other one") << int(KMModSymNode::MinusX) << 0 << 0.1f << places << "wwwww..";
    QTest::newRow("both sides") << int(KMModSymNode::PlusX) << 1 << 0.1f << places << "..www..";
    QTest::newRow("never") << int(KMModSymNode::PlusX) << 2 << 0.1f << places << ".......";
    QTest::newRow("no margin, one side") << int(KMModSymNode::PlusX) << 0 << 0.0f << places << "....www";
    QTest::newRow("no margin, both sides") << int(KMModSymNode::PlusX) << 1 << 0.0f << places << ".......";
}

void tst_KMModSymNode::seam()
{
    QFETCH(QVector<float>, places);
    QFETCH(QString, welded);
    QFETCH(int, axis);
    QFETCH(int, crossing);
    QFETCH(float, margin);
    Mirrored mirrored(pointsAt(places), parametersOf(axis, crossing, margin));
    const int half = places.size();
    QCOMPARE(mirrored.result().vertexCount(), 2 * half);
    for (int i = 0; i < half; ++i) {
        const bool isWelded = welded.at(i) == QLatin1Char('w');
        QCOMPARE(mirrored.node.isWelded(i), isWelded);
        QCOMPARE(mirrored.result().position(i).x, isWelded ? 0.0f : places.at(i));
        QCOMPARE(mirrored.result().position(i + half).x, -places.at(i));
        QCOMPARE(mirrored.result().vertex(i + half)->faceRefs.isEmpty(), isWelded);
    }
    QCOMPARE(mirrored.problem(), QString());
}

void tst_KMModSymNode::mirrorsAcrossItsPlace()
{
    Mirrored mirrored(MeshFixtures::torus(6, 5), parametersOf(KMModSymNode::PlusY, KMModSymNode::BothSides));
    KMTransform place;
    place.translation = {3, -1, 2};
    place.rotation = kvm::Quaternion::fromAxisAngle({1, 2, -1}, 0.8f);
    place.scale = {4, 0, -2}; // which a plane knows nothing of
    mirrored.node.setTransform(place);
    mirrored.evaluate();
    const Vector3 normal = place.rotation.rotate({0, 1, 0});
    for (int i = 0; i < 30; ++i) {
        const Vector3 p = mirrored.mesh->position(i);
        const Vector3 image = mirrored.result().position(i + 30);
        QVERIFY(cross(image - p, normal).length() < 1e-4f); // straight across
        QVERIFY(std::fabs(dot((image + p) * 0.5f - place.translation, normal)) < 1e-4f);
    }
    QCOMPARE(mirrored.problem(), QString());
}

void tst_KMModSymNode::facesAndAttributes()
{
    auto *mesh = MeshFixtures::mixedBag();
    mesh->vertex(1)->weight = 2.5f;
    mesh->findEdge(0, 1)->weight = 1.5f;
    mesh->setFaceFlag(0, KMElementFlag::Hidden);
    for (int c = 0; c < 4; ++c)
        mesh->face(0)->uvs[c] = {float(c), 7.0f};
    Mirrored mirrored(mesh, parametersOf(KMModSymNode::PlusX, KMModSymNode::Never));
    KMMeshNode &result = mirrored.result();
    const int half = 9; // one slot is empty
    const KMFace &image = *result.face(mirrored.node.mirrorFaceAt(0));
    const int first[4] = {0, 3, 4, 1};
    for (int c = 0; c < 4; ++c) {
        QCOMPARE(image.indices[c], first[c] + half);
        QCOMPARE(image.uvs[c].x, float((4 - c) % 4));
    }
    QVERIFY(image.hasFlag(KMElementFlag::Hidden));
    const KMFace &line = *result.face(mirrored.node.mirrorFaceAt(3));
    QCOMPARE(line.count, 2);
    QCOMPARE(line.indices[0], mirrored.node.vertexMapAt(8) + half);
    QCOMPARE(line.indices[1], 6 + half);
    QCOMPARE(mirrored.node.mirrorFaceAt(2), -1);
    QCOMPARE(result.face(mirrored.node.mirrorFaceAt(1))->shader, 2);
    QCOMPARE(result.vertex(1 + half)->weight, 2.5f);
    QCOMPARE(result.findEdge(half, half + 1)->weight, 1.5f);

    mesh->setFaceShader(1, 4);
    mesh->findEdge(1, 4)->weight = 0.5f;
    mesh->markDirty(KMMeshDirty::Weights | KMMeshDirty::Shaders);
    mirrored.evaluate();
    QCOMPARE(mirrored.problem(), QString());
    QCOMPARE(result.face(mirrored.node.mirrorFaceAt(1))->shader, 4);
}

void tst_KMModSymNode::followsRandomEdits_data()
{
    QTest::addColumn<int>("crossing");
    QTest::newRow("one side") << int(KMModSymNode::OneSide);
    QTest::newRow("both sides") << int(KMModSymNode::BothSides);
}

/// Vertices go to the seam and leave it, and by the way faces come and go, creases change and the plane moves. Nothing
/// but the welding of vertices takes memory.
void tst_KMModSymNode::followsRandomEdits()
{
    QFETCH(int, crossing);
    auto *mesh = MeshFixtures::torus(8, 6);
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    Mirrored mirrored(mesh, parametersOf(KMModSymNode::MinusX, crossing));
    std::mt19937 random(7);
    const auto pick = [&random](int n) { return int(random() % unsigned(n)); };
    const float distances[] = {-2.0f, -0.09f, 0.0f, 0.09f, 0.5f, 2.0f};
    for (int step = 0; step < 150; ++step) {
        const int vertex = pick(mesh->vertexCount());
        const bool wasWelded = mirrored.node.isWelded(vertex);
        Vector3 p = mesh->position(vertex);
        p.x = distances[pick(6)];
        mesh->setPosition(vertex, p);
        mesh->markMoved();
        if (step % 10 == 3)
            tag->setCrease(vertex, mesh->face(pick(mesh->faceCount()))->indices[0], true);
        if (step % 10 == 5)
            mesh->edges().at(pick(mesh->edgeCount()))->weight = 1.0f;
        if (step % 10 == 3 || step % 10 == 5)
            mesh->markDirty(KMMeshDirty::All);
        if (step % 20 == 9)
            mirrored.node.setTransform({{1, 1, 1}, {}, {float(pick(3)) - 1, 0, 0}});
        mesh->refreshMesh(mesh->dirtyMask());
        const std::size_t allocations = mirrored.updateAllocations();
        QVERIFY(allocations == 0 || wasWelded != mirrored.node.isWelded(vertex) || step % 20 == 9);
        mirrored.evaluate();
        QCOMPARE(mirrored.problem(), QString());
    }
}

/// A crease and two overridden corners, on a mesh whose frame is turned.
void tst_KMModSymNode::normalsAreMirrored()
{
    auto *mesh = MeshFixtures::cube();
    KMTransform frame;
    frame.rotation = kvm::Quaternion::fromAxisAngle({0, 0, 1}, 0.5f);
    mesh->setTransform(frame);
    for (int i = 0; i < 8; ++i)
        mesh->setPosition(i, mesh->position(i) + Vector3(1.0f, 0, 0)); // the left side lies in the plane
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    mesh->refreshMesh(KMMeshDirty::All);
    tag->setCrease(1, 3, true);
    tag->setCrease(0, 1, true);
    KMNormalFace record = tag->faceNormal(0);
    record.setFixed(1, Vector3(3, 2, 1).normalized());
    record.setRotated(2, 0.4f, Vector3(1, 1, 0).normalized());
    tag->setFaceNormal(record);
    Mirrored mirrored(mesh, parametersOf(KMModSymNode::PlusX, KMModSymNode::OneSide));
    KMMeshNode &result = mirrored.result();
    const auto *own = static_cast<KMTagNormal *>(result.findTag(KMNodeType::TagNormal));
    QVERIFY(own);
    QVERIFY(own->isCrease(1, 3) && own->isCrease(0, 1));
    QVERIFY(own->isCrease(9, 11));
    QVERIFY(own->isCrease(0, 9)); // vertex 0 is one for both halves
    const int f = mirrored.node.faceMapAt(0), g = mirrored.node.mirrorFaceAt(0);
    for (int c = 0; c < 4; ++c) {
        const Vector3 there = result.face(f)->normals[c];
        const Vector3 image = result.face(g)->normals[(4 - c) % 4];
        QVERIFY((Vector3(-there.x, there.y, there.z) - image).length() < 1e-5f);
        if (c == 1)
            QVERIFY((there - frame.rotation.rotate(record.rotation[1].vector())).length() < 1e-5f);
    }
    tag->setDeleted(true);
    mesh->tagsChanged();
    mirrored.evaluate();
    QVERIFY(!result.findTag(KMNodeType::TagNormal));
}

void tst_KMModSymNode::badInput_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("nothing") << 0;
    QTest::newRow("null slots") << 1;
    QTest::newRow("no numbers") << 2;
    QTest::newRow("settings out of range") << 3;
    QTest::newRow("no rotation") << 4;
}

void tst_KMModSymNode::badInput()
{
    QFETCH(int, kind);
    constexpr float nan = std::numeric_limits<float>::quiet_NaN();
    Mirrored mirrored(kind == 0 ? new KMMeshNode : kind == 1 ? MeshFixtures::mixedBag() : MeshFixtures::cube());
    if (kind == 2)
        mirrored.move(0, {nan, 0, 0});
    if (kind == 3) {
        mirrored.node.setParameters(parametersOf(-7, 99, nan));
        QVERIFY(mirrored.node.parameters() == parametersOf(0, 2, 0.1f));
    }
    if (kind == 4)
        mirrored.node.setTransform({{1, 1, 1}, {0, 0, 0, 0}, {nan, 0, 0}});
    mirrored.evaluate();
    QCOMPARE(mirrored.problem(), QString());
    for (int i = 0; i < mirrored.result().vertexCount(); ++i) {
        const bool isSpoilt = kind == 2 && (i == 0 || i == 8);
        QCOMPARE(bool(std::isnan(mirrored.result().position(i).lengthSquared())), isSpoilt);
    }
}

KM_TEST(tst_KMModSymNode);

#include "tst_KMModSymNode.moc"
