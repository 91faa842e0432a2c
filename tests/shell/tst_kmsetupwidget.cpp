#include "core/KMNodePropertyCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneMMDTemplate.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMPhysicsMaking.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "shell/KMPhysicsColumns.h"
#include "shell/KMPhysicsSheet.h"
#include "shell/attributes/KMAttributePage.h"
#include "shell/docks/KMSetupList.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmsetupwidget.h"
#include "shell/kmmainwidget.h"
#include "shell/widgets/KMMessageLabel.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTextArea.h"
#include "shell/widgets/KMTextField.h"
#include "support/TestRegistry.h"
#include "support/TestWindow.h"
#include "tools/KMMorphTargets.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDrag>
#include <QDropEvent>
#include <QLineEdit>
#include <QMenu>
#include <QMimeData>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <QUndoStack>

#include <memory>

/// The setup panel, the table of the physics and the pages of its tags on the real window.
class tst_kmsetupwidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void information();
    void groupsAndItems();
    void dragFromTheBones();
    void morphsAndForeignDrops();
    void sheetEditsAllSelectedRows();
    void sheetRefusesWhatIsNoNumber();
    void sheetShowsAndDeletes();
    void sheetDeletesOfOneTable();
    void keysOfCells_data();
    void keysOfCells();
    void sheetOfALockedRig();
    void waitingAutoSave();
    void pageOfABody();

private:
    KMBone *bone(const char *name) const { return m_rig->bone(QString::fromLatin1(name)); }
    QStringList items() const;
    QStringList groups() const;
    void drop(const QString &mimeType, const QList<KMContainerNode *> &nodes) const;
    void choose(KMSetupList *list, const char *entry) const; ///< of the list's menu
    QTableView *table(const char *name) const
    {
        return m_setup->window()->findChild<QTableView *>(QLatin1String(name));
    }
    QString message() const { return m_window->child<KMMessageLabel>("messageLabel")->message(); }
    static bool focus(QTableView *table)
    {
        return QTest::qWaitFor([table] { // the window manager may give the focus back once
            table->activateWindow();
            table->setFocus();
            return table->hasFocus();
        });
    }
    static int columnOf(const QTableView *table, const QString &title);
    int steps() const { return (*m_window)->undoStack()->index(); }

    std::unique_ptr<TestWindow> m_window;
    kmsetupwidget *m_setup = nullptr;
    KMSetupList *m_groups = nullptr;
    KMSetupList *m_items = nullptr;
    KMBoneContainer *m_rig = nullptr;
};

void tst_kmsetupwidget::init()
{
    m_window = std::make_unique<TestWindow>();
    m_setup = m_window->child<kmsetupwidget>("kmsetupwidget");
    // A window of its own doesn't keep the focus where window managers have their say.
    m_setup->setAllowedAreas(Qt::AllDockWidgetAreas);
    m_setup->setFloating(false);
    m_setup->show();
    m_groups = m_setup->findChild<KMSetupList *>(QStringLiteral("displayList"));
    m_items = m_setup->findChild<KMSetupList *>(QStringLiteral("itemList"));
    m_rig = new KMBoneContainer;
    gProject->addNode(m_rig);
    gSolution->setCurrentNode(m_rig);
    const KMUndoMacro macro(QStringLiteral("figure"));
    KMBoneMMDTemplate::insertInto(m_rig);
    KMPhysicsMaking::pushBodies({bone("arm_L"), bone("elbow_L"), bone("wrist_L")}, KMTagRigidBody::Capsule, true);
}

void tst_kmsetupwidget::cleanup()
{
    m_window.reset();
}

QStringList tst_kmsetupwidget::items() const
{
    QStringList texts;
    for (int i = 0; i < m_items->count(); ++i)
        texts << m_items->item(i)->text();
    return texts;
}

QStringList tst_kmsetupwidget::groups() const
{
    QStringList texts;
    for (int i = 0; i < m_groups->count(); ++i)
        texts << m_groups->item(i)->text();
    return texts;
}

