#include "tools/KMHandleDrag.h"

#include "core/KMHeadlessSession.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "render/KMCameraNode.h"
#include "support/TestRegistry.h"
#include "tools/KMHandleCode.h"
#include "tools/KMNodeDrag.h"

#include <QTest>
#include <QtMath>

#include <cmath>
#include <memory>

using namespace KMHandleCode;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

const QPointF press(300, 200);

KMCameraNode *camera(int kind)
{
    auto *camera = new KMCameraNode(kind);
    camera->resize(400, 300);
    return camera;
}

KMHandleDrag::Start startOf(const KMCameraNode &camera, int code)
{
    KMHandleDrag::Start start;
    start.code = code;
    start.press = press;
    start.handle.unit = camera.pixelWorldLength({}) / 100.0f;
    start.isFreeView = camera.isPerspectiveKind();
    return start;
}

QString text(const Vector3 &v)
{
    const auto rounded = [](float x) { return std::fabs(x) < 5e-4f ? 0.0 : double(x); };
    return QString::asprintf("%.3f %.3f %.3f", rounded(v.x), rounded(v.y), rounded(v.z));
}

} // namespace

class tst_KMHandleDrag : public QObject
{
    Q_OBJECT
private slots:
    void codes_data();
    void codes();
    void scales_data();
    void scales();
    void rotates_data();
    void rotates();
    void movesInTurnedFrame();
    void nearSideFollowsTheHand();
    void untouchedCoordinatesKeepEveryBit();
    void nodeUnderMirroredParent();

private:
    KMHeadlessSession m_session;
};

void tst_KMHandleDrag::codes_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<int>("mode");
    QTest::addColumn<bool>("shift");
    QTest::addColumn<bool>("freeView");
    QTest::addColumn<int>("result");
    QTest::newRow("centre moves") << int(Move) << 23 << false << true << int(Move);
    QTest::newRow("centre, scale alone") << int(Move) << 20 << false << false << 56;
    QTest::newRow("centre, rotate alone") << int(Move) << 18 << true << true << 448;
    QTest::newRow("centre, rotate and scale") << int(Move) << 22 << false << true << int(Move);
    QTest::newRow("Shift in a free view") << int(Move) << 23 << true << true << 56;
    QTest::newRow("Shift in a fixed view") << int(Move) << 23 << true << false << int(Move);
    QTest::newRow("an arrow stays one") << int(MoveY) << 20 << true << true << int(MoveY);
    QTest::newRow("as it is") << (Move | AsItIs) << 20 << true << true << int(Move);
}

void tst_KMHandleDrag::codes()
{
    QFETCH(int, code);
    QFETCH(int, mode);
    QFETCH(bool, shift);
    QFETCH(bool, freeView);
    QTEST(rewritten(code, mode, shift, freeView), "result");
}

void tst_KMHandleDrag::scales_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<bool>("inSteps");
    QTest::addColumn<QString>("factors");
    QTest::addColumn<QString>("value");
    const auto row = [](const char *name, int code, const QPointF &way, bool inSteps, const char *factors,
                        const char *value) {
        QTest::newRow(name) << code << way << inSteps << QString::fromUtf8(factors) << QString::fromUtf8(value);
    };
    row("x", int(ScaleX), QPointF(40, 25), false, "2.000 1.000 1.000", "2.00");
    row("y", int(ScaleY), QPointF(40, -20), false, "1.000 1.500 1.000", "1.50");
    row("y, below nothing", int(ScaleY), QPointF(0, 60), false, "1.000 -0.500 1.000", "-0.50");
    row("along the view", int(ScaleZ), QPointF(40, -20), false, "1.000 1.000 1.000", "1.00");
    row("all, up and down only", int(Scale), QPointF(70, -30), false, "1.300 1.300 1.300", "1.30");
    row("first step not reached", int(ScaleX), QPointF(9, 0), true, "1.000 1.000 1.000", "1.00");
    row("first step", int(ScaleX), QPointF(11, 0), true, "1.250 1.000 1.000", "1.25");
    row("second step, all", int(Scale), QPointF(0, -55), true, "1.500 1.500 1.500", "1.50");
}

