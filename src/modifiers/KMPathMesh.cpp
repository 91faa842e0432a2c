#include "modifiers/KMPathMesh.h"

#include <QHash>
#include <QPair>

#include <algorithm>

void KMPathMesh::append(const KMPathMesh &other)
{
    const int base = points.size();
    points += other.points;
    triangles.reserve(triangles.size() + other.triangles.size());
    for (const Triangle &triangle : other.triangles)
        triangles.append({triangle[0] + base, triangle[1] + base, triangle[2] + base});
}

QVector<KMPathMesh::Loop> KMPathMesh::outlines() const
{
    // Sides that have no neighbour running the other way.
    QHash<QPair<int, int>, int> sides;
    sides.reserve(triangles.size() * 3);
    for (const Triangle &triangle : triangles) {
        for (size_t c = 0; c < 3; ++c) {
            const int a = triangle[c];
            const int b = triangle[(c + 1) % 3];
            const auto opposite = sides.find({b, a});
            if (opposite == sides.end())
                ++sides[{a, b}];
            else if (--opposite.value() == 0)
                sides.erase(opposite);
        }
    }
    // Where outlines touch, several sides leave one point: any of them continues the way, since as many arrive.
    QVector<QVector<int>> ways(points.size());
    for (auto side = sides.cbegin(); side != sides.cend(); ++side)
        ways[side.key().first].insert(0, side.value(), side.key().second);
    for (QVector<int> &choices : ways)
        std::sort(choices.begin(), choices.end()); // not as the hash has them, which differs between runs

    QVector<Loop> loops;
    for (int start = 0; start < ways.size(); ++start) {
        while (!ways[start].isEmpty()) {
            Loop loop;
            int at = start;
            do {
                loop.append(at);
                at = ways[at].takeLast();
            } while (!ways[at].isEmpty() && at != start);
            loops.append(loop);
        }
    }
    return loops;
}
