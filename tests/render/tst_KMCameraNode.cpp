#include "core/KMHeadlessSession.h"
#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMMouseEvent.h"
#include "support/TestRegistry.h"

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

#include <cmath>
#include <random>

using kvm::Vector3;

namespace {

constexpr float tenthOfPixel = 0.1f;

bool isClose(float a, float b, float tolerance)
{
    return std::fabs(a - b) <= tolerance * qMax(1.0f, qMax(std::fabs(a), std::fabs(b)));
}

bool isClose(const Vector3 &a, const Vector3 &b, float tolerance)
{
    return (a - b).length() <= tolerance * qMax(1.0f, b.length());
}

float pixelsApart(const Vector3 &a, const Vector3 &b)
{
    return std::hypot(a.x - b.x, a.y - b.y);
}

/// A perspective camera whose numbers can be told by hand: 200 by 100 pixels, half the height is as long as the
/// distance.
void makeSimple(KMCameraNode &camera)
{
    camera.resize(200, 100);
    camera.setFov(90);
    camera.setAngles(0, 0, 0);
}

} // namespace

class tst_KMCameraNode : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_session = std::make_unique<KMHeadlessSession>(); }
    void cleanup() { m_session.reset(); }

    void projectionsByHand();
    void standardViews_data();
    void standardViews();
    void windowAndWorldAreInverse();
    void pictureStaysStill_data();
    void pictureStaysStill();
    void orthoToggleKeepsThePivotPlane();
    void limits();
    void rotationLimits_data();
    void rotationLimits();
    void orbitFollowsTheDrag();
    void panKeepsThePointUnderTheCursor_data();
    void panKeepsThePointUnderTheCursor();
    void dollyZoomKeepsTheSizeAtThePivot();
    void zoomDrags();
    void uvViewRolls();
    void wheel_data();
    void wheel();
    void viewChangeIsToldOnce();
    void lightComesFromTheViewer();

private:
    void press(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    bool move(const QPointF &position);
    void turnWheel(int delta, Qt::MouseButtons buttons = Qt::NoButton);

    std::unique_ptr<KMHeadlessSession> m_session;
    KMCameraNode *m_camera = nullptr;
    Qt::MouseButtons m_buttons;
    Qt::KeyboardModifiers m_modifiers;
    QPointF m_position{80, 60};
};

void tst_KMCameraNode::press(Qt::MouseButtons buttons, Qt::KeyboardModifiers modifiers)
{
    m_buttons = buttons;
    m_modifiers = modifiers;
    KMMouseEvent event(QEvent::MouseButtonPress, m_position, Qt::LeftButton, buttons, modifiers);
    m_camera->mousePress(&event);
}

bool tst_KMCameraNode::move(const QPointF &position)
{
    KMMouseEvent event(QEvent::MouseMove, position, Qt::NoButton, m_buttons, m_modifiers);
    return m_camera->mouseMove(&event);
}

void tst_KMCameraNode::turnWheel(int delta, Qt::MouseButtons buttons)
{
    QWheelEvent event({50, 50}, {50, 50}, {}, {0, delta}, buttons, Qt::NoModifier, Qt::NoScrollPhase, false);
    m_camera->wheel(&event);
}

