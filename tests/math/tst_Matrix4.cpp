#include "MathReference.h"
#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "support/TestRegistry.h"

#include <QTest>

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;
using kvm::Vector4;

class tst_Matrix4 : public QObject
{
    Q_OBJECT
private slots:
    void transformsPoints();
    void productAppliesLeftFirst();
    void productOfStoredFloats();
    void rotationElements();
    void inverse_data();
    void inverse();
    void singularInverse();
    void rotationInverse();
};

namespace {

// 1 to 16 in the order of storage.
Matrix4 counting()
{
    Matrix4 m;
    for (int i = 0; i < 16; ++i)
        m[i] = float(i + 1);
    return m;
}

double distance(const Vector3 &a, const Vector3 &b)
{
    return reference::distance(reference::vec(a), reference::vec(b));
}

} // namespace

void tst_Matrix4::transformsPoints()
{
    Matrix4 m = counting();
    QCOMPARE(Matrix4() * Vector4(1, 2, 3, 4), Vector4(1, 2, 3, 4));
    QCOMPARE(m * Vector3(1, 10, 100), Vector3(1 + 50 + 900 + 13, 2 + 60 + 1000 + 14, 3 + 70 + 1100 + 15));
    QCOMPARE(m * Vector4(1, 10, 100, 1000), Vector4(13951, 15062, 16173, 17284)); // all rows, w included
    QCOMPARE(m.transformDirection(Vector3(1, 10, 100)), Vector3(951, 1062, 1173));
    QCOMPARE(Matrix4::fromScale(Vector3(2, 3, 4)) * Vector3(1, 1, 1), Vector3(2, 3, 4));
    QCOMPARE(m.translation(), Vector3(13, 14, 15));
    (m += Vector3(1, 2, 3)) -= Vector3(4, 4, 4);
    QCOMPARE(m.translation(), Vector3(10, 12, 14));
    m.setTranslation(Vector3(13, 14, 15));
    QCOMPARE(m, counting());
    m[15] = std::nextafter(m[15], 0.0f);
    QVERIFY(m != counting());
}

void tst_Matrix4::productAppliesLeftFirst()
{
    const Matrix4 move = Matrix4::fromTranslation(Vector3(1, 0, 0));
    const Matrix4 grow = Matrix4::fromScale(Vector3(10, 10, 10));
    QCOMPARE(move * grow * Vector3(), Vector3(10, 0, 0));
    Matrix4 m = grow;
    m *= move;
    QCOMPARE(m * Vector3(), Vector3(1, 0, 0));
    m *= Quaternion::fromAxisAngle(Vector3(0, 0, 1), 1.5707963f); // turned last
    QVERIFY(distance(m * Vector3(), Vector3(0, 1, 0)) < 1e-6);
}

void tst_Matrix4::productOfStoredFloats()
{
    const Matrix4 l = counting();
    Matrix4 r;
    for (int i = 0; i < 16; ++i)
        r[i] = float((i * 7) % 11 - 5);
    const Matrix4 product = l * r;
    for (int i = 0; i < 4; ++i) {
        for (int j = 0; j < 4; ++j) {
            double sum = 0;
            for (int k = 0; k < 4; ++k)
                sum += double(l[4 * i + k]) * double(r[4 * k + j]);
            QCOMPARE(double(product[4 * i + j]), sum);
        }
    }
}

void tst_Matrix4::rotationElements()
{
    Matrix4 m = counting();
    m.setRotation(Quaternion(0.5f, 0.5f, 0.5f, 0.5f)); // takes X to Y, Y to Z, Z to X
    QCOMPARE(m, (Matrix4{{0, 1, 0, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 0, 0, 1}}));

    RandomMath random(11);
    for (int i = 0; i < 200; ++i) {
        const Vector3 axis = random.direction();
        const float angle = float(random.number(-6, 6));
        m.setRotation(Quaternion::fromAxisAngle(axis, angle));
        QVERIFY(reference::difference(reference::rotation(reference::vec(axis), double(angle)), m) < 2e-6);
    }
}

void tst_Matrix4::inverse_data()
{
    QTest::addColumn<double>("reach");
    QTest::addColumn<float>("offset");
    QTest::newRow("far away") << 1.0 << 1e5f;
    QTest::newRow("tiny") << 1e-4 << 0.0f;
    QTest::newRow("huge") << 1e5 << 0.0f;
}

void tst_Matrix4::inverse()
{
    QFETCH(double, reach);
    QFETCH(float, offset);
    RandomMath random(3);
    for (int i = 0; i < 100; ++i) {
        Matrix4 m = random.matrix(reach);
        for (int diagonal = 0; diagonal < 16; diagonal += 5)
            m[diagonal] += float(4 * reach); // dominant, so that it can be inverted well
        m += Vector3(offset, -offset, offset);
        bool invertible = false;
        const Matrix4 inverse = m.inverse(&invertible);
        QVERIFY(invertible);
        for (int row = 0; row < 4; ++row) {
            for (int col = 0; col < 4; ++col) {
                double sum = 0, size = 0;
                for (int k = 0; k < 4; ++k) {
                    const double term = double(m[4 * k + row]) * double(inverse[4 * col + k]);
                    sum += term;
                    size += std::abs(term);
                }
                QVERIFY(std::abs(sum - (row == col ? 1 : 0)) < 1e-6 * (1 + size));
            }
        }
    }
}

void tst_Matrix4::singularInverse()
{
    for (int flattened = 0; flattened < 3; ++flattened) {
        Vector3 scale(1, 2, 3);
        scale[flattened] = 0;
        Matrix4 m = Matrix4::fromScale(scale);
        m += Vector3(5, 6, 7);
        bool invertible = true;
        QCOMPARE(m.inverse(&invertible), Matrix4());
        QVERIFY(!invertible);
    }
}

void tst_Matrix4::rotationInverse()
{
    RandomMath random(5);
    for (int i = 0; i < 100; ++i) {
        Matrix4 m = random.rotation().toMatrix();
        m += random.vector(10);
        const Matrix4 back = m.rotationInverse();
        const Vector3 v = random.vector(1);
        QCOMPARE(back.translation(), Vector3());
        QVERIFY(distance(back * m.transformDirection(v), v) < 4e-6);
    }
}

// The fields are ten wide, the line breaks among them too.
KM_TEST(tst_Matrix4);

#include "tst_Matrix4.moc"
