#include "core/KMProject.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "render/KMHUDIcon.h"
#include "render/KMPicker.h"
#include "render/KMToolIcons.h"
#include "support/TestRegistry.h"
#include "support/ViewWindow.h"

#include <QAction>
#include <QSignalSpy>
#include <QTabletEvent>
#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <functional>

namespace {

using kvm::Vector3;
using Touches = QVector<QPointF>;

/// A place of the window where a part of the camera box is; (-1, -1) when it shows nowhere.
QPointF placeOnBox(const KMOpenGLWidget &view, int code)
{
    for (int y = 0; y < view.height(); ++y) {
        for (int x = view.width() / 2; x < view.width(); ++x) {
            if (view.cameraBox()->codeAt(*view.camera(), QPointF(x + 0.5, y + 0.5)) == code)
                return {x + 0.5, y + 0.5};
        }
    }
    return {-1, -1};
}

/// Hovers as the tools do.
class PickingTool : public EventLogTool
{
public:
    using EventLogTool::EventLogTool;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *view) override
    {
        request = {};
        request.wantVertex = request.wantEdge = request.wantFace = true;
        return KMPicker::pick(*view->camera(), event->localPos(), request);
    }
    KMPickRequest request;
};

KMMeshNode *addSquare(const Vector3 &low, const Vector3 &high)
{
    auto *mesh = new KMMeshNode;
    for (const Vector3 &p : {low, Vector3(low.x, high.y, low.z), high, Vector3(high.x, low.y, low.z)})
        mesh->addVertexRaw(p);
    const int corners[] = {0, 1, 2, 3};
    mesh->addFaceRaw(4, corners);
    gProject->addNode(mesh);
    return mesh;
}

/// Fingers on a view, by way of the whole road that touches of a screen take.
class Fingers
{
public:
    explicit Fingers(KMOpenGLWidget *view)
        : m_view(view)
    {
        static QTouchDevice *const screen = QTest::createTouchDevice();
        m_screen = screen;
    }
    /// Where they are now; the first so many stay down, or come down, and the others are lifted.
    void put(const Touches &places)
    {
        QTest::QTouchEventSequence event = QTest::touchEvent(m_view, m_screen, false);
        for (int i = 0; i < places.size(); ++i) {
            if (i < m_places.size())
                event.move(i, places.at(i).toPoint(), m_view);
            else
                event.press(i, places.at(i).toPoint(), m_view);
        }
        for (int i = places.size(); i < m_places.size(); ++i)
            event.release(i, m_places.at(i).toPoint(), m_view);
        m_places = places;
        event.commit();
    }
    /// Each from its place to the other, in steps of equal length; calls back after each.
    void glide(
        const Touches &to, const std::function<void()> &seen = [] {})
    {
        constexpr int steps = 8;
        const Touches from = m_places;
        for (int step = 1; step <= steps; ++step) {
            Touches now = from;
            for (int i = 0; i < now.size(); ++i)
                now[i] += (to.at(i) - from.at(i)) * step / steps;
            put(now);
            seen();
        }
    }

private:
    KMOpenGLWidget *m_view;
    QTouchDevice *m_screen;
    Touches m_places;
};

Touches shifted(Touches touches, const QPointF &by)
{
    for (QPointF &touch : touches)
        touch += by;
    return touches;
}

/// The window on a screen for fingers.
struct TouchWindow : ViewWindow
{
    TouchWindow()
    {
        gSettings->enableTouch = true;
        reopen();
        views = (*this)->mainBox()->views();
        rest();
    }
    /// The window manager moves it after it has opened, and touches find their view by their place on the screen.
    void rest() const
    {
        QPoint place;
        for (int same = 0, tries = 0; same < 4 && tries < 200; ++tries) {
            QTest::qWait(25);
            const QPoint now = view()->mapToGlobal({});
            same = now == place ? same + 1 : 0;
            place = now;
        }
    }
    Touches fingers(int count) const
    {
        const QPointF middle = view()->rect().center();
        return Touches{middle + QPointF(-40, 10), middle + QPointF(40, 10), middle + QPointF(0, -30)}.mid(0, count);
    }
};

