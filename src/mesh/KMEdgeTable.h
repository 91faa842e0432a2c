#pragma once

#include "mesh/KMEdge.h"

#include <memory>
#include <vector>

/// The edges of a mesh, found by their two vertices. Edges stand in the order in which they came, so a walk
/// over the table is the same for the same mesh, and an edge stays where it is until the table is cleared.
/// They leave only all at once.
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
    KMEdge *at(int number) const { return &m_blocks[size_t(number >> BlockBits)][number & (BlockSize - 1)]; }
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

private:
    static constexpr int BlockBits = 8;
    static constexpr int BlockSize = 1 << BlockBits;

    quint32 *findSlot(int low, int high) const;
    void rehash(size_t slotCount);
    KMEdge *append(int low, int high);

    std::vector<std::unique_ptr<KMEdge[]>> m_blocks;
    std::unique_ptr<quint32[]> m_slots; // number of the edge plus one, 0 for an empty slot
    size_t m_slotCount = 0;             // a power of two, at least twice the number of edges
    int m_size = 0;
};
