#include "core/KMBasicShaderNode.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTreeWidget.h"
#include "shell/docks/KMNodeRowDelegate.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/docks/kmnodewidget.h"
#include "shell/kmmainwidget.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"
#include "support/TestWindow.h"

#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
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

private:
    QRect cell(const KMContainerNode *node, int column) const;
    void click(const KMContainerNode *node, int column) const;
    KMContainerNode *named(const QString &name) const;
    QString shape() const;
    static QMimeData *drag(const QList<KMContainerNode *> &nodes);
    static void dropAt(const QPoint &position, const QMimeData *data);

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
void tst_kmnodewidget::dropAt(const QPoint &position, const QMimeData *data)
{
    QWidget *viewport = gProject->tree()->viewport();
    const Qt::DropActions actions = Qt::MoveAction | Qt::CopyAction;
    QDragEnterEvent enter(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &enter);
    QDragMoveEvent move(position, actions, data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(viewport, &move);
    QDropEvent drop(position, actions, data, Qt::LeftButton, Qt::NoModifier);
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

KM_TEST(tst_kmnodewidget);
#include "tst_kmnodewidget.moc"
