#include "mesh/KMBevel.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMPolygonTiles.h"
#include "support/EditedSurface.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace {

using Ends = QVector<QPair<int, int>>;

bool bevel(KMMeshNode &mesh, float width, const KMBevel::Options &options = {})
{
    std::vector<KMBevel> bevels;
    bevels.emplace_back(mesh, options);
    bevels.front().setWidth(width);
    return KMBevel::apply(bevels);
}

void select(KMMeshNode &mesh, const Ends &edges)
{
    for (const auto &edge : edges)
        mesh.setEdgeFlag(edge.first, edge.second, KMElementFlag::Selected);
}

int selectedFaces(const KMMeshNode &mesh)
{
    return int(std::count_if(mesh.faces().begin(), mesh.faces().end(),
                             [](const KMFace *face) { return face && face->hasFlag(KMElementFlag::Selected); }));
}

/// A face that has no size, or whose texture isn't where EditedSurface put it; empty when there is none.
QString faceProblem(const KMMeshNode &mesh)
{
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace &face = *mesh.face(f);
        if (rawNormal(mesh, face).length() < 1e-7f)
            return QStringLiteral("face %1 is empty").arg(f);
        for (int c = 0; c < face.count; ++c) {
            const kvm::Vector3 &p = mesh.position(face.indices[c]);
            const kvm::Vector2 uv{p.x * 0.25f + p.y * 0.125f, p.z * 0.25f};
            if (std::abs(uv.x - face.uvs[c].x) + std::abs(uv.y - face.uvs[c].y) > 1e-3f)
                return QStringLiteral("corner %1 of face %2 has another UV").arg(c).arg(f);
        }
    }
    return {};
}

} // namespace

Q_DECLARE_METATYPE(Ends)

class tst_KMBevel : public QObject
{
    Q_OBJECT
private slots:
    void surfaces();
    void bodies_data();
    void bodies();
    void planes_data();
    void planes();
    void symmetry();
    void refusals();
    void tiles();
};

/// Random edges of surfaces of all kinds: closed ones stay closed and flat ones keep their area, however wide.
void tst_KMBevel::surfaces()
{
    for (int shape = 0; shape < EditedSurface::ShapeCount; ++shape) {
        for (int run = 0; run < 24; ++run) {
            EditedSurface surface(shape);
            KMMeshNode &mesh = *surface.scene.mesh;
            QRandomGenerator random(quint32(run + 1));
            const int density = 1 + run % 6;
            for (KMEdge *edge : mesh.edges()) {
                // At the corners of the outline a bevel takes away from the area.
                const bool isLeftOut = shape == EditedSurface::Star && edge->index1 > 7 && run % 2 == 0;
                if (random.bounded(density) == 0 && !isLeftOut)
                    mesh.setEdgeFlag(edge, KMElementFlag::Selected);
            }
            const bool isFlat = shape == EditedSurface::Grid || (shape == EditedSurface::Star && run % 2 == 0);
            const MeshProbe before(mesh);
            const int holes = EditedSurface::borderEdges(mesh);
            const float width = run % 3 == 0 ? 100.0f : 0.05f * float(run % 3);
            const QString name = QStringLiteral("shape %1, run %2: ").arg(shape).arg(run);
            const std::vector<KMBevel> probe{KMBevel(mesh, {})};
            if (probe.front().isEmpty())
                continue;
            const QString failure = surface.edit([&] { return bevel(mesh, width); });
            QVERIFY2(failure.isEmpty(), qPrintable(name + failure));
            const QString found = faceProblem(mesh);
            QVERIFY2(found.isEmpty(), qPrintable(name + found));
            const MeshProbe after(mesh);
            QVERIFY2(holes > 0 || (after.isClosed() && after.volume > 0.0), qPrintable(name));
            QVERIFY2(!isFlat || qAbs(after.area - before.area) < 1e-4 * before.area,
                     qPrintable(name + QStringLiteral("area %1 of %2").arg(after.area).arg(before.area)));
            QVERIFY2(after.euler() == before.euler(), qPrintable(name + QStringLiteral("it has come apart")));
        }
    }
}

void tst_KMBevel::bodies_data()
{
    QTest::addColumn<Ends>("edges");
    QTest::addColumn<int>("newFaces");
    QTest::addColumn<int>("faces");
    QTest::addColumn<int>("vertices");
    QTest::addColumn<double>("volume");
    const Ends top{{4, 5}, {5, 7}, {7, 6}, {6, 4}};
    const Ends corner{{0, 1}, {0, 2}, {0, 4}};
    Ends all;
    for (int i = 0; i < 8; ++i) {
        for (const int bit : {1, 2, 4}) {
            if (!(i & bit))
                all.append({i, i | bit});
        }
    }
    // A face that is cut at a corner falls into a quad and a triangle.
    QTest::newRow("one edge") << Ends{{0, 1}} << 1 << 9 << 10 << 8.0 - 0.04;
    QTest::newRow("a loop") << top << 4 << 10 << 12 << 8.0 - 0.8 + 0.2 / 3.0 * (4.0 + 2.56 + 3.2);
    QTest::newRow("a corner of three") << corner << 4 << 13 << 13 << -1.0;
    QTest::newRow("all") << all << 20 << 26 << 24 << -1.0;
}

