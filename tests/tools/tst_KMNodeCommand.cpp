#include "core/KMBasicShaderNode.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "render/KMCameraNode.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"
#include "tools/KMNodeComContainer.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QMimeData>
#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <functional>

namespace {

using Kind = KMNodeCommand::Kind;

struct CommandRow
{
    const char *name;
    const char *text;
    Kind kind;
};

const CommandRow commandRows[] = {
    {"NodeComAlignFaces", "Align Faces", Kind::Mesh},
    {"NodeComAssignShader", "Assign Shader", Kind::Mesh},
    {"NodeComClearCoodinate", "Clear Coodinates", Kind::Transform},
    {"NodeComCopyCoodinate", "Copy Coodinates", Kind::Transform},
    {"NodeComPasteCoodinate", "Paste Coodinates", Kind::Transform},
    {"NodeComDeleteLinePolygon", "Delete LinePolygon", Kind::Mesh},
    {"NodeComDeleteOverlappedFace", "Delete Overlapped faces", Kind::Mesh},
    {"NodeComDeleteXMinus", "Delete X Minus Vertex", Kind::Mesh},
    {"NodeComFitFFD", "Fit FFD", Kind::Lattice},
    {"NodeComFreezeModifier", "Freeze Modifiier", Kind::Mesh},
    {"NodeComInvertEdgeSelection", "Invert Edge Selection", Kind::Mesh},
    {"NodeComInvertFaceSelection", "Invert Face Selection", Kind::Mesh},
    {"NodeComInvertVertexSelection", "Invert Vertex Selection", Kind::Mesh},
    {"NodeComMergeClosedVertex", "Merge Closed Vertex", Kind::Mesh},
    {"NodeComNormalizeCoodinate", "Normalize LocalRotate", Kind::Transform},
    {"NodeComPolygonize", "Polygonize", Kind::Primitive},
    {"NodeComProjection", "Projection", Kind::Mesh},
    {"NodeComTest", "NodeComTest", Kind::Nothing},
    {"NodeComViewHideFace", "View Hide Face", Kind::Selected},
    {"NodeComWired", "Wired", Kind::Mesh},
};

void addRows()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(commandRows)); ++row)
        QTest::addRow("%s", commandRows[row].name) << row;
}

const KMTransform tilted{{2.0f, 1.0f, 0.5f}, kvm::Quaternion(0.8f, 0.0f, 0.6f, 0.0f), {0.25f, 3.0f, -1.0f}};

/// A mesh that is current and selected, a wall far behind it, a shader, a camera in front, a user who says yes.
class Scene : public MeshScene
{
public:
    explicit Scene(KMMeshNode *made)
        : MeshScene(made)
        , wall(MeshFixtures::grid(2, 2))
        , window(&log)
        , promptScope(&prompt)
    {
        gSolution->setWindow(&window);
        auto *shader = new KMBasicShaderNode;
        gProject->addToScene(shader);
        for (int i = 0; i < 9; ++i) {
            const kvm::Vector3 &p = wall->position(i);
            wall->setPosition(i, {(p.x - 1) * 900, (p.z - 1) * 900, 100 + p.x});
        }
        gProject->addToScene(wall);
        gProject->addToScene(primitive = new KMPrimCubeNode);
        primitive->setTransform(tilted);
        gSolution->setCurrentShader(shader);
        begin(mesh);
        camera.resize(400, 300);
        commands.setCameraSource([this] { return &camera; });
        prompt.acceptForms = true;
        prompt.optionValues[QStringLiteral("distance")] = 1.0;
    }
    ~Scene() { gSolution->setWindow(nullptr); }

    static void begin(KMContainerNode *node)
    {
        gSolution->clearHistory(); // which takes away what is current
        makeCurrent(node);
    }
    static void makeCurrent(KMContainerNode *node) { gProject->tree()->setCurrentItem(node->item()); }
    void trigger(const char *name) { commands.command(QLatin1String(name))->trigger(); }
    QString failure(const CommandRow &row)
    {
        return stepFailure([this] { return dump.text(); }, QLatin1String(row.text), [&] { trigger(row.name); });
    }
    void messUp(quint32 seed);
    void addLattice(); ///< below the mesh