void tst_kmsetupwidget::drop(const QString &mimeType, const QList<KMContainerNode *> &nodes) const
{
    const std::unique_ptr<QMimeData> data(KMTreeWidget::mimeDataOf(nodes, mimeType));
    const QPoint place(5, m_items->viewport()->height() - 3);
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(place, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(m_items->viewport(), &enter);
    if (!enter.isAccepted())
        return;
    QDropEvent event(place, actions, data.get(), Qt::LeftButton, Qt::NoModifier);
    event.setDropAction(Qt::MoveAction); // as a tree proposes; it would take its rows out after one
    QApplication::sendEvent(m_items->viewport(), &event);
    QCOMPARE(event.dropAction(), Qt::CopyAction);
}

void tst_kmsetupwidget::choose(KMSetupList *list, const char *entry) const
{
    emit list->customContextMenuRequested(QPoint(3, 3));
    auto *action = m_setup->findChild<QAction *>(QLatin1String(entry));
    QVERIFY(action);
    action->trigger();
    delete action->parent(); // the menu, which else closes later
}

int tst_kmsetupwidget::columnOf(const QTableView *table, const QString &title)
{
    for (int c = 0; c < table->model()->columnCount(); ++c) {
        if (table->model()->headerData(c, Qt::Horizontal).toString() == title)
            return c;
    }
    return -1;
}

void tst_kmsetupwidget::information()
{
    auto *english = m_setup->findChild<KMTextField *>(QStringLiteral("modelName1"));
    QVERIFY(m_window->focus(english));
    QTest::keyClicks(english, QStringLiteral("Miki"));
    QTest::keyClick(english, Qt::Key_Return);
    auto *comment = m_setup->findChild<KMTextArea *>(QStringLiteral("comment0"));
    QVERIFY(m_window->focus(comment));
    QTest::keyClicks(comment, QStringLiteral("hello"));
    m_setup->commit();
    comment->commit();
    QCOMPARE(gProject->textInfo(3), QStringLiteral("Miki"));
    QCOMPARE(gProject->textInfo(2), QStringLiteral("hello"));
    (*m_window)->undoStack()->undo();
    QCOMPARE(gProject->textInfo(2), QString());
    QCOMPARE(comment->toPlainText(), QString());
    gSolution->newDocument();
    QCOMPARE(english->text(), QString());
}

void tst_kmsetupwidget::groupsAndItems()
{
    const int before = steps();
    drop(KMBoneTreeWidget::BoneMimeType, {bone("head")}); // no group yet
    QCOMPARE(steps(), before);
    QCOMPARE(message(), QStringLiteral("not selected."));
    choose(m_groups, "setupCreate");
    QCOMPARE(groups(), QStringList{QStringLiteral("Disp")});
    QCOMPARE((*m_window)->undoStack()->undoText(), QStringLiteral("Add DisplayNode"));
    drop(KMBoneTreeWidget::BoneMimeType, {bone("head"), bone("neck"), bone("center")});
    QCOMPARE(items(), (QStringList{QStringLiteral("center"), QStringLiteral("neck"), QStringLiteral("head")}));
    drop(KMBoneTreeWidget::BoneMimeType, {bone("head")});
    QCOMPARE(message(), QStringLiteral("The group lists all of them already"));
    QCOMPARE(steps(), before + 2);
    emit m_items->movesWanted({0, 1}, 3);
    QCOMPARE(items(), (QStringList{QStringLiteral("head"), QStringLiteral("center"), QStringLiteral("neck")}));
    QCOMPARE(steps(), before + 3);
    m_items->setCurrentRow(1);
    choose(m_items, "setupDelete");
    QCOMPARE(items(), (QStringList{QStringLiteral("head"), QStringLiteral("neck")}));
    m_groups->item(0)->setText(QStringLiteral("Root"));
    QCOMPARE(moveDisplayNodeCommand::liveGroups().first()->name(), QStringLiteral("Root"));
    choose(m_groups, "setupCreate");
    QCOMPARE(items(), QStringList());
    emit m_groups->movesWanted({1}, 0);
    QCOMPARE(groups(), (QStringList{QStringLiteral("Disp"), QStringLiteral("Root")}));
    m_groups->setCurrentRow(1);
    QCOMPARE(items().size(), 2);
    choose(m_groups, "setupDelete");
    QCOMPARE(groups(), QStringList{QStringLiteral("Disp")});
    while (steps() > before)
        (*m_window)->undoStack()->undo();
    QCOMPARE(groups(), QStringList());
    QCOMPARE(items(), QStringList());
}

/// A whole drag with the mouse of a chain of bones: all are listed, and stay where they are.
void tst_kmsetupwidget::dragFromTheBones()
{
    choose(m_groups, "setupCreate");
    auto *bones = m_window->child<QDockWidget>("kmbonewidget");
    bones->setFloating(false);
    bones->show();
    bones->raise();
    QVERIFY(QTest::qWaitForWindowExposed(m_setup->window()));
    QTest::qWait(50);
    QTreeWidget *tree = m_rig->tree();
    QTreeWidgetItem *row = bone("arm_L")->item();
    tree->setCurrentItem(row);
    for (const char *below : {"elbow_L", "wrist_L"}) {
        bone(below)->item()->setSelected(true);
        tree->scrollToItem(bone(below)->item());
    }
    tree->scrollToItem(row);
    const int rows = KMTreeWidget::flatten(tree).size();
    const auto send = [](QWidget *to, QEvent::Type type, const QPoint &place) {
        const Qt::MouseButton button = type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton;
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, to->mapToGlobal(place), button, held, Qt::NoModifier);
        QApplication::sendEvent(to, &event);
    };
    const QPoint from(60, tree->visualItemRect(row).center().y());
    const QPoint to = m_items->viewport()->rect().center();
    QTimer::singleShot(200, m_items, [this, &send, to] {
        for (const QPoint &place : {to, to + QPoint(2, 2)})
            send(m_items->viewport(), QEvent::MouseMove, place);
        send(m_items->viewport(), QEvent::MouseButtonRelease, to);
    });
    QTimer::singleShot(5000, m_items, &QDrag::cancel);
    send(tree->viewport(), QEvent::MouseButtonPress, from);
    for (const int way : {5, 40})
        send(tree->viewport(), QEvent::MouseMove, from + QPoint(way, 0));
    QCOMPARE(items(), (QStringList{QStringLiteral("arm_L"), QStringLiteral("elbow_L"), QStringLiteral("wrist_L")}));
    QCOMPARE(KMTreeWidget::flatten(tree).size(), rows);
    QCOMPARE(bone("arm_L")->item(), row);
}

