#include "core/KMBasicShaderNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "mesh/KMMeshPaste.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMeshSelectCommands.h"
#include "mesh/KMMeshUVCommands.h"
#include "mesh/KMSelectionDelete.h"
#include "mesh/KMSelectionTransform.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QPolygonF>
#include <QTest>
#include <QUndoStack>

namespace {

using Maker = std::function<KMUndoCommand *(KMMeshNode *)>;

KMVertex otherVertex(const KMMeshNode *mesh)
{
    KMVertex vertex = *mesh->vertex(1);
    vertex.pos = {8, 8, 8};
    vertex.weight = 0.5f;
    vertex.flags = KMElementFlag::Selected;
    return vertex;
}

KMFace otherFace(const KMMeshNode *mesh)
{
    KMFace face = *mesh->face(0);
    face.count = 3;
    face.indices[0] = 5;
    face.shader = 3;
    face.uvs[1] = {0.5f, 0.5f};
    face.cornerFlags[2] = KMElementFlag::UVLocked;
    face.source = 5;
    return face;
}

const int newTriangle[] = {0, 4, 9};

struct CommandRow
{
    const char *text;
    quint32 mask; ///< what redo marks on the mesh
    Maker make;
};

/// On a mixed bag: its edge of 1 and 4 has a weight and is selected, the faces 0 and 3 have the shader 2.
const CommandRow commandRows[] = {
    {"Add Vertex", 32767, [](auto *m) { return new addVertexCommand(m, kvm::Vector3(1, 2, 3)); }},
    {"Add Vertex", 32767, [](auto *m) { return new addVertexCommand(m, otherVertex(m)); }},
    {"Add Face", 32767, [](auto *m) { return new addFaceCommand(m, 3, newTriangle); }},
    {"Add Face", 32767, [](auto *m) { return new addFaceCommand(m, otherFace(m)); }},
    {"Delete Vertex", 32767, [](auto *m) { return new deleteVertexCommand(m, 9); }}, // a loose one
    {"Delete Face", 32767, [](auto *m) { return new deleteFaceCommand(m, 0); }},
    {"Delete Face", 32767, [](auto *m) { return new deleteFaceCommand(m, 3); }}, // a line
    {"Edit Face Topology", 32767, [](auto *m) { return new editFaceTopologyCommand(m, 0, otherFace(m)); }},
    {"Edit Vertex Topology", 32767, [](auto *m) { return new editVertexTopologyCommand(m, 1, otherVertex(m)); }},
    {"Move Vertex", 2049, [](auto *m) { return new moveVertexCommand(m, 3, kvm::Vector3(7, 7, 7)); }},
    {"Move Vertex", 2049,
     [](auto *m) {
         QVector<KMMovedVertex> moves{{0, m->position(0), {5, 5, 5}}, {8, m->position(8), {1e-8f, -0.0f, 1e20f}}};
         auto *command = new moveVertexArrayCommand(m, moves);
         return moves.isEmpty() ? command : nullptr; // the list was taken over
     }},
    {"Edit All Vertex", 2049,
     [](auto *m) {
         return new editAllVertexCommand(m, QVector<kvm::Vector3>(m->vertexCount(), {1, 1, 1}));
     }},
    {"Select Vertex", 0x500, [](auto *m) { return new setSelectVertexCommand(m, 4, true); }},
    {"Select Face", 0x180, [](auto *m) { return new setSelectFaceCommand(m, 4, true); }},
    {"Select Edge", 0x100, [](auto *m) { return new setSelectEdgeCommand(m, 4, 3, true); }},
    {"Select Edge", 0x100, [](auto *m) { return new setSelectEdgeCommand(m, 4, 1, false); }},
    {"Set Select UV", 0x100, [](auto *m) { return new setSelectUVCommand(m, 1, 2, true); }},
    {"Set Pinned UV", 0x100, [](auto *m) { return new setLockUVCommand(m, 1, 2, true); }},
    {"Hide Face", 32767, [](auto *m) { return new setHideFaceCommand(m, 1, true); }},
    {"Set Vertex Weight", 32, [](auto *m) { return new setVertexWeightCommand(m, 2, 0.5f); }},
    {"Set Edge Weight", 32, [](auto *m) { return new setEdgeWeightCommand(m, 3, 0, 0.5f); }},
    {"Edit Face Shader", 32767, [](auto *m) { return new editFaceShaderCommand(m, 1, 1); }},
    {"SetShaderIndexList", 32767,
     [](auto *m) {
         return new setFaceShaderListCommand(m, {0, 1, 4}, QVector<int>{5, 6, 7});
     }},
    {"Decrement ShaderIndex", 32767, [](auto *m) { return new decrementShaderIndexCommand(m, 1); }},
    {"Edit Face UV", 32767, [](auto *m) { return new editFaceUVCommand(m, 4, 2, kvm::Vector2(0.25f, 0.75f)); }},
    {"Edit MeshNode", 1, [](auto *m) { return new editMeshNodeCommand(m, {30.0f}); }},
    {"Compact", 32767, [](auto *m) { return new compactMeshCommand(m); }},
};

struct OperationRow
{
    const char *name;
    const char *text;
    void (*run)(KMMeshNode &mesh);
};

using KMMeshSelect::Mode;

void moveSelection(KMMeshNode &mesh, const kvm::Vector3 &by)
{
    mesh.rebuildSelectionCache();
    for (const int i : mesh.selectedVertices())
        mesh.setPosition(i, mesh.position(i) + by);
}

/// What tools and menus call, on the same mesh. Each is one step.
const OperationRow operationRows[] = {
    {"click vertex", "Select Vertex", [](KMMeshNode &m) { KMMeshSelect::clickVertex(m, 4, Mode::Replace); }},
    {"click edge", "Select Edge", [](KMMeshNode &m) { KMMeshSelect::clickEdge(m, 4, 3, Mode::Add); }},
    {"click edge off", "Unselect Edge", [](KMMeshNode &m) { KMMeshSelect::clickEdge(m, 4, 1, Mode::Remove); }},
    {"click line", "Select Edge", [](KMMeshNode &m) { KMMeshSelect::clickEdge(m, 8, 6, Mode::Replace); }},
    {"click face", "Select Face", [](KMMeshNode &m) { KMMeshSelect::clickFace(m, 4, Mode::Replace); }},
    {"click UV", "Select UV", [](KMMeshNode &m) { KMMeshSelect::clickUV(m, 4, 2, Mode::Replace); }},
    {"unselect all", "UnSelectAll", [](KMMeshNode &) { KMMeshSelect::unselectAll(); }},
    {"unselect all UV", "UnSelect All UV",
     [](KMMeshNode &m) {
         m.setCornerFlag(1, 1, KMElementFlag::UVLocked); // stays
         KMMeshSelect::unselectAllUV();
     }},
    {"rectangle", "Rect Select",
     [](KMMeshNode &) { KMMarqueeSelect::selectRect(QRectF(95, 95, 20, 20), Mode::Replace); }},
    {"lasso", "Lasso Select",
     [](KMMeshNode &) { KMMarqueeSelect::selectLasso(QPolygonF(QRectF(95, 95, 20, 20)), Mode::Add); }},
    {"move", "Move Selection",
     [](KMMeshNode &m) {
         moveSelection(m, {0, 2, 0});
         KMSelectionTransform::commit(KMSelectionTransform::Kind::Move, {&m});
     }},
    {"rotate with a node", "Rotate Selection",
     [](KMMeshNode &m) {
         const KMTransform before = m.transform();
         moveSelection(m, {1, 0, 0});
         m.setTransform({{1, 1, 1}, {}, {1, 0, 0}});
         KMSelectionTransform::commit(KMSelectionTransform::Kind::Rotate, {&m}, {{&m, before}});
     }},
    {"snap", "Snap Vertex",
     [](KMMeshNode &m) {
         gSolution->setSnapOptions(KMSnapOption::Merge);
         moveSelection(m, {0.5f, 0, 0});
         KMSelectionTransform::commitSnap({&m, 4}, {&m, 2}, {&m});
     }},
    {"merge", "Merge Vertex", [](KMMeshNode &m) { KMMeshEdit::mergeVertex(m, 4, 1); }},
    {"assign shader", "Assign Shader", [](KMMeshNode &m) { KMMeshEdit::assignShader(m, 1, 3); }},
    {"delete", "Delete Selection Node", [](KMMeshNode &) { KMMeshEdit::deleteSelection(); }},
    {"paste", "Paste Mesh",
     [](KMMeshNode &m) {
         m.face(0)->flags = KMElementFlag::Selected;
         const QByteArray copied = KMCopyBuffer::copySelection();
         m.face(0)->flags = 0;
         KMMeshPaste::paste(m, copied, KMMeshPaste::Kind::Mirror);
     }},
};

KMMeshNode *commandMesh()
{
    KMMeshNode *mesh = MeshFixtures::mixedBag();
    mesh->findEdge(1, 4)->weight = 0.75f;
    mesh->findEdge(1, 4)->flags = KMElementFlag::Selected;
    mesh->findEdge(0, 1)->weight = 0.25f;
    mesh->setFaceShader(0, 2);
    mesh->setFaceShader(3, 2);
    return mesh;
}

QStringList historyTexts(const QUndoStack &stack)
{
    QStringList texts;
    for (int i = 0; i < stack.count(); ++i)
        texts << stack.text(i);
    return texts;
}

} // namespace

