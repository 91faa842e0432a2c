#include "SplineChecks.h"
#include "math/NaturalSpline.h"
#include "support/TestRegistry.h"

#include <QTest>

using kvm::NaturalSpline;
using kvm::SplineEnd;
using kvm::SplinePointer;
using kvm::Vector2;
using kvm::Vector3;
using kvm::Vector4;
using namespace splinechecks;

class tst_NaturalSpline : public QObject
{
    Q_OBJECT
private slots:
    void everyForm();
    void fixedTangentEnds();
    void knotSpacing();
    void outsideTheRange();
    void straightLine();
    void tooFewPoints();
    void coincidentPoints();
};

template <class T>
void checkEveryForm(bool includeEndpoints, float alpha, SplineEnd end)
{
    const std::vector<T> points = unevenPoints<T>();
    const SplinePointer<T> spline = std::make_shared<NaturalSpline<T>>(points, includeEndpoints, alpha, end);
    const int first = includeEndpoints ? 0 : 1;
    QCOMPARE(spline->segmentCount(), int(points.size()) - 1 - 2 * first);
    QCOMPARE(spline->maxT(), float(spline->segmentCount()));
    QVERIFY(!spline->isLooping());
    QVERIFY(spline->points() == points);
    for (int i = 0; i <= spline->segmentCount(); ++i)
        QVERIFY(close(spline->getPosition(spline->segmentT(i)), points[i + first], 1e-5));
    QVERIFY(segmentsFound(*spline));
    QVERIFY(formsAgree(*spline));
    QVERIFY(derivativesFit(*spline));
    QVERIFY(smoothAtKnots(*spline));
    QVERIFY(arcLengthsFit(*spline));
    if (includeEndpoints && end == SplineEnd::Natural)
        QVERIFY(close(spline->getCurvature(0).curvature, T(), 1e-5)
                && close(spline->getCurvature(spline->maxT()).curvature, T(), 1e-5));
}

void tst_NaturalSpline::everyForm()
{
    for (const bool includeEndpoints : {true, false}) {
        for (const float alpha : {0.0f, 0.5f, 1.0f}) {
            for (const SplineEnd end : {SplineEnd::Natural, SplineEnd::FixedTangent}) {
                checkEveryForm<Vector2>(includeEndpoints, alpha, end);
                checkEveryForm<Vector3>(includeEndpoints, alpha, end);
                checkEveryForm<Vector4>(includeEndpoints, alpha, end);
                checkEveryForm<QVector2D>(includeEndpoints, alpha, end);
            }
        }
    }
}

// A parabola has the tangents that the end condition takes, so the whole spline is that parabola.
void tst_NaturalSpline::fixedTangentEnds()
{
    const auto parabola = [](float t) { return Vector2(2 * t - 1, t * t - 3 * t); };
    std::vector<Vector2> points;
    for (int i = 0; i < 6; ++i)
        points.push_back(parabola(float(i)));
    for (const size_t count : {size_t(3), size_t(6)}) {
        const NaturalSpline<Vector2> spline({points.begin(), points.begin() + count}, true, 0, SplineEnd::FixedTangent);
        for (float t = 0; t <= spline.maxT(); t += 0.125f) {
            QVERIFY(close(spline.getPosition(t), parabola(t), 1e-5));
            QVERIFY(close(spline.getTangent(t).tangent, Vector2(2, 2 * t - 3), 1e-5));
        }
    }

    // Uneven knots: the tangent at the ends is that of the parabola through the outer three knots.
    const NaturalSpline<Vector2> uneven(unevenPoints<Vector2>(), true, 1, SplineEnd::FixedTangent);
    const auto endTangent = [&uneven](int i0, int i1, int i2) {
        const std::vector<Vector2> &p = uneven.points();
        const float t0 = uneven.segmentT(i0), t1 = uneven.segmentT(i1), t2 = uneven.segmentT(i2);
        // Derivative of Lagrange's polynomial at t0.
        return p[i0] * ((2 * t0 - t1 - t2) / ((t0 - t1) * (t0 - t2))) + p[i1] * ((t0 - t2) / ((t1 - t0) * (t1 - t2)))
               + p[i2] * ((t0 - t1) / ((t2 - t0) * (t2 - t1)));
    };
    QVERIFY(close(uneven.getTangent(0).tangent, endTangent(0, 1, 2), 1e-4));
    QVERIFY(close(uneven.getTangent(uneven.maxT()).tangent, endTangent(6, 5, 4), 1e-4));
}

