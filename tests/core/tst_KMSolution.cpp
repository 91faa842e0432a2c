#include "core/KMSolution.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMUndoMacro.h"
#include "support/RecordingSession.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

class tst_KMSolution : public QObject
{
    Q_OBJECT
private slots:
    void macroCountsItsCommands();
    void updateOrder();
    void updateOncePerMacro();
    void deferredRefresh_data();
    void deferredRefresh();
    void worksWithoutAnybody();
    void currentAndPreviousNode();
    void deletedNodesAreNotCurrent();
    void currentTagGoesWithItsNode();
    void addonAnnouncesItsFirstStep_data();
    void addonAnnouncesItsFirstStep();
    void addonMayOpenABracket();
    void commandIsRemembered_data();
    void commandIsRemembered();
    void titleIsSetWhenItDiffers();
    void clearHistory();
    void autoSaveWaits_data();
    void autoSaveWaits();
    void waitingAutoSaveRespectsTheSetting();
    void waitingAutoSaveWritesNothingGivenUp();
    void autoSaveAsksOnce();
};

namespace {

void push(const char *text = "step")
{
    gSolution->push(new FakeCommand(QString::fromLatin1(text)));
}

} // namespace

void tst_KMSolution::macroCountsItsCommands()
{
    RecordingSession scene;
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    push();
    {
        const KMUndoMacro macro(QStringLiteral("five"));
        for (int i = 0; i < 5; ++i)
            push();
    }
    QCOMPARE(scene.stack().count(), 2);
    QVERIFY(gSolution->save());
    scene.stack().undo();
    // The count fell by five: it takes five single steps to be where it was.
    gSolution->countStep(+4);
    QVERIFY(gSolution->isModified());
    gSolution->countStep(+1);
    QVERIFY(!gSolution->isModified());
    gSolution->countStep(-5);
}

void tst_KMSolution::updateOrder()
{
    RecordingSession scene;
    scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *gone = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    scene.addFake(KMNodeType::ModSym, QStringLiteral("m"));
    scene.addFake(KMNodeType::PrimCube, QStringLiteral("p"));
    scene.addFake(KMNodeType::BoneContainer, QStringLiteral("c"));
    gProject->deleteNode(gone);
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    scene.tool.editing = true;
    gSolution->autoSave();
    scene.tool.editing = false;
    gSettings->showDialog = false;
    scene.window.title.clear();
    scene.takeLog();

    gSolution->push(new FakeCommand(QStringLiteral("step"), scene.log()));
    QCOMPARE(scene.takeLog(),
             (CallLog{"redo step", "refresh a0", "refresh b0", // also what the history keeps may be stale
                      "refresh p0", "refresh c0",
                      "notify a0", // but only what is in the tree tells others
                      "notify m0", "historyChanged 7", "refreshSetup", "refreshViews 31", "refreshAttributes",
                      "setDocumentTitle", "refreshViews 31", "setDocumentTitle", // by the autosave that was waiting
                      "repaintTrees"}));
    QCOMPARE(scene.format.written, QStringList{QStringLiteral("/tmp/doc.kmd")});
}

void tst_KMSolution::updateOncePerMacro()
{
    RecordingSession scene;
    scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    scene.takeLog();
    gSolution->beginMacro(QStringLiteral("outer"));
    gSolution->beginMacro(QStringLiteral("inner"));
    QCOMPARE(gSolution->macroDepth(), 2);
    push();
    gSolution->endMacro();
    push();
    QCOMPARE(scene.takeLog(), CallLog());
    gSolution->endMacro();
    QCOMPARE(gSolution->macroDepth(), 0);
    QCOMPARE(scene.takeLog().count(QStringLiteral("refresh a0")), 1);
    scene.stack().undo();
    QCOMPARE(scene.takeLog().count(QStringLiteral("refresh a0")), 1);
}

