#include "core/KMBasicShaderNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/RecordingSession.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"
#include "tools/KMAlignVertexDialog.h"
#include "tools/KMSelComContainer.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <functional>

namespace {

enum Kind { None = 0, Vertices = 1, Edges = 2, Faces = 4 };

struct CommandRow
{
    const char *name;
    const char *text;
    Kind needed;
};

const CommandRow commandRows[] = {
    {"SelComAlignVertex", "Align Vertex", Vertices},
    {"SelComAssignShader", "Assign Shader", Faces},
    {"SelComBeltFace", "Belt Sellect Face", Edges},
    {"SelComChainedFace", "Select Chained Face", Faces},
    {"SelComDivideEdge", "Divide Edge", Edges},
    {"SelComEdgeExtrude", "Edge Extrude", Edges},
    {"SelComEdgeToLinePolygon", "Edge To LinePolygon", Edges},
    {"SelComEdgeToVertex", "Edge To Vertex", Edges},
    {"SelComExpandFaceSel", "Expand Face Selection", Faces},
    {"SelComExpandVertSel", "Expand Vertex Selection", Vertices},
    {"SelComFaceToEdge", "Face To Edge", Faces},
    {"SelComFaceToVertex", "Face To Vertex", Faces},
    {"SelComFillHole", "Fill Hole", Edges},
    {"SelComHideFace", "Hide Face", Faces},
    {"SelComLoopSelectEdge", "Loop Select Edge", Edges},
    {"SelComMergeSamePosVertex", "Merge Same Pos Vertex", Vertices},
    {"SelComMergeVertex", "Merge Vertex", Vertices},
    {"SelComReverseFace", "Reverse Face", Faces},
    {"SelComRidgeEdge", "Select Ridge Edge", None},
    {"SelComRingSelectEdge", "Ring Select Edge", Edges},
    {"SelComRotateFace", "Rotate Face", Faces},
    {"SelComSeparateEdge", "Separate Edge", Edges},
    {"SelComSeparateVertex", "Separate Vertex", Vertices},
    {"SelComSmoothEdge", "Smooth Edge", Edges},
    {"SelComSurroundedFace", "Select Surrounded By Edge", Faces},
    {"SelComSymmetrizingVertex", "Symmetrize", Vertices},
    {"SelComTest", "Sel TestCommand", None},
    {"SelComTriangulate", "Triangulate", Faces},
};

void addRows()
{
    QTest::addColumn<int>("row");
    for (int row = 0; row < int(std::size(commandRows)); ++row)
        QTest::addRow("%s", commandRows[row].name) << row;
}

/// A selected mesh, a current shader, a user who says yes to all dialogues, and a window that notes what it is told.
class Scene : public MeshScene
{
public:
    explicit Scene(KMMeshNode *made)
        : MeshScene(made)
        , window(&log)
        , promptScope(&prompt)
    {
        gSolution->setWindow(&window);
        auto *shader = new KMBasicShaderNode;
        gProject->addToScene(shader);
        gSolution->setCurrentShader(shader);
        mesh->setSelected(true);
        gSolution->clearHistory();
        prompt.acceptForms = true;
        prompt.optionValues[QStringLiteral("division")] = 3;
        prompt.onDialog = [](QDialog &dialog) {
            static_cast<KMAlignVertexDialog &>(dialog).setAligns(1, true);
            return true;
        };
    }
    ~Scene() { gSolution->setWindow(nullptr); }

    void select(int kinds, quint32 seed)
    {
        QRandomGenerator random(seed);
        const auto flags = [&](int kind) {
            return quint8(kinds & kind && random.bounded(3) ? KMElementFlag::Selected : 0);
        };
        for (KMVertex *vertex : mesh->vertices()) {
            if (vertex)
                vertex->flags = flags(Vertices);
        }
        for (KMEdge *edge : mesh->edges())
            edge->flags = flags(Edges);
        for (KMFace *face : mesh->faces()) {
            if (face)
                face->flags = flags(Faces);
        }
    }
    QString text() const { return meshText(*mesh); }
    void trigger(const char *name) { commands.command(QLatin1String(name))->trigger(); }

