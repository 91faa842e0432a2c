// What is to be tidied up in a whole mesh: faces the wrong way round, faces on top of one another, close vertices.

#include "core/KMSolution.h"
#include "mesh/KMCloseVertices.h"
#include "mesh/KMFaceAlign.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMOverlappedFaces.h"
#include "support/MeshFixtures.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

/// As the rule is told: each vertex against each other one that is still there.
QVector<QPair<int, int>> closeByPairs(const KMMeshNode &mesh, float distance, bool selectedOnly)
{
    const auto takesPart = [&](int i) {
        return mesh.vertex(i) && (!selectedOnly || mesh.vertex(i)->hasFlag(KMElementFlag::Selected));
    };
    QVector<bool> isGone(mesh.vertexCount());
    QVector<QPair<int, int>> pairs;
    for (int a = 0; a < mesh.vertexCount(); ++a) {
        for (int b = 0; b < mesh.vertexCount() && takesPart(a); ++b) {
            if (a == b || isGone[b] || !takesPart(b))
                continue;
            double sum = 0.0;
            for (int k = 0; k < 3; ++k) {
                const double way = double(mesh.position(a)[k]) - double(mesh.position(b)[k]);
                sum += way * way;
            }
            if (sum <= double(distance) * double(distance)) {
                pairs.append({a, b});
                isGone[a] = true;
                break;
            }
        }
    }
    return pairs;
}

QVector<int> overlappedByPairs(const KMMeshNode &mesh)
{
    const auto sorted = [&mesh](int f) {
        QVector<int> corners(mesh.face(f)->indices, mesh.face(f)->indices + mesh.face(f)->count);
        std::sort(corners.begin(), corners.end());
        return corners;
    };
    QVector<bool> isGone(mesh.faceCount());
    QVector<int> found;
    for (int a = 0; a < mesh.faceCount(); ++a) {
        for (int b = a + 1; b < mesh.faceCount() && mesh.face(a) && !isGone[a]; ++b) {
            if (mesh.face(b) && !isGone[b] && sorted(a) == sorted(b)) {
                isGone[b] = true;
                found << b;
            }
        }
    }
    return found;
}

} // namespace

class tst_MeshTidy : public QObject
{
    Q_OBJECT
private slots:
    void closeVertices_data();
    void closeVertices();
    void closeVerticesAtOnePlace();
    void overlappedFaces();
    void flippedFaces();
    void unsolvableWindings();
};

void tst_MeshTidy::closeVertices_data()
{
    QTest::addColumn<float>("spread"); // of the places; they lie on a grid of this many steps
    QTest::addColumn<float>("step");
    QTest::addColumn<float>("distance");
    QTest::newRow("the same place") << 6.0f << 1.0f << 0.0f;
    QTest::newRow("a step, to the digit") << 9.0f << 0.1f << 0.1f;
    QTest::newRow("scattered") << 1e6f << 1e-5f << 1.1f;
    QTest::newRow("crowded") << 1e6f << 1e-6f << 0.2f;
    QTest::newRow("all in reach") << 1e3f << 1.0f << 9999.0f;
    QTest::newRow("far from the origin") << 1e3f << 1e3f << 1e4f;
    QTest::newRow("none in reach") << 1e6f << 1.0f << 1e-6f;
}

void tst_MeshTidy::closeVertices()
{
    QFETCH(float, spread);
    QFETCH(float, step);
    QFETCH(float, distance);
    for (quint32 seed = 1; seed <= 6; ++seed) {
        QRandomGenerator random(seed);
        KMMeshNode mesh;
        const auto coordinate = [&] { return float(random.bounded(int(spread)) - int(spread / 2)) * step; };
        for (int i = 0; i < 400; ++i) {
            mesh.addVertexRaw({coordinate(), coordinate(), seed % 2 ? coordinate() : -0.0f});
            mesh.vertex(i)->flags = quint8(random.bounded(2) ? KMElementFlag::Selected : 0);
        }
        mesh.setPosition(7, {std::numeric_limits<float>::quiet_NaN(), 0.0f, 0.0f});
        mesh.setPosition(8, {std::numeric_limits<float>::infinity(), 0.0f, 0.0f});
        mesh.setVertex(9, nullptr);
        for (const bool selectedOnly : {false, true}) {
            QVector<QPair<int, int>> found;
            const QVector<KMVertexPair> pairs = KMCloseVertices::find(mesh, distance, selectedOnly);
            for (const KMVertexPair &pair : pairs)
                found.append({pair.remove, pair.keep});
            QCOMPARE(found, closeByPairs(mesh, distance, selectedOnly));
        }
    }
}

