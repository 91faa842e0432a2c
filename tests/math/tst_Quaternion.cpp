#include "MathReference.h"
#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QVector>

using kvm::AxisAngle;
using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

class tst_Quaternion : public QObject
{
    Q_OBJECT
private slots:
    void algebra();
    void rotateMatchesMatrix();
    void productTurnsRightFirst();
    void matrixRoundTrip_data();
    void matrixRoundTrip();
    void fromEulerOrder();
    void eulerRoundTrip();
    void eulerAtThePoles();
    void headingAttitudeBank();
    void headingAttitudeBankAtThePoles();
    void axisAngle_data();
    void axisAngle();
    void slerpOnTheArc();
    void slerpOddities();
    void rotationTo_data();
    void rotationTo();
    void rotationToSpecialCases_data();
    void rotationToSpecialCases();
    void printing();
};

namespace {

constexpr double pi = 3.14159265358979323846;

double distance(const Quaternion &a, const Quaternion &b)
{
    const Quaternion d = a + -b;
    return double(d.length());
}

// Between rotations, for which q and -q are one.
double turnDistance(const Quaternion &a, const Quaternion &b)
{
    return std::min(distance(a, b), distance(a, -b));
}

double distance(const Vector3 &a, const Vector3 &b)
{
    return reference::distance(reference::vec(a), reference::vec(b));
}

Quaternion aboutX(double angle)
{
    return Quaternion::fromAxisAngle(Vector3(1, 0, 0), float(angle));
}

Quaternion aboutY(double angle)
{
    return Quaternion::fromAxisAngle(Vector3(0, 1, 0), float(angle));
}

Quaternion aboutZ(double angle)
{
    return Quaternion::fromAxisAngle(Vector3(0, 0, 1), float(angle));
}

} // namespace

void tst_Quaternion::algebra()
{
    const Quaternion i(0, 1, 0, 0), j(0, 0, 1, 0), k(0, 0, 0, 1), minusOne(-1, 0, 0, 0);
    QVERIFY(Quaternion().isIdentity() && minusOne.isIdentity());
    QVERIFY(!Quaternion(std::nextafter(1.0f, 2.0f), 0, 0, 0).isIdentity() && !Quaternion(1, 0, 1e-30f, 0).isIdentity());
    QCOMPARE(*Quaternion(9, 2, 3, 4).data(), 9.0f); // w first in memory
    QCOMPARE(i * j * k, minusOne);
    QCOMPARE(Quaternion(1, 2, 3, 4) * Quaternion(5, 6, 7, 8), Quaternion(-60, 12, 30, 24));

    QCOMPARE(Quaternion(Vector3(1, 2, 3)), Quaternion(0, 1, 2, 3));
    QCOMPARE(Quaternion(9, 1, 2, 3).vector(), Vector3(1, 2, 3));
    QCOMPARE(Quaternion(1, 2, 3, 4).conjugate(), Quaternion(1, -2, -3, -4));
    QCOMPARE(dot(Quaternion(1, 2, 3, 4), Quaternion(1, 10, 100, 1000)), 4321.0f);
    Quaternion q(1, 2, 3, 4);
    ((q += Quaternion(1, 1, 1, 1)) *= 4) /= 2;
    QCOMPARE(q, Quaternion(4, 6, 8, 10));
    q *= i;
    QCOMPARE(q, Quaternion(4, 6, 8, 10) * i);
    QCOMPARE(Quaternion(2, 4, 5, 6).normalized() * 9, Quaternion(2, 4, 5, 6));
    QCOMPARE(Quaternion(0, 0, 0, 0).normalized(), Quaternion(0, 0, 0, 0));
    QCOMPARE(Quaternion().lerped(Quaternion(0, 1, 2, 3), 0.25f), Quaternion(0.75f, 0.25f, 0.5f, 0.75f)); // as it is
}

void tst_Quaternion::rotateMatchesMatrix()
{
    RandomMath random(1);
    for (int i = 0; i < 300; ++i) {
        const Vector3 axis = random.direction();
        const float angle = float(random.number(-6, 6));
        const Vector3 v = random.vector(1);
        const Quaternion q = Quaternion::fromAxisAngle(axis * 3, angle); // the length of the axis doesn't count
        const reference::Vec expected =
            reference::apply(reference::rotation(reference::vec(axis), double(angle)), reference::vec(v));
        QVERIFY(reference::distance(reference::vec(q.rotate(v)), expected) < 3e-6);
        QVERIFY(distance(q.rotate(v), q.toMatrix() * v) < 3e-6);
        QVERIFY(distance(q.conjugate().rotate(q.rotate(v)), v) < 3e-6);
    }
}

