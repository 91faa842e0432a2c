#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSymNode.h"
#include "render/KMBonePicker.h"
#include "render/KMCameraNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMMessageLabel.h"
#include "support/RecordingSession.h"
#include "support/TestRegistry.h"
#include "support/ToolWindow.h"
#include "tools/KMToolBar.h"
#include "tools/KMToolBoneWeight.h"
#include "tools/KMToolKind.h"
#include "tools/KMWindowGeometry.h"

#include <QListWidget>
#include <QTest>
#include <QTextStream>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

using kvm::Vector3;

namespace {

constexpr int side = 12; // quads of the grid each way

/// A mesh and a rig of a spine and two arms, with the tool in the hand.
struct WeightWindow : ToolWindow
{
    explicit WeightWindow(KMMeshNode *shape = MeshFixtures::grid(side, side))
        : ToolWindow(shape, KMToolKind::BoneWeight)
        , tool(static_cast<KMToolBoneWeight *>(bar->tool(KMToolKind::BoneWeight)))
    {
        auto *rig = new KMBoneContainer;
        gProject->addNode(rig);
        const Vector3 ends[][2] = {{{0, 0, 0}, {0, 50, 0}}, {{20, 50, 0}, {80, 50, 0}}, {{-20, 50, 0}, {-80, 50, 0}}};
        const char *names[] = {"spine", "arm_L", "arm_R"};
        for (int i = 0; i < 3; ++i) {
            auto *bone = new KMBone;
            bone->setName(QString::fromLatin1(names[i]));
            bone->setRest(restBone(ends[i][0], ends[i][1]));
            gSolution->push(new addBoneCommand(rig, bone, bones.value(0)));
            bones << bone;
        }
        tool->chooseBone(bones[1]);
        centre();
        gSolution->clearHistory();
        gProject->tree()->setCurrentItem(mesh->item());
    }
    ~WeightWindow()
    {
        tool->resetOptions();
        filter({});
    }
    void centre()
    {
        Vector3 low(1e9f, 1e9f, 1e9f), high(-1e9f, -1e9f, -1e9f);
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], mesh->position(i)[k]);
                high[k] = std::max(high[k], mesh->position(i)[k]);
            }
        }
        for (int i = 0; i < mesh->vertexCount(); ++i)
            mesh->setPosition(i, (mesh->position(i) - (low + high) * 0.5f) * (450.0f / (high - low).length()));
        mesh->markDirty(KMMeshDirty::All);
        mesh->refreshMesh(KMMeshDirty::All);
    }
    KMTagBoneWeight *addTag()
    {
        auto *tag = new KMTagBoneWeight;
        mesh->addTag(tag);
        return tag;
    }
    void append(KMModifierNode *stage)
    {
        {
            const KMUndoMacro macro(QStringLiteral("add"));
            gProject->addToScene(stage);
            gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, stage, KMRowFocus::Keep));
            gProject->checkModifiers();
        }
        gProject->tree()->setCurrentItem(mesh->item());
    }
    const KMTagBoneWeight *tag() const
    {
        return static_cast<const KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
    }
    QString weights() const
    {
        QString text = tag() ? QString() : QStringLiteral("no tag");
        QTextStream out(&text);
        for (const BoneWeightEntry &entry : tag() ? tag()->entries() : QVector<BoneWeightEntry>())
            out << entry.vertex << entry.bone->name() << ' ' << double(entry.weight) << '\n';
        return text;
    }
    void setBrush(KMWeightBrush::Mode mode, float value, float strength, KMWeightBrush::Falloff falloff)
    {
        KMWeightBrush brush;
        brush.mode = mode;
        brush.value = value;
        brush.strength = strength;
        brush.falloff = falloff;
        tool->setBrush(brush);
    }
    /// Drags along a line in so many moves.
    void stroke(int viewIndex, const QPointF &from, const QPointF &to, int moves,
                Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        ViewMouse mouse(view(viewIndex));
        mouse.modifiers = modifiers;
        mouse.move(from);
        mouse.press(Qt::LeftButton, from);
        for (int i = 1; i <= moves; ++i)
            mouse.move(from + (to - from) * double(i) / moves);
        mouse.release(Qt::LeftButton, to);
    }
    double sum(int vertex) const
    {
        double sum = 0.0;
        for (const BoneWeightEntry &entry : tag()->entriesOf(vertex))
            sum += double(entry.weight);
        return sum;
    }

    KMToolBoneWeight *tool;
    QList<KMBone *> bones;
};

} // namespace

