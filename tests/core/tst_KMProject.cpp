#include "core/KMProject.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMBluePrint.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProcTextureNode.h"
#include "core/KMSolution.h"
#include "core/KMValueNodeContainer.h"
#include "support/RecordingSession.h"
#include "support/TestRegistry.h"

#include <QPointer>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QSet>
#include <QSignalSpy>
#include <QTest>

class tst_KMProject : public QObject
{
    Q_OBJECT
private slots:
    void uniqueNames_data();
    void uniqueNames();
    void namesOfDeletedNodesAreFree();
    void namesAreUniqueInTheirFamilyOnly();
    void numbersEnd();
    void derivedListsMatchAWalk();
    void derivedListsHoldWhatIsEvaluated();
    void modifiersAreBuiltAgain();
    void deleteNodeSteps();
    void deletingAShaderShiftsReferences_data();
    void deletingAShaderShiftsReferences();
    void deletedUsersKeepTheirShaders();
    void deletingATextureShiftsReferences();
    void textureFilesAreShared();
    void clearEmptiesEverything();
    void nothingRefersToWhatIsBeingCleared();
    void cameras();
};

namespace {

QString namesOf(const QList<KMNode *> &nodes)
{
    QStringList names;
    for (KMNode *node : nodes)
        names << nodeAs<KMContainerNode>(node)->name();
    return names.join(QLatin1Char(' '));
}

QString topCommand(const QUndoStack &stack)
{
    return stack.count() ? stack.command(stack.count() - 1)->text() : QString();
}

QStringList stepsOfTopCommand(const QUndoStack &stack)
{
    QStringList texts;
    const QUndoCommand *macro = stack.command(stack.count() - 1);
    for (int i = 0; i < macro->childCount(); ++i)
        texts << macro->child(i)->text();
    return texts;
}

KMBasicShaderNode *addShader(const char *name)
{
    auto *shader = new KMBasicShaderNode;
    shader->setName(QString::fromLatin1(name));
    gProject->addNode(shader);
    return shader;
}

void move(FakeNode *node, KMContainerNode *parent)
{
    gSolution->push(
        new moveNodeCommand(parent ? moveNodeCommand::LastChild : moveNodeCommand::LastTopLevel, parent, node));
}

} // namespace

void tst_KMProject::uniqueNames_data()
{
    QTest::addColumn<QStringList>("taken");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("result");

    QTest::newRow("first") << QStringList{} << "Mesh"
                           << "Mesh0";
    QTest::newRow("digits are stripped") << QStringList{"Mesh7", "Mesh12"} << "Mesh12"
                                         << "Mesh0";
    QTest::newRow("digits further in stay") << QStringList{"a1b0"} << "a1b23"
                                            << "a1b1";
    QTest::newRow("placeholder") << QStringList{"%10"} << "%1"
                                 << "%0";
    QTest::newRow("Japanese") << QStringList{QString::fromUtf8("腕0")} << QString::fromUtf8("腕")
                              << QString::fromUtf8("腕1");
}

void tst_KMProject::uniqueNames()
{
    QFETCH(QStringList, taken);
    QFETCH(QString, name);
    QFETCH(QString, result);
    const int types[] = {KMNodeType::Null,   KMNodeType::Mesh,     KMNodeType::BluePrint,
                         KMNodeType::ModFFD, KMNodeType::PrimCube, KMNodeType::BoneContainer};
    for (const int type : types) {
        RecordingSession scene;
        for (const QString &other : taken)
            scene.addFake(type, QStringLiteral("x"))->setName(other); // as a rename by the user
        QCOMPARE(scene.addFake(type, name)->name(), result);
    }
}

void tst_KMProject::namesOfDeletedNodesAreFree()
{
    for (const int type : {KMNodeType::Null, KMNodeType::Mesh, KMNodeType::ModSdv, KMNodeType::BoneContainer}) {
        RecordingSession scene;
        FakeNode *first = scene.addFake(type, QStringLiteral("N"));
        gProject->deleteNode(first);
        QCOMPARE(scene.addFake(type, QStringLiteral("N"))->name(), QStringLiteral("N0"));
        QCOMPARE(first->name(), QStringLiteral("N0"));
    }
}

