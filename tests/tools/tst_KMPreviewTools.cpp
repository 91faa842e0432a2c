#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMTagBoneWeight.h"
#include "shell/KMMainBox.h"
#include "shell/KMNodeEdits.h"
#include "shell/docks/kmtoolwidget.h"
#include "shell/kmmainwidget.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"
#include "tools/KMToolBevel.h"
#include "tools/KMToolExtrude.h"

#include <QDoubleSpinBox>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QTreeWidgetItem>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace {

/// The real window with a cube in it and one of the tools in the hand.
template <class Tool>
struct Stage : TestWindow
{
    Stage()
        : mesh(MeshFixtures::cube())
        , tool((*this)->template findChild<Tool *>())
        , view((*this)->mainBox()->views()->current())
    {
        gProject->addNode(mesh);
        auto *dock = (*this)->template findChild<kmtoolwidget *>();
        dock->show();
        dock->raise();
        tool->requestActivation();
        gSolution->clearHistory(); // which chooses nothing
        mesh->item()->setSelected(true);
    }
    bool isReady() const
    {
        return tool && gSolution->tool() == tool && QTest::qWaitFor([this] { return view->isInitialised(); });
    }

    void send(QEvent::Type type, const QPointF &at, Qt::MouseButton button, Qt::MouseButtons held)
    {
        QMouseEvent event(type, at, at, view->mapToGlobal(at.toPoint()), button, held, Qt::NoModifier);
        QCoreApplication::sendEvent(view, &event);
    }
    QPointF pixelOf(const kvm::Vector3 &point) const
    {
        const kvm::Vector3 pixel = view->camera()->worldToWindow(point);
        return {double(pixel.x), double(pixel.y)};
    }
    /// From a point of the mesh so many pixels to the right.
    void drag(const kvm::Vector3 &point, double pixels)
    {
        view->repaint(); // what is picked is what was painted
        const QPointF from = pixelOf(point);
        send(QEvent::MouseMove, from, Qt::NoButton, Qt::NoButton);
        send(QEvent::MouseButtonPress, from, Qt::LeftButton, Qt::LeftButton);
        send(QEvent::MouseMove, from + QPointF(pixels / 2, 0), Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseMove, from + QPointF(pixels, 0), Qt::NoButton, Qt::LeftButton);
        send(QEvent::MouseButtonRelease, from + QPointF(pixels, 0), Qt::LeftButton, Qt::NoButton);
    }
    void click(const char *button) { QTest::mouseClick(this->template child<QPushButton>(button), Qt::LeftButton); }
    QString text() const ///< without what the cursor lights up
    {
        KMPicker::clearHot();
        return meshText(*mesh);
    }
    int liveFaces() const { return mesh->liveFaces().size(); }
    QString lastStep() const { return gSolution->undoStack()->undoText(); }

    KMMeshNode *mesh;
    Tool *tool;
    KMOpenGLWidget *view;
};

using ExtrudeStage = Stage<KMToolExtrude>;
using BevelStage = Stage<KMToolBevel>;

/// The middle of the face that looks at the eye most, or of the edge between the two that do.
kvm::Vector3 facing(const KMCameraNode &camera, int faces)
{
    kvm::Vector3 point;
    QVector<QPair<float, kvm::Vector3>> sides;
    for (int axis = 0; axis < 3; ++axis) {
        kvm::Vector3 side;
        side[axis] = camera.viewAxis()[axis] > 0.0f ? -1.0f : 1.0f;
        sides.append({-std::abs(camera.viewAxis()[axis]), side});
    }
    std::sort(sides.begin(), sides.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    for (int i = 0; i < faces; ++i)
        point += sides.at(i).second;
    return point;
}

} // namespace

using Act = void (*)(ExtrudeStage &);
Q_DECLARE_METATYPE(Act)

/// Extrude and bevel in the real window, by the mouse and by their pages.
class tst_KMPreviewTools : public QObject
{
    Q_OBJECT
private slots:
    void extrudeByDrag();
    void extrudeAHelper();
    void extrudeByPanel_data();
    void extrudeByPanel();
    void bevelByDrag();
    void dropped_data();
    void dropped();
};

