#include "tools/KMToolWeight.h"

#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMModSdvNode.h"
#include "render/KMCameraNode.h"
#include "shell/docks/kmtoolwidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMNumberField.h"
#include "support/CommandProof.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolKind.h"

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QSlider>
#include <QTest>
#include <QUndoStack>

#include <cmath>

using kvm::Vector3;

namespace {

constexpr int frontView = ToolWindow::Front;

/// A subdivided cube, chosen, with the tool in the hand and its page in front.
struct WeightWindow : ToolWindow
{
    WeightWindow()
        : ToolWindow(MeshFixtures::cube(), KMToolKind::Weight)
        , tool(static_cast<KMToolWeight *>(bar->tool(KMToolKind::Weight)))
        , subdivision(new KMModSdvNode)
    {
        gProject->addToScene(subdivision);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, subdivision));
        gProject->checkModifiers();
        gSolution->clearHistory();
        gProject->tree()->setCurrentItem(mesh->item());
        auto *dock = (*this)->findChild<kmtoolwidget *>();
        dock->show();
        dock->raise();
        filter({true, true, true});
        const float viewAxis = view(frontView)->camera()->viewAxis().z;
        // Those at the back would be under the same pixels.
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            const Vector3 p = mesh->position(i);
            isFront[i] = p.z * viewAxis < 0.0f;
            mesh->setPosition(i, isFront[i] ? p : p * 0.6f);
        }
        mesh->refreshMesh(KMMeshDirty::All);
        QCoreApplication::processEvents();
    }
    /// Of the front, by the signs of its place.
    int vertexAt(float x, float y) const
    {
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            if (isFront[i] && mesh->position(i).x * x > 0.0f && mesh->position(i).y * y > 0.0f)
                return i;
        }
        return -1;
    }
    float weight(int a, int b) const { return mesh->findEdge(a, b)->weight; }
    float weight(int vertex) const { return mesh->vertex(vertex)->weight; }
    void setWeight(int vertex, float weight)
    {
        mesh->vertex(vertex)->weight = weight;
        mesh->markDirty(KMMeshDirty::Weights);
    }
    QPointF middle(int a, int b) const { return at(frontView, (mesh->position(a) + mesh->position(b)) * 0.5f); }
    bool isAsMadeAfresh() const
    {
        KMChainCopy fresh(*mesh);
        fresh.evaluate();
        return meshText(*subdivision->modMesh()) == meshText(*fresh.last());
    }
    QString text()
    {
        view(frontView)->grabFramebuffer(); // which computes the chain
        return ToolWindow::text() + meshText(*subdivision->modMesh());
    }
    QString stepFailure(const QString &stepText, const std::function<void()> &gesture)
    {
        return ::stepFailure([this] { return text(); }, stepText, gesture);
    }

    KMToolWeight *tool;
    KMModSdvNode *subdivision;
    bool isFront[8];
};

bool isNear(float a, float b)
{
    return std::abs(a - b) < 1e-4f;
}

} // namespace

/// The tool in the views of the real window, and its page.
class tst_KMToolWeight : public QObject
{
    Q_OBJECT
private slots:
    void dragsFromTheirOwn();
    void escapePutsBack();
    void mirrorFollows();
    void page();
};

/// The result follows before the button is let go of, and the weights keep their differences up to the ends of the
/// range.
void tst_KMToolWeight::dragsFromTheirOwn()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    const int a = window.vertexAt(-1, 1), b = window.vertexAt(1, 1), c = window.vertexAt(1, -1);
    window.mesh->findEdge(b, c)->weight = 4.5f;
    window.mesh->markDirty(KMMeshDirty::Weights);
    ViewMouse mouse(window.view(frontView));
    ONE_STEP(window, "Select Edge", [&] { mouse.click(window.middle(b, c)); });
    mouse.modifiers = Qt::ShiftModifier;
    ONE_STEP(window, "Select Edge", [&] { mouse.click(window.middle(a, b)); });
    mouse.modifiers = Qt::NoModifier;
    QCOMPARE(window.selectedEdges(), 2);
    const QString shape = meshText(*window.subdivision->modMesh());
    const QPointF from = window.middle(a, b);
    ONE_STEP(window, "Set Weight", [&] {
        mouse.move(from);
        mouse.press(Qt::LeftButton, from);
        mouse.move(from + QPointF(60, 0));
        window.view(frontView)->grabFramebuffer();
        QVERIFY(window.tool->isEditing());
        QVERIFY(meshText(*window.subdivision->modMesh()) != shape);
        QVERIFY(window.isAsMadeAfresh());
        mouse.move(from + QPointF(50, 7));
        mouse.release(Qt::LeftButton, from + QPointF(50, 7));
    });
    QVERIFY(isNear(window.weight(a, b), 1.0f));
    QCOMPARE(window.weight(b, c), KMCreaseEdit::Most);
    QCOMPARE(window.weight(a), 0.0f); // its vertices aren't selected
    QVERIFY(window.isAsMadeAfresh());
    ONE_STEP(window, "Set Weight", [&] { window.drag(frontView, from, {-30, 0}, Qt::NoModifier); });
    QVERIFY(isNear(window.weight(a, b), 0.4f));
    QVERIFY(isNear(window.weight(b, c), 4.4f));

    // What a modifier makes can be selected, and has no weights of its own.
    gProject->tree()->setCurrentItem(window.subdivision->item());
    const QString before = window.text();
    const Vector3 onResult = window.subdivision->modMesh()->position(0);
    window.drag(frontView, window.at(frontView, onResult), {40, 0});
    QVERIFY(isNear(window.weight(a, b), 0.4f) && isNear(window.weight(b, c), 4.4f));
}

