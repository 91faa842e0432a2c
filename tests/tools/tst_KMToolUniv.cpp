#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMPicker.h"
#include "shell/KMMainBox.h"
#include "shell/KMNodeEdits.h"
#include "shell/kmmainwidget.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMHandleCode.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolHandle.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolUniv.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>

using kvm::Vector3;

namespace {

constexpr int topView = ToolWindow::Top, perspectiveView = ToolWindow::Perspective, frontView = ToolWindow::Front;
constexpr float size = ToolWindow::Size;

/// With a tool that has a handle.
struct UnivWindow : ToolWindow
{
    explicit UnivWindow(KMMeshNode *shape = MeshFixtures::cube(), int toolId = KMToolKind::Universal)
        : ToolWindow(shape, toolId)
        , tool(static_cast<KMToolUniv *>(bar->tool(toolId)))
    {
        filter({true, false, false});
    }
    void select(const QList<int> &vertices)
    {
        for (const int i : vertices)
            mesh->setVertexFlag(i, KMElementFlag::Selected);
        tool->refresh();
    }
    float pixel(int viewIndex) const { return view(viewIndex)->camera()->pixelWorldLength({}) / 100.0f; }

    KMToolUniv *tool;
};

/// A stage of a chain that makes its input larger or smaller.
class Resize : public KMModifierNode
{
public:
    explicit Resize(float factor)
        : KMModifierNode(KMNodeType::ModHair, QStringLiteral("resize"))
        , m_factor(factor)
    {
    }
    KMModifierNode *clone() const override { return new Resize(m_factor); }

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override
    {
        for (const KMVertex *vertex : input.vertices())
            result.addVertexRaw(vertex->pos * m_factor);
        for (const KMFace *face : input.faces())
            result.addFaceRaw(face->count, face->indices);
    }
    bool updateResult(const KMMeshNode &, KMMeshNode &) override { return false; }

private:
    float m_factor;
};

bool isClose(const Vector3 &a, const Vector3 &b)
{
    return (a - b).length() < 1e-2f;
}

} // namespace

/// The transform tools under a real mouse in the views of the real window.
class tst_KMToolUniv : public QObject
{
    Q_OBJECT
private slots:
    void clicks();
    void marquees_data();
    void marquees();
    void missesLeaveTheSelection();
    void movesAlongTheHandle_data();
    void movesAlongTheHandle();
    void scalesInSteps();
    void turnsInSteps();
    void elementFollowsTheHand();
    void snaps_data();
    void snaps();
    void symmetry_data();
    void symmetry();
    void wholeNode();
    void interruptions_data();
    void interruptions();
    void nothingToEdit();
    void throughModifiers_data();
    void throughModifiers();
    void clickInTheTree();
    void newDocumentTakesTheHandle();
    void lostRelease();
};

void tst_KMToolUniv::clicks()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    window.tool->setHandleShown(false); // it would lie over the neighbours
    ViewMouse mouse(window.view(perspectiveView));
    const auto click = [&](int vertex, Qt::KeyboardModifiers modifiers) {
        mouse.modifiers = modifiers;
        mouse.click(window.at(perspectiveView, vertex));
    };
    ONE_STEP(window, "Select Vertex", [&] { click(2, Qt::NoModifier); });
    ONE_STEP(window, "Select Vertex", [&] { click(3, Qt::ShiftModifier); });
    QCOMPARE(window.selectedVertices(), (QList<int>{2, 3}));
    click(3, Qt::NoModifier); // it may be the start of a drag of both
    QCOMPARE(window.selectedVertices(), (QList<int>{2, 3}));
    ONE_STEP(window, "Unselect Vertex", [&] { click(2, Qt::ControlModifier); });
    ONE_STEP(window, "Select Vertex", [&] { click(1, Qt::NoModifier); });
    QCOMPARE(window.selectedVertices(), QList<int>{1});
    mouse.modifiers = Qt::ShiftModifier;
    mouse.click({20, 150}); // on nothing
    QCOMPARE(window.selectedVertices(), QList<int>{1});
    mouse.modifiers = Qt::NoModifier;
    ONE_STEP(window, "UnSelectAll", [&] { mouse.click({20, 150}); });
    const int steps = window->undoStack()->count();
    mouse.click({20, 150});
    QCOMPARE(window->undoStack()->count(), steps);
    QVERIFY(!window.tool->isEditing());
}

