#include "core/KMBasicShaderNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "render/KMGridNode.h"
#include "render/KMHUDIcon.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMToolIcons.h"
#include "render/KMViewFilter.h"
#include "render/KMViewTool.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"
#include "support/ViewMouse.h"

#include <QAction>
#include <QDropEvent>
#include <QMimeData>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>
#include <QUndoStack>

namespace {

using Camera = KMCameraNode;
using Mouse = ViewMouse;
using Pose = std::array<float, 7>; // pitch, yaw, fov, distance, zoom, length of the pan, roll

/// Writes down what a view hands to the tool.
class RecordingTool : public KMViewTool
{
public:
    explicit RecordingTool(int id)
        : m_id(id)
    {
        gSolution->setTool(this);
    }
    ~RecordingTool() override { gSolution->setTool(nullptr); }

    bool isEditing() const override { return false; }
    void reset() override {}
    void historyChanged(int) override {}
    void commandRun() override {}
    int toolId() const override { return m_id; }
    int mode() const override { return m_mode; }
    void setMode(int mode) override { m_mode = mode; }
    void requestActivation() override { log << QStringLiteral("activate"); }
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *) override { return note("press", *event); }
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *) override { return note("move", *event); }
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *) override { return note("release", *event); }

    QStringList log;
    bool takes = false;

private:
    bool note(const char *what, const KMMouseEvent &event)
    {
        log << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(int(event.buttons()));
        return takes;
    }

    int m_id;
    int m_mode = 0;
};

class PaintCounter : public QObject
{
public:
    explicit PaintCounter(KMOpenGLContainer *views)
    {
        for (int i = 0; i < views->count(); ++i)
            views->widget(i)->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++counts[watched];
        return false;
    }
    QHash<QObject *, int> counts;
};

Pose poseOf(const Camera &camera)
{
    return {camera.pitch(),     camera.yaw(),          camera.fov(), camera.distance(),
            camera.orthoZoom(), camera.pan().length(), camera.roll()};
}

QString changes(const Pose &before, const Pose &after)
{
    static const char *const names[] = {"pitch", "yaw", "fov", "distance", "zoom", "pan", "roll"};
    QStringList changed;
    for (size_t i = 0; i < before.size(); ++i) {
        if (std::fabs(before[i] - after[i]) > 1e-3f)
            changed << QLatin1String(names[i]);
    }
    return changed.join(QLatin1Char(' '));
}

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

void drop(kmmainwidget &window, const QPoint &place, KMNode *node)
{
    const std::unique_ptr<QMimeData> data(KMTreeWidget::mimeDataOf({static_cast<KMContainerNode *>(node)}));
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

/// The window with painted views.
struct ViewWindow : TestWindow
{
    ViewWindow()
        : views((*this)->mainBox()->views())
    {
        gSettings->animateCamera = false;
    }
    KMOpenGLWidget *view() const { return views->current(); }
    bool isPainted() const
    {
        return QTest::qWaitFor([this] { return view() && view()->isInitialised(); });
    }
    KMOpenGLContainer *views;
};

} // namespace

/// The views of the real window under a real mouse.
class tst_KMMainBox : public QObject
{
    Q_OBJECT
private slots:
    void drags_data();
    void drags();
    void wheelZooms();
    void orderOfPresses_data();
    void orderOfPresses();
    void boxClicks();
    void boxClickIsOver();
    void toolComesFirst();
    void uvView_data();
    void uvView();
    void toolIcons();
    void elementButtons();
    void layouts();
    void dragRepaintsOneView();
    void idleWindowDoesNotPaint();
    void stateSurvives();
    void camerasSurviveAFile();
    void filterMenu();
    void gridDialog();
    void dropOnFace_data();
    void dropOnFace();
    void dropBesideModel();
};

void tst_KMMainBox::drags_data()
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

void tst_KMMainBox::drags()
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
    Camera &camera = *view->camera();
    QSignalSpy told(&camera, &Camera::viewChanged);
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

void tst_KMMainBox::wheelZooms()
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

