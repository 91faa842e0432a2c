#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "support/MeshFixtures.h"
#include "support/TestModifier.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <memory>

using namespace KMMeshDirty;

class tst_KMMeshNode : public QObject
{
    Q_OBJECT
private slots:
    void rawEdits();
    void refreshOrder_data();
    void refreshOrder();
    void listsFollowWhatIsTold();
    void earlyExits();
    void refreshTakesItsBits();
    void offsetsAreTakenBackAndLaidOn();
    void chainFollowsTheSession();
    void chainIsRebuiltFromTheChangedStage();
    void editedResultReachesItsOwner();
    void notificationsComeOnce();
    void edgesKeepWhatTheyCarry();
    void lineAndDegenerateFaces();
    void compactAndBack_data();
    void compactAndBack();
    void compactTellsAndRemaps();
    void cloneCopiesShape_data();
    void cloneCopiesShape();
    void selectionCache();
    void projection();
    void drawnElements();
};

namespace {

using Maker = std::function<KMMeshNode *()>;

} // namespace

Q_DECLARE_METATYPE(Maker)

namespace {

void addFixtureRows()
{
    QTest::addColumn<Maker>("make");
    QTest::newRow("grid") << Maker([] { return MeshFixtures::grid(4, 3); });
    QTest::newRow("torus") << Maker([] { return MeshFixtures::torus(5, 4); });
    QTest::newRow("cube") << Maker(MeshFixtures::cube);
    QTest::newRow("open cone") << Maker([] { return MeshFixtures::openCone(7); });
    QTest::newRow("quad with hole") << Maker(MeshFixtures::quadWithHole);
    QTest::newRow("fan") << Maker([] { return MeshFixtures::nonManifoldFan(); });
    QTest::newRow("mixed bag") << Maker(MeshFixtures::mixedBag);
    QTest::newRow("empty") << Maker([] { return MeshFixtures::grid(0, 0); });
}

std::unique_ptr<KMMeshNode> fetchMesh()
{
    QFETCH(Maker, make);
    return std::unique_ptr<KMMeshNode>(make());
}

QStringList taken(QStringList &log)
{
    QStringList result;
    result.swap(log);
    return result;
}

} // namespace

void tst_KMMeshNode::rawEdits()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(2, 1));
    mesh->face(0)->normals[1] = {0, 1, 0};
    mesh->face(0)->uvs[1] = {1, 1};
    mesh->face(0)->flags = KMElementFlag::Selected;
    const int triangle[] = {0, 1, 5};
    mesh->setFaceRaw(0, 3, triangle);
    QCOMPARE(mesh->faceCornerCount(0), 3);
    QCOMPARE(mesh->face(0)->normals[1], kvm::Vector3(0, 1, 0));
    QCOMPARE(mesh->faceUVs(0)[1], kvm::Vector2());
    QCOMPARE(int(mesh->face(0)->flags), 0);
    QVERIFY(!mesh->vertex(4)->faceRefs.contains(0));
    const int twice[] = {0, 0, 1};
    QCOMPARE(mesh->addFaceRaw(3, twice), 2);
    QCOMPARE(mesh->vertex(0)->faceRefs.toList(), QList<int>({0, 2}));
    mesh->resizeVertices(9);
    mesh->resizeFaces(4);
    QCOMPARE(mesh->vertex(8)->index, 8);
    QCOMPARE(mesh->faceCornerCount(3), 0);
    mesh->refreshMesh(All);
    QCOMPARE(checkInvariants(*mesh), QString());
    QVERIFY(!mesh->needsCompact());
}

