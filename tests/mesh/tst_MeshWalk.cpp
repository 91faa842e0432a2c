#include "support/MeshWalker.h"
#include "support/TestRegistry.h"

#include <QTest>

using Maker = KMMeshNode *(*)();

Q_DECLARE_METATYPE(Maker)

class tst_MeshWalk : public QObject
{
    Q_OBJECT
private slots:
    void everyStepIsSound_data();
    void everyStepIsSound();
};

void tst_MeshWalk::everyStepIsSound_data()
{
    static const std::pair<const char *, Maker> starts[] = {
        {"grid", [] { return MeshFixtures::grid(4, 4); }},
        {"torus", [] { return MeshFixtures::torus(4, 3); }},
        {"cube", &MeshFixtures::cube},
        {"fan", [] { return MeshFixtures::nonManifoldFan(); }},
        {"mixed", &MeshFixtures::mixedBag},
        {"empty", [] { return MeshFixtures::grid(0, 0); }},
    };
    const quint32 seeds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 500 : 12;
    QTest::addColumn<Maker>("make");
    QTest::addColumn<quint32>("seed");
    for (const auto &start : starts) {
        for (quint32 seed = 1; seed <= seeds; ++seed)
            QTest::addRow("%s %u", start.first, seed) << start.second << seed;
    }
}

void tst_MeshWalk::everyStepIsSound()
{
    QFETCH(const Maker, make);
    QFETCH(const quint32, seed);
    MeshWalker walker(make(), seed);
    walker.start();
    for (int i = 0; i < 120; ++i) {
        walker.step();
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
    for (const int index : {0, walker.length(), 0, walker.length() / 2}) {
        walker.goTo(index);
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
}

KM_TEST(tst_MeshWalk);

#include "tst_MeshWalk.moc"
