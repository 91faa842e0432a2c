#include "mesh/KMEdgePath.h"
#include "mesh/KMEdgeWalk.h"
#include "mesh/KMFaceFlood.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

#include <algorithm>
#include <memory>
#include <numeric>

namespace {

using Mesh = std::unique_ptr<KMMeshNode>;
constexpr quint8 flag = KMElementFlag::Hot;

/// A grid of which some quads are two triangles.
Mesh gridWithTriangles(int size, const QVector<int> &split)
{
    Mesh mesh(MeshFixtures::grid(size, size));
    for (const int f : split) {
        const auto corners = mesh->faceCorners(f);
        const int rest[] = {corners[2], corners[3], corners[0]};
        mesh->removeFaceRefs(f);
        mesh->setFaceRaw(f, 3, corners.data());
        mesh->addFaceRefs(f);
        mesh->addFaceRaw(3, rest);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

} // namespace

class tst_EdgeWalk : public QObject
{
    Q_OBJECT
private slots:
    void loops_data();
    void loops();
    void rings_data();
    void rings();
    void roundWalksEnd();
    void hiddenFacesEndWalks();
    void floodsAsUnited();
};

// Vertices of a grid of 4 by 4 quads: five in each row, 12 in the middle.

void tst_EdgeWalk::loops_data()
{
    QTest::addColumn<QVector<int>>("triangles"); // quads that are two triangles
    QTest::addColumn<int>("a");
    QTest::addColumn<int>("b");
    QTest::addColumn<int>("length");
    const QVector<int> none;
    QTest::newRow("through the middle") << none << 11 << 12 << 4;
    QTest::newRow("from the border") << none << 2 << 7 << 4;
    QTest::newRow("along the border") << none << 1 << 2 << 4;
    QTest::newRow("up to a triangle ahead") << QVector<int>{7} << 11 << 12 << 4; // the far quad of the row, above
    QTest::newRow("beside a triangle") << QVector<int>{5} << 11 << 12 << 1;
    QTest::newRow("five faces at an end") << QVector<int>{6} << 13 << 14 << 1;
}

void tst_EdgeWalk::loops()
{
    QFETCH(QVector<int>, triangles);
    QFETCH(int, a);
    QFETCH(int, b);
    QFETCH(int, length);
    const Mesh mesh = gridWithTriangles(4, triangles);
    const QVector<KMEdge *> edges = KMEdgeWalk::markLoop(*mesh, mesh->findEdge(a, b), flag);
    QCOMPARE(edges.size(), length);
    QCOMPARE(edges.first(), mesh->findEdge(a, b));
    int marked = 0;
    for (const KMEdge *edge : mesh->edges())
        marked += edge->hasFlag(flag);
    QCOMPARE(marked, length);
}

void tst_EdgeWalk::rings_data()
{
    QTest::addColumn<int>("mesh");
    QTest::addColumn<int>("edges");
    QTest::addColumn<int>("faces");
    QTest::newRow("a grid") << 0 << 5 << 4;
    QTest::newRow("a cube") << 1 << 4 << 4;
    QTest::newRow("triangles") << 2 << 1 << 0;
    QTest::newRow("five quads on an edge") << 3 << 6 << 5;
}

void tst_EdgeWalk::rings()
{
    QFETCH(int, mesh);
    QFETCH(int, edges);
    QFETCH(int, faces);
    KMMeshNode *(*const makers[])() = {[] { return MeshFixtures::grid(4, 4); }, &MeshFixtures::cube,
                                       [] { return MeshFixtures::openCone(); },
                                       [] { return MeshFixtures::nonManifoldFan(); }};
    const Mesh walked(makers[mesh]());
    QVector<int> passed;
    const QVector<KMEdge *> ring = KMEdgeWalk::markRing(*walked, walked->findEdge(0, 1), flag, &passed);
    QCOMPARE(ring.size(), edges);
    QCOMPARE(passed.size(), faces);
}

/// On closed surfaces, and where a walk runs into itself.
void tst_EdgeWalk::roundWalksEnd()
{
    const Mesh torus(MeshFixtures::torus(9, 7));
    for (KMEdge *edge : torus->edges()) {
        const int loop = KMEdgeWalk::markLoop(*torus, edge, flag).size();
        torus->clearAllEdgeFlags(flag);
        const int ring = KMEdgeWalk::markRing(*torus, edge, flag).size();
        torus->clearAllEdgeFlags(flag);
        QVERIFY(loop == 9 || loop == 7);
        QCOMPARE(loop + ring, 16);
    }
    const Mesh cube(MeshFixtures::cube());
    QCOMPARE(KMEdgeWalk::markLoop(*cube, cube->findEdge(0, 1), flag).size(), 1); // three faces, one of them ahead
}

/// Of a grid the band of quads in the middle is hidden: what only they have is out of reach.
void tst_EdgeWalk::hiddenFacesEndWalks()
{
    const Mesh mesh(MeshFixtures::grid(5, 5));
    for (int f = 10; f < 15; ++f)
        mesh->setFaceFlag(f, KMElementFlag::Hidden);
    const auto edgeAt = [&mesh](int a, int b) { return mesh->findEdge(a, b); };
    QCOMPARE(KMEdgeWalk::markLoop(*mesh, edgeAt(2, 8), flag).size(), 2);   // across the band
    QCOMPARE(KMEdgeWalk::markLoop(*mesh, edgeAt(14, 15), flag).size(), 5); // beside it
    mesh->clearAllEdgeFlags(flag);
    QVector<int> passed;
    QCOMPARE(KMEdgeWalk::markRing(*mesh, edgeAt(2, 3), flag, &passed).size(), 3);
    QCOMPARE(passed.size(), 2);
    QCOMPARE(KMEdgePath(*mesh).between(8, 26).size(), 0);
    QCOMPARE(KMEdgePath(*mesh).between(6, 11).size(), 6);
    mesh->clearFaceFlag(14, KMElementFlag::Hidden);
    QCOMPARE(KMEdgePath(*mesh).between(8, 26).size(), 8); // out to its edge and back
}

/// Against sets that are united edge by edge.
void tst_EdgeWalk::floodsAsUnited()
{
    for (quint32 seed = 1; seed <= 20; ++seed) {
        QRandomGenerator random(seed);
        const Mesh mesh(seed % 2 ? MeshFixtures::grid(9, 7) : MeshFixtures::nonManifoldFan(7));
        for (KMEdge *edge : mesh->edges()) {
            if (random.bounded(5) < 3)
                mesh->setEdgeFlag(edge, flag);
        }
        for (int f = 1; f < mesh->faceCount(); ++f) {
            if (random.bounded(12) == 0)
                mesh->setFaceFlag(f, KMElementFlag::Hidden);
        }
        QVector<int> sets(mesh->faceCount());
        std::iota(sets.begin(), sets.end(), 0);
        for (const KMEdge *edge : mesh->edges()) {
            QVector<int> shown;
            for (const int f : edge->faceRefs) {
                if (!edge->hasFlag(flag) && !mesh->face(f)->hasFlag(KMElementFlag::Hidden))
                    shown << sets.at(f);
            }
            for (int &set : sets) {
                if (shown.contains(set))
                    set = shown.first();
            }
        }
        QVector<int> expected;
        for (int f = 0; f < sets.size(); ++f) {
            if (sets.at(f) == sets.at(0))
                expected << f;
        }
        QVector<int> reached =
            KMFaceFlood::chained(*mesh, {0, 0}, [](const KMEdge &edge) { return edge.hasFlag(flag); });
        std::sort(reached.begin(), reached.end());
        QCOMPARE(reached, expected);
    }
}

KM_TEST(tst_EdgeWalk);
#include "tst_EdgeWalk.moc"