void tst_KMMeshNode::refreshOrder_data()
{
    QTest::addColumn<quint32>("mask");
    QTest::addColumn<QString>("calls");
    QTest::newRow("all") << quint32(All)
                         << "tag.onFullRefresh a.clearResult b.clearResult a.copyFaceFlags b.copyFaceFlags "
                            "a.onVertexFlagsChanged b.onVertexFlagsChanged tag.unapply tag.apply "
                            "a.onPositionsChanged b.onPositionsChanged a.onWeightChanged b.onWeightChanged "
                            "a.onShaderChanged b.onShaderChanged a.rebuild b.rebuild";
    QTest::newRow("positions") << 1u << "tag.unapply tag.apply";
    QTest::newRow("moved") << 2049u << "tag.unapply tag.apply a.onPositionsChanged b.onPositionsChanged";
    QTest::newRow("weights") << 32u << "a.onWeightChanged b.onWeightChanged";
    QTest::newRow("shaders") << 64u << "a.onShaderChanged b.onShaderChanged";
    QTest::newRow("all but one bit") << quint32(All & ~Topology & ~Positions)
                                     << "a.copyFaceFlags b.copyFaceFlags a.onVertexFlagsChanged "
                                        "b.onVertexFlagsChanged a.onPositionsChanged b.onPositionsChanged "
                                        "a.onWeightChanged b.onWeightChanged a.onShaderChanged b.onShaderChanged";
}

void tst_KMMeshNode::refreshOrder()
{
    QFETCH(const quint32, mask);
    QFETCH(const QString, calls);
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    mesh->addTag(new TestMeshTag(&log));
    auto *gone = new TestMeshTag(&log);
    gone->setDeleted(true);
    mesh->addTag(gone);
    const TestModifier a(mesh.get(), &log, QStringLiteral("a"));
    const TestModifier b(mesh.get(), &log, QStringLiteral("b"));
    mesh->refreshMesh(mask);
    QCOMPARE(log.join(QLatin1Char(' ')), calls);
}

/// Stages are told of the change before the lists follow, and what a stage does meanwhile enters the lists.
void tst_KMMeshNode::listsFollowWhatIsTold()
{
    class Stage : public TestModifier
    {
    public:
        using TestModifier::TestModifier;
        void onPositionsChanged() override { note(); }
        void onShaderChanged() override
        {
            note();
            source()->setFaceShader(1, 5);
        }
        void rebuild() override { note(); }
        QVector<int> seen; // live faces, edges and shaders at each call

    private:
        void note() { seen << source()->liveFaces().size() << source()->edgeCount() << source()->usedShaders().size(); }
    };
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    Stage stage(mesh.get(), &log, QStringLiteral("a"));
    const int corners[] = {0, 6};
    mesh->addFaceRaw(2, corners);
    mesh->refreshMesh(All);
    QCOMPARE(stage.seen, (QVector<int>{6, 12, 1, 6, 12, 1, 7, 13, 2}));
    QCOMPARE(mesh->usedShaders(), QList<int>({-1, 5}));
}

void tst_KMMeshNode::earlyExits()
{
    for (const quint32 mask : {1u, 32u, 64u, 2049u, 33u, 96u, 9u}) {
        const bool listsFollow = mask == 96u || mask == 9u;
        const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
        mesh->removeFaceRefs(5);
        mesh->setFace(5, nullptr);
        mesh->refreshMesh(mask);
        QCOMPARE(mesh->liveFaces().size(), listsFollow ? 5 : 6);
        QCOMPARE(mesh->triangleCount(), listsFollow ? 10 : 12);
        QCOMPARE(mesh->findEdge(1, 3)->faceRefs.size(), 2); // without bit 2 the edges stay as they were
        QVERIFY(!(mesh->dirtyMask() & mask));
    }
}

void tst_KMMeshNode::refreshTakesItsBits()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    QCOMPARE(mesh->dirtyMask(), 0u);
    mesh->markDirty(Moved);
    mesh->requestRefresh(Weights);
    mesh->refreshMesh(Weights);
    QCOMPARE(mesh->dirtyMask(), quint32(Moved));
    mesh->clearRenderDirty(~0u);
    mesh->refreshMesh(Colors);
    QCOMPARE(mesh->renderDirty(), quint32(RenderColors));
    mesh->refreshMesh(Moved);
    QCOMPARE(mesh->renderDirty(), quint32(RenderColors | RenderVertices));
    mesh->refreshMesh(Buffers);
    QCOMPARE(mesh->renderDirty(), quint32(RenderAll | RenderColors));
    for (const int shader : {4, 2}) { // one shader more, then as many as before
        mesh->clearRenderDirty(~0u);
        mesh->setFaceShader(3, shader);
        mesh->refreshMesh(Edges);
        QCOMPARE(mesh->usedShaders(), QList<int>({-1, shader}));
        QCOMPARE(mesh->renderDirty(), shader == 4 ? quint32(RenderAll) : 0u);
    }
}

