#include "mesh/KMExtrusionMotion.h"

#include "mesh/KMCornerMotion.h"

#include <algorithm>
#include <cmath>
#include <limits>

using kvm::Vector3;

namespace KMExtrusionMotion {

namespace {

/// How far each group may go.
QVector<float> groupLimits(const KMExtrusionShape &shape, const Directions &directions)
{
    QVector<float> limits(shape.groupCount(), std::numeric_limits<float>::max());
    for (const KMExtrusionShape::Face &face : shape.faces()) {
        QVector<Vector3> corners;
        QVector<Vector3> motions;
        for (int c = 0; c < face.count; ++c) {
            corners << shape.points().at(face.points[size_t(c)]).origin;
            motions << directions.at(face.points[size_t(c)]);
        }
        const double limit = KMCornerMotion::turnLimit(corners, motions, face.normal);
        limits[face.group] = std::min(limits.at(face.group), float(std::min(limit, 1e30)) * KMCornerMotion::AlmostAll);
    }
    return limits;
}

} // namespace

Directions alongNormals(const KMExtrusionShape &shape)
{
    Directions directions(shape.points().size());
    for (const KMExtrusionShape::Face &face : shape.faces()) {
        for (int c = 0; c < face.count; ++c)
            directions[face.points[size_t(c)]] += face.normal;
    }
    for (Vector3 &direction : directions)
        direction.normalize();
    return directions;
}

Directions inward(const KMExtrusionShape &shape)
{
    QVector<QVector<Vector3>> sides(shape.points().size());
    for (const KMExtrusionShape::Side &side : shape.sides()) {
        const KMExtrusionShape::Face &face = shape.faces().at(side.face);
        const int from = face.points[size_t(side.corner)];
        const int to = face.next(side.corner);
        const Vector3 way =
            KMCornerMotion::inward(shape.points().at(from).origin, shape.points().at(to).origin, face.normal);
        sides[from] << way;
        sides[to] << way;
    }
    Directions directions(shape.points().size());
    for (int i = 0; i < directions.size(); ++i) {
        const QVector<Vector3> &ways = sides.at(i);
        if (ways.size() == 2)
            directions[i] = KMCornerMotion::meet(ways.at(0), ways.at(1));
        else if (!ways.isEmpty())
            directions[i] = ways.last();
    }
    return directions;
}

void mirror(const KMSymmetryPlane &plane, const Pairs &pairs, Directions *directions)
{
    for (const auto &pair : pairs) {
        Vector3 &first = (*directions)[pair.first];
        Vector3 &second = (*directions)[pair.second];
        // Both have the same length but for rounding; the mean must not be shorter where they differ.
        const float length = first.length();
        const Vector3 mean = (first + plane.reflectedWay(second)) / 2.0f;
        const float meanLength = mean.length();
        first = pair.first != pair.second && meanLength > 0.0f ? mean * (length / meanLength) : mean;
        second = plane.reflectedWay(first);
    }
}

QVector<Vector3> movedInFaces(const KMExtrusionShape &shape, const Directions &directions, float value)
{
    Directions ways = directions;
    if (value < 0.0f) {
        for (Vector3 &way : ways)
            way = -way;
    }
    const QVector<float> limits = groupLimits(shape, ways);
    QVector<Vector3> positions;
    positions.reserve(shape.points().size());
    for (const KMExtrusionShape::Point &point : shape.points())
        positions << point.origin;
    for (const KMExtrusionShape::Face &face : shape.faces()) {
        const float length = std::min(std::abs(value), limits.at(face.group));
        for (int c = 0; c < face.count; ++c) {
            const int i = face.points[size_t(c)];
            positions[i] = shape.points().at(i).origin + ways.at(i) * length;
        }
    }
    return positions;
}

} // namespace KMExtrusionMotion
