#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMPhysicsMaking.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "shell/docks/KMNodeRowDelegate.h"
#include "shell/docks/kmbonewidget.h"
#include "shell/kmmainwidget.h"
#include "support/RigDump.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"

#include <QComboBox>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTest>
#include <QUndoStack>

#include <memory>
#include <random>

/// The bone panel in the real window. The rig is a(b(c d) e) f.
class tst_kmbonewidget : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanupTestCase() { m_window.reset(); }
    void init();
    void selectionBothWays();
    void randomDrops();
    void dropsInPlace();
    void rowsByKeyboardAndMouse();
    void tagsOfBones();
    void severalTags();
    void copiesOfBodiesAndJoints();
    void severalRigs();
    void movesToAnotherRig();

private:
    KMBone *addBone(const char *name, KMBone *parent) const;
    QRect cell(const KMBone *bone, int column = KMTreeWidget::NameColumn) const;
    void click(const KMBone *bone, int column, Qt::KeyboardModifiers held = Qt::NoModifier) const;
    void drop(const QList<KMContainerNode *> &bones, const QPoint &position,
              Qt::KeyboardModifiers held = Qt::NoModifier) const;
    QString shape() const;
    KMTreeWidget *tree() const { return m_dock->tree(); }
    QUndoStack *stack() const { return (*m_window)->undoStack(); }

    std::unique_ptr<TestWindow> m_window;
    kmbonewidget *m_dock = nullptr;
    KMBoneContainer *m_rig = nullptr;
    KMBone *m_a = nullptr, *m_b = nullptr, *m_c = nullptr, *m_d = nullptr, *m_e = nullptr, *m_f = nullptr;
};

KMBone *tst_kmbonewidget::addBone(const char *name, KMBone *parent) const
{
    auto *bone = new KMBone;
    bone->setName(QString::fromLatin1(name));
    gSolution->push(new addBoneCommand(m_rig, bone, parent));
    return bone;
}

void tst_kmbonewidget::initTestCase()
{
    m_window = std::make_unique<TestWindow>();
    m_dock = m_window->child<kmbonewidget>("kmbonewidget");
    (*m_window)->setAnimated(false); // rows are where they will be
    for (const char *other : {"kmnodewidget", "kmshaderwidget", "kmtexturewidget"})
        m_window->child<QWidget>(other)->hide(); // room for all rows
    m_dock->setFloating(false);
    m_dock->show();
}

void tst_kmbonewidget::init()
{
    gSolution->newDocument();
    m_rig = new KMBoneContainer;
    gProject->addNode(m_rig);
    m_a = addBone("a", nullptr);
    m_b = addBone("b", m_a);
    m_c = addBone("c", m_b);
    m_d = addBone("d", m_b);
    m_e = addBone("e", m_a);
    m_f = addBone("f", nullptr);
    QCOMPARE(m_dock->rig(), m_rig);
    tree()->expandAll();
    gSolution->clearHistory();
    m_dock->refresh();
    QVERIFY(cell(m_f).bottom() < tree()->viewport()->height());
}

QRect tst_kmbonewidget::cell(const KMBone *bone, int column) const
{
    const QRect row = tree()->visualItemRect(bone->item());
    return {tree()->columnViewportPosition(column), row.top(), tree()->columnWidth(column), row.height()};
}

void tst_kmbonewidget::click(const KMBone *bone, int column, Qt::KeyboardModifiers held) const
{
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, held, cell(bone, column).center());
}

void tst_kmbonewidget::drop(const QList<KMContainerNode *> &bones, const QPoint &position,
                            Qt::KeyboardModifiers held) const
{
    const std::unique_ptr<QMimeData> data(KMTreeWidget::mimeDataOf(bones, KMBoneTreeWidget::BoneMimeType));
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(position, actions, data.get(), Qt::LeftButton, held);
    QCoreApplication::sendEvent(tree()->viewport(), &enter);
    QDragMoveEvent move(position, actions, data.get(), Qt::LeftButton, held);
    QCoreApplication::sendEvent(tree()->viewport(), &move);
    QDropEvent drop(position, actions, data.get(), Qt::LeftButton, held);
    QCoreApplication::sendEvent(tree()->viewport(), &drop);
}