void sendPen(KMOpenGLWidget *view, QEvent::Type type, double pressure, int device = QTabletEvent::Stylus)
{
    const QPointF at = view->rect().center();
    QTabletEvent event(type, at, view->mapToGlobal(at.toPoint()), device, QTabletEvent::Pen, pressure, 0, 0, 0, 0, 0,
                       Qt::NoModifier, 1, Qt::LeftButton, Qt::LeftButton);
    event.ignore();
    QCoreApplication::sendEvent(view, &event);
    QVERIFY(!event.isAccepted()); // or no mouse event would follow
}

} // namespace

/// What mouse, pen and fingers do in the views of the real window.
class tst_KMViewInput : public QObject
{
    Q_OBJECT
private slots:
    void drags_data();
    void drags();
    void somethingElseEndsADrag_data();
    void somethingElseEndsADrag();
    void wheelZooms();
    void orderOfPresses_data();
    void orderOfPresses();
    void boxClicks();
    void boxClickIsOver();
    void toolComesFirst();
    void uvView();
    void toolIcons();
    void picksWithinTheMargin();
    void picksWhatIsThereNow();
    void twoFingersTurn();
    void pinchZooms_data();
    void pinchZooms();
    void threeFingersPan_data();
    void threeFingersPan();
    void penPressure();
};

void tst_KMViewInput::drags_data()
{
    QTest::addColumn<int>("layoutIndex");
    QTest::addColumn<int>("viewIndex");
    QTest::addColumn<QList<int>>("buttons");
    QTest::addColumn<int>("modifiers");
    QTest::addColumn<int>("icon"); // -1: in the middle of the view
    QTest::addColumn<QString>("changed");

    const int left = Qt::LeftButton;
    const int right = Qt::RightButton;
    const int middle = Qt::MiddleButton;
    const int shift = Qt::ShiftModifier;
    QTest::newRow("left alone does nothing") << 0 << 0 << QList<int>{left} << 0 << -1 << "";
    QTest::newRow("orbit") << 0 << 0 << QList<int>{right} << 0 << -1 << "pitch yaw";
    QTest::newRow("orbit, extra button") << 0 << 0 << QList<int>{int(Qt::ExtraButton1)} << 0 << -1 << "pitch yaw";
    QTest::newRow("pan") << 0 << 0 << QList<int>{middle} << 0 << -1 << "pan";
    QTest::newRow("dolly") << 0 << 0 << QList<int>{right, left} << 0 << -1 << "distance";
    QTest::newRow("field of view") << 0 << 0 << QList<int>{right, left} << shift << -1 << "fov";
    QTest::newRow("dolly zoom") << 0 << 0 << QList<int>{middle} << shift << -1 << "fov distance";
    QTest::newRow("icon pan") << 0 << 0 << QList<int>{left} << 0 << 0 << "pan";
    QTest::newRow("icon zoom") << 0 << 0 << QList<int>{left} << 0 << 1 << "distance";
    QTest::newRow("icon zoom, right means Shift") << 0 << 0 << QList<int>{right} << 0 << 1 << "fov";
    QTest::newRow("icon rotate") << 0 << 0 << QList<int>{left} << 0 << 2 << "pitch yaw";
    QTest::newRow("fixed view doesn't turn") << 2 << 5 << QList<int>{right} << 0 << -1 << "";
    QTest::newRow("fixed view pans") << 2 << 5 << QList<int>{middle} << 0 << -1 << "pan";
    QTest::newRow("fixed view zooms") << 2 << 5 << QList<int>{left, right} << 0 << -1 << "zoom";
    QTest::newRow("UV view rolls") << 1 << 1 << QList<int>{right} << 0 << -1 << "roll";
    QTest::newRow("UV view, icon zoom") << 1 << 1 << QList<int>{left} << 0 << 1 << "zoom";
}