void tst_KMSolution::deferredRefresh_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<bool>("deferred");
    QTest::addColumn<QString>("edited");
    QTest::addColumn<bool>("refreshed");

    QTest::newRow("mesh, not deferred") << int(KMNodeType::Mesh) << false << "node" << true;
    QTest::newRow("mesh, nobody edits it") << int(KMNodeType::Mesh) << true << "" << true;
    QTest::newRow("mesh, edited") << int(KMNodeType::Mesh) << true << "node" << false;
    QTest::newRow("mesh, touched") << int(KMNodeType::Mesh) << true << "touched" << false;
    QTest::newRow("bones, edited") << int(KMNodeType::BoneContainer) << true << "node" << false;
    QTest::newRow("bones, nobody edits them") << int(KMNodeType::BoneContainer) << true << "" << true;
}

void tst_KMSolution::deferredRefresh()
{
    QFETCH(int, type);
    QFETCH(bool, deferred);
    QFETCH(QString, edited);
    RecordingSession scene;
    FakeNode *node = scene.addFake(type, QStringLiteral("n"));
    FakeNode *other = scene.addFake(type, QStringLiteral("o"));
    gSolution->clearHistory();
    node->refreshDeferred = deferred;
    gSolution->push(new FakeCommand(QStringLiteral("edit"), nullptr, edited == QLatin1String("node") ? node : other,
                                    edited == QLatin1String("touched") ? node : nullptr));
    scene.takeLog();
    push(); // every command of the history counts, not the last one alone
    const CallLog log = scene.takeLog();
    QTEST(log.contains(QStringLiteral("refresh n0")), "refreshed");
    QVERIFY(log.contains(QStringLiteral("refresh o0")));
}

void tst_KMSolution::worksWithoutAnybody()
{
    const KMHeadlessSession session;
    gProject->addNode(new FakeNode(KMNodeType::Mesh, QStringLiteral("a")));
    gSolution->refreshViews(31);
    gSolution->showMessage(QStringLiteral("text"), 4);
    gSolution->setProgress(QStringLiteral("50%"));
    gSolution->doCommand();
    gSolution->autoSave();
    QVERIFY(!gSolution->load(QStringLiteral("/nowhere.kmd")));
    QVERIFY(gProject->meshNodes().isEmpty());
    QVERIFY(!gSolution->isModified());
}

void tst_KMSolution::currentAndPreviousNode()
{
    QVector<KMNode *> announced; // outlives the session, which announces to its end
    RecordingSession scene;
    FakeNode *a = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *b = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    connect(gSolution, &KMSolution::currentNodeChanged, this, [&announced](KMNode *node) { announced << node; });
    gSolution->setCurrentNode(a);
    QCOMPARE(gSolution->currentNode(), a);
    QCOMPARE(gSolution->previousNode(), b);
    gSolution->setCurrentNode(a); // again: the previous one must not become the same
    QCOMPARE(gSolution->previousNode(), b);
    gSolution->setCurrentNode(nullptr);
    QVERIFY(!gSolution->currentNode());
    QCOMPARE(gSolution->previousNode(), b);
    gSolution->setCurrentNode(b);
    QVERIFY(!gSolution->previousNode());
    QCOMPARE(announced, (QVector<KMNode *>{a, nullptr, b}));
}

void tst_KMSolution::deletedNodesAreNotCurrent()
{
    RecordingSession scene;
    FakeNode *a = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *b = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    gSolution->setCurrentNode(a);
    gSolution->setCurrentNode(b);
    gSolution->setCurrentBone(a);
    gProject->deleteNode(a);
    QVERIFY(gSolution->previousNode() != a);
    QVERIFY(gSolution->currentNode() != a);
    QVERIFY(!gSolution->currentBone());
    gSolution->setCurrentNode(a);
    QVERIFY(!gSolution->currentNode());
    b->setDeleted(true);
    gSolution->setCurrentNode(b);
    QVERIFY(!gSolution->currentNode());
}

void tst_KMSolution::currentTagGoesWithItsNode()
{
    RecordingSession scene;
    FakeNode *a = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *b = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    auto *tag = new FakeTag(QStringLiteral("T"));
    a->addTag(tag);
    gSolution->setCurrentTag(tag);
    gSolution->forgetNode(b);
    QCOMPARE(gSolution->currentTag(), tag);
    a->removeTag(tag);
    delete tag;
    QVERIFY(!gSolution->currentTag());
}

