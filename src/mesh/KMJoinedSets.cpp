#include "mesh/KMJoinedSets.h"

#include <algorithm>
#include <numeric>

KMJoinedSets::KMJoinedSets(int count)
    : m_parents(count)
{
    std::iota(m_parents.begin(), m_parents.end(), 0);
}

int KMJoinedSets::rootOf(int i)
{
    while (m_parents.at(i) != i)
        i = m_parents[i] = m_parents.at(m_parents.at(i)); // each search halves the way of the next
    return i;
}

void KMJoinedSets::join(int i, int k)
{
    i = rootOf(i);
    k = rootOf(k);
    m_parents[std::max(i, k)] = std::min(i, k);
}

QVector<int> KMJoinedSets::roots()
{
    QVector<int> all(m_parents.size());
    for (int i = 0; i < all.size(); ++i)
        all[i] = rootOf(i);
    return all;
}