void tst_KMProject::namesAreUniqueInTheirFamilyOnly()
{
    RecordingSession scene;
    const int families[] = {KMNodeType::Null,   KMNodeType::Mesh,      KMNodeType::BluePrint,
                            KMNodeType::ModSym, KMNodeType::PrimPlane, KMNodeType::BoneContainer};
    for (const int type : families)
        QCOMPARE(scene.addFake(type, QStringLiteral("N"))->name(), QStringLiteral("N0"));
    // Within a family the class makes no difference.
    QCOMPARE(scene.addFake(KMNodeType::ModPipe, QStringLiteral("N"))->name(), QStringLiteral("N1"));
    QCOMPARE(scene.addFake(KMNodeType::PrimCube, QStringLiteral("N"))->name(), QStringLiteral("N1"));
    QCOMPARE(scene.addFake(KMNodeType::BoneContainer, QStringLiteral("N"))->name(), QStringLiteral("N1"));

    auto *computed = new KMProcTextureNode;
    gProject->addNode(computed);
    QCOMPARE(computed->name(), QStringLiteral("PTexture0"));
    auto *file = new KMFileTextureNode(QStringLiteral("skin2"));
    gProject->addNode(file);
    QCOMPARE(file->name(), QStringLiteral("skin2"));
    QCOMPARE(addShader("Shader7")->name(), QStringLiteral("Shader7"));
}

void tst_KMProject::numbersEnd()
{
    RecordingSession scene;
    for (int i = 0; i < 1000; ++i)
        gProject->addToScene(new FakeNode(KMNodeType::Mesh, QStringLiteral("Mesh")));
    QCOMPARE(nodeAs<KMContainerNode>(gProject->meshNodes().nodes().last())->name(), QStringLiteral("Mesh999"));
    QCOMPARE(scene.addFake(KMNodeType::Mesh, QStringLiteral("Mesh"))->name(), QStringLiteral("Mesh999"));
}

/// Adds, moves, deletes and travels in the history at random. Nulls keep the members of a family far apart at times,
/// and subtrees grow large enough to be listed anew as a whole.
void tst_KMProject::derivedListsMatchAWalk()
{
    const int types[] = {KMNodeType::Null,     KMNodeType::Null,          KMNodeType::Null, KMNodeType::Mesh,
                         KMNodeType::PrimCube, KMNodeType::BoneContainer, KMNodeType::Mesh, KMNodeType::ModSym};
    RecordingSession scene;
    QRandomGenerator random(20);
    const auto below = [&random](int limit) { return limit > 0 ? int(random.bounded(limit)) : 0; };
    for (int step = 0; step < 1500; ++step) {
        const QList<QTreeWidgetItem *> rows = KMTreeWidget::flatten(gProject->tree());
        const auto anyNode = [&] { return rows.isEmpty() ? nullptr : KMTreeWidget::nodeOf(rows[below(rows.size())]); };
        KMContainerNode *node = anyNode();
        KMContainerNode *target = anyNode();
        const int dice = below(20);
        if (dice < 8 || !node) {
            auto *newcomer = new FakeNode(types[step / 40 % 4 ? below(8) : 0], QStringLiteral("n"), scene.log());
            gProject->addRaw(newcomer);
            KMContainerNode *parent = below(3) ? target : nullptr;
            const int siblings = parent ? parent->item()->childCount() : gProject->tree()->topLevelItemCount();
            gSolution->push(new insertNodeCommand(newcomer, parent, below(siblings + 1)));
        } else if (dice < 14) {
            const auto mode = moveNodeCommand::Mode(below(4));
            if (canMove(node, mode == moveNodeCommand::LastTopLevel ? nullptr : target) && node != target)
                gSolution->push(new moveNodeCommand(mode, target, node));
        } else if (dice < 16) {
            gProject->deleteNode(node);
        } else {
            scene.stack().setIndex(std::max(0, scene.stack().index() + below(7) - 3));
        }
        QList<KMNode *> walked[4];
        for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
            const int type = KMTreeWidget::nodeOf(row)->type();
            const bool isOf[] = {type == KMNodeType::Mesh, isModifier(type), isPrimitive(type), isCtrl(type)};
            for (int list = 0; list < 4; ++list)
                walked[list] << (isOf[list] ? QList<KMNode *>{KMTreeWidget::nodeOf(row)} : QList<KMNode *>());
        }
        const QList<KMNode *> kept[] = {gProject->meshesInTree().nodes(), gProject->modifiersInTree().nodes(),
                                        gProject->primitivesInTree().nodes(), gProject->ctrlsInTree().nodes()};
        for (int list = 0; list < 4; ++list)
            QVERIFY2(kept[list] == walked[list], qPrintable(QStringLiteral("list %1, step %2").arg(list).arg(step)));
        if (step % 50 == 0)
            QCOMPARE(gProject->renderMeshes().nodes(), walked[0]);
    }
}

