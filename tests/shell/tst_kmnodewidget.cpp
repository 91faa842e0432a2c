#include "core/KMBasicShaderNode.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "shell/KMWindowState.h"
#include "shell/docks/KMNodeRowDelegate.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/kmmainwidget.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"
#include "support/TestWindow.h"

#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QListWidget>
#include <QMimeData>
#include <QSettings>
#include <QTest>
#include <QUndoStack>

#include <memory>

/// The node panel in the real window. The document is a, b(c), i: three nulls and a whole number.
class tst_kmnodewidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void renameInPlace_data();
    void renameInPlace();
    void boxes_data();
    void boxes();
    void boxOfSelection();
    void drop_data();
    void drop();
    void foreignDrop();
    void filter_data();
    void filter();
    void tagIcons();
    void copyByDrop();
    void dropTag_data();
    void dropTag();
    void tagByKeys();
    void keysOfTheShelves();
    void columnsAreRemembered();

private:
    QRect cell(const KMContainerNode *node, int column) const;
    void click(const KMContainerNode *node, int column) const;
    KMContainerNode *named(const QString &name) const;
    QString shape() const;
    static QMimeData *drag(const QList<KMContainerNode *> &nodes);
    static void dropAt(const QPoint &position, const QMimeData *data, Qt::KeyboardModifiers held = Qt::NoModifier);
    QPoint tagCentre(const KMContainerNode *node, int place) const;
    static QString tagNames(const KMContainerNode *node);

    std::unique_ptr<TestWindow> m_window;
    KMTreeWidget *m_tree = nullptr;
    KMNullNode *m_a = nullptr, *m_b = nullptr, *m_c = nullptr;
    KMContainerNode *m_i = nullptr;
};

void tst_kmnodewidget::init()
{
    m_window = std::make_unique<TestWindow>();
    m_tree = gProject->tree();
    m_c = m_window->create<KMNullNode>("actionCreateNull");
    m_window->trigger("actionGroup");
    m_b = static_cast<KMNullNode *>(KMTreeWidget::parentNodeOf(m_c));
    m_a = m_window->create<KMNullNode>("actionCreateNull");
    m_i = m_window->create<KMContainerNode>("actionCreateInt");
    const QList<KMContainerNode *> nodes{m_a, m_b, m_c, m_i};
    const QString names = QStringLiteral("abci");
    for (int i = 0; i < nodes.size(); ++i) {
        nodes[i]->setName(names.mid(i, 1));
        KMTreeWidget::showState(nodes[i]->item());
    }
    m_tree->addTopLevelItem(m_tree->takeTopLevelItem(m_tree->indexOfTopLevelItem(m_b->item())));
    m_tree->addTopLevelItem(m_tree->takeTopLevelItem(m_tree->indexOfTopLevelItem(m_i->item())));
    m_tree->expandAll();
    gSolution->clearHistory();
    QCOMPARE(shape(), QStringLiteral("a b(c) i"));
}

void tst_kmnodewidget::cleanup()
{
    m_window.reset();
}

QRect tst_kmnodewidget::cell(const KMContainerNode *node, int column) const
{
    const QRect row = m_tree->visualItemRect(node->item());
    return {m_tree->columnViewportPosition(column), row.top(), m_tree->columnWidth(column), row.height()};
}

void tst_kmnodewidget::click(const KMContainerNode *node, int column) const
{
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, cell(node, column).center());
}

KMContainerNode *tst_kmnodewidget::named(const QString &name) const
{
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree)) {
        if (row->text(0) == name)
            return KMTreeWidget::nodeOf(row);
    }
    return nullptr;
}

QString tst_kmnodewidget::shape() const
{
    QStringList rows;
    for (int i = 0; i < m_tree->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = m_tree->topLevelItem(i);
        QStringList children;
        for (int k = 0; k < row->childCount(); ++k)
            children << row->child(k)->text(0);
        rows << row->text(0) + (children.isEmpty() ? QString() : QStringLiteral("(%1)").arg(children.join(' ')));
    }
    return rows.join(' ');
}

