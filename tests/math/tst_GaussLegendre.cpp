#include "math/GaussLegendre.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <cmath>

class tst_GaussLegendre : public QObject
{
    Q_OBJECT
private slots:
    void powers();
    void roughFunction();
};

// Thirteen points are exact up to the degree 25 and must fall short at 26, or the points are not those of Legendre.
void tst_GaussLegendre::powers()
{
    for (const int degree : {0, 1, 2, 7, 12, 24, 25, 26}) {
        const auto power = [degree](double x) { return std::pow(x, degree); };
        const double expected = (1 - std::pow(-1.0, degree + 1)) / (degree + 1);
        const double error = std::abs(kvm::gaussLegendre(-1.0, 1.0, power) - expected);
        QVERIFY2(degree < 26 ? error < 5e-15 : error > 1e-9, qPrintable(QString::number(degree)));
        QVERIFY(std::abs(kvm::gaussLegendre(1.0, -1.0, power) + expected) < 1e-6); // backwards is negative
    }
}

void tst_GaussLegendre::roughFunction()
{
    const double area = kvm::gaussLegendre(0.5, 3.0, [](double x) { return std::sin(x) / x; });
    QVERIFY(std::abs(area - (1.8486525279994683 - 0.4931074180430667)) < 1e-12); // sine integral of 3 and of 0.5
}

KM_TEST(tst_GaussLegendre);

#include "tst_GaussLegendre.moc"