void tst_KMMeshNode::offsetsAreTakenBackAndLaidOn()
{
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    auto *tag = new TestMeshTag(&log);
    mesh->addTag(tag);
    const float y = mesh->position(0).y;
    tag->offset = 1.0f;
    tag->apply();
    mesh->refreshMesh(Positions);
    QCOMPARE(mesh->position(0).y, y + 1.0f);
    mesh->rememberPositions(true);
    QCOMPARE(mesh->memoryPositions().at(1), y);
    QCOMPARE(mesh->memoryPositions().size(), 24);
    QCOMPARE(mesh->position(0).y, y + 1.0f);
    mesh->rememberPositions(false);
    QCOMPARE(mesh->memoryPositions().at(1), y + 1.0f);
    QCOMPARE(mesh->findTag(KMNodeType::Tag), tag);
    tag->setDeleted(true);
    QVERIFY(!mesh->findTag(KMNodeType::Tag));
}

void tst_KMMeshNode::chainFollowsTheSession()
{
    QStringList log; // outlives those who write to it
    MeshScene scene(MeshFixtures::cube());
    TestModifier modifier(scene.mesh, &log, QStringLiteral("a"));
    QUndoStack &stack = scene.session.stack();
    const QStringList moved{QStringLiteral("a.onPositionsChanged"), QStringLiteral("a.update")};
    KMMeshEdit::moveVertex(*scene.mesh, 2, {5, 5, 5});
    QCOMPARE(taken(log), moved);
    stack.undo();
    QCOMPARE(taken(log), moved);
    stack.redo();
    QCOMPARE(taken(log), moved);
    const QStringList weighted{QStringLiteral("a.onWeightChanged"), QStringLiteral("a.update")};
    KMMeshEdit::setVertexWeight(*scene.mesh, 2, 0.5f);
    QCOMPARE(taken(log), weighted);
    stack.undo();
    QCOMPARE(taken(log), weighted);
    KMMeshEdit::deleteFace(*scene.mesh, 1);
    QCOMPARE(log.count(QStringLiteral("a.rebuild")), 1);
    QVERIFY(!log.contains(QStringLiteral("a.update"))); // a rebuilt chain has nothing to catch up with
    QVERIFY(!scene.mesh->isChainPending());
    scene.mesh->removeModifierEntry(&modifier);
    taken(log);
    stack.undo();
    QVERIFY(log.isEmpty());
}

void tst_KMMeshNode::chainIsRebuiltFromTheChangedStage()
{
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    TestModifier a(mesh.get(), &log, QStringLiteral("a"));
    TestModifier b(mesh.get(), &log, QStringLiteral("b"));
    TestModifier c(mesh.get(), &log, QStringLiteral("c"));
    b.topologyChanges = true;
    mesh->evaluateModifiers();
    QCOMPARE(taken(log).join(QLatin1Char(' ')), QStringLiteral("a.update b.update b.rebuild c.rebuild"));
    QCOMPARE(mesh->findModifierOfType(KMNodeType::ModSym), &a);
    mesh->removeModifierEntry(&a);
    QCOMPARE(mesh->findModifierOfType(KMNodeType::ModSym), &b);
    QVERIFY(!mesh->findModifierOfType(KMNodeType::ModSdv));
}

void tst_KMMeshNode::editedResultReachesItsOwner()
{
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    TestModifier a(mesh.get(), &log, QStringLiteral("a"));
    a.modMesh()->setDirtyMask(0);
    a.modMesh()->addVertexRaw({});
    a.modMesh()->markMoved();
    QCOMPARE(a.modMesh()->dirtyMask(), 512u | 2049u);
    QCOMPARE(mesh->dirtyMask(), 2049u);
    a.modMesh()->refreshMesh(a.modMesh()->dirtyMask());
    QCOMPARE(log, QStringList(QStringLiteral("a.onModMeshEdited")));
    mesh->setDirtyMask(0);
    mesh->markMoved();
    QCOMPARE(mesh->dirtyMask(), 2049u);
}

