#pragma once

#include "math/Finite.h"

/// Takes numbers of a file into the document. What leaves the bounds of numbers on the way becomes 0 and is counted.
class PmxScale
{
public:
    explicit PmxScale(float factor)
        : m_factor(factor)
    {
    }

    kvm::Vector3 operator()(const kvm::Vector3 &v) const { return finite(v * m_factor); }
    kvm::Vector3 finite(const kvm::Vector3 &v) const ///< of what was reckoned without the factor
    {
        return isFinite(v) ? v : lose<kvm::Vector3>();
    }
    float finite(float number) const { return std::isfinite(number) ? number : lose<float>(); }
    int lost() const { return m_lost; }

private:
    template <typename T>
    T lose() const
    {
        ++m_lost;
        return {};
    }

    float m_factor;
    mutable int m_lost = 0;
};