void tst_KMCameraNode::projectionsByHand()
{
    KMCameraNode camera;
    makeSimple(camera);
    QVERIFY(isClose(camera.nearPlane(), 0.2f, 1e-6f));
    QVERIFY(isClose(camera.farPlane(), 6283.185f, 1e-6f));
    const kvm::Matrix4 &p = camera.projection();
    QVERIFY(isClose(p[0], 0.5f, 1e-6f) && isClose(p[5], 1.0f, 1e-6f) && isClose(p[10], 1.0000318f, 1e-6f));
    QCOMPARE(p[11], 1.0f);
    QVERIFY(isClose(p[14], -0.2000064f, 1e-5f));
    QCOMPARE(p[15], 0.0f);
    QVERIFY(isClose(camera.eye(), {0, 0, -500}, 1e-6f));
    QVERIFY(isClose(camera.worldToWindow({0, 0, 0}), {100, 50, 0.9996318f}, 1e-5f));
    QVERIFY(isClose(camera.worldToWindow({100, 50, 0}), {110, 45, 0.9996318f}, 1e-5f));
    QVERIFY(isClose(camera.projectToHud({100, 50, 0}), {110, 45, 0.9996318f}, 1e-5f));
    QVERIFY(isClose(camera.unproject(110, 45, {7, -3, 0}), {100, 50, 0}, 1e-5f));
    QVERIFY(isClose(camera.pixelWorldLength({}), 1000.0f, 1e-5f));
    QVERIFY(isClose(camera.pixelScale(3), 30.0f, 1e-5f));

    camera.setOrtho(true);
    QCOMPARE(camera.name(), QStringLiteral("Ortho View"));
    QVERIFY(isClose(camera.orthoZoom(), 1.0f, 1e-5f));
    QVERIFY(isClose(p[0], 0.001f, 1e-7f) && isClose(p[5], 0.002f, 1e-7f) && isClose(p[10], 1.5916e-4f, 1e-8f));
    QCOMPARE(p[15], 1.0f);
    QVERIFY(isClose(camera.worldToWindow({100, 50, 250}), {110, 45, 750.0f / 6283.0f}, 1e-3f));

    const kvm::Vector4 corner = camera.screenMatrix() * kvm::Vector4(200, 100, 0, 1);
    QVERIFY(isClose(corner.x, 1.0f, 1e-6f) && isClose(corner.y, -1.0f, 1e-6f));
}

void tst_KMCameraNode::standardViews_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("flipped");
    QTest::addColumn<QString>("name");
    QTest::addColumn<Vector3>("axis"); // of looking
    QTest::addColumn<Vector3>("right");

    QTest::newRow("top") << 2 << false << "Top View" << Vector3(0, -1, 0) << Vector3(1, 0, 0);
    QTest::newRow("bottom") << 2 << true << "Bottom View" << Vector3(0, 1, 0) << Vector3(1, 0, 0);
    QTest::newRow("front") << 4 << false << "Front View" << Vector3(0, 0, 1) << Vector3(1, 0, 0);
    QTest::newRow("back") << 4 << true << "Back View" << Vector3(0, 0, -1) << Vector3(-1, 0, 0);
    QTest::newRow("right") << 8 << false << "Right View" << Vector3(-1, 0, 0) << Vector3(0, 0, 1);
    QTest::newRow("left") << 8 << true << "Left View" << Vector3(1, 0, 0) << Vector3(0, 0, -1);
    QTest::newRow("uv") << 16 << false << "UV View" << Vector3(0, 0, -1) << Vector3(1, 0, 0);
}

void tst_KMCameraNode::standardViews()
{
    QFETCH(int, kind);
    QFETCH(bool, flipped);
    KMCameraNode camera(kind);
    camera.resize(320, 200);
    camera.setFlipped(flipped);
    camera.rotateBy(17, 40); // a fixed view doesn't turn
    QTEST(camera.name(), "name");
    QCOMPARE(camera.index(), kind);
    QVERIFY(camera.isOrtho());
    QFETCH(Vector3, axis);
    QFETCH(Vector3, right);
    QVERIFY(isClose(camera.viewAxis(), axis, 1e-6f));
    const Vector3 middle = camera.unproject(160, 100, {});
    QVERIFY(isClose((camera.unproject(161, 100, {}) - middle).normalized(), right, 1e-5f));
    if (kind == KMCameraNode::UV) {
        QVERIFY(isClose(middle, {50, 50, 0}, 1e-5f));
        QVERIFY(camera.worldToWindow({50, 60, 0}).y > 100.0f); // v runs down, as in a picture
        QVERIFY(!camera.viewFlag(KMCameraNode::ShowFaces));
    }
}