void tst_KMProject::derivedListsHoldWhatIsEvaluated()
{
    RecordingSession scene;
    FakeNode ofModifier(KMNodeType::Mesh, QStringLiteral("ofModifier"));
    FakeNode ofPrimitive(KMNodeType::Mesh, QStringLiteral("ofPrimitive"));
    scene.addFake(KMNodeType::PrimCube, QStringLiteral("p"))->evaluated = &ofPrimitive;
    FakeNode *mesh = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *modifier = scene.addFake(KMNodeType::ModSym, QStringLiteral("m"));
    scene.addFake(KMNodeType::ModSdv, QStringLiteral("n")); // has made nothing yet
    modifier->evaluated = &ofModifier;
    gProject->rebuildDerivedLists();
    QCOMPARE(namesOf(gProject->renderMeshes().nodes()), QStringLiteral("ofPrimitive a0 ofModifier"));
    QCOMPARE(namesOf(gProject->meshesInTree().nodes()), QStringLiteral("a0"));
    move(mesh, nullptr);
    QCOMPARE(namesOf(gProject->renderMeshes().nodes()), QStringLiteral("ofPrimitive ofModifier a0"));
}

void tst_KMProject::modifiersAreBuiltAgain()
{
    RecordingSession scene;
    FakeNode *first = scene.addFake(KMNodeType::Mesh, QStringLiteral("m"));
    FakeNode *second = scene.addFake(KMNodeType::Mesh, QStringLiteral("m"));
    move(first, second);
    scene.takeLog();

    const int steps = scene.stack().count();
    gProject->checkModifiers();
    QCOMPARE(scene.takeLog(), (CallLog{"isChainStale m1", "isChainStale m0"}));
    QCOMPARE(scene.stack().count(), steps);

    second->hasOtherChain = true; // the first one asked: the others are asked all the same
    gProject->addNode(new FakeNode(KMNodeType::ModSym, QStringLiteral("a")));
    QCOMPARE(scene.takeLog().filter(QRegularExpression(QStringLiteral("^(isChainStale|redo)"))),
             (CallLog{"isChainStale m1", "redo build m1", "isChainStale m0"}));
    QCOMPARE(stepsOfTopCommand(scene.stack()), (QStringList{"Add Node", "build m1"}));
}

void tst_KMProject::deleteNodeSteps()
{
    RecordingSession scene;
    FakeNode *group = scene.addFake(KMNodeType::Null, QStringLiteral("g"));
    FakeNode *mesh = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    scene.addFake(KMNodeType::Mesh, QStringLiteral("m"));
    FakeNode other(KMNodeType::Mesh, QStringLiteral("other"));
    auto *morphs = new FakeTag(QStringLiteral("Morphs"), KMNodeType::TagMorph);
    FakeNode smile(KMNodeType::Morph, QStringLiteral("smile"));
    FakeNode frown(KMNodeType::Morph, QStringLiteral("frown"));
    morphs->parts = {&smile, &frown};
    mesh->addTag(morphs);
    move(mesh, group);
    gSolution->setCurrentTag(morphs);
    scene.blocks.nodesWithBlock = {mesh, &smile, &other};
    scene.takeLog();

    gProject->deleteNode(group);
    QCOMPARE(scene.takeLog().mid(0, 4),
             (CallLog{"redo delete block", "pushDelete g0", "isChainStale m0", "redo delete block"}));
    QCOMPARE(topCommand(scene.stack()), QStringLiteral("Delete Node"));
    QCOMPARE(stepsOfTopCommand(scene.stack()), (QStringList{"delete block", "Delete Node", "delete block"}));
    QCOMPARE(scene.blocks.nodesWithBlock, QSet<const KMNode *>{&other});
    QVERIFY(mesh->isDeleted() && group->isDeleted());
    QVERIFY(!gSolution->currentNode() && !gSolution->currentTag());

    scene.stack().undo();
    QVERIFY(!mesh->isDeleted() && !group->isDeleted());
    QCOMPARE(KMTreeWidget::parentNodeOf(mesh), group);
}

void tst_KMProject::deletingAShaderShiftsReferences_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QVector<int>>("after");

    QTest::newRow("first") << 0 << QVector<int>{-3, -1, -1, 0, 1};
    QTest::newRow("middle") << 1 << QVector<int>{-3, -1, 0, -1, 1};
    QTest::newRow("last") << 2 << QVector<int>{-3, -1, 0, 1, -1};
}

