#include "shell/widgets/KMShownAngles.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>

#include <cmath>

class tst_KMShownAngles : public QObject
{
    Q_OBJECT
private slots:
    void anglesMeanTheRotation();
    void plainestTriple_data();
    void plainestTriple();
    void typedAnglesStay();
};

namespace {

bool isClose(const kvm::Vector3 &a, const kvm::Vector3 &b)
{
    return (a - b).length() < 0.05f;
}

} // namespace

void tst_KMShownAngles::anglesMeanTheRotation()
{
    QRandomGenerator random(3);
    const auto angle = [&random] { return float(random.bounded(721) - 360); };
    for (int i = 0; i < 2000; ++i) {
        const float y = i % 4 == 0 ? (i % 8 ? 90.0f : -90.0f) : angle(); // a quarter of them at a pole
        const kvm::Quaternion rotation = KMShownAngles::rotationOf({angle(), y, angle()});
        const kvm::Vector3 degrees = KMShownAngles::degreesOf(rotation);
        const kvm::Quaternion back = KMShownAngles::rotationOf(degrees);
        const kvm::Vector3 probe{1, 2, 3};
        QVERIFY2((back.rotate(probe) - rotation.rotate(probe)).length() < 0.01f,
                 qPrintable(QStringLiteral("%1 %2 %3").arg(degrees.x).arg(degrees.y).arg(degrees.z)));
    }
}

void tst_KMShownAngles::plainestTriple_data()
{
    QTest::addColumn<float>("x");
    QTest::addColumn<float>("y");
    QTest::addColumn<float>("z");

    QTest::newRow("beyond a quarter turn about y") << 0.0f << 120.0f << 0.0f;
    QTest::newRow("backwards") << 0.0f << -135.0f << 0.0f;
    QTest::newRow("at the pole") << 0.0f << 90.0f << 0.0f;
    QTest::newRow("at the pole, turned") << 30.0f << -90.0f << 0.0f;
    QTest::newRow("about x") << 170.0f << 0.0f << 0.0f;
    QTest::newRow("all three") << 20.0f << -30.0f << 40.0f;
}

void tst_KMShownAngles::plainestTriple()
{
    QFETCH(float, x);
    QFETCH(float, y);
    QFETCH(float, z);
    const kvm::Vector3 degrees{x, y, z};
    QVERIFY(isClose(KMShownAngles::degreesOf(KMShownAngles::rotationOf(degrees)), degrees));
}

void tst_KMShownAngles::typedAnglesStay()
{
    KMShownAngles angles;
    angles.show({});
    angles.type(1, 100.0f);
    angles.type(0, 170.0f);
    angles.type(2, 370.0f);
    const kvm::Vector3 typed = angles.degrees();
    const kvm::Quaternion rotation = KMShownAngles::rotationOf(typed);
    QCOMPARE(angles.show(rotation), typed);
    QCOMPARE(angles.show({-rotation.w, -rotation.x, -rotation.y, -rotation.z}), typed); // the same rotation
    QVERIFY(isClose(angles.show(kvm::Quaternion::fromEuler(0.0f, 0.0f, 0.5f)), {0, 0, 28.648f}));
}

KM_TEST(tst_KMShownAngles);
#include "tst_KMShownAngles.moc"
