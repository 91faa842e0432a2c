#pragma once

#include <QVector>

/// The brush of the bone-weight tool as arithmetic, without mouse and mesh.
///
/// How strongly a vertex is painted is its amount, 0 to 1: the strength of the brush times how near its middle passed.
/// All but blurring go by the greatest amount of a stroke and by the weight before it. So a stroke leaves the same
/// whether the mouse is read often or seldom, and going to and fro within it adds nothing.
struct KMWeightBrush
{
    enum Mode { Add, Subtract, Set, Blur, Erase, ModeCount };
    enum class Falloff { Linear, Smooth, Constant };

    Mode mode = Add;
    float value = 1.0f;    ///< 0 to 1: what is added, taken off, or set
    float radius = 40.0f;  ///< pixels
    float strength = 0.5f; ///< 0 to 1
    Falloff falloff = Falloff::Smooth;
    bool pressureOnStrength = true; ///< of a pen
    bool pressureOnRadius = false;
    bool normalizes = true; ///< the other bones of a vertex give way, so that the sum is 1
    bool frontOnly = true;  ///< what the surface hides isn't painted

    float radiusAt(double pressure) const;
    float amountAt(float distance, double pressure) const; ///< of a vertex so many pixels from the middle
    /// The weight that a painted bone gets. The mean is that of the neighbours, for Blur alone.
    float painted(float before, float amount, float mean) const;

    /// One bone of a vertex. What ends below `Least` is left out.
    struct Share
    {
        float weight;
        bool isPainted;
    };
    static constexpr float Least = 1e-4f;
    /// The bones that aren't painted give way in the ratio that they have, or take up what is left. Painted ones that
    /// come to more than 1 alone are scaled down. Where there is nothing to give way, the painted ones stay as they
    /// are.
    static void giveWay(QVector<Share> &shares);
};