    CallLog log;
    RecordingWindow window;
    ScriptedPrompt prompt;
    KMPromptScope promptScope;
    KMSelComContainer commands;
};

using MakeMesh = KMMeshNode *(*)();
const MakeMesh meshes[] = {[] { return MeshFixtures::grid(5, 4); },
                           &MeshFixtures::cube,
                           &MeshFixtures::quadWithHole,
                           &MeshFixtures::mixedBag,
                           [] { return MeshFixtures::torus(6, 5); },
                           [] { return MeshFixtures::openCone(); },
                           [] { return MeshFixtures::nonManifoldFan(); }};

} // namespace

class tst_KMSelectionCommand : public QObject
{
    Q_OBJECT
private slots:
    void family();
    void oneStep_data() { addRows(); }
    void oneStep();
    void refused_data() { addRows(); }
    void refused();
    void messages();
    void nothingToDo();
    void cancelled();
    void aligned();
    void symmetrized();
    void merged();
    void separatedAndMerged();
    void facesTurn();
    void edgesGrowQuads();
    void smoothed();
    void repeats();
};

void tst_KMSelectionCommand::family()
{
    const Scene scene(MeshFixtures::cube());
    QCOMPARE(scene.commands.commands().size(), int(std::size(commandRows)));
    for (const CommandRow &row : commandRows) {
        const KMCommand *command = scene.commands.command(QLatin1String(row.name));
        QVERIFY2(command, row.name);
        QCOMPARE(command->text(), QString::fromLatin1(row.text));
        QVERIFY(command->statusTip() != command->text());
    }
    QCOMPARE(scene.commands.conversions().size() + scene.commands.edits().size(), scene.commands.commands().size());
}

/// On each mesh, with a random selection: one step of the history, or a message and none; undo and redo to the bit, and
/// sound records in between.
void tst_KMSelectionCommand::oneStep()
{
    QFETCH(int, row);
    int steps = 0;
    for (const MakeMesh make : meshes) {
        for (quint32 seed = 1; seed <= 4; ++seed) {
            Scene scene(make());
            scene.select(seed == 1 ? int(commandRows[row].needed) : Vertices | Edges | Faces, seed);
            const QString before = scene.text();
            scene.trigger(commandRows[row].name);
            QUndoStack *stack = gSolution->undoStack();
            const QString problem = checkInvariants(*scene.mesh);
            QVERIFY2(problem.isEmpty(), qPrintable(problem));
            if (stack->count() == 0) {
                QCOMPARE(scene.text(), before);
                continue;
            }
            ++steps;
            QCOMPARE(stack->count(), 1);
            QCOMPARE(stack->text(0), QString::fromLatin1(commandRows[row].text));
            const QString after = scene.text();
            for (int round = 0; round < 2; ++round) {
                stack->undo();
                QCOMPARE(scene.text(), before);
                stack->redo();
                QCOMPARE(scene.text(), after);
            }
            gSolution->clearHistory();
            scene.mesh->compact();
            QVERIFY(checkInvariants(*scene.mesh).isEmpty());
        }
    }
    // What these want to find, no selection by chance has.
    const QStringList picky = {QStringLiteral("Sel TestCommand"), QStringLiteral("Symmetrize"),
                               QStringLiteral("Fill Hole"), QStringLiteral("Merge Same Pos Vertex")};
    const bool canRun = !picky.contains(QLatin1String(commandRows[row].text));
    QVERIFY(!canRun || steps > 0);
}

void tst_KMSelectionCommand::refused()
{
    QFETCH(int, row);
    const std::function<void(Scene &)> reasons[] = {
        [](Scene &scene) { scene.mesh->setLocked(true); },    [](Scene &scene) { scene.mesh->setVisible(false); },
        [](Scene &scene) { scene.mesh->setSelected(false); }, [](Scene &scene) { scene.mesh->clearGeometry(); },
        [](Scene &scene) { scene.select(None, 1); },
    };
    for (const auto &reason : reasons) {
        Scene scene(MeshFixtures::torus(5, 4)); // without a border
        scene.select(Vertices | Edges | Faces, 1);
        reason(scene);
        const QString before = scene.text();
        scene.trigger(commandRows[row].name);
        QCOMPARE(gSolution->undoStack()->count(), 0);
        QCOMPARE(scene.text(), before);
        QCOMPARE(scene.window.messages.isEmpty(), commandRows[row].text == QLatin1String("Sel TestCommand"));
    }
}

void tst_KMSelectionCommand::messages()
{
    Scene scene(MeshFixtures::openCone());
    scene.trigger("SelComMergeVertex");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("Vertex Selection not found."));
    scene.trigger("SelComFillHole");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("Edge Selection not found."));
    scene.select(Faces, 1);
    scene.trigger("SelComTriangulate");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("Face Selection not found."));
    gSolution->setCurrentShader(nullptr);
    scene.trigger("SelComAssignShader");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("Shader Selection not found."));
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

