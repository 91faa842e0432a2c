#include "mesh/KMEdgeTable.h"
#include "mesh/KMRecordPool.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QSet>
#include <QTest>

namespace {

using Pairs = QVector<QPair<int, int>>;

/// All edges of a grid, vertex rows of the given width.
Pairs gridPairs(int width, int height)
{
    Pairs pairs;
    for (int i = 0; i < width * height; ++i) {
        if (i % width + 1 < width)
            pairs << qMakePair(i, i + 1);
        if (i + width < width * height)
            pairs << qMakePair(i + width, i);
    }
    return pairs;
}

Pairs starPairs(int count)
{
    Pairs pairs;
    for (int i = 0; i < count; ++i)
        pairs << qMakePair(i, count);
    return pairs;
}

Pairs randomPairs(int count, int limit)
{
    QRandomGenerator random(7);
    Pairs pairs;
    for (int i = 0; i < count; ++i)
        pairs << qMakePair(int(random.bounded(limit)), int(random.bounded(limit)));
    return pairs;
}

/// Vertices at steps of a power of two: all of them begin their search at the same place.
Pairs stridePairs(int count, int stride)
{
    Pairs pairs;
    for (int i = 0; i < count; ++i)
        pairs << qMakePair(i * stride, i * stride + 1);
    return pairs;
}

} // namespace

Q_DECLARE_METATYPE(Pairs)

class tst_KMEdgeTable : public QObject
{
    Q_OBJECT
private slots:
    void holdsWhatWasAdded_data();
    void holdsWhatWasAdded();
    void edgesStayWhereTheyAre();
    void clearedTableIsFresh();
    void refListGrowsAndShrinks();
    void poolReusesPlaces();
};

void tst_KMEdgeTable::holdsWhatWasAdded_data()
{
    QTest::addColumn<Pairs>("pairs");
    QTest::newRow("grid") << gridPairs(200, 150);
    QTest::newRow("star") << starPairs(50000);
    QTest::newRow("random with repetitions") << randomPairs(60000, 300);
    QTest::newRow("random far apart") << randomPairs(30000, 0x7fffffff);
    QTest::newRow("strides") << stridePairs(20000, 1 << 16);
    QTest::newRow("one vertex twice") << Pairs{{5, 5}, {0, 0}};
}

void tst_KMEdgeTable::holdsWhatWasAdded()
{
    QFETCH(const Pairs, pairs);
    KMEdgeTable table;
    QVector<quint64> order;
    QSet<quint64> known;
    for (const auto &pair : pairs) {
        const KMEdge *edge = table.findOrAdd(pair.first, pair.second);
        if (!known.contains(edge->key()))
            order << edge->key();
        known << edge->key();
    }
    QVector<quint64> walked;
    for (const KMEdge *edge : table)
        walked << edge->key();
    QCOMPARE(walked, order);
    for (const auto &pair : pairs)
        QCOMPARE(table.find(pair.second, pair.first)->key(), KMEdge::keyOf(pair.first, pair.second));
    QRandomGenerator random(3);
    for (int i = 0; i < 1000; ++i) {
        const int a = int(random.bounded(60000));
        const int b = int(random.bounded(60000));
        QCOMPARE(table.find(a, b) != nullptr, known.contains(KMEdge::keyOf(a, b)));
    }
}

void tst_KMEdgeTable::edgesStayWhereTheyAre()
{
    KMEdgeTable table;
    const Pairs pairs = gridPairs(60, 60);
    QVector<KMEdge *> edges;
    for (const auto &pair : pairs)
        edges << table.findOrAdd(pair.first, pair.second);
    table.reserve(1000000);
    for (int i = 0; i < pairs.size(); ++i)
        QCOMPARE(table.find(pairs.at(i).first, pairs.at(i).second), edges.at(i));
}

void tst_KMEdgeTable::clearedTableIsFresh()
{
    KMEdgeTable table;
    QVERIFY(!table.find(1, 2));
    KMEdge *edge = table.findOrAdd(2, 1);
    QCOMPARE(table.findKey(quint64(2) << 32 | 1), edge);
    QVERIFY(!table.findKey(quint64(1) << 32 | 2));
    edge->flags = KMElementFlag::Selected;
    edge->weight = 0.5f;
    edge->faceRefs = {1, 2, 3, 4, 5};
    table.clear();
    QVERIFY(table.isEmpty());
    QVERIFY(!table.find(1, 2));
    const KMEdge *fresh = table.findOrAdd(8, 9);
    QCOMPARE(int(fresh->flags), 0);
    QCOMPARE(fresh->weight, 0.0f);
    QVERIFY(fresh->faceRefs.isEmpty());
    table.release();
    QVERIFY(!table.find(8, 9));
    QVERIFY(table.findOrAdd(8, 9));
}

void tst_KMEdgeTable::refListGrowsAndShrinks()
{
    KMRefList<2> list;
    QVector<int> model;
    QRandomGenerator random(11);
    for (int i = 0; i < 3000; ++i) {
        const int place = model.isEmpty() ? 0 : int(random.bounded(model.size()));
        const int value = int(random.bounded(10));
        switch (random.bounded(5)) {
        case 0:
            list.insert(place, value);
            model.insert(place, value);
            break;
        case 1:
            QCOMPARE(list.removeOne(value), model.removeOne(value));
            break;
        case 2:
            if (!model.isEmpty()) {
                list.removeAt(place);
                model.removeAt(place);
            }
            break;
        default:
            list.append(value);
            model.append(value);
        }
        if (model.size() > 12) {
            list.clear();
            model.clear();
        }
        QCOMPARE(list.toList(), model.toList());
        QCOMPARE(list.indexOf(value), model.indexOf(value));
    }
}

void tst_KMEdgeTable::poolReusesPlaces()
{
    KMRecordPool<KMRefList<2>> pool;
    QVector<KMRefList<2> *> live;
    QSet<KMRefList<2> *> distinct;
    for (int i = 0; i < 5000; ++i) {
        if (i == 1000)
            pool.reserve(2500);
        KMRefList<2> *record = pool.create();
        for (int k = 0; k < i % 6; ++k)
            record->append(i);
        live << record;
        distinct << record;
    }
    QCOMPARE(distinct.size(), live.size());
    for (int i = 0; i < 5000; ++i)
        QVERIFY(live.at(i)->size() == i % 6 && (live.at(i)->isEmpty() || live.at(i)->last() == i));
    for (int i = 0; i < 5000; i += 2) {
        pool.destroy(live.at(i));
        live[i] = nullptr;
    }
    for (int i = 0; i < 5000; i += 2) {
        live[i] = pool.create();
        QVERIFY(live.at(i)->isEmpty());
        QVERIFY(distinct.contains(live.at(i)));
    }
    pool.clear(live);
    QVERIFY(pool.create());
}

KM_TEST(tst_KMEdgeTable);

#include "tst_KMEdgeTable.moc"
