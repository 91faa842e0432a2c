#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMVariantNode.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMFitFFD.h"
#include "modifiers/KMModFFDNode.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <limits>
#include <memory>

using kvm::Vector3;
using Parameters = KMModFFDNode::Parameters;

namespace {

constexpr float noNumber = std::numeric_limits<float>::quiet_NaN();

Parameters parametersOf(const Vector3 &size, const std::array<int, 3> &counts, float power = 1.0f)
{
    Parameters parameters;
    parameters.size = size;
    parameters.nodeCounts = counts;
    parameters.power = power;
    return parameters;
}

KMModFFDNode *lattice(const Parameters &parameters, const KMTransform &transform = {})
{
    auto *node = new KMModFFDNode;
    node->setTransform(transform);
    node->setParameters(parameters);
    return node;
}

struct Bent : ModifierStage
{
    explicit Bent(KMMeshNode *taken, const Parameters &parameters = {}, const KMTransform &transform = {})
        : ModifierStage(taken, lattice(parameters, transform))
        , node(*static_cast<KMModFFDNode *>(modifier))
    {
    }
    /// The control points, each moved a little.
    void shake(quint32 seed, float most)
    {
        std::mt19937 random(seed);
        std::uniform_real_distribution<float> number(-most, most);
        QVector<Vector3> points = node.controlPoints();
        for (Vector3 &point : points)
            point += Vector3(number(random), number(random), number(random));
        node.setControlPoints(points);
        evaluate();
    }
    float farthestFromInput()
    {
        float farthest = 0.0f;
        for (int i = 0; i < mesh->vertexCount(); ++i)
            farthest = qMax(farthest, (mesh->position(i) - result().position(i)).length());
        return farthest;
    }

    KMModFFDNode &node;
};

/// A polynomial of a row of values by repeated means of neighbours, which needs no binomials.
double between(QVector<double> values, double t)
{
    for (int left = values.size() - 1; left > 0; --left) {
        for (int i = 0; i < left; ++i)
            values[i] = (1.0 - t) * values.at(i) + t * values.at(i + 1);
    }
    return values.first();
}

/// Where a point goes that is at (s, t, u) of the box, in double precision.
Vector3 expected(const QVector<Vector3> &points, const std::array<int, 3> &counts, const double (&place)[3])
{
    Vector3 sum;
    for (int c = 0; c < 3; ++c) {
        QVector<double> layers, rows, values;
        for (int i = 0, next = 0; i < counts[0]; ++i) {
            for (int j = 0; j < counts[1]; ++j) {
                for (int k = 0; k < counts[2]; ++k)
                    values << double(points.at(next++)[c]);
                rows << between(values, place[2]);
                values.clear();
            }
            layers << between(rows, place[1]);
            rows.clear();
        }
        sum[c] = float(between(layers, place[0]));
    }
    return sum;
}

KMTransform somewhere()
{
    KMTransform transform;
    transform.translation = {3, -2, 1};
    transform.rotation = kvm::Quaternion::fromAxisAngle({1, -1, 2}, 1.1f);
    transform.scale = {1.5f, 0.75f, 2.0f};
    return transform;
}

/// A document of one mesh with a lattice below it.
struct LatticeScene : MeshScene
{
    explicit LatticeScene(KMMeshNode *taken)
        : MeshScene(taken)
        , node(new KMModFFDNode)
    {
        gProject->addToScene(node);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, node, KMRowFocus::Keep));
        gProject->checkModifiers();
    }
    /// The document, the lattice and the result.
    QString text()
    {
        return dump.text() + meshText(*node->latticeMesh()) + meshText(*node->modMesh())
               + QString::number(double(node->parameters().power));
    }
    QUndoStack &stack() { return session.stack(); }

    KMModFFDNode *node;
};

} // namespace

class tst_KMModFFDNode : public QObject
{
    Q_OBJECT
private slots:
    void sum_data();
    void sum();
    void leavesAlone_data();
    void leavesAlone();
    void bendsItsBorders();
    void power();
    void normalTag();
    void pointsGoAlong();
    void historyIsExact();
    void settings_data();
    void settings();
    void fits_data();
    void fits();
};

