#include "core/KMBlockModel.h"
#include "core/KMBluePrint.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMShelfCommands.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTransformCommands.h"
#include "core/KMValueCommands.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "support/CommandProof.h"
#include "support/LiveObjects.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDoubleSpinBox>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTest>

#include <memory>

namespace {

KMNullNode *listedNull()
{
    auto *node = new Counted<KMNullNode>;
    gProject->addRaw(node);
    return node;
}

/// Notes the titles of blocks, as the schematic would show them.
class BlockTitles : public KMBlockModel
{
public:
    void pushAddBlock(KMNode *) override {}
    void pushDeleteBlock(KMNode *) override {}
    void retitle(KMNode *node, const QString &title) override { titles[node] = title; }

    QHash<KMNode *, QString> titles;
};

} // namespace

Q_DECLARE_METATYPE(QTreeWidgetItem *)
Q_DECLARE_METATYPE(moveNodeCommand::Mode)

class tst_KMCommands : public QObject
{
    Q_OBJECT
private slots:
    void bluePrintProvesItself();
    void move_data();
    void move();
    void moveIntoItselfIsRefused();
    void movedRowStaysCurrent_data();
    void movedRowStaysCurrent();
    void deleteComesBackUnderMovedParent();
    void changeKeepsTheRow();
    void renamesReachTheSchematic();
    void commandsDontPassForTheUsersClicks();
    void addedTagsAreNumberedOnce();
    void tagMovesBetweenLiveTags_data();
    void tagMovesBetweenLiveTags();
    void currentTagIsForgotten_data();
    void currentTagIsForgotten();
    void editorShowsTheValue();
    void valuesTravelOnBothWays();
};

void tst_KMCommands::bluePrintProvesItself()
{
    SmallScene scene;
    auto *bluePrint = new KMBluePrint;
    gProject->addToScene(bluePrint);
    const KMBluePrintValues values{KMBluePrintValues::FixedOnScreen, 1, 1, KMBluePrintValues::Multiply, 0.3f};
    const QString failure = proofFailure(scene.dump, [&] { return new blueprintSetParamCommand(bluePrint, values); });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
    QCOMPARE(scene.session.stack().undoText(), QStringLiteral("Assign Texture"));
}

void tst_KMCommands::move_data()
{
    QTest::addColumn<moveNodeCommand::Mode>("mode");
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QString>("expected");

    using Move = moveNodeCommand;
    const auto row = [](const char *name, moveNodeCommand::Mode mode, const char *target, const char *source,
                        const char *expected) {
        QTest::newRow(name) << mode << QString::fromUtf8(target) << QString::fromUtf8(source)
                            << QString::fromUtf8(expected);
    };
    row("to the end of the top", Move::LastTopLevel, "", "B", "A(D) E B(C)");
    row("top row to the end", Move::LastTopLevel, "", "A", "E A(B(C) D)");
    row("last child", Move::LastChild, "E", "B", "A(D) E(B(C))");
    row("last child of its own parent", Move::LastChild, "A", "B", "A(D B(C)) E");
    row("top row under a later one", Move::LastChild, "E", "A", "E(A(B(C) D))");
    row("before a top row", Move::BeforeTopLevel, "E", "C", "A(B D) C E");
    row("before a later top row", Move::BeforeTopLevel, "E", "A", "A(B(C) D) E");
    row("before an earlier top row", Move::BeforeTopLevel, "A", "E", "E A(B(C) D)");
    row("before the top row that holds the target", Move::BeforeTopLevel, "C", "E", "E A(B(C) D)");
    row("before a later sibling", Move::BeforeSibling, "D", "B", "A(B(C) D) E");
    row("before an earlier sibling", Move::BeforeSibling, "B", "D", "A(D B(C)) E");
    row("among the siblings of another", Move::BeforeSibling, "C", "E", "A(B(E C) D)");
    row("before a target at the top", Move::BeforeSibling, "E", "D", "A(B(C)) D E");
}

