#include "mesh/KMEdgeTable.h"

#include <algorithm>
#include <numeric>

namespace {

constexpr quint32 empty = 0;
constexpr quint32 removed = ~quint32(0); // an edge stood here: a search goes on

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

/// The slot of the pair, else the one to put it in.
quint32 *KMEdgeTable::findSlot(int low, int high) const
{
    quint32 *reusable = nullptr;
    Probe probe(low, high, m_slotCount);
    for (;; probe.advance()) {
        quint32 *slot = &m_slots[probe.slot()];
        if (*slot == empty)
            return reusable ? reusable : slot;
        if (*slot == removed) {
            if (!reusable)
                reusable = slot;
            continue;
        }
        const KMEdge *edge = atPlace(int(*slot - 1));
        if (edge->index0 == low && edge->index1 == high)
            return slot;
    }
}

int KMEdgeTable::findPlace(int a, int b) const
{
    if (m_slotsInUse == 0)
        return -1;
    const quint32 place = *findSlot(std::min(a, b), std::max(a, b));
    return place == empty || place == removed ? -1 : int(place - 1);
}

KMEdge *KMEdgeTable::find(int a, int b) const
{
    const int place = findPlace(a, b);
    return place < 0 ? nullptr : atPlace(place);
}

int KMEdgeTable::findOrAddPlace(int a, int b)
{
    if (2 * (m_slotsInUse + 1) > m_slotCount)
        rehash(std::max(smallestTable, m_slotCount * (4 * size_t(m_live) > m_slotCount ? 2 : 1)));
    const int low = std::min(a, b);
    const int high = std::max(a, b);
    quint32 *slot = findSlot(low, high);
    if (*slot != empty && *slot != removed)
        return int(*slot - 1);
    m_slotsInUse += *slot == empty;
    const int place = takePlace(low, high);
    *slot = quint32(place) + 1;
    return place;
}

KMEdge *KMEdgeTable::findOrAdd(int a, int b)
{
    const int liveBefore = m_live;
    const int place = findOrAddPlace(a, b);
    if (m_live > liveBefore) {
        if (!m_order.empty())
            m_order.push_back(place);
        ++m_size;
    }
    return atPlace(place);
}

int KMEdgeTable::takePlace(int low, int high)
{
    int place = m_placeCount;
    if (!m_freePlaces.empty()) {
        place = m_freePlaces.back();
        m_freePlaces.pop_back();
    } else if (size_t(m_placeCount++) == m_blocks.size() * BlockSize) {
        m_blocks.push_back(std::make_unique<KMEdge[]>(BlockSize));
    }
    KMEdge *edge = atPlace(place);
    edge->index0 = low;
    edge->index1 = high;
    edge->weight = 0.0f;
    edge->flags = 0;
    edge->drawn = 0;
    edge->faceRefs.clear();
    ++m_live;
    return place;
}

void KMEdgeTable::removePlace(int place)
{
    const KMEdge *edge = atPlace(place);
    *findSlot(edge->index0, edge->index1) = removed;
    m_freePlaces.push_back(place);
    --m_live;
}

std::vector<int> KMEdgeTable::takeOrder()
{
    std::vector<int> order = std::move(m_order);
    m_order.clear();
    if (order.empty()) {
        order.reserve(size_t(m_size + m_size / 8));
        order.resize(size_t(m_size));
        std::iota(order.begin(), order.end(), 0);
    }
    m_size = 0;
    return order;
}

void KMEdgeTable::setOrder(std::vector<int> &&order)
{
    Q_ASSERT(int(order.size()) == m_live);
    if (order.empty())
        clear(); // places are numbers again
    m_order = std::move(order);
    m_size = int(m_order.size());
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
    const std::unique_ptr<quint32[]> slotsBefore = std::move(m_slots);
    const size_t countBefore = m_slotCount;
    m_slots = std::make_unique<quint32[]>(slotCount);
    m_slotCount = slotCount;
    m_slotsInUse = size_t(m_live);
    for (size_t i = 0; i < countBefore; ++i) {
        const quint32 slot = slotsBefore[i];
        if (slot == empty || slot == removed)
            continue;
        const KMEdge *edge = atPlace(int(slot - 1));
        *findSlot(edge->index0, edge->index1) = slot;
    }
}

void KMEdgeTable::clear()
{
    std::fill_n(m_slots.get(), m_slotCount, empty);
    m_order.clear();
    m_freePlaces.clear();
    m_slotsInUse = 0;
    m_placeCount = 0;
    m_live = 0;
    m_size = 0;
}

void KMEdgeTable::release()
{
    clear();
    m_order = {};
    m_freePlaces = {};
    m_blocks.clear();
    m_slots.reset();
    m_slotCount = 0;
}
