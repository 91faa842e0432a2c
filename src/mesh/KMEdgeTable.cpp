#include "mesh/KMEdgeTable.h"

#include <algorithm>

namespace {

constexpr size_t smallestTable = 64;
constexpr int nearProbes = 8;

quint64 mixed(int low, int high)
{
    quint64 h = KMEdge::keyOf(low, high) * 0x9E3779B97F4A7C15ull;
    h ^= h >> 32;
    return h * 0xD6E8FEB86659FD93ull;
}

/// Where a pair may stand. The first places lie side by side, at a spot that grows with the smaller index:
/// a walk over faces in their order stays in the cache. A vertex with more edges than fit there sends the
/// rest over the whole table, by steps that differ from edge to edge, so no run of full slots can build up.
class Probe
{
public:
    Probe(int low, int high, size_t slotCount)
        : m_mask(slotCount - 1)
        , m_mixed(mixed(low, high))
        , m_slot((size_t(quint32(low)) * 4 + (m_mixed >> 62)) & m_mask)
    {
    }
    size_t slot() const { return m_slot; }
    void advance()
    {
        ++m_step;
        if (m_step < nearProbes)
            m_slot = (m_slot + 1) & m_mask;
        else if (m_step == nearProbes)
            m_slot = (m_mixed >> 20) & m_mask;
        else
            m_slot = (m_slot + ((m_mixed >> 7) | 1)) & m_mask; // odd: reaches every slot
    }

private:
    size_t m_mask;
    quint64 m_mixed;
    size_t m_slot;
    int m_step = 0;
};

} // namespace

quint32 *KMEdgeTable::findSlot(int low, int high) const
{
    Probe probe(low, high, m_slotCount);
    for (;; probe.advance()) {
        quint32 *slot = &m_slots[probe.slot()];
        if (*slot == 0)
            return slot;
        const KMEdge *edge = at(int(*slot - 1));
        if (edge->index0 == low && edge->index1 == high)
            return slot;
    }
}

KMEdge *KMEdgeTable::find(int a, int b) const
{
    if (m_size == 0)
        return nullptr;
    const quint32 number = *findSlot(std::min(a, b), std::max(a, b));
    return number ? at(int(number - 1)) : nullptr;
}

KMEdge *KMEdgeTable::findOrAdd(int a, int b)
{
    if (2 * (size_t(m_size) + 1) > m_slotCount)
        rehash(std::max(smallestTable, 2 * m_slotCount));
    const int low = std::min(a, b);
    const int high = std::max(a, b);
    quint32 *slot = findSlot(low, high);
    if (*slot)
        return at(int(*slot - 1));
    *slot = quint32(m_size) + 1;
    return append(low, high);
}

KMEdge *KMEdgeTable::append(int low, int high)
{
    if (size_t(m_size) == m_blocks.size() * BlockSize)
        m_blocks.push_back(std::make_unique<KMEdge[]>(BlockSize));
    KMEdge *edge = at(m_size++);
    edge->index0 = low;
    edge->index1 = high;
    edge->weight = 0.0f;
    edge->flags = 0;
    edge->drawn = 0;
    edge->faceRefs.clear();
    return edge;
}

void KMEdgeTable::reserve(int edges)
{
    size_t slotCount = std::max(smallestTable, m_slotCount);
    while (slotCount < 2 * size_t(edges))
        slotCount *= 2;
    if (slotCount != m_slotCount)
        rehash(slotCount);
}

void KMEdgeTable::rehash(size_t slotCount)
{
    m_slots = std::make_unique<quint32[]>(slotCount);
    m_slotCount = slotCount;
    for (int number = 0; number < m_size; ++number) {
        const KMEdge *edge = at(number);
        *findSlot(edge->index0, edge->index1) = quint32(number) + 1;
    }
}

void KMEdgeTable::clear()
{
    std::fill_n(m_slots.get(), m_slotCount, 0u);
    m_size = 0;
}

void KMEdgeTable::release()
{
    m_blocks.clear();
    m_slots.reset();
    m_slotCount = 0;
    m_size = 0;
}
