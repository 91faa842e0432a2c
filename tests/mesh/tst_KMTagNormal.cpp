#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "mesh/KMNormalCommands.h"
#include "mesh/KMTagNormal.h"
#include "support/CommandProof.h"
#include "support/NormalScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <memory>
#include <random>

namespace {

using Maker = std::function<KMUndoCommand *(KMTagNormal *)>;

KMNormalFace someOverride(const KMTagNormal *tag, int face)
{
    KMNormalFace record = tag->faceNormal(face);
    record.setFixed(0, {0.6f, 0.8f, 0});
    record.setRotated(2, 0.5f, {0, 0, 1});
    return record;
}

/// The creases of a tag by the places of their ends.
QStringList creasePlaces(const KMTagNormal *tag)
{
    const auto place = [tag](int i) {
        const kvm::Vector3 &p = tag->mesh()->position(i);
        return QStringLiteral("%1,%2").arg(double(p.x)).arg(double(p.z));
    };
    QStringList places;
    const QVector<QPair<int, int>> creases = tag->creasesOfMesh();
    for (const QPair<int, int> &ends : creases)
        places << place(ends.first) + QLatin1Char(' ') + place(ends.second);
    places.sort();
    return places;
}

} // namespace

class tst_KMTagNormal : public QObject
{
    Q_OBJECT
private slots:
    void commands();
    void pairsOfFaces();
    void pairSharedByTwoCreases();
    void fitsTheFaces();
    void followsCompact();
    void cloneIsIndependent();
    void withoutTheTag();
    void randomWalk();
};

void tst_KMTagNormal::commands()
{
    const std::pair<quint32, Maker> rows[] = {
        {1025, [](auto *tag) { return new editNormalCommand(tag, someOverride(tag, 3)); }},
        {32767, [](auto *tag) { return new creaseNormalCommand(tag, 5, 6, true); }},
        {32767, [](auto *tag) { return new creaseNormalCommand(tag, 10, 9, false); }},
    };
    for (const auto &[mask, make] : rows) {
        NormalScene scene(MeshFixtures::grid(3, 3));
        scene.mesh->vertex(5)->pos.y = 0.4f;
        scene.tag->setCrease(9, 10, true);
        scene.mesh->refreshMesh(KMMeshDirty::All);
        const std::unique_ptr<KMUndoCommand> command(make(scene.tag));
        QCOMPARE(command->text(), QStringLiteral("Edit Normal"));
        QCOMPARE(command->node(), static_cast<KMNode *>(scene.mesh));
        for (const auto step : {&QUndoCommand::redo, &QUndoCommand::undo}) {
            scene.mesh->setDirtyMask(0);
            ((*command).*step)();
            QCOMPARE(scene.mesh->dirtyMask(), mask);
        }
        scene.mesh->refreshMesh(KMMeshDirty::All);
        const Maker &fresh = make;
        QCOMPARE(proofFailure(scene.normals, [&] { return fresh(scene.tag); }), QString());
    }
}

void tst_KMTagNormal::pairsOfFaces()
{
    NormalScene scene(MeshFixtures::nonManifoldFan(4));
    scene.tag->setCrease(1, 0, true);
    QVERIFY(scene.tag->isCrease(0, 1));
    const quint64 one = 1;
    QCOMPARE(scene.tag->creaseFaces(), (QSet<quint64>{one << 32, one << 33, one << 32 | one << 33}));
    QCOMPARE(KMTagNormal::facePair(7, 2), KMTagNormal::facePair(2, 7));

    // A line polygon on the crease has no normal to part.
    const int line[] = {0, 1};
    scene.mesh->addFaceRaw(2, line);
    scene.mesh->refreshMesh(KMMeshDirty::All);
    QCOMPARE(scene.tag->creaseFaces().size(), 3);
    scene.tag->setCrease(0, 1, false);
    QVERIFY(scene.tag->creaseFaces().isEmpty());
    QVERIFY(scene.tag->creaseEdges().isEmpty());
}

void tst_KMTagNormal::pairSharedByTwoCreases()
{
    auto *mesh = new KMMeshNode;
    for (int i = 0; i < 5; ++i)
        mesh->addVertexRaw({float(i), float(i * i), float(i % 2)});
    const int quad[] = {0, 1, 2, 3};
    const int triangle[] = {2, 1, 0};
    mesh->addFaceRaw(4, quad);
    mesh->addFaceRaw(3, triangle);
    NormalScene scene(mesh);
    scene.tag->setCrease(0, 1, true);
    scene.tag->setCrease(1, 2, true);
    scene.tag->setCrease(0, 1, false);
    QCOMPARE(scene.tag->creaseFaces(), QSet<quint64>{KMTagNormal::facePair(0, 1)});
    scene.tag->setCrease(1, 2, false);
    QVERIFY(scene.tag->creaseFaces().isEmpty());
}

void tst_KMTagNormal::fitsTheFaces()
{
    NormalScene scene(MeshFixtures::grid(3, 1));
    scene.tag->setFaceNormal(someOverride(scene.tag, 1));
    const int added[] = {0, 5, 2};
    KMMeshEdit::addFace(*scene.mesh, 3, added);
    QCOMPARE(scene.tag->faceNormals().size(), 4);
    QVERIFY(!scene.tag->faceNormals().at(3).hasOverride());
    KMMeshEdit::deleteFace(*scene.mesh, 0);
    QCOMPARE(scene.tag->faceNormals().size(), 4);
    for (int f = 0; f < 4; ++f)
        QCOMPARE(scene.tag->faceNormals().at(f).face, f);
    QCOMPARE(int(scene.tag->faceNormals().at(1).mode[2]), int(KMNormalFace::Rotated));
}

