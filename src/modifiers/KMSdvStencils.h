#pragma once

#include "math/Vector4.h"

#include <memory>

/// How the values of a refined level follow from those of the cage: each is a weighted sum of some of them.
class KMSdvStencils
{
public:
    KMSdvStencils() = default;

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }

    /// Calls write(i, value) for each value of the refined level, in order. The sums run over four floats at a time,
    /// which takes less than three do one by one, and nothing is stored on the way.
    template <class Write>
    void apply(const kvm::Vector4 *cage, Write write) const
    {
        const int *index = m_indices;
        const float *weight = m_weights;
        for (int i = 0; i < m_size; ++i) {
            float sum[4] = {};
            for (const int *end = index + m_sizes[i]; index != end; ++index, ++weight) {
                const float *value = cage[*index].data();
                for (int e = 0; e < 4; ++e)
                    sum[e] += *weight * value[e];
            }
            write(i, kvm::Vector4(sum[0], sum[1], sum[2], sum[3]));
        }
    }

    /// Calls visit(i, indices, weights, count) with the summands of each value, in order.
    template <class Visit>
    void forEach(Visit visit) const
    {
        int first = 0;
        for (int i = 0; i < m_size; first += m_sizes[i++])
            visit(i, m_indices + first, m_weights + first, m_sizes[i]);
    }

private:
    friend class KMSdvRefiner;

    std::shared_ptr<const void> m_table; // whose arrays these are
    const int *m_sizes = nullptr;        // summands of each value
    const int *m_indices = nullptr;
    const float *m_weights = nullptr;
    int m_size = 0;
};