void tst_KMModFFDNode::sum_data()
{
    QTest::addColumn<QVector<int>>("counts");
    QTest::addColumn<bool>("placed");
    QTest::newRow("trilinear") << QVector<int>{2, 2, 2} << false;
    QTest::newRow("usual") << QVector<int>{3, 3, 3} << false;
    QTest::newRow("placed") << QVector<int>{3, 3, 3} << true;
    QTest::newRow("uneven") << QVector<int>{2, 5, 4} << true;
    QTest::newRow("high degree") << QVector<int>{100, 2, 3} << false;
}

void tst_KMModFFDNode::sum()
{
    QFETCH(QVector<int>, counts);
    QFETCH(bool, placed);
    const std::array<int, 3> nodeCounts{{counts.at(0), counts.at(1), counts.at(2)}};
    const KMTransform place = placed ? somewhere() : KMTransform();
    const Vector3 size(8, 6, 4);
    auto *mesh = new KMMeshNode;
    std::mt19937 random(3);
    std::uniform_real_distribution<double> share(0.0, 1.0);
    QVector<std::array<double, 3>> places;
    for (int i = 0; i < 60; ++i) {
        const std::array<double, 3> at{{share(random), share(random), share(random)}};
        places << at;
        const Vector3 inBox((float(at[0]) - 0.5f) * size.x, (float(at[1]) - 0.5f) * size.y,
                            (float(at[2]) - 0.5f) * size.z);
        mesh->addVertexRaw(KMFFDBox::toWorld(place, inBox));
    }
    Bent bent(mesh, parametersOf(size, nodeCounts), place);
    QCOMPARE(bent.node.controlPoints().size(), counts.at(0) * counts.at(1) * counts.at(2));
    QVERIFY(bent.farthestFromInput() < 1e-5f); // nobody touched it
    bent.shake(1, 2.0f);
    QVERIFY(bent.farthestFromInput() > 0.1f);
    const QVector<Vector3> points = bent.node.controlPoints();
    for (int i = 0; i < places.size(); ++i) {
        const double at[3] = {places.at(i)[0], places.at(i)[1], places.at(i)[2]};
        QVERIFY((bent.result().position(i) - expected(points, nodeCounts, at)).length() < 2e-5f);
    }
    QCOMPARE(bent.updateAllocations(), std::size_t(0));
}

void tst_KMModFFDNode::leavesAlone_data()
{
    QTest::addColumn<Vector3>("at");
    QTest::addColumn<Vector3>("scale");
    QTest::addColumn<bool>("inside");
    const Vector3 one(1, 1, 1);
    QTest::newRow("middle") << Vector3() << one << true;
    QTest::newRow("a hair outside") << Vector3(2.00005f, 0, 0) << one << true;
    QTest::newRow("outside x") << Vector3(2.001f, 0, 0) << one << false;
    QTest::newRow("outside y") << Vector3(0, -2.001f, 0) << one << false;
    QTest::newRow("outside z") << Vector3(0, 0, 2.001f) << one << false;
    QTest::newRow("turned inside out") << Vector3(1.9f, 1, 1) << Vector3(-1, 1, 1) << true;
    QTest::newRow("turned inside out, outside") << Vector3(2.1f, 1, 1) << Vector3(-1, -1, -1) << false;
    QTest::newRow("no number") << Vector3(noNumber, 0, 0) << one << false;
    QTest::newRow("beyond a flat box") << Vector3(0, 0.1f, 0) << Vector3(1, 0, 1) << false;
    QTest::newRow("in a flat box") << Vector3(1, 0, 1) << Vector3(1, 0, 1) << true;
}

