#pragma once

#include "math/Vector3.h"

#include <QVector>

#include <array>

class KMMeshStore;

/// The copy of some faces of a mesh that is moved away from them, and the sides at which it has to be joined to what
/// stays.
class KMExtrusionShape
{
public:
    /// What of the faces stays together in the copy: nothing, what meets at edges, or also what meets at vertices.
    /// Faces that touch at a mere vertex come apart there, else their walls would stand on one edge.
    enum class Joining { None, Edges, Vertices };

    struct Point
    {
        int vertex; ///< that it is the copy of
        kvm::Vector3 origin;
    };
    struct Face
    {
        int face; ///< that it is the copy of
        int group;
        int count;
        std::array<int, 4> points;
        kvm::Vector3 normal;

        int next(int corner) const { return points[size_t(corner + 1 < count ? corner + 1 : 0)]; }
    };
    /// The side of a face after one of its corners; no other face of the group has it.
    struct Side
    {
        int face; ///< place in faces()
        int corner;
    };

    KMExtrusionShape() = default;
    KMExtrusionShape(const KMMeshStore &mesh, const QVector<int> &faces, Joining joining);

    const QVector<Point> &points() const { return m_points; } ///< each once, in the order in which the faces use them
    const QVector<Face> &faces() const { return m_faces; }
    const QVector<Side> &sides() const { return m_sides; }
    int groupCount() const { return m_groupCount; } ///< faces that are joined by edges

private:
    void addFaces(const KMMeshStore &mesh, const QVector<int> &faces);
    void join(const KMMeshStore &mesh, Joining joining);
    void addPoints(const KMMeshStore &mesh, const QVector<int> &cornerRoots, const QVector<int> &faceRoots);

    QVector<Point> m_points;
    QVector<Face> m_faces; // until the points are made, with the corners of the mesh
    QVector<Side> m_sides;
    int m_groupCount = 0;
};
Q_DECLARE_TYPEINFO(KMExtrusionShape::Point, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(KMExtrusionShape::Face, Q_MOVABLE_TYPE);
Q_DECLARE_TYPEINFO(KMExtrusionShape::Side, Q_PRIMITIVE_TYPE);
