#include "mesh/KMMeshNode.h"
#include "modifiers/KMModClonerNode.h"
#include "support/MeshProbe.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <limits>

class tst_KMModClonerNode : public QObject
{
    Q_OBJECT
private slots:
    void stepsByFormula();
    void copiesWithoutStepsCoincide_data() { modes(); }
    void copiesWithoutStepsCoincide();
    void line();
    void circle_data();
    void circle();
    void gridCounts_data();
    void gridCounts();
    void grid();
    void spiral();
    void stepsGoInTheFrameOfTheNode_data() { modes(); }
    void stepsGoInTheFrameOfTheNode();
    void mirroredCopiesFaceOutward();
    void attributesCarryOver();
    void oddSettings();
    void refusesWhatMemoryCannotHold();

private:
    static void modes();
};

namespace {

using kvm::Vector3;
using Cloner = KMModClonerNode;
using Parameters = Cloner::Parameters;

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

Cloner *cloner(const Parameters &parameters)
{
    auto *node = new Cloner;
    node->setParameters(parameters);
    return node;
}

Cloner &clonerOf(ModifierStage &stage)
{
    return *static_cast<Cloner *>(stage.modifier);
}

Vector3 vertexOf(ModifierStage &stage, int copy, int i)
{
    return stage.result().position(clonerOf(stage).copySize() * copy + clonerOf(stage).vertexMapAt(i));
}

/// A cube about a place.
KMMeshNode *cubeAt(const Vector3 &place)
{
    KMMeshNode *mesh = MeshFixtures::cube();
    for (KMVertex *vertex : mesh->vertices())
        vertex->pos += place;
    return mesh;
}

Vector3 centerOf(ModifierStage &stage, int copy)
{
    Vector3 sum;
    for (int i = 0; i < 8; ++i)
        sum += vertexOf(stage, copy, i);
    return sum / 8.0f;
}

bool isNear(const Vector3 &a, const Vector3 &b)
{
    return (a - b).length() < 2e-3f;
}

} // namespace

void tst_KMModClonerNode::modes()
{
    QTest::addColumn<int>("mode");
    for (int mode = 0; mode < Cloner::ModeCount; ++mode)
        QTest::addRow("%s", qPrintable(Cloner::modeNames().at(mode))) << mode;
}

/// Scaled, turned about x, then y, then z, then moved: by rotation matrices written out.
void tst_KMModClonerNode::stepsByFormula()
{
    Parameters p{5, {3, -2, 7}, {1, 0.5f, 2}, {20, -50, 110}};
    ModifierStage stage(cubeAt({4, 5, 6}), cloner(p));
    for (int k = 0; k < p.count; ++k) {
        const double x = k * 20 * M_PI / 180, y = k * -50 * M_PI / 180, z = k * 110 * M_PI / 180;
        for (int i = 0; i < 8; ++i) {
            const Vector3 from = stage.mesh->position(i);
            double v[3] = {double(from.x), 0.5 * double(from.y), 2 * double(from.z)};
            const double aboutX[3] = {v[0], v[1] * std::cos(x) - v[2] * std::sin(x),
                                      v[1] * std::sin(x) + v[2] * std::cos(x)};
            const double aboutY[3] = {aboutX[0] * std::cos(y) + aboutX[2] * std::sin(y), aboutX[1],
                                      aboutX[2] * std::cos(y) - aboutX[0] * std::sin(y)};
            const Vector3 expected(float(aboutY[0] * std::cos(z) - aboutY[1] * std::sin(z) + k * 3),
                                   float(aboutY[0] * std::sin(z) + aboutY[1] * std::cos(z) - k * 2),
                                   float(aboutY[2] + k * 7));
            QVERIFY(isNear(vertexOf(stage, k, i), expected));
        }
    }
}

void tst_KMModClonerNode::copiesWithoutStepsCoincide()
{
    QFETCH(int, mode);
    ModifierStage stage(cubeAt({4, 5, 6}), cloner({4, {}, {1, 1, 1}, {}, mode}));
    for (int k = 0; k < 4; ++k) {
        for (int i = 0; i < 8; ++i)
            QCOMPARE(vertexOf(stage, k, i), stage.mesh->position(i));
    }
}

