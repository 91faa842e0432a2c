#pragma once

#include "mesh/KMLargeMemory.h"

#include <QVector>

#include <algorithm>
#include <new>
#include <vector>

/// Keeps the records of one mesh dense in a few large blocks. A record never moves while it lives; a freed
/// place is the first to be taken again. Each mesh has its own pools, so meshes that are refreshed at the
/// same time on different threads share nothing.
template <class T>
class KMRecordPool
{
    Q_DISABLE_COPY(KMRecordPool)
public:
    KMRecordPool() = default;
    ~KMRecordPool() { freeBlocks(); }

    T *create()
    {
        if (m_free.empty() && m_next == m_end)
            addBlock(std::clamp(m_places / 8, MinBlock, MaxBlock));
        if (m_free.empty())
            return new (m_next++) T;
        T *place = m_free.back();
        m_free.pop_back();
        return new (place) T;
    }
    void destroy(T *record) ///< a null one is ignored
    {
        if (!record)
            return;
        record->~T();
        m_free.push_back(record);
    }
    void reserve(int more) ///< makes room for so many further records in one block
    {
        const int left = int(m_free.size()) + int(m_end - m_next);
        if (more <= left)
            return;
        while (m_next != m_end) // what is left of the present block is not lost
            m_free.push_back(--m_end);
        addBlock(more - left);
    }
    /// Destroys the records of a store, which have to be all that live, and gives the memory back.
    void clear(const QVector<T *> &live)
    {
        if (!std::is_trivially_destructible<T>::value) {
            for (T *record : live) {
                if (record)
                    record->~T();
            }
        }
        freeBlocks();
    }

private:
    static constexpr int MinBlock = 32;
    static constexpr int MaxBlock = int((8 << 20) / sizeof(T));

    struct Block
    {
        T *places;
        size_t bytes;
    };

    void addBlock(int places)
    {
        const size_t bytes = size_t(places) * sizeof(T);
        m_next = static_cast<T *>(KMLargeMemory::allocate(bytes));
        m_end = m_next + places;
        m_blocks.push_back({m_next, bytes});
        m_places += places;
    }
    void freeBlocks()
    {
        for (const Block &block : m_blocks)
            KMLargeMemory::release(block.places, block.bytes);
        m_blocks.clear();
        m_free = {};
        m_next = m_end = nullptr;
        m_places = 0;
    }

    std::vector<Block> m_blocks;
    std::vector<T *> m_free;
    T *m_next = nullptr; // places of the last block that were never taken
    T *m_end = nullptr;
    int m_places = 0;
};