void tst_KMSolution::addonAnnouncesItsFirstStep_data()
{
    QTest::addColumn<bool>("macroFirst");
    QTest::newRow("by a command") << false;
    QTest::newRow("by a macro") << true;
}

void tst_KMSolution::addonAnnouncesItsFirstStep()
{
    QFETCH(bool, macroFirst);
    RecordingSession scene;
    const QSignalSpy spy(gSolution, &KMSolution::addonFirstStack);
    push();
    QCOMPARE(spy.size(), 0);
    for (int run = 1; run <= 2; ++run) {
        gSolution->setInAddon(true);
        QCOMPARE(spy.size(), run - 1);
        if (macroFirst)
            gSolution->beginMacro(QStringLiteral("macro"));
        push();
        QCOMPARE(spy.size(), run);
        if (macroFirst)
            gSolution->endMacro();
        push();
        const KMUndoMacro macro(QStringLiteral("more"));
        QCOMPARE(spy.size(), run);
        gSolution->setInAddon(false);
    }
    push();
    QCOMPARE(spy.size(), 2);
}

void tst_KMSolution::addonMayOpenABracket()
{
    RecordingSession scene;
    connect(gSolution, &KMSolution::addonFirstStack, this, [] { gSolution->beginMacro(QStringLiteral("Run Add-on")); });
    gSolution->setInAddon(true);
    push("first");
    push("second");
    gSolution->endMacro();
    gSolution->setInAddon(false);
    QCOMPARE(scene.stack().count(), 1);
    QCOMPARE(scene.stack().command(0)->text(), QStringLiteral("Run Add-on"));
    QCOMPARE(scene.stack().command(0)->childCount(), 2);
    QCOMPARE(gSolution->history().size(), 2);
}

void tst_KMSolution::commandIsRemembered_data()
{
    QTest::addColumn<QString>("objectName");
    QTest::addColumn<bool>("hasRepeat");
    QTest::addColumn<bool>("remembered");

    QTest::newRow("command") << "SelComFillHole" << true << true;
    QTest::newRow("the repeat action itself") << "ComDoLastCommand" << true << false;
    QTest::newRow("no repeat action") << "SelComFillHole" << false << false;
}

void tst_KMSolution::commandIsRemembered()
{
    QFETCH(QString, objectName);
    QFETCH(bool, hasRepeat);
    QFETCH(bool, remembered);
    RecordingSession scene;
    QAction repeat(QStringLiteral("Repeat"), nullptr);
    QAction action(QStringLiteral("Fill Hole"), nullptr);
    action.setObjectName(objectName);
    action.setToolTip(QStringLiteral("Closes a hole"));
    scene.window.repeat = hasRepeat ? &repeat : nullptr;
    connect(&action, &QAction::triggered, gSolution, &KMSolution::doCommand);

    action.trigger();
    QCOMPARE(gSolution->lastCommand(), remembered ? &action : nullptr);
    QCOMPARE(repeat.text(), remembered ? action.text() : QStringLiteral("Repeat"));
    QCOMPARE(repeat.toolTip() == action.toolTip(), remembered);
    QCOMPARE(scene.takeLog(), CallLog{QStringLiteral("commandRun")});
    gSolution->doCommand(); // nobody sent it
    QCOMPARE(scene.takeLog(), CallLog{QStringLiteral("commandRun")});
}

void tst_KMSolution::titleIsSetWhenItDiffers()
{
    RecordingSession scene;
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    const int before = scene.window.titleChanges;
    push();
    push();
    push();
    QCOMPARE(scene.window.titleChanges, before + 1);
    scene.stack().setIndex(0);
    QCOMPARE(scene.window.titleChanges, before + 2);
}