void tst_NaturalSpline::knotSpacing()
{
    const std::vector<Vector2> points = {{5, 5}, {0, 0}, {1, 0}, {1, 4}, {9, 9}};
    // The ratio of the second gap to the first: even, by the root of the distance, by the distance; below 0 is even.
    for (const auto &[alpha, ratio] : {std::make_pair(0.0f, 1.0f), {0.5f, 2.0f}, {1.0f, 4.0f}, {-1.0f, 1.0f}}) {
        const NaturalSpline<Vector2> inner(points, false, alpha);
        QCOMPARE((inner.segmentT(2) - inner.segmentT(1)) / inner.segmentT(1), ratio);
        QCOMPARE(inner.segmentT(2), 2.0f);
        const NaturalSpline<Vector2> whole(points, true, alpha);
        QCOMPARE((whole.segmentT(3) - whole.segmentT(2)) / (whole.segmentT(2) - whole.segmentT(1)), ratio);
        QCOMPARE(whole.segmentT(4), 4.0f);
    }
}

void tst_NaturalSpline::outsideTheRange()
{
    const NaturalSpline<Vector2> spline(unevenPoints<Vector2>());
    // The third derivative is that of the first segment, so the cubic can be continued by hand.
    const auto start = spline.getWiggle(0);
    const float t = -0.5f;
    const Vector2 expected =
        start.position + start.tangent * t + start.curvature * (t * t / 2) + start.wiggle * (t * t * t / 6);
    QVERIFY(close(spline.getPosition(t), expected, 1e-5));
    QVERIFY(spline.arcLength(-0.5f, 1) > spline.arcLength(0, 1));
}

void tst_NaturalSpline::straightLine()
{
    for (const SplineEnd end : {SplineEnd::Natural, SplineEnd::FixedTangent}) {
        const NaturalSpline<Vector3> two({{1, 1, 1}, {3, 4, 7}}, true, 0.5f, end);
        QCOMPARE(two.totalLength(), 7.0f);
        QVERIFY(close(two.getPosition(0.5f), Vector3(2, 2.5f, 4), 1e-6));
        QVERIFY(close(two.getTangent(1).tangent, Vector3(2, 3, 6), 1e-6));
        const NaturalSpline<Vector3> four({{0, 0, 0}, {1, 0, 0}, {5, 0, 0}, {6, 0, 0}}, false, 1, end);
        QCOMPARE(four.totalLength(), 4.0f);
    }
}

void tst_NaturalSpline::tooFewPoints()
{
    QVERIFY(isSinglePlace(NaturalSpline<Vector3>({}), Vector3()));
    QVERIFY(isSinglePlace(NaturalSpline<Vector3>({{1, 2, 3}}), Vector3(1, 2, 3)));
    QVERIFY(isSinglePlace(NaturalSpline<Vector3>({}, false, 1), Vector3()));
    QVERIFY(isSinglePlace(NaturalSpline<Vector3>({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}, false, 1), Vector3(1, 2, 3)));
}

void tst_NaturalSpline::coincidentPoints()
{
    const std::vector<Vector2> rows[] = {
        {{0, 0}, {0, 0}, {1, 0}, {2, 1}},
        {{0, 0}, {1, 0}, {2, 1}, {2, 1}},
        {{0, 0}, {1, 0}, {1, 0}, {1, 0}, {2, 1}},
        std::vector<Vector2>(5, Vector2(3, 4)),
        {{0, 0}, {1e6f, 0}, {1e6f, 1e-3f}, {0, 1e6f}},
    };
    for (const std::vector<Vector2> &points : rows) {
        float reach = 0;
        for (const Vector2 &p : points)
            reach = std::max(reach, p.length());
        for (const float alpha : {0.0f, 0.5f, 1.0f}) {
            for (const SplineEnd end : {SplineEnd::Natural, SplineEnd::FixedTangent}) {
                const NaturalSpline<Vector2> spline(points, true, alpha, end);
                QVERIFY(segmentsFound(spline));
                for (int i = 0; i <= spline.segmentCount(); ++i)
                    QVERIFY(close(spline.getPosition(spline.segmentT(i)), points[size_t(i)], 1e-5 * double(reach)));
                for (float t = 0; t <= spline.maxT(); t += 0.01f)
                    QVERIFY(spline.getPosition(t).length() < 4 * reach);
            }
        }
    }
}

KM_TEST(tst_NaturalSpline);

#include "tst_NaturalSpline.moc"