void tst_KMToolUniv::marquees_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("text");
    QTest::newRow("rectangle") << int(KMEditFilter::Shape::Square) << "Rect Select";
    QTest::newRow("lasso") << int(KMEditFilter::Shape::Lasso) << "Lasso Select";
    QTest::newRow("brush") << int(KMEditFilter::Shape::Brush) << "Brush Select";
}

/// Around the upper edge of the cube in the front view, added and taken away again.
void tst_KMToolUniv::marquees()
{
    QFETCH(int, shape);
    QFETCH(QString, text);
    UnivWindow window;
    QVERIFY(window.isReady());
    window.filter({true, false, false, false, KMEditFilter::Shape(shape)});
    const bool isLasso = shape == int(KMEditFilter::Shape::Lasso);
    const bool isBrush = shape == int(KMEditFilter::Shape::Brush);
    const QPointF left = window.at(frontView, 2), right = window.at(frontView, 3);
    const auto stroke = [&] {
        const QPointF out(20, isBrush ? 20 : 25);
        ViewMouse mouse(window.view(frontView));
        const QPointF from = left - (isBrush ? QPointF(20, 16) : out);
        mouse.press(Qt::LeftButton, from);
        if (isLasso)
            mouse.move({right.x() + out.x(), from.y()});
        mouse.move(isBrush ? right + QPointF(20, -16) : right + out);
        QCOMPARE(window.selectedVertices().isEmpty(), !isBrush); // a brush shows at once what it selects
        if (isLasso)
            mouse.move(left + QPointF(-out.x(), out.y()));
        mouse.release(Qt::LeftButton, isLasso   ? left + QPointF(-out.x(), out.y())
                                      : isBrush ? right + QPointF(20, -16)
                                                : right + out);
    };
    QCOMPARE(window.stepFailure(text, [&] { stroke(); }), QString());
    QCOMPARE(window.selectedVertices(), (QList<int>{2, 3, 6, 7}));
}

void tst_KMToolUniv::missesLeaveTheSelection()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    for (const auto shape : {KMEditFilter::Shape::Square, KMEditFilter::Shape::Lasso}) {
        window.filter({true, false, false, false, shape});
        window.select({0, 5});
        window.drag(perspectiveView, {12, 120}, {30, 25});
        QCOMPARE(window.selectedVertices(), (QList<int>{0, 5}));
        QCOMPARE(window->undoStack()->count(), 0);
    }
}

void tst_KMToolUniv::movesAlongTheHandle_data()
{
    QTest::addColumn<int>("viewIndex");
    QTest::addColumn<int>("axis");
    QTest::newRow("x from the front") << frontView << 0;
    QTest::newRow("y from the front") << frontView << 1;
    QTest::newRow("x from above") << topView << 0;
    QTest::newRow("z from above") << topView << 2;
}

void tst_KMToolUniv::movesAlongTheHandle()
{
    QFETCH(int, viewIndex);
    QFETCH(int, axis);
    UnivWindow window;
    QVERIFY(window.isReady());
    window.select({1, 3});
    const Vector3 before[] = {window.mesh->position(1), window.mesh->position(3)};
    const QPointF from = window.onHandle(viewIndex, axis, 82);
    const QPointF along = window.onHandle(viewIndex, axis, 107) - from;
    const QPointF sideways = QPointF(along.y(), along.x()) / 3;
    ONE_STEP(window, "Move Selection", [&] { window.drag(viewIndex, from, along + sideways); });
    Vector3 way;
    way[axis] = 25.0f * window.pixel(viewIndex);
    QVERIFY(isClose(window.mesh->position(1), before[0] + way));
    QVERIFY(isClose(window.mesh->position(3), before[1] + way));
    QVERIFY(isClose(window.tool->handle()->position(), (before[0] + before[1]) * 0.5f + way));
    QCOMPARE(window.mesh->position(0), Vector3(-size, -size, -size));
}

void tst_KMToolUniv::scalesInSteps()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    window.select({0, 1, 2, 3, 4, 5, 6, 7});
    const QPointF from = window.onHandle(frontView, 0, 32);
    ONE_STEP(window, "Scale Selection", [&] { window.drag(frontView, from, {23, 9}, Qt::ShiftModifier); });
    QVERIFY(isClose(window.mesh->position(7), {size * 1.5f, size, size}));
    QCOMPARE(window.tool->value(), QStringLiteral("1.50"));
}