void tst_KMSolution::clearHistory()
{
    RecordingSession scene;
    FakeNode *mesh = scene.addFake(KMNodeType::Mesh, QStringLiteral("a"));
    FakeNode *gone = scene.addFake(KMNodeType::Mesh, QStringLiteral("b"));
    const QPointer<FakeNode> deleted = gone;
    gProject->deleteNode(gone);
    gSolution->setCurrentNode(mesh);
    const QSignalSpy current(gSolution, &KMSolution::currentNodeChanged);
    scene.takeLog();

    gSolution->clearHistory();
    QCOMPARE(scene.stack().count(), 0);
    QVERIFY(gSolution->history().isEmpty());
    QVERIFY(!gSolution->currentNode());
    QCOMPARE(current.size(), 1);
    QVERIFY(!gSolution->isModified());
    QVERIFY(!scene.window.title.contains('*'));
    QCOMPARE(scene.takeLog().filter(QStringLiteral("forceRefresh")), CallLog{QStringLiteral("forceRefresh a0")});
    QVERIFY(!deleted); // nothing leads back to it
    QVERIFY(!mesh->isDeleted() && mesh->item());
    push();
    QVERIFY(gSolution->isModified());
}

void tst_KMSolution::autoSaveWaits_data()
{
    QTest::addColumn<QString>("reason");
    QTest::newRow("tool at work") << "tool";
    QTest::newRow("open macro") << "macro";
    QTest::newRow("busy") << "busy";
}

void tst_KMSolution::autoSaveWaits()
{
    QFETCH(QString, reason);
    RecordingSession scene;
    gSettings->showDialog = false;
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    push();
    if (reason == QLatin1String("macro"))
        gSolution->beginMacro(QStringLiteral("macro"));
    scene.tool.editing = reason == QLatin1String("tool");
    gSolution->setBusy(reason == QLatin1String("busy"));
    gSolution->autoSave();
    QVERIFY(scene.format.written.isEmpty());

    scene.tool.editing = false;
    gSolution->setBusy(false);
    if (reason == QLatin1String("macro")) {
        push();
        QVERIFY(scene.format.written.isEmpty());
        gSolution->endMacro();
    } else {
        push();
    }
    QCOMPARE(scene.format.written.size(), 1); // postponed, not dropped
    QVERIFY(!gSolution->isModified());
    push();
    QCOMPARE(scene.format.written.size(), 1); // and done with
}

void tst_KMSolution::waitingAutoSaveRespectsTheSetting()
{
    RecordingSession scene;
    gSettings->showDialog = false;
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    gSolution->setBusy(true);
    gSolution->autoSave();
    gSolution->setBusy(false);
    gSettings->enableAutoSave = false; // switched off while it was waiting
    push();
    QVERIFY(scene.format.written.isEmpty());
}

void tst_KMSolution::waitingAutoSaveWritesNothingGivenUp()
{
    RecordingSession scene;
    gSettings->showDialog = false;
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    push();
    gSolution->setBusy(true);
    gSolution->autoSave();
    gSolution->setBusy(false);
    gSolution->newDocument(); // the user chose to discard the changes
    QVERIFY(scene.format.written.isEmpty());
}

void tst_KMSolution::autoSaveAsksOnce()
{
    RecordingSession scene;
    ScriptedPrompt prompt;
    const KMPromptScope scope(&prompt);
    prompt.buttons = {QMessageBox::Cancel, QMessageBox::Save};
    prompt.onMessage = [] { gSolution->autoSave(); }; // the timer goes on while the box is up
    push();
    gSolution->autoSave();
    QCOMPARE(prompt.messages.size(), 0); // untitled
    gSolution->setFileName(QStringLiteral("/tmp/doc.kmd"));
    gSolution->autoSave();
    QCOMPARE(prompt.messages.size(), 1);
    QCOMPARE(prompt.messages[0].title, QStringLiteral("AutoSave"));
    QVERIFY(scene.format.written.isEmpty() && gSolution->isModified());
    gSolution->autoSave();
    QCOMPARE(prompt.messages.size(), 2);
    QCOMPARE(scene.format.written.size(), 1);
    gSolution->autoSave();
    QCOMPARE(prompt.messages.size(), 2); // nothing to save any more
}

KM_TEST(tst_KMSolution);

#include "tst_KMSolution.moc"