QString tst_kmbonewidget::shape() const
{
    QString text;
    for (const KMBone *bone : m_rig->bones())
        text += QString::number(bone->depth()) + bone->name() + QLatin1Char(' ');
    return text.trimmed();
}

void tst_kmbonewidget::selectionBothWays()
{
    click(m_b, KMTreeWidget::NameColumn);
    QCOMPARE(m_b->selectMask(), int(KMBone::BothSelected));
    QCOMPARE(gSolution->currentBone(), static_cast<KMNode *>(m_b));
    QCOMPARE(stack()->count(), 1);
    QCOMPARE(stack()->text(0), QStringLiteral("Select Bone"));
    click(m_d, KMTreeWidget::NameColumn, Qt::ControlModifier);
    click(m_d, KMTreeWidget::NameColumn); // b goes, d stays
    QCOMPARE(stack()->count(), 3);
    QCOMPARE(m_rig->selectedBones(), QList<KMBone *>{m_d});
    stack()->undo();
    QCOMPARE(m_rig->selectedBones(), (QList<KMBone *>{m_b, m_d}));
    QVERIFY(m_b->item()->isSelected() && m_d->item()->isSelected());
    stack()->setIndex(0);
    QVERIFY(m_rig->selectedBones().isEmpty() && tree()->selectedItems().isEmpty() && !gSolution->currentBone());

    gSolution->push(new selectBoneCommand(m_e, KMBone::TailSelected)); // as a view does it
    QCOMPARE(tree()->selectedItems(), QList<QTreeWidgetItem *>{m_e->item()});
    QCOMPARE(tree()->currentItem(), m_e->item());
    QCOMPARE(m_e->selectMask(), int(KMBone::TailSelected)); // the row doesn't answer with a step of its own
    QCOMPARE(stack()->count(), 1);
}

/// What the user drops lands where a plain list of rows says, or nothing happens.
void tst_kmbonewidget::randomDrops()
{
    std::mt19937 random(11);
    RigDump dump;
    const QString before = dump.text();
    while (stack()->count() < 25) { // fewer than the history keeps
        tree()->expandAll();
        QCoreApplication::processEvents();
        const QList<KMBone *> bones = m_rig->bones();
        KMBone *moved = bones[int(random() % 6)];
        KMBone *target = bones[int(random() % 6)];
        const int place = int(random() % 3); // before, into, behind
        const QRect row = cell(target);
        const int y = place == 0 ? row.top() : place == 1 ? row.center().y() : row.bottom();
        const bool isLoop = target == moved || target->isBelow(moved);

        QList<QPair<int, KMBone *>> model; // depth and bone
        QList<QPair<int, KMBone *>> part;
        for (KMBone *bone : bones)
            (bone == moved || bone->isBelow(moved) ? part : model) << qMakePair(bone->depth(), bone);
        const int steps = stack()->count();
        drop({moved}, {row.center().x(), y});
        QCOMPARE(rigFault(*m_rig), QString());
        if (isLoop) {
            QCOMPARE(stack()->count(), steps);
            continue;
        }
        int at = 0;
        while (model[at].second != target)
            ++at;
        const int depth = model[at].first + (place == 1);
        if (place != 0) { // behind the target and all below it
            const int level = model[at++].first;
            while (at < model.size() && model[at].first > level)
                ++at;
        }
        const int shift = depth - part.first().first;
        for (const auto &member : std::as_const(part))
            model.insert(at++, qMakePair(member.first + shift, member.second));
        QString expected;
        for (const auto &member : std::as_const(model))
            expected += QString::number(member.first) + member.second->name() + QLatin1Char(' ');
        QCOMPARE(shape(), expected.trimmed());
        QVERIFY(stack()->count() <= steps + 1);
    }
    stack()->setIndex(0);
    QCOMPARE(shape(), QStringLiteral("0a 1b 2c 2d 1e 0f"));
    tree()->expandAll();
    QCOMPARE(dump.text().remove(QStringLiteral(" expanded")), QString(before).remove(QStringLiteral(" expanded")));
}

