#pragma once

#include <QVector>

/// What one bone bears of a vertex. Bones are numbers of the tag that the list belongs to.
struct KMBoneShare
{
    int bone = -1;
    float weight = 0.0f;

    bool operator==(const KMBoneShare &other) const { return bone == other.bone && weight == other.weight; }
};

Q_DECLARE_TYPEINFO(KMBoneShare, Q_PRIMITIVE_TYPE);

/// The shares of one vertex, valid until the lists change.
class KMShareView
{
public:
    KMShareView() = default;
    KMShareView(const KMBoneShare *first, int count)
        : m_first(first)
        , m_count(count)
    {
    }

    const KMBoneShare *begin() const { return m_first; }
    const KMBoneShare *end() const { return m_first + m_count; }
    int size() const { return m_count; }
    bool isEmpty() const { return m_count == 0; }
    const KMBoneShare &operator[](int i) const { return m_first[i]; }

private:
    const KMBoneShare *m_first = nullptr;
    int m_count = 0;
};

/// A list of shares for each of many vertices, all in one array, each list in its own order. A list that outgrows its
/// place moves to the end of the array, which is packed when half of it lies idle.
class KMWeightLists
{
public:
    int vertexCount() const { return m_spans.size(); } ///< vertices from here on have no shares
    int shareCount() const { return m_total; }
    bool isEmpty() const { return m_total == 0; }
    KMShareView of(int vertex) const ///< empty for a vertex that isn't known
    {
        if (uint(vertex) >= uint(m_spans.size()))
            return {};
        const Span &span = m_spans.constData()[vertex];
        return {m_shares.constData() + span.first, span.count};
    }
    int placeOf(int vertex, int bone) const; ///< of the bone in the vertex's list, -1 when it isn't there

    void set(int vertex, KMShareView shares); ///< which are no view of these lists
    void append(int vertex, const KMBoneShare &share);
    void remove(int vertex, int place);
    KMBoneShare *edit(int vertex); ///< its shares, as many as of() says
    void reserve(int vertices, int shares);
    void clear();

private:
    struct Span
    {
        int first = 0;
        int count = 0;
        int room = 0;
    };

    Span &grown(int vertex, int count);
    void pack();

    QVector<Span> m_spans; // by vertex
    QVector<KMBoneShare> m_shares;
    int m_total = 0;
    int m_idle = 0; // places that belong to no list any more
};

/// Brings the weights of a vertex to the sum 1: one alone becomes 1; of several that are all 0 the last becomes 1; else
/// all but the last are scaled, and the last is what they leave of 1.
void normalizeShares(KMBoneShare *shares, int count);