void tst_KMMeshNode::notificationsComeOnce()
{
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::cube());
    mesh->addTag(new TestMeshTag(&log));
    const TestModifier a(mesh.get(), &log, QStringLiteral("a"));
    mesh->beginFrame();
    QVERIFY(log.isEmpty());
    mesh->markNotify(ModifierBuilt);
    mesh->setDirtyMask(All);
    mesh->beginFrame();
    QVERIFY(log.isEmpty()); // a mesh that has to be read anew first keeps them for later
    mesh->setDirtyMask(Moved);
    mesh->beginFrame();
    mesh->beginFrame();
    QCOMPARE(log, QStringList({QStringLiteral("a.updateTags"), QStringLiteral("tag.onNodeEvent 32768")}));
}

void tst_KMMeshNode::edgesKeepWhatTheyCarry()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(2, 1));
    mesh->findEdge(1, 4)->weight = 0.5f;                   // between the quads
    mesh->findEdge(0, 1)->flags = KMElementFlag::Selected; // of the first alone
    mesh->findEdge(0, 3)->weight = 0.25f;
    mesh->removeFaceRefs(0);
    mesh->setFace(0, nullptr);
    mesh->refreshMesh(All);
    QCOMPARE(mesh->findEdge(1, 4)->weight, 0.5f);
    QVERIFY(!mesh->findEdge(0, 1) && !mesh->findEdge(0, 3));
    QVERIFY(!mesh->hasEdgeFlag(KMElementFlag::Selected));
    mesh->buildEdges();
    QCOMPARE(mesh->findEdge(4, 1)->weight, 0.0f);
}

void tst_KMMeshNode::lineAndDegenerateFaces()
{
    KMMeshNode mesh;
    for (int i = 0; i < 4; ++i)
        mesh.addVertexRaw({float(i), 0, 0});
    const int corners[] = {2, 1, 3};
    QCOMPARE(mesh.addFaceRaw(2, corners), 0);
    mesh.addFaceRaw(1, corners + 2);
    mesh.refreshMesh(All);
    QCOMPARE(mesh.findEdge(1, 2)->faceRefs.toList(), QList<int>({0, 0}));
    QCOMPARE(mesh.faceOfEdge(2, 1), 0);
    QCOMPARE(mesh.liveVertices().size(), 3); // the loose vertex is not live
    QCOMPARE(mesh.liveFaces().size(), 1);
    QCOMPARE(mesh.triangleCount(), 0);
    QCOMPARE(mesh.face(0)->normals[0], kvm::Vector3());
    mesh.compact();
    mesh.refreshMesh(All);
    QCOMPARE(mesh.vertexCount(), 2);
    QCOMPARE(mesh.faceCount(), 1);
    QCOMPARE(mesh.position(0).x, 1.0f);
    QCOMPARE(mesh.findEdge(0, 1)->faceRefs.size(), 2);
    QCOMPARE(checkInvariants(mesh), QString());
}

void tst_KMMeshNode::compactAndBack_data()
{
    addFixtureRows();
}