void tst_KMModClonerNode::line()
{
    ModifierStage stage(cubeAt({4, 5, 6}), cloner({5, {8, 0, -4}, {1, 1, 1}, {0, 90, 0}, Cloner::Line}));
    for (int k = 0; k < 5; ++k) {
        QVERIFY(isNear(centerOf(stage, k), Vector3(4, 5, 6) + Vector3(2, 0, -1) * float(k)));
        // A quarter turn about y takes x to -z: corner 1 comes where corner 0 was, or 5.
        const Vector3 spoke = vertexOf(stage, k, 1) - centerOf(stage, k);
        QVERIFY(isNear(spoke, k % 4 == 0   ? Vector3(1, -1, -1)
                              : k % 4 == 1 ? Vector3(-1, -1, -1)
                              : k % 4 == 2 ? Vector3(-1, -1, 1)
                                           : Vector3(1, -1, 1)));
    }
}

void tst_KMModClonerNode::circle_data()
{
    QTest::addColumn<Vector3>("axis");
    QTest::newRow("about y") << Vector3(0, 30, 0);
    QTest::newRow("about y where nothing is said") << Vector3();
    QTest::newRow("about x") << Vector3(5, 0, 0);
}

void tst_KMModClonerNode::circle()
{
    QFETCH(Vector3, axis);
    constexpr int count = 6;
    ModifierStage stage(cubeAt({}), cloner({count, {0, 0, 50}, {1, 1, 1}, axis, Cloner::Circle}));
    const Vector3 middle(0, 0, 50);
    for (int k = 0; k < count; ++k) {
        const Vector3 spoke = centerOf(stage, k) - middle;
        QVERIFY(std::abs(spoke.length() - 50.0f) < 1e-2f);
        QVERIFY(std::abs(dot(spoke, axis)) < 1e-2f);
        QVERIFY(isNear(centerOf(stage, (k + 1) % count) - middle + (centerOf(stage, (k + 5) % count) - middle), spoke));
    }
    QVERIFY(isNear(centerOf(stage, 0), {}));
}

void tst_KMModClonerNode::gridCounts_data()
{
    QTest::addColumn<int>("count");
    QTest::addColumn<Vector3>("move");
    QTest::addColumn<QVector<int>>("cells");
    QTest::newRow("no step") << 7 << Vector3() << QVector<int>{1, 1, 1};
    QTest::newRow("row") << 7 << Vector3(0, 0, 1) << QVector<int>{1, 1, 7};
    QTest::newRow("square") << 9 << Vector3(1, 0, -1) << QVector<int>{3, 1, 3};
    QTest::newRow("part of a rectangle") << 10 << Vector3(1, 1, 0) << QVector<int>{4, 3, 1};
    QTest::newRow("cube") << 27 << Vector3(1, 1, 1) << QVector<int>{3, 3, 3};
    QTest::newRow("part of a block") << 28 << Vector3(1, 1, 1) << QVector<int>{4, 3, 3};
    QTest::newRow("large") << 1000000 << Vector3(1, 1, 1) << QVector<int>{100, 100, 100};
    QTest::newRow("largest") << std::numeric_limits<int>::max() << Vector3(1, 1, 1) << QVector<int>{1291, 1290, 1290};
}

void tst_KMModClonerNode::gridCounts()
{
    QFETCH(int, count);
    QFETCH(Vector3, move);
    QFETCH(QVector<int>, cells);
    const Cloner::GridCounts found = Cloner::gridCounts(count, move);
    QCOMPARE((QVector<int>{found.x, found.y, found.z}), cells);
}

void tst_KMModClonerNode::grid()
{
    constexpr int count = 8;
    ModifierStage stage(cubeAt({1, 2, 3}), cloner({count, {10, 20, 30}, {1, 1, 1}, {}, Cloner::Grid}));
    for (int k = 0; k < count; ++k)
        QVERIFY(
            isNear(centerOf(stage, k), Vector3(1, 2, 3) + Vector3(10.0f * (k & 1), 10.0f * (k & 2), 7.5f * (k & 4))));
}

void tst_KMModClonerNode::spiral()
{
    constexpr int count = 30;
    ModifierStage stage(cubeAt({}), cloner({count, {0, 12, 60}, {1, 1, 1}, {0, 30, 0}, Cloner::Spiral}));
    for (int k = 0; k < count; ++k) {
        const float turns = float(k) / 12.0f;
        const double angle = turns * 2 * M_PI;
        QVERIFY(isNear(centerOf(stage, k),
                       {60 * turns * float(std::sin(angle)), 12 * turns, 60 * turns * float(std::cos(angle))}));
    }
}