void tst_KMHandleDrag::scales()
{
    QFETCH(int, code);
    QFETCH(QPointF, way);
    QFETCH(bool, inSteps);
    const std::unique_ptr<KMCameraNode> front(camera(KMCameraNode::Front));
    const KMHandleDrag drag(*front, startOf(*front, code));
    const KMDragTransform transform = drag.transform(*front, press + way, inSteps);
    QCOMPARE(drag.kind(), KMDragTransform::Kind::Scale);
    QTEST(text(transform.factors), "factors");
    QTEST(drag.valueText(transform), "value");
}

void tst_KMHandleDrag::rotates_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("code");
    QTest::addColumn<QPointF>("way");
    QTest::addColumn<bool>("inSteps");
    QTest::addColumn<bool>("zReversed");
    QTest::addColumn<QString>("turned"); // where (1, 2, 3) goes
    QTest::addColumn<QString>("status");
    const int front = KMCameraNode::Front, perspective = KMCameraNode::Perspective;
    const QPointF up60(5, -60); // 17.2 degrees
    const auto row = [](const char *name, int kind, int code, const QPointF &way, bool inSteps, bool zReversed,
                        const char *turned, const char *status) {
        QTest::newRow(name) << kind << code << way << inSteps << zReversed << QString::fromUtf8(turned)
                            << QString::fromUtf8(status);
    };
    row("x", front, int(RotateX), up60, false, false, "1.000 1.024 3.457", "Rotate:17.189");
    row("x in steps", front, int(RotateX), up60, true, false, "1.000 1.155 3.415", "Rotate:15.000");
    row("down in steps", front, int(RotateX), -up60, true, false, "1.000 2.708 2.380", "Rotate:-15.000");
    row("y, sideways too", front, int(RotateY), QPointF(-60, 0), true, false, "1.742 2.000 2.639", "Rotate:15.000");
    row("z", front, int(RotateZ), up60, true, false, "1.484 1.673 3.000", "Rotate:15.000");
    row("z reversed", front, int(RotateZ), up60, true, true, "0.448 2.191 3.000", "Rotate:15.000");
    row("x knows no reversal", front, int(RotateX), up60, true, true, "1.000 1.155 3.415", "Rotate:15.000");
    // The press stands right below the handle's place, 100 to the right and 50 down.
    row("ring, a quarter", front, int(Ring), QPointF(-50, -150), false, false, "-2.000 1.000 3.000", "Rotate:90.000");
    row("ring, the other way", front, int(Ring), QPointF(-150, 50), true, false, "2.000 -1.000 3.000",
        "Rotate:-90.000");
    row("ring in a free view", perspective, int(Ring), up60, true, false, "", "Rotate:-15.000");
}

void tst_KMHandleDrag::rotates()
{
    QFETCH(int, kind);
    QFETCH(int, code);
    QFETCH(QPointF, way);
    QFETCH(bool, inSteps);
    QFETCH(bool, zReversed);
    QFETCH(QString, turned);
    const std::unique_ptr<KMCameraNode> view(camera(kind));
    KMHandleDrag::Start start = startOf(*view, code);
    start.isZReversed = zReversed;
    const KMHandleDrag drag(*view, start);
    const KMDragTransform transform = drag.transform(*view, press + way, inSteps);
    QTEST(drag.statusText(transform), "status");
    if (!turned.isEmpty())
        QCOMPARE(text(KMDragMap(transform)({1, 2, 3})), turned);
}

/// Along one axis of a handle that stands askew, whatever the way of the cursor.
void tst_KMHandleDrag::movesInTurnedFrame()
{
    const std::unique_ptr<KMCameraNode> front(camera(KMCameraNode::Front));
    KMHandleDrag::Start start = startOf(*front, MoveX);
    start.handle.axes = Quaternion::fromAxisAngle({0, 0, 1}, float(M_PI_4));
    const KMHandleDrag drag(*front, start);
    const KMDragTransform transform = drag.transform(*front, press + QPointF(20, 0), true);
    const float half = 10.0f * start.handle.unit; // 20 pixels by the square of the cosine
    QVERIFY((transform.delta - Vector3(half, half, 0)).length() < 1e-3f * half);
    QCOMPARE(drag.statusText(transform), QString::asprintf("X:%.3f    Y:%.3f    Z:%.3f ", double(transform.delta.x),
                                                           double(transform.delta.y), double(transform.delta.z)));
}