/// Rows that stand in their order where they are dropped make no step.
void tst_kmbonewidget::dropsInPlace()
{
    const QRect first = cell(m_c), last = cell(m_d), parent = cell(m_b);
    for (const QPoint &place :
         {QPoint(first.center().x(), first.top()), QPoint(last.center().x(), last.bottom()), parent.center()})
        drop({m_c, m_d}, place);
    QCOMPARE(stack()->count(), 0);
    drop({m_c, m_e}, {first.center().x(), last.bottom()});
    QCOMPARE(shape(), QStringLiteral("0a 1b 2d 2c 2e 0f"));
    QCOMPARE(stack()->count(), 1);
}

void tst_kmbonewidget::rowsByKeyboardAndMouse()
{
    click(m_e, KMTreeWidget::NameColumn);
    QVERIFY(m_window->focus(tree()));
    m_window->trigger("actionRename");
    auto *editor = tree()->viewport()->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("elbow"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(m_e->name(), QStringLiteral("elbow")); // the editor hands over after the key was handled
    click(m_b, KMTreeWidget::VisibleColumn);
    QVERIFY(!m_b->isVisible());
    click(m_b, KMTreeWidget::LockColumn);
    QVERIFY(m_b->isLocked());
    stack()->undo();
    stack()->undo();
    QVERIFY(m_b->isVisible() && !m_b->isLocked());

    click(m_b, KMTreeWidget::NameColumn);
    QVERIFY(m_window->focus(tree()));
    m_window->trigger("actionDelete");
    QCOMPARE(shape(), QStringLiteral("0a 1c 1d 1elbow 0f"));
    QCOMPARE(gProject->ctrlsInTree().size(), 1); // the rig itself wasn't meant
    stack()->undo();
    QCOMPARE(shape(), QStringLiteral("0a 1b 2c 2d 1elbow 0f"));

    auto *filter = m_window->child<QLineEdit>("boneFilterText");
    filter->setText(QStringLiteral("D"));
    QVERIFY(!m_d->item()->isHidden() && !m_a->item()->isHidden() && m_c->item()->isHidden());
    filter->clear();
    QVERIFY(!m_c->item()->isHidden());
}

void tst_kmbonewidget::tagsOfBones()
{
    auto *tag = new KMTagConstraint;
    tag->setData({m_f, 0.5f, 0, KMTagConstraint::Rotate, 0});
    gSolution->push(new addTagBoneContainerCommand(m_b, tag));
    const QPoint icon = KMNodeRowDelegate::tagRect(cell(m_b, KMTreeWidget::TagColumn), 0).center();
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, icon);
    QCOMPARE(gSolution->currentTag(), tag);
    QVERIFY(m_window->focus(tree()));
    m_window->trigger("actionCopy");
    click(m_c, KMTreeWidget::NameColumn);
    click(m_d, KMTreeWidget::NameColumn, Qt::ControlModifier);
    m_window->trigger("actionPaste");
    QCOMPARE(m_c->liveTagCount() + m_d->liveTagCount(), 2);
    QCOMPARE(static_cast<KMTagConstraint *>(m_d->tag(0))->data().target, m_f);
    QTest::mouseClick(tree()->viewport(), Qt::LeftButton, Qt::NoModifier, icon);
    m_window->trigger("actionDelete");
    QCOMPARE(m_b->liveTagCount(), 0);
    QCOMPARE(shape(), QStringLiteral("0a 1b 2c 2d 1e 0f"));
    stack()->undo();
    QCOMPARE(m_b->liveTagCount(), 1);
}