void tst_KMTagNormal::followsCompact()
{
    NormalScene scene(MeshFixtures::grid(4, 3));
    scene.tag->setCrease(0, 1, true); // goes with the corner
    scene.tag->setCrease(7, 12, true);
    scene.tag->setCrease(13, 12, true);
    for (const int f : {0, 5, 11})
        scene.tag->setFaceNormal(someOverride(scene.tag, f));
    scene.mesh->refreshMesh(KMMeshDirty::All);
    const QString before = scene.normals.text();

    KMMeshEdit::deleteVertex(*scene.mesh, 0);
    const QStringList creases = creasePlaces(scene.tag);
    QCOMPARE(creases.size(), 2);
    QVERIFY(KMMeshEdit::compact(*scene.mesh));
    gSolution->push(new compactMeshCommand(scene.mesh)); // changes no number, and takes nothing that was put aside
    QCOMPARE(creasePlaces(scene.tag), creases);
    QCOMPARE(scene.tag->creaseEdges().size(), 2);
    QCOMPARE(scene.tag->faceNormals().size(), 11);
    for (int f = 0; f < 11; ++f)
        QCOMPARE(scene.tag->faceNormals().at(f).hasOverride(), f == 4 || f == 10);
    const QString after = scene.normals.text();

    QUndoStack *stack = gSolution->undoStack();
    for (int round = 0; round < 2; ++round) {
        while (stack->canUndo())
            stack->undo();
        QCOMPARE(scene.normals.text(), before);
        while (stack->canRedo())
            stack->redo();
        QCOMPARE(scene.normals.text(), after);
    }
}

void tst_KMTagNormal::cloneIsIndependent()
{
    NormalScene scene(MeshFixtures::grid(2, 2));
    scene.tag->setCrease(1, 4, true);
    scene.tag->setFaceNormal(someOverride(scene.tag, 2));
    const std::unique_ptr<KMMeshNode> copy(scene.mesh->clone());
    auto *tag = static_cast<KMTagNormal *>(copy->findTag(scene.tag->type()));
    QVERIFY(tag && tag != scene.tag);
    QCOMPARE(tag->name(), scene.tag->name());
    QCOMPARE(tag->creaseEdges(), scene.tag->creaseEdges());
    QCOMPARE(tag->creaseFaces(), scene.tag->creaseFaces());
    QVERIFY(tag->faceNormals().at(2).isSameOverride(scene.tag->faceNormals().at(2)));
    tag->setCrease(4, 7, true);
    tag->setFaceNormal(someOverride(tag, 0));
    QVERIFY(!scene.tag->isCrease(4, 7));
    QVERIFY(!scene.tag->faceNormals().at(0).hasOverride());
}

void tst_KMTagNormal::withoutTheTag()
{
    NormalScene scene(MeshFixtures::grid(2, 2));
    gSolution->push(new editNormalCommand(scene.tag, someOverride(scene.tag, 0)));
    const kvm::Vector3 fixed = scene.mesh->face(0)->normals[0];
    QVERIFY(std::fabs(fixed.x - 0.6f) < 1e-6f);
    gSolution->push(new deleteTagCommand(scene.mesh, scene.tag));
    QVERIFY(std::fabs(scene.mesh->face(0)->normals[0].y) > 0.99f);
    gSolution->undoStack()->undo();
    QCOMPARE(scene.mesh->face(0)->normals[0], fixed);
    auto *second = new KMTagNormal;
    gSolution->push(new addTagCommand(scene.mesh, second));
    QCOMPARE(second->name(), QStringLiteral("Normal1"));
    QCOMPARE(scene.mesh->face(0)->normals[0], fixed); // only the first one counts
}

/// Topology edits, renumberings, creases and overrides: each step leads back, with all corner normals.
void walk(int seed)
{
    std::mt19937 random{unsigned(seed)};
    NormalScene scene(seed % 2 ? MeshFixtures::grid(4, 4) : MeshFixtures::torus(5, 4));
    KMMeshNode &mesh = *scene.mesh;
    QUndoStack *stack = gSolution->undoStack();
    QStringList states{scene.normals.text()};
    for (int step = 0; step < 40 && mesh.faceCount() > 0; ++step) {
        const int f = int(random() % unsigned(mesh.faceCount()));
        const int v = int(random() % unsigned(mesh.vertexCount()));
        {
            const KMUndoMacro macro(QStringLiteral("step"));
            switch (random() % 8) {
            case 0:
                KMMeshEdit::deleteVertex(mesh, v);
                break;
            case 1:
                KMMeshEdit::deleteFace(mesh, f);
                break;
            case 2:
                KMMeshEdit::splitQuad(mesh, f);
                break;
            case 3:
                KMMeshEdit::compact(mesh);
                break;
            case 4:
                KMMeshEdit::moveVertex(mesh, v, kvm::Vector3(float(step), float(v), float(f)) * 0.1f);
                break;
            case 5:
                gSolution->push(new editNormalCommand(scene.tag, someOverride(scene.tag, f)));
                break;
            default:
                if (const KMFace *face = mesh.face(f))
                    gSolution->push(new creaseNormalCommand(scene.tag, face->indices[0], face->next(0), random() % 4));
            }
        }
        states << scene.normals.text();
    }
    for (int step = states.size() - 2; step >= 0; --step) {
        stack->undo();
        QCOMPARE(scene.normals.text(), states.at(step));
    }
    for (int step = 1; step < states.size(); ++step) {
        stack->redo();
        QCOMPARE(scene.normals.text(), states.at(step));
    }
}

void tst_KMTagNormal::randomWalk()
{
    for (int seed = 1; seed <= 6; ++seed)
        walk(seed);
}

KM_TEST(tst_KMTagNormal);
#include "tst_KMTagNormal.moc"
