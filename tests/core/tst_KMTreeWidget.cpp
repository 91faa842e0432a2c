#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"
#include "support/SceneFakes.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <map>
#include <memory>

class tst_KMTreeWidget : public QObject
{
    Q_OBJECT
private slots:
    void topSelectedItems_data();
    void topSelectedItems();
    void copiesRowState();
    void leavesOtherShapesAlone();
};

namespace {

/// A tree of one-letter nulls, written as "A(B(C) D) E".
class LetterTree
{
public:
    explicit LetterTree(const char *text)
    {
        QTreeWidgetItem *parent = nullptr;
        QTreeWidgetItem *last = nullptr;
        for (; *text; ++text) {
            if (*text == '(')
                parent = last;
            else if (*text == ')')
                parent = parent->parent();
            else if (*text != ' ')
                last = add(*text, parent);
        }
    }

    KMTreeWidget tree;
    QTreeWidgetItem *row(char name) { return m_nodes.at(name)->item(); }
    FakeNode *node(char name) { return m_nodes.at(name).get(); }

private:
    QTreeWidgetItem *add(char name, QTreeWidgetItem *parent)
    {
        auto node = std::make_unique<FakeNode>(KMNodeType::Null, QString(QLatin1Char(name)));
        QTreeWidgetItem *row = KMTreeWidget::makeRow(node.get());
        node->setItem(row);
        tree.insertRow(parent, -1, row);
        m_nodes[name] = std::move(node);
        return row;
    }

    std::map<char, std::unique_ptr<FakeNode>> m_nodes;
};

QString namesOf(const QList<QTreeWidgetItem *> &rows)
{
    QString names;
    for (const QTreeWidgetItem *row : rows)
        names += KMTreeWidget::nodeOf(row)->name();
    return names;
}

} // namespace

void tst_KMTreeWidget::topSelectedItems_data()
{
    QTest::addColumn<QString>("rows");
    QTest::addColumn<QString>("nodes");
    QTest::addColumn<QString>("result");

    const auto row = [](const char *name, const char *rows, const char *nodes, const char *result) {
        QTest::newRow(name) << QString::fromUtf8(rows) << QString::fromUtf8(nodes) << QString::fromUtf8(result);
    };
    row("nothing", "", "", "");
    row("in order of the tree", "FCE", "FCE", "CEF");
    row("below the parent", "BCD", "BCD", "B");
    row("below a grandparent", "AD", "AD", "A");
    row("parent's row alone", "BC", "C", "BC");
    row("parent's node alone", "C", "BC", "C");
}

void tst_KMTreeWidget::topSelectedItems()
{
    QFETCH(QString, rows);
    QFETCH(QString, nodes);
    LetterTree letters("A(B(C D) E) F(G)");
    for (const QChar name : rows)
        letters.row(name.toLatin1())->setSelected(true);
    for (const QChar name : nodes)
        letters.node(name.toLatin1())->setSelected(true);
    QTEST(namesOf(KMTreeWidget::topSelectedItems(&letters.tree)), "result");
}

void tst_KMTreeWidget::copiesRowState()
{
    LetterTree letters("A(B(C) D) E(F(G) H)");
    letters.row('A')->setExpanded(true);
    letters.row('D')->setHidden(true);
    letters.row('F')->setExpanded(true);
    letters.row('G')->setHidden(true);
    KMTreeWidget::copyRowState(letters.row('A'), letters.row('E'));
    QVERIFY(letters.row('E')->isExpanded());
    QVERIFY(!letters.row('F')->isExpanded());
    QVERIFY(!letters.row('G')->isHidden());
    QVERIFY(letters.row('H')->isHidden());
    QVERIFY(letters.row('A')->isExpanded() && letters.row('D')->isHidden());
}

void tst_KMTreeWidget::leavesOtherShapesAlone()
{
    LetterTree letters("A(B C) D(E)");
    letters.row('A')->setExpanded(true);
    KMTreeWidget::copyRowState(letters.row('A'), letters.row('D'));
    KMTreeWidget::copyRowState(nullptr, letters.row('A'));
    KMTreeWidget::copyRowState(letters.row('D'), nullptr);
    QVERIFY(!letters.row('D')->isExpanded());
    QVERIFY(letters.row('A')->isExpanded());
}

KM_TEST(tst_KMTreeWidget);

#include "tst_KMTreeWidget.moc"
