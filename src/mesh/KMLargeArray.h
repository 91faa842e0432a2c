#pragma once

#include "mesh/KMLargeMemory.h"

#include <type_traits>
#include <utility>

/// A long array of plain numbers. Its elements are not cleared: places that nobody writes are never touched.
template <class T>
class KMLargeArray
{
    static_assert(std::is_trivially_copyable<T>::value, "elements are neither constructed nor destroyed");

public:
    KMLargeArray() = default;
    explicit KMLargeArray(std::size_t size)
        : m_data(static_cast<T *>(KMLargeMemory::allocate(size * sizeof(T))))
        , m_size(size)
    {
    }
    KMLargeArray(KMLargeArray &&other) noexcept { swap(other); }
    KMLargeArray &operator=(KMLargeArray &&other) noexcept
    {
        swap(other);
        return *this;
    }
    ~KMLargeArray() { reset(); }

    T *data() { return m_data; }
    const T *data() const { return m_data; }
    T &operator[](std::size_t i) { return m_data[i]; }
    const T &operator[](std::size_t i) const { return m_data[i]; }
    std::size_t size() const { return m_size; }
    bool isEmpty() const { return m_size == 0; }
    void reset()
    {
        KMLargeMemory::release(m_data, m_size * sizeof(T));
        m_data = nullptr;
        m_size = 0;
    }

private:
    void swap(KMLargeArray &other)
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
    }

    T *m_data = nullptr;
    std::size_t m_size = 0;
};
