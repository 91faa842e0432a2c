#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLWidget.h"
#include "shell/kmmainwidget.h"
#include "support/MeshProbe.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMTool.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSel.h"
#include "tools/KMToolUniv.h"

#include <QCheckBox>
#include <QDoubleSpinBox>
#include <QPushButton>
#include <QTest>
#include <QUndoStack>

#include <functional>
#include <memory>

using kvm::Vector3;

namespace {

constexpr float size = ToolWindow::Size;
constexpr int top = ToolWindow::Top, front = ToolWindow::Front, right = ToolWindow::Right;

/// A user who knows what comes next. Places are in units of the cube that the head starts from, z towards its face.
struct Sculptor : ToolWindow
{
    Sculptor()
        : ToolWindow(nullptr, KMToolKind::Select)
    {
        const auto depth = [this](float z) { return view(front)->camera()->worldToWindow({0, 0, z}).z; };
        face = depth(-1) < depth(1) ? -1.0f : 1.0f;
        for (const int i : {top, front, right})
            view(i)->camera()->setOrthoZoom(9.0f);
        (*this)->undoStack()->setUndoLimit(64);
        prompt.acceptForms = true;
        prompt.optionValues[QStringLiteral("division")] = 2;
    }

    QPointF place(int viewIndex, const Vector3 &p) const { return at(viewIndex, Vector3(p.x, p.y, p.z * face) * size); }
    void take(int toolId, int mode = 0)
    {
        bar->tool(toolId)->requestActivation();
        bar->tool(toolId)->setMode(mode);
    }
    void click(int viewIndex, const Vector3 &p, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        drag(viewIndex, place(viewIndex, p), {}, modifiers);
    }
    void ring(int viewIndex, const Vector3 &p)
    {
        take(KMToolKind::Select, KMToolSel::RingEdge);
        click(viewIndex, p);
    }
    void marquee(int viewIndex, const Vector3 &from, const Vector3 &to)
    {
        take(KMToolKind::Move);
        drag(viewIndex, place(viewIndex, from), place(viewIndex, to) - place(viewIndex, from));
    }
    void pull(int viewIndex, int axis, const QPointF &way) { drag(viewIndex, onHandle(viewIndex, axis, 82), way); }
    void extrude(const char *modeButton, double value)
    {
        child<QPushButton>(modeButton)->click();
        if (!child<QCheckBox>("extrudePerFaces")->isChecked())
            child<QCheckBox>("extrudePerFaces")->click();
        child<QDoubleSpinBox>("extrudeValue")->setValue(value);
        child<QPushButton>("extrudeApply")->click();
    }
    int farthest(const Vector3 &way) const
    {
        const Vector3 along(way.x, way.y, way.z * face);
        int best = 0;
        for (const KMVertex *vertex : mesh->liveVertices()) {
            if (dot(vertex->pos, along) > dot(mesh->position(best), along))
                best = vertex->index;
        }
        return best;
    }

