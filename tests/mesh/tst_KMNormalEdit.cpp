#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalEdit.h"
#include "mesh/KMSurfaceTree.h"
#include "mesh/KMTagNormal.h"
#include "support/NormalScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <memory>
#include <random>

using kvm::Vector3;

namespace {

constexpr float tolerance = 2e-5f;

/// A turned frame, so that world and mesh space differ.
const KMTransform turnedFrame{{1, 1, 1}, kvm::Quaternion::fromEuler(0.7f, -0.3f, 1.9f), {1, 2, 3}};

bool isClose(const Vector3 &a, const Vector3 &b)
{
    return (a - b).length() < tolerance;
}

using Normals = QVector<Vector3>;

Normals normalsOf(const KMMeshNode &mesh)
{
    Normals normals;
    for (const KMFace *face : mesh.liveFaces()) {
        for (int c = 0; c < face->count; ++c)
            normals << face->normals[c];
    }
    return normals;
}

bool areClose(const Normals &a, const Normals &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), &isClose);
}

void shear(KMMeshNode &mesh)
{
    for (KMVertex *vertex : mesh.vertices())
        vertex->pos.y += 0.5f * vertex->pos.x - 0.25f * vertex->pos.z;
    mesh.refreshMesh(KMMeshDirty::Positions);
}

KMMeshNode *cubeInTurnedFrame()
{
    KMMeshNode *mesh = MeshFixtures::cube();
    mesh->setTransform(turnedFrame);
    return mesh;
}

int countOf(const KMTagNormal *tag, KMNormalFace::Mode mode)
{
    int count = 0;
    for (const KMNormalFace &record : tag->faceNormals())
        count += int(std::count(std::begin(record.mode), std::end(record.mode), mode));
    return count;
}

Vector3 reflected(const Vector3 &v, const Vector3 &plane)
{
    return v - plane * (2 * dot(v, plane));
}

} // namespace

class tst_KMNormalEdit : public QObject
{
    Q_OBJECT
private slots:
    void creases();
    void fixedNormalsStay();
    void selectedCorners();
    void unfixedNormalsFollow();
    void initialized();
    void unified();
    void averagedOverMeshes();
    void flattened();
    void nothingChangesTwice();
    void transferred();
    void nearestPoint();
    void symmetrized();
    void symmetrizedFaceAcrossThePlane();
};

void tst_KMNormalEdit::creases()
{
    NormalScene scene(MeshFixtures::grid(3, 2));
    for (const auto &[a, b] : {std::make_pair(5, 6), {1, 5}})
        scene.mesh->findEdge(a, b)->flags = KMElementFlag::Selected;
    QCOMPARE(KMNormalEdit::setCreases(*scene.mesh, true), 2);
    QCOMPARE(KMNormalEdit::setCreases(*scene.mesh, true), 0);
    QVERIFY(scene.tag->isCrease(5, 1) && scene.tag->isCrease(6, 5));
    NormalScene::selectAll(scene.mesh, false, false, false);
    QCOMPARE(KMNormalEdit::selectCreases(*scene.mesh), 2);
    for (const KMEdge *edge : scene.mesh->edges())
        QCOMPARE(edge->hasFlag(KMElementFlag::Selected), scene.tag->isCrease(edge->index0, edge->index1));
    QCOMPARE(KMNormalEdit::setCreases(*scene.mesh, false), 2);
    QVERIFY(scene.tag->creaseEdges().isEmpty());
}

void tst_KMNormalEdit::fixedNormalsStay()
{
    NormalScene scene(cubeInTurnedFrame());
    NormalScene::selectAll(scene.mesh, true, false, false);
    const Normals before = normalsOf(*scene.mesh);
    QCOMPARE(KMNormalEdit::fixNormals(*scene.mesh), 6);
    QCOMPARE(countOf(scene.tag, KMNormalFace::Fixed), 24);
    QVERIFY(areClose(normalsOf(*scene.mesh), before));
    shear(*scene.mesh);
    QVERIFY(areClose(normalsOf(*scene.mesh), before));
}