    KMMeshNode *wall;
    KMPrimitiveNode *primitive = nullptr;
    KMModFFDNode *lattice = nullptr;
    KMCameraNode camera;
    CallLog log;
    RecordingWindow window;
    ScriptedPrompt prompt;
    KMPromptScope promptScope;
    KMNodeComContainer commands;
};

/// Something of all that the commands are for.
void Scene::messUp(quint32 seed)
{
    QRandomGenerator random(seed);
    const auto flag = [&](quint8 bit, int oneOf) { return quint8(random.bounded(oneOf) ? 0 : bit); };
    const int faces = mesh->faceCount();
    for (int f = 0; f < faces; ++f) {
        if (!mesh->face(f))
            continue;
        int corners[4];
        const int count = mesh->faceCornerCount(f);
        std::reverse_copy(mesh->face(f)->indices, mesh->face(f)->indices + count, corners);
        if (!random.bounded(3))
            mesh->addFaceRaw(count, corners);
        if (!random.bounded(3))
            mesh->addFaceRaw(2, corners);
        if (!random.bounded(3))
            KMMeshEdit::reverseFace(*mesh, f);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    for (KMVertex *vertex : mesh->vertices()) {
        if (vertex)
            vertex->flags = flag(KMElementFlag::Selected, 2);
    }
    for (KMEdge *edge : mesh->edges()) {
        edge->flags = flag(KMElementFlag::Selected, 2);
        edge->weight = random.bounded(2) ? 0.0f : 0.5f;
    }
    for (KMFace *face : mesh->faces()) {
        if (face)
            face->flags = random.bounded(4) ? flag(KMElementFlag::Selected, 2) : quint8(KMElementFlag::Hidden);
    }
    mesh->setTransform(tilted);
    begin(mesh);
}

void Scene::addLattice()
{
    lattice = new KMModFFDNode;
    gProject->addToScene(lattice);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, mesh, lattice));
    gProject->checkModifiers();
}

using MakeMesh = KMMeshNode *(*)();
const MakeMesh meshes[] = {[] { return MeshFixtures::grid(3, 4); },
                           &MeshFixtures::cube,
                           &MeshFixtures::quadWithHole,
                           &MeshFixtures::mixedBag,
                           [] { return MeshFixtures::torus(6, 5); },
                           [] { return MeshFixtures::openCone(); },
                           [] { return MeshFixtures::nonManifoldFan(); }};

QByteArray copied()
{
    return QGuiApplication::clipboard()->mimeData()->data(NodeComCopyCoodinate::MimeType);
}

void putOnClipboard(const QByteArray &bytes)
{
    auto *data = new QMimeData;
    data->setData(NodeComCopyCoodinate::MimeType, bytes);
    QGuiApplication::clipboard()->setMimeData(data);
}

int linesOf(const KMMeshNode &mesh)
{
    return int(
        std::count_if(mesh.liveFaces().begin(), mesh.liveFaces().end(), [](const KMFace *f) { return f->isLine(); }));
}

} // namespace

class tst_KMNodeCommand : public QObject
{
    Q_OBJECT
private slots:
    void family();
    void oneStep_data() { addRows(); }
    void oneStep();
    void refused_data() { addRows(); }
    void refused();
    void nothingToDo_data() { addRows(); }
    void nothingToDo();
    void menusOfRows();
    void coordinates();
    void brokenClipboard_data();
    void brokenClipboard();
    void halfOfTheMesh();
    void halfOfATurnedMesh();
    void invertedSelection();
    void hiddenFaces();
    void wires();
    void merged();
    void projected();
    void polygonized();
    void fitted();
};

void tst_KMNodeCommand::family()
{
    const Scene scene(MeshFixtures::cube());
    QCOMPARE(scene.commands.commands().size(), int(std::size(commandRows)));
    QMenu menu;
    scene.commands.fill(&menu);
    for (const CommandRow &row : commandRows) {
        KMCommand *command = scene.commands.command(QLatin1String(row.name));
        QVERIFY2(command, row.name);
        QCOMPARE(command->text(), QString::fromLatin1(row.text));
        QVERIFY(command->statusTip() != command->text());
        QCOMPARE(menu.actions().count(command), 1);
    }
}