/// An open chain closes no hole, and no two corners of a grid lie at one place; what could be redone stays.
void tst_KMSelectionCommand::nothingToDo()
{
    Scene scene(MeshFixtures::grid(3, 3));
    scene.select(Vertices, 1);
    for (const int vertex : {0, 1})
        scene.mesh->setEdgeFlag(vertex, vertex + 1, KMElementFlag::Selected);
    scene.trigger("SelComExpandVertSel");
    gSolution->undoStack()->undo();
    for (const char *name : {"SelComFillHole", "SelComMergeSamePosVertex"}) {
        scene.trigger(name);
        QVERIFY(gSolution->undoStack()->canRedo());
        QCOMPARE(gSolution->macroDepth(), 0);
    }
    gSolution->undoStack()->redo();
    QCOMPARE(gSolution->undoStack()->count(), 1);
}

void tst_KMSelectionCommand::cancelled()
{
    Scene scene(MeshFixtures::cube());
    scene.select(Vertices | Edges, 1);
    scene.prompt.acceptForms = false;
    scene.prompt.onDialog = [](QDialog &) { return false; };
    scene.trigger("SelComDivideEdge");
    scene.trigger("SelComAlignVertex");
    QCOMPARE(gSolution->undoStack()->count(), 0);
}

void tst_KMSelectionCommand::aligned()
{
    Scene scene(MeshFixtures::cube());
    KMTransform frame = scene.mesh->transform();
    frame.translation = {0, 10, 0};
    scene.mesh->setTransform(frame);
    for (const int vertex : {0, 2, 7})
        scene.mesh->setVertexFlag(vertex, KMElementFlag::Selected);
    scene.prompt.onDialog = [](QDialog &shown) {
        auto &dialog = static_cast<KMAlignVertexDialog &>(shown);
        dialog.setWorld(false);
        emit dialog.onSetWorld(&dialog, false);
        dialog.setAligns(1, true);
        return std::abs(dialog.values().y - (1.0f / 3.0f - 10.0f)) < 1e-4f; // the mean, as the frame sees it
    };
    scene.trigger("SelComAlignVertex");
    QCOMPARE(gSolution->undoStack()->count(), 1);
    for (const int vertex : {0, 2, 7})
        QVERIFY(std::abs(scene.mesh->position(vertex).y - 1.0f / 3.0f) < 1e-4f);
    QCOMPARE(scene.mesh->position(7).x, 1.0f);
    QCOMPARE(scene.mesh->position(1).y, -1.0f);
}

void tst_KMSelectionCommand::symmetrized()
{
    Scene scene(MeshFixtures::cube());
    scene.mesh->setPosition(0, {-3, 5, 6});
    scene.mesh->setVertexFlag(0, KMElementFlag::Selected);
    scene.mesh->setVertexFlag(2, KMElementFlag::Selected);
    scene.trigger("SelComSymmetrizingVertex");
    QCOMPARE(scene.window.messages.takeLast(), QStringLiteral("illegal vertex position."));
    scene.mesh->clearVertexFlag(2, KMElementFlag::Selected);
    scene.mesh->setVertexFlag(1, KMElementFlag::Selected);
    scene.trigger("SelComSymmetrizingVertex");
    QCOMPARE(scene.mesh->position(0), kvm::Vector3(-2, 5, 6));
    QCOMPARE(scene.mesh->position(1), kvm::Vector3(2, 5, 6));
}

void tst_KMSelectionCommand::merged()
{
    Scene scene(MeshFixtures::grid(2, 2));
    scene.mesh->setVertexFlag(4, KMElementFlag::Selected);
    scene.trigger("SelComMergeVertex"); // onto itself, which is a step as well
    QCOMPARE(gSolution->undoStack()->count(), 1);
    QCOMPARE(scene.mesh->position(4), kvm::Vector3(1, 0, 1));
    scene.mesh->setVertexFlag(5, KMElementFlag::Selected);
    scene.trigger("SelComMergeVertex");
    QCOMPARE(scene.mesh->position(4), kvm::Vector3(1.5f, 0, 1));
    QVERIFY(!scene.mesh->vertex(5));
}

