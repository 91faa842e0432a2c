#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMShelfCommands.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "support/LiveObjects.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QTest>

namespace {

void pushEdit()
{
    static int edits = 0;
    gSolution->push(new reinfoNodeCommand(QString::number(++edits)));
}

void pushMacro(int edits)
{
    const KMUndoMacro macro(QStringLiteral("macro"));
    for (int i = 0; i < edits; ++i)
        pushEdit();
}

/// Plays steps: e an edit, m a macro of five, 0 an empty macro, u undo, r redo, s save.
void play(const QString &steps)
{
    for (const QChar step : steps) {
        switch (step.toLatin1()) {
        case 'e':
            pushEdit();
            break;
        case 'm':
            pushMacro(5);
            break;
        case '0':
            pushMacro(0);
            break;
        case 'u':
            gSolution->undoStack()->undo();
            break;
        case 'r':
            gSolution->undoStack()->redo();
            break;
        case 's':
            gSolution->markSaved();
            break;
        }
    }
}

/// Steps that take something out of the document or bring something in, and leave it as applied or undone.
struct LifeRow
{
    const char *name;
    void (*play)(SmallScene &scene);
    int keptAlive; ///< by the history alone
};

KMNullNode *listedNull()
{
    auto *node = new Counted<KMNullNode>;
    gProject->addRaw(node);
    return node;
}

void undo()
{
    gSolution->undoStack()->undo();
}

const LifeRow lifeRows[] = {
    {"added node", [](SmallScene &) { gProject->addNode(new Counted<KMNullNode>); }, 0},
    {"added node, undone",
     [](SmallScene &) {
         gProject->addNode(new Counted<KMNullNode>);
         undo();
     },
     1},
    {"inserted node, undone",
     [](SmallScene &s) {
         gSolution->push(new insertNodeCommand(listedNull(), s.b));
         undo();
     },
     1},
    {"deleted subtree with its tags", [](SmallScene &s) { gProject->deleteNode(s.a); }, 6},
    {"deleted subtree, undone",
     [](SmallScene &s) {
         gProject->deleteNode(s.a);
         undo();
     },
     0},
    {"child deleted before its parent",
     [](SmallScene &s) {
         gProject->deleteNode(s.c);
         gProject->deleteNode(s.a);
     },
     6},
    {"changed node", [](SmallScene &s) { gSolution->push(new changeNodeCommand(listedNull(), s.e)); }, 2},
    {"changed node, undone",
     [](SmallScene &s) {
         gSolution->push(new changeNodeCommand(listedNull(), s.e));
         undo();
     },
     1},
    {"changed node, then deleted",
     [](SmallScene &s) {
         KMNullNode *newcomer = listedNull();
         gSolution->push(new changeNodeCommand(newcomer, s.e));
         gProject->deleteNode(newcomer);
     },
     3},
    {"added tag, undone",
     [](SmallScene &s) {
         gSolution->push(new addTagCommand(s.c, new Counted<TestTag>));
         undo();
     },
     1},
    {"deleted tag", [](SmallScene &s) { gSolution->push(new deleteTagCommand(s.a, s.first)); }, 1},
    {"deleted tag of a deleted node",
     [](SmallScene &s) {
         gSolution->push(new deleteTagCommand(s.e, s.other));
         gProject->deleteNode(s.e);
     },
     2},
    {"tag of an added node, both undone",
     [](SmallScene &) {
         KMNullNode *node = listedNull();
         gSolution->push(new addNodeCommand(node));
         gSolution->push(new addTagCommand(node, new Counted<TestTag>));
         undo();
         undo();
     },
     2},
    {"deleted tag of an added node, all undone",
     [](SmallScene &) {
         KMNullNode *node = listedNull();
         auto *tag = new Counted<TestTag>;
         gSolution->push(new addNodeCommand(node));
         gSolution->push(new addTagCommand(node, tag));
         gSolution->push(new deleteTagCommand(node, tag));
         gSolution->undoStack()->setIndex(0);
     },
     2},
    {"tag moved off a node that is deleted",
     [](SmallScene &s) {
         gSolution->push(new moveTagCommand(s.other, s.a));
         gProject->deleteNode(s.e);
     },
     1},
    {"deleted shader", [](SmallScene &s) { gProject->deleteNode(s.shaders[0]); }, 1},
    {"added shader, undone",
     [](SmallScene &) {
         gProject->addNode(new Counted<KMBasicShaderNode>);
         undo();
     },
     1},
    {"deleted texture", [](SmallScene &s) { gProject->deleteNode(s.file); }, 1},
};

} // namespace

class tst_UndoHistory : public QObject
{
    Q_OBJECT
private slots:
    void modified_data();
    void modified();
    void commandsGoWithTheirNodes_data();
    void commandsGoWithTheirNodes();
    void limitDropsTheOldest();
    void tagKeepsItsPlaceWhenADeletionFallsOff();
    void projectMayGoFirst();
    void deepTree();
};