void tst_KMCommands::move()
{
    QFETCH(const moveNodeCommand::Mode, mode);
    QFETCH(const QString, target);
    QFETCH(const QString, source);
    QFETCH(const QString, expected);

    SmallScene scene;
    const QHash<QString, KMNullNode *> nodes{
        {"A", scene.a}, {"B", scene.b}, {"C", scene.c}, {"D", scene.d}, {"E", scene.e}};
    const QString before = scene.dump.text();
    for (int round = 0; round < 2; ++round) {
        if (round == 0)
            gSolution->push(new moveNodeCommand(mode, nodes.value(target), nodes.value(source)));
        else
            scene.session.stack().redo();
        QCOMPARE(SmallScene::treeText(), expected);
        QVERIFY(scene.a->item()->isExpanded() && scene.b->item()->isExpanded() && !scene.e->item()->isExpanded());
        QVERIFY(scene.d->item()->isHidden() && !scene.c->item()->isHidden());
        QCOMPARE(gSolution->currentNode(), nodes.value(source));
        scene.session.stack().undo();
        QCOMPARE(scene.dump.text(), before);
    }
}

void tst_KMCommands::moveIntoItselfIsRefused()
{
    const SmallScene scene;
    QVERIFY(!canMove(scene.a, scene.a));
    QVERIFY(!canMove(scene.a, scene.c));
    QVERIFY(canMove(scene.c, scene.a));
    QVERIFY(canMove(scene.a, scene.e));
    QVERIFY(canMove(scene.c, nullptr));
}

void tst_KMCommands::movedRowStaysCurrent_data()
{
    QTest::addColumn<bool>("quietly");
    QTest::addColumn<bool>("wasCurrent");
    QTest::addColumn<bool>("becomesCurrent");

    QTest::newRow("shown") << false << false << true;
    QTest::newRow("shown, was current") << false << true << true;
    QTest::newRow("quietly") << true << false << false;
    QTest::newRow("quietly, was current") << true << true << true;
}

void tst_KMCommands::movedRowStaysCurrent()
{
    QFETCH(const bool, quietly);
    QFETCH(const bool, wasCurrent);
    QFETCH(const bool, becomesCurrent);

    const SmallScene scene;
    gProject->tree()->setCurrentItem((wasCurrent ? scene.b : scene.e)->item());
    const QSignalSpy changes(gSolution, &KMSolution::currentNodeChanged);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastTopLevel, nullptr, scene.b,
                                        quietly ? KMRowFocus::Keep : KMRowFocus::Current));

    KMNullNode *expected = becomesCurrent ? scene.b : scene.e;
    QCOMPARE(gSolution->currentNode(), expected);
    QCOMPARE(gProject->tree()->currentItem(), expected->item());
    QVERIFY(expected->item()->isSelected());
    QCOMPARE(changes.size(), becomesCurrent != wasCurrent ? 1 : 0); // no neighbour in between
}

void tst_KMCommands::deleteComesBackUnderMovedParent()
{
    SmallScene scene;
    const QString before = scene.dump.text();
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.e, scene.a));
    gSolution->push(new deleteNodeCommand(scene.c));
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastTopLevel, nullptr, scene.b));
    gSolution->push(new changeNodeCommand(listedNull(), scene.b));
    scene.session.stack().setIndex(2);
    QCOMPARE(SmallScene::treeText(), QStringLiteral("E(A(B D))"));
    scene.session.stack().undo();
    QCOMPARE(SmallScene::treeText(), QStringLiteral("E(A(B(C) D))"));
    QCOMPARE(gSolution->currentNode(), scene.c);
    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
}

void tst_KMCommands::changeKeepsTheRow()
{
    const SmallScene scene;
    QTreeWidgetItem *row = scene.b->item();
    gProject->tree()->setCurrentItem(row);
    gSolution->setCurrentTag(nullptr);
    KMNullNode *newcomer = listedNull();
    gSolution->push(new changeNodeCommand(newcomer, scene.b));
    QCOMPARE(newcomer->item(), row);
    QCOMPARE(KMTreeWidget::parentNodeOf(newcomer), scene.a);
    QCOMPARE(KMTreeWidget::parentNodeOf(scene.c), newcomer);
    QVERIFY(row->isExpanded());
    QVERIFY(scene.b->isDeleted() && !scene.b->item());
    QCOMPARE(gSolution->currentNode(), newcomer);
    QVERIFY(gSolution->previousNode() != scene.b);
    gSolution->undoStack()->undo();
    QCOMPARE(gSolution->currentNode(), scene.b);
    QVERIFY(newcomer->isDeleted() && !newcomer->item());
}