void tst_kmsetupwidget::morphsAndForeignDrops()
{
    choose(m_groups, "setupCreate");
    const int before = steps();
    drop(KMTreeWidget::NodeMimeType, {m_rig});
    QCOMPARE(steps(), before);
    QCOMPARE(items(), QStringList());
    auto *mesh = new KMMeshNode;
    gProject->addNode(mesh);
    auto *tag = new KMTagMorph;
    mesh->addTag(tag);
    auto *smile = new KMMorph;
    smile->setName(QStringLiteral("smile"));
    tag->addMorph(smile);
    drop(KMMorphTargets::MorphMimeType, {smile});
    QCOMPARE(items(), QStringList{QStringLiteral("smile")});
    QCOMPARE(moveDisplayNodeCommand::liveGroups().first()->liveItems().first().type, 1);
}

void tst_kmsetupwidget::sheetEditsAllSelectedRows()
{
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    QVERIFY(bodies);
    QCOMPARE(bodies->model()->rowCount(), 3);
    QCOMPARE(table("jointTable")->model()->rowCount(), 3);
    const int mass = columnOf(bodies, QStringLiteral("Mass"));
    for (const int row : {0, 2})
        bodies->selectionModel()->select(bodies->model()->index(row, mass), QItemSelectionModel::Select);
    const QList<KMTagRigidBody *> tags = KMRigTags::bodies(m_rig);
    QVERIFY(tags[0]->isSelected() && !tags[1]->isSelected() && tags[2]->isSelected());
    const int before = steps();
    QVERIFY(bodies->model()->setData(bodies->model()->index(2, mass), QStringLiteral("3.5")));
    QCOMPARE(steps(), before + 1);
    QCOMPARE(tags[0]->parameters().mass, 3.5f);
    QCOMPARE(tags[1]->parameters().mass, 1.0f);
    QCOMPARE(tags[2]->parameters().mass, 3.5f);
    bodies->model()->setData(bodies->model()->index(1, mass), QStringLiteral("7")); // isn't selected: alone
    QCOMPARE(tags[0]->parameters().mass, 3.5f);
    QCOMPARE(tags[1]->parameters().mass, 7.0f);

    QVERIFY(bodies->model()->setData(bodies->model()->index(1, mass), QStringLiteral("3.5")));
    QVERIFY(!bodies->model()->setData(bodies->model()->index(0, mass), QStringLiteral("3.5"))); // all have it
    bodies->model()->setData(bodies->model()->index(1, mass), QStringLiteral("7"));
    bodies->selectionModel()->select(bodies->model()->index(1, mass), QItemSelectionModel::Select);
    bodies->setCurrentIndex(bodies->model()->index(0, mass));
    for (const int row : {0, 1, 2})
        bodies->selectionModel()->select(bodies->model()->index(row, mass), QItemSelectionModel::Select);
    const auto enter = [bodies](const char *typed) {
        bodies->edit(bodies->currentIndex());
        auto *editor = bodies->findChild<QLineEdit *>();
        editor->selectAll();
        QTest::keyClicks(editor, QString::fromLatin1(typed));
        QTest::keyClick(editor, Qt::Key_Return);
        QCoreApplication::processEvents(); // the editor hands its value over a little later
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    };
    enter(""); // opened and closed
    QCOMPARE(tags[1]->parameters().mass, 7.0f);
    enter("3.5"); // what this row has, but not all
    QCOMPARE(tags[1]->parameters().mass, 3.5f);

    QTableView *joints = table("jointTable");
    const int side = columnOf(joints, QStringLiteral("Connection A"));
    joints->model()->setData(joints->model()->index(0, side), 3);
    QCOMPARE(KMRigTags::joints(m_rig).first()->bodyA(), tags[2]);
    QVERIFY(bodies->model()->flags(bodies->model()->index(0, columnOf(bodies, QStringLiteral("Depth"))))
            == Qt::ItemIsSelectable); // a capsule has none
    while (steps() > before)
        (*m_window)->undoStack()->undo();
    QCOMPARE(bodies->model()->index(0, mass).data().toString(), QStringLiteral("1"));
    QCOMPARE(KMRigTags::joints(m_rig).first()->bodyA(), nullptr);
}