void tst_KMMainBox::orderOfPresses_data()
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
void tst_KMMainBox::orderOfPresses()
{
    QFETCH(int, first);
    QFETCH(int, second);
    ViewWindow window;
    QVERIFY(window.isPainted());
    RecordingTool tool(4);
    Mouse mouse(window.view());
    const QPointF place = window.view()->rect().center();
    mouse.press(Qt::MouseButton(first), place);
    mouse.press(Qt::MouseButton(second), place);
    mouse.release(Qt::MouseButton(second), place);
    mouse.move(place + QPointF(5, 5));
    mouse.release(Qt::MouseButton(first), place);
    QTEST(tool.log, "log");
}

void tst_KMMainBox::boxClicks()
{
    using namespace KMCameraBoxShape;
    ViewWindow window;
    QVERIFY(window.isPainted());
    KMOpenGLWidget &view = *window.view();
    Camera &camera = *view.camera();
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
void tst_KMMainBox::boxClickIsOver()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    RecordingTool tool(4);
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

void tst_KMMainBox::toolComesFirst()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    RecordingTool tool(4);
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

void tst_KMMainBox::uvView_data()
{
    QTest::addColumn<int>("toolId");
    QTest::addColumn<bool>("hearsUV");
    QTest::newRow("select") << 4 << false;
    QTest::newRow("UV") << int(KMViewTool::UVTool) << true;
    QTest::newRow("paint") << int(KMViewTool::PaintTool) << true;
}

void tst_KMMainBox::uvView()
{
    QFETCH(int, toolId);
    QFETCH(bool, hearsUV);
    ViewWindow window;
    window.trigger("actionDualView");
    QVERIFY(window.isPainted());
    RecordingTool tool(toolId);
    for (const int index : {1, 2}) {
        tool.log.clear();
        KMOpenGLWidget *view = window.views->widget(index);
        Mouse(view).drag({Qt::LeftButton}, view->rect().center(), view->rect().center());
        QCOMPARE(!tool.log.isEmpty(), index == 2 || hearsUV);
    }
}

void tst_KMMainBox::toolIcons()
{
    ViewWindow window;
    window.trigger("actionDualView");
    QVERIFY(window.isPainted());
    QTRY_VERIFY(window.views->widget(1)->isInitialised());
    RecordingTool uv(KMViewTool::UVTool);
    RecordingTool paint(KMViewTool::PaintTool); // is the current one
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

void tst_KMMainBox::elementButtons()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    const auto flags = [&] {
        QString text;
        for (const bool flag : window.view()->camera()->viewFlags())
            text += QLatin1Char(flag ? '1' : '0');
        return text;
    };
    const auto click = [&](const char *name, Qt::MouseButton button) {
        QTest::mouseClick(window.child<QToolButton>(name), button);
        return flags();
    };
    QCOMPARE(flags(), QStringLiteral("11101"));
    QCOMPARE(click("boxEdge", Qt::LeftButton), QStringLiteral("10101"));
    QCOMPARE(click("boxVertex", Qt::RightButton), QStringLiteral("10001"));
    QCOMPARE(click("boxVertex", Qt::RightButton), QStringLiteral("11101"));
    QCOMPARE(click("boxFront", Qt::LeftButton), QStringLiteral("11111"));
    QCOMPARE(click("boxFace", Qt::RightButton), QStringLiteral("00111"));
    QCOMPARE(click("boxFront", Qt::RightButton), QStringLiteral("00011"));
    QCOMPARE(click("boxFace", Qt::RightButton), QStringLiteral("11111"));

    window.trigger("actionQuadView"); // the same camera in another view
    QVERIFY(window.child<QToolButton>("boxFront")->isChecked());
    window.views->activate(window.views->widget(3));
    QVERIFY(!window.child<QToolButton>("boxFront")->isChecked());
}

void tst_KMMainBox::layouts()
{
    ViewWindow window;
    QVERIFY(window.isActive());
    struct Row
    {
        const char *action;
        QList<int> cameras;
        int lead;
    };
    const Row rows[] = {{"actionDualView", {Camera::UV, Camera::Perspective}, 2},
                        {"actionQuadView", {Camera::Top, Camera::Perspective, Camera::Front, Camera::Right}, 4},
                        {"actionSingleView", {Camera::Perspective}, 0}};
    for (const Row &row : rows) {
        window.trigger(row.action);
        QCoreApplication::processEvents();
        QList<int> cameras;
        int active = 0;
        for (int i = 0; i < window.views->count(); ++i) {
            KMOpenGLWidget *view = window.views->widget(i);
            active += view->isActive();
            if (!view->isVisible())
                continue;
            cameras << view->camera()->kind();
            QTRY_VERIFY(view->isInitialised());
            QVERIFY(view->width() > 50 && view->height() > 50);
        }
        QCOMPARE(cameras, row.cameras);
        QCOMPARE(active, 1);
        QCOMPARE(window.view(), window.views->widget(row.lead));
        QTRY_COMPARE(QApplication::focusWidget(), static_cast<QWidget *>(window.view()));
        QVERIFY(window->action(row.action)->isChecked());
    }
}

void tst_KMMainBox::dragRepaintsOneView()
{
    ViewWindow window;
    window.trigger("actionQuadView");
    QVERIFY(window.isPainted());
    QTest::qWait(100);
    KMOpenGLWidget *view = window.view();
    Mouse mouse(view);
    const QPointF place = view->rect().center();
    mouse.press(Qt::RightButton, place);
    QCoreApplication::processEvents();
    PaintCounter paints(window.views);
    mouse.move(place + QPointF(30, 0));
    QTRY_VERIFY(paints.counts.value(view) > 0);
    QCOMPARE(paints.counts.size(), 1);
    mouse.release(Qt::RightButton, place);
    QTRY_COMPARE(paints.counts.size(), 4);
}

void tst_KMMainBox::idleWindowDoesNotPaint()
{
    ViewWindow window;
    window.trigger("actionCreateSphere");
    window.trigger("actionQuadView");
    QVERIFY(window.isPainted());
    QTest::qWait(3000); // the names of the views have stepped back
    PaintCounter paints(window.views);
    QTest::qWait(600);
    QCOMPARE(paints.counts.size(), 0);
}

void tst_KMMainBox::stateSurvives()
{
    TestWindow window;
    window.trigger("actionQuadView");
    window->mainBox()->setDividers(0.3, 0.25, 0.7);
    window.reopen();
    QCOMPARE(window->mainBox()->viewMode(), int(KMOpenGLContainer::Quad));
    QCOMPARE(window->mainBox()->dualX(), 0.3);
    QCOMPARE(window->mainBox()->quadX(), 0.25);
    QCOMPARE(window->mainBox()->quadY(), 0.7);
    QCoreApplication::processEvents();
    const KMOpenGLContainer &views = *window->mainBox()->views();
    const double width = views.widget(3)->width() + views.widget(4)->width();
    QVERIFY(std::fabs(views.widget(3)->width() / width - 0.25) < 0.01);
    QCOMPARE(views.widget(5)->width(), views.widget(3)->width());
}

void tst_KMMainBox::camerasSurviveAFile()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    Camera &camera = *window.view()->camera();
    const QPointF place = window.view()->rect().center();
    Mouse mouse(window.view());
    mouse.drag({Qt::RightButton}, place, place + QPointF(31, -12));
    mouse.drag({Qt::MiddleButton}, place, place + QPointF(15, 20));
    QTest::mouseClick(window.child<QToolButton>("boxEdge"), Qt::LeftButton);
    const Pose pose = poseOf(camera);
    QVERIFY(gSolution->saveBackup(window.filePath("model.kmd")));
    window.trigger("actionNew");
    QCOMPARE(camera.yaw(), 30.0f);
    QVERIFY(window.child<QToolButton>("boxEdge")->isChecked());
    QVERIFY(gSolution->load(window.filePath("model.kmd")));
    QCOMPARE(changes(pose, poseOf(camera)), QString());
    QVERIFY(!window.child<QToolButton>("boxEdge")->isChecked());
}

