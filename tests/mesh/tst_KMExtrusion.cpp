#include "mesh/KMExtrusion.h"

#include "core/KMSolution.h"
#include "mesh/KMFaceNormal.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "support/EditedSurface.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <cmath>

using Mode = KMExtrusion::Mode;

namespace {

enum Selection { All, Some };

void select(KMMeshNode &mesh, Selection selection)
{
    QRandomGenerator random(7);
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (selection == All || random.bounded(3) == 0)
            mesh.setFaceFlag(f, KMElementFlag::Selected);
    }
}

bool extrude(KMMeshNode &mesh, const KMExtrusion::Options &options, float length)
{
    std::vector<KMExtrusion> extrusions;
    extrusions.emplace_back(mesh, options);
    extrusions.front().setLength(length);
    return KMExtrusion::apply(extrusions);
}

int selectedFaces(const KMMeshNode &mesh)
{
    return int(std::count_if(mesh.faces().begin(), mesh.faces().end(),
                             [](const KMFace *face) { return face && face->hasFlag(KMElementFlag::Selected); }));
}

} // namespace

class tst_KMExtrusion : public QObject
{
    Q_OBJECT
private slots:
    void surfaces_data();
    void surfaces();
    void lengths();
    void offsetStaysInPlane();
    void plates();
    void hollows();
    void copies();
    void symmetry();
    void refusals();
};

void tst_KMExtrusion::surfaces_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("perFaces");
    QTest::newRow("together") << int(Mode::Default) << false;
    QTest::newRow("each face") << int(Mode::Default) << true;
    QTest::newRow("offset together") << int(Mode::Offset) << false;
    QTest::newRow("offset of each face") << int(Mode::Offset) << true;
    QTest::newRow("vertices") << int(Mode::MoveVertex) << false;
}

/// Random selections on surfaces of all kinds, there and back through the history.
void tst_KMExtrusion::surfaces()
{
    QFETCH(int, mode);
    QFETCH(bool, perFaces);
    for (int shape = 0; shape < EditedSurface::ShapeCount; ++shape) {
        for (const float length : {0.15f, -0.15f, 0.0f, 40.0f}) {
            EditedSurface surface(shape);
            KMMeshNode &mesh = *surface.scene.mesh;
            select(mesh, Some);
            KMExtrusion::Options options;
            options.mode = Mode(mode);
            options.perFaces = perFaces;
            const int selected = selectedFaces(mesh);
            const int border = EditedSurface::borderEdges(mesh);
            const QString failure = surface.edit([&] { return extrude(mesh, options, length); });
            QVERIFY2(failure.isEmpty(),
                     qPrintable(QStringLiteral("shape %1, length %2: %3").arg(shape).arg(double(length)).arg(failure)));
            QCOMPARE(selectedFaces(mesh), selected);
            QCOMPARE(EditedSurface::borderEdges(mesh), border);
        }
    }
}

void tst_KMExtrusion::lengths()
{
    for (const float length : {1.0f, -0.5f}) {
        MeshScene scene(MeshFixtures::cube());
        KMMeshNode &mesh = *scene.mesh;
        mesh.setFaceFlag(3, KMElementFlag::Selected);
        QVERIFY(extrude(mesh, {}, length));
        QCOMPARE(gSolution->undoStack()->undoText(), QStringLiteral("Extrude"));
        QVERIFY(KMMeshEdit::compact(mesh));
        const MeshProbe probe(mesh);
        QVERIFY(probe.isClosed());
        QCOMPARE(float(probe.volume), 8.0f + 4.0f * length);
        QCOMPARE(probe.faces, 10);
        QCOMPARE(probe.vertices, 12);
    }
}

/// Nothing overlaps as long as the area stays, however far the sides are asked to go.
void tst_KMExtrusion::offsetStaysInPlane()
{
    for (const bool perFaces : {false, true}) {
        for (const float length : {0.2f, 0.45f, 3.0f, 1000.0f}) {
            EditedSurface surface(EditedSurface::Star);
            KMMeshNode &mesh = *surface.scene.mesh;
            const double area = MeshProbe(mesh).area;
            select(mesh, Some);
            KMExtrusion::Options options;
            options.mode = Mode::Offset;
            options.perFaces = perFaces;
            QVERIFY(extrude(mesh, options, length));
            KMMeshEdit::compact(mesh);
            QVERIFY(qAbs(MeshProbe(mesh).area - area) < 1e-4 * area);
        }
    }
    MeshScene scene(MeshFixtures::grid(2, 1));
    select(*scene.mesh, All);
    KMExtrusion::Options options;
    options.mode = Mode::Offset;
    QVERIFY(extrude(*scene.mesh, options, 0.25f));
    double inner = 0.0;
    for (const KMFace *face : scene.mesh->faces()) {
        if (face && face->hasFlag(KMElementFlag::Selected))
            inner += double(rawNormal(*scene.mesh, *face).length());
    }
    QCOMPARE(inner, 0.75);
}

