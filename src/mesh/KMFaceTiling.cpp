#include "mesh/KMFaceTiling.h"

#include "mesh/KMPolygonFill.h"
#include "mesh/KMTriangleMesh.h"

#include <algorithm>

namespace {

using Weights = KMFaceTiling::Weights;

Weights between(const Weights &from, const Weights &to, double t)
{
    Weights weights;
    for (size_t k = 0; k < weights.size(); ++k)
        weights[k] = from[k] + (to[k] - from[k]) * t;
    return weights;
}

} // namespace

KMFaceTiling::KMFaceTiling(const QVector<kvm::Vector3> &corners, const QVector<QVector<double>> &sides)
    : m_corners(corners)
{
    for (int c = 0; c < corners.size(); ++c) {
        m_points.append(Weights{});
        m_points.last()[size_t(c)] = 1.0;
    }
    for (int c = 0; c < corners.size(); ++c) {
        const int end = (c + 1) % corners.size();
        Chain chain{c};
        for (const double t : sides.at(c)) {
            chain << m_points.size();
            m_points << between(m_points.at(c), m_points.at(end), t);
        }
        m_chains << (chain << end);
    }
    m_firstInside = m_points.size();
    makeTiles();
    if (!isSound()) {
        m_points.resize(m_firstInside);
        m_tiles.clear();
        fill();
    }
}

KMFaceTiling::Chain KMFaceTiling::backward(int side) const
{
    Chain points = chain(side);
    std::reverse(points.begin(), points.end());
    return points;
}

void KMFaceTiling::makeTiles()
{
    if (tileEvenly())
        return;
    for (int side = 0; side < corners(); ++side) {
        if (tileFrom(side))
            return;
    }
    fill();
}

/// No side is cut, or all are alike.
bool KMFaceTiling::tileEvenly()
{
    for (int side = 1; side < corners(); ++side) {
        if (cuts(side) != cuts(0))
            return false;
    }
    if (corners() == 4)
        grid();
    else
        lattice();
    return true;
}

/// The cut sides are this one, and the one across or the next.
bool KMFaceTiling::tileFrom(int side)
{
    const int last = corners() - 1;
    const bool isQuad = corners() == 4;
    if (cuts(side) == 0 || cuts(side + last) > 0)
        return false;
    if (cuts(side + 1) == 0 && (!isQuad || cuts(side) >= cuts(side + 2))) {
        strip(chain(side), isQuad ? backward(side + 2) : Chain{chain(side + 1).last()});
        return true;
    }
    if (cuts(side + 1) != cuts(side) || (isQuad && cuts(side + 2) > 0))
        return false;
    Chain left = backward(side);
    Chain right = chain(side + 1);
    if (isQuad) {
        const int far = chain(side + 2).last();
        addTile({left.takeLast(), left.constLast(), far});
        addTile({left.constLast(), right.at(right.size() - 2), far});
        addTile({right.at(right.size() - 2), right.takeLast(), far});
    }
    nest(left, right);
    return true;
}

void KMFaceTiling::addTile(std::initializer_list<int> points)
{
    Tile tile;
    for (const int point : points) {
        if (!tile.contains(point))
            tile << point;
    }
    m_tiles << tile;
}

int KMFaceTiling::addInside(const Weights &weights)
{
    m_points << weights;
    return m_points.size() - 1;
}

/// Between two chains that run side by side. Each point is joined to the nearest one across; one halfway between two,
/// to both, so that a face and its mirror image fall into the same pieces.
void KMFaceTiling::strip(const Chain &chain, const Chain &across)
{
    const int length = chain.size() - 1;
    QVector<QPair<int, int>> rungs;
    for (int i = 0; i <= length; ++i) {
        const int scaled = i * (across.size() - 1);
        const int rest = 2 * (scaled % length);
        if (rest <= length)
            rungs << qMakePair(i, scaled / length);
        if (rest >= length)
            rungs << qMakePair(i, scaled / length + 1);
    }
    for (int i = 1; i < rungs.size(); ++i) {
        const auto &from = rungs.at(i - 1);
        const auto &to = rungs.at(i);
        addTile({chain.at(from.first), chain.at(to.first), across.at(to.second), across.at(from.second)});
    }
}

