#include "core/KMContainerNode.h"
#include "core/KMNullNode.h"
#include "core/KMStringNode.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "support/SceneFakes.h"
#include "support/TestRegistry.h"

#include <QPointer>
#include <QSignalSpy>
#include <QTest>

#include <memory>

class tst_KMContainerNode : public QObject
{
    Q_OBJECT
private slots:
    void selectionIsAnnouncedWhenItChanges();
    void portsAreFoundByObjectName();
    void portWithoutNodeIsKept();
    void tagsAreNumbered_data();
    void tagsAreNumbered();
    void numbersOfTagsEnd();
    void tagListFollowsUndo();
    void clonedTags();
    void ownsItsTags();
};

namespace {

QStringList tagNames(const KMContainerNode &node)
{
    QStringList names;
    for (const KMTagBase *tag : node.tags())
        names << tag->name();
    return names;
}

FakeTag *addNamed(KMContainerNode &node, const QString &name, bool deleted = false)
{
    auto *tag = new FakeTag(name);
    node.addTagKeepName(tag);
    tag->setDeleted(deleted);
    return tag;
}

} // namespace

void tst_KMContainerNode::selectionIsAnnouncedWhenItChanges()
{
    KMContainerNode node;
    const QSignalSpy spy(&node, &KMContainerNode::selectionChanged);
    for (const bool selected : {false, true, true, false})
        node.setSelected(selected);
    QCOMPARE(spy.size(), 2);
    QCOMPARE(spy[0][0].toBool(), true);
    QCOMPARE(spy[1][0].toBool(), false);
}

void tst_KMContainerNode::portsAreFoundByObjectName()
{
    KMContainerNode node;
    KMFloatNode radius;
    KMFloatNode second;
    radius.setObjectName(QStringLiteral("radius"));
    second.setObjectName(QStringLiteral("radius"));
    node.addNodePort(node.visibleNode(), QStringLiteral("Visible"));
    node.addNodePort(&radius, QStringLiteral("Radius"));
    node.addNodePort(&second, QStringLiteral("Other"));
    QCOMPARE(node.nodePort(QStringLiteral("radius")), &radius);
    QCOMPARE(node.nodePort(QStringLiteral("container_visible")), node.visibleNode());
    QVERIFY(!node.nodePort(QStringLiteral("Radius")));         // the label is no key
    QVERIFY(!node.nodePort(QStringLiteral("container_lock"))); // only what was added is a port
}

void tst_KMContainerNode::portWithoutNodeIsKept()
{
    KMContainerNode node;
    QTest::ignoreMessage(QtDebugMsg, "KMContainerNode::addNodePort node == NULL");
    node.addNodePort(nullptr, QStringLiteral("Nothing"));
    node.addNodePort(node.lockedNode(), QStringLiteral("Lock"));
    QCOMPARE(node.ports().size(), 2);
    QVERIFY(!node.ports().first().node);
    QCOMPARE(node.nodePort(QStringLiteral("container_lock")), node.lockedNode());
}

void tst_KMContainerNode::tagsAreNumbered_data()
{
    QTest::addColumn<QStringList>("live");
    QTest::addColumn<QStringList>("deleted");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("result");

    const QStringList none;
    QTest::newRow("first") << none << none << "Group"
                           << "Group0";
    QTest::newRow("next") << QStringList{"Group0", "Group1"} << none << "Group"
                          << "Group2";
    QTest::newRow("gap") << QStringList{"Group0", "Group2"} << none << "Group"
                         << "Group1";
    QTest::newRow("deleted ones are free") << QStringList{"Group1"} << QStringList{"Group0"} << "Group"
                                           << "Group0";
    QTest::newRow("digits of the name stay") << QStringList{"Group0"} << none << "Group0"
                                             << "Group00";
    QTest::newRow("other names") << QStringList{"Groups0", "group0", "Group", "Group01"} << none << "Group"
                                 << "Group0";
    QTest::newRow("placeholder in the name") << QStringList{"%1a%20"} << none << "%1a%2"
                                             << "%1a%21";
    QTest::newRow("empty") << QStringList{"0", "1"} << none << ""
                           << "2";
}

void tst_KMContainerNode::tagsAreNumbered()
{
    QFETCH(QStringList, live);
    QFETCH(QStringList, deleted);
    QFETCH(QString, name);
    KMContainerNode node;
    for (const QString &taken : live)
        addNamed(node, taken);
    for (const QString &gone : deleted)
        addNamed(node, gone, true);

    auto *tag = new FakeTag(name);
    QCOMPARE(node.addTag(tag), live.size() + deleted.size());
    QTEST(tag->name(), "result");
    QCOMPARE(tag->owner(), &node);
    QCOMPARE(node.tag(node.tagCount() - 1), tag);
    QCOMPARE(node.liveTagCount(), live.size() + 1);
}

void tst_KMContainerNode::numbersOfTagsEnd()
{
    KMContainerNode node;
    for (int i = 0; i < 1000; ++i)
        node.addTag(new FakeTag(QStringLiteral("T")));
    QCOMPARE(node.tag(999)->name(), QStringLiteral("T999"));
    QCOMPARE(node.addTag(new FakeTag(QStringLiteral("T"))), 1000);
    QCOMPARE(node.tag(1000)->name(), QStringLiteral("T999"));
}

void tst_KMContainerNode::tagListFollowsUndo()
{
    KMContainerNode node;
    FakeTag *a = addNamed(node, QStringLiteral("A"));
    addNamed(node, QStringLiteral("B"));
    QVERIFY(node.hasTag(a));
    QCOMPARE(node.removeTag(a), 0);
    QVERIFY(!node.hasTag(a));
    QCOMPARE(node.insertTag(1, a), 1);
    QCOMPARE(tagNames(node), (QStringList{"B", "A"}));
    QVERIFY(!node.tag(2));
    node.clearTags();
    QCOMPARE(node.tagCount(), 0);
}

void tst_KMContainerNode::clonedTags()
{
    KMContainerNode source;
    KMContainerNode target;
    addNamed(target, QStringLiteral("Own"));
    addNamed(source, QStringLiteral("A"));
    addNamed(source, QStringLiteral("Gone"), true);
    addNamed(source, QStringLiteral("B"));
    source.cloneTagsTo(&target);
    QCOMPARE(tagNames(target), (QStringList{"Own", "A", "B"}));
    QCOMPARE(tagNames(source), (QStringList{"A", "Gone", "B"}));
    for (const KMTagBase *tag : target.tags()) {
        QCOMPARE(tag->owner(), &target);
        QVERIFY(!source.hasTag(tag));
    }
}

void tst_KMContainerNode::ownsItsTags()
{
    auto node = std::make_unique<KMContainerNode>();
    const QPointer<FakeTag> kept = addNamed(*node, QStringLiteral("A"));
    const QPointer<FakeTag> removed = addNamed(*node, QStringLiteral("B"));
    node->removeTag(removed);
    node.reset();
    QVERIFY(!kept);
    QVERIFY(removed);
    delete removed;
}

KM_TEST(tst_KMContainerNode);

#include "tst_KMContainerNode.moc"