class tst_MeshCommands : public QObject
{
    Q_OBJECT
private slots:
    void everyCommandProvesItself_data();
    void everyCommandProvesItself();
    void everyOperationIsOneStep_data();
    void everyOperationIsOneStep();
    void bothWaysCommandsHoldTheState();
    void addedSlotsAreTakenAtOnce();
    void editedFaceTakesWeightsAlong();
    void deleteVertexTakesItsFaces();
    void noOpsPushNothing();
    void splitQuad();
    void assignShader();
    void removedShader_data();
    void removedShader();
    void missingElementsAreTolerated();
};

void tst_MeshCommands::everyCommandProvesItself_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(commandRows)); ++i)
        QTest::addRow("%d %s", i, commandRows[i].text) << i;
}

void tst_MeshCommands::everyCommandProvesItself()
{
    QFETCH(const int, index);
    const CommandRow &row = commandRows[index];
    MeshScene scene(commandMesh());
    gSolution->beginMacro({}); // the session refreshes at its end
    scene.mesh->setDirtyMask(0);
    gSolution->push(row.make(scene.mesh));
    QCOMPARE(scene.mesh->dirtyMask(), row.mask);
    gSolution->endMacro();
    QCOMPARE(scene.mesh->dirtyMask(), 0u);
    scene.session.stack().undo();
    const QString failure = proofFailure(scene.dump, [&] { return row.make(scene.mesh); });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
    QCOMPARE(scene.session.stack().text(0), QString::fromLatin1(row.text));
    QCOMPARE(checkInvariants(*scene.mesh), QString());
    scene.session.stack().undo();
    QCOMPARE(checkInvariants(*scene.mesh), QString());
}