/// All control points go up by a third of a unit, and with them what is inside.
void tst_KMModFFDNode::leavesAlone()
{
    QFETCH(Vector3, at);
    QFETCH(Vector3, scale);
    QFETCH(bool, inside);
    auto *mesh = MeshFixtures::cube();
    mesh->setPosition(0, at);
    KMTransform transform;
    transform.scale = scale;
    Bent bent(mesh, parametersOf({4, 4, 4}, {{3, 3, 3}}), transform);
    const float unmoved = bent.result().position(0).y;
    QVERIFY(std::isnan(at.x) || (bent.result().position(0) - at).length() < 1e-5f);
    QVector<Vector3> points = bent.node.controlPoints();
    for (Vector3 &point : points)
        point.y += 0.333f;
    bent.node.setControlPoints(points);
    bent.evaluate();
    QVERIFY(std::fabs(bent.result().position(0).y - unmoved - (inside ? 0.333f : 0.0f)) < 1e-5f);
    QVERIFY(!std::isnan(bent.result().position(5).lengthSquared()));
}

/// What lies on the sides of the box belongs to it, far from the origin too.
void tst_KMModFFDNode::bendsItsBorders()
{
    KMTransform far = somewhere();
    far.translation = {712.3f, -498.1f, 853.7f};
    auto *mesh = new KMMeshNode;
    std::mt19937 random(7);
    std::uniform_real_distribution<float> number(-1.0f, 1.0f);
    for (int i = 0; i < 300; ++i) {
        Vector3 place(number(random), number(random), number(random));
        place[i % 3] = i % 2 ? 1.0f : -1.0f;
        mesh->addVertexRaw(KMFFDBox::toWorld(far, place));
    }
    Bent bent(mesh, parametersOf({2, 2, 2}, {{3, 3, 3}}), far);
    QVector<Vector3> points = bent.node.controlPoints();
    for (Vector3 &point : points)
        point.y += 10.0f;
    bent.node.setControlPoints(points);
    bent.evaluate();
    for (int i = 0; i < mesh->vertexCount(); ++i)
        QVERIFY2((bent.result().position(i) - mesh->position(i)).length() > 9.0f, qPrintable(QString::number(i)));
}

void tst_KMModFFDNode::power()
{
    Bent bent(MeshFixtures::cube(), parametersOf({4, 4, 4}, {{3, 3, 3}}));
    bent.shake(2, 1.0f);
    const QVector<Vector3> points = bent.node.controlPoints();
    QVector<Vector3> way;
    for (int i = 0; i < 8; ++i)
        way << bent.result().position(i) - bent.mesh->position(i);
    for (const float power : {0.0f, 2.0f, -0.5f, noNumber}) {
        bent.node.power()->setFloat(power); // as the schematic does
        bent.evaluate();
        const float used = std::isnan(power) ? 1.0f : power;
        for (int i = 0; i < 8; ++i) {
            const Vector3 moved = bent.result().position(i) - bent.mesh->position(i);
            QVERIFY((moved - way.at(i) * used).length() < 1e-5f);
            QVERIFY(used != 0.0f || moved == Vector3());
        }
    }
    QCOMPARE(bent.node.controlPoints(), points);
}

void tst_KMModFFDNode::normalTag()
{
    auto *mesh = MeshFixtures::mixedBag();
    auto *tag = new KMTagNormal;
    mesh->addTag(tag);
    mesh->refreshMesh(KMMeshDirty::All);
    tag->setCrease(1, 4, true);
    KMNormalFace record = tag->faceNormal(1);
    record.setFixed(2, {0, 0, 1});
    tag->setFaceNormal(record);
    Bent bent(mesh);
    QVERIFY(bent.result().findTag(KMNodeType::TagNormal));
    QVERIFY(static_cast<KMTagNormal *>(bent.result().findTag(KMNodeType::TagNormal))->isCrease(1, 4));
    QCOMPARE(bent.result().face(bent.node.faceMapAt(1))->normals[2], Vector3(0, 0, 1));
    record.setFixed(2, {0, 1, 0});
    tag->setFaceNormal(record);
    mesh->markDirty(KMMeshDirty::Positions | KMMeshDirty::VertexFlags); // as the command does
    bent.evaluate();
    QCOMPARE(bent.result().face(bent.node.faceMapAt(1))->normals[2], Vector3(0, 1, 0));
}

