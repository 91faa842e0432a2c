#include "modifiers/KMPathExtruder.h"

#include "modifiers/KMPathMesh.h"
#include "modifiers/KMPrimitiveBuilder.h"

#include <QLineF>
#include <QPolygonF>
#include <QRectF>

namespace {

/// The extrusion of one area. Layers of points lie from the front to the back; a point that is not on the outline
/// stands in the first and last only.
class Extrusion
{
public:
    Extrusion(const KMPathMesh &area, float depth, int segments, KMPrimitiveBuilder &builder)
        : m_area(area)
        , m_loops(depth == 0.0f ? QVector<KMPathMesh::Loop>() : area.outlines())
        , m_depth(depth)
        , m_segments(segments)
        , m_builder(builder)
        , m_bounds(QPolygonF(area.points).boundingRect())
    {
    }

    void build()
    {
        m_builder.setMirrored(m_depth < 0.0f);
        addLayers();
        addCap(m_layers.first(), Side::Front);
        if (m_layers.size() == 1)
            return;
        addCap(m_layers.last(), Side::Back);
        for (const KMPathMesh::Loop &loop : m_loops)
            addWalls(loop);
    }

private:
    enum class Side { Front, Back };

    void addLayers();
    QVector<int> addLayer(float z, const QVector<bool> &wanted);
    void addCap(const QVector<int> &layer, Side side);
    void addWalls(const KMPathMesh::Loop &loop);
    kvm::Vector2 capUV(int point) const;

    const KMPathMesh &m_area;
    QVector<KMPathMesh::Loop> m_loops;
    float m_depth;
    int m_segments;
    KMPrimitiveBuilder &m_builder;
    QRectF m_bounds;
    QVector<QVector<int>> m_layers; // vertex of each point, -1 where it has none
};

void Extrusion::addLayers()
{
    const QVector<bool> all(m_area.points.size(), true);
    m_layers.append(addLayer(0.0f, all));
    if (m_depth == 0.0f)
        return;
    QVector<bool> onOutline(m_area.points.size(), false);
    for (const KMPathMesh::Loop &loop : std::as_const(m_loops)) {
        for (const int point : loop)
            onOutline[point] = true;
    }
    for (int s = 1; s < m_segments; ++s)
        m_layers.append(addLayer(m_depth * float(s) / float(m_segments), onOutline));
    m_layers.append(addLayer(m_depth, all));
}

QVector<int> Extrusion::addLayer(float z, const QVector<bool> &wanted)
{
    QVector<int> layer(wanted.size(), -1);
    for (int i = 0; i < wanted.size(); ++i) {
        if (wanted[i])
            layer[i] = m_builder.addVertex({float(m_area.points[i].x()), float(m_area.points[i].y()), z});
    }
    return layer;
}

kvm::Vector2 Extrusion::capUV(int point) const
{
    const QPointF from = m_area.points[point] - m_bounds.topLeft();
    const double u = m_bounds.width() > 0.0 ? from.x() / m_bounds.width() : 0.0;
    const double v = m_bounds.height() > 0.0 ? from.y() / m_bounds.height() : 0.0;
    return {float(u), float(1.0 - v)};
}

void Extrusion::addCap(const QVector<int> &layer, Side side)
{
    for (const KMPathMesh::Triangle &triangle : m_area.triangles) {
        int corners[3];
        kvm::Vector2 uvs[3];
        for (size_t c = 0; c < 3; ++c) {
            const int point = triangle[side == Side::Front ? c : 2 - c];
            corners[c] = layer[point];
            uvs[c] = capUV(point);
        }
        m_builder.addFace(3, corners, uvs);
    }
}

void Extrusion::addWalls(const KMPathMesh::Loop &loop)
{
    QVector<double> way(loop.size() + 1, 0.0);
    for (int i = 0; i < loop.size(); ++i)
        way[i + 1] = way[i] + QLineF(m_area.points[loop[i]], m_area.points[loop[(i + 1) % loop.size()]]).length();
    const double length = way.last() > 0.0 ? way.last() : 1.0;
    for (int i = 0; i < loop.size(); ++i) {
        const int a = loop[i];
        const int b = loop[(i + 1) % loop.size()];
        const float left = float(way[i] / length);
        const float right = float(way[i + 1] / length);
        for (int s = 0; s + 1 < m_layers.size(); ++s) {
            const float top = float(s) / float(m_segments);
            const float bottom = float(s + 1) / float(m_segments);
            const int corners[] = {m_layers[s][a], m_layers[s + 1][a], m_layers[s + 1][b], m_layers[s][b]};
            const kvm::Vector2 uvs[] = {{left, top}, {left, bottom}, {right, bottom}, {right, top}};
            m_builder.addFace(4, corners, uvs);
        }
    }
}

} // namespace

void KMPathExtruder::extrude(const KMPathMesh &area, float depth, int segments, KMPrimitiveBuilder &builder)
{
    if (!area.isEmpty())
        Extrusion(area, depth, segments, builder).build();
}

long long KMPathExtruder::faceCount(const KMPathMesh &area, float depth, int segments)
{
    const long long caps = area.triangles.size();
    if (depth == 0.0f)
        return caps;
    long long sides = 0;
    for (const KMPathMesh::Loop &loop : area.outlines())
        sides += loop.size();
    return 2 * caps + sides * segments;
}