/// What a drag of these rows carries.
QMimeData *tst_kmnodewidget::drag(const QList<KMContainerNode *> &nodes)
{
    struct Tree : KMTreeWidget
    {
        using KMTreeWidget::mimeData;
    };
    QList<QTreeWidgetItem *> rows;
    gProject->tree()->clearSelection();
    for (const KMContainerNode *node : nodes) {
        node->item()->setSelected(true);
        rows << node->item();
    }
    return (gProject->tree()->*(&Tree::mimeData))(rows);
}

/// Enter, move and drop, as the window system would deliver them.
void tst_kmnodewidget::dropAt(const QPoint &position, const QMimeData *data, Qt::KeyboardModifiers held)
{
    QWidget *viewport = gProject->tree()->viewport();
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(position, actions, data, Qt::LeftButton, held);
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(position, actions, data, Qt::LeftButton, held);
    QApplication::sendEvent(viewport, &move);
    QDropEvent drop(position, actions, data, Qt::LeftButton, held);
    QApplication::sendEvent(viewport, &drop);
}

void tst_kmnodewidget::renameInPlace_data()
{
    QTest::addColumn<QString>("typed");
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("steps");

    QTest::newRow("enter") << "hip" << int(Qt::Key_Return) << "hip" << 1;
    QTest::newRow("escape") << "hip" << int(Qt::Key_Escape) << "a" << 0;
    QTest::newRow("same name") << "a" << int(Qt::Key_Return) << "a" << 0;
    QTest::newRow("blank") << "  " << int(Qt::Key_Return) << "a" << 0;
}

void tst_kmnodewidget::renameInPlace()
{
    QFETCH(QString, typed);
    QFETCH(int, key);
    QFETCH(QString, name);
    QFETCH(int, steps);
    m_tree->setCurrentItem(m_a->item());
    m_window->trigger("actionRename");
    auto *editor = m_tree->findChild<QLineEdit *>();
    QVERIFY(editor);
    editor->selectAll();
    QTest::keyClicks(editor, typed);
    QTest::keyClick(editor, Qt::Key(key));
    QTRY_VERIFY(!m_tree->findChild<QLineEdit *>()); // the editor hands over after the key was handled
    QCOMPARE(m_a->name(), name);
    QCOMPARE(m_a->item()->text(0), name);
    QCOMPARE((*m_window)->undoStack()->count(), steps);
    (*m_window)->undoStack()->undo();
    QCOMPARE(m_a->item()->text(0), QStringLiteral("a"));
}

void tst_kmnodewidget::boxes_data()
{
    QTest::addColumn<int>("column");

    QTest::newRow("visible") << int(KMTreeWidget::VisibleColumn);
    QTest::newRow("locked") << int(KMTreeWidget::LockColumn);
}

void tst_kmnodewidget::boxes()
{
    QFETCH(int, column);
    const auto value = [&] { return column == KMTreeWidget::VisibleColumn ? m_a->isVisible() : m_a->isLocked(); };
    click(m_a, column);
    QCOMPARE(m_a->item()->checkState(column), Qt::Checked);
    QVERIFY(value());
    click(m_a, column);
    QCOMPARE(m_a->item()->checkState(column), Qt::Unchecked);
    QVERIFY(!value());
    QCOMPARE((*m_window)->undoStack()->count(), 2);
    (*m_window)->undoStack()->undo();
    QVERIFY(value());
}

void tst_kmnodewidget::boxOfSelection()
{
    m_tree->clearSelection();
    m_a->item()->setSelected(true);
    m_c->item()->setSelected(true);
    click(m_c, KMTreeWidget::LockColumn);
    QVERIFY(m_a->isLocked() && m_c->isLocked() && !m_b->isLocked());
    QCOMPARE((*m_window)->undoStack()->count(), 1);
}

