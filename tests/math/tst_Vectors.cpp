#include "MathReference.h"
#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QVector>

using kvm::Vector2;
using kvm::Vector3;
using kvm::Vector4;

class tst_Vectors : public QObject
{
    Q_OBJECT
private slots:
    void layout();
    void arithmetic();
    void crossIsRightHanded();
    void normalising();
    void equalityIsExact();
    void printing();
};

void tst_Vectors::layout()
{
    QCOMPARE(Vector2(), Vector2(0, 0));
    QCOMPARE(QVector<Vector4>(3)[2], Vector4(0, 0, 0, 0));
    const Vector3 v[2] = {{1, 2, 3}, {4, 5, 6}};
    const float *floats = v[0].data();
    for (int i = 0; i < 6; ++i)
        QCOMPARE(floats[i], float(i + 1));
    Vector4 w(1, 2, 3, 4);
    for (int i = 0; i < 4; ++i)
        w[i] = 10 * w.data()[i];
    QCOMPARE(w, Vector4(10, 20, 30, 40));
    QCOMPARE(Vector3(Vector2(1, 2)), Vector3(1, 2, 0));
    QCOMPARE(Vector4(Vector2(1, 2)), Vector4(1, 2, 0, 0));
    QCOMPARE(Vector4(Vector3(1, 2, 3)), Vector4(1, 2, 3, 0));
    QCOMPARE(Vector4(Vector3(1, 2, 3), 1), Vector4(1, 2, 3, 1));
}

// One walk through all operators with numbers that are exact in floats.
template <class V>
void checkOperators(const V &a, const V &b)
{
    V sum = a;
    sum += b;
    V difference = a;
    difference -= b;
    V doubled = a;
    doubled *= 2;
    V halved = a;
    halved /= 2;
    for (int i = 0; i < int(sizeof(V) / sizeof(float)); ++i) {
        QCOMPARE(sum[i], a[i] + b[i]);
        QCOMPARE(difference[i], a[i] - b[i]);
        QCOMPARE(doubled[i], 2 * a[i]);
        QCOMPARE(halved[i], 0.5f * a[i]);
        QCOMPARE((-a)[i], 0 - a[i]);
        QCOMPARE((2.0f * a)[i], doubled[i]);
    }
    QCOMPARE(a + b, sum);
    QCOMPARE(a - b, difference);
    QCOMPARE(a * 2, doubled);
}

void tst_Vectors::arithmetic()
{
    checkOperators(Vector2(1, 2), Vector2(8, -16));
    checkOperators(Vector3(1, 2, 4), Vector3(8, -16, 32));
    checkOperators(Vector4(1, 2, 4, 8), Vector4(16, -32, 64, 128));
    QCOMPARE(dot(Vector2(1, 2), Vector2(3, 10)), 23.0f);
    QCOMPARE(dot(Vector3(1, 2, 3), Vector3(1, 10, 100)), 321.0f);
    QCOMPARE(dot(Vector4(1, 2, 3, 4), Vector4(1, 10, 100, 1000)), 4321.0f);
}

void tst_Vectors::crossIsRightHanded()
{
    QCOMPARE(cross(Vector3(1, 0, 0), Vector3(0, 1, 0)), Vector3(0, 0, 1));
    QCOMPARE(cross(Vector3(2, 3, 4), Vector3(5, 6, 7)), Vector3(-3, 6, -3));
}

void tst_Vectors::normalising()
{
    QCOMPARE(Vector2(3, 4).length(), 5.0f);
    QCOMPARE(Vector3(2, 3, 6).length(), 7.0f);
    QCOMPARE(Vector4(2, 4, 5, 6).length(), 9.0f);
    QCOMPARE(Vector3(2, 3, 6).normalized(), Vector3(2.0f / 7, 3.0f / 7, 6.0f / 7));
    Vector2 v(0, -8);
    v.normalize();
    QCOMPARE(v, Vector2(0, -1));
    QCOMPARE(Vector3().normalized(), Vector3());
}

void tst_Vectors::equalityIsExact()
{
    const Vector3 v(1, 1, 1);
    for (int i = 0; i < 3; ++i) {
        Vector3 next = v;
        next[i] = std::nextafter(next[i], 2.0f);
        QVERIFY(next != v);
    }
    QVERIFY(Vector4(1, 2, 3, 4) != Vector4(1, 2, 3, 5));
    QVERIFY(Vector3(0, -0.0f, 0) == Vector3());
}

void tst_Vectors::printing()
{
    QCOMPARE(printed(Vector2(1, -2.5f)), QString("Vector2(1, -2.5)"));
    QCOMPARE(printed(Vector3(1, 2, 0.25f)), QString("Vector3(1, 2, 0.25)"));
    QCOMPARE(printed(Vector4(1, 2, 3, 4)), QString("Vector4(1, 2, 3, 4)"));
    QTest::ignoreMessage(QtDebugMsg, "at Vector3(1, 2, 3) of 4");
    qDebug() << "at" << Vector3(1, 2, 3) << "of" << 4;
}

KM_TEST(tst_Vectors);

#include "tst_Vectors.moc"