void tst_KMCameraNode::windowAndWorldAreInverse()
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> angle(-180, 180), place(-90, 90);
    for (int i = 0; i < 200; ++i) {
        KMCameraNode camera;
        camera.resize(640, 400);
        camera.setAngles(angle(random), angle(random), 0);
        camera.setOrtho(i % 2);
        camera.setPan({place(random), place(random), place(random)});
        const Vector3 point(place(random), place(random), place(random));
        const Vector3 window = camera.worldToWindow(point);
        QVERIFY(isClose(camera.unproject(window.x, window.y, point), point, 1e-4f));
        QVERIFY(isClose(camera.windowToWorld(window), point, 1e-2f)); // a depth has few digits left
        QVERIFY(pixelsApart(camera.projectToHud(point), window) < tenthOfPixel);
    }
}

void tst_KMCameraNode::pictureStaysStill_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<bool>("ortho");
    QTest::newRow("perspective") << 1 << false;
    QTest::newRow("orthographic") << 1 << true;
    QTest::newRow("front") << 4 << true;
    QTest::newRow("uv with roll") << 16 << true;
}

void tst_KMCameraNode::pictureStaysStill()
{
    QFETCH(int, kind);
    QFETCH(bool, ortho);
    std::mt19937 random(11);
    std::uniform_real_distribution<float> pixels(-60, 60), place(-60, 60);
    KMCameraNode camera(kind);
    camera.resize(640, 400);
    camera.setOrtho(ortho);
    m_camera = &camera;
    const Vector3 points[] = {{10, 5, 3}, {-30, 20, 8}, {0, 0, 0}, {25, -40, -60}};
    for (int i = 0; i < 100; ++i) {
        camera.rotateBy(pixels(random), pixels(random));
        press(Qt::RightButton);
        move(m_position + QPointF(double(pixels(random)), double(pixels(random))));
        Vector3 before[4];
        const auto remember = [&] {
            std::transform(points, points + 4, before, [&](const Vector3 &p) { return camera.worldToWindow(p); });
        };
        const auto moved = [&] {
            float most = 0;
            for (int k = 0; k < 4; ++k)
                most = qMax(most, pixelsApart(before[k], camera.worldToWindow(points[k])));
            return most;
        };
        remember();
        camera.setPivot({place(random), place(random), place(random)});
        QVERIFY2(moved() < tenthOfPixel, "the new pivot");
        camera.mouseRelease();
        QVERIFY2(moved() < tenthOfPixel, "the end of a drag");
        camera.commitView();
        camera.setPan(camera.pan());
        camera.updateMatrices();
        QVERIFY2(moved() < tenthOfPixel, "committed twice");
        camera.setPan(camera.pan() * 0.5f); // stays within reach
    }
}

void tst_KMCameraNode::orthoToggleKeepsThePivotPlane()
{
    std::mt19937 random(3);
    std::uniform_real_distribution<float> place(-60, 60), lens(10, 100);
    for (int i = 0; i < 100; ++i) {
        KMCameraNode camera;
        camera.resize(300 + i, 200);
        camera.setFov(lens(random));
        camera.rotateBy(place(random), 5 * place(random));
        camera.setPan({place(random), place(random), place(random)});
        camera.setPivot({place(random), place(random), place(random)});
        const Vector3 side = camera.unproject(10, 20, camera.pivot());
        const Vector3 before = camera.worldToWindow(side);
        const Vector3 pivot = camera.worldToWindow(camera.pivot());
        for (const bool ortho : {true, false, true}) {
            camera.setOrtho(ortho);
            QVERIFY(pixelsApart(camera.worldToWindow(side), before) < tenthOfPixel);
            QVERIFY(pixelsApart(camera.worldToWindow(camera.pivot()), pivot) < tenthOfPixel);
            const float depth = camera.worldToWindow(camera.pivot()).z;
            QVERIFY(depth > 0 && depth < 1);
        }
    }
}