void tst_kmnodewidget::drop_data()
{
    QTest::addColumn<QString>("dragged");
    QTest::addColumn<QString>("target"); // empty for the free space below
    QTest::addColumn<int>("height");     // of the drop in the row: -1 its upper edge, 0 its middle, 1 its lower edge
    QTest::addColumn<QString>("shapeAfter");

    QTest::newRow("into another") << "i"
                                  << "a" << 0 << "a(i) b(c)";
    QTest::newRow("above a top-level row") << "i"
                                           << "a" << -1 << "i a b(c)";
    QTest::newRow("below a top-level row") << "i"
                                           << "a" << 1 << "a i b(c)";
    QTest::newRow("above a child") << "i"
                                   << "c" << -1 << "a b(i c)";
    QTest::newRow("below a child") << "i"
                                   << "c" << 1 << "a b(c i)";
    QTest::newRow("to the end") << "c"
                                << "" << 0 << "a b i c";
    QTest::newRow("two in their order") << "ai"
                                        << "b" << 0 << "b(c a i)";
    QTest::newRow("above one of the dragged") << "ai"
                                              << "i" << -1 << "b(c) a i";
    QTest::newRow("into itself") << "b"
                                 << "b" << 0 << "a b(c) i";
    QTest::newRow("into its child") << "b"
                                    << "c" << 0 << "a b(c) i";
}

void tst_kmnodewidget::drop()
{
    QFETCH(QString, dragged);
    QFETCH(QString, target);
    QFETCH(int, height);
    QFETCH(QString, shapeAfter);
    const QString before = shape();
    QList<KMContainerNode *> nodes;
    for (const QChar name : dragged)
        nodes << named(name);
    const std::unique_ptr<QMimeData> data(drag(nodes));
    QPoint position(20, m_tree->viewport()->height() - 4);
    if (!target.isEmpty()) {
        const QRect row = m_tree->visualItemRect(named(target)->item());
        position = {row.left() + 20, height < 0 ? row.top() : height > 0 ? row.bottom() : row.center().y()};
    }
    dropAt(position, data.get());
    QCOMPARE(shape(), shapeAfter);
    QCOMPARE((*m_window)->undoStack()->count(), before == shapeAfter ? 0 : 1);
    (*m_window)->undoStack()->undo();
    QCOMPARE(shape(), before);
}

void tst_kmnodewidget::foreignDrop()
{
    const QPoint onA = m_tree->visualItemRect(m_a->item()).center();
    QMimeData otherRun;
    QByteArray bytes;
    QDataStream(&bytes, QIODevice::WriteOnly) << QCoreApplication::applicationPid() + 1 << qulonglong(quintptr(m_i));
    otherRun.setData(KMTreeWidget::NodeMimeType, bytes);
    dropAt(onA, &otherRun);
    const std::unique_ptr<QMimeData> gone(drag({m_i}));
    gProject->deleteNode(m_i);
    dropAt(onA, gone.get());
    QCOMPARE(shape(), QStringLiteral("a b(c)"));
}

void tst_kmnodewidget::filter_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("family");
    QTest::addColumn<QString>("shown");

    QTest::newRow("all") << "" << int(KMNodeFilter::AnyFamily) << "abci";
    QTest::newRow("by name, with the rows above") << "C" << int(KMNodeFilter::AnyFamily) << "bc";
    QTest::newRow("by family") << "" << int(KMNodeFilter::Values) << "i";
    QTest::newRow("both") << "a" << int(KMNodeFilter::Nulls) << "a";
    QTest::newRow("none") << "a" << int(KMNodeFilter::Meshes) << "";
}

void tst_kmnodewidget::filter()
{
    QFETCH(QString, text);
    QFETCH(int, family);
    QFETCH(QString, shown);
    m_window->child<QLineEdit>("nodeFilterText")->setText(text);
    m_window->child<QComboBox>("nodeFilterFamily")->setCurrentIndex(family);
    const auto visibleRows = [this] {
        QString names;
        for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree)) {
            if (!row->isHidden())
                names += row->text(0);
        }
        return names;
    };
    QCOMPARE(visibleRows(), shown);
    QCOMPARE(gSolution->isNodeFilterOn(), shown != QLatin1String("abci"));
    m_window->prompt.buttons << QMessageBox::Discard;
    m_window->trigger("actionNew");
    m_window->trigger("actionCreateNull");
    QCOMPARE(visibleRows(), QStringLiteral("Null0"));
}