void tst_KMViewInput::drags()
{
    QFETCH(int, viewIndex);
    QFETCH(QList<int>, buttons);
    QFETCH(int, modifiers);
    QFETCH(int, icon);
    QFETCH(QString, changed);
    ViewWindow window;
    QFETCH(int, layoutIndex);
    window->mainBox()->setViewMode(layoutIndex);
    QVERIFY(window.isPainted());
    KMOpenGLWidget *view = window.views->widget(viewIndex);
    KMCameraNode &camera = *view->camera();
    QSignalSpy told(&camera, &KMCameraNode::viewChanged);
    const Pose before = poseOf(camera);

    QList<Qt::MouseButton> held;
    for (const int button : std::as_const(buttons))
        held << Qt::MouseButton(button);
    Mouse mouse(view);
    mouse.modifiers = Qt::KeyboardModifiers(modifiers);
    const QPointF from = icon < 0 ? QPointF(view->rect().center()) : KMNavigationIcons::place(camera, icon).center();
    mouse.drag(held, from, from + QPointF(-46, 37));
    QCOMPARE(changes(before, poseOf(camera)), changed);
    QCOMPARE(told.count(), changed.isEmpty() ? 0 : 1);
    QVERIFY(!window.views->isNavigating());
    QCOMPARE(window->undoStack()->count(), 0);

    const Pose after = poseOf(camera);
    mouse.move(from + QPointF(60, 60)); // nothing sticks to the mouse
    QCOMPARE(changes(after, poseOf(camera)), QString());
}

void tst_KMViewInput::somethingElseEndsADrag_data()
{
    QTest::addColumn<int>("button");
    QTest::addColumn<QString>("action");
    for (const char *action : {"actionQuadView", "actionCameraFront", "actionCameraOrtho", "actionCameraReset"}) {
        QTest::addRow("orbit, %s", action) << int(Qt::RightButton) << QString(QLatin1String(action));
        QTest::addRow("pan, %s", action) << int(Qt::MiddleButton) << QString(QLatin1String(action));
    }
}

/// The camera is one for several views, and none of them may go on with a drag whose view went, or which has been
/// moved.
void tst_KMViewInput::somethingElseEndsADrag()
{
    QFETCH(int, button);
    QFETCH(QString, action);
    ViewWindow window;
    QVERIFY(window.isPainted());
    KMOpenGLWidget *view = window.view();
    KMCameraNode &camera = *view->camera();
    Mouse mouse(view);
    const QPointF middle = view->rect().center();
    mouse.move(middle);
    mouse.press(Qt::MouseButton(button), middle);
    mouse.move(middle + QPointF(20, 20));
    QVERIFY(window.views->isNavigating());
    window->findChild<QAction *>(action)->trigger();
    QVERIFY(!window.views->isNavigating());
    const Pose there = poseOf(camera);
    mouse.move(middle + QPointF(60, -40));
    QCOMPARE(changes(there, poseOf(camera)), QString());
    mouse.release(Qt::MouseButton(button), middle);
    QVERIFY(!window.views->isNavigating());
    KMOpenGLWidget *now = window.view(); // another one where the layout changed
    const QPointF place = now->rect().center();
    Mouse(now).drag({Qt::LeftButton}, place, place + QPointF(10, 30));
    QCOMPARE(changes(there, poseOf(camera)), QString());
}

void tst_KMViewInput::wheelZooms()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    const QPoint middle = window.view()->rect().center();
    const Pose before = poseOf(*window.view()->camera());
    QWheelEvent event(middle, window.view()->mapToGlobal(middle), {}, {0, 120}, Qt::NoButton, Qt::NoModifier,
                      Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(window.view(), &event);
    QCOMPARE(changes(before, poseOf(*window.view()->camera())), QStringLiteral("fov"));
    QVERIFY(window.view()->camera()->fov() < before[2]);
}

void tst_KMViewInput::orderOfPresses_data()
{
    QTest::addColumn<int>("first");
    QTest::addColumn<int>("second");
    QTest::addColumn<QStringList>("log");
    const int left = Qt::LeftButton;
    const int right = Qt::RightButton;
    QTest::newRow("right then left") << right << left
                                     << QStringList{"press 2", "press 3", "release 2", "move 2", "release 0"};
    QTest::newRow("left then right") << left << right
                                     << QStringList{"press 1", "press 3", "release 0", "move 0", "release 0"};
}