void tst_KMNormalEdit::selectedCorners()
{
    for (const bool byFace : {true, false}) {
        NormalScene scene(MeshFixtures::cube());
        (byFace ? scene.mesh->face(2)->flags : scene.mesh->vertex(6)->flags) = KMElementFlag::Selected;
        QCOMPARE(KMNormalEdit::fixNormals(*scene.mesh), byFace ? 1 : 3);
        QCOMPARE(gSolution->undoStack()->count(), byFace ? 1 : 3);
        QCOMPARE(countOf(scene.tag, KMNormalFace::Fixed), byFace ? 4 : 3);
    }
}

void tst_KMNormalEdit::unfixedNormalsFollow()
{
    NormalScene scene(cubeInTurnedFrame());
    NormalScene::selectAll(scene.mesh, true, false, false);
    for (int f = 0; f < 6; f += 2) {
        KMNormalFace record = scene.tag->faceNormal(f);
        for (int c = 0; c < 4; ++c)
            record.setFixed(c, Vector3(float(f) - 2.5f, 1.0f, 0.3f * float(c)).normalized());
        // No turn to the opposite is the shortest; the normal must point there all the same.
        record.setFixed(0, turnedFrame.rotation.conjugate().rotate(-scene.mesh->face(f)->normals[0]));
        scene.tag->setFaceNormal(record);
    }
    scene.mesh->refreshMesh(KMMeshDirty::All);
    const Normals before = normalsOf(*scene.mesh);
    QCOMPARE(KMNormalEdit::unfixNormals(*scene.mesh), 3);
    QCOMPARE(countOf(scene.tag, KMNormalFace::Fixed), 0);
    QCOMPARE(countOf(scene.tag, KMNormalFace::Rotated), 12);
    QVERIFY(areClose(normalsOf(*scene.mesh), before));
    shear(*scene.mesh);
    QVERIFY(!areClose(normalsOf(*scene.mesh), before));
}

void tst_KMNormalEdit::initialized()
{
    NormalScene scene(cubeInTurnedFrame());
    const Normals computed = normalsOf(*scene.mesh);
    NormalScene::selectAll(scene.mesh, true, false, false);
    KMNormalEdit::unifyNormals(*scene.mesh);
    QVERIFY(!areClose(normalsOf(*scene.mesh), computed));
    NormalScene::selectAll(scene.mesh, false, false, true);
    QCOMPARE(KMNormalEdit::initializeNormals(*scene.mesh), 6);
    QCOMPARE(countOf(scene.tag, KMNormalFace::Computed), 24);
    QCOMPARE(normalsOf(*scene.mesh), computed);
}

void tst_KMNormalEdit::unified()
{
    NormalScene scene(cubeInTurnedFrame());
    scene.mesh->vertex(3)->flags = scene.mesh->vertex(5)->flags = KMElementFlag::Selected;
    const Vector3 untouched = scene.mesh->face(0)->normals[0];
    QCOMPARE(KMNormalEdit::unifyNormals(*scene.mesh), 5); // all but the one that has neither vertex
    for (const int i : {3, 5}) {
        for (const int f : scene.mesh->vertex(i)->faceRefs)
            QVERIFY(isClose(scene.mesh->face(f)->normals[scene.mesh->face(f)->cornerOf(i)],
                            scene.mesh->position(i).normalized()));
    }
    QCOMPARE(scene.mesh->face(0)->normals[0], untouched);
    QCOMPARE(countOf(scene.tag, KMNormalFace::Rotated), 6);
}

void tst_KMNormalEdit::averagedOverMeshes()
{
    NormalScene scene(MeshFixtures::cube());
    KMMeshNode *other = cubeInTurnedFrame();
    gProject->addNode(other);
    KMTagNormal *otherTag = NormalScene::addTag(other);
    scene.mesh->vertex(7)->flags = KMElementFlag::Selected;
    other->vertex(3)->flags = KMElementFlag::Selected;
    QCOMPARE(KMNormalEdit::averageNormals({scene.mesh, other}), 6);
    const Vector3 mean = Vector3(1, 1, 0).normalized(); // along z here, against it there
    for (const auto &[mesh, i] : {std::make_pair(scene.mesh, 7), {other, 3}}) {
        for (const int f : mesh->vertex(i)->faceRefs)
            QVERIFY(isClose(mesh->face(f)->normals[mesh->face(f)->cornerOf(i)], mean));
    }
    QCOMPARE(countOf(otherTag, KMNormalFace::Rotated), 3);
}