void tst_KMToolUniv::turnsInSteps()
{
    UnivWindow window(MeshFixtures::cube(), KMToolKind::Rotate);
    QVERIFY(window.isReady());
    window.select({0, 1, 2, 3, 4, 5, 6, 7});
    // The ring turns with the cursor in a fixed view: an eighth of it.
    const QPointF middle = window.at(frontView, Vector3());
    const double radius = 105.0;
    const QPointF from = middle + QPointF(radius, 0);
    const QPointF to = middle + QPointF(radius * 0.7, -radius * 0.75);
    ONE_STEP(window, "Rotate Selection", [&] { window.drag(frontView, from, to - from, Qt::ShiftModifier); });
    QVERIFY(isClose(window.mesh->position(7), {0, size * std::sqrt(2.0f), size}));
    // With one kind of part the centre does what it does.
    ONE_STEP(window, "Rotate Selection", [&] { window.drag(frontView, middle, {40, 0}); });
    QVERIFY(window.tool->handle()->axes().isIdentity());
}

/// In perspective, at the depth of the vertex.
void tst_KMToolUniv::elementFollowsTheHand()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    window.select({3});
    const QPointF from = window.at(perspectiveView, 3);
    const KMCameraNode &camera = *window.view(perspectiveView)->camera();
    const float depth = dot(window.mesh->position(3) - camera.eye(), camera.viewAxis());
    window.tool->setHandleShown(false); // the vertex itself lies below the cursor
    ONE_STEP(window, "Move Selection", [&] { window.drag(perspectiveView, from, {-21, 34}); });
    const QPointF missed = window.at(perspectiveView, 3) - from - QPointF(-21, 34);
    QVERIFY(missed.manhattanLength() < 0.1);
    QVERIFY(std::fabs(dot(window.mesh->position(3) - camera.eye(), camera.viewAxis()) - depth) < 1e-2f);
    // Below the margin a drag is a click.
    const int steps = window->undoStack()->count();
    window.drag(perspectiveView, window.at(perspectiveView, 3), {1, 2});
    QCOMPARE(window->undoStack()->count(), steps);
}

void tst_KMToolUniv::snaps_data()
{
    QTest::addColumn<int>("options");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("faces"); // of three triangles afterwards
    QTest::addColumn<bool>("onto");
    const int on = KMSnapOption::Self | KMSnapOption::All | KMSnapOption::Vertex;
    QTest::newRow("stopped") << (on | KMSnapOption::Stop | KMSnapOption::Merge) << "Move Selection" << 6 << false;
    QTest::newRow("onto") << on << "Snap Vertex" << 6 << true;
    QTest::newRow("merged") << (on | KMSnapOption::Merge) << "Snap Vertex" << 4 << true;
    QTest::newRow("others only") << int(KMSnapOption::All | KMSnapOption::Vertex) << "Move Selection" << 6 << false;
}

/// From the tip of a cone, seen from above, to a vertex of its rim.
void tst_KMToolUniv::snaps()
{
    QFETCH(int, options);
    QFETCH(QString, text);
    QFETCH(int, faces);
    QFETCH(bool, onto);
    UnivWindow window(MeshFixtures::openCone());
    QVERIFY(window.isReady());
    gSolution->setSnapOptions(options);
    window.select({0});
    window.tool->setHandleShown(false);
    const Vector3 rim = window.mesh->position(2);
    const QPointF from = window.at(topView, 0);
    const QPointF way = window.at(topView, 2) - from + QPointF(4, 3);
    QCOMPARE(window.stepFailure(text, [&] { window.drag(topView, from, way); }), QString());
    const int live = int(std::count_if(window.mesh->faces().begin(), window.mesh->faces().end(),
                                       [](const KMFace *face) { return face && face->isLive(); }));
    QCOMPARE(live, faces);
    const bool isMerged = !window.mesh->vertex(0);
    QCOMPARE(isMerged, faces == 4);
    QCOMPARE(!isMerged && window.mesh->position(0) == rim, onto && !isMerged);
}

void tst_KMToolUniv::symmetry_data()
{
    QTest::addColumn<QList<int>>("selected");
    QTest::addColumn<QList<int>>("moved"); // by the way, by its image
    QTest::addColumn<QList<int>>("mirrored");
    QTest::newRow("one side") << QList<int>{1} << QList<int>{1} << QList<int>{0};
    QTest::newRow("the other side") << QList<int>{2, 6} << QList<int>{2, 6} << QList<int>{3, 7};
    QTest::newRow("both sides") << QList<int>{0, 1} << QList<int>{1} << QList<int>{0};
}

