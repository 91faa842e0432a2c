#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSolidNode.h"
#include "support/MeshProbe.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <limits>

using Make = KMMeshNode *(*)();
Q_DECLARE_METATYPE(Make)

class tst_KMModSolidNode : public QObject
{
    Q_OBJECT
private slots:
    void counts_data();
    void counts();
    void enclosesASlab_data();
    void enclosesASlab();
    void roughSheetsAreTight_data();
    void roughSheetsAreTight();
    void offsetAlongTheMeanNormal();
    void wallsTakeThePictureOfTheirSide();
    void faceAttributesCarryOver();
    void placesThatAreNoNumbers();
};

namespace {

using kvm::Vector3;
using Solid = KMModSolidNode;

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

Solid *solid(float thickness)
{
    auto *node = new Solid;
    node->setParameters({thickness, 0});
    return node;
}

const Solid &solidOf(const ModifierStage &stage)
{
    return *static_cast<const Solid *>(stage.modifier);
}

/// A grid with hills, and holes where some of its faces were.
KMMeshNode *roughSheet(quint32 seed)
{
    std::mt19937 random(seed);
    KMMeshNode *mesh = MeshFixtures::grid(6, 5);
    for (KMVertex *vertex : mesh->vertices())
        vertex->pos.y = float(random() % 100) / 100.0f;
    for (int f = 0; f < mesh->faceCount(); ++f) {
        mesh->setFaceUVs(
            f, std::array<kvm::Vector2, 4>{{{float(f), 0}, {float(f), 1}, {float(f), 2}, {float(f), 3}}}.data());
        if (random() % 6 == 0) {
            mesh->removeFaceRefs(f);
            mesh->setFace(f, nullptr);
        }
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

} // namespace

void tst_KMModSolidNode::counts_data()
{
    QTest::addColumn<Make>("make");
    QTest::addColumn<int>("vertices");
    QTest::addColumn<int>("faces");

    const auto quad = []() { return MeshFixtures::grid(1, 1); };
    const auto cone = []() { return MeshFixtures::openCone(); };
    QTest::newRow("nothing") << Make([]() { return new KMMeshNode; }) << 0 << 0;
    QTest::newRow("line") << Make([]() { return polyline({{0, 0, 0}, {1, 0, 0}}); }) << 2 << 0;
    QTest::newRow("quad") << Make(quad) << 8 << 6;
    QTest::newRow("cube has no walls") << Make(&MeshFixtures::cube) << 16 << 12;
    QTest::newRow("cone") << Make(cone) << 14 << 18;
    QTest::newRow("sheet with a hole") << Make(&MeshFixtures::quadWithHole) << 32 << 32;
    QTest::newRow("five at an edge") << Make([]() { return MeshFixtures::nonManifoldFan(); }) << 24 << 25;
    QTest::newRow("loose vertices, a line, empty slots") << Make(&MeshFixtures::mixedBag) << 15 << 12;
}

void tst_KMModSolidNode::counts()
{
    QFETCH(Make, make);
    QFETCH(int, vertices);
    QFETCH(int, faces);
    ModifierStage stage(make(), solid(-5.0f));
    QCOMPARE(stage.result().vertexCount(), vertices);
    QCOMPARE(stage.result().faceCount(), faces);
    QCOMPARE(checkInvariants(stage.result()), QString());
}

void tst_KMModSolidNode::enclosesASlab_data()
{
    QTest::addColumn<float>("thickness");
    QTest::newRow("behind") << -5.0f;
    QTest::newRow("in front") << 0.5f;
}

/// The grid looks up.
void tst_KMModSolidNode::enclosesASlab()
{
    QFETCH(float, thickness);
    ModifierStage stage(MeshFixtures::grid(3, 2), solid(thickness));
    const MeshProbe probe(stage.result());
    QVERIFY(probe.isClosed());
    QVERIFY(std::abs(probe.volume - 6.0 * double(std::abs(thickness))) < 1e-4);
    for (const KMSolidVertex &record : solidOf(stage).vertexRecords()) {
        QCOMPARE(stage.result().position(record.first).y, 0.0f);
        QCOMPARE(stage.result().position(record.offset).y, thickness);
    }
}

void tst_KMModSolidNode::roughSheetsAreTight_data()
{
    QTest::addColumn<float>("thickness");
    for (const double thickness : {-0.3, -0.05, 0.05, 0.3})
        QTest::addRow("%g", thickness) << float(thickness);
}

void tst_KMModSolidNode::roughSheetsAreTight()
{
    QFETCH(float, thickness);
    for (quint32 seed = 1; seed <= 8; ++seed) {
        ModifierStage stage(roughSheet(seed), solid(thickness));
        const MeshProbe probe(stage.result());
        QVERIFY2(probe.isClosed() && probe.volume > 0.0, qPrintable(QString::number(seed)));
        QCOMPARE(stage.rebuiltProblem(), QString());
        stage.modifier->update();
        QCOMPARE(stage.rebuiltProblem(), QString());
    }
}

void tst_KMModSolidNode::offsetAlongTheMeanNormal()
{
    for (const float thickness : {-2.0f, 0.0f, 2.0f}) {
        ModifierStage stage(MeshFixtures::cube(), solid(thickness));
        for (const KMSolidVertex &record : solidOf(stage).vertexRecords()) {
            const Vector3 corner = stage.result().position(record.first); // of a cube from -1 to 1
            const Vector3 expected = corner + corner * (thickness / std::sqrt(3.0f));
            QVERIFY((stage.result().position(record.offset) - expected).length() < 1e-5f);
        }
    }
}

/// Whatever face a vertex stands in, its UV there is that of the input's face and vertex.
void tst_KMModSolidNode::wallsTakeThePictureOfTheirSide()
{
    for (const float thickness : {-1.0f, 1.0f}) {
        ModifierStage stage(roughSheet(5), solid(thickness));
        const Solid &node = solidOf(stage);
        int walls = 0;
        for (const KMFace *face : stage.result().faces()) {
            const KMFace *from = stage.mesh->face(int(face->uvs[0].x));
            QVERIFY(from);
            int offsets = 0;
            for (int c = 0; c < face->count; ++c) {
                const KMSolidVertex *offset = node.vertexByOffset(face->indices[c]);
                offsets += offset != nullptr;
                int vertex = -1;
                for (int i = 0; i < node.vertexRecords().size() && vertex < 0; ++i) {
                    const KMSolidVertex &record = node.vertexRecords().at(i);
                    if (record.first == face->indices[c] || &record == offset)
                        vertex = i;
                }
                QCOMPARE(face->uvs[c].x, face->uvs[0].x);
                QCOMPARE(int(face->uvs[c].y), from->cornerOf(vertex));
            }
            walls += offsets == 2;
        }
        QVERIFY(walls > 20);
    }
}

void tst_KMModSolidNode::faceAttributesCarryOver()
{
    ModifierStage stage(MeshFixtures::grid(2, 1), solid(-1.0f));
    stage.mesh->setFaceShader(0, 2);
    stage.mesh->markDirty(KMMeshDirty::Shaders);
    stage.evaluate();
    stage.mesh->setFaceFlag(1, KMElementFlag::Hidden);
    stage.mesh->setFaceFlag(1, KMElementFlag::Selected);
    stage.evaluate();
    stage.mesh->findEdge(1, 4)->weight = 3.0f;
    stage.mesh->markDirty(KMMeshDirty::Weights);
    stage.evaluate();
    int ofShader = 0, marked = 0, heavy = 0;
    for (const KMFace *face : stage.result().faces()) {
        ofShader += face->shader == 2;
        marked += face->flags == (KMElementFlag::Hidden | KMElementFlag::Selected);
    }
    for (const KMEdge *edge : stage.result().edges())
        heavy += edge->weight == 3.0f;
    QCOMPARE(ofShader, 5); // both sides, three walls
    QCOMPARE(marked, 5);
    QCOMPARE(heavy, 2);
}

/// They spoil themselves and nothing else.
void tst_KMModSolidNode::placesThatAreNoNumbers()
{
    KMMeshNode *mesh = MeshFixtures::grid(3, 3);
    mesh->setPosition(5, {0.0f, noNumber, 1.0f});
    ModifierStage stage(mesh, solid(noNumber));
    QCOMPARE(solidOf(stage).parameters().thickness, 0.0f);
    static_cast<Solid *>(stage.modifier)->setParameters({-1.0f, 0});
    stage.evaluate();
    int spoilt = 0;
    for (const KMVertex *vertex : stage.result().vertices())
        spoilt += !std::isfinite(vertex->pos.lengthSquared());
    QCOMPARE(spoilt, 2);
}

KM_TEST(tst_KMModSolidNode);
#include "tst_KMModSolidNode.moc"
