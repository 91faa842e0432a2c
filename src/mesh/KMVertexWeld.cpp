#include "mesh/KMVertexWeld.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"

#include <QHash>

#include <cmath>
#include <cstring>
#include <limits>

namespace {

/// Finds the first of the points so far that lies at the place of another one.
class PlaceTable
{
public:
    explicit PlaceTable(const KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }

    int find(const kvm::Vector3 &place) const
    {
        int found = -1;
        for (int corner = 0; corner < 8; ++corner) { // of the cube in which places count as the same
            const quint64 cell = cellOf(place, corner);
            for (auto at = m_vertices.constFind(cell); at != m_vertices.constEnd() && at.key() == cell; ++at) {
                if (isSame(m_mesh.position(at.value()), place) && (found < 0 || at.value() < found))
                    found = at.value();
            }
        }
        return found;
    }
    void insert(int vertex) { m_vertices.insert(cellOf(m_mesh.position(vertex), -1), vertex); }

private:
    static constexpr float Tolerance = std::numeric_limits<float>::epsilon();

    static bool isSame(const kvm::Vector3 &a, const kvm::Vector3 &b)
    {
        return std::abs(a.x - b.x) < Tolerance && std::abs(a.y - b.y) < Tolerance && std::abs(a.z - b.z) < Tolerance;
    }
    /// Cells are twice as wide as the cube: it touches no more cells than it has corners.
    static quint64 cellOf(const kvm::Vector3 &place, int corner)
    {
        quint64 cell = 0;
        for (int k = 0; k < 3; ++k) {
            const double shift = corner < 0 ? 0.0 : corner >> k & 1 ? double(Tolerance) : -double(Tolerance);
            const double number = std::floor((double(place[k]) + shift) / (4.0 * double(Tolerance))) + 0.0;
            quint64 bits;
            std::memcpy(&bits, &number, sizeof bits);
            cell = (cell ^ (bits >> 32) ^ bits) * 0x9e3779b97f4a7c15ull;
        }
        return cell;
    }

    const KMMeshNode &m_mesh;
    QMultiHash<quint64, int> m_vertices;
};

} // namespace

bool KMMeshEdit::weldToMean(KMMeshNode &mesh, const QVector<int> &vertices)
{
    if (vertices.isEmpty())
        return false;
    double sum[3] = {};
    for (const int vertex : vertices) {
        for (int k = 0; k < 3; ++k)
            sum[k] += double(mesh.position(vertex)[k]);
    }
    const double count = vertices.size();
    QVector<KMVertexPair> pairs;
    for (int i = 1; i < vertices.size(); ++i)
        pairs.append({vertices.at(i), vertices.first()});
    mergeVertices(mesh, pairs);
    const kvm::Vector3 mean(float(sum[0] / count), float(sum[1] / count), float(sum[2] / count));
    gSolution->push(new moveVertexCommand(&mesh, vertices.first(), mean));
    return true;
}

int KMMeshEdit::weldSamePlace(KMMeshNode &mesh, const QVector<int> &vertices)
{
    PlaceTable kept(mesh);
    QVector<KMVertexPair> pairs;
    for (const int vertex : vertices) {
        const int same = kept.find(mesh.position(vertex));
        if (same < 0)
            kept.insert(vertex);
        else
            pairs.append({vertex, same});
    }
    return mergeVertices(mesh, pairs);
}
