#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "shell/kmmainwidget.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMEnvToolBar.h"
#include "tools/KMTool.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSel.h"

#include <QAction>
#include <QTest>
#include <QUndoStack>

#include <algorithm>

using kvm::Vector3;

/// Chains of elements, the eraser and the bars of the tools, in the real window.
class tst_KMToolSel : public QObject
{
    Q_OBJECT
private slots:
    void chains_data();
    void chains();
    void wayFromRootToRoot();
    void nothingUnderTheCursor();
    void nodeMode();
    void erase_data();
    void erase();
    void lockedMesh();
    void toolsByKey();
    void editFilter();
};

namespace {

constexpr int side = 5; // quads of the grid each way

/// A grid, seen from above.
struct GridWindow : ToolWindow
{
    explicit GridWindow(int toolId)
        : ToolWindow(MeshFixtures::grid(side, side), toolId)
    {
    }
    /// The middle of some vertices, as pixels of the view from above.
    QPointF middle(const QVector<int> &vertices) const
    {
        Vector3 sum;
        for (const int i : vertices)
            sum += mesh->position(i);
        return at(Top, sum / float(vertices.size()));
    }
    void click(const QPointF &place, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ViewMouse mouse(view(Top));
        mouse.modifiers = modifiers;
        mouse.click(place);
    }
};

int vertexAt(int i, int j)
{
    return j * (side + 1) + i;
}

} // namespace

void tst_KMToolSel::chains_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("edges");
    QTest::addColumn<int>("faces");
    QTest::newRow("loop") << int(KMToolSel::LoopEdge) << QStringLiteral("Loop Select") << side << 0;
    QTest::newRow("ring") << int(KMToolSel::RingEdge) << QStringLiteral("Ring Select") << side + 1 << 0;
    QTest::newRow("belt") << int(KMToolSel::BeltFace) << QStringLiteral("Belt Select") << 0 << side;
    QTest::newRow("patch") << int(KMToolSel::ChainedFace) << QStringLiteral("Chained Select") << 0 << side * side;
}

void tst_KMToolSel::chains()
{
    QFETCH(int, mode);
    QFETCH(QString, text);
    GridWindow window(KMToolKind::Select);
    QVERIFY(window.isReady());
    window.bar->tool(KMToolKind::Select)->setMode(mode);
    const bool isFace = mode == KMToolSel::ChainedFace;
    const QPointF place =
        isFace ? window.middle({vertexAt(2, 2), vertexAt(3, 3)}) : window.middle({vertexAt(2, 2), vertexAt(3, 2)});
    QCOMPARE(window.stepFailure(text, [&] { window.click(place); }), QString());
    QTEST(window.selectedEdges(), "edges");
    QTEST(window.selectedFaces(), "faces");
    QCOMPARE(window.stepFailure(text, [&] { window.click(place, Qt::ControlModifier); }), QString());
    QCOMPARE(window.selectedEdges() + window.selectedFaces(), 0);
}

void tst_KMToolSel::wayFromRootToRoot()
{
    GridWindow window(KMToolKind::Select);
    QVERIFY(window.isReady());
    window.bar->tool(KMToolKind::Select)->setMode(KMToolSel::RootEdge);
    const auto clickVertex = [&](int i, int j) { window.click(window.middle({vertexAt(i, j)})); };
    clickVertex(0, 0);
    QCOMPARE(window->undoStack()->count(), 0);
    ONE_STEP(window, "Root Select", [&] { clickVertex(3, 2); });
    QCOMPARE(window.selectedEdges(), 5);
    ONE_STEP(window, "Root Select", [&] { clickVertex(3, 4); });
    QCOMPARE(window.selectedEdges(), 7);
    clickVertex(3, 4); // ends the chain
    clickVertex(5, 5); // begins another
    QCOMPARE(window->undoStack()->count(), 2);
    window->undoStack()->undo(); // the root stands yet
    ONE_STEP(window, "Root Select", [&] { clickVertex(5, 4); });
    QCOMPARE(window.selectedEdges(), 6);
}

void tst_KMToolSel::nothingUnderTheCursor()
{
    GridWindow window(KMToolKind::Select);
    QVERIFY(window.isReady());
    window.bar->tool(KMToolKind::Select)->setMode(KMToolSel::LoopEdge);
    window.click(window.middle({vertexAt(2, 2), vertexAt(3, 2)}));
    ONE_STEP(window, "UnSelectAll", [&] { window.click({3, 3}); });
    QCOMPARE(window.selectedEdges(), 0);
}

void tst_KMToolSel::nodeMode()
{
    GridWindow window(KMToolKind::Select);
    QVERIFY(window.isReady());
    window.bar->tool(KMToolKind::Select)->setMode(KMToolSel::Node);
    const QPointF place = window.middle({vertexAt(2, 2), vertexAt(3, 3)});
    window.click(place, Qt::ControlModifier);
    QVERIFY(!window.mesh->isSelected());
    window.click(place);
    QVERIFY(window.mesh->isSelected());
    QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(window.mesh));
}

