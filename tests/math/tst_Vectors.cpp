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
    void crossIsRightHanded();
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

void tst_Vectors::crossIsRightHanded()
{
    QCOMPARE(cross(Vector3(1, 0, 0), Vector3(0, 1, 0)), Vector3(0, 0, 1));
    QCOMPARE(cross(Vector3(2, 3, 4), Vector3(5, 6, 7)), Vector3(-3, 6, -3));
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