/// Carried along with its input, the modifier makes what it made, carried along.
void tst_KMModClonerNode::stepsGoInTheFrameOfTheNode()
{
    QFETCH(int, mode);
    const Parameters parameters{7, {10, 4, 20}, {1, 1, 1}, {10, 30, 0}, mode};
    KMTransform place;
    place.rotation = kvm::Quaternion::fromEuler(0.4f, 1.2f, -0.7f);
    place.translation = {5, -6, 7};

    // A single vertex is its own middle; a box doesn't turn with what is in it.
    ModifierStage plain(wire({{1, 2, 3}}, {}), cloner(parameters));
    ModifierStage carried(wire({place.rotation.rotate({1, 2, 3}) + place.translation}, {}), cloner(parameters));
    carried.modifier->setTransform(place);
    carried.evaluate();
    for (int k = 0; k < parameters.count; ++k)
        QVERIFY(isNear(vertexOf(carried, k, 0), place.rotation.rotate(vertexOf(plain, k, 0)) + place.translation));
}

void tst_KMModClonerNode::mirroredCopiesFaceOutward()
{
    for (const Vector3 &scale : {Vector3(-1, 1, 1), Vector3(-1, 2, -1), Vector3(-1, -1, -3)}) {
        ModifierStage stage(cubeAt({}), cloner({2, {9, 0, 0}, scale, {0, 30, 0}}));
        const MeshProbe probe(stage.result());
        QVERIFY(probe.isClosed() && probe.volume > 0.0);
    }
}

void tst_KMModClonerNode::attributesCarryOver()
{
    ModifierStage stage(MeshFixtures::grid(2, 1), cloner({3}));
    stage.mesh->setFaceShader(0, 2);
    stage.mesh->markDirty(KMMeshDirty::Shaders);
    stage.evaluate();
    stage.mesh->setFaceFlag(1, KMElementFlag::Hidden);
    stage.mesh->setFaceFlag(1, KMElementFlag::Selected);
    stage.evaluate();
    stage.mesh->findEdge(1, 4)->weight = 3.0f;
    stage.mesh->vertex(0)->weight = 2.0f;
    stage.mesh->markDirty(KMMeshDirty::Weights);
    stage.evaluate();
    for (int k = 0; k < 3; ++k) {
        QCOMPARE(stage.result().faceShader(2 * k), 2);
        QCOMPARE(int(stage.result().face(2 * k + 1)->flags), KMElementFlag::Hidden | KMElementFlag::Selected);
        QCOMPARE(stage.result().findEdge(6 * k + 1, 6 * k + 4)->weight, 3.0f);
        QCOMPARE(stage.result().vertex(6 * k)->weight, 2.0f);
    }
}

void tst_KMModClonerNode::oddSettings()
{
    const float inf = std::numeric_limits<float>::infinity();
    ModifierStage stage(cubeAt({}), cloner({-3, {noNumber, 1, 2}, {inf, 0, 0}, {3e38f, 0, noNumber}, 99}));
    QCOMPARE(clonerOf(stage).parameters().count, 1);
    QCOMPARE(clonerOf(stage).parameters().mode, int(Cloner::ModeCount) - 1);
    clonerOf(stage).setParameters({5, {3e38f, 1, 2}, {0, 0, 0}, {3e38f, 0, 1}, Cloner::Spiral});
    KMTransform nowhere;
    nowhere.translation = {noNumber, 1, inf};
    nowhere.rotation = {0, noNumber, 0, 0};
    stage.modifier->setTransform(nowhere);
    stage.mesh->setPosition(3, {noNumber, 0, 0});
    stage.evaluate();
    int spoilt = 0;
    for (const KMVertex *vertex : stage.result().vertices())
        spoilt += std::isnan(vertex->pos.x + vertex->pos.y + vertex->pos.z);
    QCOMPARE(spoilt, 5); // the one that is no number, in each copy

    ModifierStage empty(new KMMeshNode, cloner({std::numeric_limits<int>::max()}));
    QCOMPARE(empty.result().vertexCount(), 0);
}

void tst_KMModClonerNode::refusesWhatMemoryCannotHold()
{
    const LogNotes notes;
    ModifierStage stage(cubeAt({}), cloner({std::numeric_limits<int>::max()}));
    QCOMPARE(stage.result().vertexCount(), 0);
    QVERIFY(LogNotes::lines.value(0).startsWith(QStringLiteral("Cloner would make")));
    clonerOf(stage).setParameters({2});
    stage.evaluate();
    QCOMPARE(stage.result().vertexCount(), 16);
}

KM_TEST(tst_KMModClonerNode);
#include "tst_KMModClonerNode.moc"