void tst_KMCommands::renamesReachTheSchematic()
{
    const SmallScene scene;
    BlockTitles blocks;
    gProject->setBlockModel(&blocks);
    gSolution->push(new renameNodeCommand(scene.c, QStringLiteral("Hand")));
    gSolution->push(new renameTagCommand(scene.first, QStringLiteral("rigid")));
    QCOMPARE(blocks.titles.value(scene.c), QStringLiteral("Hand"));
    QCOMPARE(blocks.titles.value(scene.first), QStringLiteral("rigid"));
    QCOMPARE(scene.c->item()->text(KMTreeWidget::NameColumn), QStringLiteral("Hand"));
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(blocks.titles.value(scene.c), QStringLiteral("C"));
    QCOMPARE(blocks.titles.value(scene.first), QStringLiteral("first"));
    gProject->setBlockModel(nullptr);
}

/// Panels make commands of itemChanged(): were it emitted for a command's own writing, undo would push a new one.
void tst_KMCommands::commandsDontPassForTheUsersClicks()
{
    const SmallScene scene;
    qRegisterMetaType<QTreeWidgetItem *>();
    const QSignalSpy edits(gProject->tree(), &QTreeWidget::itemChanged);
    gSolution->push(new renameNodeCommand(scene.c, QStringLiteral("Hand")));
    gSolution->push(new setVisibleCommand(scene.c, false));
    gSolution->push(new setLockedCommand(scene.c, true));
    gSolution->push(new changeNodeCommand(listedNull(), scene.b));
    QCOMPARE(scene.c->item()->checkState(KMTreeWidget::LockColumn), Qt::Checked);
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(edits.size(), 0);
}

void tst_KMCommands::addedTagsAreNumberedOnce()
{
    const SmallScene scene;
    auto *tag = new TestTag(QStringLiteral("Group"));
    gSolution->push(new addTagCommand(scene.e, tag));
    gSolution->undoStack()->undo();
    gSolution->undoStack()->redo();
    QCOMPARE(tag->name(), QStringLiteral("Group0"));
    auto *next = new TestTag(QStringLiteral("Group"));
    gSolution->push(new addTagCommand(scene.e, next));
    QCOMPARE(next->name(), QStringLiteral("Group1"));
    gSolution->push(new deleteTagCommand(scene.e, tag));
    QCOMPARE(scene.e->liveTagCount(), 2);
    auto *last = new TestTag(QStringLiteral("Group"));
    gSolution->push(new addTagCommand(scene.e, last));
    QCOMPARE(last->name(), QStringLiteral("Group0")); // the deleted one doesn't count
}

void tst_KMCommands::tagMovesBetweenLiveTags_data()
{
    QTest::addColumn<int>("position");
    QTest::addColumn<QStringList>("expected");

    QTest::newRow("first") << 0 << QStringList{"other", "first", "second"};
    QTest::newRow("between") << 1 << QStringList{"first", "other", "second"};
    QTest::newRow("last by number") << 2 << QStringList{"first", "second", "other"};
    QTest::newRow("last") << -1 << QStringList{"first", "second", "other"};
}

void tst_KMCommands::tagMovesBetweenLiveTags()
{
    QFETCH(const int, position);
    QFETCH(const QStringList, expected);

    const SmallScene scene;
    auto *gone = new TestTag;
    gSolution->push(new addTagCommand(scene.a, gone, 0));
    gSolution->push(new deleteTagCommand(scene.a, gone));
    gSolution->push(new moveTagCommand(scene.other, scene.a, position));
    QStringList names;
    for (const KMTagBase *tag : scene.a->tags()) {
        if (!tag->isDeleted())
            names << tag->name();
    }
    QCOMPARE(names, expected);
    QCOMPARE(scene.other->owner(), scene.a);
    QVERIFY(!scene.e->hasTag(scene.other));
}

