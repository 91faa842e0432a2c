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
    static_assert(N >= 2, "the places inside share their room with a pointer");

public:
    KMRefList() = default;
    KMRefList(std::initializer_list<int> values)
    {
        for (const int value : values)
            append(value);
    }
    KMRefList(const KMRefList &other) { assign(other); }
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
    const int *data() const { return isInside() ? m_inside : m_heap; }
    int *data() { return isInside() ? m_inside : m_heap; }
    int at(int i) const { return data()[i]; }
    int operator[](int i) const { return data()[i]; }
    int &operator[](int i) { return data()[i]; }
    int first() const { return data()[0]; }
    int last() const { return data()[m_size - 1]; }
    const int *begin() const { return data(); }
    const int *end() const { return data() + m_size; }

    void append(int value)
    {
        if (m_size == m_capacity)
            grow(2 * m_capacity);
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
    bool isInside() const { return m_capacity == N; }
    void grow(int capacity)
    {
        int *heap = new int[size_t(capacity)];
        std::copy(begin(), end(), heap);
        release();
        m_heap = heap;
        m_capacity = capacity;
    }
    void assign(const KMRefList &other)
    {
        m_size = 0;
        if (m_capacity < other.m_size)
            grow(other.m_size);
        std::copy(other.begin(), other.end(), data());
        m_size = other.m_size;
    }
    void steal(KMRefList &other)
    {
        std::memcpy(m_inside, other.m_inside, sizeof m_inside);
        m_size = other.m_size;
        m_capacity = other.m_capacity;
        other.m_size = 0;
        other.m_capacity = N;
    }
    void release()
    {
        if (!isInside())
            delete[] m_heap;
    }

    union
    {
        int m_inside[N] = {};
        int *m_heap;
    };
    int m_size = 0;
    int m_capacity = N;
};