void tst_kmnodewidget::tagIcons()
{
    gSolution->push(new addTagCommand(m_a, new TestTag(QStringLiteral("Group"))));
    gSolution->push(new addTagCommand(m_a, new TestTag(QStringLiteral("Group"))));
    const QRect tags = cell(m_a, KMTreeWidget::TagColumn);
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, KMNodeRowDelegate::tagRect(tags, 1).center());
    QCOMPARE(gSolution->currentTag(), m_a->tag(1));
    QVERIFY(m_a->tag(1)->isSelected());
    auto *name = (*m_window)->attributeDock()->findChild<QLineEdit *>(QStringLiteral("name"));
    QCOMPARE(name->text(), QStringLiteral("Group1"));

    gSolution->push(new deleteTagCommand(m_a, m_a->tag(0))); // the icons close up
    QCOMPARE(KMNodeRowDelegate::tagAt(m_a, tags, KMNodeRowDelegate::tagRect(tags, 0).center()), m_a->tag(1));
    click(m_b, KMTreeWidget::NameColumn);
    QVERIFY(!gSolution->currentTag());
    QVERIFY(!m_a->tag(1)->isSelected());
}

QPoint tst_kmnodewidget::tagCentre(const KMContainerNode *node, int place) const
{
    return KMNodeRowDelegate::tagRect(cell(node, KMTreeWidget::TagColumn), place).center();
}

QString tst_kmnodewidget::tagNames(const KMContainerNode *node)
{
    QStringList names;
    for (const KMTagBase *tag : node->tags()) {
        if (!tag->isDeleted())
            names << tag->name();
    }
    return names.join(' ');
}

void tst_kmnodewidget::copyByDrop()
{
    const std::unique_ptr<QMimeData> data(drag({m_b}));
    const QRect row = m_tree->visualItemRect(m_a->item());
    dropAt({row.left() + 20, row.top()}, data.get(), Qt::ControlModifier);
    QCOMPARE(shape(), QStringLiteral("b0(c0) a b(c) i"));
    QCOMPARE((*m_window)->undoStack()->count(), 1);
}

void tst_kmnodewidget::dropTag_data()
{
    QTest::addColumn<int>("dragged"); // place of the tag on a
    QTest::addColumn<QString>("target");
    QTest::addColumn<int>("place"); // on whose left side it is dropped; -1 for the name of the target
    QTest::addColumn<bool>("asCopy");
    QTest::addColumn<QString>("tagsOfA");
    QTest::addColumn<QString>("tagsOfB");

    QTest::newRow("to another node") << 1 << "b" << -1 << false << "T0 T2"
                                     << "S0 T1";
    QTest::newRow("before its tag") << 1 << "b" << 0 << false << "T0 T2"
                                    << "T1 S0";
    QTest::newRow("copy to another node") << 1 << "b" << -1 << true << "T0 T1 T2"
                                          << "S0 T1";
    QTest::newRow("to the front") << 2 << "a" << 0 << false << "T2 T0 T1"
                                  << "S0";
    QTest::newRow("to the end") << 0 << "a" << 3 << false << "T1 T2 T0"
                                << "S0";
    QTest::newRow("beside itself") << 1 << "a" << 2 << false << "T0 T1 T2"
                                   << "S0";
    QTest::newRow("to the free space") << 1 << "" << -1 << false << "T0 T1 T2"
                                       << "S0";
}

void tst_kmnodewidget::dropTag()
{
    QFETCH(int, dragged);
    QFETCH(QString, target);
    QFETCH(int, place);
    QFETCH(bool, asCopy);
    m_tree->header()->resizeSection(KMTreeWidget::TagColumn, 120);
    for (int i = 0; i < 3; ++i)
        gSolution->push(new addTagCommand(m_a, new TestTag(QStringLiteral("T"))));
    gSolution->push(new addTagCommand(m_b, new TestTag(QStringLiteral("S"))));
    gSolution->clearHistory();
    const std::unique_ptr<QMimeData> data(m_tree->mimeDataOf(m_a->tag(dragged)));
    QPoint position(20, m_tree->viewport()->height() - 4);
    if (!target.isEmpty())
        position = place < 0 ? cell(named(target), KMTreeWidget::NameColumn).center()
                             : tagCentre(named(target), place) - QPoint(4, 0);
    dropAt(position, data.get(), asCopy ? Qt::ControlModifier : Qt::NoModifier);
    QTEST(tagNames(m_a), "tagsOfA");
    QTEST(tagNames(m_b), "tagsOfB");
    (*m_window)->undoStack()->undo();
    QCOMPARE(tagNames(m_a), QStringLiteral("T0 T1 T2"));
    QCOMPARE(tagNames(m_b), QStringLiteral("S0"));
}

