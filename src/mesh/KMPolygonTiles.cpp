#include "mesh/KMPolygonTiles.h"

#include "mesh/KMPolygonFill.h"

#include <algorithm>
#include <limits>

using kvm::Vector3;
using Tile = KMPolygonTiles::Tile;

namespace {

Vector3 twiceArea(const Vector3 &a, const Vector3 &b, const Vector3 &c)
{
    return cross(b - a, c - b);
}

/// How near a corner is to one of a square: 0 for a straight one, below when it is bent in.
float cornerShape(const Vector3 &a, const Vector3 &b, const Vector3 &c, const Vector3 &normal)
{
    const float longest = std::max((b - a).lengthSquared(), (c - b).lengthSquared());
    return longest > 0.0f ? dot(twiceArea(a, b, c), normal) / longest : 0.0f;
}

/// How good a quad is; 0 when its two triangles had better stay apart.
float quadShape(const QVector<Vector3> &polygon, const Tile &quad)
{
    constexpr float flat = 0.9f;
    const auto at = [&](int i) { return polygon.at(quad.at(i % 4)); };
    const Vector3 first = twiceArea(at(0), at(1), at(2)).normalized();
    const Vector3 second = twiceArea(at(2), at(3), at(0)).normalized();
    if (dot(first, second) < flat)
        return 0.0f;
    float worst = std::numeric_limits<float>::max();
    for (int i = 0; i < 4; ++i)
        worst = std::min(worst, cornerShape(at(i), at(i + 1), at(i + 2), (first + second).normalized()));
    return worst;
}

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
bool joinBest(const QVector<Vector3> &polygon, QVector<Tile> *tiles)
{
    float best = 0.05f; // below it is nearly a triangle
    int pair[] = {-1, -1};
    for (int i = 0; i < tiles->size(); ++i) {
        for (int k = i + 1; k < tiles->size(); ++k) {
            const bool areTriangles = tiles->at(i).size() == 3 && tiles->at(k).size() == 3;
            const Tile quad = areTriangles ? joined(tiles->at(i), tiles->at(k)) : Tile();
            const float shape = quad.isEmpty() ? 0.0f : quadShape(polygon, quad);
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
    QVector<Tile> tiles;
    for (const KMPolygonFill::Triangle &t : KMPolygonFill::triangulate(KMPolygonFill::flatten(polygon)))
        tiles.append({t[0], t[1], t[2]});
    while (joinBest(polygon, &tiles)) {}
    return tiles;
}