void tst_KMCameraNode::limits()
{
    KMCameraNode camera;
    camera.setDistance(0);
    QCOMPARE(camera.distance(), 0.001f);
    camera.setDistance(1e9f);
    QCOMPARE(camera.distance(), 100000.0f);
    camera.setFov(0);
    QCOMPARE(camera.fov(), 1.0f);
    camera.setFov(std::nanf(""));
    QCOMPARE(camera.fov(), 1.0f);
    camera.setFov(500);
    QCOMPARE(camera.fov(), 120.0f);
    camera.setOrthoZoom(0);
    QCOMPARE(camera.orthoZoom(), 0.1f);
    camera.resize(0, 0);
    for (int i = 0; i < 16; ++i)
        QVERIFY(std::isfinite(camera.viewProjection()[i]));

    QSignalSpy message(&camera, &KMCameraNode::messageChanged);
    camera.setFov(35);
    QCOMPARE(message.takeFirst().first().toString(), QStringLiteral("FOV:35.000"));
    camera.setPan({1, 2, 3});
    camera.setViewFlag(KMCameraNode::ShowGrid, false);
    camera.setOrtho(true);
    camera.reset();
    QCOMPARE(camera.name(), QStringLiteral("Perspective View"));
    QCOMPARE(camera.distance(), 500.0f);
    QCOMPARE(camera.yaw(), 30.0f);
    QCOMPARE(camera.pitch(), -20.0f);
    QCOMPARE(camera.pan(), Vector3());
    QVERIFY(camera.viewFlag(KMCameraNode::ShowGrid));
}

void tst_KMCameraNode::rotationLimits_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<float>("highest");
    QTest::addColumn<float>("lowest");
    QTest::newRow("0") << 0 << 360.0f << -360.0f;
    QTest::newRow("1") << 1 << 360.0f << -90.0f;
    QTest::newRow("2") << 2 << 90.0f << -360.0f;
    QTest::newRow("4") << 4 << 90.0f << -90.0f;
    QTest::newRow("none") << 3 << 980.0f << -1020.0f;
}

void tst_KMCameraNode::rotationLimits()
{
    QFETCH(int, setting);
    gSettings->cameraRotateLimit = setting;
    KMCameraNode camera;
    camera.rotateBy(2000, 0);
    QTEST(camera.pitch(), "highest");
    camera.rotateBy(-4, 0); // what was too much is lost
    QFETCH(float, highest);
    QCOMPARE(camera.pitch(), highest - 2);
    camera.setAngles(-20, 0, 0);
    camera.rotateBy(-2000, 0);
    QTEST(camera.pitch(), "lowest");

    camera.setAngles(0, 359, 0);
    camera.rotateBy(0, 22);
    QCOMPARE(camera.yaw(), 10.0f);
    camera.setAngles(0, 719, 0);
    camera.rotateBy(0, 22);
    QCOMPARE(camera.yaw(), 370.0f);
    camera.setAngles(0, 3, 0);
    camera.rotateBy(0, -10);
    QCOMPARE(camera.yaw(), 358.0f);
}

void tst_KMCameraNode::orbitFollowsTheDrag()
{
    KMCameraNode camera;
    m_camera = &camera;
    press(Qt::RightButton);
    QVERIFY(move(m_position + QPointF(10, 0)));
    QVERIFY(move(m_position + QPointF(10, 20)));
    QCOMPARE(camera.yaw(), 25.0f);
    QCOMPARE(camera.pitch(), -30.0f);
    camera.mouseRelease();
    QVERIFY(!move(m_position + QPointF(90, 90)));

    gSettings->reverseX = gSettings->reverseY = true;
    gSettings->rotateRatio = 2;
    press(Qt::RightButton);
    move(m_position + QPointF(10, 20));
    QCOMPARE(camera.yaw(), 35.0f);
    QCOMPARE(camera.pitch(), -10.0f);
    press(Qt::RightButton | Qt::MiddleButton);
    QVERIFY(!move(m_position + QPointF(5, 5))); // neither a turn nor a pan
}

void tst_KMCameraNode::panKeepsThePointUnderTheCursor_data()
{
    QTest::addColumn<int>("kind");
    QTest::newRow("perspective") << 1;
    QTest::newRow("right") << 8;
    QTest::newRow("uv") << 16;
}