/// On each mesh, in disorder: one step of the history or none, undo and redo to the bit, sound records after it.
void tst_KMNodeCommand::oneStep()
{
    QFETCH(int, row);
    const CommandRow &command = commandRows[row];
    int steps = 0;
    for (const MakeMesh make : meshes) {
        for (quint32 seed = 1; seed <= 4; ++seed) {
            Scene scene(make());
            scene.messUp(seed);
            if (seed % 2 == 0 || command.kind == Kind::Lattice)
                scene.addLattice();
            scene.begin(command.kind == Kind::Primitive ? static_cast<KMContainerNode *>(scene.primitive)
                        : command.kind == Kind::Lattice ? static_cast<KMContainerNode *>(scene.lattice)
                                                        : scene.mesh);
            putOnClipboard(QByteArray(40, '\x3e'));
            const QString failure = scene.failure(command);
            if (failure == QStringLiteral("0 steps"))
                continue;
            ++steps;
            QCOMPARE(failure, QString());
            if (scene.mesh->isDeleted())
                continue;
            gSolution->clearHistory();
            scene.mesh->compact();
            QCOMPARE(checkInvariants(*scene.mesh), QString());
        }
    }
    const bool isEdit = command.kind != Kind::Nothing && command.name != QLatin1String("NodeComCopyCoodinate");
    QCOMPARE(steps > 0, isEdit);
}

void tst_KMNodeCommand::refused()
{
    QFETCH(int, row);
    const CommandRow &command = commandRows[row];
    const bool needsNode = command.kind != Kind::Nothing && command.kind != Kind::Selected;
    const bool isFit = command.kind == Kind::Lattice;
    const QString missing = isFit                             ? QStringLiteral("Please Select FFDNode.")
                            : command.kind == Kind::Primitive ? QStringLiteral("Primitive Selection not found.")
                                                              : QStringLiteral("Node Selection not found.");
    Scene scene(MeshFixtures::torus(5, 4));
    scene.messUp(1);
    putOnClipboard(QByteArray(40, '\x3e'));
    const auto isSilent = [&](bool expected) {
        scene.trigger(command.name);
        const QStringList messages = scene.window.messages;
        scene.window.messages.clear();
        return gSolution->undoStack()->count() == 0 && messages == (expected ? QStringList() : QStringList(missing));
    };
    for (KMContainerNode *node :
         {static_cast<KMContainerNode *>(scene.mesh), static_cast<KMContainerNode *>(scene.wall),
          static_cast<KMContainerNode *>(scene.primitive)})
        node->setLocked(true);
    scene.makeCurrent(command.kind == Kind::Primitive ? static_cast<KMContainerNode *>(scene.primitive) : scene.mesh);
    QVERIFY(isSilent(command.kind != Kind::Selected && !isFit));
    gProject->tree()->setCurrentItem(nullptr);
    QVERIFY(isSilent(command.kind == Kind::Nothing));
    scene.makeCurrent(command.kind == Kind::Primitive ? static_cast<KMContainerNode *>(scene.wall) : scene.primitive);
    QVERIFY(command.kind == Kind::Transform || isSilent(!needsNode && command.kind != Kind::Selected));
}

/// An empty mesh, and one that is already as the command would make it.
void tst_KMNodeCommand::nothingToDo()
{
    QFETCH(int, row);
    const CommandRow &command = commandRows[row];
    if (command.kind == Kind::Primitive || QByteArray(command.name).contains("Invert"))
        return;
    for (const bool isEmpty : {true, false}) {
        Scene scene(isEmpty ? new KMMeshNode : MeshFixtures::torus(5, 4));
        for (KMFace *face : scene.mesh->faces())
            face->shader = 0;
        for (KMVertex *vertex : scene.mesh->vertices()) {
            vertex->pos.x += 10;
            vertex->flags = KMElementFlag::Selected;
        }
        if (QByteArray(command.name).contains("Wired"))
            scene.trigger(command.name);
        scene.wall->setLocked(true);
        scene.primitive->setLocked(true);
        scene.prompt.optionValues[QStringLiteral("distance")] = 0.1;
        scene.makeCurrent(scene.mesh);
        scene.trigger("NodeComCopyCoodinate");
        scene.begin(scene.mesh);
        scene.trigger(command.name);
        QCOMPARE(gSolution->undoStack()->count(), 0);
    }
}

