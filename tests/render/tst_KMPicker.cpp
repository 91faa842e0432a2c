#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMPickRay.h"
#include "render/KMPicker.h"
#include "render/KMViewFilter.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>
#include <random>

using kvm::Vector3;

namespace {

/// The rules of a pick written down plainly: every element of every mesh, by the coordinates in the window alone.
class PlainPick
{
public:
    PlainPick(const KMCameraNode &camera, const QPointF &position, float margin)
        : m_camera(camera)
        , m_x(float(position.x()))
        , m_y(float(position.y()))
        , m_margin2(margin * margin)
    {
        findFace();
    }

    /// Squared distances of the nearest one that isn't hidden; the margin when there is none.
    float vertexDistance() const;
    float edgeDistance() const;
    bool isFace(const KMPickRequest &request) const
    {
        return request.mesh == m_mesh && m_mesh->face(request.face) == m_face;
    }
    bool hasFace() const { return m_face; }

private:
    static float side(const Vector3 &a, const Vector3 &b, float x, float y)
    {
        return (b.x - a.x) * (y - a.y) - (b.y - a.y) * (x - a.x);
    }
    void tryTriangle(KMMeshNode *mesh, const KMFace *face, int b, int c);
    void findFace();
    bool isHidden(float depth) const { return m_face && depth > m_depth + 1e-6f; }

    const KMCameraNode &m_camera;
    float m_x, m_y, m_margin2;
    KMMeshNode *m_mesh = nullptr;
    const KMFace *m_face = nullptr;
    float m_depth = 2.0f;
};

void PlainPick::tryTriangle(KMMeshNode *mesh, const KMFace *face, int b, int c)
{
    const auto window = [&](int corner) { return m_camera.worldToWindow(mesh->position(face->indices[corner])); };
    const Vector3 p[3] = {window(0), window(b), window(c)};
    const float area = side(p[0], p[1], p[2].x, p[2].y);
    const float w[3] = {side(p[1], p[2], m_x, m_y) / area, side(p[2], p[0], m_x, m_y) / area,
                        side(p[0], p[1], m_x, m_y) / area};
    if (!(w[0] >= 0 && w[1] >= 0 && w[2] >= 0))
        return;
    const float depth = w[0] * p[0].z + w[1] * p[1].z + w[2] * p[2].z;
    if (depth < m_depth) {
        m_depth = depth;
        m_face = face;
        m_mesh = mesh;
    }
}

void PlainPick::findFace()
{
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        for (const KMFace *face : mesh->faces()) {
            for (int b = 1; face && face->isPolygon() && b + 1 < face->count; ++b)
                tryTriangle(mesh, face, b, b + 1);
        }
    }
}

float PlainPick::vertexDistance() const
{
    float best = m_margin2;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            if (!mesh->vertex(i) || mesh->vertex(i)->faceRefs.isEmpty())
                continue;
            const Vector3 window = m_camera.worldToWindow(mesh->position(i));
            const bool ofFace = mesh == m_mesh && m_face->hasVertex(i);
            const float dx = window.x - m_x, dy = window.y - m_y;
            if (ofFace || !isHidden(window.z))
                best = qMin(best, dx * dx + dy * dy);
        }
    }
    return best;
}

float PlainPick::edgeDistance() const
{
    float best = m_margin2;
    float bestOfFace = m_margin2;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        for (const KMEdge *edge : mesh->edges()) {
            const Vector3 a = m_camera.worldToWindow(mesh->position(edge->index0));
            const Vector3 b = m_camera.worldToWindow(mesh->position(edge->index1));
            const float ax = b.x - a.x, ay = b.y - a.y;
            const float t = qBound(0.0f, ((m_x - a.x) * ax + (m_y - a.y) * ay) / (ax * ax + ay * ay), 1.0f);
            const float dx = a.x + t * ax - m_x, dy = a.y + t * ay - m_y;
            const float distance2 = dx * dx + dy * dy;
            const int f = m_face ? m_face->index : -1;
            const bool ofFace =
                mesh == m_mesh && std::find(edge->faceRefs.begin(), edge->faceRefs.end(), f) != edge->faceRefs.end();
            if (ofFace)
                bestOfFace = qMin(bestOfFace, distance2);
            if (ofFace || !isHidden(a.z + t * (b.z - a.z)))
                best = qMin(best, distance2);
        }
    }
    return bestOfFace < m_margin2 ? bestOfFace : best;
}

KMPickRequest everything(float margin = 10)
{
    KMPickRequest request;
    request.wantVertex = request.wantEdge = request.wantFace = true;
    request.refreshWindowCoords = true;
    request.margin = margin;
    return request;
}

