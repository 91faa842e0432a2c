#include "rig/KMWeightLists.h"

#include <algorithm>

int KMWeightLists::placeOf(int vertex, int bone) const
{
    const KMShareView shares = of(vertex);
    for (int i = 0; i < shares.size(); ++i) {
        if (shares[i].bone == bone)
            return i;
    }
    return -1;
}

/// The span of a vertex, with room for so many shares; those that it has stay.
KMWeightLists::Span &KMWeightLists::grown(int vertex, int count)
{
    constexpr int spare = 2;
    if (vertex >= m_spans.size())
        m_spans.resize(vertex + 1);
    Span &span = m_spans[vertex];
    if (count <= span.room)
        return span;
    if (span.room > 0 && span.first + span.room == m_shares.size()) {
        m_shares.resize(span.first + count); // the last list grows where it is
        span.room = count;
        return span;
    }
    const int room = span.room > 0 ? count + spare : count;
    const int first = m_shares.size();
    m_shares.resize(first + room);
    std::copy_n(m_shares.constData() + span.first, span.count, m_shares.data() + first);
    m_idle += span.room;
    span.first = first;
    span.room = room;
    return span;
}

void KMWeightLists::set(int vertex, KMShareView shares)
{
    if (vertex < 0 || (shares.isEmpty() && vertex >= m_spans.size()))
        return;
    Span &span = grown(vertex, shares.size());
    std::copy(shares.begin(), shares.end(), m_shares.data() + span.first);
    m_total += shares.size() - span.count;
    span.count = shares.size();
    pack();
}

void KMWeightLists::append(int vertex, const KMBoneShare &share)
{
    if (vertex < 0)
        return;
    Span &span = grown(vertex, of(vertex).size() + 1);
    m_shares[span.first + span.count++] = share;
    ++m_total;
    pack();
}

void KMWeightLists::remove(int vertex, int place)
{
    Span &span = m_spans[vertex];
    KMBoneShare *shares = m_shares.data() + span.first;
    std::move(shares + place + 1, shares + span.count, shares + place);
    --span.count;
    --m_total;
}

KMBoneShare *KMWeightLists::edit(int vertex)
{
    return m_shares.data() + m_spans.at(vertex).first;
}

void KMWeightLists::reserve(int vertices, int shares)
{
    m_spans.reserve(vertices);
    m_shares.reserve(shares);
}

void KMWeightLists::clear()
{
    m_spans.clear();
    m_shares.clear();
    m_total = m_idle = 0;
}

void KMWeightLists::pack()
{
    constexpr int worthIt = 1024;
    if (m_idle < worthIt || m_idle < m_shares.size() / 2)
        return;
    QVector<KMBoneShare> packed;
    packed.reserve(m_total);
    for (Span &span : m_spans) {
        const int first = packed.size();
        for (int i = 0; i < span.count; ++i)
            packed.append(m_shares.at(span.first + i));
        span = {first, span.count, span.count};
    }
    m_shares = packed;
    m_idle = 0;
}

void normalizeShares(KMBoneShare *shares, int count)
{
    if (count == 0)
        return;
    KMBoneShare &last = shares[count - 1];
    float sum = 0.0f;
    for (int i = 0; i < count; ++i)
        sum += shares[i].weight;
    if (count == 1 || sum == 0.0f) {
        last.weight = 1.0f;
        return;
    }
    const float factor = 1.0f / sum;
    float others = 0.0f;
    for (int i = 0; i < count - 1; ++i) {
        shares[i].weight *= factor;
        others += shares[i].weight;
    }
    last.weight = 1.0f - others;
}
