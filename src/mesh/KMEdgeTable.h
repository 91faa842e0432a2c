#pragma once

#include "mesh/KMEdge.h"

#include <memory>
#include <vector>

/// The edges of a mesh, found by their two vertices. Edges stand in the order in which they came, so a walk
/// over the table is the same for the same mesh, and a record stays in its place for as long as its edge is there.
/// They leave all at once, or some of them by a KMEdgePatch, which also puts new ones between the others.
class KMEdgeTable
{
    Q_DISABLE_COPY(KMEdgeTable)
public:
    class const_iterator
    {
    public:
        const_iterator(const KMEdgeTable *table, int number)
            : m_table(table)
            , m_number(number)
        {
        }
        KMEdge *operator*() const { return m_table->at(m_number); }
        const_iterator &operator++()
        {
            ++m_number;
            return *this;
        }
        bool operator!=(const const_iterator &other) const { return m_number != other.m_number; }
        bool operator==(const const_iterator &other) const { return m_number == other.m_number; }

    private:
        const KMEdgeTable *m_table;
        int m_number;
    };

    KMEdgeTable() = default;

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    KMEdge *at(int number) const { return atPlace(placeOf(number)); }
    const_iterator begin() const { return {this, 0}; }
    const_iterator end() const { return {this, m_size}; }

    KMEdge *find(int a, int b) const;  ///< in either order; null when there is no such edge
    KMEdge *findKey(quint64 key) const ///< of the smaller index in the lower half; null for any other key
    {
        const int low = int(quint32(key));
        const int high = int(quint32(key >> 32));
        return low <= high ? find(low, high) : nullptr;
    }
    KMEdge *findOrAdd(int a, int b); ///< a new edge has no flags, weight and faces
    void reserve(int edges);         ///< room for so many edges without growing
    void clear();                    ///< keeps the room for the next filling
    void release();                  ///< clears and gives the memory back

    // For KMEdgePatch: edges by the place of their record, whatever their number

    KMEdge *atPlace(int place) const { return &m_blocks[size_t(place >> BlockBits)][place & (BlockSize - 1)]; }
    int placeOf(int number) const { return m_order.empty() ? number : m_order[size_t(number)]; }
    int findPlace(int a, int b) const; ///< -1 when there is no such edge
    int findOrAddPlace(int a, int b);  ///< a new edge gets no number
    void removePlace(int place);       ///< of an edge without number
    std::vector<int> takeOrder();      ///< the places by number; without them the table is only searched
    void setOrder(std::vector<int> &&order);

private:
    static constexpr int BlockBits = 8;
    static constexpr int BlockSize = 1 << BlockBits;

    quint32 *findSlot(int low, int high) const;
    void rehash(size_t slotCount);
    int takePlace(int low, int high);

    std::vector<std::unique_ptr<KMEdge[]>> m_blocks;
    std::vector<int> m_order;           // the places by number, empty for as long as they are the numbers
    std::vector<int> m_freePlaces;      // below m_placeCount
    std::unique_ptr<quint32[]> m_slots; // place of the edge plus one, or that there is none
    size_t m_slotCount = 0;             // a power of two, at least twice the number of slots in use
    size_t m_slotsInUse = 0;            // those of removed edges included
    int m_placeCount = 0;               // records that were ever taken since the table was empty
    int m_live = 0;                     // edges, with a number or without
    int m_size = 0;                     // edges with a number
};