/// The first release of both buttons leaves the other one, or ends all: it depends on which went down first.
void tst_KMViewInput::orderOfPresses()
{
    QFETCH(int, first);
    QFETCH(int, second);
    ViewWindow window;
    QVERIFY(window.isPainted());
    EventLogTool tool(4);
    Mouse mouse(window.view());
    const QPointF place = window.view()->rect().center();
    mouse.press(Qt::MouseButton(first), place);
    mouse.press(Qt::MouseButton(second), place);
    mouse.release(Qt::MouseButton(second), place);
    mouse.move(place + QPointF(5, 5));
    mouse.release(Qt::MouseButton(first), place);
    QTEST(tool.log, "log");
}

void tst_KMViewInput::boxClicks()
{
    using namespace KMCameraBoxShape;
    ViewWindow window;
    QVERIFY(window.isPainted());
    KMOpenGLWidget &view = *window.view();
    KMCameraNode &camera = *view.camera();
    Mouse mouse(&view);
    int clicked = 0;
    for (int code = Front; code <= BottomLeft; ++code) {
        float pitch = 0.0f;
        float yaw = 0.0f;
        QVERIFY(direction(code, pitch, yaw));
        camera.setAngles(pitch + 15.0f, yaw - 20.0f, 0.0f); // where it shows and something changes
        const QPointF place = placeOnBox(view, code);
        QVERIFY2(place.x() >= 0, QByteArray::number(code));
        mouse.drag({Qt::LeftButton}, place, place + QPointF(-30, 30));
        QCOMPARE(camera.pitch(), pitch);
        QCOMPARE(camera.yaw(), yaw);
        ++clicked;
    }
    QCOMPARE(clicked, 14);

    gSettings->animateCamera = true;
    gSettings->autoOrtho = false;
    camera.setAngles(-20, 160, 0);
    PaintCounter paints(window.views);
    const QPointF back = placeOnBox(view, Back);
    mouse.drag({Qt::LeftButton}, back, back);
    QVERIFY(paints.counts.value(&view) > 2); // on the way
    QCOMPARE(camera.yaw(), 180.0f);

    camera.setAngles(-20, 30, 0);
    const QPointF ring = placeOnBox(view, Ring);
    const QPointF middle = view.cameraBox()->centre(camera);
    const QPointF arm = ring - middle;
    mouse.drag({Qt::LeftButton}, ring, middle + QPointF(arm.y(), -arm.x())); // a quarter, counter-clockwise
    QVERIFY2(std::fabs(camera.yaw() - 300.0f) < 0.1f, QByteArray::number(double(camera.yaw())));
    QCOMPARE(camera.pitch(), -20.0f);

    window.trigger("actionCreateCube");
    camera.setPan({70, 0, 0});
    mouse.drag({Qt::MiddleButton}, middle, middle);
    const kvm::Vector3 centre = camera.worldToWindow({0, 0, 0});
    QVERIFY(std::fabs(centre.x - float(view.width()) / 2) < 0.1f);
}

/// The drag that begins on a face of the box belongs to nobody, whatever stands below it.
void tst_KMViewInput::boxClickIsOver()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    EventLogTool tool(4);
    KMOpenGLWidget &view = *window.view();
    QSignalSpy clicks(&view, &KMOpenGLWidget::cameraBoxClicked);
    const QPointF place = placeOnBox(view, KMCameraBoxShape::Front);
    Mouse mouse(&view);
    mouse.press(Qt::LeftButton, place);
    mouse.move(place + QPointF(-50, 50));
    mouse.press(Qt::RightButton, place);
    mouse.release(Qt::RightButton, place);
    mouse.release(Qt::LeftButton, place);
    QCOMPARE(clicks.count(), 1);
    QCOMPARE(tool.log, QStringList());
    mouse.press(Qt::RightButton, view.rect().center());
    mouse.release(Qt::RightButton, view.rect().center());
    QCOMPARE(tool.log, (QStringList{"press 2", "release 0"}));
}