void tst_KMMainBox::filterMenu()
{
    ViewWindow window;
    const auto entry = [&](const char *name) { return window->findChild<QAction *>(QLatin1String(name)); };
    QVERIFY(KMViewFilter::isOn(KMViewFilter::Outline));
    for (const KMViewFilter::Row &row : KMViewFilter::rows()) {
        const bool before = KMViewFilter::isOn(row.filter);
        entry(row.objectName)->trigger();
        QCOMPARE(KMViewFilter::isOn(row.filter), !before);
        QCOMPARE(entry(row.objectName)->isChecked(), !before);
    }
    QVERIFY(!window->action("actionShowTexture")->isChecked());
    entry("boxFilterReset")->trigger();
    QVERIFY(window->action("actionShowTexture")->isChecked());
    QVERIFY(entry("boxFilterBonePolygon")->isChecked()); // a reset leaves it

    entry("boxSnapStop")->trigger();
    entry("boxSnapFace")->trigger();
    QCOMPARE(gSolution->snapOptions(), (KMSnapOption::Default | KMSnapOption::Face) & ~KMSnapOption::Stop);
    entry("boxSnapReset")->trigger();
    QCOMPARE(gSolution->snapOptions(), int(KMSnapOption::Default));
}

void tst_KMMainBox::gridDialog()
{
    ViewWindow window;
    window.prompt.onDialog = [](QDialog &dialog) {
        dialog.findChild<QSpinBox *>(QStringLiteral("gridRow"))->setValue(10);
        dialog.findChild<QDoubleSpinBox *>(QStringLiteral("gridSpace"))->setValue(7.9);
        return true;
    };
    window.trigger("actionGridSetting");
    QCOMPARE(window.view()->grid()->cells(), 10);
    QCOMPARE(window.view()->grid()->cellSize(), 7.0f);
    QCOMPARE(window.views->widget(5)->grid()->cells(), 10);
    QCOMPARE(window.views->widget(1)->grid()->cells(), 16); // the texture's plane
}

