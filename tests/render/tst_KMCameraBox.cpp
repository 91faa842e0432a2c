#include "core/KMHeadlessSession.h"
#include "core/KMSettings.h"
#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <set>

namespace Shape = KMCameraBoxShape;

class tst_KMCameraBox : public QObject
{
    Q_OBJECT
private slots:
    void shapeIsClosed();
    void codesInAttitudes_data();
    void codesInAttitudes();
    void codesMeanWhatTheyShow();
    void everyPlaceHasOneAnswer();
    void ringFollowsTheCursor();
};

/// Each edge of the cube belongs to two triangles that run along it in opposite ways. Faces and bevels have vertices of
/// their own at the same place, so places are compared.
void tst_KMCameraBox::shapeIsClosed()
{
    const auto key = [](int vertex) {
        const kvm::Vector3 &p = Shape::positions()[size_t(vertex)];
        return std::make_tuple(p.x, p.y, p.z);
    };
    std::set<std::pair<decltype(key(0)), decltype(key(0))>> edges;
    for (int t = 0; t < Shape::FirstRingTriangle; ++t) {
        const Shape::Triangle &triangle = Shape::triangles()[size_t(t)];
        for (size_t c = 0; c < 3; ++c)
            QVERIFY(edges.insert({key(triangle[c]), key(triangle[(c + 1) % 3])}).second);
    }
    QCOMPARE(edges.size(), size_t(3 * Shape::FirstRingTriangle));
    for (const auto &edge : edges)
        QVERIFY(edges.count({edge.second, edge.first}) == 1);
    std::set<int> used;
    for (const Shape::Triangle &triangle : Shape::triangles())
        used.insert(triangle.begin(), triangle.end());
    QCOMPARE(used.size(), size_t(Shape::VertexCount));
}

void tst_KMCameraBox::codesInAttitudes_data()
{
    QTest::addColumn<float>("pitch");
    QTest::addColumn<float>("yaw");
    QTest::addColumn<QPointF>("place"); // from the middle, in units of the box, y up
    QTest::addColumn<int>("code");
    const auto row = [](float pitch, float yaw, QPointF place, int code) {
        QTest::addRow("%g %g: %g %g", double(pitch), double(yaw), place.x(), place.y())
            << pitch << yaw << place << code;
    };
    row(0, 0, {0, 0}, Shape::Front);
    row(0, 180, {0, 0}, Shape::Back);
    row(0, 90, {0, 0}, Shape::Right);
    row(0, -90, {0, 0}, Shape::Left);
    row(-90, 0, {0, 0}, Shape::Top);
    row(90, 0, {0, 0}, Shape::Bottom);
    row(0, 0, {0, 0.65}, Shape::TopFront);
    row(0, 0, {0, -0.65}, Shape::BottomFront);
    row(0, 90, {0, 0.65}, Shape::TopRight);
    row(0, -90, {0, -0.65}, Shape::BottomLeft);
    row(0, 180, {0, 0.65}, Shape::TopBack);
    row(-90, 0, {0.65, 0}, Shape::TopRight);
    row(90, 0, {-0.65, 0}, Shape::BottomLeft);
    row(0, 0, {0.65, 0}, Shape::OtherPart);
    row(0, 0, {0.61, 0.61}, Shape::OtherPart);
    row(-20, 30, {-0.2, -0.1}, Shape::Front);
    row(-20, 30, {0.65, -0.2}, Shape::Right);
    row(-20, 30, {0, 0.75}, Shape::Top);
    row(-20, 30, {0, 1.4}, Shape::Ring);
    row(-20, 30, {-1, -1}, Shape::Ring);
    row(0, 0, {0, 1.1}, Shape::NoHit);
    row(-20, 30, {0, 1.7}, Shape::NoHit);
}