void tst_MeshCommands::everyOperationIsOneStep_data()
{
    QTest::addColumn<int>("index");
    for (int i = 0; i < int(std::size(operationRows)); ++i)
        QTest::newRow(operationRows[i].name) << i;
}

void tst_MeshCommands::everyOperationIsOneStep()
{
    QFETCH(const int, index);
    const OperationRow &row = operationRows[index];
    MeshScene scene(commandMesh());
    scene.mesh->face(1)->cornerFlags[1] = KMElementFlag::Selected | KMElementFlag::UVLocked;
    MeshFixtures::showOnScreen(*scene.mesh);
    QUndoStack &stack = scene.session.stack();
    const QString before = scene.dump.text();
    row.run(*scene.mesh);
    const QString after = scene.dump.text();
    QVERIFY(after != before);
    QCOMPARE(historyTexts(stack), QStringList{QString::fromLatin1(row.text)});
    for (int round = 0; round < 2; ++round) {
        QCOMPARE(checkInvariants(*scene.mesh), QString());
        stack.undo();
        QCOMPARE(scene.dump.text(), before);
        QCOMPARE(checkInvariants(*scene.mesh), QString());
        stack.redo();
        QCOMPARE(scene.dump.text(), after);
    }
}

void tst_MeshCommands::bothWaysCommandsHoldTheState()
{
    MeshScene scene(commandMesh());
    KMMeshNode &mesh = *scene.mesh;
    const QString before = scene.dump.text();
    gSolution->push(new memoryVertexCommand(&mesh));
    gSolution->push(new memoryEdgeWeightCommand(&mesh));
    gSolution->push(new buildEdgeCommand(&mesh));
    gSolution->push(new forceMeshUpdateCommand(&mesh));
    QCOMPARE(historyTexts(scene.session.stack()),
             QStringList({QStringLiteral("Memory Vertex"), QStringLiteral("Memory Edge Weight"),
                          QStringLiteral("Build Edge"), QStringLiteral("Force Update")}));
    QCOMPARE(scene.dump.text(), before);
    for (const bool undo : {true, false}) {
        for (KMEdge *edge : mesh.edges())
            edge->weight = 9.0f;
        for (KMVertex *vertex : mesh.liveVertices())
            vertex->pos = {9, 9, 9};
        mesh.setPosition(9, {});
        scene.session.stack().setIndex(undo ? 0 : 4);
        QCOMPARE(scene.dump.text(), before);
    }
    mesh.rememberPositions(false);
    const QVector<float> remembered = mesh.memoryPositions();
    mesh.setPosition(2, {5, 6, 7});
    gSolution->push(new memoryVertexCommand(&mesh, remembered));
    QCOMPARE(scene.dump.text(), before);
}