void tst_KMProject::deletingAShaderShiftsReferences()
{
    QFETCH(int, index);
    QFETCH(QVector<int>, after);
    RecordingSession scene;
    KMBasicShaderNode *const shaders[] = {addShader("a"), addShader("b"), addShader("c")};
    FakeNode *mesh = scene.addFake(KMNodeType::Mesh, QStringLiteral("mesh"));
    FakeNode *primitive = scene.addFake(KMNodeType::PrimCube, QStringLiteral("cube"));
    const QVector<int> before{-3, -1, 0, 1, 2};
    mesh->faceShaders = before;
    primitive->faceShaders = {index};
    gSolution->setCurrentShader(shaders[index]);
    const QSignalSpy changed(gProject, &KMProject::shadersChanged);

    gProject->deleteNode(shaders[index]);
    QCOMPARE(mesh->faceShaders, after);
    QCOMPARE(primitive->faceShaders, QVector<int>{-1});
    QVERIFY(!gProject->shaders().contains(shaders[index]));
    QVERIFY(gProject->allShaders().contains(shaders[index]));
    QVERIFY(shaders[index]->isDeleted());
    QVERIFY(!gSolution->currentShader());
    QVERIFY(!changed.isEmpty());
    QCOMPARE(topCommand(scene.stack()), QStringLiteral("Delete Node"));
    QCOMPARE(stepsOfTopCommand(scene.stack()).last(), QStringLiteral("Delete ShaderNode"));

    scene.stack().undo();
    QCOMPARE(mesh->faceShaders, before);
    QCOMPARE(primitive->faceShaders, QVector<int>{index});
    QCOMPARE(namesOf(gProject->shaders().nodes()), QStringLiteral("a b c"));
    scene.stack().redo();
    QCOMPARE(mesh->faceShaders, after);
}

void tst_KMProject::deletedUsersKeepTheirShaders()
{
    RecordingSession scene;
    KMBasicShaderNode *skin = addShader("a");
    auto *texture = new KMProcTextureNode;
    gProject->addNode(texture);
    KMBasicShaderNode *user = addShader("b");
    KMBasicShader values = user->values();
    values.textures[KMBasicShader::Toon] = 0;
    user->setValues(values);
    FakeNode *mesh = scene.addFake(KMNodeType::Mesh, QStringLiteral("mesh"));
    mesh->faceShaders = {0, 1};

    gProject->deleteNode(mesh);
    gProject->deleteNode(user);
    gProject->deleteNode(skin);
    gProject->deleteNode(texture);
    QCOMPARE(mesh->faceShaders, (QVector<int>{0, 1}));
    QCOMPARE(user->values().textures[KMBasicShader::Toon], 0);
    // No step may stand in the history that edits what an older step destroys when it falls off its end.
    for (int i = scene.stack().count() - 2; i < scene.stack().count(); ++i)
        QCOMPARE(scene.stack().command(i)->childCount(), 1);
}

void tst_KMProject::deletingATextureShiftsReferences()
{
    RecordingSession scene;
    KMTextureNode *textures[3];
    for (KMTextureNode *&texture : textures)
        gProject->addNode(texture = new KMProcTextureNode);
    KMBasicShaderNode *shader = addShader("a");
    KMBasicShaderNode *other = addShader("b");
    gProject->addNode(new KMPbrShaderNode);
    KMBasicShader values = shader->values();
    values.textures = {0, 1, 2, -1, 1, 7};
    shader->setValues(values);
    auto *bluePrint = new KMBluePrint;
    bluePrint->setValues({0, 2, 0, 0, 1.0f});
    gProject->addNode(bluePrint);
    gSolution->setCurrentTexture(textures[1]);

    gProject->deleteNode(textures[1]);
    QCOMPARE(bluePrint->values().texture, 1);
    using Slots = std::array<int, KMBasicShader::TextureSlotCount>;
    QVERIFY(shader->values().textures == (Slots{0, -1, 1, -1, -1, 6}));
    QVERIFY(other->values() == KMBasicShader());
    QCOMPARE(gProject->textures().nodes(), (QList<KMNode *>{textures[0], textures[2]}));
    QVERIFY(!gSolution->currentTexture());
    QCOMPARE(stepsOfTopCommand(scene.stack()),
             (QStringList{"Edit BasicShaderNode", "Assign Texture", "Delete TextureNode"}));
    scene.stack().undo();
    QCOMPARE(bluePrint->values().texture, 2);
    QVERIFY(shader->values() == values);
    QCOMPARE(gProject->textures().nodes(), (QList<KMNode *>{textures[0], textures[1], textures[2]}));
}