void tst_KMMeshNode::compactAndBack()
{
    const std::unique_ptr<KMMeshNode> mesh = fetchMesh();
    const int point[] = {0};
    if (mesh->vertexCount() > 4) {
        mesh->addFaceRaw(1, point); // stands in the list of a vertex that stays
        mesh->addVertexRaw({9, 9, 9});
        mesh->addFaceRaw(0, point);
        const int corners[] = {1, 4, 0};
        mesh->addFaceRaw(3, corners);
    }
    int weight = 0;
    for (KMEdge *edge : mesh->edges())
        edge->weight = float(++weight);
    if (mesh->faceCount() > 1) {
        mesh->removeFaceRefs(0);
        mesh->setFace(0, nullptr);
    }
    mesh->refreshMesh(All);
    const QString before = meshText(*mesh);
    const bool neededCompact = mesh->needsCompact();
    KMMeshStore::Dropped dropped;
    mesh->applyCompact(&dropped);
    mesh->refreshMesh(All);
    QCOMPARE(checkInvariants(*mesh), QString());
    QVERIFY(!mesh->needsCompact());
    QVERIFY(!mesh->vertices().contains(nullptr) && !mesh->faces().contains(nullptr));
    QCOMPARE(mesh->liveVertices().size(), mesh->vertexCount());
    QCOMPARE(mesh->liveFaces().size(), mesh->faceCount());
    mesh->applyExpand(dropped);
    mesh->refreshMesh(All);
    QCOMPARE(meshText(*mesh), before);
    QCOMPARE(mesh->needsCompact(), neededCompact);
    QCOMPARE(checkInvariants(*mesh), QString());
}

void tst_KMMeshNode::compactTellsAndRemaps()
{
    QStringList log; // outlives those who write to it
    MeshScene scene(MeshFixtures::mixedBag());
    scene.mesh->addTag(new TestMeshTag(&log));
    const TestModifier a(scene.mesh, &log, QStringLiteral("a"));
    const QStringList told{QStringLiteral("tag.remapIndices"), QStringLiteral("a.remapIndices")};
    QVERIFY(KMMeshEdit::compact(*scene.mesh)); // at once: there is no history
    QCOMPARE(scene.session.stack().count(), 0);
    QCOMPARE(taken(log), told);
    QVERIFY(!KMMeshEdit::compact(*scene.mesh));
    const QString before = scene.dump.text();
    KMMeshEdit::deleteVertex(*scene.mesh, 1);
    taken(log);
    QVERIFY(KMMeshEdit::compact(*scene.mesh));
    QCOMPARE(scene.session.stack().undoText(), QStringLiteral("Compact"));
    QCOMPARE(log.mid(0, 2), told);
    QCOMPARE(scene.mesh->remappedVertex(3), 0);
    taken(log);
    scene.session.stack().undo();
    QCOMPARE(log.mid(0, 2), told);
    QCOMPARE(scene.mesh->remappedVertex(0), 3); // from the closed indices to the open ones
    while (scene.session.stack().canUndo())
        scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
}

void tst_KMMeshNode::cloneCopiesShape_data()
{
    addFixtureRows();
}

void tst_KMMeshNode::cloneCopiesShape()
{
    QStringList log; // outlives those who write to it
    const std::unique_ptr<KMMeshNode> mesh = fetchMesh();
    mesh->setName(QStringLiteral("Body"));
    mesh->setSmoothAngle(35.0f);
    mesh->setLocked(true);
    mesh->setTransform({{2, 2, 2}, {}, {1, 2, 3}});
    mesh->addTagKeepName(new TestMeshTag(&log));
    for (int i = 0; i < mesh->vertexCount(); ++i) {
        if (mesh->vertex(i))
            mesh->vertex(i)->weight = 0.1f * float(i);
    }
    for (KMEdge *edge : mesh->edges())
        edge->weight = float(edge->index1);
    for (KMFace *face : mesh->liveFaces()) {
        face->uvs[1] = {0.5f, float(face->index)};
        face->source = 77;
        face->shader = face->index % 3;
    }
    mesh->refreshMesh(All);
    const std::unique_ptr<KMMeshNode> copy(mesh->clone());
    QCOMPARE(meshText(*copy), meshText(*mesh));
    QCOMPARE(checkInvariants(*copy), QString());
    QVERIFY(copy->name() == mesh->name() && copy->isLocked() && copy->translation() == kvm::Vector3(1, 2, 3));
    QVERIFY(copy->tagCount() == 1 && copy->tag(0)->owner() == copy.get());
    QCOMPARE(copy->needsCompact(), mesh->needsCompact());
    QCOMPARE(copy->dirtyMask(), quint32(All));
}

