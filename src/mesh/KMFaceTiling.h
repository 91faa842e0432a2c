#pragma once

#include "math/Vector3.h"

#include <QVector>

#include <array>

/// How a triangle or quad with new points on its sides falls into triangles and quads again. Sides that are cut alike
/// give strips of quads, or a grid when all are; a lone cut is joined to the corners across. Everything else is filled
/// with triangles.
class KMFaceTiling
{
public:
    using Weights = std::array<double, 4>; ///< of the corners in a point, one in all
    using Tile = QVector<int>;             ///< three or four points, in the direction of the face

    /// Three or four corners; for the side after each, how far along it the points lie: above 0, below 1, ascending.
    KMFaceTiling(const QVector<kvm::Vector3> &corners, const QVector<QVector<double>> &sides);

    /// First the corners, then the points of the sides in their order, then points inside.
    const QVector<Weights> &points() const { return m_points; }
    int firstInside() const { return m_firstInside; }
    const QVector<Tile> &tiles() const { return m_tiles; }

private:
    using Chain = QVector<int>;

    int corners() const { return m_corners.size(); }
    int cuts(int side) const { return m_chains.at(side % corners()).size() - 2; }
    const Chain &chain(int side) const { return m_chains.at(side % corners()); } ///< with the corners at its ends
    Chain backward(int side) const;

    void makeTiles();
    bool tileEvenly();
    bool tileFrom(int side);
    void fill();
    bool isSound() const;
    void addTile(std::initializer_list<int> points);
    int addInside(const Weights &weights);
    void strip(const Chain &chain, const Chain &across);
    void nest(const Chain &left, const Chain &right);
    void grid();
    void lattice();

    QVector<kvm::Vector3> m_corners;
    QVector<Chain> m_chains;
    QVector<Weights> m_points;
    int m_firstInside = 0;
    QVector<Tile> m_tiles;
};