void tst_KMToolUniv::symmetry()
{
    QFETCH(QList<int>, selected);
    QFETCH(QList<int>, moved);
    QFETCH(QList<int>, mirrored);
    UnivWindow window;
    QVERIFY(window.isReady());
    window.filter({true, false, false, true});
    window.select(selected);
    QVector<Vector3> before;
    for (int i = 0; i < 8; ++i)
        before << window.mesh->position(i);
    const QPointF from = window.onHandle(frontView, 0, 82);
    ONE_STEP(window, "Move Selection", [&] { window.drag(frontView, from, {20, 0}); });
    const float way = 20.0f * window.pixel(frontView);
    for (int i = 0; i < 8; ++i) {
        const float x = moved.contains(i) ? way : mirrored.contains(i) ? -way : 0.0f;
        QVERIFY2(isClose(window.mesh->position(i), before.at(i) + Vector3(x, 0, 0)), QByteArray::number(i));
    }
}

/// Vertices stand in the world: they move with the frame of the node, in one step.
void tst_KMToolUniv::wholeNode()
{
    UnivWindow window(MeshFixtures::cube(), KMToolKind::SRT);
    QVERIFY(window.isReady());
    QPointF from = window.onHandle(frontView, 1, 82);
    ONE_STEP(window, "Edit SRT", [&] { window.drag(frontView, from, {7, -25}); });
    const float way = 25.0f * window.pixel(frontView);
    QVERIFY(isClose(window.mesh->translation(), {0, way, 0}));
    QVERIFY(isClose(window.mesh->position(7), {size, size + way, size}));
    from = window.onHandle(frontView, 0, 32);
    ONE_STEP(window, "Edit SRT", [&] { window.drag(frontView, from, {42, 0}, Qt::ShiftModifier); });
    QCOMPARE(window.mesh->scale(), Vector3(2, 1, 1));
    QVERIFY(isClose(window.mesh->position(7), {size * 2, size + way, size}));
    QVERIFY(isClose(window.tool->handle()->position(), {0, way, 0}));
}

void tst_KMToolUniv::interruptions_data()
{
    QTest::addColumn<int>("toolId");
    QTest::addColumn<int>("shape");
    QTest::addColumn<QString>("how");
    for (const char *how : {"escape", "tool", "focus", "document", "close"}) {
        QTest::addRow("move, %s", how) << int(KMToolKind::Universal) << -1 << how;
        QTest::addRow("node, %s", how) << int(KMToolKind::SRT) << -1 << how;
    }
    QTest::newRow("brush, escape") << int(KMToolKind::Universal) << int(KMEditFilter::Shape::Brush) << "escape";
    QTest::newRow("rectangle, focus") << int(KMToolKind::Universal) << int(KMEditFilter::Shape::Square) << "focus";
}

/// Nothing of a drag is left, and nothing of it comes back with the next move of the mouse.
void tst_KMToolUniv::interruptions()
{
    QFETCH(int, toolId);
    QFETCH(int, shape);
    QFETCH(QString, how);
    UnivWindow window(MeshFixtures::cube(), toolId);
    QVERIFY(window.isReady());
    QVERIFY(window.focus(window.view(frontView)));
    window.filter({true, false, false, true, KMEditFilter::Shape(qMax(shape, 0))});
    window.select({1, 3});
    const QString before = window.text();
    ViewMouse mouse(window.view(frontView));
    const QPointF from = shape < 0 ? window.onHandle(frontView, 0, 82) : window.at(frontView, 2) - QPointF(30, 30);
    mouse.press(Qt::LeftButton, from);
    mouse.move(from + QPointF(35, 35));
    QVERIFY(window.tool->isEditing());
    QCOMPARE(window.text() == before, shape == int(KMEditFilter::Shape::Square));
    if (how == QLatin1String("close"))
        return window.close();
    if (how == QLatin1String("escape"))
        QTest::keyClick(window.view(frontView), Qt::Key_Escape);
    else if (how == QLatin1String("tool"))
        window.tool->deactivate();
    else if (how == QLatin1String("focus"))
        window.view(frontView)->clearFocus();
    else
        gSolution->newDocument();
    QVERIFY(!window.tool->isEditing());
    mouse.move(from + QPointF(60, 10));
    mouse.release(Qt::LeftButton, from + QPointF(60, 10));
    QCOMPARE(window->undoStack()->count(), 0);
    if (how != QLatin1String("document"))
        QCOMPARE(window.text(), before);
}