void tst_MeshCommands::addedSlotsAreTakenAtOnce()
{
    MeshScene scene(MeshFixtures::grid(1, 1));
    auto *first = new addVertexCommand(scene.mesh, kvm::Vector3());
    auto *second = new addVertexCommand(scene.mesh, kvm::Vector3(1, 1, 1));
    QCOMPARE(first->index(), 4);
    QCOMPARE(second->index(), 5);
    gSolution->push(first);
    gSolution->push(second);
    const int corners[] = {4, 5};
    QCOMPARE(KMMeshEdit::addFace(*scene.mesh, 2, corners), 1);
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.mesh->vertexCount(), 4);
    QVERIFY(!scene.mesh->vertex(5));
    QVERIFY(!scene.mesh->needsCompact());
    scene.session.stack().setIndex(3);
    QCOMPARE(scene.mesh->position(5), kvm::Vector3(1, 1, 1));
    QCOMPARE(checkInvariants(*scene.mesh), QString());
}

void tst_MeshCommands::editedFaceTakesWeightsAlong()
{
    MeshScene scene(MeshFixtures::grid(2, 1));
    KMMeshNode &mesh = *scene.mesh;
    mesh.findEdge(0, 1)->weight = 0.5f;
    mesh.findEdge(1, 2)->weight = 0.125f;
    const QString before = scene.dump.text();
    KMFace face = *mesh.face(0); // corners 0 1 4 3
    face.indices[0] = 2;         // the edge after this corner leads to 1, where the other quad has one
    QVERIFY(KMMeshEdit::editFace(mesh, 0, face));
    QCOMPARE(mesh.findEdge(1, 2)->weight, 0.5f);
    QVERIFY(!mesh.findEdge(0, 1));
    QCOMPARE(checkInvariants(mesh), QString());
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
}

void tst_MeshCommands::deleteVertexTakesItsFaces()
{
    MeshScene scene(MeshFixtures::grid(2, 2));
    const QString before = scene.dump.text();
    QVERIFY(KMMeshEdit::deleteVertex(*scene.mesh, 1));
    QVERIFY(!scene.mesh->vertex(1) && !scene.mesh->face(0) && !scene.mesh->face(1) && scene.mesh->face(2));
    QVERIFY(scene.mesh->vertex(0)->faceRefs.isEmpty());
    QCOMPARE(checkInvariants(*scene.mesh), QString());
    QVERIFY(!KMMeshEdit::deleteVertex(*scene.mesh, 1));
    QCOMPARE(scene.session.stack().count(), 3);
    gSolution->push(new deleteVertexCommand(scene.mesh, 1)); // nothing left to delete
    gSolution->push(new deleteFaceCommand(scene.mesh, 0));
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.dump.text(), before);
    QVERIFY(scene.mesh->vertex(1)->faceRefs.toList() == QList<int>({0, 1}));
}