void tst_Quaternion::productTurnsRightFirst()
{
    const Vector3 v = (aboutZ(pi / 2) * aboutX(pi / 2)).rotate(Vector3(0, 1, 0)); // Y to Z, where Z leaves it
    QVERIFY(distance(v, Vector3(0, 0, 1)) < 1e-6);

    RandomMath random(2);
    for (int i = 0; i < 100; ++i) {
        const Quaternion a = random.rotation(), b = random.rotation();
        const Vector3 p = random.vector(1);
        QVERIFY(distance((a * b).rotate(p), a.rotate(b.rotate(p))) < 2e-6);
        QVERIFY(distance((b.toMatrix() * a.toMatrix()) * p, (a * b).rotate(p)) < 2e-6);
        QVERIFY(turnDistance(a * b.toMatrix(), a * b) < 2e-6);
    }
}

void tst_Quaternion::matrixRoundTrip_data()
{
    QTest::addColumn<Vector3>("axis");
    QTest::addColumn<double>("from");
    QTest::addColumn<double>("to");
    QTest::newRow("small turns: the trace decides") << Vector3(1, 2, 3) << -1.9 << 1.9;
    QTest::newRow("half turns about X") << Vector3(10, 2, 3) << 2.4 << 3.8;
    QTest::newRow("half turns about Y") << Vector3(2, 10, 3) << 2.4 << 3.8;
    QTest::newRow("half turns about Z") << Vector3(2, 3, 10) << 2.4 << 3.8;
    QTest::newRow("between all") << Vector3(1, -1, 1) << 2.0 << 4.2;
}

void tst_Quaternion::matrixRoundTrip()
{
    QFETCH(Vector3, axis);
    QFETCH(double, from);
    QFETCH(double, to);
    RandomMath random(17);
    for (int i = 0; i < 200; ++i) {
        const Vector3 nearAxis = axis + random.vector(0.2);
        const Quaternion q = Quaternion::fromAxisAngle(nearAxis, float(random.number(from, to)));
        Matrix4 m = q.toMatrix();
        m += random.vector(100);
        const Quaternion back = Quaternion::fromMatrix(m);
        QVERIFY(turnDistance(back, q) < 1e-6);
        QVERIFY(std::abs(back.length() - 1) < 1e-6f);
    }
}

void tst_Quaternion::fromEulerOrder()
{
    RandomMath random(23);
    for (int i = 0; i < 200; ++i) {
        const Vector3 angles = random.vector(3);
        const reference::Mat x = reference::rotation({1, 0, 0}, double(angles.x));
        const reference::Mat y = reference::rotation({0, 1, 0}, double(angles.y));
        const reference::Mat z = reference::rotation({0, 0, 1}, double(angles.z));
        const Matrix4 m = Quaternion::fromEuler(angles).toMatrix();
        QVERIFY(reference::difference(reference::product(z, reference::product(y, x)), m) < 2e-6);
    }
}

void tst_Quaternion::eulerRoundTrip()
{
    RandomMath random(29);
    for (int i = 0; i < 500; ++i) {
        const Vector3 angles(float(random.number(-pi, pi)), float(random.number(-1.5, 1.5)),
                             float(random.number(-pi, pi)));
        const Quaternion q = Quaternion::fromEuler(angles);
        QVERIFY(distance(q.toEuler(), angles) < 1e-4);
        QVERIFY(distance((-q).toEuler(), angles) < 1e-4); // -q is the same rotation
        QVERIFY(turnDistance(Quaternion::fromEuler(q.toEuler()), q) < 1e-4);
    }
}