void addMesh(KMMeshNode *mesh, float scale, const Vector3 &offset)
{
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        if (mesh->vertex(i))
            mesh->setPosition(i, mesh->position(i) * scale + offset);
    }
    gProject->addNode(mesh);
    mesh->refreshMesh(KMMeshDirty::All);
}

/// Two squares one behind the other, seen from the front with one unit for each pixel; the near one covers the left
/// half of the far one.
struct TwoSquares
{
    TwoSquares()
    {
        camera.resize(200, 200);
        camera.setOrthoZoom(10); // 200 units across
        near = square(-50, 0, -10);
        far = square(-50, 50, 10);
    }
    static KMMeshNode *square(float left, float right, float z)
    {
        auto *mesh = new KMMeshNode;
        mesh->addVertexRaw({left, -50, z});
        mesh->addVertexRaw({left, 50, z});
        mesh->addVertexRaw({right, 50, z});
        mesh->addVertexRaw({right, -50, z});
        const int corners[] = {0, 1, 2, 3};
        mesh->addFaceRaw(4, corners);
        addMesh(mesh, 1, {});
        return mesh;
    }
    KMPickRequest at(double x, double y, KMPickRequest request = everything())
    {
        KMPicker::pick(camera, {100 + x, 100 - y}, request);
        return request;
    }
    static void setFilter(KMViewFilter::Switch filter, bool on)
    {
        KMSolution::ViewFlags flags = gSolution->viewFlags();
        flags.at(filter) = on;
        gSolution->setViewFlags(flags);
    }

    KMHeadlessSession session;
    KMCameraNode camera{KMCameraNode::Front};
    KMMeshNode *near;
    KMMeshNode *far;
};

} // namespace

class tst_KMPicker : public QObject
{
    Q_OBJECT
private slots:
    void agreesWithAPlainSearch_data();
    void agreesWithAPlainSearch();
    void orderAndMargins();
    void facesHideWhatIsBehind();
    void requestsChooseMeshes();
    void frontOnlyLooksThroughBacks();
    void facesThroughTheEye();
    void raysMissAndFallBack();
    void highlightMoves();
};

void tst_KMPicker::agreesWithAPlainSearch_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("seed");
    for (int seed = 1; seed <= 3; ++seed) {
        QTest::addRow("perspective %d", seed) << int(KMCameraNode::Perspective) << seed;
        QTest::addRow("right %d", seed) << int(KMCameraNode::Right) << seed;
    }
}

void tst_KMPicker::agreesWithAPlainSearch()
{
    QFETCH(int, kind);
    QFETCH(int, seed);
    const KMHeadlessSession session;
    std::mt19937 random{uint(seed)};
    std::uniform_real_distribution<float> place(-60, 60), angle(-180, 180), share(0, 1);
    addMesh(MeshFixtures::torus(24, 12), 25, {place(random), place(random), 0});
    addMesh(MeshFixtures::cube(), 30, {place(random), 0, place(random)});
    addMesh(MeshFixtures::mixedBag(), 40, {0, place(random), place(random)});
    KMCameraNode camera(kind);
    camera.resize(400, 300);
    camera.setOrthoZoom(9);
    int vertices = 0, edges = 0, faces = 0, nothing = 0;
    for (int i = 0; i < 150; ++i) {
        camera.setAngles(angle(random), angle(random), 0);
        const QPointF position(double(share(random)) * 300 + 50, double(share(random)) * 240 + 30);
        KMPickRequest request = everything(3 + 9 * share(random));
        KMPicker::pick(camera, position, request);
        const PlainPick plain(camera, position, request.margin);
        const float margin2 = request.margin * request.margin;
        if (plain.vertexDistance() < margin2) {
            ++vertices;
            QVERIFY(request.vertex >= 0);
            QVERIFY(std::fabs(request.distance2 - plain.vertexDistance()) < 0.05f);
        } else if (plain.edgeDistance() < margin2) {
            ++edges;
            QVERIFY(request.edge && request.vertex < 0);
            QVERIFY(std::fabs(request.distance2 - plain.edgeDistance()) < 0.05f);
        } else if (plain.hasFace()) {
            ++faces;
            QVERIFY(request.face >= 0 && plain.isFace(request));
            const Vector3 window = camera.worldToWindow(request.point);
            QVERIFY(std::hypot(window.x - float(position.x()), window.y - float(position.y())) < 0.1f);
        } else {
            ++nothing;
            QVERIFY(!request.isHit());
        }
    }
    QVERIFY(vertices > 10 && edges > 10 && faces > 3 && nothing > 10);
}

