#include "core/KMVariantNode.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <memory>
#include <vector>

class tst_KMVariantNode : public QObject
{
    Q_OBJECT
private slots:
    void changesTravelDepthFirst_data();
    void changesTravelDepthFirst();
    void ringsEnd_data();
    void ringsEnd();
    void blockedNodeChangesQuietly();
    void newTargetTakesTheValueAtOnce();
    void slotsMayDisconnect();
    void slotsMaySetValues();
};

namespace {

/// Value nodes a, b, c, ... that note in which order they announce themselves.
class Network
{
public:
    explicit Network(int count)
    {
        for (int i = 0; i < count; ++i) {
            m_nodes.push_back(std::make_unique<KMIntNode>());
            KMIntNode *node = m_nodes.back().get();
            QObject::connect(node, &KMVariantNode::refresh, [this, i] { m_announced += QChar('a' + i); });
        }
    }

    /// Wires such as "ab bc": a drives b, b drives c.
    void connect(const QString &wires)
    {
        for (const QString &wire : wires.split(' ', Qt::SkipEmptyParts))
            at(wire[0]).addTarget(&at(wire[1]));
        m_announced.clear();
    }

    KMIntNode &at(QChar name) { return *m_nodes[size_t(name.unicode() - 'a')]; }
    QString takeAnnounced() { return std::exchange(m_announced, {}); }

    QVector<int> values() const
    {
        QVector<int> values;
        for (const auto &node : m_nodes)
            values << node->toInt();
        return values;
    }

private:
    std::vector<std::unique_ptr<KMIntNode>> m_nodes;
    QString m_announced;
};

} // namespace

void tst_KMVariantNode::changesTravelDepthFirst_data()
{
    QTest::addColumn<QString>("wires");
    QTest::addColumn<QString>("announced");

    const auto row = [](const char *name, const char *wires, const char *announced) {
        QTest::newRow(name) << QString::fromUtf8(wires) << QString::fromUtf8(announced);
    };
    row("alone", "bc", "a");
    row("chain", "ab bc cd", "dcba");
    row("two branches", "ab ad bc de", "cbeda");
    row("two ways to one", "ab ac bd cd de", "edbedca");
}

void tst_KMVariantNode::changesTravelDepthFirst()
{
    QFETCH(QString, wires);
    QFETCH(QString, announced);
    Network net(6);
    net.connect(wires);
    net.at('a').setInt(5);
    QCOMPARE(net.takeAnnounced(), announced);
    for (const QChar name : QStringLiteral("abcdef"))
        QCOMPARE(net.at(name).toInt(), announced.contains(name) ? 5 : 0);
}

void tst_KMVariantNode::ringsEnd_data()
{
    QTest::addColumn<QString>("wires");
    QTest::addColumn<QString>("announced");

    const auto row = [](const char *name, const char *wires, const char *announced) {
        QTest::newRow(name) << QString::fromUtf8(wires) << QString::fromUtf8(announced);
    };
    row("itself", "aa", "aa");
    row("two", "ab ba", "aba");
    row("three", "ab bc ca", "acba");
    row("beside the start", "ab bc cb", "bcba");
    row("further on, with a way out", "ab bc cd dc ce", "cdecba");
}

void tst_KMVariantNode::ringsEnd()
{
    QFETCH(QString, wires);
    QFETCH(QString, announced);
    Network net(5);
    net.connect(wires);
    net.at('a').setInt(3);
    QCOMPARE(net.takeAnnounced(), announced);
    for (const QChar name : wires)
        QVERIFY(name == ' ' || net.at(name).toInt() == 3);
}

void tst_KMVariantNode::blockedNodeChangesQuietly()
{
    Network net(3);
    net.connect(QStringLiteral("ab bc"));
    net.at('a').setBlocked(true);
    net.at('a').setInt(7);
    QCOMPARE(net.values(), (QVector<int>{7, 0, 0}));
    QCOMPARE(net.takeAnnounced(), QString());
    net.at('a').setBlocked(false);
    net.at('b').setBlocked(true); // concerns its own setter only, not what comes along a wire
    net.at('a').setInt(8);
    QCOMPARE(net.values(), (QVector<int>{8, 8, 8}));
}

void tst_KMVariantNode::newTargetTakesTheValueAtOnce()
{
    Network net(3);
    net.connect(QStringLiteral("bc"));
    net.at('a').setBlocked(true);
    net.at('a').setInt(4);
    net.at('a').addTarget(&net.at('b'));
    QCOMPARE(net.values(), (QVector<int>{4, 4, 4}));
    QCOMPARE(net.takeAnnounced(), QStringLiteral("cb"));
}

void tst_KMVariantNode::slotsMayDisconnect()
{
    Network net(3);
    net.connect(QStringLiteral("ab ac"));
    connect(&net.at('b'), &KMVariantNode::refresh, [&net] { net.at('a').removeTarget(&net.at('b')); });
    net.at('a').setInt(6);
    QCOMPARE(net.values(), (QVector<int>{6, 6, 6}));
    net.at('a').setInt(9);
    QCOMPARE(net.values(), (QVector<int>{9, 6, 9}));
}

void tst_KMVariantNode::slotsMaySetValues()
{
    Network net(3);
    net.connect(QStringLiteral("ab bc"));
    connect(&net.at('c'), &KMVariantNode::refresh, [&net] {
        if (net.at('b').toInt() > 10)
            net.at('b').setInt(10); // a limit, set while the change is still on its way
    });
    net.at('a').setInt(20);
    QCOMPARE(net.values(), (QVector<int>{20, 10, 10}));
}

KM_TEST(tst_KMVariantNode);

#include "tst_KMVariantNode.moc"
