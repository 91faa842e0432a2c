#include "mesh/KMVertexMerge.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectionDelete.h"
#include "mesh/KMSelectionTransform.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <algorithm>

namespace {

using Corners = QVector<int>;

/// The faces by their corners, each from its lowest corner on, sorted.
QVector<Corners> facesOf(const KMMeshNode &mesh)
{
    QVector<Corners> faces;
    for (const KMFace *face : mesh.faces()) {
        if (!face)
            continue;
        Corners corners(face->indices, face->indices + face->count);
        std::rotate(corners.begin(), std::min_element(corners.begin(), corners.end()), corners.end());
        faces << corners;
    }
    std::sort(faces.begin(), faces.end());
    return faces;
}

KMMeshNode *meshOf(const QVector<Corners> &faces, int vertices)
{
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < vertices; ++i)
        mesh->addVertexRaw({float(i), float(i * i), 0});
    for (const Corners &corners : faces)
        mesh->addFaceRaw(corners.size(), corners.constData());
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// A strip of a quad and a triangle: 0 1 4 3, then 1 2 4.
KMMeshNode *strip()
{
    return meshOf({{0, 1, 4, 3}, {1, 2, 4}}, 5);
}

} // namespace

Q_DECLARE_METATYPE(QVector<Corners>)

class tst_KMVertexMerge : public QObject
{
    Q_OBJECT
private slots:
    void shapes_data();
    void shapes();
    void seamsClose();
    void cornerDataStays();
    void creasesAndSelectionGoAlong();
    void manyAtOnce();
    void refusals();
    void snapMerges_data();
    void snapMerges();
    void deletedByKind_data();
    void deletedByKind();
};

void tst_KMVertexMerge::shapes_data()
{
    QTest::addColumn<QVector<Corners>>("faces");
    QTest::addColumn<int>("remove");
    QTest::addColumn<int>("keep");
    QTest::addColumn<QVector<Corners>>("merged");
    using Faces = QVector<Corners>;
    QTest::newRow("apart") << Faces{{0, 1, 2}, {3, 4, 5}} << 5 << 0 << Faces{{0, 1, 2}, {0, 3, 4}};
    QTest::newRow("a triangle goes") << Faces{{0, 1, 2}, {1, 3, 2}} << 1 << 2 << Faces{};
    QTest::newRow("a triangle's tip") << Faces{{0, 1, 2}, {1, 3, 2}} << 3 << 1 << Faces{{0, 1, 2}};
    QTest::newRow("neighbours in a quad") << Faces{{0, 1, 2, 3}} << 1 << 2 << Faces{{0, 2, 3}};
    QTest::newRow("neighbours across its end") << Faces{{0, 1, 2, 3}} << 0 << 3 << Faces{{1, 2, 3}};
    QTest::newRow("opposite in a quad") << Faces{{0, 1, 2, 3}, {0, 4, 5, 1}} << 0 << 2
                                        << Faces{{1, 2, 3}, {1, 2, 4, 5}};
    QTest::newRow("a line goes") << Faces{{0, 1}, {1, 2}} << 0 << 1 << Faces{{1, 2}};
    QTest::newRow("a line falls on a face") << Faces{{0, 1, 2}, {3, 1}} << 3 << 0 << Faces{{0, 1, 2}};
    QTest::newRow("a line falls on a new triangle") << Faces{{0, 1, 2, 3}, {0, 2}} << 1 << 0 << Faces{{0, 2, 3}};
    QTest::newRow("a line falls on a line") << Faces{{0, 1}, {2, 1}} << 2 << 0 << Faces{{0, 1}};
    QTest::newRow("a bow tie's quad collapses") << Faces{{0, 1, 0, 2}} << 1 << 2 << Faces{};
}

void tst_KMVertexMerge::shapes()
{
    QFETCH(const QVector<Corners>, faces);
    QFETCH(const int, remove);
    QFETCH(const int, keep);
    QFETCH(const QVector<Corners>, merged);
    MeshScene scene(meshOf(faces, 6));
    QVERIFY(KMMeshEdit::mergeVertex(*scene.mesh, remove, keep));
    QCOMPARE(facesOf(*scene.mesh), merged);
    QVERIFY(!scene.mesh->vertex(remove));
    QCOMPARE(scene.mesh->position(keep), kvm::Vector3(float(keep), float(keep * keep), 0));
    QCOMPARE(checkInvariants(*scene.mesh), QString());
}