void tst_KMToolWeight::escapePutsBack()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    const int a = window.vertexAt(-1, 1);
    ViewMouse mouse(window.view(frontView));
    mouse.click(window.at(frontView, a));
    QCOMPARE(window.selectedVertices(), QList<int>{a});
    const QString before = window.text();
    const int steps = window->undoStack()->count();
    const QPointF from = window.at(frontView, a);
    mouse.press(Qt::LeftButton, from);
    mouse.move(from + QPointF(100, 0));
    QVERIFY(isNear(window.weight(a), 2.0f));
    QTest::keyClick(window.view(frontView), Qt::Key_Escape);
    QVERIFY(!window.tool->isEditing());
    mouse.release(Qt::LeftButton, from);
    QCOMPARE(window.text(), before);
    // Back at where it began it is no step either.
    mouse.press(Qt::LeftButton, from);
    mouse.move(from + QPointF(100, 0));
    mouse.move(from);
    mouse.release(Qt::LeftButton, from);
    QCOMPARE(window.text(), before);
    QCOMPARE(window->undoStack()->count(), steps);
}

/// An image that isn't selected gets the weight of what it mirrors; where both are, the side of the drag leads.
void tst_KMToolWeight::mirrorFollows()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    KMEditFilter filter{true, true, false};
    filter.symmetry = true;
    window.filter(filter);
    const int left = window.vertexAt(-1, 1), right = window.vertexAt(1, 1);
    const int lowLeft = window.vertexAt(-1, -1), lowRight = window.vertexAt(1, -1);
    window.setWeight(right, 3.0f);
    window.mesh->setEdgeFlag(left, lowLeft, KMElementFlag::Selected);
    window.mesh->setVertexFlag(left, KMElementFlag::Selected);
    ONE_STEP(window, "Set Weight", [&] { window.drag(frontView, window.at(frontView, left), {50, 0}); });
    QVERIFY(isNear(window.weight(left), 1.0f) && isNear(window.weight(right), 1.0f));
    QVERIFY(isNear(window.weight(left, lowLeft), 1.0f) && isNear(window.weight(right, lowRight), 1.0f));
    QCOMPARE(window.weight(lowLeft), 0.0f);

    window.setWeight(right, 2.5f);
    window.mesh->setVertexFlag(right, KMElementFlag::Selected);
    window.drag(frontView, window.at(frontView, right), {25, 0});
    QVERIFY(isNear(window.weight(right), 3.0f) && isNear(window.weight(left), 3.0f));
}

void tst_KMToolWeight::page()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    auto *number = window.child<KMNumberField>("weightValue");
    auto *slider = window.child<QSlider>("weightSlider");
    const int a = window.vertexAt(-1, 1), b = window.vertexAt(1, 1);
    QVERIFY(!number->isEnabled() && !slider->isEnabled()); // nothing is selected
    window.setWeight(a, 1.25f);
    window.mesh->setVertexFlag(a, KMElementFlag::Selected);
    window.tool->refresh();
    QCOMPARE(number->text(), QStringLiteral("1.25"));
    QCOMPARE(slider->value(), 125);
    window.mesh->setVertexFlag(b, KMElementFlag::Selected);
    window.mesh->setEdgeFlag(a, b, KMElementFlag::Selected);
    window.tool->refresh();
    QCOMPARE(number->text(), QString()); // they differ

    const auto type = [&](const char *text) {
        QVERIFY(window.focus(number));
        number->selectAll();
        QTest::keyClicks(number, QLatin1String(text));
        QTest::keyClick(number, Qt::Key_Return);
    };
    ONE_STEP(window, "Set Weight", [&] { type("0"); }); // the number that an empty field stands at
    QCOMPARE(window.weight(a), 0.0f);
    QCOMPARE(number->text(), QStringLiteral("0"));
    QTest::mouseClick(window.child<QCheckBox>("weightEdges"), Qt::LeftButton);
    ONE_STEP(window, "Set Weight", [&] { type("2.5"); });
    QVERIFY(window.weight(a) == 2.5f && window.weight(b) == 2.5f && window.weight(a, b) == 0.0f);
    QTest::mouseClick(window.child<QCheckBox>("weightEdges"), Qt::LeftButton);
    QCOMPARE(number->text(), QString());
    ONE_STEP(window, "Set Weight", [&] { QTest::mouseClick(window.child<QPushButton>("weightFull"), Qt::LeftButton); });
    QVERIFY(window.weight(a) == 5.0f && window.weight(a, b) == 5.0f);
    QCOMPARE(slider->value(), slider->maximum());

    ONE_STEP(window, "Set Weight", [&] { // in many moves
        slider->setSliderDown(true);
        for (const int steps : {420, 310, 205})
            slider->setSliderPosition(steps);
        QVERIFY(isNear(window.weight(a, b), 2.05f));
        QVERIFY(window.tool->isEditing());
        slider->setSliderDown(false);
    });
    QVERIFY(!window.tool->isEditing());
    QVERIFY(isNear(window.weight(b), 2.05f));
    QCOMPARE(number->value(), 2.05);
}

KM_TEST(tst_KMToolWeight);

#include "tst_KMToolWeight.moc"