/// Comparing all with all would not come to an end.
void tst_MeshTidy::closeVerticesAtOnePlace()
{
    constexpr int count = 20000;
    KMMeshNode mesh;
    for (int i = 0; i < count; ++i)
        mesh.addVertexRaw({float(i % 2) * 1.5f, 1.0f, 2.0f});
    for (const float distance : {0.0f, 1.0f}) {
        const QVector<KMVertexPair> pairs = KMCloseVertices::find(mesh, distance, false);
        QCOMPARE(pairs.size(), count - 2);
        QVERIFY(std::all_of(pairs.begin(), pairs.end(),
                            [](const KMVertexPair &pair) { return pair.keep == pair.remove + 2; }));
    }
    QVERIFY(KMCloseVertices::find(mesh, -1.0f, false).isEmpty());
}

void tst_MeshTidy::overlappedFaces()
{
    for (quint32 seed = 1; seed <= 20; ++seed) {
        QRandomGenerator random(seed);
        KMMeshNode mesh;
        for (int i = 0; i < 6; ++i)
            mesh.addVertexRaw({float(i), 0, 0});
        for (int f = 0; f < 150; ++f) {
            QVector<int> corners{0, 1, 2, 3, 4, 5};
            std::shuffle(corners.begin(), corners.end(), random);
            mesh.addFaceRaw(2 + random.bounded(3), corners.constData());
        }
        mesh.setFace(3, nullptr);
        const QVector<int> found = KMOverlappedFaces::find(mesh);
        QVERIFY(found.size() > 50);
        QCOMPARE(found, overlappedByPairs(mesh));
    }
}

void tst_MeshTidy::flippedFaces()
{
    for (quint32 seed = 1; seed <= 20; ++seed) {
        QRandomGenerator random(seed);
        MeshScene scene(seed % 2 ? MeshFixtures::torus(7, 5) : MeshFixtures::cube());
        KMMeshNode &mesh = *scene.mesh;
        const double volume = MeshProbe(mesh).volume;
        for (int f = 0; f < mesh.faceCount(); ++f) {
            if (random.bounded(2))
                KMMeshEdit::reverseFace(mesh, f);
        }
        const auto first = mesh.faceCorners(0);
        const QVector<int> faces = KMFaceAlign::disagreeing(mesh);
        for (const int f : faces)
            KMMeshEdit::reverseFace(mesh, f);
        const MeshProbe probe(mesh);
        QVERIFY(probe.isClosed());
        QVERIFY(std::abs(std::abs(probe.volume) - volume) < 1e-4);
        QVERIFY(mesh.faceCorners(0) == first);
        QVERIFY(KMFaceAlign::disagreeing(mesh).isEmpty());
    }
}

/// A ring that is twisted once, and three faces on one side, can't agree: what is turned must not be turned forever.
void tst_MeshTidy::unsolvableWindings()
{
    constexpr int count = 7;
    MeshScene ring(new KMMeshNode);
    for (int i = 0; i < 2 * count; ++i)
        ring.mesh->addVertexRaw({float(i), 0, 0});
    for (int i = 0; i < count; ++i) {
        const int low = 2 * i, high = low + 1;
        const bool isLast = i == count - 1;
        const int corners[] = {low, high, isLast ? 0 : high + 2, isLast ? 1 : low + 2};
        ring.mesh->addFaceRaw(4, corners);
    }
    ring.mesh->refreshMesh(KMMeshDirty::All);
    const QVector<int> once = KMFaceAlign::disagreeing(*ring.mesh);
    for (const int f : once)
        KMMeshEdit::reverseFace(*ring.mesh, f);
    QVERIFY(KMFaceAlign::disagreeing(*ring.mesh).isEmpty());

    const std::unique_ptr<KMMeshNode> fan(MeshFixtures::nonManifoldFan(3));
    QVERIFY(KMFaceAlign::disagreeing(*fan).isEmpty());
}

KM_TEST(tst_MeshTidy);
#include "tst_MeshTidy.moc"