void tst_KMNodeCommand::menusOfRows()
{
    const Scene scene(MeshFixtures::cube());
    const auto entries = [&](const KMNode *node) {
        QMenu menu;
        scene.commands.addMenusFor(node, &menu);
        QStringList names;
        for (const QAction *action : menu.actions()) {
            if (action->menu())
                names << QStringLiteral("%1 of %2").arg(action->menu()->actions().size()).arg(action->text());
            else if (!action->isSeparator())
                names << action->text();
        }
        return names.join(QStringLiteral(", "));
    };
    QCOMPARE(entries(scene.mesh), QStringLiteral("Freeze Modifiier, 8 of Mesh, 4 of Elements, 4 of Coordinates"));
    QCOMPARE(entries(scene.primitive), QStringLiteral("Polygonize, 4 of Coordinates"));
    QCOMPARE(entries(gProject->shaders().at(0)), QString());
}

void tst_KMNodeCommand::coordinates()
{
    Scene scene(MeshFixtures::cube());
    const QString shape = meshText(*scene.mesh);
    scene.makeCurrent(scene.primitive);
    scene.trigger("NodeComCopyCoodinate");
    QCOMPARE(copied().size(), 40);
    QCOMPARE(copied().left(4), QByteArray::fromHex("3e800000"));    // 0.25, the first of the position
    QCOMPARE(copied().mid(12, 4), QByteArray::fromHex("3f4ccccd")); // 0.8, of the rotation
    scene.makeCurrent(scene.mesh);
    scene.trigger("NodeComPasteCoodinate");
    QCOMPARE(scene.mesh->translation(), tilted.translation);
    QCOMPARE(scene.mesh->scale(), tilted.scale);
    QCOMPARE(scene.mesh->rotation().vector(), tilted.rotation.vector());
    scene.trigger("NodeComNormalizeCoodinate");
    QCOMPARE(scene.mesh->rotation().w, 1.0f);
    QCOMPARE(scene.mesh->translation(), tilted.translation);
    scene.trigger("NodeComClearCoodinate");
    QCOMPARE(scene.mesh->translation(), kvm::Vector3());
    QCOMPARE(scene.mesh->scale(), kvm::Vector3(1, 1, 1));
    QCOMPARE(meshText(*scene.mesh), shape);
    QCOMPARE(gSolution->undoStack()->count(), 3);
}

void tst_KMNodeCommand::brokenClipboard_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("nothing") << QByteArray();
    QTest::newRow("cut short") << QByteArray(39, '\x3e');
    QTest::newRow("not a number") << QByteArray(40, '\xff');
    QTest::newRow("no rotation") << QByteArray(40, '\0');
}

void tst_KMNodeCommand::brokenClipboard()
{
    QFETCH(QByteArray, bytes);
    Scene scene(MeshFixtures::cube());
    putOnClipboard(bytes);
    scene.trigger("NodeComPasteCoodinate");
    QCOMPARE(gSolution->undoStack()->count(), 0);
    QCOMPARE(scene.window.messages.size(), 1);
}

/// What lies in the plane but for a rounding stays.
void tst_KMNodeCommand::halfOfTheMesh()
{
    Scene scene(MeshFixtures::grid(4, 2));
    for (const int i : {1, 6, 11})
        scene.mesh->setPosition(i, scene.mesh->position(i) - kvm::Vector3(i == 6 ? 1e-4f : 1e-6f, 0, 0));
    KMTransform frame;
    frame.translation = {1, 5, 5};
    scene.mesh->setTransform(frame);
    scene.trigger("NodeComDeleteXMinus");
    for (int i = 0; i < scene.mesh->vertexCount(); ++i)
        QCOMPARE(bool(scene.mesh->vertex(i)), i != 6 && i % 5 != 0);
    QCOMPARE(scene.mesh->liveFaces().size(), 4);
}

/// The plane goes with the frame.
void tst_KMNodeCommand::halfOfATurnedMesh()
{
    Scene scene(MeshFixtures::cube());
    KMTransform frame;
    frame.rotation = kvm::Quaternion(0, 0, 1, 0); // half way round y
    scene.mesh->setTransform(frame);
    scene.trigger("NodeComDeleteXMinus");
    for (int i = 0; i < 8; ++i)
        QCOMPARE(bool(scene.mesh->vertex(i)), i % 2 == 0);
}

