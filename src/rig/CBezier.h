#pragma once

/// An interpolation curve: a cubic from (0, 0) to (1, 1) with two control points between them.
struct CBezier
{
    float x1 = 0.5f;
    float y1 = 0.0f;
    float x2 = 0.5f;
    float y2 = 1.0f;

    void set(float px1, float py1, float px2, float py2);
    float evaluate(float x) const; ///< the height at x, from 0 to 1; found to within 0.007
};