void tst_MeshCommands::noOpsPushNothing()
{
    MeshScene scene(commandMesh());
    KMMeshNode &mesh = *scene.mesh;
    QVERIFY(!KMMeshEdit::moveVertex(mesh, 1, mesh.position(1)));
    QVERIFY(!KMMeshEdit::setVertexWeight(mesh, 1, 0.0f));
    QVERIFY(!KMMeshEdit::setEdgeWeight(mesh, 1, 4, 0.75f));
    QVERIFY(!KMMeshEdit::selectVertex(mesh, 1, false));
    QVERIFY(!KMMeshEdit::selectFace(mesh, 1, false));
    QVERIFY(!KMMeshEdit::selectEdge(mesh, 1, 4, true));
    QVERIFY(!KMMeshEdit::selectUV(mesh, 1, 0, false));
    QVERIFY(!KMMeshEdit::selectUV(mesh, 1, 3, true)); // a triangle has no such corner
    QVERIFY(!KMMeshEdit::lockUV(mesh, 1, 0, false));
    QVERIFY(!KMMeshEdit::hideFace(mesh, 1, false));
    QVERIFY(!KMMeshEdit::editFaceShader(mesh, 0, 2));
    QVERIFY(!KMMeshEdit::editFaceUV(mesh, 0, 1, {}));
    QCOMPARE(scene.session.stack().count(), 0);
    QVERIFY(KMMeshEdit::editFaceUV(mesh, 0, 1, {0.0f, 0.5f}));
    QVERIFY(KMMeshEdit::editFaceShader(mesh, 0, -1));
    QVERIFY(KMMeshEdit::hideFace(mesh, 1, true));
    QVERIFY(!KMMeshEdit::selectFace(mesh, 1, true)); // hidden
    QCOMPARE(scene.session.stack().count(), 3);
}

void tst_MeshCommands::splitQuad()
{
    MeshScene scene(commandMesh());
    KMMeshNode &mesh = *scene.mesh;
    KMFace &quad = *mesh.face(0);
    for (int c = 0; c < 4; ++c) {
        quad.uvs[c] = {float(c), 0.5f};
        quad.colors[c] = {0, 0, 0, float(c)};
        quad.normals[c] = {float(c), 0, 0};
        quad.cornerFlags[c] = c % 2 ? KMElementFlag::Selected : 0;
    }
    quad.flags = KMElementFlag::Selected;
    const QString before = scene.dump.text();
    QVERIFY(!KMMeshEdit::splitQuad(mesh, 1) && !KMMeshEdit::splitQuad(mesh, 2) && !KMMeshEdit::splitQuad(mesh, 3));
    gSolution->beginMacro({});
    QVERIFY(KMMeshEdit::splitQuad(mesh, 0));
    gSolution->endMacro();
    QVERIFY(!mesh.face(0));
    const int corners[2][3] = {{0, 1, 2}, {2, 3, 0}};
    const int vertices[] = {0, 1, 4, 3};
    for (int t = 0; t < 2; ++t) {
        const KMFace *triangle = mesh.face(5 + t);
        QCOMPARE(triangle->count, 3);
        QCOMPARE(triangle->shader, 2);
        QVERIFY(triangle->hasFlag(KMElementFlag::Selected));
        for (int c = 0; c < 3; ++c) {
            const int from = corners[t][c];
            QCOMPARE(triangle->indices[c], vertices[from]);
            QCOMPARE(triangle->uvs[c].x, float(from));
            QCOMPARE(triangle->colors[c].w, float(from));
            QCOMPARE(int(triangle->cornerFlags[c]), from % 2 ? 8 : 0);
        }
    }
    QCOMPARE(mesh.findEdge(0, 1)->weight, 0.25f);
    QCOMPARE(checkInvariants(mesh), QString());
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
}