void tst_KMNodeCommand::invertedSelection()
{
    for (const char *name :
         {"NodeComInvertVertexSelection", "NodeComInvertEdgeSelection", "NodeComInvertFaceSelection"}) {
        Scene scene(MeshFixtures::grid(2, 1));
        scene.mesh->face(0)->flags = KMElementFlag::Hidden;
        scene.mesh->setVertexFlag(1, KMElementFlag::Selected);
        scene.mesh->findEdge(1, 4)->flags = KMElementFlag::Selected;
        const QString before = meshText(*scene.mesh);
        scene.trigger(name);
        QVERIFY(meshText(*scene.mesh) != before);
        QVERIFY(!scene.mesh->face(0)->hasFlag(KMElementFlag::Selected));
        QVERIFY(!scene.mesh->vertex(0)->hasFlag(KMElementFlag::Selected)); // of the hidden face alone
        QVERIFY(!scene.mesh->findEdge(0, 3)->hasFlag(KMElementFlag::Selected));
        scene.trigger(name);
        QCOMPARE(meshText(*scene.mesh), before);
    }
}

void tst_KMNodeCommand::hiddenFaces()
{
    Scene scene(MeshFixtures::grid(3, 3));
    KMMeshNode *shown[] = {scene.mesh, scene.wall};
    for (KMMeshNode *mesh : shown) {
        mesh->item()->setSelected(true);
        mesh->setSelected(true);
        mesh->face(1)->flags = mesh->face(2)->flags = KMElementFlag::Hidden;
    }
    scene.trigger("NodeComViewHideFace");
    for (const KMMeshNode *mesh : shown)
        QVERIFY(mesh->isFaceShown(1) && mesh->isFaceShown(2));
    QCOMPARE(gSolution->undoStack()->count(), 1);
}

void tst_KMNodeCommand::wires()
{
    Scene scene(MeshFixtures::cube());
    scene.mesh->findEdge(0, 1)->weight = 0.5f;
    scene.trigger("NodeComWired");
    QCOMPARE(linesOf(*scene.mesh), 12);
    QCOMPARE(scene.mesh->liveFaces().size(), 12);
    QCOMPARE(scene.mesh->findEdge(0, 1)->weight, 0.5f);
    scene.trigger("NodeComDeleteLinePolygon");
    QVERIFY(scene.mesh->liveFaces().isEmpty());
}

/// Two sheets side by side become one.
void tst_KMNodeCommand::merged()
{
    KMMeshNode *sheets = MeshFixtures::grid(3, 1);
    sheets->removeFaceRefs(1);
    sheets->setFace(1, nullptr);
    for (const int i : {2, 6, 3, 7})
        sheets->setPosition(i, sheets->position(i) - kvm::Vector3(1, 0, 0));
    Scene scene(sheets);
    scene.mesh->refreshMesh(KMMeshDirty::All);
    scene.prompt.optionValues[QStringLiteral("distance")] = 0.0;
    scene.prompt.optionValues[QStringLiteral("selected-only")] = true;
    scene.trigger("NodeComMergeClosedVertex");
    QCOMPARE(gSolution->undoStack()->count(), 0); // none is selected
    scene.prompt.acceptForms = false;
    scene.prompt.optionValues[QStringLiteral("selected-only")] = false;
    scene.trigger("NodeComMergeClosedVertex");
    QCOMPARE(gSolution->undoStack()->count(), 0); // the user thought better of it
    scene.prompt.acceptForms = true;
    scene.trigger("NodeComMergeClosedVertex");
    QCOMPARE(scene.mesh->liveVertices().size(), 6);
    QCOMPARE(scene.mesh->edgeCount(), 7);
}