void tst_KMPreviewTools::extrudeByDrag()
{
    ExtrudeStage stage;
    QVERIFY(stage.isReady());
    const QString before = stage.text();
    const kvm::Vector3 point = facing(*stage.view->camera(), 1);
    stage.drag(point, 60.0);
    QVERIFY(stage.tool->hasPreview());
    QVERIFY(!stage.tool->isEditing());
    QCOMPARE(stage.lastStep(), QStringLiteral("Select Face"));
    QCOMPARE(stage.liveFaces(), 6);
    const float length = stage.view->camera()->pixelScale(60.0f);
    QVERIFY(qAbs(stage.tool->value() - length) < 1e-4f * length);
    QVERIFY((stage.view->camera()->pivot() - point).length() < 0.2f);
    QVERIFY(qAbs(stage.child<QDoubleSpinBox>("extrudeValue")->value() - double(length)) < 1e-3);
    QCOMPARE(stage.tool->faceMesh(0)->mesh()->faceCount(), 5); // the copy and its walls

    stage.click("extrudeApply");
    QVERIFY(!stage.tool->hasPreview());
    QCOMPARE(stage.lastStep(), QStringLiteral("Extrude"));
    QCOMPARE(stage.liveFaces(), 10);
    const QString after = stage.text();
    gSolution->undoStack()->undo();
    gSolution->undoStack()->undo();
    QCOMPARE(stage.text(), before);
    gSolution->undoStack()->redo();
    gSolution->undoStack()->redo();
    QCOMPARE(stage.text(), after);
    stage.click("extrudeApply"); // there is nothing to apply any more
    QCOMPARE(gSolution->undoStack()->count(), 2);
}

/// A limb out of a box that weighs the mesh within: its faces are wires, but lit up, chosen and drawn out as any.
void tst_KMPreviewTools::extrudeAHelper()
{
    ExtrudeStage stage;
    QVERIFY(stage.isReady());
    auto *rig = new KMBoneContainer;
    gProject->addNode(rig);
    auto *bone = new KMBone;
    bone->setRest(restBone({0, 0, -4}, {0, 0, 4}));
    gSolution->push(new addBoneCommand(rig, bone, nullptr));
    gProject->tree()->setCurrentItem(stage.mesh->item());
    auto *anchor = new KMModAnchorNode;
    KMNodeEdits::addModifier(anchor);
    gSolution->push(new modAnchorAddBoneCommand(anchor, bone));
    const KMMeshNode &helper = *anchor->anchors().first()->mesh();
    const auto *weights = static_cast<const KMTagBoneWeight *>(helper.findTag(KMNodeType::TagBoneWeight));
    const QString before = meshText(helper);
    gSolution->clearHistory();
    gProject->tree()->setCurrentItem(anchor->item());
    stage.view->camera()->setDistance(20.0f);
    stage.view->repaint();

    kvm::Vector3 point = facing(*stage.view->camera(), 1);
    for (int k = 0; k < 3; ++k)
        point[k] *= (k == 2 ? 3.0f : 1.5f);
    const auto picture = [&stage](const QPointF &cursor) {
        stage.send(QEvent::MouseMove, cursor, Qt::NoButton, Qt::NoButton);
        return stage.view->grabFramebuffer();
    };
    const QImage plain = picture({1, 1});
    QVERIFY(picture(stage.pixelOf(point)) != plain);
    stage.drag(point, 40.0);
    QVERIFY(picture({1, 1}) != plain);
    QCOMPARE(stage.lastStep(), QStringLiteral("Select Face"));
    stage.click("extrudeApply");
    QCOMPARE(stage.liveFaces(), 6);
    QCOMPARE(helper.faceCount() - helper.faces().count(nullptr), 10); // there may have been no frame since
    for (const KMVertex *vertex : helper.vertices())
        QVERIFY(!vertex || weights->weight(vertex->index, bone) == 1.0f);
    gSolution->undoStack()->setIndex(0);
    KMPicker::clearHot();
    stage.view->grabFramebuffer(); // edges follow with the next frame
    QCOMPARE(meshText(helper), before);
}