/// Locked, hidden or without a selection: the handle isn't there and a press finds nothing.
void tst_KMToolUniv::nothingToEdit()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    const QString before = window.text();
    window.drag(frontView, window.onHandle(frontView, 0, 82), {0, -30});
    QCOMPARE(window.text(), before);
    window.select({1, 3});
    for (void (KMContainerNode::*set)(bool) : {&KMContainerNode::setLocked, &KMContainerNode::setVisible}) {
        const bool on = set == &KMContainerNode::setLocked;
        (window.mesh->*set)(on);
        window.tool->refresh();
        const QString state = window.text();
        window.drag(frontView, window.onHandle(frontView, 0, 82), {0, -30});
        window.drag(frontView, window.at(frontView, 1), {40, -30});
        QCOMPARE(window.text(), state);
        (window.mesh->*set)(!on);
    }
    QCOMPARE(window->undoStack()->count(), 0);
}

void tst_KMToolUniv::throughModifiers_data()
{
    QTest::addColumn<float>("factor");
    QTest::newRow("result inside") << 0.5f;
    QTest::newRow("result outside") << 1.5f;
}

/// A click means the mesh at the start of the chain, current or not; the node tool never looks at elements.
void tst_KMToolUniv::throughModifiers()
{
    QFETCH(float, factor);
    UnivWindow window;
    QVERIFY(window.isReady());
    window.tool->setHandleShown(false);
    auto *modifier = new Resize(factor);
    KMNodeEdits::addModifier(modifier);
    window.view(frontView)->repaint();
    QCOMPARE(modifier->modMesh()->vertexCount(), 8);
    ViewMouse mouse(window.view(frontView));
    const QPointF onBoth = window.at(frontView, Vector3(0.3f, 0.3f, 0) * size);
    const QPointF onOne = window.at(frontView, Vector3(1.25f, 0.3f, 0) * size);
    const auto chooseNothing = [] { gSolution->push(new selectNodeCommand(nullptr)); };

    window.filter({false, false, true});
    chooseNothing();
    mouse.click(onBoth);
    QCOMPARE(window.selectedFaces(), 1);
    QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(window.mesh));
    window.filter({true, false, false});
    mouse.click(window.at(frontView, 3)); // it may lie behind a face of the result
    QCOMPARE(window.selectedVertices().size(), 1);

    window.filter({false, false, true});
    chooseNothing();
    mouse.click(onOne);
    QCOMPARE(window.mesh->isSelected(), factor > 1.0f); // through the result to no element, or beside it
    chooseNothing();
    window.bar->tool(KMToolKind::SRT)->requestActivation();
    mouse.click(onBoth);
    QVERIFY(window.mesh->isSelected() && !modifier->isSelected());
}

/// A row that is clicked becomes current before it is chosen; the handle goes by what is chosen.
void tst_KMToolUniv::clickInTheTree()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    KMMeshNode *first = window.mesh;
    window.select({0});
    window.add(MeshFixtures::cube());
    window.select({6});
    KMTreeWidget *tree = gProject->tree();
    for (KMMeshNode *mesh : {first, window.mesh, first}) {
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, Qt::NoModifier,
                          tree->visualItemRect(mesh->item()).center());
        QCOMPARE(gSolution->currentNode(), static_cast<KMNode *>(mesh));
        QCoreApplication::processEvents();
        QVERIFY(isClose(window.tool->handle()->position(), mesh->position(mesh == first ? 0 : 6)));
    }
}

void tst_KMToolUniv::newDocumentTakesTheHandle()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    window.select({0, 1});
    gSolution->refreshViews(31);
    QTRY_VERIFY(window.tool->handle()->isVisible());
    gSolution->newDocument();
    QTRY_VERIFY(!window.tool->handle()->isVisible());
}

/// The button went up over something else.
void tst_KMToolUniv::lostRelease()
{
    UnivWindow window;
    QVERIFY(window.isReady());
    window.tool->setHandleShown(false);
    const int steps = window->undoStack()->count();
    const Vector3 before = window.mesh->position(3);
    ViewMouse mouse(window.view(frontView));
    const QPointF at = window.at(frontView, 3);
    mouse.move(at);
    mouse.press(Qt::LeftButton, at);
    mouse.move(at + QPointF(30, 0));
    QVERIFY(!isClose(window.mesh->position(3), before));
    ViewMouse(window.view(frontView)).move(at + QPointF(60, 0)); // without any button
    QVERIFY(!window.tool->isEditing());
    QVERIFY(isClose(window.mesh->position(3), before));
    QVERIFY(window->undoStack()->count() <= steps + 1); // of the click
}

KM_TEST(tst_KMToolUniv);

#include "tst_KMToolUniv.moc"