/// The brush in the real window, with the mouse.
class tst_KMToolBoneWeight : public QObject
{
    Q_OBJECT
private slots:
    void strokeIsAllAboutDistance_data();
    void strokeIsAllAboutDistance();
    void escapePutsBack();
    void othersGiveWay();
    void mirrored();
    void behindTheSurface();
    void blurringAndErasing();
    void firstStrokeMakesTheTag();
    void choosingTheBone();
    void newDocumentInAStroke();
    void lostRelease();
    void colorsFollowTheStroke_data();
    void colorsFollowTheStroke();
    void colorsOfDeletedBones();
    void posedSurfaceFollowsTheStroke_data();
    void posedSurfaceFollowsTheStroke();
};

void tst_KMToolBoneWeight::strokeIsAllAboutDistance_data()
{
    QTest::addColumn<int>("mode");
    QTest::addColumn<int>("falloff");
    QTest::newRow("add, linear") << int(KMWeightBrush::Add) << int(KMWeightBrush::Falloff::Linear);
    QTest::newRow("set, smooth") << int(KMWeightBrush::Set) << int(KMWeightBrush::Falloff::Smooth);
    QTest::newRow("subtract, constant") << int(KMWeightBrush::Subtract) << int(KMWeightBrush::Falloff::Constant);
}

/// Each vertex by its own distance from the way of the mouse, however often that is read.
void tst_KMToolBoneWeight::strokeIsAllAboutDistance()
{
    QFETCH(int, mode);
    QFETCH(int, falloff);
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    for (int i = 0; i < window.mesh->vertexCount(); ++i)
        tag->addEntry({i, float(i % 5) / 5.0f, window.bones[1]});
    const QString before = window.weights();
    constexpr double value = 0.8, strength = 0.7;
    window.setBrush(KMWeightBrush::Mode(mode), float(value), float(strength), KMWeightBrush::Falloff(falloff));
    const QPointF from = window.at(ToolWindow::Top, 30), to = from + QPointF(60, 25);
    const double radius = double(window.tool->brush().radius);

    for (const int moves : {1, 37}) {
        QUndoStack *stack = gSolution->undoStack();
        const int steps = stack->index();
        window.stroke(ToolWindow::Top, from, to, moves);
        QCOMPARE(stack->index(), steps + 1);
        int painted = 0;
        for (int i = 0; i < window.mesh->vertexCount(); ++i) {
            const double distance = KMWindowGeometry::distance(window.at(ToolWindow::Top, i), from, to);
            const double t = 1.0 - distance / radius;
            const double share = t < 0.0 ? 0.0 : falloff == 0 ? t : falloff == 1 ? t * t * (3.0 - 2.0 * t) : 1.0;
            const double had = double(float(i % 5) / 5.0f);
            const double amount = share * strength;
            const double change = mode == KMWeightBrush::Add   ? value * amount
                                  : mode == KMWeightBrush::Set ? (value - had) * amount
                                                               : -value * amount;
            painted += amount > 0.0;
            const double expected = std::clamp(had + change, 0.0, 1.0);
            QVERIFY2(std::abs(double(tag->weight(i, window.bones[1])) - expected) < 1e-3,
                     qPrintable(QStringLiteral("vertex %1: %2, not %3")
                                    .arg(i)
                                    .arg(double(tag->weight(i, window.bones[1])))
                                    .arg(expected)));
        }
        QVERIFY(painted > 5 && painted < window.mesh->vertexCount());
        const QString after = window.weights();
        stack->undo();
        QCOMPARE(window.weights(), before);
        stack->redo();
        QCOMPARE(window.weights(), after);
        stack->undo();
    }
}