void tst_KMViewInput::toolComesFirst()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    EventLogTool tool(4);
    tool.takes = true;
    const Pose before = poseOf(*window.view()->camera());
    const QPointF place = window.view()->rect().center();
    Mouse mouse(window.view());
    mouse.drag({Qt::RightButton}, place, place + QPointF(40, 40));
    QCOMPARE(tool.log, (QStringList{"move 0", "press 2", "move 2", "move 2", "release 0"}));
    QCOMPARE(changes(before, poseOf(*window.view()->camera())), QString());

    tool.log.clear();
    const QPointF icon = KMNavigationIcons::place(*window.view()->camera(), 0).center();
    mouse.drag({Qt::LeftButton}, icon, icon + QPointF(-40, 40));
    QCOMPARE(tool.log, QStringList());
    QCOMPARE(changes(before, poseOf(*window.view()->camera())), QStringLiteral("pan"));
}

/// Only the UV and the paint tool know the view of the texture's plane.
void tst_KMViewInput::uvView()
{
    ViewWindow window;
    window.trigger("actionDualView");
    QVERIFY(window.isPainted());
    for (const int id : {4, int(KMViewTool::UVTool), int(KMViewTool::PaintTool)}) {
        EventLogTool tool(id);
        for (const int index : {1, 2}) {
            tool.log.clear();
            KMOpenGLWidget *view = window.views->widget(index);
            Mouse(view).drag({Qt::LeftButton}, view->rect().center(), view->rect().center());
            QCOMPARE(!tool.log.isEmpty(), index == 2 || id != 4);
        }
    }
}

void tst_KMViewInput::toolIcons()
{
    ViewWindow window;
    window.trigger("actionDualView");
    QVERIFY(window.isPainted());
    QTRY_VERIFY(window.views->widget(1)->isInitialised());
    EventLogTool uv(KMViewTool::UVTool);
    EventLogTool paint(KMViewTool::PaintTool); // is the current one
    window.views->setToolSource([&](int id) { return id == KMViewTool::UVTool ? &uv : &paint; });
    KMOpenGLWidget *view = window.views->widget(1);
    KMToolIcons &icons = *view->toolIcons();
    QCOMPARE(icons.all().size(), 10);
    const auto click = [&](int code) {
        const QPointF place = icons.icon(code)->place().center();
        Mouse(view).drag({Qt::LeftButton}, place, place);
    };
    const auto checked = [&] {
        QList<int> list;
        for (const KMHUDIcon *icon : icons.all())
            list << icon->action()->isChecked();
        return list;
    };
    QCOMPARE(checked(), (QList<int>{0, 0, 0, 0, 1, 0, 0, 0, 0, 0}));
    click(KMToolIcons::PaintList | 3);
    QCOMPARE(paint.mode(), 3);
    QCOMPARE(paint.log.filter(QStringLiteral("press")), QStringList{"press 0"}); // it doesn't paint below the icon
    QCOMPARE(checked(), (QList<int>{0, 0, 0, 0, 0, 0, 0, 1, 0, 0}));
    click(KMToolIcons::UVList | 2);
    QCOMPARE(uv.mode(), 2);
    QCOMPARE(uv.log, QStringList{"activate"});
}

/// The elements of two squares, one before the other, in views of two cameras that are painted in turn.
void tst_KMViewInput::picksWithinTheMargin()
{
    ViewWindow window;
    window.trigger("actionQuadView");
    KMMeshNode *near = addSquare({-50, -50, -10}, {0, 50, -10});
    KMMeshNode *far = addSquare({-25, -30, 10}, {50, 30, 10});
    QTest::qWait(100);
    PickingTool tool(4);
    for (const int index : {5, 4, 5}) {
        KMOpenGLWidget *view = window.views->widget(index);
        QVERIFY(view->isInitialised());
        if (index == 5)
            view->camera()->setOrthoZoom(10);
        else
            view->camera()->setDistance(250);
        const auto hover = [&](const Vector3 &place, double right, double down) -> const KMPickRequest & {
            const Vector3 pixel = view->camera()->worldToWindow(place);
            Mouse(view).move({double(pixel.x) + right, double(pixel.y) + down});
            return tool.request;
        };
        QVERIFY(hover({50, 30, 10}, 9.5, -2).vertex == 2 && tool.request.mesh == far);
        QVERIFY(!hover({50, 30, 10}, 10.5, -2).isHit());
        QVERIFY(hover({-25, 30, 10}, 0, 0).face == 0 && tool.request.mesh == near); // hides the vertex
        QVERIFY(hover({0, 0, -10}, 9, 0).edge && tool.request.mesh == near);
        QCOMPARE(tool.request.point, Vector3(0, 0, -10));
        QVERIFY(hover({25, 0, 10}, 0, 0).face == 0 && tool.request.mesh == far);
    }
}