void tst_KMHandleDrag::nearSideFollowsTheHand()
{
    for (const int kind : {KMCameraNode::Front, KMCameraNode::Right, KMCameraNode::Perspective}) {
        const std::unique_ptr<KMCameraNode> view(camera(kind));
        const KMHandleDrag drag(*view, startOf(*view, Rotate));
        const Vector3 near = view->viewAxis() * -10.0f;
        const Vector3 before = view->worldToWindow(near);
        const Vector3 after =
            view->worldToWindow(KMDragMap(drag.transform(*view, press + QPointF(30, -20), false))(near));
        QVERIFY(after.x - before.x > 0 && after.y - before.y < 0);
        QVERIFY(std::fabs((after.x - before.x) / (before.y - after.y) - 1.5f) < 0.05f);
    }
}

void tst_KMHandleDrag::untouchedCoordinatesKeepEveryBit()
{
    const std::unique_ptr<KMCameraNode> front(camera(KMCameraNode::Front));
    const Vector3 point(0.1f, -12345.678f, 3e-7f);
    for (const int code : {MoveY, ScaleY}) {
        KMHandleDrag::Start start = startOf(*front, code);
        start.handle.position = {7.7f, 0.3f, -1e4f};
        const KMHandleDrag drag(*front, start);
        const Vector3 moved = KMDragMap(drag.transform(*front, press + QPointF(33, 44), false))(point);
        QVERIFY(moved.x == point.x && moved.z == point.z && moved.y != point.y);
    }
    KMHandleDrag::Start start = startOf(*front, RotateY);
    start.handle.position = {7.7f, 0.3f, -1e4f};
    const KMHandleDrag drag(*front, start);
    QCOMPARE(KMDragMap(drag.transform(*front, press + QPointF(33, 44), false))(point).y, point.y);
}

/// Place and orientation of a node turn about the axis that the hand turns about, whatever lies above it.
void tst_KMHandleDrag::nodeUnderMirroredParent()
{
    const std::unique_ptr<KMCameraNode> view(camera(KMCameraNode::Front));
    for (int mirrored = -1; mirrored < 3; ++mirrored) {
        auto *parent = new KMNullNode, *child = new KMNullNode;
        gProject->addNode(parent);
        gProject->addNode(child);
        KMTransform above;
        above.rotation = Quaternion::fromAxisAngle(Vector3(1, 2, 3).normalized(), 0.7f);
        if (mirrored >= 0)
            above.scale[mirrored] = -1.0f;
        parent->setTransform(above);
        KMTransform start;
        start.translation = {3, 1, -2};
        start.rotation = Quaternion::fromAxisAngle({0, 1, 0}, 0.3f);
        child->setTransform(start);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, parent, child));
        gSolution->push(new selectNodeCommand(child));
        for (const Vector3 &axis : {Vector3(1, 0, 0), Vector3(0, 1, 0), Vector3(0, 0, 1)}) {
            KMDragTransform turn;
            turn.kind = KMDragTransform::Kind::Rotate;
            turn.axis = axis;
            turn.angle = 0.5f;
            const Vector3 points[] = {{0, 0, 0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1}};
            const kvm::Matrix4 before = child->worldMatrix();
            KMNodeDrag drag;
            QVERIFY(drag.begin({*view, KMHandleDrag()}));
            drag.apply(turn, *view);
            for (const Vector3 &point : points)
                QCOMPARE(text(child->worldMatrix() * point), text(turn.turn().rotate(before * point)));
            drag.cancel();
        }
    }
}

KM_TEST(tst_KMHandleDrag);

#include "tst_KMHandleDrag.moc"