void tst_KMPicker::orderAndMargins()
{
    TwoSquares scene;
    QCOMPARE(scene.at(50, 59.8).vertex, 2); // of the far one
    QCOMPARE(scene.at(50, 59.8).point, Vector3(50, 50, 10));
    QVERIFY(!scene.at(50, 60.2).isHit());
    QVERIFY(scene.at(56.9, 56.9).vertex == 2 && !scene.at(57.2, 57.2).isHit());
    KMPickRequest request = scene.at(40.2, 30);
    QVERIFY(request.edge && request.vertex < 0);
    QCOMPARE(request.point, Vector3(50, 0, 10)); // the middle of the edge
    QVERIFY(qAbs(request.distance2 - 9.8f * 9.8f) < 0.01f);
    request = scene.at(39.8, 30);
    QVERIFY(request.face == 0 && request.mesh == scene.far);
    QVERIFY((request.point - Vector3(39.8f, 30, 10)).length() < 1e-3f);
    QVERIFY(!scene.at(70, 0).isHit());

    scene.camera.setViewFlag(KMCameraNode::ShowVertices, false);
    QVERIFY(scene.at(50, 50).edge);
    scene.camera.setViewFlag(KMCameraNode::ShowEdges, false);
    QCOMPARE(scene.at(49, 49).face, 0);
    scene.camera.setViewFlag(KMCameraNode::ShowFaces, false);
    QVERIFY(!scene.at(49, 49).isHit());
}

void tst_KMPicker::facesHideWhatIsBehind()
{
    TwoSquares scene;
    QCOMPARE(scene.at(-45, 45).mesh, scene.near); // both have a vertex there
    for (int i = 0; i < 4; ++i)
        scene.far->setPosition(i, scene.far->position(i) + Vector3(20, -20, 0)); // left upper corner at -30, 30
    QVERIFY(scene.at(-30, 30).face == 0 && scene.at(-30, 30).mesh == scene.near);
    TwoSquares::setFilter(KMViewFilter::OverwriteFaces, true);
    QVERIFY(scene.at(-30, 30).vertex == 1 && scene.at(-30, 30).mesh == scene.far);
    TwoSquares::setFilter(KMViewFilter::OverwriteFaces, false);
    scene.camera.setViewFlag(KMCameraNode::ShowFaces, false); // what isn't drawn hides nothing
    QVERIFY(scene.at(-30, 30).vertex == 1 && scene.at(-30, 30).mesh == scene.far);
    scene.camera.setViewFlag(KMCameraNode::ShowFaces, true);

    // A hidden vertex closer to the cursor doesn't stand in the way of a visible one.
    scene.near->setPosition(1, {-36, 30, -10});
    const KMPickRequest visible = scene.at(-32, 29);
    QVERIFY(visible.mesh == scene.near && visible.vertex == 1);

    // The edge of what lies behind passes only where it comes out.
    scene.near->setPosition(1, {-50, 50, -10});
    const KMPickRequest request = scene.at(-20, 30); // its upper edge runs here, behind the near square
    QVERIFY(request.face == 0 && request.mesh == scene.near);
    QVERIFY(scene.at(30, 30).edge && scene.at(30, 30).mesh == scene.far);
}

void tst_KMPicker::requestsChooseMeshes()
{
    TwoSquares scene;
    gSolution->setCurrentNode(scene.near);
    KMPickRequest skip = everything();
    skip.skipActiveMesh = true;
    QVERIFY(scene.at(-45, 45, skip).mesh == scene.far);
    gSolution->setCurrentNode(scene.far);
    KMPickRequest only = everything();
    only.testActiveOnly = true;
    QCOMPARE(scene.at(50, 50, only).mesh, scene.far);
    QVERIFY(scene.at(-45, 45, only).face == 0); // the vertex there is covered by the other mesh
    QVERIFY(scene.at(-25, 0, only).mesh == scene.far);

    scene.near->setLocked(true);
    QVERIFY(scene.at(-45, 45).mesh == scene.far);
    scene.near->setLocked(false);
    scene.near->setVisible(false);
    QVERIFY(scene.at(-45, 45).mesh == scene.far);
    KMPickRequest hidden = everything();
    hidden.includeHidden = true;
    QVERIFY(scene.at(-45, 45, hidden).mesh == scene.near);
    scene.near->setVisible(true);
    scene.near->setFaceFlag(0, KMElementFlag::Hidden);
    QVERIFY(scene.at(-45, 45).mesh == scene.far);
    QVERIFY(scene.at(-45, 45, hidden).mesh == scene.near);
}

