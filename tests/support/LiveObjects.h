#pragma once

#include <utility>

/// Counts how many objects of all Counted classes are alive.
class LiveObjects
{
public:
    static int count() { return s_count; }

protected:
    LiveObjects() { ++s_count; }
    ~LiveObjects() { --s_count; }

private:
    static inline int s_count = 0;
};

/// A node class whose objects are counted, so that a test sees leaks.
template <class Node>
class Counted : public Node, private LiveObjects
{
public:
    template <class... Args>
    explicit Counted(Args &&...args)
        : Node(std::forward<Args>(args)...)
    {
    }
};