void tst_KMToolBoneWeight::escapePutsBack()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    tag->addEntry({30, 0.4f, window.bones[2]});
    const QString before = window.weights();
    const QPointF from = window.at(ToolWindow::Top, 30);
    KMOpenGLWidget *view = window.view(ToolWindow::Top);
    QVERIFY(window.focus(view));
    ViewMouse mouse(view);
    mouse.move(from);
    mouse.press(Qt::LeftButton, from);
    mouse.move(from + QPointF(40, 10));
    QVERIFY(window.tool->isEditing());
    QVERIFY(window.weights() != before); // it shows while it goes on
    QTest::keyClick(view, Qt::Key_Escape);
    QVERIFY(!window.tool->isEditing());
    QCOMPARE(window.weights(), before);
    mouse.move(from + QPointF(80, 10));
    mouse.release(Qt::LeftButton, from + QPointF(80, 10));
    QCOMPARE(window.weights(), before);
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

void tst_KMToolBoneWeight::othersGiveWay()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    for (int i = 0; i < window.mesh->vertexCount(); ++i) {
        tag->addEntry({i, 0.75f, window.bones[0]});
        tag->addEntry({i, 0.25f, window.bones[2]});
    }
    auto *dead = new KMBone; // has no say, and keeps what it had
    gSolution->push(new addBoneCommand(window.bones[0]->container(), dead, nullptr));
    for (int i = 0; i < window.mesh->vertexCount(); ++i)
        tag->addEntry({i, 0.5f, dead});
    gSolution->push(new deleteBoneCommand(dead));
    gProject->tree()->setCurrentItem(window.mesh->item());
    window.tool->chooseBone(window.bones[1]);
    window.setBrush(KMWeightBrush::Add, 1.0f, 1.0f, KMWeightBrush::Falloff::Linear);
    const QPointF at = window.at(ToolWindow::Top, 45);
    window.stroke(ToolWindow::Top, at, at + QPointF(30, 0), 6);
    int shared = 0;
    for (int i = 0; i < window.mesh->vertexCount(); ++i) {
        QCOMPARE(tag->weight(i, dead), 0.5f);
        QVERIFY(std::abs(window.sum(i) - 1.5) < 1e-5);
        const double spine = double(tag->weight(i, window.bones[0])), arm = double(tag->weight(i, window.bones[2]));
        const double painted = double(tag->weight(i, window.bones[1]));
        shared += painted > 0.0 && painted < 0.99;
        if (painted < 0.99)
            QVERIFY(std::abs(spine - 3.0 * arm) < 1e-4); // in the ratio that they had
    }
    QVERIFY(shared > 3);
    QVERIFY(std::abs(double(tag->weight(45, window.bones[1])) - 1.0) < 1e-3);
    QVERIFY(tag->entriesOf(45).size() == 2 || tag->weight(45, window.bones[1]) < 1.0f); // no weights of 0 stay
}

void tst_KMToolBoneWeight::mirrored()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    KMEditFilter filter;
    filter.symmetry = true;
    ToolWindow::filter(filter);
    window.setBrush(KMWeightBrush::Add, 1.0f, 0.8f, KMWeightBrush::Falloff::Smooth);
    // From the positive side over the plane.
    const QPointF from = window.at(ToolWindow::Top, Vector3(60, 0, 20)),
                  to = window.at(ToolWindow::Top, Vector3(-8, 0, 0));
    window.stroke(ToolWindow::Top, from, to, 9);
    int painted = 0;
    for (int i = 0; i < window.mesh->vertexCount(); ++i) {
        const int image = i / (side + 1) * (side + 1) + side - i % (side + 1);
        QVERIFY(std::abs(window.mesh->position(i).x + window.mesh->position(image).x) < 1e-3f);
        QVERIFY(std::abs(tag->weight(i, window.bones[1]) - tag->weight(image, window.bones[2])) < 1e-5f);
        QVERIFY(window.sum(i) < 1.0 + 1e-5);
        painted += tag->hasEntry(i, window.bones[2]);
    }
    QVERIFY(painted > 5);
    QCOMPARE(gSolution->undoStack()->count(), 1);
}