/// Two bodies that are clicked are joined, whatever was selected before.
void tst_kmbonewidget::severalTags()
{
    QVector<KMTagRigidBody *> bodies;
    for (KMBone *bone : {m_b, m_c, m_d}) {
        bodies << new KMTagRigidBody;
        gSolution->push(new addTagBoneContainerCommand(bone, bodies.last()));
    }
    const auto clickTag = [this](const KMBone *bone, Qt::KeyboardModifiers held = Qt::NoModifier) {
        const QPoint icon = KMNodeRowDelegate::tagRect(cell(bone, KMTreeWidget::TagColumn), 0).center();
        QTest::mouseClick(tree()->viewport(), Qt::LeftButton, held, icon);
    };
    const auto selected = [&bodies] {
        return QVector<bool>{bodies[0]->isSelected(), bodies[1]->isSelected(), bodies[2]->isSelected()};
    };
    bodies[0]->setSelected(true); // in the table of the bodies
    clickTag(m_c);
    QCOMPARE(selected(), (QVector<bool>{false, true, false}));
    clickTag(m_d, Qt::ControlModifier);
    QCOMPARE(selected(), (QVector<bool>{false, true, true}));
    QCOMPARE(gSolution->currentTag(), bodies[2]);
    m_window->trigger("BoneComMakeSideJoint");
    const QList<KMTagJoint *> joints = KMRigTags::joints(m_rig);
    QCOMPARE(joints.size(), 1);
    // Control still counts as held, which swaps the sides.
    QVERIFY(joints.first()->bodyA() == bodies[2] && joints.first()->bodyB() == bodies[1]);
    clickTag(m_c, Qt::ControlModifier);
    QCOMPARE(selected(), (QVector<bool>{false, false, true}));
    QCOMPARE(gSolution->currentTag(), bodies[2]); // what is still selected, and not the rows
    clickTag(m_b, Qt::ControlModifier);
    clickTag(m_c, Qt::ControlModifier);
    clickTag(m_c, Qt::ControlModifier);
    QVERIFY(m_window->focus(tree()));
    const int steps = stack()->count();
    m_window->trigger("actionCut");
    QCOMPARE(KMRigTags::bodies(m_rig), QList<KMTagRigidBody *>{bodies[1]});
    QCOMPARE(shape(), QStringLiteral("0a 1b 2c 2d 1e 0f"));
    QCOMPARE(stack()->count(), steps + 1);
    click(m_f, KMTreeWidget::NameColumn);
    m_window->trigger("actionPaste");
    QCOMPARE(m_f->liveTagCount(), 2);
    while (stack()->count() > steps && stack()->index() > steps)
        stack()->undo();
    QCOMPARE(KMRigTags::bodies(m_rig).size(), 3);

    // Rows may be selected besides. What was clicked last is meant.
    clickTag(m_c);
    clickTag(m_d, Qt::ControlModifier);
    click(m_f, KMTreeWidget::NameColumn, Qt::ControlModifier);
    QCOMPARE(selected(), (QVector<bool>{false, true, true}));
    QCOMPARE(gSolution->currentTag(), nullptr);
    const QPoint icon = KMNodeRowDelegate::tagRect(cell(m_c, KMTreeWidget::TagColumn), 0).center();
    KMNode *shown = nullptr;
    const auto connection =
        connect(m_dock, &KMDockWidget::onNodeChanged, this, [&shown](KMNode *node) { shown = node; });
    emit tree()->customContextMenuRequested(icon);
    QCOMPARE(gSolution->currentTag(), bodies[1]);
    disconnect(connection);
    QCOMPARE(shown, static_cast<KMNode *>(bodies[1]));
    delete QApplication::activePopupWidget();
    click(m_f, KMTreeWidget::NameColumn);
    QCOMPARE(selected(), QVector<bool>(3, false));
    QCOMPARE(gSolution->currentTag(), nullptr);
}

/// A body and its joint that are copied together hold together again, on one bone or another.
void tst_kmbonewidget::copiesOfBodiesAndJoints()
{
    KMPhysicsMaking::pushBodies({m_a, m_b}, KMTagRigidBody::Box, true);
    KMTagRigidBody *parent = KMPhysicsMaking::firstBody(m_a);
    KMTagJoint *joint = KMRigTags::joints(m_rig).last();
    QVERIFY(m_window->focus(tree()));
    for (KMTagBase *tag : QList<KMTagBase *>{joint, KMPhysicsMaking::firstBody(m_b)})
        tag->setSelected(true);
    gSolution->setCurrentTag(joint);
    m_window->trigger("actionDuplicate");
    const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(m_rig);
    const KMTagJoint *duplicate = KMRigTags::joints(m_rig).last();
    QCOMPARE(bodies.size(), 3);
    QVERIFY(duplicate != joint && duplicate->bone() == m_b);
    const auto sides = [](const KMTagJoint *joint) { return QSet<KMTagRigidBody *>{joint->bodyA(), joint->bodyB()}; };
    QCOMPARE(sides(duplicate), (QSet<KMTagRigidBody *>{parent, bodies[2]}));
    QCOMPARE(sides(joint), (QSet<KMTagRigidBody *>{parent, bodies[1]}));

    m_window->trigger("actionCut");
    click(m_f, KMTreeWidget::NameColumn);
    m_window->trigger("actionPaste");
    const KMTagJoint *pasted = KMRigTags::joints(m_rig).last();
    QVERIFY(pasted->bone() == m_f);
    QCOMPARE(sides(pasted), (QSet<KMTagRigidBody *>{parent, KMPhysicsMaking::firstBody(m_f)}));
}

