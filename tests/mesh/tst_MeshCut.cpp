#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeChains.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMEdgeSmooth.h"
#include "mesh/KMEdgeSplit.h"
#include "mesh/KMHoleFill.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"
#include "support/MeshFixtures.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <functional>

namespace {

using Random = QRandomGenerator;

double number(Random &random, double low, double high)
{
    return low + (high - low) * random.generateDouble();
}

/// A flat grid whose vertices lie up to so much of a cell beside their places, with UVs that are the places. Quads may
/// be bent in at a corner.
KMMeshNode *shakenGrid(int size, double shift, Random &random)
{
    KMMeshNode *mesh = MeshFixtures::grid(size, size);
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        const kvm::Vector3 p = mesh->position(i);
        if (p.x > 0 && p.z > 0 && p.x < float(size) && p.z < float(size))
            mesh->setPosition(
                i, p + kvm::Vector3(float(number(random, -shift, shift)), 0.0f, float(number(random, -shift, shift))));
    }
    for (KMFace *face : mesh->faces()) {
        face->shader = int(random.bounded(3));
        for (int c = 0; c < face->count; ++c)
            face->uvs[c] = {mesh->position(face->indices[c]).x, mesh->position(face->indices[c]).z};
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// A band of quads around a hole in the shape of a star; its inner rim are the vertices below its number of corners.
KMMeshNode *starBand(int corners, double bumps, Random &random)
{
    auto *mesh = new KMMeshNode;
    for (const double scale : {1.0, 1.6}) {
        for (int i = 0; i < corners; ++i)
            mesh->addVertexRaw({float(scale), 0, float(i)});
    }
    for (int i = 0; i < corners; ++i) {
        const double angle = 2 * M_PI * (i + number(random, 0.0, 0.8)) / corners;
        const double radius = number(random, 1.0, 9.0);
        for (const int vertex : {i, i + corners}) {
            const double r = radius * double(mesh->position(vertex).x);
            mesh->setPosition(
                vertex, {float(r * std::cos(angle)), float(number(random, -bumps, bumps)), float(r * std::sin(angle))});
        }
    }
    for (int i = 0; i < corners; ++i) {
        const int next = (i + 1) % corners;
        const int quad[] = {next, i, i + corners, next + corners};
        mesh->setFaceShader(mesh->addFaceRaw(4, quad), i % 2);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// Twice the area with its sign: seen from above, or in the plane of the UVs.
double upwardArea(const KMMeshNode &mesh, bool ofUVs)
{
    double area = 0.0;
    for (const KMFace *face : mesh.faces()) {
        for (int c = 2; face && c < face->count; ++c) {
            double x[3], y[3];
            for (int k = 0; k < 3; ++k) {
                const int corner = k == 0 ? 0 : c - 2 + k;
                const kvm::Vector3 &p = mesh.position(face->indices[corner]);
                x[k] = double(ofUVs ? face->uvs[corner].x : p.x);
                y[k] = double(ofUVs ? face->uvs[corner].y : p.z);
            }
            area += (x[1] - x[0]) * (y[2] - y[0]) - (x[2] - x[0]) * (y[1] - y[0]);
        }
    }
    return area;
}

/// The sum of what faces cover on the map, each without its sign: more than the area where faces overlap or are turned.
double coveredArea(const KMMeshNode &mesh)
{
    double area = 0.0;
    for (const KMFace *face : mesh.faces()) {
        if (!face || !face->isPolygon())
            continue;
        KMMeshNode single;
        for (int c = 0; c < face->count; ++c)
            single.addVertexRaw(mesh.position(face->indices[c]));
        const int corners[] = {0, 1, 2, 3};
        single.addFaceRaw(face->count, corners);
        area += std::abs(upwardArea(single, false));
    }
    return area;
}

int openEdges(const KMMeshNode &mesh)
{
    int open = 0;
    for (const KMEdge *edge : mesh.edges())
        open += edge->faceRefs.size() == 1;
    return open;
}

/// Sides that two faces run along in the same direction: one of the two is turned over.
int clashes(const KMMeshNode &mesh)
{
    QSet<QPair<int, int>> sides;
    int found = 0;
    for (const KMFace *face : mesh.faces()) {
        for (int c = 0; face && c < face->count; ++c) {
            const QPair<int, int> side(face->indices[c], face->next(c));
            found += sides.contains(side);
            sides.insert(side);
        }
    }
    return found;
}

bool hasLooseVertex(const KMMeshNode &mesh)
{
    return std::any_of(mesh.vertices().begin(), mesh.vertices().end(),
                       [](const KMVertex *vertex) { return vertex && vertex->faceRefs.isEmpty(); });
}

/// Does the edit as one step and walks it back and forth. Returns what is wrong.
QString stepProblem(MeshScene &scene, const std::function<void(KMMeshNode &)> &edit)
{
    const QString before = meshText(*scene.mesh);
    {
        const KMUndoMacro macro(QStringLiteral("edit"));
        edit(*scene.mesh);
    }
    const QString after = meshText(*scene.mesh);
    QString problem = checkInvariants(*scene.mesh);
    QUndoStack *stack = gSolution->undoStack();
    for (int round = 0; problem.isEmpty() && round < 2; ++round) {
        stack->undo();
        if (meshText(*scene.mesh) != before)
            problem = QStringLiteral("undo doesn't lead back");
        stack->redo();
        if (meshText(*scene.mesh) != after)
            problem = QStringLiteral("the next redo differs");
    }
    return problem;
}

} // namespace

class tst_MeshCut : public QObject
{
    Q_OBJECT
private slots:
    void cutsKeepTheSurface_data();
    void cutsKeepTheSurface();
    void cutsKeepClosedMeshes();
    void patterns_data();
    void patterns();
    void cutEdgesCarryOn();
    void starsFill_data();
    void starsFill();
    void holesOfGridsFill();
    void cornerOfACubeFills();
    void openChainsFillNothing();
    void fillsOnce_data();
    void fillsOnce();
    void roundsThatTouch();
    void splitsAlongEdges_data();
    void splitsAlongEdges();
};

void tst_MeshCut::cutsKeepTheSurface_data()
{
    QTest::addColumn<double>("shift");
    QTest::newRow("even") << 0.0;
    QTest::newRow("shaken") << 0.2;
    QTest::newRow("with quads bent in") << 0.42;
}

/// Random cuts in a flat mesh: it covers the same ground once, the UVs as well, and each point is joined.
void tst_MeshCut::cutsKeepTheSurface()
{
    QFETCH(double, shift);
    for (quint32 seed = 1; seed <= 12; ++seed) {
        Random random(seed);
        MeshScene scene(shakenGrid(4, shift, random));
        const double area = upwardArea(*scene.mesh, false);
        const double covered = coveredArea(*scene.mesh);
        QVector<KMEdgeCut> cuts;
        const double share = number(random, 0.1, 1.0);
        for (const KMEdge *edge : scene.mesh->edges()) {
            KMEdgeCut cut{edge->index0, edge->index1, {}};
            if (random.bounded(2))
                std::swap(cut.a, cut.b);
            for (int left = number(random, 0, 1) < share ? int(random.bounded(4)) : 0; left > 0; --left)
                cut.ratios << float(number(random, 0.02, 0.98));
            cuts << cut;
        }
        QVector<QVector<int>> made;
        const QString problem = stepProblem(scene, [&](KMMeshNode &mesh) { made = KMMeshEdit::cutEdges(mesh, cuts); });
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
        for (int i = 0; i < cuts.size(); ++i) {
            QVector<float> ratios = cuts.at(i).ratios;
            std::sort(ratios.begin(), ratios.end());
            QCOMPARE(made.at(i).size(), ratios.size());
            const kvm::Vector3 a = scene.mesh->position(cuts.at(i).a);
            const kvm::Vector3 b = scene.mesh->position(cuts.at(i).b);
            for (int k = 0; k < ratios.size(); ++k)
                QVERIFY((scene.mesh->position(made.at(i).at(k)) - (a + (b - a) * ratios.at(k))).length() < 1e-5f);
        }
        QVERIFY(!hasLooseVertex(*scene.mesh));
        QCOMPARE(clashes(*scene.mesh), 0);
        QVERIFY(std::abs(upwardArea(*scene.mesh, false) - area) < 1e-3);
        QVERIFY(std::abs(upwardArea(*scene.mesh, true) - area) < 1e-3);
        QVERIFY2(std::abs(coveredArea(*scene.mesh) - covered) < 1e-3,
                 qPrintable(QStringLiteral("%1 %2").arg(coveredArea(*scene.mesh)).arg(covered)));
    }
}

void tst_MeshCut::cutsKeepClosedMeshes()
{
    for (quint32 seed = 1; seed <= 6; ++seed) {
        Random random(seed);
        MeshScene scene(seed % 2 ? MeshFixtures::torus(7, 5) : MeshFixtures::cube());
        const int euler = MeshProbe(*scene.mesh).euler();
        QVector<KMEdgeCut> cuts;
        for (const KMEdge *edge : scene.mesh->edges()) {
            if (random.bounded(3))
                cuts.append({edge->index1, edge->index0, {0.25f, 0.5f}});
        }
        const QString problem = stepProblem(scene, [&](KMMeshNode &mesh) { KMMeshEdit::cutEdges(mesh, cuts); });
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
        scene.mesh->compact();
        const MeshProbe probe(*scene.mesh);
        QVERIFY(probe.isClosed());
        QCOMPARE(probe.euler(), euler);
    }
}

void tst_MeshCut::patterns_data()
{
    QTest::addColumn<QVector<int>>("cuts"); // in the sides of a quad, or a triangle
    QTest::addColumn<int>("quads");
    QTest::addColumn<int>("triangles");
    QTest::newRow("one side") << QVector<int>{1, 0, 0, 0} << 0 << 3;
    QTest::newRow("one side twice") << QVector<int>{0, 2, 0, 0} << 1 << 2;
    QTest::newRow("a strip") << QVector<int>{2, 0, 2, 0} << 3 << 0;
    QTest::newRow("a strip that widens") << QVector<int>{0, 2, 0, 1} << 2 << 1;
    QTest::newRow("around a corner") << QVector<int>{1, 1, 0, 0} << 0 << 4;
    QTest::newRow("a grid") << QVector<int>{3, 3, 3, 3} << 16 << 0;
    QTest::newRow("a triangle's side") << QVector<int>{0, 0, 2} << 0 << 3;
    QTest::newRow("two of them") << QVector<int>{0, 2, 2} << 2 << 1;
    QTest::newRow("all of them") << QVector<int>{2, 2, 2} << 0 << 9;
}

void tst_MeshCut::patterns()
{
    QFETCH(QVector<int>, cuts);
    QFETCH(int, quads);
    QFETCH(int, triangles);
    auto *mesh = new KMMeshNode;
    const int corners[] = {0, 1, 2, 3};
    for (const kvm::Vector3 &p : {kvm::Vector3(0, 0, 0), {4, 0, 0}, {5, 0, 4}, {0, 0, 3}})
        mesh->addVertexRaw(p);
    mesh->addFaceRaw(cuts.size(), corners);
    mesh->refreshMesh(KMMeshDirty::All);
    MeshScene scene(mesh);
    QVector<KMEdgeCut> edges;
    for (int c = 0; c < cuts.size(); ++c) {
        edges.append({c, (c + 1) % cuts.size(), {}});
        for (int i = 1; i <= cuts.at(c); ++i)
            edges.last().ratios << float(i) / float(cuts.at(c) + 1);
    }
    const double area = upwardArea(*mesh, false);
    KMMeshEdit::cutEdges(*mesh, edges);
    int found[5] = {};
    for (const KMFace *face : mesh->faces())
        found[face ? face->count : 0] += 1;
    QCOMPARE(found[4], quads);
    QCOMPARE(found[3], triangles);
    QVERIFY(std::abs(upwardArea(*mesh, false) - area) < 1e-4);
}

void tst_MeshCut::cutEdgesCarryOn()
{
    MeshScene scene(MeshFixtures::mixedBag());
    KMMeshNode &mesh = *scene.mesh;
    mesh.vertex(0)->weight = 1.0f;
    for (KMEdge *edge : {mesh.findEdge(0, 1), mesh.findEdge(6, 8)}) {
        mesh.setEdgeFlag(edge, KMElementFlag::Selected);
        edge->weight = 0.5f;
    }
    mesh.findEdge(0, 3)->weight = 0.75f;
    QVector<QVector<int>> made;
    const QString problem = stepProblem(scene, [&made](KMMeshNode &m) {
        made = KMMeshEdit::cutEdges(m, {{1, 0, {0.25f}}, {6, 8, {0.5f, 0.5f}}, {0, 1, {0.5f}}, {0, 4, {0.5f}}});
    });
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QCOMPARE(made.at(0).size(), 1);
    QCOMPARE(made.at(1).size(), 1);
    QVERIFY(made.at(2).isEmpty() && made.at(3).isEmpty());
    const int cut = made.at(0).first();
    QCOMPARE(mesh.vertex(cut)->weight, 0.25f);
    for (const KMEdge *part : {mesh.findEdge(0, cut), mesh.findEdge(cut, 1), mesh.findEdge(6, made.at(1).first())}) {
        QVERIFY(part && part->hasFlag(KMElementFlag::Selected));
        QCOMPARE(part->weight, 0.5f);
    }
    QCOMPARE(mesh.findEdge(0, 3)->weight, 0.75f);
    QVERIFY(mesh.faceOfEdge(8, made.at(1).first()) >= 0);
}

void tst_MeshCut::starsFill_data()
{
    QTest::addColumn<double>("bumps");
    QTest::newRow("flat") << 0.0;
    QTest::newRow("uneven") << 0.4;
}

/// The filling covers the hole once, looks where the band does, and leaves the outer rim alone open.
void tst_MeshCut::starsFill()
{
    QFETCH(double, bumps);
    for (quint32 seed = 1; seed <= 30; ++seed) {
        Random random(seed);
        const int corners = 3 + int(random.bounded(60));
        MeshScene scene(starBand(corners, bumps, random));
        for (int i = 0; i < corners; ++i)
            scene.mesh->setEdgeFlag(i, (i + 1) % corners, KMElementFlag::Selected);
        double hole = 0.0;
        for (int i = 0; i < corners; ++i) {
            const kvm::Vector3 a = scene.mesh->position(i);
            const kvm::Vector3 b = scene.mesh->position((i + 1) % corners);
            hole += double(a.x) * double(b.z) - double(b.x) * double(a.z);
        }
        const double before = coveredArea(*scene.mesh);
        const QString problem = stepProblem(scene, [](KMMeshNode &mesh) { KMMeshEdit::fillSelectedHoles(mesh); });
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
        QCOMPARE(scene.mesh->faceCount(), corners + corners - 2);
        QCOMPARE(scene.mesh->vertexCount(), 2 * corners);
        QCOMPARE(openEdges(*scene.mesh), corners);
        QCOMPARE(clashes(*scene.mesh), 0);
        for (const KMEdge *edge : scene.mesh->edges())
            QVERIFY(edge->faceRefs.size() <= 2);
        if (bumps == 0.0) {
            const double filled = coveredArea(*scene.mesh) - before;
            QVERIFY2(std::abs(filled - std::abs(hole)) < 1e-3 * std::abs(hole), qPrintable(QString::number(seed)));
        }
        for (int f = corners; f < scene.mesh->faceCount(); ++f)
            QVERIFY(scene.mesh->faceShader(f) >= 0);
    }
}

void tst_MeshCut::holesOfGridsFill()
{
    for (quint32 seed = 1; seed <= 10; ++seed) {
        Random random(seed);
        constexpr int size = 12;
        MeshScene scene(shakenGrid(size, 0.3, random));
        KMMeshNode &mesh = *scene.mesh;
        const double area = coveredArea(mesh);
        for (int z = 1; z + 3 < size; z += 4) {
            for (int x = 1; x + 3 < size; x += 4) {
                for (int cells = 1 + int(random.bounded(4)), i = 0; i < cells; ++i) { // one, two, an L, or a square
                    const int f = (z + i / 2) * size + x + i % 2;
                    mesh.removeFaceRefs(f);
                    mesh.setFace(f, nullptr);
                }
            }
        }
        mesh.refreshMesh(KMMeshDirty::All);
        for (KMEdge *edge : mesh.edges()) {
            const kvm::Vector3 middle = (mesh.position(edge->index0) + mesh.position(edge->index1)) * 0.5f;
            if (edge->faceRefs.size() == 1 && std::max(std::abs(middle.x - 6), std::abs(middle.z - 6)) < 6)
                mesh.setEdgeFlag(edge, KMElementFlag::Selected);
        }
        int filled = 0;
        const QString problem =
            stepProblem(scene, [&filled](KMMeshNode &m) { filled = KMMeshEdit::fillSelectedHoles(m); });
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
        QCOMPARE(filled, 4);
        QCOMPARE(openEdges(mesh), 4 * size);
        QCOMPARE(clashes(mesh), 0);
        QVERIFY(std::abs(coveredArea(mesh) - area) < 1e-3);
    }
}

/// Three of the six corners of the rim lie on each of the faces that are left: most fillings would lie on one.
void tst_MeshCut::cornerOfACubeFills()
{
    for (int corner = 0; corner < 8; ++corner) {
        MeshScene scene(MeshFixtures::cube());
        KMMeshNode &mesh = *scene.mesh;
        for (int f = 0; f < 6; ++f) {
            if (mesh.face(f)->hasVertex(corner)) {
                mesh.removeFaceRefs(f);
                mesh.setFace(f, nullptr);
            }
        }
        mesh.refreshMesh(KMMeshDirty::All);
        for (KMEdge *edge : mesh.edges()) {
            if (edge->faceRefs.size() == 1)
                mesh.setEdgeFlag(edge, KMElementFlag::Selected);
        }
        QCOMPARE(KMMeshEdit::fillSelectedHoles(mesh), 1);
        QCOMPARE(openEdges(mesh), 0);
        QCOMPARE(clashes(mesh), 0);
        for (const KMEdge *edge : mesh.edges())
            QCOMPARE(int(edge->faceRefs.size()), 2);
    }
}

void tst_MeshCut::openChainsFillNothing()
{
    MeshScene scene(MeshFixtures::quadWithHole());
    KMMeshNode &mesh = *scene.mesh;
    QVector<KMEdgeEnds> rim;
    for (const KMEdgeEnds &edge : {KMEdgeEnds{5, 6}, {6, 10}, {9, 10}, {5, 9}})
        rim << edge;
    const auto select = [&](int skipped) {
        mesh.clearAllEdgeFlags(KMElementFlag::Selected);
        for (int i = 0; i < rim.size(); ++i) {
            if (i != skipped)
                mesh.setEdgeFlag(rim.at(i).a, rim.at(i).b, KMElementFlag::Selected);
        }
    };
    select(2);
    QCOMPARE(KMMeshEdit::fillSelectedHoles(mesh), 0);
    select(-1);
    mesh.setEdgeFlag(1, 5, KMElementFlag::Selected); // hangs on the rim
    QCOMPARE(KMMeshEdit::fillSelectedHoles(mesh), 0);
    select(-1);
    QCOMPARE(KMMeshEdit::fillSelectedHoles(mesh), 1);
    QCOMPARE(KMMeshEdit::fillHole(mesh, {0, 1, 5, 4}).size(), 0); // a face is there
    QCOMPARE(KMMeshEdit::fillHole(mesh, {0, 1, 2, 3}).size(), 0); // encloses nothing
}

void tst_MeshCut::fillsOnce_data()
{
    QTest::addColumn<int>("mesh");
    QTest::addColumn<QVector<int>>("rim");
    QTest::addColumn<int>("faces"); // that the filling has
    QTest::newRow("a hole") << 0 << QVector<int>{5, 6, 10, 9} << 2;
    QTest::newRow("around a closed surface") << 1 << QVector<int>{0, 1, 2, 3, 4, 5} << 0;
    QTest::newRow("bare lines") << 2 << QVector<int>{0, 1, 2, 3, 4} << 3;
}

/// The rim stays selected: the next filling must not lie on the first.
void tst_MeshCut::fillsOnce()
{
    QFETCH(int, mesh);
    QFETCH(QVector<int>, rim);
    QFETCH(int, faces);
    KMMeshNode *(*const makers[])() = {&MeshFixtures::quadWithHole, [] { return MeshFixtures::torus(9, 6); },
                                       [] {
                                           auto *lines = new KMMeshNode;
                                           for (int i = 0; i < 5; ++i)
                                               lines->addVertexRaw({std::cos(i * 1.2f), 0.1f * i, std::sin(i * 1.2f)});
                                           for (int i = 0; i < 5; ++i) {
                                               const int ends[] = {i, (i + 1) % 5};
                                               lines->addFaceRaw(2, ends);
                                           }
                                           lines->refreshMesh(KMMeshDirty::All);
                                           return lines;
                                       }};
    MeshScene scene(makers[mesh]());
    for (int i = 0; i < rim.size(); ++i) {
        QVERIFY(scene.mesh->findEdge(rim.at(i), rim.at((i + 1) % rim.size())));
        scene.mesh->setEdgeFlag(rim.at(i), rim.at((i + 1) % rim.size()), KMElementFlag::Selected);
    }
    const int before = scene.mesh->faceCount();
    for (int press = 0; press < 3; ++press) {
        const int filled = KMMeshEdit::fillSelectedHoles(*scene.mesh);
        QCOMPARE(filled, int(press == 0 && faces > 0));
        QCOMPARE(scene.mesh->faceCount(), before + faces);
    }
}

/// Two holes with one vertex in common are filled both, and smoothing doesn't tear them from it.
void tst_MeshCut::roundsThatTouch()
{
    MeshScene scene(MeshFixtures::grid(4, 4));
    KMMeshNode &mesh = *scene.mesh;
    for (const int f : {5, 10}) {
        for (int c = 0; c < 4; ++c)
            mesh.setEdgeFlag(mesh.face(f)->indices[c], mesh.face(f)->next(c), KMElementFlag::Selected);
        mesh.removeFaceRefs(f);
        mesh.setFace(f, nullptr);
    }
    mesh.refreshMesh(KMMeshDirty::All);
    const kvm::Vector3 shared = mesh.position(12);
    QString problem = stepProblem(scene, [](KMMeshNode &m) { KMMeshEdit::fillSelectedHoles(m); });
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QCOMPARE(openEdges(mesh), 16);
    QCOMPARE(clashes(mesh), 0);
    QVERIFY(std::abs(coveredArea(mesh) - 32.0) < 1e-3); // twice that of the grid
    problem = stepProblem(scene, [](KMMeshNode &m) { KMMeshEdit::smoothEdges(m); });
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QVERIFY(mesh.position(12) == shared && mesh.position(6) != kvm::Vector3(1, 0, 1));
}

void tst_MeshCut::splitsAlongEdges_data()
{
    QTest::addColumn<QVector<int>>("line"); // vertices of a 4 by 4 grid, which has 25
    QTest::addColumn<int>("added");
    QTest::addColumn<int>("opened"); // border edges more than before
    QTest::newRow("right across") << QVector<int>{2, 7, 12, 17, 22} << 5 << 8;
    QTest::newRow("ends inside") << QVector<int>{2, 7, 12} << 2 << 4;
    QTest::newRow("within") << QVector<int>{7, 12, 17} << 1 << 4;
    QTest::newRow("a single edge") << QVector<int>{7, 12} << 0 << 0;
    QTest::newRow("around a face") << QVector<int>{6, 7, 12, 11, 6} << 4 << 8;
    QTest::newRow("the border") << QVector<int>{0, 1, 2} << 0 << 0;
}

void tst_MeshCut::splitsAlongEdges()
{
    QFETCH(QVector<int>, line);
    QFETCH(int, added);
    QFETCH(int, opened);
    MeshScene scene(MeshFixtures::grid(4, 4));
    KMMeshNode &mesh = *scene.mesh;
    for (int i = 1; i < line.size(); ++i) {
        mesh.setEdgeFlag(line.at(i - 1), line.at(i), KMElementFlag::Selected);
        mesh.findEdge(line.at(i - 1), line.at(i))->weight = 0.5f;
    }
    const int border = openEdges(mesh);
    const QString problem =
        stepProblem(scene, [](KMMeshNode &m) { KMMeshEdit::splitEdges(m, KMElementFlag::Selected); });
    QVERIFY2(problem.isEmpty(), qPrintable(problem));
    QCOMPARE(mesh.vertexCount(), 25 + added);
    QCOMPARE(openEdges(mesh), border + opened);
    const QVector<KMEdgeEnds> selected = KMSelectedElements::edges(mesh);
    QCOMPARE(selected.size(), line.size() - 1 + opened / 2);
    for (const KMEdgeEnds &edge : selected)
        QCOMPARE(mesh.findEdge(edge.a, edge.b)->weight, 0.5f);
}

KM_TEST(tst_MeshCut);
#include "tst_MeshCut.moc"
