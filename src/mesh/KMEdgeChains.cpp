#include "mesh/KMEdgeChains.h"

#include <QHash>

#include <vector>

namespace {

class EdgeChaining
{
public:
    explicit EdgeChaining(const QVector<KMEdgeEnds> &edges)
        : m_edges(edges)
        , m_isTaken(size_t(edges.size()))
    {
        for (int e = 0; e < edges.size(); ++e) {
            m_edgesAt[edges.at(e).a] << e;
            m_edgesAt[edges.at(e).b] << e;
        }
    }

    QVector<KMEdgeChain> run()
    {
        for (int e = 0; e < m_edges.size(); ++e) {
            for (const int end : {m_edges.at(e).a, m_edges.at(e).b}) {
                if (!isInner(end) && !m_isTaken[size_t(e)])
                    take(walk(end, e));
            }
        }
        for (int e = 0; e < m_edges.size(); ++e) {
            if (m_isTaken[size_t(e)])
                continue;
            QVector<int> round = walk(m_edges.at(e).a, e);
            round.removeLast();
            m_chains.append({round, true, false});
        }
        return m_chains;
    }

private:
    bool isInner(int vertex) const { return m_edgesAt.value(vertex).size() == 2; }
    QVector<int> walk(int vertex, int e);
    void take(QVector<int> chain);

    const QVector<KMEdgeEnds> &m_edges;
    std::vector<bool> m_isTaken;
    QHash<int, QVector<int>> m_edgesAt;
    QVector<KMEdgeChain> m_chains;
};

/// To the next end, or round to where it started.
QVector<int> EdgeChaining::walk(int vertex, int e)
{
    QVector<int> vertices{vertex};
    while (!m_isTaken[size_t(e)]) {
        m_isTaken[size_t(e)] = true;
        vertex = m_edges.at(e).a == vertex ? m_edges.at(e).b : m_edges.at(e).a;
        vertices << vertex;
        if (!isInner(vertex))
            break;
        const QVector<int> &both = m_edgesAt[vertex];
        e = both.at(0) == e ? both.at(1) : both.at(0);
    }
    return vertices;
}

/// Rims of holes that touch at a vertex: each comes from there and leads back.
void EdgeChaining::take(QVector<int> chain)
{
    const bool isRound = chain.first() == chain.last() && m_edgesAt.value(chain.first()).size() % 2 == 0;
    if (isRound)
        chain.removeLast();
    m_chains.append({chain, isRound, isRound});
}

} // namespace

QVector<KMEdgeChain> edgeChains(const QVector<KMEdgeEnds> &edges)
{
    return EdgeChaining(edges).run();
}