/// 1 goes into 4. What had the UV of the lost corner takes the kept one; another island around 4 stays.
void tst_KMVertexMerge::seamsClose()
{
    MeshScene scene(meshOf({{0, 1, 4, 3}, {1, 2, 4}, {5, 0, 1}, {2, 1, 6}}, 7));
    KMMeshNode &mesh = *scene.mesh;
    const kvm::Vector2 lost(0.25f, 0.5f), kept(0.75f, 0.5f), island(0.1f, 0.9f);
    mesh.face(0)->uvs[1] = mesh.face(1)->uvs[0] = mesh.face(2)->uvs[2] = lost;
    mesh.face(0)->uvs[2] = mesh.face(1)->uvs[2] = kept;
    mesh.face(3)->uvs[1] = island;
    mesh.face(3)->uvs[0] = lost; // another vertex, the same place in the picture
    QVERIFY(KMMeshEdit::mergeVertex(mesh, 1, 4));
    QCOMPARE(mesh.face(2)->uvs[2], kept);
    QCOMPARE(mesh.face(3)->uvs[1], island);
    QCOMPARE(mesh.face(3)->uvs[0], lost);
}

void tst_KMVertexMerge::cornerDataStays()
{
    MeshScene scene(meshOf({{0, 1, 2, 3}}, 4));
    KMFace &quad = *scene.mesh->face(0);
    quad.shader = 3;
    quad.source = 77;
    for (int c = 0; c < 4; ++c) {
        quad.uvs[c] = {float(c), 0};
        quad.colors[c] = {0, 0, float(c), 1};
    }
    QVERIFY(KMMeshEdit::mergeVertex(*scene.mesh, 1, 3));
    const KMFace *triangle = scene.mesh->face(1);
    QCOMPARE(triangle->shader, 3);
    QCOMPARE(triangle->source, quint64(77));
    for (int c = 0; c < 3; ++c) {
        const int from = triangle->indices[c];
        QCOMPARE(triangle->uvs[c].x, float(from));
        QCOMPARE(triangle->colors[c].z, float(from));
    }
}

void tst_KMVertexMerge::creasesAndSelectionGoAlong()
{
    MeshScene scene(strip());
    KMMeshNode &mesh = *scene.mesh;
    mesh.findEdge(0, 1)->weight = 2.0f;
    mesh.findEdge(1, 2)->weight = 1.0f;
    mesh.findEdge(2, 4)->weight = 3.0f; // heavier than the one that falls onto it
    mesh.findEdge(0, 1)->flags = KMElementFlag::Selected;
    const QString before = scene.dump.text();
    QVERIFY(KMMeshEdit::mergeVertex(mesh, 1, 4));
    QCOMPARE(facesOf(mesh), (QVector<Corners>{{0, 4, 3}}));
    QCOMPARE(mesh.findEdge(0, 4)->weight, 2.0f);
    QVERIFY(mesh.findEdge(0, 4)->hasFlag(KMElementFlag::Selected));
    QVERIFY(!mesh.findEdge(2, 4)); // no face has it any more
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
}

/// Two sheets that are welded come out the same, whether vertex by vertex or in one go; with all that edges carry.
void tst_KMVertexMerge::manyAtOnce()
{
    const auto welded = [](quint32 seed, bool inOneGo) {
        QRandomGenerator random(seed);
        KMMeshNode *made = MeshFixtures::grid(4, 4);
        for (int i = 0; i < 25; ++i)
            made->addVertexRaw(made->position(i));
        for (int f = 0; f < 16; ++f) {
            const int *c = made->face(f)->indices;
            const int corners[] = {25 + c[3], 25 + c[2], 25 + c[1], 25 + c[0]};
            if (random.bounded(2))
                made->addFaceRaw(4, corners);
        }
        made->refreshMesh(KMMeshDirty::All);
        for (KMEdge *edge : made->edges()) {
            edge->weight = random.bounded(2) ? 0.5f : 0.0f;
            edge->flags = quint8(random.bounded(2) ? KMElementFlag::Selected : 0);
        }
        MeshScene scene(made);
        const QString before = meshText(*made);
        QVector<KMVertexPair> pairs;
        for (int i = 0; i < 25; ++i) {
            if (random.bounded(4))
                pairs.append({i, 25 + i});
        }
        for (const KMVertexPair &pair : pairs) {
            if (!inOneGo)
                KMMeshEdit::mergeVertex(*made, pair.remove, pair.keep);
        }
        if (inOneGo)
            KMMeshEdit::mergeVertices(*made, pairs);
        const QString after = meshText(*made);
        scene.session.stack().setIndex(0);
        return meshText(*made) == before ? after : QStringLiteral("undo");
    };
    for (quint32 seed = 1; seed <= 20; ++seed)
        QCOMPARE(welded(seed, true), welded(seed, false));
}

