#pragma once

#include <QList>
#include <QtGlobal>

#include <algorithm>
#include <cstring>

/// A list of ints with room for N of them inside the record that holds it; only a longer one takes a block
/// of the heap. A vertex of a usual mesh has four faces and an edge two, so their lists cost no allocation.
template <int N>
class KMRefList
{
    static_assert(N * sizeof(int) >= sizeof(int *), "the places inside share their room with a pointer");

public:
    KMRefList()
        : m_size(0)
        , m_onHeap(0)
    {
    }
    KMRefList(std::initializer_list<int> values)
        : KMRefList()
    {
        for (const int value : values)
            append(value);
    }
    KMRefList(const KMRefList &other)
        : KMRefList()
    {
        assign(other);
    }
    KMRefList(KMRefList &&other) noexcept { steal(other); }
    ~KMRefList() { release(); }
    KMRefList &operator=(const KMRefList &other)
    {
        if (this != &other)
            assign(other);
        return *this;
    }
    KMRefList &operator=(KMRefList &&other) noexcept
    {
        if (this != &other) {
            release();
            steal(other);
        }
        return *this;
    }

    int size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    const int *data() const { return isInside() ? m_places : heap() + 1; }
    int *data() { return isInside() ? m_places : heap() + 1; }
    int at(int i) const { return data()[i]; }
    int operator[](int i) const { return data()[i]; }
    int &operator[](int i) { return data()[i]; }
    int first() const { return data()[0]; }
    int last() const { return data()[m_size - 1]; }
    const int *begin() const { return data(); }
    const int *end() const { return data() + m_size; }

    void append(int value)
    {
        if (m_size == capacity())
            grow(2 * capacity());
        data()[m_size++] = value;
    }
    void insert(int i, int value) ///< before place i; i may be size()
    {
        append(value);
        std::rotate(data() + i, data() + m_size - 1, data() + m_size);
    }
    void removeAt(int i)
    {
        int *values = data();
        std::copy(values + i + 1, values + m_size, values + i);
        --m_size;
    }
    bool removeOne(int value) ///< the first occurrence; false when there is none
    {
        const int i = indexOf(value);
        if (i >= 0)
            removeAt(i);
        return i >= 0;
    }
    int indexOf(int value) const ///< -1 when it is not there
    {
        const int *found = std::find(begin(), end(), value);
        return found == end() ? -1 : int(found - begin());
    }
    bool contains(int value) const { return indexOf(value) >= 0; }
    void clear() { m_size = 0; } ///< keeps its room
    void resize(int size)        ///< shortens the list; a longer one gets zeros
    {
        while (m_size < size)
            append(0);
        m_size = size;
    }
    QList<int> toList() const { return QList<int>(begin(), end()); }

    bool operator==(const KMRefList &other) const
    {
        return m_size == other.m_size && std::equal(begin(), end(), other.begin());
    }
    bool operator!=(const KMRefList &other) const { return !(*this == other); }

private:
    bool isInside() const { return !m_onHeap; }
    int capacity() const { return isInside() ? N : heap()[0]; }
    int *heap() const ///< the block: its capacity, and the values behind it
    {
        int *block;
        std::memcpy(&block, m_places, sizeof block);
        return block;
    }
    void grow(int capacity)
    {
        int *block = new int[size_t(capacity) + 1];
        block[0] = capacity;
        std::copy(begin(), end(), block + 1);
        release();
        std::memcpy(m_places, &block, sizeof block);
        m_onHeap = 1;
    }
    void assign(const KMRefList &other)
    {
        m_size = 0;
        if (capacity() < other.size())
            grow(other.size());
        std::copy(other.begin(), other.end(), data());
        m_size = other.m_size;
    }
    void steal(KMRefList &other)
    {
        std::memcpy(m_places, other.m_places, sizeof m_places);
        m_size = other.m_size;
        m_onHeap = other.m_onHeap;
        other.m_size = 0;
        other.m_onHeap = 0;
    }
    void release()
    {
        if (!isInside())
            delete[] heap();
    }

    // A pointer proper would align the records by eight bytes, and a capacity beside it take four more of each.
    int m_places[N] = {}; // the values, or the address of their block
    int m_size : 31;
    unsigned m_onHeap : 1;
};