/// While a tag is selected, the entries of the Edit menu are meant for it and not for its node.
void tst_kmnodewidget::tagByKeys()
{
    gSolution->push(new addTagCommand(m_a, new TestTag(QStringLiteral("T"))));
    QVERIFY(m_window->focus(m_tree));
    QTest::mouseClick(m_tree->viewport(), Qt::LeftButton, Qt::NoModifier, tagCentre(m_a, 0));
    m_window->trigger("actionCopy");
    m_window->trigger("actionDelete");
    QCOMPARE(tagNames(m_a), QString());
    QCOMPARE(shape(), QStringLiteral("a b(c) i"));
    m_tree->setCurrentItem(m_b->item());
    m_c->item()->setSelected(true);
    m_window->trigger("actionPaste");
    QCOMPARE(tagNames(m_b) + tagNames(m_c), QStringLiteral("T0T0"));
    m_window->trigger("actionUndo");
    QCOMPARE(tagNames(m_b) + tagNames(m_c), QString());
    click(m_i, KMTreeWidget::NameColumn);
    m_window->trigger("actionDelete");
    QCOMPARE(shape(), QStringLiteral("a b(c)"));
    QVERIFY(m_tree->hasFocus());
}

/// Delete, F2 and the like reach the shader that was clicked; the selected nodes are safe.
void tst_kmnodewidget::keysOfTheShelves()
{
    m_window->trigger("actionCreateShader");
    m_window->trigger("actionCreateShader");
    m_tree->setCurrentItem(m_a->item());
    auto *list = m_window->child<QListWidget>("kmshaderwidgetList");
    QVERIFY(m_window->focus(list));
    list->setCurrentRow(1);
    QTest::keyClick(list, Qt::Key_F2);
    auto *editor = list->findChild<QLineEdit *>();
    QVERIFY(editor);
    QTest::keyClicks(editor, QStringLiteral("skin"));
    QTest::keyClick(editor, Qt::Key_Return);
    QTRY_COMPARE(gProject->shaders().at(1)->name(), QStringLiteral("skin"));

    QTest::keySequence(list, QKeySequence(QStringLiteral("Ctrl+C")));
    QTest::keySequence(list, QKeySequence(QStringLiteral("Ctrl+V")));
    QCOMPARE(gProject->shaders().size(), 3);
    QCOMPARE(gProject->shaders().at(2)->name(), QStringLiteral("skin"));
    list->setCurrentRow(0);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(gProject->shaders().size(), 2);
    QCOMPARE(gSolution->currentShader(), gProject->shaders().nodes().first()); // the one that moved up
    QCOMPARE(shape(), QStringLiteral("a b(c) i"));
    list->setCurrentItem(nullptr);
    QTest::keyClick(list, Qt::Key_Delete);
    QCOMPARE(shape(), QStringLiteral("a b(c) i"));
}

void tst_kmnodewidget::columnsAreRemembered()
{
    (*m_window)->nodeDock()->setResizeMode(kmnodewidget::FitContents);
    m_window->reopen();
    QCOMPARE((*m_window)->nodeDock()->resizeMode(), kmnodewidget::FitContents);
    QSettings(m_window->filePath("geometry.ini"), QSettings::IniFormat)
        .setValue(QStringLiteral("nodeWidget/resizeMode"), 99);
    KMWindowState::restore(**m_window);
    QCOMPARE((*m_window)->nodeDock()->resizeMode(), kmnodewidget::FitContents);
}

KM_TEST(tst_kmnodewidget);
#include "tst_kmnodewidget.moc"