void tst_KMBevel::bodies()
{
    QFETCH(Ends, edges);
    QFETCH(double, volume);
    MeshScene scene(MeshFixtures::cube());
    KMMeshNode &mesh = *scene.mesh;
    mesh.setFaceShader(0, 2);
    select(mesh, edges);
    QVERIFY(bevel(mesh, 0.2f));
    QCOMPARE(gSolution->undoStack()->undoText(), QStringLiteral("Bevel"));
    const MeshProbe probe(mesh);
    QVERIFY(probe.isClosed());
    QCOMPARE(probe.euler(), 2);
    QTEST(selectedFaces(mesh), "newFaces");
    QTEST(probe.faces, "faces");
    QTEST(probe.vertices, "vertices");
    QVERIFY(probe.volume < 8.0 && (volume < 0.0 || qAbs(probe.volume - volume) < 1e-5));
    for (const KMFace *face : mesh.faces()) {
        if (face->hasFlag(KMElementFlag::Selected) && face->count == 4) {
            // Width is the same all along a strip: its long sides are parallel.
            const kvm::Vector3 side = mesh.position(face->indices[2]) - mesh.position(face->indices[1]);
            const kvm::Vector3 other = mesh.position(face->indices[3]) - mesh.position(face->indices[0]);
            QVERIFY(cross(side, other).length() < 1e-5f);
        }
    }
}

void tst_KMBevel::planes_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<Ends>("edges");
    QTest::addColumn<int>("newFaces");
    QTest::addColumn<int>("moreBorder");
    QTest::newRow("inside") << int(EditedSurface::Grid) << Ends{{8, 9}} << 3 << 0;
    QTest::newRow("chain") << int(EditedSurface::Grid) << Ends{{8, 9}, {9, 10}, {10, 16}} << 5 << 0;
    QTest::newRow("from border to border") << int(EditedSurface::Grid) << Ends{{6, 7}, {7, 1}} << 2 << 2;
    QTest::newRow("all at a vertex of seven")
        << int(EditedSurface::Star) << Ends{{0, 1}, {0, 2}, {0, 3}, {0, 4}, {0, 5}, {0, 6}, {0, 7}} << -1 << 0;
    QTest::newRow("one at a vertex of seven") << int(EditedSurface::Star) << Ends{{0, 1}} << -1 << 0;
}

void tst_KMBevel::planes()
{
    QFETCH(int, shape);
    QFETCH(int, newFaces);
    EditedSurface surface(shape);
    KMMeshNode &mesh = *surface.scene.mesh;
    const int border = EditedSurface::borderEdges(mesh);
    const double area = MeshProbe(mesh).area;
    QFETCH(Ends, edges);
    select(mesh, edges);
    QCOMPARE(surface.edit([&] { return bevel(mesh, 0.2f); }), QString());
    QVERIFY(newFaces < 0 || selectedFaces(mesh) == newFaces);
    QTEST(EditedSurface::borderEdges(mesh) - border, "moreBorder");
    QVERIFY(qAbs(MeshProbe(mesh).area - area) < 1e-5 * area);
    QCOMPARE(faceProblem(mesh), QString());
}

void tst_KMBevel::symmetry()
{
    MeshScene scene(MeshFixtures::torus(8, 6));
    KMMeshNode &mesh = *scene.mesh;
    select(mesh, {{6, 7}, {7, 8}, {0, 6}});
    QVERIFY(bevel(mesh, 0.1f, {true, 1e-3f}));
    QCOMPARE(EditedSurface::unmirroredVertex(mesh, 1e-4f), -1);
    QCOMPARE(mesh.vertexCount() > 48, true);
}

void tst_KMBevel::refusals()
{
    MeshScene fan(MeshFixtures::nonManifoldFan());
    QVERIFY(!bevel(*fan.mesh, 0.1f));
    select(*fan.mesh, {{0, 1}, {0, 2}}); // of five faces, and of one
    QVERIFY(!bevel(*fan.mesh, 0.1f));
    QVERIFY(!KMBevel::apply({}));
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

/// Also polygons that are bent in fall into faces that cover them once.
void tst_KMBevel::tiles()
{
    for (int count = 3; count < 20; ++count) {
        for (const double bend : {0.0, 0.35}) {
            QVector<kvm::Vector3> polygon;
            for (int i = 0; i < count; ++i) {
                const double radius = 1.0 + (i % 2 ? bend : -bend);
                const double angle = 2 * M_PI * i / count;
                polygon.append({float(radius * std::cos(angle)), float(radius * std::sin(angle)), 0.0f});
            }
            double whole = 0.0;
            for (int i = 0; i < count; ++i)
                whole += double(cross(polygon.at(i), polygon.at((i + 1) % count)).z) / 2.0;
            double covered = 0.0;
            for (const KMPolygonTiles::Tile &tile : KMPolygonTiles::split(polygon)) {
                QVERIFY(tile.size() == 3 || tile.size() == 4);
                for (int i = 2; i < tile.size(); ++i) {
                    const kvm::Vector3 side = polygon.at(tile.at(i - 1)) - polygon.at(tile.at(0));
                    const float part = cross(side, polygon.at(tile.at(i)) - polygon.at(tile.at(0))).z / 2.0f;
                    QVERIFY(part > 0.0f || count == 4);
                    covered += double(part);
                }
            }
            QVERIFY(qAbs(covered - whole) < 1e-5);
        }
    }
}

KM_TEST(tst_KMBevel);
#include "tst_KMBevel.moc"
