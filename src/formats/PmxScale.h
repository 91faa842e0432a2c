#pragma once

#include "math/Finite.h"

/// Takes lengths of a file into the document. What that makes infinite becomes 0 and is counted.
class PmxScale
{
public:
    explicit PmxScale(float factor)
        : m_factor(factor)
    {
    }

    kvm::Vector3 operator()(const kvm::Vector3 &v) const
    {
        const kvm::Vector3 scaled = v * m_factor;
        if (isFinite(scaled))
            return scaled;
        ++m_lost;
        return {};
    }
    int lost() const { return m_lost; }

private:
    float m_factor;
    mutable int m_lost = 0;
};
