#include "core/KMBasicShaderNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "render/KMCameraNode.h"
#include "render/KMGridNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMViewFilter.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"
#include "support/PictureCheck.h"
#include "support/TestRegistry.h"
#include "support/ViewWindow.h"

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

void drop(kmmainwidget &window, const QPoint &place, KMNode *node)
{
    const std::unique_ptr<QMimeData> data(KMTreeWidget::mimeDataOf({static_cast<KMContainerNode *>(node)}));
    QDragEnterEvent enter(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QVERIFY(enter.isAccepted());
    QDropEvent event(place, Qt::CopyAction, data.get(), Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &event);
}

} // namespace

/// The layouts of the real window, its bar and what is dropped on a view.
class tst_KMMainBox : public QObject
{
    Q_OBJECT
private slots:
    void elementButtons();
    void layouts();
    void quadPicture();
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

void tst_KMMainBox::quadPicture()
{
    constexpr int first = 3;
    ViewWindow window;
    window.create<KMPrimitiveNode>("actionCreateCylinder");
    window->mainBox()->setViewMode(KMOpenGLContainer::Quad);
    const QSize size(320, 200);
    QVector<QImage> pictures;
    for (int i = first; i < first + 4; ++i)
        window.views->widget(i)->setFixedSize(size);
    for (int i = first; i < first + 4; ++i) {
        KMOpenGLWidget *view = window.views->widget(i);
        QVERIFY(QTest::qWaitFor([=] { return view->isInitialised() && view->size() == size; }));
        pictures << view->grabFramebuffer();
    }
    const QString fault = pictureFault(contactSheet(pictures, 2), QStringLiteral("quad_layout"));
    QVERIFY2(fault.isEmpty(), qPrintable(fault));
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
