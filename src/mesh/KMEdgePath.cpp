#include "mesh/KMEdgePath.h"

#include "mesh/KMMeshStore.h"

#include <algorithm>
#include <limits>
#include <queue>

namespace {

/// A vertex that the search has reached, with the cost so far and what the straight way to the goal adds.
struct Reached
{
    float total;
    int vertex;

    bool operator<(const Reached &other) const // the queue hands out the largest first
    {
        return total > other.total || (total == other.total && vertex > other.vertex);
    }
};

struct Way
{
    float cost = std::numeric_limits<float>::max();
    int previous = -1;
    bool isDone = false;
};

QVector<int> walkBack(const std::vector<Way> &ways, int from, int to)
{
    QVector<int> path;
    for (int vertex = to; vertex != from; vertex = ways[size_t(vertex)].previous)
        path.append(vertex);
    path.append(from);
    std::reverse(path.begin(), path.end());
    return path;
}

} // namespace

KMEdgePath::KMEdgePath(const KMMeshStore &mesh)
    : m_mesh(mesh)
    , m_starts(size_t(mesh.vertexCount()) + 1, 0)
    , m_neighbours(size_t(mesh.edgeCount()) * 2)
{
    QVector<const KMEdge *> shown;
    for (const KMEdge *edge : mesh.edges()) {
        if (!mesh.isHidden(*edge))
            shown << edge;
    }
    for (const KMEdge *edge : std::as_const(shown)) {
        ++m_starts[size_t(edge->index0) + 1];
        ++m_starts[size_t(edge->index1) + 1];
    }
    for (size_t i = 1; i < m_starts.size(); ++i)
        m_starts[i] += m_starts[i - 1];
    std::vector<int> next = m_starts;
    for (const KMEdge *edge : std::as_const(shown)) {
        m_neighbours[size_t(next[size_t(edge->index0)]++)] = edge->index1;
        m_neighbours[size_t(next[size_t(edge->index1)]++)] = edge->index0;
    }
}

QVector<int> KMEdgePath::between(int from, int to) const
{
    const auto place = [this](int vertex) { return m_mesh.position(vertex); };
    std::vector<Way> ways(m_starts.size() - 1);
    std::priority_queue<Reached> open;
    ways[size_t(from)].cost = 0.0f;
    open.push({(place(to) - place(from)).length(), from});
    while (!open.empty()) {
        const int vertex = open.top().vertex;
        open.pop();
        if (vertex == to)
            return walkBack(ways, from, to);
        if (ways[size_t(vertex)].isDone)
            continue;
        ways[size_t(vertex)].isDone = true;
        for (const int *other = neighboursBegin(vertex); other != neighboursEnd(vertex); ++other) {
            const float cost = ways[size_t(vertex)].cost + (place(*other) - place(vertex)).length();
            if (cost >= ways[size_t(*other)].cost)
                continue;
            ways[size_t(*other)].cost = cost;
            ways[size_t(*other)].previous = vertex;
            open.push({cost + (place(to) - place(*other)).length(), *other});
        }
    }
    return {};
}
