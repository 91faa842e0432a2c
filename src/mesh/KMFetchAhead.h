#pragma once

/// For walks over the records of a store, whose places are known but not what they hold: asks the memory for a record
/// that comes a little later, so that it is there when the walk reaches it. The front of a record is enough.
template <class T>
inline void fetchAhead(T *const *store, int i, int count)
{
    constexpr int ahead = 12;
    constexpr int line = 64; // bytes that the memory hands out at once
    if (i + ahead >= count)
        return;
    const char *record = reinterpret_cast<const char *>(store[i + ahead]);
    __builtin_prefetch(record);
    if (sizeof(T) > line)
        __builtin_prefetch(record + line);
}