void tst_KMPicker::frontOnlyLooksThroughBacks()
{
    TwoSquares scene;
    QVERIFY(scene.at(-25, 0).isHit()); // both turn their backs
    scene.camera.setViewFlag(KMCameraNode::FrontOnly, true);
    QVERIFY(!scene.at(-25, 0).isHit());
    QVERIFY(!scene.at(50, 50).isHit());
    TwoSquares::setFilter(KMViewFilter::CullingCurrentOnly, true);
    QVERIFY(scene.at(-25, 0).isHit());
    TwoSquares::setFilter(KMViewFilter::CullingCurrentOnly, false);
    scene.camera.setFlipped(true);
    QVERIFY(scene.at(-25, 0).isHit());
}

/// A floor that reaches behind the viewer has no whole polygon in the window.
void tst_KMPicker::facesThroughTheEye()
{
    const KMHeadlessSession session;
    auto *floor = new KMMeshNode;
    for (const Vector3 &p :
         {Vector3(-900, 0, -900), Vector3(-900, 0, 900), Vector3(900, 0, 900), Vector3(900, 0, -900)})
        floor->addVertexRaw(p);
    const int corners[] = {0, 1, 2, 3};
    floor->addFaceRaw(4, corners);
    addMesh(floor, 1, {});
    auto *below = MeshFixtures::grid(1, 1);
    addMesh(below, 10, {0, -20, 0});
    KMCameraNode camera;
    camera.resize(400, 300);
    camera.setAngles(-30, 0, 0);
    KMPickRequest request = everything();
    const Vector3 hidden = camera.worldToWindow({0, -20, 0});
    KMPicker::pick(camera, {double(hidden.x), double(hidden.y)}, request);
    QVERIFY(request.mesh == floor && request.face == 0);
    QVERIFY(std::fabs(request.point.y) < 1e-2f);
    // Its far edge is cut where it leaves the space before the eye, and found there.
    camera.setPan({-900, 0, 400});
    const Vector3 onEdge = camera.worldToWindow({-900, 0, 300});
    KMPicker::pick(camera, {double(onEdge.x) + 4, double(onEdge.y)}, request);
    QVERIFY(request.edge && request.mesh == floor);
}

void tst_KMPicker::raysMissAndFallBack()
{
    const KMHeadlessSession session;
    KMCameraNode camera;
    camera.resize(200, 100);
    camera.setFov(90);
    camera.setAngles(0, 0, 0);
    for (const bool ortho : {false, true}) {
        camera.setOrtho(ortho);
        const KMPickRay ray(camera, {110, 45}); // through (100, 50, 0)
        double depth = 0;
        QVERIFY(ray.hits({90, 40, 0}, {120, 40, 0}, {90, 80, 0}, depth));
        QVERIFY(std::fabs(depth - 500) < 1e-3);
        QVERIFY((ray.pointAt(depth) - Vector3(100, 50, 0)).length() < 1e-3f);
        QVERIFY(std::fabs(ray.depthOf({3, 4, 20}) - 520) < 1e-3);
        depth = -7;
        QVERIFY(!ray.hits({101, 40, 0}, {120, 40, 0}, {110, 80, 0}, depth));
        QVERIFY(!ray.hits({90, 40, -900}, {120, 40, -900}, {90, 80, -900}, depth)); // behind the eye
        QCOMPARE(depth, -7.0);
        QVERIFY(ray.hitsPlane({101, 40, 0}, {120, 40, 0}, {110, 80, 0}, depth));
        QVERIFY(std::fabs(depth - 500) < 1e-3);
        QVERIFY(!ray.hitsPlane({5, 5, 5}, {5, 5, 5}, {9, 9, 9}, depth)); // no plane at all
    }
}

void tst_KMPicker::highlightMoves()
{
    TwoSquares scene;
    const auto isHot = [](quint8 flags) { return bool(flags & KMElementFlag::Hot); };
    scene.at(50, 50);
    QVERIFY(isHot(scene.far->vertex(2)->flags));
    scene.far->setDirtyMask(0);
    scene.at(50, 49);
    QCOMPARE(scene.far->dirtyMask(), 0u); // nothing new to draw
    scene.at(50, 0);
    QVERIFY(!isHot(scene.far->vertex(2)->flags));
    QVERIFY(isHot(scene.far->findEdge(2, 3)->flags));
    QCOMPARE(scene.far->dirtyMask(), quint32(KMMeshDirty::Colors)); // no modifier has to work for it
    scene.at(-25, 0);
    QVERIFY(isHot(scene.near->face(0)->flags) && !isHot(scene.far->findEdge(2, 3)->flags));
    KMPicker::clearHot();
    QVERIFY(!isHot(scene.near->face(0)->flags));
    scene.at(50, 50);
    gSolution->newDocument(); // what was hot is gone
    KMPicker::clearHot();
}

KM_TEST(tst_KMPicker);

#include "tst_KMPicker.moc"