void tst_KMNormalEdit::flattened()
{
    NormalScene scene(MeshFixtures::torus(7, 6));
    scene.mesh->setTransform(turnedFrame);
    scene.mesh->refreshMesh(KMMeshDirty::Positions);
    const Normals before = normalsOf(*scene.mesh);
    NormalScene::selectAll(scene.mesh, true, false, false);
    KMNormalEdit::flattenX(*scene.mesh);
    const Normals after = normalsOf(*scene.mesh);
    for (int i = 0; i < before.size(); ++i) {
        const Vector3 flat(0, before.at(i).y, before.at(i).z);
        if (flat.length() > 1e-3f)
            QVERIFY(isClose(after.at(i), flat.normalized()));
    }
}

void tst_KMNormalEdit::nothingChangesTwice()
{
    NormalScene scene(cubeInTurnedFrame());
    NormalScene::selectAll(scene.mesh, true, true, true);
    QCOMPARE(KMNormalEdit::initializeNormals(*scene.mesh), 0);
    QCOMPARE(KMNormalEdit::unfixNormals(*scene.mesh), 0);
    QCOMPARE(KMNormalEdit::setCreases(*scene.mesh, false), 0);
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

void tst_KMNormalEdit::transferred()
{
    NormalScene scene(MeshFixtures::grid(4, 4));
    scene.mesh->setTransform(turnedFrame);
    const std::unique_ptr<KMMeshNode> giver(MeshFixtures::cube()); // from -1 to 1
    scene.mesh->findEdge(3, 4)->flags = KMElementFlag::Selected;   // from (3, 0, 0) to (4, 0, 0)
    KMNormalEdit::transferNormals(*scene.mesh, {giver.get()});
    for (const int i : {3, 4}) {
        for (const int f : scene.mesh->vertex(i)->faceRefs)
            QVERIFY(isClose(scene.mesh->face(f)->normals[scene.mesh->face(f)->cornerOf(i)], {1, 0, 0}));
    }
    QCOMPARE(countOf(scene.tag, KMNormalFace::Rotated), 3);
    QCOMPARE(KMNormalEdit::transferNormals(*scene.mesh, {}), 0); // nothing to take from, nothing lost
    QCOMPARE(countOf(scene.tag, KMNormalFace::Rotated), 3);
}

/// Against all points of a fine raster on the triangles.
void tst_KMNormalEdit::nearestPoint()
{
    const std::unique_ptr<KMMeshNode> torus(MeshFixtures::torus(9, 6));
    const std::unique_ptr<KMMeshNode> bag(MeshFixtures::mixedBag());
    QVERIFY(KMSurfaceTree({}).isEmpty());
    QVERIFY(!KMSurfaceTree({}).nearest({1, 2, 3}).isValid());
    const KMSurfaceTree tree({torus.get(), bag.get()});
    QVector<Vector3> raster;
    constexpr int steps = 24;
    for (const KMMeshNode *mesh : {torus.get(), bag.get()}) {
        for (const KMFace *face : mesh->liveFaces()) {
            for (int t = 0; t < face->count - 2; ++t) {
                const Vector3 &a = mesh->position(face->indices[0]);
                const Vector3 u = mesh->position(face->indices[1 + t]) - a;
                const Vector3 v = mesh->position(face->indices[2 + t]) - a;
                for (int i = 0; i <= steps; ++i) {
                    for (int j = 0; i + j <= steps; ++j)
                        raster << a + u * (float(i) / steps) + v * (float(j) / steps);
                }
            }
        }
    }
    std::mt19937 random(5);
    std::uniform_real_distribution<float> place(-5.0f, 5.0f);
    for (int n = 0; n < 60; ++n) {
        const Vector3 point(place(random), place(random), place(random));
        const KMSurfaceTree::Hit hit = tree.nearest(point);
        float best = 1e9f;
        for (const Vector3 &p : std::as_const(raster))
            best = std::min(best, (p - point).length());
        const float distance = (hit.point - point).length();
        QVERIFY(distance <= best + 1e-4f && distance > best - 0.12f);
        QVERIFY(std::fabs(distance * distance - hit.distance2) < 1e-3f);
        const KMMeshNode *owner = torus->liveFaces().contains(const_cast<KMFace *>(hit.face)) ? torus.get() : bag.get();
        Vector3 sum;
        for (int i = 0; i < 3; ++i)
            sum += owner->position(hit.face->indices[hit.corners[i]]) * hit.weights[i];
        QVERIFY((sum - hit.point).length() < 1e-4f);
    }
}

void symmetrizeHills(bool all, float side)
{
    // A hilly grid, symmetric about the plane at x 2, then moved into the turned frame.
    KMMeshNode *mesh = MeshFixtures::grid(4, 3);
    for (KMVertex *vertex : mesh->vertices()) {
        const float x = vertex->pos.x - 2.0f;
        const Vector3 local(x, 0.3f * x * x + 0.2f * vertex->pos.z * std::fabs(x), vertex->pos.z);
        vertex->pos = turnedFrame.rotation.rotate(local) + turnedFrame.translation;
    }
    mesh->setTransform(turnedFrame);
    NormalScene scene(mesh);
    const Vector3 plane = turnedFrame.rotation.rotate({1, 0, 0});
    for (int f = 0; f < mesh->faceCount(); ++f) {
        KMNormalFace record = scene.tag->faceNormal(f);
        record.setFixed(0, Vector3(1, float(f), 2).normalized());
        record.setRotated(f % 3 + 1, 0.1f * float(f + 1), {1, 0.5f, float(f)});
        scene.tag->setFaceNormal(record);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    for (KMVertex *vertex : mesh->vertices()) {
        if (all || side * dot(vertex->pos - turnedFrame.translation, plane) > -1e-3f)
            vertex->flags = KMElementFlag::Selected;
    }
    const Normals before = normalsOf(*mesh);
    QVERIFY(KMNormalEdit::symmetrizeNormals(*mesh, 0.01f) > 0);
    mesh->refreshMesh(KMMeshDirty::Positions);
    const Normals after = normalsOf(*mesh);
    // Rows of four quads; corners 0 and 1, 2 and 3 are images of one another.
    for (int i = 0; i < 48; ++i) {
        const int f = i / 4;
        const int image = f - f % 4 + 3 - f % 4;
        QVERIFY(isClose(after.at(i), reflected(after.at(4 * image + (i % 4 ^ 1)), plane)));
        if (side * (float(f % 4) - 1.5f) > 0)
            QCOMPARE(after.at(i), before.at(i)); // givers keep theirs
    }
}

void tst_KMNormalEdit::symmetrized()
{
    symmetrizeHills(true, 1.0f); // all are selected: the positive side gives
    symmetrizeHills(false, 1.0f);
    symmetrizeHills(false, -1.0f);
}

void tst_KMNormalEdit::symmetrizedFaceAcrossThePlane()
{
    NormalScene scene(MeshFixtures::cube());        // from -1 to 1
    KMNormalFace record = scene.tag->faceNormal(0); // 0, 1, 3, 2: odd vertices on the positive side
    record.setFixed(2, Vector3(0.6f, 0.8f, 0));
    scene.tag->setFaceNormal(record);
    NormalScene::selectAll(scene.mesh, true, false, false);
    QCOMPARE(KMNormalEdit::symmetrizeNormals(*scene.mesh, 0.01f), 1);
    QVERIFY(isClose(scene.mesh->face(0)->normals[3], {-0.6f, 0.8f, 0}));
    QVERIFY(isClose(scene.mesh->face(0)->normals[2], {0.6f, 0.8f, 0}));
    QCOMPARE(KMNormalEdit::symmetrizeNormals(*scene.mesh, 0.01f), 0);
}

KM_TEST(tst_KMNormalEdit);
#include "tst_KMNormalEdit.moc"