/// Around the corner from which two chains of equal length start.
void KMFaceTiling::nest(const Chain &left, const Chain &right)
{
    for (int i = 1; i < left.size(); ++i)
        addTile({left.at(i), left.at(i - 1), right.at(i - 1), right.at(i)});
}

/// Points inside stand where the lines between opposite cuts cross.
void KMFaceTiling::grid()
{
    const Chain rows[] = {chain(0), backward(2)};
    const Chain columns[] = {backward(3), chain(1)};
    const int size = rows[0].size();
    QVector<int> points(size * size);
    for (int j = 0; j < size; ++j) {
        for (int i = 0; i < size; ++i) {
            int &point = points[j * size + i];
            if (j == 0 || j == size - 1) {
                point = rows[j > 0].at(i);
            } else if (i == 0 || i == size - 1) {
                point = columns[i > 0].at(j);
            } else {
                const double low = m_points.at(rows[0].at(i))[1];
                const double turn = m_points.at(rows[1].at(i))[2] - low;
                const double start = m_points.at(columns[0].at(j))[3];
                const double rise = m_points.at(columns[1].at(j))[2] - start;
                const double u = (low + turn * start) / (1.0 - turn * rise);
                point = addInside(between(m_points.at(rows[0].at(i)), m_points.at(rows[1].at(i)), start + rise * u));
            }
        }
    }
    for (int j = 1; j < size; ++j) {
        for (int i = 1; i < size; ++i)
            addTile({points.at((j - 1) * size + i - 1), points.at((j - 1) * size + i), points.at(j * size + i),
                     points.at(j * size + i - 1)});
    }
}

/// Rows from corner 0 to the side across, each with one point more than the row before.
void KMFaceTiling::lattice()
{
    const Chain left = chain(0);
    const Chain right = backward(2);
    QVector<Chain> rows{{0}};
    for (int j = 1; j < left.size(); ++j) {
        const bool isLast = j == left.size() - 1;
        Chain row = isLast ? chain(1) : Chain{left.at(j)};
        for (int i = 1; i < j && !isLast; ++i)
            row << addInside(between(m_points.at(left.at(j)), m_points.at(right.at(j)), double(i) / j));
        if (!isLast)
            row << right.at(j);
        for (int i = 0; i < j; ++i) {
            addTile({rows.last().at(i), row.at(i), row.at(i + 1)});
            if (i > 0)
                addTile({rows.last().at(i - 1), row.at(i), rows.last().at(i)});
        }
        rows << row;
    }
}

/// With triangles that stand on the points of the sides alone.
void KMFaceTiling::fill()
{
    const QVector<QPointF> flat = KMPolygonFill::flatten(m_corners);
    Chain outline;
    QVector<QPointF> polygon;
    for (const Chain &side : std::as_const(m_chains)) {
        for (int i = 0; i + 1 < side.size(); ++i) {
            QPointF place;
            for (int c = 0; c < corners(); ++c)
                place += flat.at(c) * m_points.at(side.at(i))[size_t(c)];
            outline << side.at(i);
            polygon << place;
        }
    }
    const QVector<KMPolygonFill::Triangle> triangles = KMPolygonFill::triangulate(polygon);
    for (const KMPolygonFill::Triangle &t : triangles)
        addTile({outline.at(t[0]), outline.at(t[1]), outline.at(t[2])});
}

/// No tile is turned over, as some are in a quad that is bent in at a corner.
bool KMFaceTiling::isSound() const
{
    const QVector<QPointF> flat = KMPolygonFill::flatten(m_corners);
    QVector<QPointF> places;
    for (const Weights &weights : m_points) {
        QPointF place;
        for (int c = 0; c < corners(); ++c)
            place += flat.at(c) * weights[size_t(c)];
        places << place;
    }
    for (const Tile &tile : m_tiles) {
        for (int i = 0; i < tile.size(); ++i) {
            const int after = (i + 1) % tile.size();
            if (crossOf(places.at(tile.at(i)), places.at(tile.at(after)), places.at(tile.at((after + 1) % tile.size())))
                < 0.0)
                return false;
        }
    }
    return true;
}