void tst_KMCommands::currentTagIsForgotten_data()
{
    QTest::addColumn<int>("way");
    QTest::newRow("tag deleted") << 0;
    QTest::newRow("its node deleted") << 1;
    QTest::newRow("node above deleted") << 2;
    QTest::newRow("its node changed") << 3;
    QTest::newRow("tag added and undone") << 4;
    QTest::newRow("node added and undone") << 5;
}

void tst_KMCommands::currentTagIsForgotten()
{
    QFETCH(const int, way);
    const SmallScene scene;
    auto *tag = new TestTag;
    KMNullNode *node = way == 5 ? listedNull() : scene.c;
    if (way == 5)
        gSolution->push(new addNodeCommand(node));
    if (way == 4)
        gSolution->push(new addTagCommand(node, tag));
    else
        node->addTag(tag);
    gSolution->setCurrentTag(tag);
    switch (way) {
    case 0:
        gSolution->push(new deleteTagCommand(node, tag));
        break;
    case 1:
        gSolution->push(new deleteNodeCommand(node));
        break;
    case 2:
        gSolution->push(new deleteNodeCommand(scene.a));
        break;
    case 3:
        gSolution->push(new changeNodeCommand(listedNull(), node));
        break;
    default:
        gSolution->undoStack()->undo();
    }
    QCOMPARE(gSolution->currentTag(), nullptr);
}

void tst_KMCommands::editorShowsTheValue()
{
    const SmallScene scene;
    QSpinBox spin;
    QComboBox combo;
    combo.addItems({"x", "y", "z"});
    QCheckBox check;
    QDoubleSpinBox real;
    real.setDecimals(3);
    auto slider = std::make_unique<QSlider>();
    const QSignalSpy edits(&spin, QOverload<int>::of(&QSpinBox::valueChanged));

    gSolution->push(new setIntIntCommand(scene.integer->value(), 0, 7, &spin));
    gSolution->push(new setIntIntCommand(scene.integer->value(), 7, 2, &combo));
    gSolution->push(new setIntIntCommand(scene.integer->value(), 2, 5, slider.get()));
    gSolution->push(new setBoolBoolCommand(scene.boolean->value(), false, true, &check));
    gSolution->push(new setFloatFloatCommand(scene.number->value(), 0.0f, 0.5f, &real));
    QCOMPARE(spin.value(), 7);
    QCOMPARE(combo.currentIndex(), 2);
    QCOMPARE(slider->value(), 5);
    QVERIFY(check.isChecked());
    QCOMPARE(real.value(), 0.5);

    slider.reset();
    gSolution->undoStack()->setIndex(0);
    QCOMPARE(spin.value(), 0);
    QVERIFY(!check.isChecked());
    QCOMPARE(real.value(), 0.0);
    QCOMPARE(edits.size(), 0);

    KMIntNode loose;
    gSolution->push(new setIntIntCommand(&loose, 0, 9, &spin));
    QCOMPARE(loose.toInt(), 9);
    QCOMPARE(spin.value(), 0); // a value without an owner isn't the one that a panel shows
    gSolution->clearHistory();
}

void tst_KMCommands::valuesTravelOnBothWays()
{
    const SmallScene scene;
    KMIntNode follower;
    scene.integer->value()->addTarget(&follower);
    const QSignalSpy refreshes(&follower, &KMVariantNode::refresh);
    gSolution->push(new setIntIntCommand(scene.integer->value(), 0, 3));
    QCOMPARE(follower.toInt(), 3);
    gSolution->undoStack()->undo();
    QCOMPARE(follower.toInt(), 0);
    QCOMPARE(refreshes.size(), 2);
    scene.integer->value()->removeTarget(&follower);
}

KM_TEST(tst_KMCommands);

#include "tst_KMCommands.moc"