void tst_Quaternion::eulerAtThePoles()
{
    RandomMath random(31);
    for (int i = 0; i < 300; ++i) {
        const float y = i % 3 ? (i % 3 == 1 ? 1.5707964f : -1.5707964f) : 1.5707f;
        const Quaternion q =
            Quaternion::fromEuler(float(random.number(-pi, pi)), y, float(random.number(-pi, pi))).normalized();
        const Vector3 angles = q.toEuler();
        QVERIFY(std::isfinite(angles.x) && std::isfinite(angles.z) && std::abs(angles.y - y) < 1e-3f);
    }
    // Rounding may lift the sine above 1; it must not come out as NaN.
    const float half = std::nextafter(0.70710678f, 1.0f);
    QCOMPARE(Quaternion(half, 0, -half, 0).toEuler().y, -1.5707964f);
}

void tst_Quaternion::headingAttitudeBank()
{
    RandomMath random(37);
    for (int i = 0; i < 300; ++i) {
        const double bank = random.number(-pi, pi), heading = random.number(-pi, pi);
        const double attitude = random.number(-1.4, 1.4);
        const Quaternion q = aboutY(heading) * aboutZ(attitude) * aboutX(bank);
        const Vector3 expected{float(bank), float(heading), float(attitude)};
        QVERIFY(distance(q.toHeadingAttitudeBank(), expected) < 1e-4);
        QVERIFY(distance((q * 3).toHeadingAttitudeBank(), expected) < 1e-4); // the length doesn't count
    }
    QCOMPARE(Quaternion(0, 0, 0, 0).toHeadingAttitudeBank(), Vector3());
}

void tst_Quaternion::headingAttitudeBankAtThePoles()
{
    RandomMath random(41);
    for (int i = 0; i < 100; ++i) {
        const double attitude = i % 2 ? pi / 2 : -pi / 2;
        const Quaternion q = aboutY(random.number(-3, 3)) * aboutZ(attitude) * aboutX(random.number(-3, 3));
        const Vector3 angles = q.toHeadingAttitudeBank();
        QCOMPARE(angles.x, 0.0f);
        QCOMPARE(angles.z, float(attitude));
        QVERIFY(turnDistance(aboutY(double(angles.y)) * aboutZ(attitude), q) < 1e-3);
    }
}

void tst_Quaternion::axisAngle_data()
{
    QTest::addColumn<Quaternion>("q");
    QTest::addColumn<Vector3>("axis");
    QTest::addColumn<float>("angle");

    const float root3 = 0.8660254f;
    QTest::newRow("a third of a turn") << Quaternion(0.5f, 0, root3, 0) << Vector3(0, 1, 0) << 2.0943951f;
    QTest::newRow("backwards") << Quaternion(root3, 0, 0, -0.5f) << Vector3(0, 0, -1) << 1.0471976f;
    QTest::newRow("identity has the axis Y") << Quaternion() << Vector3(0, 1, 0) << 0.0f;
    QTest::newRow("negative scalar part") << Quaternion(-0.5f, root3, 0, 0) << Vector3(1, 0, 0) << 0.0f;
    QTest::newRow("scalar part at the threshold") << Quaternion(1.1920929e-7f, 1, 0, 0) << Vector3(1, 0, 0) << 0.0f;
    QTest::newRow("scalar part above the threshold") << Quaternion(1e-6f, 1, 0, 0) << Vector3(1, 0, 0) << 3.1415907f;
    QTest::newRow("vector part at the threshold") << Quaternion(1, 1.1920929e-7f, 0, 0) << Vector3(0, 1, 0) << 0.0f;
    QTest::newRow("vector part above the threshold") << Quaternion(1, 1.3e-7f, 0, 0) << Vector3(1, 0, 0) << 0.0f;
    QTest::newRow("scalar part above 1") << Quaternion(1.5f, 2, 0, 0) << Vector3(1, 0, 0) << 0.0f;
}

void tst_Quaternion::axisAngle()
{
    QFETCH(Quaternion, q);
    QFETCH(Vector3, axis);
    QFETCH(float, angle);
    const AxisAngle result = q.toAxisAngle();
    QCOMPARE(result.axis, axis);
    QVERIFY(std::abs(result.angle - angle) < 1e-6f);
}

void tst_Quaternion::slerpOnTheArc()
{
    RandomMath random(43);
    for (int i = 0; i < 100; ++i) {
        const Quaternion start = random.rotation();
        const Vector3 axis = random.direction();
        const double angle = random.number(0.1, 3.0); // of the turn, half of it on the sphere of quaternions
        const Quaternion end = start * Quaternion::fromAxisAngle(axis, float(angle));
        const double t = random.number(0, 1);
        const Quaternion expected = start * Quaternion::fromAxisAngle(axis, float(angle * t));
        QVERIFY(distance(start.slerped(end, float(t)), expected) < 1e-5);
    }
}