/// Moving the box to and fro, a hundred times over, leaves no trace; nor does it bend what an untouched one didn't.
void tst_KMModFFDNode::pointsGoAlong()
{
    Bent bent(MeshFixtures::torus(8, 6), parametersOf({10, 4, 10}, {{3, 3, 3}}), somewhere());
    QVERIFY(bent.farthestFromInput() < 1e-5f);
    bent.shake(4, 1.0f);
    const QVector<Vector3> points = bent.node.controlPoints();
    const KMTransform start = bent.node.transform();
    std::mt19937 random(1);
    for (int i = 0; i < 100; ++i) {
        KMTransform next = start;
        next.translation.x = float(random() % 1000) / 7.0f;
        next.rotation = kvm::Quaternion::fromEuler(float(i), float(random() % 7), 0.3f);
        next.scale.z = i == 50 ? 0.0f : float(random() % 5);
        bent.node.setTransform(next);
        const QVector<Vector3> carried = bent.node.controlPoints();
        for (int p = 0; p < points.size(); ++p) {
            const Vector3 local = KMFFDBox::toLocal(start, points.at(p));
            QVERIFY((carried.at(p) - KMFFDBox::toWorld(next, local)).length() < 1e-3f);
        }
    }
    bent.node.setTransform(start);
    QCOMPARE(bent.node.controlPoints(), points);
}

/// Edits of the points, the place and the settings, in all orders: back and forth everything is the same bit for bit.
void tst_KMModFFDNode::historyIsExact()
{
    LatticeScene scene(MeshFixtures::torus(8, 6));
    std::mt19937 random(5);
    const auto number = [&random] { return float(int(random() % 2001) - 1000) / 300.0f; };
    QStringList texts{scene.text()};
    const int first = scene.stack().count();
    for (int step = 0; step < 60; ++step) {
        KMMeshNode *points = scene.node->latticeMesh();
        switch (random() % 4) {
        case 0:
            KMMeshEdit::moveVertex(*points, int(random() % unsigned(points->vertexCount())),
                                   {number(), number(), number()});
            break;
        case 1: {
            KMTransform transform = scene.node->transform();
            transform.translation = {number(), number(), number()};
            transform.rotation = kvm::Quaternion::fromEuler(number(), number(), number());
            transform.scale = {number(), step % 5 ? number() : 0.0f, number()};
            gSolution->push(new editSRTCommand(scene.node, transform));
            break;
        }
        case 2:
            KMMeshEdit::selectVertex(*points, int(random() % unsigned(points->vertexCount())), true);
            break;
        default: {
            Parameters parameters = scene.node->parameters();
            parameters.nodeCounts[random() % 3] = 2 + int(random() % 3);
            parameters.size.y = random() % 2 ? 50.0f : 8.0f;
            parameters.power = number();
            gSolution->push(new editModFFDCommand(scene.node, parameters));
        }
        }
        if (scene.stack().count() > first + texts.size() - 1)
            texts << scene.text();
    }
    QVERIFY(texts.size() > 40);
    for (const int direction : {-1, 1}) {
        for (int i = 1; i < texts.size(); ++i) {
            const int at = direction < 0 ? texts.size() - 1 - i : i;
            scene.stack().setIndex(first + at);
            QCOMPARE(scene.text(), texts.at(at));
        }
    }
}

