#include "mesh/KMPolygonTiles.h"

#include <algorithm>
#include <limits>

using kvm::Vector3;
using Tile = KMPolygonTiles::Tile;

namespace {

Vector3 twiceArea(const Vector3 &a, const Vector3 &b, const Vector3 &c)
{
    return cross(b - a, c - b);
}

/// Finds the triangles whose worst one is best.
class Triangulation
{
public:
    explicit Triangulation(const QVector<Vector3> &polygon)
        : m_polygon(polygon)
        , m_count(polygon.size())
        , m_best(m_count * m_count, std::numeric_limits<float>::max())
        , m_apex(m_count * m_count, -1)
    {
        for (int i = 0; i < m_count; ++i)
            m_normal += cross(polygon.at(i) - polygon.at(0), polygon.at((i + 1) % m_count) - polygon.at(0));
        m_normal.normalize();
        for (int length = 2; length < m_count; ++length) {
            for (int from = 0; from + length < m_count; ++from)
                measure(from, from + length);
        }
    }

    QVector<Tile> triangles() const
    {
        QVector<Tile> all;
        collect(0, m_count - 1, &all);
        return all;
    }

    /// How good a quad two triangles make that lie on the two sides of a diagonal; 0 when they had better stay apart.
    float quadShape(const Tile &quad) const
    {
        constexpr float flat = 0.9f;
        const Vector3 first = twiceArea(at(quad, 0), at(quad, 1), at(quad, 2)).normalized();
        const Vector3 second = twiceArea(at(quad, 2), at(quad, 3), at(quad, 0)).normalized();
        if (dot(first, second) < flat)
            return 0.0f;
        float worst = std::numeric_limits<float>::max();
        for (int i = 0; i < 4; ++i)
            worst = std::min(worst, shape(quad.at(i), quad.at((i + 1) % 4), quad.at((i + 2) % 4)));
        return worst;
    }

private:
    const Vector3 &at(const Tile &tile, int i) const { return m_polygon.at(tile.at(i)); }

    /// How near a triangle is to one with equal sides: 0 for a sliver, below when it is turned over.
    float shape(int i, int j, int k) const
    {
        const Vector3 &a = m_polygon.at(i);
        const Vector3 &b = m_polygon.at(j);
        const Vector3 &c = m_polygon.at(k);
        const float longest = std::max({(b - a).lengthSquared(), (c - b).lengthSquared(), (a - c).lengthSquared()});
        return longest > 0.0f ? dot(twiceArea(a, b, c), m_normal) / longest : 0.0f;
    }

    void measure(int from, int to)
    {
        float best = std::numeric_limits<float>::lowest();
        for (int apex = from + 1; apex < to; ++apex) {
            const float worst =
                std::min({shape(from, apex, to), m_best.at(from * m_count + apex), m_best.at(apex * m_count + to)});
            if (worst > best) {
                best = worst;
                m_apex[from * m_count + to] = apex;
            }
        }
        m_best[from * m_count + to] = best;
    }

    void collect(int from, int to, QVector<Tile> *all) const
    {
        const int apex = m_apex.at(from * m_count + to);
        if (apex < 0)
            return;
        all->append({from, apex, to});
        collect(from, apex, all);
        collect(apex, to, all);
    }

    const QVector<Vector3> &m_polygon;
    int m_count;
    QVector<float> m_best; // of the part from one corner to another: the shape of its worst triangle
    QVector<int> m_apex;
    Vector3 m_normal;
};

/// The quad of two triangles; empty when they have no side in common.
Tile joined(const Tile &first, const Tile &second)
{
    for (int i = 0; i < 3; ++i) {
        for (const int corner : second) {
            const int a = first.at(i);
            const int b = first.at((i + 1) % 3);
            if (!first.contains(corner) && second.contains(a) && second.contains(b))
                return {a, corner, b, first.at((i + 2) % 3)};
        }
    }
    return {};
}

/// Joins the two triangles that make the best quad. False when none make a good one.
bool joinBest(const Triangulation &triangulation, QVector<Tile> *tiles)
{
    float best = 0.05f; // below it is nearly a triangle
    int pair[] = {-1, -1};
    for (int i = 0; i < tiles->size(); ++i) {
        for (int k = i + 1; k < tiles->size(); ++k) {
            const bool areTriangles = tiles->at(i).size() == 3 && tiles->at(k).size() == 3;
            const Tile quad = areTriangles ? joined(tiles->at(i), tiles->at(k)) : Tile();
            const float shape = quad.isEmpty() ? 0.0f : triangulation.quadShape(quad);
            if (shape > best) {
                best = shape;
                pair[0] = i;
                pair[1] = k;
            }
        }
    }
    if (pair[0] < 0)
        return false;
    (*tiles)[pair[0]] = joined(tiles->at(pair[0]), tiles->at(pair[1]));
    tiles->removeAt(pair[1]);
    return true;
}

} // namespace

QVector<Tile> KMPolygonTiles::split(const QVector<Vector3> &polygon)
{
    if (polygon.size() <= 4) {
        Tile whole;
        for (int i = 0; i < polygon.size(); ++i)
            whole << i;
        return {whole};
    }
    const Triangulation triangulation(polygon);
    QVector<Tile> tiles = triangulation.triangles();
    while (joinBest(triangulation, &tiles)) {}
    return tiles;
}
