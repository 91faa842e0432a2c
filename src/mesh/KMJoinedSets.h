#pragma once

#include <QVector>

/// Things from 0 on that are joined step by step into sets; each set is named by its first member.
class KMJoinedSets
{
public:
    explicit KMJoinedSets(int count); ///< each a set of its own

    int rootOf(int i); ///< the name of its set
    void join(int i, int k);
    QVector<int> roots(); ///< of all

private:
    QVector<int> m_parents;
};
