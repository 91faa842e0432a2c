#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "tools/KMViewSurface.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>
#include <memory>
#include <optional>

using kvm::Vector3;

namespace {

/// Triangles all over the place, in front of the camera and behind it.
KMMeshNode *soup(quint32 seed, int count, float size)
{
    QRandomGenerator random(seed);
    const auto number = [&](float reach) { return (float(random.generateDouble()) - 0.5f) * 2.0f * reach; };
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < count; ++i) {
        const Vector3 middle(number(300), number(300), number(700));
        for (int c = 0; c < 4; ++c)
            mesh->addVertexRaw(middle + Vector3(number(size), number(size), number(size)));
        const int corners[] = {4 * i, 4 * i + 1, 4 * i + 2, 4 * i + 3};
        mesh->addFaceRaw(3 + i % 2, corners);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// The nearest hit of a line with each of the triangles, in space and not in the window.
std::optional<Vector3> hitOfAll(const KMPickRay &ray, const KMMeshNode &mesh)
{
    double best = 0.0, depth = 0.0;
    bool isHit = false;
    for (const KMFace *face : mesh.faces()) {
        const auto corner = [&](int c) { return mesh.position(face->indices[c]); };
        for (int t = 0; t < face->count - 2 && !face->hasFlag(KMElementFlag::Hidden); ++t) {
            if (ray.hits(corner(0), corner(t + 1), corner(t + 2), depth) && (!isHit || depth < best)) {
                isHit = true;
                best = depth;
            }
        }
    }
    return isHit ? std::optional<Vector3>(ray.pointAt(best)) : std::nullopt;
}

bool isSame(const std::optional<Vector3> &a, const std::optional<Vector3> &b)
{
    return bool(a) == bool(b) && (!a || (*a - *b).length() <= 1e-4f * (1.0f + a->length()));
}

} // namespace

class tst_KMViewSurface : public QObject
{
    Q_OBJECT
private slots:
    void asInSpace_data();
    void asInSpace();
    void noGapAtSides();
};

void tst_KMViewSurface::asInSpace_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<float>("size");
    QTest::newRow("perspective, small triangles") << int(KMCameraNode::Perspective) << 20.0f;
    QTest::newRow("perspective, large ones, some astride of the eye") << int(KMCameraNode::Perspective) << 400.0f;
    QTest::newRow("from above") << int(KMCameraNode::Top) << 100.0f;
}

/// All but those places that lie on a side by less than the last digit.
void tst_KMViewSurface::asInSpace()
{
    QFETCH(int, kind);
    QFETCH(float, size);
    KMCameraNode camera(kind);
    camera.resize(640, 480);
    int hits = 0, differences = 0;
    for (quint32 seed = 1; seed <= 4; ++seed) {
        const std::unique_ptr<KMMeshNode> mesh(soup(seed, 300, size));
        mesh->face(5)->flags = KMElementFlag::Hidden;
        const KMViewSurface surface(camera, {mesh.get()});
        QRandomGenerator random(seed);
        for (int i = 0; i < 500; ++i) {
            const QPointF position(random.generateDouble() * 640, random.generateDouble() * 480);
            const std::optional<Vector3> found = surface.at(position);
            hits += bool(found);
            differences += !isSame(found, hitOfAll(KMPickRay(camera, position), *mesh));
        }
    }
    QVERIFY(hits > 100);
    QVERIFY2(differences <= 2, qPrintable(QString::number(differences)));
}

/// A place right on the side or on the corner of faces is on the surface.
void tst_KMViewSurface::noGapAtSides()
{
    const std::unique_ptr<KMMeshNode> grid(MeshFixtures::grid(20, 20));
    for (int i = 0; i < grid->vertexCount(); ++i)
        grid->setPosition(i, (grid->position(i) - Vector3(10, 0, 10)) * 7.3f);
    KMCameraNode camera(KMCameraNode::Perspective);
    camera.resize(640, 480);
    const KMViewSurface surface(camera, {grid.get()});
    const auto check = [&](const Vector3 &point) {
        const Vector3 window = camera.worldToWindow(point);
        const std::optional<Vector3> hit = surface.at({double(window.x), double(window.y)});
        return hit && (*hit - point).length() < 1e-2f;
    };
    for (int z = 1; z < 20; ++z) {
        for (int x = 1; x < 20; ++x) {
            const Vector3 &corner = grid->position(z * 21 + x);
            QVERIFY(check(corner));
            QVERIFY(check((corner + grid->position(z * 21 + x + 1)) * 0.5f));
            QVERIFY(check((corner + grid->position((z + 1) * 21 + x + 1)) * 0.5f)); // where the triangles meet
        }
    }
    QVERIFY(!surface.at({-1000.0, 0.0}));
    QVERIFY(!KMViewSurface(camera, {}).at({320.0, 240.0}));
}

KM_TEST(tst_KMViewSurface);
#include "tst_KMViewSurface.moc"
