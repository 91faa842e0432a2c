#pragma once

#include <QVector>

#include <vector>

class KMMeshStore;

/// Shortest paths along the edges of a mesh that aren't hidden, measured in space. It holds for the edges as they were
/// when it was made; vertices may move since.
class KMEdgePath
{
public:
    explicit KMEdgePath(const KMMeshStore &mesh);

    /// The vertices of the path with both ends, found by the A* search of Hart, Nilsson and Raphael (1968); empty when
    /// no edges lead there. Of equally short paths it is always the same one.
    QVector<int> between(int from, int to) const;

private:
    const int *neighboursBegin(int vertex) const { return m_neighbours.data() + m_starts[size_t(vertex)]; }
    const int *neighboursEnd(int vertex) const { return m_neighbours.data() + m_starts[size_t(vertex) + 1]; }

    const KMMeshStore &m_mesh;
    std::vector<int> m_starts;     // by vertex, into the neighbours; one more than there are vertices
    std::vector<int> m_neighbours; // the other ends of the edges of each vertex
};
