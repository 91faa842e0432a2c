#include "mesh/KMMirrorMap.h"

#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <unordered_map>

using kvm::Vector3;

namespace {

/// The vertices of a mesh in cubes as wide as the tolerance, so that what is close is in one of 27.
class VertexGrid
{
public:
    VertexGrid(const KMMeshNode &mesh, float cell)
        : m_mesh(mesh)
        , m_cell(cell)
    {
        for (int i = 0; i < mesh.vertexCount(); ++i) {
            if (mesh.vertex(i))
                m_cells[keyOf(cellOf(mesh.position(i)))].push_back(i);
        }
    }

    /// The nearest vertex within the width of a cube, else -1; of equally near ones the first.
    int nearest(const Vector3 &point) const
    {
        const std::array<qint64, 3> centre = cellOf(point);
        int best = -1;
        float best2 = m_cell * m_cell;
        for (int n = 0; n < 27; ++n) {
            const auto cell =
                m_cells.find(keyOf({centre[0] + n % 3 - 1, centre[1] + n / 3 % 3 - 1, centre[2] + n / 9 - 1}));
            if (cell == m_cells.end())
                continue;
            for (const int i : cell->second) {
                const float d2 = (m_mesh.position(i) - point).lengthSquared();
                if (d2 < best2 || (d2 == best2 && (best < 0 || i < best))) {
                    best = i;
                    best2 = d2;
                }
            }
        }
        return best;
    }

private:
    std::array<qint64, 3> cellOf(const Vector3 &p) const { return {number(p.x), number(p.y), number(p.z)}; }
    qint64 number(float x) const
    {
        constexpr double limit = 1e15;
        const double n = std::floor(double(x) / double(m_cell));
        return n > -limit && n < limit ? qint64(n) : 0;
    }
    static quint64 keyOf(const std::array<qint64, 3> &cell)
    {
        // Cells that share a key only make a list longer: the distance decides.
        return quint64(cell[0]) * 73856093u ^ quint64(cell[1]) * 19349663u ^ quint64(cell[2]) * 83492791u;
    }

    const KMMeshNode &m_mesh;
    float m_cell;
    std::unordered_map<quint64, std::vector<int>> m_cells;
};

} // namespace

KMMirrorMap::KMMirrorMap(const KMMeshNode &mesh, float tolerance)
    : m_mesh(mesh)
    , m_plane(mesh)
    , m_images(size_t(mesh.vertexCount()), -1)
{
    const VertexGrid grid(mesh, std::max(tolerance, std::numeric_limits<float>::min()));
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        if (mesh.vertex(i))
            m_images[size_t(i)] = grid.nearest(m_plane.reflected(mesh.position(i)));
    }
}

bool KMMirrorMap::isOnPlane(int vertex) const
{
    return vertexImage(vertex) == vertex;
}

const KMEdge *KMMirrorMap::edgeImage(int a, int b) const
{
    const int first = vertexImage(a);
    const int second = vertexImage(b);
    return first < 0 || second < 0 ? nullptr : m_mesh.findEdge(first, second);
}

KMMirrorMap::FaceImage KMMirrorMap::faceImage(int face) const
{
    const KMFace *own = m_mesh.face(face);
    const int first = vertexImage(own->indices[0]);
    if (first < 0)
        return {};
    for (const int f : m_mesh.vertex(first)->faceRefs) {
        const KMFace *other = m_mesh.face(f);
        FaceImage image{f, {}};
        bool fits = other->count == own->count;
        for (int c = 0; fits && c < own->count; ++c) {
            const int vertex = vertexImage(own->indices[c]);
            image.corners[size_t(c)] = vertex < 0 ? -1 : other->cornerOf(vertex);
            fits = image.corners[size_t(c)] >= 0;
        }
        if (fits)
            return image;
    }
    return {};
}