void tst_KMPreviewTools::extrudeByPanel_data()
{
    QTest::addColumn<QByteArray>("button");
    QTest::addColumn<QString>("step");
    QTest::addColumn<int>("faces");
    QTest::newRow("default") << QByteArray("extrudeDefault") << QStringLiteral("Extrude") << 10;
    QTest::newRow("offset") << QByteArray("extrudeOffset") << QStringLiteral("Extrude") << 10;
    QTest::newRow("solidify") << QByteArray("extrudeSolidify") << QStringLiteral("Extrude") << 11;
    QTest::newRow("move") << QByteArray("extrudeMoveVertex") << QStringLiteral("Move") << 6;
}

void tst_KMPreviewTools::extrudeByPanel()
{
    QFETCH(QByteArray, button);
    ExtrudeStage stage;
    QVERIFY(stage.isReady());
    auto *slider = stage.child<QSlider>("extrudeSlider");
    slider->setValue(50); // nothing is selected yet
    QVERIFY(!stage.tool->hasPreview());
    QCOMPARE(slider->value(), 0);
    KMMeshSelect::clickFace(*stage.mesh, 3, KMMeshSelect::Mode::Replace);
    slider->setValue(30);
    stage.click(button.constData()); // in mid-preview: it becomes that of the other mode
    QVERIFY(stage.tool->hasPreview());
    stage.child<QDoubleSpinBox>("extrudeValue")->setValue(0.5);
    QCOMPARE(slider->value(), 50);
    QCOMPARE(stage.tool->value(), 0.5f);
    QCOMPARE(gSolution->undoStack()->count(), 1);
    stage.click("extrudeApply");
    QTEST(stage.lastStep(), "step");
    QTEST(stage.liveFaces(), "faces");
    QCOMPARE(gSolution->undoStack()->count(), 2);
}

void tst_KMPreviewTools::bevelByDrag()
{
    BevelStage stage;
    QVERIFY(stage.isReady());
    const QString before = stage.text();
    stage.drag(facing(*stage.view->camera(), 2), 20.0);
    QVERIFY(stage.tool->hasPreview());
    QCOMPARE(stage.lastStep(), QStringLiteral("Select Edge"));
    QCOMPARE(stage.liveFaces(), 6);
    stage.child<QDoubleSpinBox>("bevelValue")->setValue(0.25);
    stage.click("bevelApply");
    QCOMPARE(stage.lastStep(), QStringLiteral("Bevel"));
    QCOMPARE(stage.liveFaces(), 9);
    gSolution->undoStack()->undo();
    gSolution->undoStack()->undo();
    QCOMPARE(stage.text(), before);
}

void tst_KMPreviewTools::dropped_data()
{
    QTest::addColumn<Act>("act");
    QTest::newRow("Escape") << Act([](ExtrudeStage &stage) {
        QVERIFY(stage.focus(stage.view));
        QTest::keyClick(stage.view, Qt::Key_Escape);
    });
    QTest::newRow("undo") << Act([](ExtrudeStage &) { gSolution->undoStack()->undo(); });
    QTest::newRow("another tool") << Act([](ExtrudeStage &stage) { stage.tool->deactivate(); });
    QTest::newRow("new document") << Act([](ExtrudeStage &) { gSolution->newDocument(); });
    QTest::newRow("deleted mesh") << Act([](ExtrudeStage &stage) {
        gSolution->setCurrentNode(stage.mesh);
        stage.trigger("ComDeleteCurrentNode");
    });
}

/// Whatever ends a preview leaves no step behind.
void tst_KMPreviewTools::dropped()
{
    ExtrudeStage stage;
    QVERIFY(stage.isReady());
    KMMeshSelect::clickFace(*stage.mesh, 3, KMMeshSelect::Mode::Replace);
    stage.tool->setValue(1.0f);
    QVERIFY(stage.tool->hasPreview());
    QFETCH(Act, act);
    act(stage);
    QVERIFY(!stage.tool->hasPreview());
    QVERIFY(!stage.tool->faceMesh(0)->isVisible());
    QCOMPARE(stage.tool->value(), 0.0f);
    QVERIFY(!stage.tool->apply());
    QVERIFY(!gSolution->undoStack()->undoText().contains(QStringLiteral("Extrude")));
    stage.view->repaint();
}

KM_TEST(tst_KMPreviewTools);
#include "tst_KMPreviewTools.moc"