void tst_KMMainBox::dropOnFace_data()
{
    QTest::addColumn<QByteArray>("create");
    QTest::newRow("shader") << QByteArray("actionCreateShader");
    QTest::newRow("texture") << QByteArray("actionCreatePTexture");
}

void tst_KMMainBox::dropOnFace()
{
    QFETCH(QByteArray, create);
    ViewWindow window;
    QVERIFY(window.isPainted());
    auto *cube = static_cast<KMPrimitiveNode *>(window.create<KMContainerNode>("actionCreateCube"));
    window.trigger(create);
    const bool isShader = create == "actionCreateShader";
    KMNode *dragged = isShader ? gSolution->currentShader() : gSolution->currentTexture();
    const int steps = window->undoStack()->count();
    drop(*window, window.view()->mapTo(&*window, window.view()->rect().center()), dragged);
    auto *given = static_cast<KMBasicShaderNode *>(gProject->shader(cube->shader()));
    QVERIFY(given);
    if (isShader)
        QCOMPARE(static_cast<KMNode *>(given), dragged);
    else
        QCOMPARE(given->values().textures[KMBasicShader::Diffuse], 0);
    QCOMPARE(window->undoStack()->count(), steps + 1);
    window->undoStack()->undo();
    QCOMPARE(cube->shader(), -1);
}

void tst_KMMainBox::dropBesideModel()
{
    ViewWindow window;
    QVERIFY(window.isPainted());
    window.trigger("actionCreateCube");
    window.trigger("actionCreateShader");
    const int steps = window->undoStack()->count();
    QTest::ignoreMessage(QtDebugMsg, "no hit");
    drop(*window, window.view()->mapTo(&*window, {3, window.view()->height() - 3}), gSolution->currentShader());
    QCOMPARE(window->undoStack()->count(), steps);
}

KM_TEST(tst_KMMainBox);
#include "tst_KMMainBox.moc"
