#pragma once

namespace kvm {

/// Integral of a smooth function from a to b by 13 points, exact for polynomials up to degree 25.
/// The sign follows the direction: b below a gives the negative.
template <typename Real, class Function>
Real gaussLegendre(Real a, Real b, Function f)
{
    struct Node
    {
        double x;
        double weight;
    };
    // Roots of the Legendre polynomial of degree 13 above zero; each stands for its mirror image as well.
    constexpr Node nodes[] = {
        {0.23045831595513479407, 0.22628318026289723841}, {0.44849275103644685288, 0.20781604753688850231},
        {0.64234933944034022064, 0.17814598076194573828}, {0.80157809073330991279, 0.13887351021978723846},
        {0.91759839922297796521, 0.09212149983772844791}, {0.98418305471858814947, 0.04048400476531587952},
    };
    constexpr double middleWeight = 0.23255155323087391019;

    const double middle = 0.5 * (double(a) + double(b));
    const double half = 0.5 * (double(b) - double(a));
    double sum = middleWeight * double(f(Real(middle)));
    for (const Node &node : nodes)
        sum += node.weight * (double(f(Real(middle - half * node.x))) + double(f(Real(middle + half * node.x))));
    return Real(half * sum);
}

} // namespace kvm