/// An open surface becomes a closed body that shows its outside, for either sign.
void tst_KMExtrusion::plates()
{
    for (const float length : {0.5f, -0.5f}) {
        MeshScene scene(MeshFixtures::grid(3, 2));
        KMMeshNode &mesh = *scene.mesh;
        mesh.findEdge(0, 1)->weight = 0.5f;
        select(mesh, All);
        KMExtrusion::Options options;
        options.mode = Mode::Solidify;
        QVERIFY(extrude(mesh, options, length));
        const MeshProbe probe(mesh);
        QVERIFY(probe.isClosed());
        QCOMPARE(probe.volume, 3.0);
        QCOMPARE(probe.euler(), 2);
        mesh.refreshMesh(mesh.dirtyMask());
        float weights = 0.0f;
        for (const KMEdge *edge : mesh.edges())
            weights += edge->weight;
        QCOMPARE(weights, 1.0f); // the crease and its copy, though faces were turned over
    }
}

void tst_KMExtrusion::hollows()
{
    for (const float length : {0.5f, -0.5f}) {
        MeshScene scene(MeshFixtures::cube());
        select(*scene.mesh, All);
        KMExtrusion::Options options;
        options.mode = Mode::Solidify;
        QVERIFY(extrude(*scene.mesh, options, length));
        const MeshProbe probe(*scene.mesh);
        QVERIFY(probe.isClosed());
        const double side = 2.0 * (1.0 + double(length) / std::sqrt(3.0));
        QVERIFY(qAbs(probe.volume - std::abs(side * side * side - 8.0)) < 1e-4);
        QCOMPARE(probe.faces, 12);
    }
}

/// Corners, UVs and shaders come along; walls carry the UVs of their edge.
void tst_KMExtrusion::copies()
{
    EditedSurface surface(EditedSurface::Grid);
    KMMeshNode &mesh = *surface.scene.mesh;
    mesh.setFaceFlag(4, KMElementFlag::Selected);
    const KMFace source = *mesh.face(4);
    const int faces = mesh.faceCount();
    QVERIFY(extrude(mesh, {}, 1.0f));
    const KMFace &copy = *mesh.face(faces);
    QCOMPARE(copy.shader, source.shader);
    QVERIFY(!mesh.face(4));
    for (int c = 0; c < 4; ++c) {
        QVERIFY(copy.uvs[c] == source.uvs[c]);
        const kvm::Vector3 way = mesh.position(copy.indices[c]) - mesh.position(source.indices[c]);
        QVERIFY((way
                 - KMFaceNormal::ofQuad(mesh.position(source.indices[0]), mesh.position(source.indices[1]),
                                        mesh.position(source.indices[2]), mesh.position(source.indices[3])))
                    .length()
                < 1e-5f);
    }
    for (int f = faces + 1; f < mesh.faceCount(); ++f) {
        const KMFace &wall = *mesh.face(f);
        QCOMPARE(wall.shader, source.shader);
        for (int c = 0; c < 2; ++c) {
            QVERIFY(wall.uvs[c] == source.uvs[source.cornerOf(wall.indices[c])]);
            QVERIFY(wall.uvs[3 - c] == wall.uvs[c]);
        }
    }
}

void tst_KMExtrusion::symmetry()
{
    for (const Mode mode : {Mode::Default, Mode::Offset, Mode::Solidify, Mode::MoveVertex, Mode::Towards}) {
        for (const QVector<int> &selected : {QVector<int>{1}, QVector<int>{0, 5}, QVector<int>{2, 6, 3}}) {
            MeshScene scene(MeshFixtures::torus(8, 6)); // its plane is that of x
            KMMeshNode &mesh = *scene.mesh;
            for (const int f : selected)
                mesh.setFaceFlag(f, KMElementFlag::Selected);
            KMExtrusion::Options options{mode, false, true, 1e-3f};
            std::vector<KMExtrusion> extrusions;
            extrusions.emplace_back(mesh, options);
            if (mode == Mode::Towards)
                extrusions.front().setWay({0.3f, 0.4f, -0.2f});
            else
                extrusions.front().setLength(0.3f);
            QVERIFY(KMExtrusion::apply(extrusions));
            QCOMPARE(EditedSurface::unmirroredVertex(mesh, 1e-4f), -1);
            mesh.refreshMesh(KMMeshDirty::All);
            QVERIFY(mode == Mode::MoveVertex || selectedFaces(mesh) > selected.size());
        }
    }
}

void tst_KMExtrusion::refusals()
{
    MeshScene scene(MeshFixtures::mixedBag());
    QVERIFY(!extrude(*scene.mesh, {}, 1.0f));            // nothing is selected
    scene.mesh->setFaceFlag(3, KMElementFlag::Selected); // a line polygon
    QVERIFY(!extrude(*scene.mesh, {}, 1.0f));
    scene.mesh->setFaceFlag(0, KMElementFlag::Selected | KMElementFlag::Hidden);
    QVERIFY(!extrude(*scene.mesh, {}, 1.0f));
    QVERIFY(!KMExtrusion::apply({}));
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

KM_TEST(tst_KMExtrusion);
#include "tst_KMExtrusion.moc"