void tst_KMCameraNode::panKeepsThePointUnderTheCursor()
{
    QFETCH(int, kind);
    KMCameraNode camera(kind);
    m_camera = &camera;
    camera.resize(640, 400);
    camera.setPan({20, 30, 40});
    if (kind == KMCameraNode::UV)
        camera.setAngles(180, 0, 40);
    const Vector3 taken = camera.unproject(80, 60, camera.pivot());
    press(Qt::MiddleButton);
    for (const QPointF &position : {QPointF(300, 20), QPointF(77, 333)}) {
        QVERIFY(move(position));
        const Vector3 now = camera.worldToWindow(taken);
        QVERIFY(std::hypot(now.x - float(position.x()), now.y - float(position.y())) < tenthOfPixel);
    }
    camera.mouseRelease();
    QVERIFY(std::hypot(camera.worldToWindow(taken).x - 77, camera.worldToWindow(taken).y - 333) < tenthOfPixel);

    camera.beginPan({320, 200});
    camera.panBy({50, -20});
    const Vector3 fingers = camera.worldToWindow(taken);
    QVERIFY(std::hypot(fingers.x - 127, fingers.y - 313) < tenthOfPixel);
}

void tst_KMCameraNode::dollyZoomKeepsTheSizeAtThePivot()
{
    KMCameraNode camera;
    m_camera = &camera;
    makeSimple(camera);
    const Vector3 before = camera.worldToWindow({100, 50, 0});
    press(Qt::MiddleButton, Qt::ShiftModifier);
    QVERIFY(move(m_position + QPointF(0, 100)));
    QVERIFY(isClose(camera.fov(), 70.0f, 1e-5f));
    QVERIFY(pixelsApart(camera.worldToWindow({100, 50, 0}), before) < tenthOfPixel);
    QVERIFY(isClose(camera.distance(), 500.0f / std::tan(35.0f / 180.0f * 3.14159265f), 1e-4f));
    camera.mouseRelease();
    QVERIFY(pixelsApart(camera.worldToWindow({100, 50, 0}), before) < tenthOfPixel);

    camera.setPivot({30, 0, 20});
    const Vector3 still = camera.worldToWindow({100, 50, 0});
    press(Qt::MiddleButton, Qt::ShiftModifier);
    QVERIFY(pixelsApart(camera.worldToWindow({100, 50, 0}), still) < tenthOfPixel);
    move(m_position + QPointF(0, 30));
    camera.mouseRelease();
    QCOMPARE(camera.pivot(), Vector3(30, 0, 20));
}

void tst_KMCameraNode::zoomDrags()
{
    KMCameraNode camera;
    m_camera = &camera;
    makeSimple(camera);
    const float ruler = std::sqrt(2.0f) * 500.0f; // 50 pixels each way are 500 units
    press(Qt::RightButton);
    press(Qt::RightButton | Qt::LeftButton);
    QVERIFY(move(m_position + QPointF(0, 10)));
    QVERIFY(isClose(camera.distance(), 500.0f + ruler * (250.0f / 90.0f) * 0.05f, 1e-4f));
    camera.mouseRelease();

    press(Qt::RightButton | Qt::LeftButton, Qt::ShiftModifier);
    move(m_position + QPointF(0, -20));
    QVERIFY(isClose(camera.fov(), 81.0f, 1e-5f));
    camera.mouseRelease();

    gSettings->lrDrag = 2;
    gSettings->reverseW = true;
    press(Qt::RightButton | Qt::LeftButton);
    move(m_position + QPointF(0, -20));
    QVERIFY(isClose(camera.fov(), 89.1f, 1e-5f));
    camera.mouseRelease();

    camera.setOrtho(true);
    camera.setOrthoZoom(2);
    press(Qt::RightButton | Qt::LeftButton);
    move(m_position + QPointF(0, -20));
    QVERIFY(isClose(camera.orthoZoom(), 1.8f, 1e-5f));
}