void tst_KMMeshNode::selectionCache()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(4, 1));
    mesh->rebuildSelectionCache();
    QVERIFY(mesh->selectedVertices().isEmpty());
    QCOMPARE(mesh->selectionCentre(), kvm::Vector3());
    mesh->addVertexRaw({});
    mesh->setVertexFlag(10, KMElementFlag::Selected); // no face uses it
    mesh->setVertexFlag(0, KMElementFlag::Selected);
    mesh->setEdgeFlag(1, 2, KMElementFlag::Selected);
    mesh->setFaceFlag(3, KMElementFlag::Selected);
    mesh->rebuildSelectionCache();
    QCOMPARE(mesh->selectedVertices(), QSet<int>({0, 1, 2, 3, 4, 8, 9}));
    QCOMPARE(mesh->selectedFaces(), QSet<int>({3}));
    QCOMPARE(mesh->selectionPositions().size(), 11);
    QCOMPARE(mesh->selectionPositions().at(9), mesh->position(9));
    QCOMPARE(mesh->selectionPositions().at(6), kvm::Vector3());
    mesh->setPosition(9, {7, 7, 7});
    mesh->rememberVertex(9);
    QCOMPARE(mesh->selectionPositions().at(9), kvm::Vector3(7, 7, 7));
    QCOMPARE(mesh->selectionCentre(), kvm::Vector3(17.0f / 7.0f, 0, 2.0f / 7.0f));
}

void tst_KMMeshNode::projection()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(1, 1));
    mesh->setPosition(0, {1, 2, -4});
    mesh->setPosition(1, {1, 2, 4}); // behind the eye
    kvm::Matrix4 perspective;        // looks down z, w is the distance
    perspective[11] = -1;
    perspective[15] = 0;
    perspective[14] = -0.5f;
    mesh->projectVertices(perspective, 800, 600);
    const kvm::Vector3 front = mesh->vertex(0)->screenPos;
    QCOMPARE(front, kvm::Vector3((0.25f + 1) * 400, (1 - 0.5f) * 300, -4.5f / 4));
    const kvm::Vector3 behind = mesh->vertex(1)->screenPos;
    QCOMPARE(behind, kvm::Vector3((0.25f + 1) * 400, (1 - 0.5f) * 300, 3.5f / -4));
}

/// Of four quads one is hidden; a line polygon stands apart.
void tst_KMMeshNode::drawnElements()
{
    const std::unique_ptr<KMMeshNode> mesh(MeshFixtures::grid(2, 2));
    mesh->addVertexRaw({0, 1, 0});
    mesh->addVertexRaw({1, 1, 0});
    const int line[] = {9, 10};
    mesh->addFaceRaw(2, line);
    mesh->setFaceFlag(3, KMElementFlag::Hidden);
    mesh->refreshMesh(All);
    for (const bool seenFromAbove : {true, false}) {
        // An orthogonal view along y. Views are left-handed: right, up and forward are as x, y and z are.
        const float turn = seenFromAbove ? 0.1f : -0.1f;
        kvm::Matrix4 view;
        std::fill_n(view.m, 16, 0.0f);
        view[0] = 0.1f; // x to the right
        view[9] = turn; // z up when seen from above
        view[6] = -turn;
        view[15] = 1.0f;
        mesh->projectVertices(view, 100, 100);
        for (const bool culling : {false, true}) {
            mesh->updateDrawn(culling);
            const auto countDrawn = [](const auto &records) {
                return std::count_if(records.begin(), records.end(), [](const auto *r) { return r->drawn; });
            };
            const bool isCulled = culling && !seenFromAbove; // the quads face up
            QCOMPARE(int(countDrawn(mesh->liveFaces())), isCulled ? 1 : 4);
            QCOMPARE(int(countDrawn(mesh->liveVertices())), isCulled ? 2 : 10);
            int edges = 0;
            for (const KMEdge *edge : mesh->edges())
                edges += edge->drawn;
            QCOMPARE(edges, isCulled ? 1 : 11);
        }
    }
}

KM_TEST(tst_KMMeshNode);

#include "tst_KMMeshNode.moc"
