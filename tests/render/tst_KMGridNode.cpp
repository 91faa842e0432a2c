#include "core/KMHeadlessSession.h"
#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMGridNode.h"
#include "support/TestRegistry.h"

#include <QTest>

using kvm::Vector3;

class tst_KMGridNode : public QObject
{
    Q_OBJECT
private slots:
    void standardGrids_data();
    void standardGrids();
    void otherSizes();
};

void tst_KMGridNode::standardGrids_data()
{
    QTest::addColumn<int>("kind");
    QTest::addColumn<int>("elements");
    QTest::addColumn<Vector3>("low");
    QTest::addColumn<Vector3>("high");
    QTest::addColumn<int>("lastColor"); // of the last line
    QTest::newRow("perspective") << 1 << 136 << Vector3(-400, 0, -400) << Vector3(400, 0, 400) << int(DP_GRID_Z);
    QTest::newRow("top") << 2 << 136 << Vector3(-400, 0, -400) << Vector3(400, 0, 400) << int(DP_GRID_Z);
    QTest::newRow("front") << 4 << 136 << Vector3(-400, -400, 0) << Vector3(400, 400, 0) << int(DP_GRID_Y);
    QTest::newRow("right") << 8 << 136 << Vector3(0, -400, -400) << Vector3(0, 400, 400) << int(DP_GRID_Y);
    QTest::newRow("uv") << 16 << 68 << Vector3(0, 0, 0) << Vector3(100, 100, 0) << int(DP_GRID_UV);
}

void tst_KMGridNode::standardGrids()
{
    const KMHeadlessSession session;
    QFETCH(int, kind);
    QFETCH(Vector3, low);
    QFETCH(Vector3, high);
    const KMGridNode grid(kind);
    QTEST(grid.lines().size(), "elements");
    Vector3 least = grid.lines().first().vertex, most = least;
    for (const KMLineElement &element : grid.lines()) {
        for (int i = 0; i < 3; ++i) {
            least[i] = qMin(least[i], element.vertex[i]);
            most[i] = qMax(most[i], element.vertex[i]);
        }
    }
    QCOMPARE(least, low);
    QCOMPARE(most, high);
    QFETCH(int, lastColor);
    QCOMPARE(grid.lines().last().color, toVector(gSettings->displayColor(lastColor)));
    const int side = grid.cells();
    QCOMPARE(grid.crossings().size(), (side + 1) * (side + 1));
    QCOMPARE(grid.cellCentres().size(), side * side);
    QCOMPARE(grid.crossings().first(), low);
    QCOMPARE(grid.crossings().last(), high);
    QCOMPARE(grid.cellCentres().first() - low, (grid.crossings().at(side + 2) - low) * 0.5f);
}

void tst_KMGridNode::otherSizes()
{
    const KMHeadlessSession session;
    KMGridNode grid(KMCameraNode::Perspective);
    grid.setCells(0, 10);
    grid.setCells(KMGridNode::MostCells + 1, 10);
    grid.setCells(4, 0);
    QCOMPARE(grid.cells(), 32);
    const auto linesOnAxes = [&grid] { // of the plain ones that would fight with an axis
        int count = 0;
        for (int i = 0; i < grid.lines().size() - 4; i += 2) {
            const Vector3 a = grid.lines().at(i).vertex, b = grid.lines().at(i + 1).vertex;
            count += a != b && ((a.x == 0 && b.x == 0) || (a.z == 0 && b.z == 0));
        }
        return count;
    };
    QCOMPARE(linesOnAxes(), 0);
    grid.setCells(5, 10);
    QCOMPARE(grid.halfExtent(), 25.0f);
    int visible = 0;
    for (int i = 0; i < grid.lines().size(); i += 2)
        visible += grid.lines().at(i).vertex != grid.lines().at(i + 1).vertex;
    QCOMPARE(visible, 14); // no line lies under an axis
}

KM_TEST(tst_KMGridNode);

#include "tst_KMGridNode.moc"