void tst_Quaternion::slerpOddities()
{
    for (const double apart : {0.005, 0.0099, 0.011}) { // neighbours are left alone
        Quaternion q = aboutX(0.3);
        q.slerp(aboutX(0.3 + 2 * apart), 0.5f);
        QCOMPARE(q == aboutX(0.3), apart < 0.01);
    }
    const Quaternion a = aboutX(0.3);
    for (const double apart : {0.0, 0.007}) {
        const Quaternion b = -aboutX(0.3 + 2 * apart);
        QCOMPARE(a.slerped(b, 0.25f), (a + b) * 0.5f); // opposites: whatever t is
    }
    // The long way stays long: the angle on the sphere is pi - 0.5, so half of it turns by -(2 pi - 1) / 2.
    QVERIFY(distance(Quaternion().slerped(-aboutZ(1.0), 0.5f), aboutZ(-(2 * pi - 1) / 2)) < 1e-5);
}

void tst_Quaternion::rotationTo_data()
{
    QTest::addColumn<double>("angle");
    QTest::addColumn<double>("tolerance");
    QTest::newRow("a hundredth") << 0.01 << 1e-4; // the arc cosine of a float next to 1 has few digits
    QTest::newRow("one") << 1.0 << 2e-6;
    QTest::newRow("more than a right angle") << 2.5 << 2e-6;
    QTest::newRow("nearly opposite") << pi - 0.01 << 1e-4;
}

void tst_Quaternion::rotationTo()
{
    QFETCH(double, angle);
    QFETCH(double, tolerance);
    RandomMath random(47);
    for (int i = 0; i < 100; ++i) {
        const Vector3 from = random.direction();
        const Vector3 axis = cross(from, random.direction()).normalized();
        const Vector3 to = Quaternion::fromAxisAngle(axis, float(angle)).rotate(from);
        const Quaternion q = Quaternion::rotationTo(from * 3, to * 0.5f); // neither length counts
        QVERIFY(distance(q.rotate(from), to) < tolerance);
        QVERIFY(distance(q.rotate(axis), axis) < tolerance); // no twist about the direction
    }
}

void tst_Quaternion::rotationToSpecialCases_data()
{
    QTest::addColumn<Vector3>("from");
    QTest::addColumn<Vector3>("to");
    QTest::addColumn<Quaternion>("expected");

    const float halfTurnW = std::cos(3.1415927f * 0.5f);
    QTest::newRow("parallel") << Vector3(1, 0, 0) << Vector3(7, 0, 0) << Quaternion();
    QTest::newRow("zero from") << Vector3() << Vector3(1, 0, 0) << Quaternion();
    QTest::newRow("zero to") << Vector3(1, 0, 0) << Vector3() << Quaternion();
    QTest::newRow("closer than floats tell") << Vector3(1, 0, 0) << Vector3(1, 1e-4f, 0) << Quaternion();
    QTest::newRow("opposite: no axis") << Vector3(0, 1, 0) << Vector3(0, -1, 0) << Quaternion(halfTurnW, 0, 0, 0);
    QTest::newRow("opposite as far as floats tell, but with an axis")
        << Vector3(1, 0, 0) << Vector3(-1, 1e-4f, 0) << Quaternion(halfTurnW, 0, 0, 1);
    QTest::newRow("short: the axis falls under the threshold")
        << Vector3(1e-4f, 0, 0) << Vector3(0, 1e-4f, 0) << Quaternion(std::cos(std::acos(0.0f) * 0.5f), 0, 0, 0);
}

void tst_Quaternion::rotationToSpecialCases()
{
    QFETCH(Vector3, from);
    QFETCH(Vector3, to);
    QFETCH(Quaternion, expected);
    QVERIFY(distance(Quaternion::rotationTo(from, to), expected) < 1e-7);
}

void tst_Quaternion::printing()
{
    QCOMPARE(printed(Quaternion()), QString("Quaternion(1, 0, 0, 0)"));
}

KM_TEST(tst_Quaternion);

#include "tst_Quaternion.moc"