void tst_KMProject::textureFilesAreShared()
{
    RecordingSession scene;
    KMFileTextureNode *skin = gProject->addTextureFile(QStringLiteral("tex/skin.png"));
    QCOMPARE(gProject->addTextureFile(QStringLiteral("tex/skin.png")), skin);
    QVERIFY(gProject->addTextureFile(QStringLiteral("tex/Skin.png")) != skin);
    QCOMPARE(gProject->textures().size(), 2);
    gProject->deleteNode(skin);
    QVERIFY(gProject->addTextureFile(QStringLiteral("tex/skin.png")) != skin); // a deleted one doesn't count
}

void tst_KMProject::clearEmptiesEverything()
{
    RecordingSession scene;
    QList<QPointer<KMNode>> nodes;
    const int types[] = {KMNodeType::Mesh,          KMNodeType::Null,      KMNodeType::ModSdv, KMNodeType::PrimCube,
                         KMNodeType::BoneContainer, KMNodeType::BluePrint, KMNodeType::Display};
    for (const int type : types)
        nodes << scene.addFake(type, QStringLiteral("n"));
    nodes << addShader("s") << gProject->addTextureFile(QStringLiteral("f.png"));
    gProject->addNode(new KMFloatNodeContainer);
    nodes << gProject->floatNodes().first();
    gProject->setName(QStringLiteral("Miku"));
    gProject->setInformation(QStringLiteral("text"));
    gProject->setTextInfo(3, QStringLiteral("three"));
    gProject->setCurrentFrame(12);
    gSolution->clearHistory();
    const QSignalSpy shaders(gProject, &KMProject::shadersChanged);

    gProject->clear();
    for (const QPointer<KMNode> &node : nodes)
        QVERIFY(!node);
    QVERIFY(gProject->allNodes().isEmpty() && gProject->meshNodes().isEmpty() && gProject->renderMeshes().isEmpty());
    QVERIFY(gProject->shaders().isEmpty() && gProject->allShaders().isEmpty() && gProject->textures().isEmpty());
    QVERIFY(gProject->modifiersInTree().isEmpty() && gProject->displayNodes().isEmpty());
    QCOMPARE(gProject->tree()->topLevelItemCount(), 0);
    QCOMPARE(gProject->defaultShaders().size(), 9);
    QCOMPARE(gProject->name(), QStringLiteral("unnamed Project"));
    QCOMPARE(gProject->information(), QStringLiteral("information"));
    QCOMPARE(gProject->textInfo(3), QString());
    QCOMPARE(gProject->currentFrame(), 0);
    QVERIFY(!gProject->isDestroying());
    QCOMPARE(shaders.size(), 1);
    QCOMPARE(scene.addFake(KMNodeType::Mesh, QStringLiteral("n"))->name(), QStringLiteral("n0"));
}

/// Who hears that nothing is current any more may look at the whole scene.
void tst_KMProject::nothingRefersToWhatIsBeingCleared()
{
    int seen = -1; // these outlive the session, which announces to its end
    bool destroying = false;
    RecordingSession scene;
    scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *second = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    gSolution->clearHistory();
    gProject->tree()->setCurrentItem(nullptr);
    gSolution->setCurrentNode(second);
    gSolution->setCurrentShader(gProject->defaultShaders().first());

    connect(gSolution, &KMSolution::currentNodeChanged, this, [&] {
        seen = gProject->meshesInTree().size() + gProject->meshNodes().size() + gProject->renderMeshes().size();
        destroying = gProject->isDestroying();
    });
    gProject->clear();
    QCOMPARE(seen, 0);
    QVERIFY(destroying);
    QVERIFY(!gSolution->currentNode() && !gSolution->previousNode());
}

void tst_KMProject::cameras()
{
    const RecordingSession scene;
    for (const int id : {4, 0}) {
        auto *camera = new FakeNode(KMNodeType::Camera, QString::number(id));
        camera->setIndex(id);
        gProject->addCamera(camera);
    }
    QCOMPARE(gProject->cameraById(0)->name(), QStringLiteral("0"));
    QCOMPARE(gProject->cameraById(4)->name(), QStringLiteral("4"));
    QVERIFY(!gProject->cameraById(1));
    QCOMPARE(gSolution->undoStack()->count(), 0);
    gProject->clear(); // the views keep looking through them
    QCOMPARE(gProject->cameras().size(), 2);
}

KM_TEST(tst_KMProject);

#include "tst_KMProject.moc"
