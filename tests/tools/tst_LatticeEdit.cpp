#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMModFFDNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "shell/kmmainwidget.h"
#include "support/CommandProof.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolUniv.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>

using kvm::Vector3;

namespace {

constexpr int perspectiveView = ToolWindow::Perspective, frontView = ToolWindow::Front, topView = ToolWindow::Top;
constexpr int corner = 26; // of three times three times three points: the greatest in each direction

/// A torus in a lattice that is current.
struct LatticeWindow : ToolWindow
{
    LatticeWindow()
        : ToolWindow(MeshFixtures::torus(16, 12), KMToolKind::Universal)
        , lattice(new KMModFFDNode)
        , points(*lattice->latticeMesh())
    {
        filter({true, false, false});
        KMModFFDNode::Parameters parameters;
        parameters.size = Vector3(4, 2, 4) * Size;
        lattice->setParameters(parameters);
        gProject->addToScene(lattice);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, lattice));
        gProject->checkModifiers();
        gSolution->clearHistory();
        choose(lattice);
        static_cast<KMToolUniv *>(bar->current())->setHandleShown(false); // it would lie over the points
    }
    void choose(KMContainerNode *node) { gProject->tree()->setCurrentItem(node->item()); }
    KMMeshNode &result() const { return *lattice->modMesh(); }
    QString text()
    {
        const QString document = ToolWindow::text(); // which takes the marks of the cursor off
        return document + meshText(points) + meshText(result());
    }
    QString stepFailure(const QString &stepText, const std::function<void()> &gesture)
    {
        return ::stepFailure([this] { return text(); }, stepText, gesture);
    }
    bool isAsMadeAfresh() const
    {
        KMChainCopy fresh(*mesh);
        fresh.evaluate();
        return meshText(result()) == meshText(*fresh.last());
    }
    QPointF atPoint(int viewIndex, int point) const { return at(viewIndex, points.position(point)); }
    QList<int> selectedPoints() const
    {
        QList<int> selected;
        for (int i = 0; i < points.vertexCount(); ++i) {
            if (points.vertex(i)->hasFlag(KMElementFlag::Selected))
                selected << i;
        }
        return selected;
    }

    KMModFFDNode *lattice;
    KMMeshNode &points;
};

} // namespace

/// The points of a lattice under the mouse and the ordinary tools, in the views of the real window.
class tst_LatticeEdit : public QObject
{
    Q_OBJECT
private slots:
    void dragsAPoint();
    void marqueeMeansThePoints();
    void showsWhileCurrent();
};

void tst_LatticeEdit::dragsAPoint()
{
    LatticeWindow window;
    QVERIFY(window.isReady());
    ViewMouse mouse(window.view(perspectiveView));
    ONE_STEP(window, "Select Vertex", [&] { mouse.click(window.atPoint(perspectiveView, corner)); });
    QCOMPARE(window.selectedPoints(), QList<int>{corner});
    QVERIFY(window.lattice->isSelected());

    const QString before = window.text();
    const QString shape = meshText(window.result());
    const QPointF from = window.atPoint(perspectiveView, corner);
    const auto drag = [&] {
        mouse.move(from);
        mouse.press(Qt::LeftButton, from);
        mouse.move(from + QPointF(20, -15));
        mouse.move(from + QPointF(40, -30));
        window.view(perspectiveView)->grabFramebuffer();
        QVERIFY(meshText(window.result()) != shape); // before the button is let go of
        QVERIFY(window.isAsMadeAfresh());
        mouse.release(Qt::LeftButton, from + QPointF(40, -30));
    };
    ONE_STEP(window, "Move Selection", drag);
    QVERIFY(window.isAsMadeAfresh());
    QVERIFY((window.atPoint(perspectiveView, corner) - from - QPointF(40, -30)).manhattanLength() < 0.1);
    window->undoStack()->undo();
    window.view(perspectiveView)->grabFramebuffer();
    QCOMPARE(window.text(), before);

    // A drag that is given up.
    mouse.press(Qt::LeftButton, from);
    mouse.move(from + QPointF(40, -30));
    QTest::keyClick(window.view(perspectiveView), Qt::Key_Escape);
    mouse.release(Qt::LeftButton, from);
    window.view(perspectiveView)->grabFramebuffer();
    QCOMPARE(window.text(), before);
}

/// Also where it starts over the shape; the shape itself and the mesh below have no part in it.
void tst_LatticeEdit::marqueeMeansThePoints()
{
    LatticeWindow window;
    QVERIFY(window.isReady());
    window.filter({true, true, true});
    const QPointF upper = window.atPoint(frontView, corner);
    const QPointF lower = window.atPoint(frontView, 13); // the middle of the box
    const QPointF outward(qBound(-8.0, upper.x() - lower.x(), 8.0), qBound(-8.0, upper.y() - lower.y(), 8.0));
    const QPointF start = (upper + lower * 3) / 4;
    ONE_STEP(window, "Rect Select", [&] { window.drag(frontView, start, upper + outward - start); });
    QCOMPARE(window.selectedPoints(), (QList<int>{24, 25, 26}));
    QVERIFY(window.selectedVertices().isEmpty());
    for (const KMVertex *vertex : window.result().vertices())
        QVERIFY(!vertex->hasFlag(KMElementFlag::Selected));
    const Vector3 middle = window.points.position(25);
    window.filter({true, false, false});
    ONE_STEP(window, "Move Selection", [&] { window.drag(topView, window.atPoint(topView, corner), {25, 0}); });
    QVERIFY(std::fabs(window.points.position(25).x - middle.x) > 1.0f); // all three of them
    QVERIFY(window.isAsMadeAfresh());
}

void tst_LatticeEdit::showsWhileCurrent()
{
    LatticeWindow window;
    QVERIFY(window.isReady());
    const KMCameraNode &camera = *window.view(frontView)->camera();
    QCOMPARE(KMRenderMask::of(window.points, camera), quint32(KMRenderMask::Vertices | KMRenderMask::Edges));
    window.choose(window.mesh);
    QCOMPARE(KMRenderMask::of(window.points, camera), 0u);
    ViewMouse mouse(window.view(frontView));
    mouse.click(window.atPoint(frontView, corner));
    QVERIFY(window.selectedPoints().isEmpty());
    window.choose(window.lattice);
    window.lattice->setVisible(false);
    gProject->checkModifiers();
    QCOMPARE(KMRenderMask::of(window.points, camera), 0u);
}

KM_TEST(tst_LatticeEdit);

#include "tst_LatticeEdit.moc"
