#include "rig/CBezier.h"

#include <cmath>

namespace {

constexpr int mostSteps = 8;
constexpr float closeEnough = 0.0001f;

float cubic(float t, float first, float second)
{
    const float s = 1.0f - t;
    return 3.0f * t * s * s * first + 3.0f * t * t * s * second + t * t * t;
}

} // namespace

void CBezier::set(float px1, float py1, float px2, float py2)
{
    x1 = px1;
    y1 = py1;
    x2 = px2;
    y2 = py2;
}

float CBezier::evaluate(float x) const
{
    float t = x;
    float low = 0.0f;
    float high = 1.0f;
    for (int step = 0; step < mostSteps; ++step) {
        const float error = x - cubic(t, x1, x2);
        if (std::fabs(error) < closeEnough)
            break;
        if (error > 0.0f) {
            low = t;
            t += (high - t) * 0.5f;
        } else {
            high = t;
            t = (t - low) * 0.5f + low;
        }
    }
    return cubic(t, y1, y2);
}