/// Nothing is painted between an edit and the pick, and the camera stands still.
void tst_KMViewInput::picksWhatIsThereNow()
{
    ViewWindow window;
    KMMeshNode *mesh = addSquare({-50, -50, 0}, {50, 50, 0});
    QVERIFY(window.isPainted());
    QTest::qWait(100);
    KMOpenGLWidget *view = window.view();
    PickingTool tool(4);
    const auto hover = [&](const Vector3 &place) {
        const Vector3 pixel = view->camera()->worldToWindow(place);
        Mouse(view).move({double(pixel.x), double(pixel.y)});
        return tool.request.vertex;
    };
    QCOMPARE(hover({50, 50, 0}), 2);
    mesh->setPosition(2, {70, 20, 15});
    mesh->markMoved();
    QCOMPARE(hover({70, 20, 15}), 2);
    QCOMPARE(hover({50, 50, 0}), -1);

    const int corners[] = {2, mesh->addVertexRaw({90, 70, 0}), 3};
    mesh->addFaceRaw(3, corners);
    mesh->markDirty(KMMeshDirty::All);
    QCOMPARE(hover({90, 70, 0}), 4);
    gProject->addNode(mesh->clone());
    mesh->setVisible(false);
    QCOMPARE(hover({90, 70, 0}), 4);
    QVERIFY(tool.request.mesh != mesh);

    const QImage afterPicks = view->grabFramebuffer(); // they take nothing away from the frame
    for (KMMeshNode *each : gProject->renderMeshes())
        each->markDirty(KMMeshDirty::All);
    QCOMPARE(afterPicks, view->grabFramebuffer());
}

void tst_KMViewInput::twoFingersTurn()
{
    TouchWindow window;
    QVERIFY(window.isPainted());
    KMCameraNode &camera = *window.view()->camera();
    QSignalSpy told(&camera, &KMCameraNode::viewChanged);
    const Pose before = poseOf(camera);
    const Touches start = window.fingers(2);
    Fingers fingers(window.view());
    fingers.put(start);
    fingers.glide(shifted(start, {-80, 40}));
    fingers.put({});
    QCOMPARE(changes(before, poseOf(camera)), QStringLiteral("pitch yaw"));
    QVERIFY(camera.yaw() > before[1] + 30 && camera.yaw() <= before[1] + 40); // half a degree for each pixel
    QVERIFY(camera.pitch() < before[0] - 15 && camera.pitch() >= before[0] - 20);
    QCOMPARE(told.count(), 1);

    const Pose after = poseOf(camera);
    Mouse(window.view()).move({90, 70}); // nothing sticks to what comes next
    QCOMPARE(changes(after, poseOf(camera)), QString());
}

void tst_KMViewInput::pinchZooms_data()
{
    QTest::addColumn<int>("wheel");
    QTest::addColumn<bool>("ortho");
    QTest::addColumn<double>("spread"); // of the fingers, in the end by the start
    QTest::addColumn<QString>("changed");
    QTest::newRow("nearer") << 2 << false << 2.0 << "distance";
    QTest::newRow("farther") << 2 << false << 0.5 << "distance";
    QTest::newRow("lens") << 1 << false << 2.0 << "fov";
    QTest::newRow("orthographic") << 2 << true << 2.0 << "zoom";
    QTest::newRow("orthographic, farther") << 1 << true << 0.5 << "zoom";
}

