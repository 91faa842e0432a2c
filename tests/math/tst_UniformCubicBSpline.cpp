#include "SplineChecks.h"
#include "math/UniformCubicBSpline.h"
#include "support/TestRegistry.h"

#include <QTest>

using kvm::SplinePointer;
using kvm::UniformCubicBSpline;
using kvm::Vector2;
using kvm::Vector3;
using kvm::Vector4;
using namespace splinechecks;

class tst_UniformCubicBSpline : public QObject
{
    Q_OBJECT
private slots:
    void everyType();
    void weightsAtKnots();
    void localControl();
    void reproducesLines();
    void tooFewPoints();
};

template <class T>
void checkType()
{
    const std::vector<T> points = unevenPoints<T>();
    const SplinePointer<T> spline = std::make_shared<UniformCubicBSpline<T>>(points);
    QCOMPARE(spline->segmentCount(), int(points.size()) - 3);
    QCOMPARE(spline->maxT(), float(points.size() - 3));
    QVERIFY(!spline->isLooping());
    for (int i = 0; i <= spline->segmentCount(); ++i)
        QCOMPARE(spline->segmentT(i), float(i));
    QVERIFY(segmentsFound(*spline));
    QVERIFY(formsAgree(*spline));
    QVERIFY(derivativesFit(*spline));
    QVERIFY(smoothAtKnots(*spline));
    QVERIFY(arcLengthsFit(*spline));
}

void tst_UniformCubicBSpline::everyType()
{
    checkType<Vector2>();
    checkType<Vector3>();
    checkType<Vector4>();
    checkType<QVector2D>();
}

// At a knot the neighbours weigh 1/6, 4/6, 1/6, and the derivatives are the central differences.
void tst_UniformCubicBSpline::weightsAtKnots()
{
    const std::vector<Vector3> p = unevenPoints<Vector3>();
    const UniformCubicBSpline<Vector3> spline(p);
    for (int i = 0; i <= spline.segmentCount(); ++i) {
        const auto at = spline.getCurvature(float(i));
        QVERIFY(close(at.position, (p[i] + p[i + 1] * 4 + p[i + 2]) / 6, 1e-5));
        QVERIFY(close(at.tangent, (p[i + 2] - p[i]) / 2, 1e-5));
        QVERIFY(close(at.curvature, p[i] - p[i + 1] * 2 + p[i + 2], 1e-5));
    }
}

void tst_UniformCubicBSpline::localControl()
{
    const std::vector<Vector2> points(12, Vector2());
    std::vector<Vector2> moved = points;
    moved[5] = Vector2(1, 1);
    const UniformCubicBSpline<Vector2> before(points), after(moved);
    for (float t = 0.05f; t < before.maxT(); t += 0.1f) {
        const bool reached = t > 2 && t < 6; // segments 2 to 5 lie among point 5
        QCOMPARE(before.getPosition(t) != after.getPosition(t), reached);
        QVERIFY(after.getPosition(t).x >= 0); // no weight is negative
    }
}

void tst_UniformCubicBSpline::reproducesLines()
{
    std::vector<Vector3> points;
    for (int i = 0; i < 7; ++i)
        points.push_back(Vector3(1, 2, 3) + Vector3(2, 3, 6) * float(i));
    const UniformCubicBSpline<Vector3> spline(points);
    for (float t = -1; t <= spline.maxT() + 1; t += 0.25f)
        QVERIFY(close(spline.getPosition(t), Vector3(1, 2, 3) + Vector3(2, 3, 6) * (t + 1), 1e-4));
    QCOMPARE(spline.totalLength(), 28.0f);
}

void tst_UniformCubicBSpline::tooFewPoints()
{
    QVERIFY(isSinglePlace(UniformCubicBSpline<Vector3>({}), Vector3()));
    QVERIFY(isSinglePlace(UniformCubicBSpline<Vector3>({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}), Vector3(1, 2, 3)));
}

KM_TEST(tst_UniformCubicBSpline);

#include "tst_UniformCubicBSpline.moc"