void tst_KMToolBoneWeight::behindTheSurface()
{
    WeightWindow window(MeshFixtures::torus(40, 24));
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    const QPointF from = window.at(ToolWindow::Top, Vector3(-90, 0, 0));
    const QPointF to = window.at(ToolWindow::Top, Vector3(90, 0, 0));
    const auto countBelow = [&](bool wanted) {
        int count = 0;
        for (int i = 0; i < window.mesh->vertexCount(); ++i)
            count += tag->hasEntry(i, window.bones[1]) && (window.mesh->position(i).y < -2.0f) == wanted;
        return count;
    };
    window.setBrush(KMWeightBrush::Add, 1.0f, 1.0f, KMWeightBrush::Falloff::Constant);
    window.stroke(ToolWindow::Top, from, to, 5);
    QVERIFY(countBelow(false) > 20);
    QCOMPARE(countBelow(true), 0);
    KMWeightBrush through = window.tool->brush();
    through.frontOnly = false;
    window.tool->setBrush(through);
    window.stroke(ToolWindow::Top, from, to, 5);
    QVERIFY(countBelow(true) > 20);
}

void tst_KMToolBoneWeight::blurringAndErasing()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    for (int i = 0; i < window.mesh->vertexCount(); ++i)
        tag->addEntry({i, (i % (side + 1) < side / 2) ? 1.0f : 0.1f, window.bones[1]});
    const int inner = 5 * (side + 1) + side / 2; // the first behind the border
    const QPointF at = window.at(ToolWindow::Top, inner);
    window.setBrush(KMWeightBrush::Add, 1.0f, 0.5f, KMWeightBrush::Falloff::Constant);
    window.stroke(ToolWindow::Top, at, at, 0, Qt::ShiftModifier);
    // One of four neighbours, all equally far, has 1.
    const double mean = (1.0 + 3 * 0.1) / 4;
    QVERIFY(std::abs(double(tag->weight(inner, window.bones[1])) - (0.1 + mean) / 2) < 1e-5);
    window.setBrush(KMWeightBrush::Erase, 1.0f, 1.0f, KMWeightBrush::Falloff::Constant);
    window.stroke(ToolWindow::Top, at, at, 0);
    QVERIFY(tag->entriesOf(inner).isEmpty());
    QCOMPARE(gSolution->undoStack()->count(), 2);
}

void tst_KMToolBoneWeight::firstStrokeMakesTheTag()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    const QPointF at = window.at(ToolWindow::Top, 30);
    window.stroke(ToolWindow::Top, at, at + QPointF(20, 0), 3);
    QVERIFY(window.tag() && window.tag()->hasEntry(30, window.bones[1]));
    QCOMPARE(gSolution->undoStack()->count(), 1);
    const QString after = window.weights();
    gSolution->undoStack()->undo();
    QVERIFY(!window.tag());
    gSolution->undoStack()->redo();
    QCOMPARE(window.weights(), after);
    gSolution->undoStack()->undo();
    // An Escape leaves none behind either.
    KMOpenGLWidget *view = window.view(ToolWindow::Top);
    QVERIFY(window.focus(view));
    ViewMouse mouse(view);
    mouse.press(Qt::LeftButton, at);
    QTest::keyClick(view, Qt::Key_Escape);
    mouse.release(Qt::LeftButton, at);
    QVERIFY(!window.tag());
}

void tst_KMToolBoneWeight::choosingTheBone()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    auto *list = window->findChild<QListWidget *>(QStringLiteral("boneWeightBones"));
    QVERIFY(list);
    QCOMPARE(list->count(), 3);
    QCOMPARE(list->currentRow(), 1);
    const Vector3 onArm = (window.bones[2]->restHead() + window.bones[2]->restTail()) * 0.5f;
    window.stroke(ToolWindow::Front, window.at(ToolWindow::Front, onArm), window.at(ToolWindow::Front, onArm), 0,
                  Qt::ControlModifier);
    QCOMPARE(window.tool->bone(), window.bones[2]);
    QCOMPARE(list->currentRow(), 2);
    QVERIFY(!window.tag()); // nothing was painted
    list->setCurrentRow(0);
    QCOMPARE(window.tool->bone(), window.bones[0]);
    QCOMPARE(window.bones[2]->selectMask(), 0);
    gSolution->undoStack()->undo();
    QCOMPARE(list->currentRow(), 2);
    ViewMouse mouse(window.view(ToolWindow::Front));
    for (const Qt::KeyboardModifiers held : {Qt::ControlModifier, Qt::NoModifier}) {
        mouse.modifiers = held;
        mouse.move(window.at(ToolWindow::Front, onArm));
        QCOMPARE(KMBonePicker::hot().bone, held ? window.bones[2] : nullptr);
    }
    // A locked rig can't be selected in, but painted with.
    window.bones[0]->container()->setLocked(true);
    window.stroke(ToolWindow::Front, window.at(ToolWindow::Front, onArm), window.at(ToolWindow::Front, onArm), 0,
                  Qt::ControlModifier);
    QVERIFY(window.child<KMMessageLabel>("messageLabel")->message().startsWith(QStringLiteral("No bone here")));
    const int steps = gSolution->undoStack()->index();
    list->setCurrentRow(1);
    QCOMPARE(window.tool->bone(), window.bones[1]);
    QCOMPARE(list->currentRow(), 1);
    QCOMPARE(gSolution->undoStack()->index(), steps);
}

