#include "mesh/KMMirrorMap.h"

#include "math/Finite.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <limits>

using kvm::Vector3;

namespace {

constexpr int LeafSize = 8;
constexpr int NotAsked = -2;
constexpr Vector3 outside{std::numeric_limits<float>::infinity(), 0.0f, 0.0f}; // has no image

} // namespace

/// The vertices halved again and again along the longer side of what they fill, in place: each half is a range of the
/// list, with the vertex between two halves in the middle of their range.
class KMMirrorMap::VertexTree
{
public:
    explicit VertexTree(const KMMeshNode &mesh)
    {
        m_entries.reserve(size_t(mesh.vertexCount()));
        for (int i = 0; i < mesh.vertexCount(); ++i) {
            if (mesh.vertex(i) && isFinite(mesh.position(i)))
                m_entries.push_back({mesh.position(i), i});
        }
        m_axes.resize(m_entries.size());
        build(0, m_entries.size());
    }

    /// The nearest vertex that isn't farther away than that, else -1; of equally near ones the first.
    int nearest(const Vector3 &point, float distance) const
    {
        Nearest nearest{-1, distance * distance};
        if (isFinite(point))
            search(0, m_entries.size(), point, nearest);
        return nearest.vertex;
    }

private:
    struct Entry
    {
        Vector3 position;
        int vertex;
    };
    struct Nearest
    {
        int vertex;
        float distance2;
    };

    void build(size_t begin, size_t end)
    {
        if (end - begin <= LeafSize)
            return;
        Vector3 low = m_entries[begin].position, high = low;
        for (size_t i = begin; i < end; ++i) {
            for (int k = 0; k < 3; ++k) {
                low[k] = std::min(low[k], m_entries[i].position[k]);
                high[k] = std::max(high[k], m_entries[i].position[k]);
            }
        }
        const Vector3 size = high - low;
        const int axis = size.x >= size.y && size.x >= size.z ? 0 : size.y >= size.z ? 1 : 2;
        const size_t middle = (begin + end) / 2;
        std::nth_element(m_entries.begin() + qptrdiff(begin), m_entries.begin() + qptrdiff(middle),
                         m_entries.begin() + qptrdiff(end),
                         [axis](const Entry &a, const Entry &b) { return a.position[axis] < b.position[axis]; });
        m_axes[middle] = quint8(axis);
        build(begin, middle);
        build(middle + 1, end);
    }

    void search(size_t begin, size_t end, const Vector3 &point, Nearest &nearest) const
    {
        if (end - begin <= LeafSize) {
            for (size_t i = begin; i < end; ++i)
                test(m_entries[i], point, nearest);
            return;
        }
        const size_t middle = (begin + end) / 2;
        const int axis = m_axes[middle];
        const float beyond = point[axis] - m_entries[middle].position[axis];
        test(m_entries[middle], point, nearest);
        const auto below = [&] { search(begin, middle, point, nearest); };
        const auto above = [&] { search(middle + 1, end, point, nearest); };
        beyond < 0.0f ? below() : above();
        if (beyond * beyond <= nearest.distance2)
            beyond < 0.0f ? above() : below();
    }

    static void test(const Entry &entry, const Vector3 &point, Nearest &nearest)
    {
        const float d2 = (entry.position - point).lengthSquared();
        const bool isFirst = nearest.vertex < 0 || entry.vertex < nearest.vertex;
        if (d2 < nearest.distance2 || (d2 == nearest.distance2 && isFirst))
            nearest = {entry.vertex, d2};
    }

    std::vector<Entry> m_entries;
    std::vector<quint8> m_axes; // along which a range was halved, by its middle
};

KMMirrorMap::KMMirrorMap(const KMMeshNode &mesh, float tolerance)
    : m_mesh(mesh)
    , m_plane(mesh)
    , m_tolerance(tolerance)
    , m_tree(std::make_unique<VertexTree>(mesh))
    , m_images(size_t(mesh.vertexCount()), NotAsked)
{
    m_positions.reserve(m_images.size());
    for (int i = 0; i < mesh.vertexCount(); ++i)
        m_positions.push_back(mesh.vertex(i) ? mesh.position(i) : outside);
}

KMMirrorMap::~KMMirrorMap() = default;

int KMMirrorMap::vertexImage(int vertex) const
{
    int &image = m_images[size_t(vertex)];
    if (image == NotAsked)
        image = m_tree->nearest(m_plane.reflected(m_positions[size_t(vertex)]), m_tolerance);
    return image;
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