void tst_KMCameraNode::uvViewRolls()
{
    KMCameraNode camera(KMCameraNode::UV);
    m_camera = &camera;
    camera.resize(400, 300);
    press(Qt::RightButton);
    move(m_position + QPointF(100, 70));
    QCOMPARE(camera.roll(), 50.0f);
    QVERIFY(pixelsApart(camera.worldToWindow({50, 50, 0}), {200, 150, 0}) < tenthOfPixel);
    move(m_position + QPointF(8, 0)); // less than five degrees
    QCOMPARE(camera.roll(), 0.0f);
    move(m_position + QPointF(-20, 0));
    QCOMPARE(camera.roll(), 350.0f);
    m_modifiers = Qt::ShiftModifier;
    move(m_position + QPointF(78, 0));
    QCOMPARE(camera.roll(), 30.0f);
    camera.mouseRelease();
    QCOMPARE(camera.pitch(), 180.0f);

    camera.setAngles(180, 0, 0);
    camera.setRollMode(KMCameraNode::RollMode::ByAngle);
    m_position = {300, 150};
    press(Qt::RightButton);
    const Vector3 taken = camera.unproject(300, 150, {});
    move({200, 50}); // a quarter turn to the left
    QVERIFY(isClose(camera.roll(), 90.0f, 1e-4f));
    QVERIFY(pixelsApart(camera.worldToWindow(taken), {200, 50, 0}) < tenthOfPixel);
}

void tst_KMCameraNode::wheel_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("ortho");
    QTest::addColumn<bool>("reversed");
    QTest::addColumn<int>("delta");
    QTest::addColumn<float>("expected"); // field of view, ortho zoom or distance
    const float ruler = std::sqrt(2.0f) * 500.0f;
    QTest::newRow("still") << 2 << false << false << 0 << 90.0f;
    QTest::newRow("forward") << 2 << false << false << 120 << 90.0f * 0.88f;
    QTest::newRow("back") << 2 << false << false << -120 << 90.0f * 1.12f;
    QTest::newRow("reversed") << 2 << false << true << 120 << 90.0f * 1.12f;
    QTest::newRow("orthographic") << 2 << true << false << 120 << 1.12f;
    QTest::newRow("orthographic back") << 1 << true << false << -120 << 0.88f;
    QTest::newRow("dolly") << 1 << false << false << 60 << 500.0f - ruler * (125.0f / 90.0f) * 0.3f;
    QTest::newRow("dolly reversed") << 1 << false << true << 60 << 500.0f + ruler * (125.0f / 90.0f) * 0.3f;
    QTest::newRow("neither") << 0 << false << false << 120 << 90.0f;
}

void tst_KMCameraNode::wheel()
{
    QFETCH(int, mode);
    QFETCH(bool, ortho);
    QFETCH(int, delta);
    QFETCH(float, expected);
    QFETCH(bool, reversed);
    gSettings->wheel = mode;
    gSettings->reverseW = reversed;
    KMCameraNode camera;
    m_camera = &camera;
    makeSimple(camera);
    camera.setOrtho(ortho);
    const kvm::Matrix4 before = camera.viewProjection();
    turnWheel(delta, Qt::LeftButton);
    QCOMPARE(camera.viewProjection(), before);
    turnWheel(delta);
    const float value = ortho ? camera.orthoZoom() : mode == 1 ? camera.distance() : camera.fov();
    QVERIFY2(isClose(value, expected, 1e-4f), qPrintable(QString::number(double(value))));
}

void tst_KMCameraNode::viewChangeIsToldOnce()
{
    KMCameraNode camera;
    m_camera = &camera;
    QSignalSpy changes(&camera, &KMCameraNode::viewChanged);
    press(Qt::RightButton);
    camera.checkViewChanged();
    QCOMPARE(changes.size(), 0);
    move(m_position + QPointF(3, 0));
    camera.checkViewChanged();
    camera.checkViewChanged();
    QCOMPARE(changes.size(), 1);
}

void tst_KMCameraNode::lightComesFromTheViewer()
{
    KMCameraNode camera;
    for (const float yaw : {0.0f, 70.0f, 200.0f}) {
        camera.setAngles(-35, yaw, 0);
        QVERIFY(isClose(camera.lightDirection(), camera.viewAxis() * -1000.0f, 1e-4f));
    }
}

KM_TEST(tst_KMCameraNode);

#include "tst_KMCameraNode.moc"