void tst_kmbonewidget::severalRigs()
{
    auto *rigs = m_window->child<QComboBox>("boneRigs");
    QVERIFY(rigs->isHidden());
    auto *other = new KMBoneContainer;
    gProject->addNode(other);
    m_dock->refresh();
    QVERIFY(!rigs->isHidden());
    QCOMPARE(m_dock->rig(), other);
    rigs->setCurrentIndex(0);
    emit rigs->activated(0);
    QCOMPARE(m_dock->rig(), m_rig);
    QCOMPARE(tree(), static_cast<KMTreeWidget *>(m_rig->tree()));
    QCOMPARE(KMBoneContainer::activeBoneContainer(), m_rig);
    gProject->deleteNode(m_rig);
    QCOMPARE(m_dock->rig(), other);
    stack()->undo();
    QCOMPARE(shape(), QStringLiteral("0a 1b 2c 2d 1e 0f"));
    gSolution->newDocument(); // the shown tree goes with its rig
    QVERIFY(!m_dock->rig() && !m_dock->tree());
}

/// By the menu of a row, and not out of a rig that is locked or into one.
void tst_kmbonewidget::movesToAnotherRig()
{
    auto *other = new KMBoneContainer;
    gProject->addNode(other);
    auto *namesake = new KMBone;
    namesake->setName(m_c->name());
    gSolution->push(new addBoneCommand(other, namesake, nullptr));
    gProject->tree()->setCurrentItem(m_rig->item());
    m_dock->refresh();
    QCOMPARE(m_dock->rig(), m_rig);
    KMPhysicsMaking::pushBodies({m_a, m_b}, KMTagRigidBody::Box, true);
    const KMTagJoint *joint = KMRigTags::joints(m_rig).last();
    const JointData data = joint->parameters();
    QVERIFY(data.bodyA && data.bodyB);
    click(m_b, KMTreeWidget::NameColumn);
    const int steps = stack()->count();
    const auto moveByMenu = [&](bool isAllowed) {
        emit tree()->customContextMenuRequested(cell(m_b).center());
        const QList<QMenu *> menus = m_dock->findChildren<QMenu *>(QStringLiteral("moveToRig"));
        QVERIFY(!menus.isEmpty());
        QAction *entry = menus.last()->actions().value(0);
        QCOMPARE(entry->isEnabled(), isAllowed);
        entry->trigger();
        delete menus.last()->parentWidget();
    };
    for (KMBoneContainer *locked : {m_rig, other}) {
        locked->setLocked(true);
        moveByMenu(false);
        locked->setLocked(false);
    }
    QCOMPARE(stack()->count(), steps);
    moveByMenu(true);
    QCOMPARE(stack()->count(), steps + 1);
    QCOMPARE(shape(), QStringLiteral("0a 1e 0f"));
    QCOMPARE(other->bones(), (QList<KMBone *>{namesake, m_b, m_c, m_d}));
    QCOMPARE(m_c->name(), QStringLiteral("c0")); // keys find a bone by its name
    QVERIFY(!joint->bodyA() != !joint->bodyB()); // no player holds bodies of two rigs together
    stack()->undo();
    QVERIFY(joint->parameters() == data);
    QCOMPARE(m_c->name(), QStringLiteral("c"));
    // Dropped with Ctrl it is a copy that moves.
    gProject->tree()->setCurrentItem(m_rig->item());
    m_dock->refresh();
    tree()->expandAll();
    drop({m_b}, cell(m_f).center(), Qt::ControlModifier);
    QCOMPARE(m_f->childBones().size(), 1);
    QCOMPARE(m_f->childBones()[0]->childBones().size(), 2);
    QCOMPARE(m_rig->bones().size(), 9);
    QCOMPARE(m_b->parentBone(), m_a);
}

KM_TEST(tst_kmbonewidget);

#include "tst_kmbonewidget.moc"