void tst_KMToolSel::erase_data()
{
    QTest::addColumn<bool>("symmetric");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QVector<int>>("vertices"); // of the element that is clicked
    QTest::addColumn<int>("faces");             // that are left
    const int all = side * side;
    const QVector<int> vertex = {vertexAt(1, 2)};
    const QVector<int> edge = {vertexAt(1, 2), vertexAt(1, 3)};
    const QVector<int> face = {vertexAt(0, 2), vertexAt(1, 3)};
    QTest::newRow("vertex") << false << "Delete Vertex" << vertex << all - 4;
    QTest::newRow("edge") << false << "Delete Edge" << edge << all - 2;
    QTest::newRow("face") << false << "Delete Face" << face << all - 1;
    QTest::newRow("vertex and image") << true << "Delete Vertex" << vertex << all - 8;
    QTest::newRow("edge and image") << true << "Delete Edge" << edge << all - 4;
    QTest::newRow("face and image") << true << "Delete Face" << face << all - 2;
}

void tst_KMToolSel::erase()
{
    QFETCH(bool, symmetric);
    QFETCH(QString, text);
    QFETCH(QVector<int>, vertices);
    GridWindow window(KMToolKind::Erase);
    QVERIFY(window.isReady());
    // The plane of symmetry through the middle of the grid.
    KMTransform frame = window.mesh->transform();
    frame.translation = (window.mesh->position(vertexAt(0, 0)) + window.mesh->position(vertexAt(side, 0))) / 2.0f;
    window.mesh->setTransform(frame);
    KMEditFilter filter;
    filter.symmetry = symmetric;
    window.filter(filter);
    const QPointF place = window.middle(vertices);
    QCOMPARE(window.stepFailure(text, [&] { window.click(place); }), QString());
    const auto isThere = [](const KMFace *face) { return face != nullptr; };
    QTEST(int(std::count_if(window.mesh->faces().begin(), window.mesh->faces().end(), isThere)), "faces");
    window.mesh->refreshMesh(KMMeshDirty::All);
    QCOMPARE(checkInvariants(*window.mesh), QString());
}

void tst_KMToolSel::lockedMesh()
{
    for (const int tool : {int(KMToolKind::Select), int(KMToolKind::Erase)}) {
        GridWindow window(tool);
        QVERIFY(window.isReady());
        window.bar->tool(KMToolKind::Select)->setMode(KMToolSel::LoopEdge);
        window.mesh->setLocked(true);
        const QString before = window.text();
        window.click(window.middle({vertexAt(2, 2), vertexAt(3, 2)}));
        QCOMPARE(window.text(), before);
    }
}

/// The key of a tool that isn't there yet leaves the one in the hand.
void tst_KMToolSel::toolsByKey()
{
    TestWindow window;
    QVERIFY(window.isActive());
    auto *bar = static_cast<KMToolBar *>(window->toolBar());
    QCOMPARE(bar->tools().size(), int(KMToolKind::Last));
    QSet<QKeySequence> keys;
    for (const KMTool *tool : bar->tools()) {
        QVERIFY2(!tool->action()->icon().isNull() && !tool->statusTip().isEmpty(), qPrintable(tool->objectName()));
        keys << tool->action()->shortcut();
    }
    QCOMPARE(keys.size(), bar->tools().size());
    const auto isAlone = [bar](KMTool *wanted) {
        const QList<KMTool *> tools = bar->tools();
        return bar->current() == wanted && std::all_of(tools.begin(), tools.end(), [wanted](const KMTool *tool) {
                   return tool->isChecked() == (tool == wanted);
               });
    };
    QVERIFY(isAlone(bar->tools().first()));
    QTest::keyClick(&*window, Qt::Key_D);
    QVERIFY(isAlone(bar->tool(KMToolKind::Erase)));
    QTest::keyClick(&*window, Qt::Key_Y); // isn't there yet
    QVERIFY(isAlone(bar->tool(KMToolKind::Erase)));
    QTest::keyClick(bar->tool(KMToolKind::Bevel), Qt::Key_Space); // of the button itself
    QVERIFY(isAlone(bar->tool(KMToolKind::Bevel)));
    QTest::keyClick(&*window, Qt::Key_D);
    bar->current()->setEditing(true); // a key in mid-drag
    QTest::keyClick(&*window, Qt::Key_S);
    QCOMPARE(bar->current(), bar->tool(KMToolKind::Erase));
    bar->current()->setEditing(false);
    QTest::keyClick(&*window, Qt::Key_S);
    QCOMPARE(bar->current(), bar->tool(KMToolKind::Select));
}

void tst_KMToolSel::editFilter()
{
    const TestWindow window;
    const auto action = [&](const char *name) { return window->findChild<QAction *>(QLatin1String(name)); };
    for (const char *name : {"envEdge", "envSymmetry", "envLasso"})
        action(name)->trigger();
    const KMEditFilter &filter = gSolution->editFilter();
    QVERIFY(filter.vertices && !filter.edges && filter.faces && filter.symmetry);
    QVERIFY(filter.shape == KMEditFilter::Shape::Lasso);
    QVERIFY(!action("envSquare")->isChecked());
}

KM_TEST(tst_KMToolSel);

#include "tst_KMToolSel.moc"