/// Mesh and tag go with the old document, while the brush still holds them.
void tst_KMToolBoneWeight::newDocumentInAStroke()
{
    for (const bool hasTag : {true, false}) {
        WeightWindow window;
        QVERIFY(window.isReady());
        if (hasTag)
            window.addTag();
        const QPointF at = window.at(ToolWindow::Top, 30);
        ViewMouse mouse(window.view(ToolWindow::Top));
        mouse.move(at);
        mouse.press(Qt::LeftButton, at);
        mouse.move(at + QPointF(20, 5));
        QVERIFY(window.tool->isEditing());
        gSolution->newDocument();
        QVERIFY(!window.tool->isEditing());
        mouse.move(at + QPointF(40, 5));
        mouse.release(Qt::LeftButton, at + QPointF(40, 5));
        QCOMPARE(gSolution->undoStack()->count(), 0);
        window.mesh = nullptr;
    }
}

/// A window that opened under the mouse took it: what moves without a button paints nothing.
void tst_KMToolBoneWeight::lostRelease()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    window.addTag()->addEntry({5, 0.5f, window.bones[1]});
    const QString before = window.weights();
    const QPointF at = window.at(ToolWindow::Top, 30);
    ViewMouse mouse(window.view(ToolWindow::Top)), later(window.view(ToolWindow::Top));
    mouse.move(at);
    mouse.press(Qt::LeftButton, at);
    later.move(at + QPointF(30, 0));
    QVERIFY(!window.tool->isEditing());
    QCOMPARE(window.weights(), before);
    window.stroke(ToolWindow::Top, at, at, 1);
    QCOMPARE(gSolution->undoStack()->count(), 1);
}

void tst_KMToolBoneWeight::colorsFollowTheStroke_data()
{
    QTest::addColumn<bool>("hasImage"); // of the half that is painted
    QTest::addColumn<int>("weighed");   // bone; -1 for no tag
    QTest::newRow("alone") << false << 1;
    QTest::newRow("with an image half") << true << 1;
    QTest::newRow("image half, first weights of the bone") << true << 0;
    QTest::newRow("image half, first weights of all") << true << -1;
}

/// What a stroke paints anew looks like all painted anew.
void tst_KMToolBoneWeight::colorsFollowTheStroke()
{
    QFETCH(bool, hasImage);
    QFETCH(int, weighed);
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = weighed < 0 ? nullptr : window.addTag();
    for (int i = 0; tag && i < window.mesh->vertexCount() / 2; ++i)
        tag->addEntry({i, 0.2f, window.bones[weighed]});
    if (hasImage) {
        auto *symmetry = new KMModSymNode;
        KMModSymNode::Parameters parameters;
        parameters.axis = KMModSymNode::PlusZ;
        symmetry->setParameters(parameters);
        symmetry->setTransform({{1, 1, 1}, {}, {0, 0, -100}});
        window.append(symmetry);
    }
    window.tool->refresh();
    const auto picture = [&window] { return window.view(ToolWindow::Top)->grabFramebuffer(); };
    const QImage before = picture();
    QPointF from = window.at(ToolWindow::Top, 40);
    const QPointF to = window.at(ToolWindow::Top, 100);
    for (int i = 0; !tag && i < window.mesh->vertexCount(); ++i) // beside the mesh, which gets its tag all the same
        from.setX(std::max(from.x(), window.at(ToolWindow::Top, i).x() + double(window.tool->brush().radius) + 4.0));
    ViewMouse mouse(window.view(ToolWindow::Top));
    mouse.move(from);
    mouse.press(Qt::LeftButton, from);
    const QImage first = picture();
    mouse.move(to);
    const QImage during = picture();
    QVERIFY(first != before && during != first);
    mouse.release(Qt::LeftButton, to);
    const QImage after = picture(); // with all colours anew
    QCOMPARE(after, during);
}

