#include "core/KMContainerNode.h"
#include "core/KMVariantNode.h"
#include "support/SceneFakes.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <memory>

class tst_KMContainerNode : public QObject
{
    Q_OBJECT
private slots:
    void tagsAreNumbered_data();
    void tagsAreNumbered();
    void numbersOfTagsEnd();
    void clonedTags();
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

void tst_KMContainerNode::tagsAreNumbered_data()
{
    QTest::addColumn<QStringList>("live");
    QTest::addColumn<QStringList>("deleted");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("result");

    const QStringList none;
    QTest::newRow("first") << none << none << "Group"
                           << "Group0";
    QTest::newRow("gap") << QStringList{"Group0", "Group2"} << none << "Group"
                         << "Group1";
    QTest::newRow("deleted ones are free") << QStringList{"Group1"} << QStringList{"Group0"} << "Group"
                                           << "Group0";
    QTest::newRow("digits of the name stay") << QStringList{"Group0"} << none << "Group0"
                                             << "Group00";
    QTest::newRow("placeholder in the name") << QStringList{"%1a%20"} << none << "%1a%2"
                                             << "%1a%21";
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

KM_TEST(tst_KMContainerNode);

#include "tst_KMContainerNode.moc"