void tst_KMViewInput::pinchZooms()
{
    QFETCH(int, wheel);
    QFETCH(bool, ortho);
    QFETCH(double, spread);
    TouchWindow window;
    QVERIFY(window.isPainted());
    gSettings->wheel = wheel;
    KMCameraNode &camera = *window.view()->camera();
    camera.setOrtho(ortho);
    const Vector3 side(20, 20, 0);
    const auto size = [&] { return (camera.worldToWindow(side) - camera.worldToWindow({})).length(); };
    const Pose before = poseOf(camera);
    const float sizeBefore = size();
    const QPointF middle = window.view()->rect().center();
    const QPointF arm(60, 20);
    Fingers fingers(window.view());
    fingers.put({middle - arm, middle + arm});
    fingers.glide({middle - arm * spread, middle + arm * spread});
    fingers.put({});
    QTEST(changes(before, poseOf(camera)), "changed");
    QVERIFY(spread > 1 ? size() > sizeBefore * 1.1f : size() < sizeBefore * 0.9f);
}

void tst_KMViewInput::threeFingersPan_data()
{
    QTest::addColumn<QVector<int>>("counts"); // of fingers, one after the other; below 0 they don't move
    QTest::addColumn<QString>("changed");
    QTest::newRow("at once") << QVector<int>{3} << "pan";
    QTest::newRow("one after the other") << QVector<int>{-1, -2, 3} << "pan";
    QTest::newRow("after a turn") << QVector<int>{2, 3} << "pitch yaw pan";
    QTest::newRow("one lifted") << QVector<int>{3, 2} << "pan";
}

/// The scene follows the fingers, and never by more than they move.
void tst_KMViewInput::threeFingersPan()
{
    QFETCH(QVector<int>, counts);
    TouchWindow window;
    QVERIFY(window.isPainted());
    KMCameraNode &camera = *window.view()->camera();
    const Pose before = poseOf(camera);
    const QPointF way(80, -48);
    Touches places = window.fingers(3);
    Fingers fingers(window.view());
    for (const int count : std::as_const(counts)) {
        fingers.put(places.mid(0, std::abs(count)));
        const Vector3 first = camera.worldToWindow({});
        if (count < 0)
            continue;
        Vector3 last = first;
        places = shifted(places, way);
        fingers.glide(places.mid(0, count), [&] {
            const Vector3 next = camera.worldToWindow({});
            QVERIFY(std::hypot(next.x - last.x, next.y - last.y) < 12.0f);
            last = next;
        });
        if (count == 3)
            QVERIFY(last.x - first.x > 50 && first.y - last.y > 30);
        else // two turn about it, or are what is left of three
            QVERIFY(std::hypot(last.x - first.x, last.y - first.y) < 0.1f);
    }
    fingers.put({});
    QTEST(changes(before, poseOf(camera)), "changed");
}

void tst_KMViewInput::penPressure()
{
    TouchWindow window; // touches and pens get along
    QVERIFY(window.isPainted());
    KMOpenGLWidget *view = window.view();
    EventLogTool tool(4);
    const QPointF at = view->rect().center();
    Mouse mouse(view);
    mouse.source = Qt::MouseEventSynthesizedByQt;
    sendPen(view, QEvent::TabletMove, 0.1); // above the tablet
    mouse.move(at);
    sendPen(view, QEvent::TabletPress, 0.25);
    mouse.press(Qt::LeftButton, at);
    sendPen(view, QEvent::TabletMove, 0.75);
    sendPen(view, QEvent::TabletMove, 0.9, QTabletEvent::Puck);
    mouse.move(at);
    sendPen(view, QEvent::TabletRelease, 0.0);
    mouse.release(Qt::LeftButton, at);
    mouse.press(Qt::LeftButton, at);
    mouse.release(Qt::LeftButton, at);
    QCOMPARE(tool.pressures, (QList<double>{1, 0.25, 0.75, 1, 1, 1}));

    tool.log.clear();
    mouse.source = Qt::MouseEventSynthesizedBySystem; // of a touch that the view has seen itself
    mouse.press(Qt::LeftButton, at);
    mouse.release(Qt::LeftButton, at);
    QCOMPARE(tool.log, QStringList());
}

KM_TEST(tst_KMViewInput);

#include "tst_KMViewInput.moc"