void tst_UndoHistory::modified_data()
{
    QTest::addColumn<QString>("steps");
    QTest::addColumn<bool>("modified");

    QTest::newRow("untouched") << "" << false;
    QTest::newRow("edited") << "e" << true;
    QTest::newRow("undone") << "eu" << false;
    QTest::newRow("undone and redone") << "eur" << true;
    QTest::newRow("saved") << "es" << false;
    QTest::newRow("saved, undone") << "esu" << true;
    QTest::newRow("saved, undone, redone") << "esur" << false;
    QTest::newRow("saved, undone, edited anew") << "esue" << true;
    QTest::newRow("nothing leads back to a cut-off save") << "eesuueeu" << true;
    QTest::newRow("macro counts its five commands") << "msu" << true;
    QTest::newRow("macro undone at once") << "mu" << false;
    QTest::newRow("macro redone at once") << "msur" << false;
    QTest::newRow("five edits aren't the macro undone before them") << "msueeeee" << true;
    QTest::newRow("macro over a cut-off save") << "eeeeesuuuuum" << true;
    QTest::newRow("empty macro over a cut-off save") << "esu0e" << true;
    QTest::newRow("empty macro") << "es0" << false;
    QTest::newRow("save in the undone part, more undone") << "eeeusuur" << true;
    QTest::newRow("save in the undone part, back on it") << "eeeusuurr" << false;
    QTest::newRow("saved again after a cut-off") << "esues" << false;
}

void tst_UndoHistory::modified()
{
    QFETCH(const QString, steps);
    QFETCH(const bool, modified);
    const SmallScene scene;
    play(steps);
    QCOMPARE(gSolution->isModified(), modified);
    QCOMPARE(gSolution->titleText().endsWith(QStringLiteral("*]")), modified);
}

void tst_UndoHistory::commandsGoWithTheirNodes_data()
{
    QTest::addColumn<int>("index");
    QTest::addColumn<QString>("end");
    for (int i = 0; i < int(std::size(lifeRows)); ++i) {
        for (const char *end : {"clear", "new document", "end"})
            QTest::addRow("%s, %s", lifeRows[i].name, end) << i << QString::fromLatin1(end);
    }
}

void tst_UndoHistory::commandsGoWithTheirNodes()
{
    QFETCH(const int, index);
    QFETCH(const QString, end);
    {
        SmallScene scene;
        lifeRows[index].play(scene);
        const int alive = LiveObjects::count();
        if (end == QLatin1String("clear")) {
            const QString document = scene.dump.text();
            gSolution->clearHistory();
            QCOMPARE(alive - LiveObjects::count(), lifeRows[index].keptAlive);
            QCOMPARE(scene.dump.text(), document);
        } else if (end == QLatin1String("new document")) {
            gSolution->newDocument();
            QCOMPARE(LiveObjects::count(), 0);
        }
    }
    QCOMPARE(LiveObjects::count(), 0);
}

void tst_UndoHistory::limitDropsTheOldest()
{
    const SmallScene scene(3);
    const int alive = LiveObjects::count();
    gProject->deleteNode(scene.a);
    gSolution->push(new deleteTagCommand(scene.e, scene.other));
    pushEdit();
    QCOMPARE(LiveObjects::count(), alive);
    pushEdit();
    QCOMPARE(LiveObjects::count(), alive - 6); // A, B, C, D and the two tags of A
    QCOMPARE(gProject->nullNodes().size(), 1);
    pushEdit();
    QCOMPARE(LiveObjects::count(), alive - 7);
    QCOMPARE(scene.e->tagCount(), 0);
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(SmallScene::treeText(), QStringLiteral("E"));
}

/// What is dropped at the limit shortens the tag list under the commands that are still there.
void tst_UndoHistory::tagKeepsItsPlaceWhenADeletionFallsOff()
{
    SmallScene scene(3);
    auto *third = new TestTag(QStringLiteral("third"));
    scene.a->addTagKeepName(third);
    gSolution->push(new deleteTagCommand(scene.a, scene.first));
    const QString before = scene.dump.text();
    gSolution->push(new moveTagCommand(scene.second, scene.e));
    gSolution->push(new addTagCommand(scene.a, new TestTag, 1));
    const QString after = scene.dump.text();
    pushEdit();
    undo();
    QCOMPARE(scene.a->tagCount(), 2); // the deletion is gone for good
    QCOMPARE(scene.dump.text().section('\n', 1), after.section('\n', 1));
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(scene.dump.text().section('\n', 1), before.section('\n', 1));
    gSolution->undoStack()->setIndex(2);
    QCOMPARE(scene.dump.text().section('\n', 1), after.section('\n', 1));
}

void tst_UndoHistory::projectMayGoFirst()
{
    {
        QUndoStack stack;
        KMSolution solution;
        gSolution = &solution;
        gProject = new KMProject;
        solution.setUndoStack(&stack);
        solution.setProject(gProject);
        auto *kept = new Counted<KMNullNode>;
        auto *tag = new Counted<TestTag>;
        gProject->addNode(kept);
        gProject->addNode(new Counted<KMNullNode>);
        gSolution->push(new addTagCommand(kept, tag));
        gSolution->push(new deleteTagCommand(kept, tag));
        gProject->deleteNode(kept);
        solution.setProject(nullptr);
        delete gProject;
        gProject = nullptr;
        stack.clear();
    }
    QCOMPARE(LiveObjects::count(), 0);
}

void tst_UndoHistory::deepTree()
{
    constexpr int depth = 2000;
    SmallScene scene;
    KMNullNode *parent = scene.e;
    for (int i = 0; i < depth; ++i) {
        auto *node = listedNull();
        gSolution->push(new insertNodeCommand(node, parent, -1, KMRowFocus::Keep));
        parent = node;
    }
    gSolution->clearHistory();
    const int alive = LiveObjects::count();
    const QString before = scene.dump.text();
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.c, scene.e));
    gProject->deleteNode(scene.e);
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(scene.dump.text(), before);
    gSolution->undoStack()->setIndex(2);
    gSolution->clearHistory();
    QCOMPARE(LiveObjects::count(), alive - depth - 2); // E and its tag too
}

KM_TEST(tst_UndoHistory);

#include "tst_UndoHistory.moc"