void tst_KMCameraBox::codesInAttitudes()
{
    const KMHeadlessSession session;
    KMCameraNode camera;
    camera.resize(640, 400);
    QFETCH(float, pitch);
    QFETCH(float, yaw);
    QFETCH(QPointF, place);
    camera.setAngles(pitch, yaw, 0);
    KMCameraBox box(27);
    const QPointF middle = box.centre(camera);
    const double size = (640 - 16 - middle.x()) / double(Shape::OuterRadius);
    const QPointF position = middle + QPointF(place.x(), -place.y()) * size;
    QTEST(box.codeAt(camera, position), "code");
    QFETCH(int, code);
    QCOMPARE(box.setHotAt(camera, position), code != Shape::NoHit);
    QVERIFY(!box.setHotAt(camera, position));
    QCOMPARE(box.clearHot(), code != Shape::NoHit);
}

/// A click on a part brings that part in front of the viewer.
void tst_KMCameraBox::codesMeanWhatTheyShow()
{
    for (int code = Shape::Front; code <= Shape::BottomLeft; ++code) {
        float pitch = 1e9f, yaw = 1e9f;
        QVERIFY(Shape::direction(code, pitch, yaw));
        const int hit = Shape::triangleAt(Shape::turned(pitch, yaw), {0.01f, 0.02f});
        QCOMPARE(Shape::codeOf(hit), code);
    }
    float pitch = 0, yaw = 0;
    for (const int code : {Shape::NoHit, Shape::OtherPart, Shape::Ring, Shape::Centre})
        QVERIFY(!Shape::direction(code, pitch, yaw));
}

/// The box is convex, so of its front sides one at most covers a place, and inside its outline one does.
void tst_KMCameraBox::everyPlaceHasOneAnswer()
{
    for (int step = 0; step < 40; ++step) {
        const Shape::Points points = Shape::turned(float(9 * step - 180), float(31 * step));
        float sum = 0;
        for (int t = 0; t < Shape::FirstRingTriangle; ++t) {
            const Shape::Triangle &triangle = Shape::triangles()[size_t(t)];
            const kvm::Vector3 middle =
                (points[size_t(triangle[0])] + points[size_t(triangle[1])] + points[size_t(triangle[2])]) / 3.0f;
            const bool isNear = middle.z < 0;
            sum += Shape::facesViewer(points, t) && isNear ? 1 : 0;
            if (Shape::facesViewer(points, t))
                QCOMPARE(Shape::triangleAt(points, {middle.x, middle.y}), t);
        }
        QVERIFY(sum > 0);
        for (int t = Shape::FirstRingTriangle; t < Shape::TriangleCount; ++t)
            QVERIFY(Shape::facesViewer(points, t));
    }
}

void tst_KMCameraBox::ringFollowsTheCursor()
{
    const KMHeadlessSession session;
    KMCameraNode camera;
    camera.resize(640, 400);
    camera.setAngles(-20, 30, 12);
    KMCameraBox box(27);
    const QPointF middle = box.centre(camera);
    box.beginRing(camera, middle + QPointF(40, 0));
    box.dragRing(camera, middle + QPointF(0, -40), false); // a quarter to the left
    QCOMPARE(camera.yaw(), 300.0f);
    QCOMPARE(camera.pitch(), -20.0f);
    QCOMPARE(camera.roll(), 0.0f);
    box.dragRing(camera, middle + QPointF(40, 30), true); // -36.9 degrees, cut to -30
    QCOMPARE(camera.yaw(), 60.0f);
    box.dragRing(camera, middle + QPointF(40, 0), false);
    QCOMPARE(camera.yaw(), 30.0f);

    // What was under the cursor at the press stays there: the front mark of the ring.
    camera.setAngles(-20, 0, 0);
    box.beginRing(camera, middle + QPointF(0, 40));
    box.dragRing(camera, middle + QPointF(40, 0), false);
    const kvm::Vector3 mark = Shape::turned(camera.pitch(), camera.yaw())[49];
    QVERIFY(mark.x > 1.5f && qAbs(mark.y) < 0.01f);
}

KM_TEST(tst_KMCameraBox);

#include "tst_KMCameraBox.moc"