    float face;
};

struct Step
{
    const char *text;
    std::function<void(Sculptor &)> gesture;
};

const Step steps[] = {
    // Each side in four
    {"Ring Select", [](Sculptor &s) { s.ring(front, Vector3(0, 1, 1)); }},
    {"Divide Edge", [](Sculptor &s) { s.trigger("SelComDivideEdge"); }},
    {"UnSelectAll", [](Sculptor &s) { s.click(front, Vector3(0, 1.8f, 1)); }},
    {"Ring Select", [](Sculptor &s) { s.ring(front, Vector3(1, 0, 1)); }},
    {"Divide Edge", [](Sculptor &s) { s.trigger("SelComDivideEdge"); }},
    {"UnSelectAll", [](Sculptor &s) { s.click(front, Vector3(0, 1.8f, 1)); }},
    {"Ring Select", [](Sculptor &s) { s.ring(right, Vector3(1, 1, 0)); }},
    {"Divide Edge", [](Sculptor &s) { s.trigger("SelComDivideEdge"); }},
    {"UnSelectAll", [](Sculptor &s) { s.click(front, Vector3(0, 1.8f, 1)); }},
    // Rounder at the crown and the chin
    {"Rect Select", [](Sculptor &s) { s.marquee(front, Vector3(-1.5f, 1.5f, 1), Vector3(1.5f, 0.7f, 1)); }},
    {"Scale Selection",
     [](Sculptor &s) {
         s.take(KMToolKind::Scale);
         s.drag(front, s.onHandle(front, 0, 0), {0, 35});
     }},
    {"Rect Select", [](Sculptor &s) { s.marquee(front, Vector3(-1.5f, -1.5f, 1), Vector3(1.5f, -0.7f, 1)); }},
    {"Scale Selection",
     [](Sculptor &s) {
         s.take(KMToolKind::Scale);
         s.drag(front, s.onHandle(front, 0, 0), {0, 45});
     }},
    {"Select Vertex",
     [](Sculptor &s) {
         s.take(KMToolKind::Move);
         s.click(top, {0, 1, 0});
     }},
    {"Move Selection", [](Sculptor &s) { s.pull(front, 1, QPointF(5, -20)); }},
    // Ears, both at once
    {"Select Face",
     [](Sculptor &s) {
         s.filter({true, true, true, true});
         s.take(KMToolKind::Extrude);
         s.click(right, {1, 0.4f, -0.4f});
     }},
    {"Extrude", [](Sculptor &s) { s.extrude("extrudeOffset", 8); }},
    {"Extrude",
     [](Sculptor &s) {
         s.child<QPushButton>("extrudeDefault")->click();
         s.drag(right, s.place(right, {1, 0.4f, -0.4f}), {30, 3});
         QTest::keyClick(s.view(right), Qt::Key_Return);
     }},
    {"Select Vertex",
     [](Sculptor &s) {
         s.take(KMToolKind::Universal);
         s.drag(right, s.at(right, s.farthest({4, 1, -1})), {});
     }},
    {"Snap Vertex",
     [](Sculptor &s) { // pointed
         gSolution->setSnapOptions(KMSnapOption::Self | KMSnapOption::Vertex | KMSnapOption::Merge);
         const QPointF tip = s.at(right, s.farthest({4, 1, -1}));
         s.drag(right, tip, s.at(right, s.farthest({4, 1, 1})) - tip);
         gSolution->setSnapOptions(KMSnapOption::Stop);
     }},
    // Eyes: rims, then sockets
    {"Select Face",
     [](Sculptor &s) {
         s.take(KMToolKind::Extrude);
         s.click(front, {0.4f, 0.4f, 1});
     }},
    {"Extrude", [](Sculptor &s) { s.extrude("extrudeOffset", 6); }},
    {"Extrude", [](Sculptor &s) { s.extrude("extrudeDefault", -5); }},
    // Nose and chin
    {"Select Vertex",
     [](Sculptor &s) {
         s.take(KMToolKind::Universal);
         s.click(front, {0, 0, 1});
     }},
    {"Move Selection", [](Sculptor &s) { s.pull(right, 2, QPointF(s.face * 25, 4)); }},
    {"Select Edge",
     [](Sculptor &s) {
         s.take(KMToolKind::Bevel);
         s.click(front, {0.27f, -1, 0.55f});
     }},
    {"Bevel",
     [](Sculptor &s) {
         s.child<QDoubleSpinBox>("bevelValue")->setValue(4.0);
         s.child<QPushButton>("bevelApply")->click();
     }},
    // A mouth that is thought better of
    {"Delete Face",
     [](Sculptor &s) {
         s.take(KMToolKind::Erase);
         s.filter({false, false, true, true});
         s.click(front, {0.4f, -0.4f, 1});
     }},
    {"Select Ridge Edge", [](Sculptor &s) { s.trigger("SelComRidgeEdge"); }},
    {"Fill Hole", [](Sculptor &s) { s.trigger("SelComFillHole"); }},
    // Neck
    {"Select Face",
     [](Sculptor &s) {
         s.view(top)->camera()->setFlipped(true);
         s.take(KMToolKind::Extrude);
         s.click(top, {0.27f, -1, -0.27f});
     }},
    {"Extrude", [](Sculptor &s) { s.extrude("extrudeDefault", 20); }},
    {"Triangulate", [](Sculptor &s) { s.trigger("SelComTriangulate"); }},
};

} // namespace

class tst_ModellingSession : public QObject
{
    Q_OBJECT
private slots:
    void head();

private:
    static void checkHead(const KMMeshNode &mesh);
};

/// From a cube to a head, and all the way back.
void tst_ModellingSession::head()
{
    Sculptor sculptor;
    QVERIFY(sculptor.isReady());
    const QString empty = sculptor.text();
    sculptor.add(MeshFixtures::cube());
    for (const Step &step : steps) {
        const QString failure = sculptor.stepFailure(QLatin1String(step.text), [&] { step.gesture(sculptor); });
        QVERIFY2(failure.isEmpty(), qPrintable(QStringLiteral("%1: %2").arg(&step - steps + 1).arg(failure)));
        const QString problem = checkInvariants(*sculptor.mesh);
        QVERIFY2(problem.isEmpty(), qPrintable(problem));
    }
    checkHead(*sculptor.mesh);

    QUndoStack *stack = sculptor->undoStack();
    const QString head = sculptor.text();
    QCOMPARE(stack->count(), 1 + int(std::size(steps)));
    stack->setIndex(0);
    QCOMPARE(sculptor.text(), empty);
    stack->setIndex(stack->count());
    QCOMPARE(sculptor.text(), head);
}

/// Watertight, in one piece, and without gaps among its records once it is packed.
void tst_ModellingSession::checkHead(const KMMeshNode &mesh)
{
    for (const KMEdge *edge : mesh.edges())
        QCOMPARE(edge->faceRefs.size(), 2);
    const std::unique_ptr<KMMeshNode> packed(mesh.clone());
    packed->compact();
    QVERIFY(!packed->vertices().contains(nullptr));
    QVERIFY(!packed->faces().contains(nullptr));
    const MeshProbe probe(*packed);
    QVERIFY(probe.isClosed());
    QCOMPARE(probe.euler(), 2);
    QCOMPARE(probe.vertices, packed->vertexCount());
    QVERIFY(probe.volume > 0.0);
}

KM_TEST(tst_ModellingSession);

#include "tst_ModellingSession.moc"