void tst_KMModFFDNode::settings_data()
{
    QTest::addColumn<Vector3>("size");
    QTest::addColumn<QVector<int>>("counts");
    QTest::addColumn<Vector3>("takenSize");
    QTest::addColumn<QVector<int>>("takenCounts");
    const Vector3 size(4, 5, 6);
    QTest::newRow("too few points") << size << QVector<int>{1, 0, -7} << size << QVector<int>{2, 2, 2};
    QTest::newRow("too many in a row") << size << QVector<int>{100000, 2, 2} << size << QVector<int>{128, 2, 2};
    QTest::newRow("too many at all") << size << QVector<int>{128, 128, 128} << size << QVector<int>{3, 3, 3};
    QTest::newRow("sizes") << Vector3(noNumber, -4, 1e30f) << QVector<int>{3, 3, 3} << Vector3(50, 0, 1e9f)
                           << QVector<int>{3, 3, 3};
    QTest::newRow("flat") << Vector3(0, 0, 0) << QVector<int>{3, 3, 3} << Vector3() << QVector<int>{3, 3, 3};
}

void tst_KMModFFDNode::settings()
{
    QFETCH(Vector3, size);
    QFETCH(QVector<int>, counts);
    QFETCH(Vector3, takenSize);
    QFETCH(QVector<int>, takenCounts);
    const LogNotes notes;
    Bent bent(MeshFixtures::cube());
    bent.node.setParameters(parametersOf(size, {{counts.at(0), counts.at(1), counts.at(2)}}, noNumber));
    bent.evaluate();
    const Parameters taken = bent.node.parameters();
    QCOMPARE(taken.size, takenSize);
    QCOMPARE(QVector<int>(taken.nodeCounts.begin(), taken.nodeCounts.end()), takenCounts);
    QCOMPARE(taken.power, 1.0f);
    QCOMPARE(!notes.lines.isEmpty(), counts.at(0) == 128);
    QVERIFY(bent.farthestFromInput() < 1e-4f);
    QVERIFY(!bent.node.setControlPoints({{}, {}}));
    QVector<Vector3> points = bent.node.controlPoints();
    const Vector3 rest = points.first();
    points[0].y = noNumber;
    QVERIFY(bent.node.setControlPoints(points));
    QCOMPARE(bent.node.controlPoints().first(), rest);
}

void tst_KMModFFDNode::fits_data()
{
    QTest::addColumn<bool>("turned");
    QTest::newRow("mesh at rest") << false;
    QTest::newRow("mesh placed") << true;
}

void tst_KMModFFDNode::fits()
{
    QFETCH(bool, turned);
    LatticeScene scene(MeshFixtures::cube());
    const KMTransform frame = turned ? somewhere() : KMTransform();
    scene.mesh->setTransform(frame);
    for (int i = 0; i < 8; ++i)
        scene.mesh->setPosition(i, KMFFDBox::toWorld(frame, scene.mesh->position(i)));
    for (const int i : {0, 1, 3, 4})
        scene.mesh->setVertexFlag(i, KMElementFlag::Selected);
    gSolution->push(new editSRTCommand(scene.node, {{2, 1, 1}, kvm::Quaternion(0, 0, 1, 0), {9, 9, 9}}));
    gSolution->push(new editModFFDCommand(scene.node, parametersOf({5, 6, 7}, {{2, 3, 4}}, 0.5f)));
    const QString before = scene.text();
    const int steps = scene.stack().count();
    QVERIFY(KMFitFFD::run(scene.node));
    QCOMPARE(scene.stack().count(), steps + 1);
    QCOMPARE(scene.stack().undoText(), QStringLiteral("Fit FFD"));
    const Parameters fitted = scene.node->parameters();
    QVERIFY((fitted.size - Vector3(2, 2, 2)).length() < 1e-5f);
    QVERIFY(fitted.nodeCounts == (std::array<int, 3>{{2, 3, 4}}));
    QCOMPARE(fitted.power, 0.5f);
    const QVector<Vector3> points = scene.node->controlPoints();
    QVERIFY((points.first() - scene.mesh->position(0)).length() < 1e-5f);
    QVERIFY((points.last() - scene.mesh->position(7)).length() < 1e-5f);
    const QString after = scene.text();
    scene.stack().undo();
    QCOMPARE(scene.text(), before);
    scene.stack().redo();
    QCOMPARE(scene.text(), after);
}

KM_TEST(tst_KMModFFDNode);

#include "tst_KMModFFDNode.moc"