void tst_MeshCommands::assignShader()
{
    MeshScene scene(MeshFixtures::cube());
    scene.mesh->setFaceFlag(1, KMElementFlag::Selected);
    scene.mesh->setFaceFlag(4, KMElementFlag::Selected);
    QCOMPARE(KMMeshEdit::assignShader(*scene.mesh, 3), 2);
    QCOMPARE(KMMeshEdit::assignShader(*scene.mesh, 0, 2), 1);
    QCOMPARE(KMMeshEdit::assignShader(*scene.mesh, 3), 0); // they have it
    QCOMPARE(scene.mesh->usedShaders(), QList<int>({-1, 2, 3}));
    QCOMPARE(historyTexts(scene.session.stack()),
             QStringList({QStringLiteral("Assign Shader"), QStringLiteral("Assign Shader")}));
}

void tst_MeshCommands::removedShader_data()
{
    QTest::addColumn<QVector<int>>("before");
    QTest::addColumn<int>("deleted");
    QTest::addColumn<QVector<int>>("after");
    QTest::addColumn<QStringList>("commands");
    const QString lower = QStringLiteral("Decrement ShaderIndex");
    const QString single = QStringLiteral("Edit Face Shader");
    QTest::newRow("only above") << QVector<int>{1, 2, 2, 1, 1, 2} << 0 << QVector<int>{0, 1, 1, 0, 0, 1}
                                << QStringList{lower};
    QTest::newRow("above and below") << QVector<int>{0, 2, -1, 0, 0, 0} << 1 << QVector<int>{0, 1, -1, 0, 0, 0}
                                     << QStringList{single};
    QTest::newRow("all three") << QVector<int>{0, 1, 2, 1, 0, 2} << 1 << QVector<int>{0, -1, 1, -1, 0, 1}
                               << QStringList{single, single, single, single};
    QTest::newRow("only below") << QVector<int>{0, 0, 0, 0, 1, 1} << 2 << QVector<int>{0, 0, 0, 0, 1, 1}
                                << QStringList();
}

void tst_MeshCommands::removedShader()
{
    QFETCH(const QVector<int>, before);
    QFETCH(const int, deleted);
    QFETCH(const QVector<int>, after);
    QFETCH(const QStringList, commands);
    MeshScene scene(MeshFixtures::cube());
    for (int i = 0; i < 3; ++i)
        gProject->addNode(new KMBasicShaderNode);
    for (int f = 0; f < 6; ++f)
        scene.mesh->setFaceShader(f, before.at(f));
    gSolution->clearHistory();
    const QString text = scene.dump.text();
    gProject->deleteNode(gProject->shaders().at(deleted));
    QStringList pushed;
    const QUndoCommand *macro = scene.session.stack().command(0);
    for (int i = 0; i < macro->childCount(); ++i)
        pushed << macro->child(i)->text();
    QCOMPARE(pushed, commands + QStringList{QStringLiteral("Delete ShaderNode")});
    for (int f = 0; f < 6; ++f)
        QCOMPARE(scene.mesh->faceShader(f), after.at(f));
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), text);
}

void tst_MeshCommands::missingElementsAreTolerated()
{
    MeshScene scene(MeshFixtures::cube());
    const QString before = scene.dump.text();
    gSolution->push(new setEdgeWeightCommand(scene.mesh, 0, 7, 1.0f)); // no such edge
    gSolution->push(new setSelectEdgeCommand(scene.mesh, 0, 7, true));
    QCOMPARE(scene.dump.text(), before);
    gSolution->beginMacro({});
    gSolution->push(new deleteVertexCommand(scene.mesh, 3));
    gSolution->push(new deleteFaceCommand(scene.mesh, 0)); // one corner is null by now
    gSolution->push(new deleteFaceCommand(scene.mesh, 3));
    gSolution->push(new deleteFaceCommand(scene.mesh, 5));
    gSolution->endMacro();
    QCOMPARE(checkInvariants(*scene.mesh), QString());
    scene.session.stack().setIndex(0);
    QCOMPARE(scene.dump.text(), before);
}

KM_TEST(tst_MeshCommands);

#include "tst_MeshCommands.moc"