void tst_kmsetupwidget::sheetRefusesWhatIsNoNumber()
{
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    const int before = steps();
    for (const char *text : {"", "x", "nan", "inf", "1e99", "-1"})
        QVERIFY(!bodies->model()->setData(bodies->model()->index(0, columnOf(bodies, QStringLiteral("Width"))),
                                          QString::fromLatin1(text)));
    const int mask = columnOf(bodies, QStringLiteral("Collision Mask"));
    for (const char *text : {"16", "-1", "a"})
        QVERIFY(!bodies->model()->setData(bodies->model()->index(0, mask), QString::fromLatin1(text)));
    QCOMPARE(message(), QStringLiteral("Collision Mask can't be \"a\""));
    QCOMPARE(steps(), before);
    QVERIFY(bodies->model()->setData(bodies->model()->index(0, mask), QStringLiteral("0, 15")));
    QCOMPARE(KMRigTags::bodies(m_rig).first()->parameters().collisionMask, 0x8001u);
}

/// What is chosen in a table is what attributes, trees and the keys of the main window go by.
void tst_kmsetupwidget::sheetShowsAndDeletes()
{
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    QVERIFY(bodies->window()->parentWidget() == &**m_window);
    const QList<KMTagRigidBody *> tags = KMRigTags::bodies(m_rig);
    const int bones = m_rig->bones().size();
    bodies->selectRow(0);
    bodies->selectionModel()->select(bodies->model()->index(2, 0), QItemSelectionModel::Select);
    QCOMPARE(gSolution->currentTag(), tags[0]);
    QVERIFY((*m_window)->attributeDock()->page()->findChild<QCheckBox *>(QStringLiteral("rigid_check03")));
    QVERIFY(focus(bodies));
    const int before = steps();
    QTest::keyClick(bodies, Qt::Key_Delete);
    QCOMPARE(KMRigTags::bodies(m_rig), QList<KMTagRigidBody *>{tags[1]});
    QCOMPARE(m_rig->bones().size(), bones);
    QCOMPARE(steps(), before + 1);
    QTest::keyClick(bodies, Qt::Key_Delete); // nothing is chosen now
    QTest::keyClick(bodies, Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(steps(), before + 1);
    QTest::keyClick(bodies, Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(KMRigTags::bodies(m_rig).size(), 3);
}

void tst_kmsetupwidget::sheetDeletesOfOneTable()
{
    m_setup->sheetAction()->trigger();
    QTableView *joints = table("jointTable");
    const int before = KMRigTags::joints(m_rig).size();
    table("rigidBodyTable")->selectAll();
    joints->selectRow(1);
    QCOMPARE(KMRigTags::bodies(m_rig).first()->isSelected(), false);
    QVERIFY(!table("rigidBodyTable")->selectionModel()->hasSelection());
    QVERIFY(focus(joints));
    QTest::keyClick(joints, Qt::Key_Delete);
    QCOMPARE(KMRigTags::joints(m_rig).size(), before - 1);
    QCOMPARE(KMRigTags::bodies(m_rig).size(), 3);
}

void tst_kmsetupwidget::keysOfCells_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("column");
    QTest::addColumn<QString>("typed"); // null: no editor opens
    QTest::newRow("digit") << int(Qt::Key_5) << "Mass"
                           << "5";
    QTest::newRow("point") << int(Qt::Key_Period) << "Mass"
                           << ".";
    QTest::newRow("letter") << int(Qt::Key_M) << "Name"
                            << "m";
    QTest::newRow("rename") << int(Qt::Key_F2) << "Mass"
                            << "1";
    QTest::newRow("rename what can't be") << int(Qt::Key_F2) << "Bone" << QString();
    QTest::newRow("all") << int(Qt::CTRL | Qt::Key_A) << "Mass" << QString();
}

/// With the main window there, whose shortcuts most of them are.
void tst_kmsetupwidget::keysOfCells()
{
    QFETCH(int, key);
    QFETCH(QString, column);
    QFETCH(QString, typed);
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    bodies->setCurrentIndex(bodies->model()->index(1, columnOf(bodies, column)));
    QVERIFY(focus(bodies));
    const int before = steps();
    QTest::keyClick(bodies, Qt::Key(key & ~int(Qt::KeyboardModifierMask)),
                    Qt::KeyboardModifiers(key & int(Qt::KeyboardModifierMask)));
    const auto *editor = bodies->findChild<QLineEdit *>();
    QCOMPARE(editor ? editor->text() : QString(), typed);
    QCOMPARE(message() == QStringLiteral("This cell can't be edited"), column == QStringLiteral("Bone"));
    QCOMPARE(KMRigTags::bodies(m_rig).last()->isSelected(), bool(key & Qt::CTRL));
    QCOMPARE(steps(), before);
}

void tst_kmsetupwidget::sheetOfALockedRig()
{
    auto *second = new KMBoneContainer;
    gProject->addNode(second);
    gSolution->setCurrentNode(second);
    KMBone *tail = KMBoneEdit::createBone();
    KMPhysicsMaking::pushBodies({tail}, KMTagRigidBody::Box, false);
    gSolution->setCurrentNode(second);
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    const auto mass = [bodies] { return bodies->model()->index(0, columnOf(bodies, QStringLiteral("Mass"))); };
    for (const bool locksRig : {true, false}) {
        KMContainerNode *locked = locksRig ? static_cast<KMContainerNode *>(second) : tail;
        QCOMPARE(bodies->model()->rowCount(), 1);
        QVERIFY(mass().flags() & Qt::ItemIsEditable);
        gSolution->push(new setLockedCommand(locked, true));
        QCOMPARE(bodies->model()->rowCount(), 1);
        QVERIFY(!(mass().flags() & Qt::ItemIsEditable));
        const int before = steps();
        bodies->clearSelection();
        bodies->selectRow(0);
        QVERIFY(focus(bodies));
        QTest::keyClick(bodies, Qt::Key_Delete);
        QCOMPARE(message(), QStringLiteral("%1 is locked").arg(locked->name()));
        QVERIFY(!bodies->model()->setData(mass(), QStringLiteral("9")));
        QCOMPARE(steps(), before);
        gSolution->push(new setLockedCommand(locked, false));
    }
    gSolution->setCurrentNode(m_rig);
    QTRY_COMPARE(bodies->model()->rowCount(), 3);
}

/// A step that takes rows away may bring the question of an autosave along, under which the table is painted.
void tst_kmsetupwidget::waitingAutoSave()
{
    m_setup->sheetAction()->trigger();
    QTableView *bodies = table("rigidBodyTable");
    KMPhysicsMaking::pushBodies({bone("head")}, KMTagRigidBody::Box, false);
    QCOMPARE(bodies->model()->rowCount(), 4);
    gSolution->setFileName(m_window->filePath("a.kmd"));
    gSolution->setBusy(true);
    gSolution->autoSave();
    gSolution->setBusy(false);
    int rows = -1;
    m_window->prompt.onMessage = [&rows, bodies] { rows = bodies->model()->rowCount(); };
    (*m_window)->undoStack()->undo();
    QCOMPARE(rows, 3);

    KMTagRigidBody body; // hangs on no bone
    KMSheetModel model({}, KMPhysicsColumns::ofBodies());
    model.showTags({&body});
    for (int c = 0; c < model.columnCount(); ++c)
        QVERIFY(model.index(0, c).data().isValid() || model.index(0, c).data(Qt::CheckStateRole).isValid());
}

void tst_kmsetupwidget::pageOfABody()
{
    KMTagRigidBody *body = KMRigTags::bodies(m_rig).first();
    kmattributewidget *attributes = (*m_window)->attributeDock();
    gSolution->setCurrentTag(body);
    attributes->showSubject(kmattributewidget::Tag);
    const auto field = [attributes](const char *name) {
        return attributes->page()->findChild<QWidget *>(QLatin1String(name));
    };
    const auto enabled = [&field] {
        return QVector<bool>{field("width")->isEnabled(), field("height")->isEnabled(), field("depth")->isEnabled()};
    };
    QCOMPARE(enabled(), (QVector<bool>{true, true, false}));
    auto *shape = static_cast<QComboBox *>(field("shape"));
    emit shape->activated(KMTagRigidBody::Sphere);
    QCOMPARE(enabled(), (QVector<bool>{true, false, false}));
    emit shape->activated(KMTagRigidBody::Box);
    QCOMPARE(enabled(), (QVector<bool>{true, true, true}));
    static_cast<QCheckBox *>(field("rigid_check03"))->click();
    QCOMPARE(body->parameters().collisionMask, 8u);
    auto *degrees = field("rotate")->findChild<KMNumberField *>(QStringLiteral("Y"));
    emit degrees->committed(90.0);
    const kvm::Quaternion quarter(0.70710677f, 0.0f, 0.70710677f, 0.0f);
    QVERIFY(dot(body->parameters().pose.rotation, quarter) > 1.0f - 1e-6f);
    QCOMPARE(degrees->shownNumber(), 90.0);
    gSolution->push(new setLockedCommand(body->bone(), true));
    QVERIFY(!field("width")->isEnabled());
}

KM_TEST(tst_kmsetupwidget);

#include "tst_kmsetupwidget.moc"