/// As those without weights, which they are after the next save.
void tst_KMToolBoneWeight::colorsOfDeletedBones()
{
    WeightWindow window;
    QVERIFY(window.isReady());
    window.addTag()->addEntry({1, 1.0f, window.bones[2]});
    gSolution->push(new deleteBoneCommand(window.bones[2]));
    gProject->tree()->setCurrentItem(window.mesh->item());
    window.tool->refresh();
    const KMVertexColors *colors = window.tool->faceColors(*window.mesh);
    QVERIFY(colors);
    const kvm::Vector4 dead = colors->vertexColor(*window.mesh, 1), bare = colors->vertexColor(*window.mesh, 2);
    QVERIFY(dead.x == bare.x && dead.y == bare.y && dead.z == bare.z);
}

void tst_KMToolBoneWeight::posedSurfaceFollowsTheStroke_data()
{
    QTest::addColumn<bool>("hasAnchor");
    QTest::newRow("deform alone") << false;
    QTest::newRow("behind an anchor") << true;
}

/// The vertices that a stroke moves on its way, and those that are blended with them, stand where a whole evaluation
/// puts them. Where a helper has the say the user is told once.
void tst_KMToolBoneWeight::posedSurfaceFollowsTheStroke()
{
    QFETCH(bool, hasAnchor);
    WeightWindow window;
    QVERIFY(window.isReady());
    KMTagBoneWeight *tag = window.addTag();
    for (int i = 0; i < window.mesh->vertexCount(); ++i) {
        tag->addEntry({i, 0.8f, window.bones[0]});
        tag->addEntry({i, 0.2f, window.bones[1]});
        tag->setSdefFlag(i, i % 2);
    }
    auto *anchor = new KMModAnchorNode;
    auto *deform = new KMModBoneDeformNode;
    window.append(anchor);
    window.append(deform);
    if (hasAnchor) {
        gSolution->push(new modAnchorAddBoneCommand(anchor, window.bones[1]));
        anchor->setTransform({{1, 1, 1}, {}, {0, -50, 0}}); // into the plane of the mesh
    } else {
        anchor->setVisible(false);
        gProject->checkModifiers();
    }
    PoseTransform pose;
    pose.rotation = kvm::Quaternion::fromAxisAngle({0, 1, 0}, 0.8f);
    window.bones[1]->setKeyPose(pose);
    window.bones[1]->container()->animation()->reevaluate();
    gSolution->update(0);
    const auto places = [deform] {
        QVector<Vector3> places;
        for (const KMVertex *vertex : deform->modMesh()->vertices())
            places << vertex->pos;
        return places;
    };
    window.setBrush(KMWeightBrush::Add, 1.0f, 0.6f, KMWeightBrush::Falloff::Smooth);
    const QVector<Vector3> before = places();
    const auto at = [&window](float x) { return window.at(ToolWindow::Top, Vector3(x, 0, 0)); };
    CallLog log;
    RecordingWindow told(&log);
    gSolution->setWindow(&told);
    ViewMouse mouse(window.view(ToolWindow::Top));
    mouse.move(at(-40));
    mouse.press(Qt::LeftButton, at(-40));
    for (const float x : {0.0f, 30.0f, 80.0f})
        mouse.move(at(x));
    gSolution->setWindow(window.operator->());
    QCOMPARE(told.messages.size(), int(hasAnchor));
    QCOMPARE(window.mesh->dirtyMask(), 0u); // nothing is left to be made anew
    const QVector<Vector3> during = places();
    QVERIFY(during != before);
    mouse.release(Qt::LeftButton, at(80));
    window.mesh->markDirty(KMMeshDirty::All);
    gSolution->update(0);
    const QVector<Vector3> after = places();
    for (int i = 0; i < after.size(); ++i)
        QVERIFY((after.at(i) - during.at(i)).length() < 1e-3f);
    gSolution->undoStack()->undo();
    QCOMPARE(places(), before);
}

KM_TEST(tst_KMToolBoneWeight);
#include "tst_KMToolBoneWeight.moc"