void tst_KMSelectionCommand::separatedAndMerged()
{
    Scene parted(MeshFixtures::grid(3, 3));
    for (KMVertex *vertex : parted.mesh->vertices())
        vertex->flags = KMElementFlag::Selected;
    parted.trigger("SelComSeparateVertex");
    QCOMPARE(parted.mesh->liveVertices().size(), 36);
    parted.trigger("SelComMergeSamePosVertex");
    QCOMPARE(parted.mesh->liveVertices().size(), 16);
    for (const KMEdge *edge : parted.mesh->edges())
        QVERIFY(edge->faceRefs.size() <= 2);
}

void tst_KMSelectionCommand::facesTurn()
{
    Scene scene(MeshFixtures::grid(1, 1));
    KMFace *face = scene.mesh->face(0);
    for (int c = 0; c < 4; ++c)
        face->uvs[c] = {float(face->indices[c]), 0};
    scene.mesh->setFaceFlag(0, KMElementFlag::Selected);
    scene.mesh->findEdge(0, 1)->weight = 0.5f;
    const auto corners = scene.mesh->faceCorners(0);
    scene.trigger("SelComRotateFace");
    const auto rotated = scene.mesh->faceCorners(0);
    for (size_t c = 0; c < 4; ++c)
        QCOMPARE(rotated[c], corners[(c + 1) % 4]);
    scene.trigger("SelComReverseFace");
    const auto reversed = scene.mesh->faceCorners(0);
    for (size_t c = 0; c < 4; ++c) {
        QCOMPARE(reversed[c], rotated[(4 - c) % 4]);
        QCOMPARE(scene.mesh->face(0)->uvs[c], kvm::Vector2(float(reversed[c]), 0));
    }
    for (const KMEdge *edge : scene.mesh->edges())
        QCOMPARE(edge->weight, edge == scene.mesh->findEdge(0, 1) ? 0.5f : 0.0f);
}

void tst_KMSelectionCommand::edgesGrowQuads()
{
    Scene scene(MeshFixtures::grid(2, 1));
    for (const int vertex : {0, 1})
        scene.mesh->setEdgeFlag(vertex, vertex + 1, KMElementFlag::Selected);
    scene.trigger("SelComEdgeExtrude");
    QCOMPARE(scene.mesh->vertexCount(), 9); // the two quads share a side
    QCOMPARE(scene.mesh->faceCount(), 4);
    QVERIFY(scene.mesh->findEdge(6, 7)->hasFlag(KMElementFlag::Selected));
    QVERIFY(!scene.mesh->findEdge(0, 1)->hasFlag(KMElementFlag::Selected));
    for (int i = 6; i < 9; ++i)
        scene.mesh->setPosition(i, scene.mesh->position(i) + kvm::Vector3(0, 0, -1));
    scene.mesh->refreshMesh(KMMeshDirty::All);
    for (const KMFace *face : scene.mesh->faces())
        QCOMPARE(face->normals[0], scene.mesh->face(0)->normals[0]);
}

void tst_KMSelectionCommand::smoothed()
{
    Scene scene(MeshFixtures::grid(4, 1));
    for (int i = 0; i < 4; ++i)
        scene.mesh->setEdgeFlag(i, i + 1, KMElementFlag::Selected);
    scene.trigger("SelComSmoothEdge"); // straight, and stays so
    for (int i = 0; i < 5; ++i)
        QVERIFY((scene.mesh->position(i) - kvm::Vector3(float(i), 0, 0)).length() < 1e-5f);
    scene.mesh->setPosition(2, {2, 1, 0});
    scene.trigger("SelComSmoothEdge");
    QCOMPARE(scene.mesh->position(0), kvm::Vector3(0, 0, 0));
    QCOMPARE(scene.mesh->position(4), kvm::Vector3(4, 0, 0));
    QVERIFY(std::abs(scene.mesh->position(2).y) < 1e-5f);
}

void tst_KMSelectionCommand::repeats()
{
    Scene scene(MeshFixtures::grid(2, 2));
    QAction repeat;
    scene.window.repeat = &repeat;
    scene.select(Faces, 1);
    scene.trigger("SelComReverseFace");
    QCOMPARE(gSolution->lastCommand(), scene.commands.command(QStringLiteral("SelComReverseFace")));
    QCOMPARE(repeat.text(), QStringLiteral("Reverse Face"));
}

KM_TEST(tst_KMSelectionCommand);
#include "tst_KMSelectionCommand.moc"