void tst_KMNodeCommand::projected()
{
    Scene scene(MeshFixtures::cube());
    scene.trigger("NodeComProjection");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("Vertex Selection not found."));
    for (const int i : {0, 5})
        scene.mesh->setVertexFlag(i, KMElementFlag::Selected);
    scene.primitive->setVisible(false); // it is nearer
    const kvm::Vector3 windows[] = {scene.camera.worldToWindow(scene.mesh->position(0)),
                                    scene.camera.worldToWindow(scene.mesh->position(5))};
    const kvm::Vector3 still = scene.mesh->position(1);
    scene.trigger("NodeComProjection");
    QCOMPARE(scene.mesh->position(1), still);
    for (const int i : {0, 1}) {
        const kvm::Vector3 &place = scene.mesh->position(i ? 5 : 0);
        const kvm::Vector3 window = scene.camera.worldToWindow(place);
        QVERIFY(std::abs(window.x - windows[i].x) < 0.01f && std::abs(window.y - windows[i].y) < 0.01f);
        QVERIFY(std::abs(place.z - 101 - place.x / 900) < 0.01f);
    }
    const QString onWall = meshText(*scene.mesh);
    scene.primitive->setVisible(true);
    scene.trigger("NodeComProjection");
    QVERIFY(meshText(*scene.mesh) != onWall);
}

void tst_KMNodeCommand::polygonized()
{
    Scene scene(MeshFixtures::cube());
    auto *cube = new KMPrimCubeNode;
    cube->setName(QStringLiteral("Body"));
    auto *above = new KMNullNode, *child = new KMNullNode, *behind = new KMNullNode;
    gProject->addToScene(above);
    const auto place = [](KMContainerNode *node, KMContainerNode *parent) {
        gProject->addToScene(node);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, parent, node));
    };
    gProject->addRaw(cube);
    cube->setName(QStringLiteral("Body"));
    cube->setShader(0);
    gSolution->push(new insertNodeCommand(cube, above));
    place(behind, above);
    place(child, cube);
    cube->setTransform(tilted);
    scene.begin(cube);
    QVector<kvm::Vector3> corners;
    for (const KMVertex *vertex : cube->mesh()->vertices())
        corners << vertex->pos;

    scene.dump.withCurrent = true;
    QCOMPARE(scene.failure({"NodeComPolygonize", "Polygonize", Kind::Primitive}), QString());
    auto *mesh = static_cast<KMMeshNode *>(KMTreeWidget::nodeOf(above->item()->child(0)));
    QCOMPARE(mesh->type(), int(KMNodeType::Mesh));
    QCOMPARE(mesh->name(), QStringLiteral("Body"));
    QCOMPARE(mesh->item()->text(KMTreeWidget::NameColumn), QStringLiteral("Body"));
    QCOMPARE(KMTreeWidget::nodeOf(above->item()->child(1)), behind);
    QCOMPARE(KMTreeWidget::parentNodeOf(child), mesh);
    QCOMPARE(mesh->translation(), kvm::Vector3());
    QCOMPARE(mesh->faceCount(), 6);
    for (int i = 0; i < corners.size(); ++i)
        QCOMPARE(mesh->position(i), corners[i]);
    QCOMPARE(mesh->face(3)->uvs[0], cube->mesh()->face(3)->uvs[0]);
    QCOMPARE(mesh->faceShader(3), 0);
    QCOMPARE(mesh->liveFaces().size(), 6);
    QCOMPARE(gSolution->currentNode(), mesh);
}

void tst_KMNodeCommand::fitted()
{
    Scene scene(MeshFixtures::cube());
    scene.mesh->setPosition(7, {3, 1, 1});
    scene.addLattice();
    for (const int i : {0, 7})
        scene.mesh->setVertexFlag(i, KMElementFlag::Selected);
    scene.begin(scene.lattice);
    scene.trigger("NodeComFitFFD"); // too few
    QCOMPARE(gSolution->undoStack()->count(), 0);
    QVERIFY(scene.window.messages.isEmpty());
    scene.mesh->setVertexFlag(3, KMElementFlag::Selected);
    QCOMPARE(scene.failure({"NodeComFitFFD", "Fit FFD", Kind::Lattice}), QString());
    QCOMPARE(scene.lattice->translation(), kvm::Vector3(1, 0, 0));
    QCOMPARE(scene.lattice->parameters().size, kvm::Vector3(4, 2, 2));
    QCOMPARE(scene.mesh->position(7), kvm::Vector3(3, 1, 1));
}

KM_TEST(tst_KMNodeCommand);
#include "tst_KMNodeCommand.moc"
