#pragma once

#include <QHash>
#include <QPointF>
#include <QVector>

#include <array>
#include <functional>

/// Triangles over points of a plane, each of which knows its neighbours. Triangles run counter-clockwise, y up. What is
/// removed leaves a gap, so that numbers stay as they are until compact().
class KMTriangleMesh
{
public:
    static constexpr int None = -1;
    using SideRule = std::function<bool(int a, int b)>; ///< whether a side may not be, by its two points

    struct Triangle
    {
        std::array<int, 3> corners;    ///< None for a gap
        std::array<int, 3> neighbours; ///< across the side after each corner, or None

        bool isGap() const { return corners[0] == None; }
        int cornerOf(int vertex) const; ///< its place, or None
    };

    explicit KMTriangleMesh(const QVector<QPointF> &vertices)
        : m_vertices(vertices)
    {
    }

    const QVector<Triangle> &triangles() const { return m_triangles; }
    int addTriangle(int a, int b, int c); ///< returns its number; a side takes no more than one triangle on each hand
    void removeTriangle(int t);
    void compact(); ///< closes the gaps

    /// Turns the side after a corner of a triangle so that it joins the two points across from it, where that makes two
    /// triangles of a better shape by Delaunay's rule. False when it stays.
    bool improveSide(int t, int corner, const SideRule &isForbidden = {});

private:
    static quint64 sideKey(int a, int b) { return quint64(quint32(a)) << 32 | quint32(b); }
    void link(int t);
    int acrossOf(int t, int corner) const;

    QVector<QPointF> m_vertices;
    QVector<Triangle> m_triangles;
    QHash<quint64, int> m_sides; // directed side to its triangle
};

/// Twice the area of a triangle; below zero where it runs clockwise.
double crossOf(const QPointF &a, const QPointF &b, const QPointF &c);
