#include "mesh/KMCloseVertices.h"

#include "math/Finite.h"
#include "mesh/KMMeshStore.h"

#include <QHash>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <vector>

using kvm::Vector3;

namespace {

constexpr int none = std::numeric_limits<int>::max();

/// The vertices in cubic cells, of which two in the same cell are always close: so many vertices at one place cost no
/// more than others. Vertices are asked for in ascending order, and each is done with after its own turn.
class Cells
{
public:
    Cells(const KMMeshStore &mesh, float distance, bool selectedOnly);

    const std::vector<int> &vertices() const { return m_vertices; } ///< ascending
    int nextCloseTo(int vertex);                                    ///< the first one behind it, else none

private:
    using Cell = std::array<qint64, 3>;
    struct Run
    {
        int next; // of m_byCell; what lies before is done with
        int end;
    };

    void collect(bool selectedOnly);
    void sortIntoCells();
    Cell cellOf(const Vector3 &place) const;
    static quint64 keyOf(const Cell &cell);
    bool reaches(const Vector3 &place, const Cell &cell) const;
    bool isClose(int a, int b) const;
    int firstClose(quint64 key, int vertex, int before);

    const KMMeshStore &m_mesh;
    double m_distance;
    double m_size = 0.0; // of a cell
    int m_reach = 0;     // cells to each side of the own one
    std::vector<int> m_vertices;
    std::vector<int> m_byCell;
    QHash<quint64, Run> m_runs; // cells of the same key share one
};

Cells::Cells(const KMMeshStore &mesh, float distance, bool selectedOnly)
    : m_mesh(mesh)
    , m_distance(double(distance))
{
    collect(selectedOnly);
    sortIntoCells();
}

void Cells::collect(bool selectedOnly)
{
    double extent = 0.0;
    for (int i = 0; i < m_mesh.vertexCount(); ++i) {
        const KMVertex *vertex = m_mesh.vertex(i);
        if (!vertex || (selectedOnly && !vertex->hasFlag(KMElementFlag::Selected)))
            continue;
        const Vector3 &p = vertex->pos;
        if (!isFinite(p))
            continue; // it is close to nothing
        m_vertices.push_back(i);
        extent = std::max({extent, std::fabs(double(p.x)), std::fabs(double(p.y)), std::fabs(double(p.z))});
    }
    constexpr double diagonal = 1.7320508; // rounded down, so that rounding doesn't part what is close
    constexpr double finest = 1e-12;       // of the extent: cells can still be counted exactly
    m_size = std::max({m_distance / (diagonal * 1.000001), extent * finest, std::numeric_limits<double>::min()});
    m_reach = m_distance > 0.0 ? int(m_distance / m_size * 1.000001) + 1 : 0;
}

void Cells::sortIntoCells()
{
    std::vector<std::pair<quint64, int>> entries;
    entries.reserve(m_vertices.size());
    for (const int vertex : m_vertices)
        entries.emplace_back(keyOf(cellOf(m_mesh.position(vertex))), vertex);
    std::sort(entries.begin(), entries.end());
    m_byCell.reserve(entries.size());
    m_runs.reserve(int(entries.size()));
    for (size_t i = 0; i < entries.size(); ++i) {
        m_byCell.push_back(entries[i].second);
        if (i == 0 || entries[i].first != entries[i - 1].first)
            m_runs.insert(entries[i].first, {int(i), int(i)});
        ++m_runs[entries[i].first].end;
    }
}

Cells::Cell Cells::cellOf(const Vector3 &place) const
{
    const auto number = [this](float x) { return qint64(std::floor(double(x) / m_size)); };
    return {number(place.x), number(place.y), number(place.z)};
}

quint64 Cells::keyOf(const Cell &cell)
{
    quint64 key = 0;
    for (const qint64 number : cell)
        key = ((key ^ quint64(number)) * 0x9e3779b97f4a7c15ull) ^ (key >> 29);
    return key;
}

bool Cells::reaches(const Vector3 &place, const Cell &cell) const
{
    double sum = 0.0;
    for (size_t k = 0; k < 3; ++k) {
        const double low = double(cell[k]) * m_size;
        const double outside = std::max({low - double(place[int(k)]), double(place[int(k)]) - low - m_size, 0.0});
        sum += outside * outside;
    }
    return sum <= m_distance * m_distance * 1.00001;
}

bool Cells::isClose(int a, int b) const
{
    double sum = 0.0;
    for (int k = 0; k < 3; ++k) {
        const double way = double(m_mesh.position(a)[k]) - double(m_mesh.position(b)[k]);
        sum += way * way;
    }
    return sum <= m_distance * m_distance;
}

int Cells::firstClose(quint64 key, int vertex, int before)
{
    const auto run = m_runs.find(key);
    if (run == m_runs.end())
        return before;
    while (run->next < run->end && m_byCell[size_t(run->next)] <= vertex)
        ++run->next;
    for (int i = run->next; i < run->end && m_byCell[size_t(i)] < before; ++i) {
        if (isClose(vertex, m_byCell[size_t(i)]))
            return m_byCell[size_t(i)];
    }
    return before;
}

/// The own cell first: what it finds is soon found, and bounds the search in the others.
int Cells::nextCloseTo(int vertex)
{
    const Vector3 &place = m_mesh.position(vertex);
    const Cell own = cellOf(place);
    int found = firstClose(keyOf(own), vertex, none);
    Cell cell;
    for (cell[0] = own[0] - m_reach; cell[0] <= own[0] + m_reach; ++cell[0]) {
        for (cell[1] = own[1] - m_reach; cell[1] <= own[1] + m_reach; ++cell[1]) {
            for (cell[2] = own[2] - m_reach; cell[2] <= own[2] + m_reach; ++cell[2]) {
                if (cell != own && reaches(place, cell))
                    found = firstClose(keyOf(cell), vertex, found);
            }
        }
    }
    return found;
}

} // namespace

/// A vertex that finds no other behind it has none before it either, or that one would have gone into it. So the first
/// of the others that are still there is always one behind.
QVector<KMVertexPair> KMCloseVertices::find(const KMMeshStore &mesh, float distance, bool selectedOnly)
{
    QVector<KMVertexPair> pairs;
    if (!(distance >= 0.0f))
        return pairs;
    Cells cells(mesh, distance, selectedOnly);
    for (const int vertex : cells.vertices()) {
        const int close = cells.nextCloseTo(vertex);
        if (close != none)
            pairs.append({vertex, close});
    }
    return pairs;
}