void tst_KMVertexMerge::refusals()
{
    MeshScene scene(MeshFixtures::mixedBag());
    QVERIFY(!KMMeshEdit::mergeVertex(*scene.mesh, 1, 1));
    QVERIFY(!KMMeshEdit::mergeVertex(*scene.mesh, 7, 1)); // a null slot
    QVERIFY(!KMMeshEdit::mergeVertex(*scene.mesh, 1, 10));
    scene.mesh->setLocked(true);
    QVERIFY(!KMMeshEdit::mergeVertex(*scene.mesh, 1, 2));
    QCOMPARE(scene.session.stack().count(), 0);
}

void tst_KMVertexMerge::snapMerges_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<bool>("merges");
    QTest::newRow("merge") << int(KMSnapOption::Merge | KMSnapOption::Vertex) << true;
    QTest::newRow("merge, but stopped") << int(KMSnapOption::Merge | KMSnapOption::Stop) << false;
    QTest::newRow("no merge") << int(KMSnapOption::Vertex) << false;
}

void tst_KMVertexMerge::snapMerges()
{
    QFETCH(const int, options);
    QFETCH(const bool, merges);
    MeshScene scene(strip());
    gSolution->setSnapOptions(options);
    KMMeshNode &mesh = *scene.mesh;
    mesh.setVertexFlag(2, KMElementFlag::Selected);
    const QString before = scene.dump.text();
    mesh.rebuildSelectionCache();
    mesh.setPosition(2, mesh.position(1));
    using namespace KMSelectionTransform;
    QVERIFY(commitSnap({&mesh, 2}, {&mesh, 1}, {&mesh}));
    QCOMPARE(!mesh.vertex(2), merges);
    QCOMPARE(scene.session.stack().text(0), QStringLiteral("Snap Vertex"));
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
    mesh.clearVertexFlag(2, KMElementFlag::Selected);
    mesh.rebuildSelectionCache();
    QVERIFY(!commit(Kind::Scale, {&mesh})); // nothing selected, nothing to keep
}

void tst_KMVertexMerge::deletedByKind_data()
{
    using KMMeshTargets::Edges;
    using KMMeshTargets::Vertices;
    using Faces = QVector<Corners>;
    QTest::addColumn<int>("kinds");
    QTest::addColumn<bool>("deletes");
    QTest::addColumn<QVector<Corners>>("left");
    // Of a grid of 2 by 2 with lines from 5 to 9 and along its border from 7 to 8, vertex 0, the edges 1 4, 5 9 and
    // 7 8, and face 3 are selected. A line goes in place of the quad beside it.
    QTest::newRow("vertices") << int(Vertices) << true
                              << Faces{{1, 2, 5, 4}, {3, 4, 7, 6}, {4, 5, 8, 7}, {5, 9}, {7, 8}};
    QTest::newRow("edges") << int(Edges) << true << Faces{{3, 4, 7, 6}, {4, 5, 8, 7}};
    QTest::newRow("faces") << int(KMMeshTargets::Faces) << true
                           << Faces{{0, 1, 4, 3}, {1, 2, 5, 4}, {3, 4, 7, 6}, {5, 9}, {7, 8}};
    QTest::newRow("all") << int(Vertices | Edges | KMMeshTargets::Faces) << true << Faces{{3, 4, 7, 6}};
    QTest::newRow("none") << 0 << false << Faces();
}

void tst_KMVertexMerge::deletedByKind()
{
    QFETCH(const int, kinds);
    QFETCH(const bool, deletes);
    QFETCH(const QVector<Corners>, left);
    KMMeshNode *made = MeshFixtures::grid(2, 2);
    made->addVertexRaw({9, 9, 9});
    const int lines[] = {5, 9, 7, 8};
    made->addFaceRaw(2, lines);
    made->addFaceRaw(2, lines + 2);
    made->refreshMesh(KMMeshDirty::All);
    MeshScene scene(made);
    made->vertex(0)->flags = made->face(3)->flags = KMElementFlag::Selected;
    for (const auto &edge : {qMakePair(1, 4), qMakePair(5, 9), qMakePair(7, 8)})
        made->findEdge(edge.first, edge.second)->flags = KMElementFlag::Selected;
    made->findEdge(1, 4)->weight = 4.0f;
    const QString before = scene.dump.text();
    QCOMPARE(KMMeshEdit::deleteSelection(KMMeshTargets::Elements(kinds)), deletes);
    QCOMPARE(scene.session.stack().count(), int(deletes));
    if (deletes)
        QCOMPARE(facesOf(*made), left);
    QCOMPARE(checkInvariants(*made), QString());
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.dump.text(), before);
}

KM_TEST(tst_KMVertexMerge);

#include "tst_KMVertexMerge.moc"
