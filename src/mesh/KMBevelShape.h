#pragma once

#include "math/Vector3.h"

#include <QHash>
#include <QVector>

class KMMeshStore;
struct KMEdge;

/// What takes the place of some edges of a mesh: the points that their vertices come apart into, the strips between
/// these, and the faces that close the corners where several strips meet.
///
/// Around a vertex the bevelled edges part the faces into sectors, and each sector gets a point of its own. Where a
/// single bevelled edge ends, each of the other edges gets one, so that the end is as wide as the strip.
class KMBevelShape
{
public:
    struct Point
    {
        int vertex; ///< that it comes from
        int face;   ///< in or on whose border it moves
        int corner; ///< of that face at the vertex
        int slide;  ///< the vertex that it moves towards along an edge, else -1
        kvm::Vector3 origin;
        kvm::Vector3 motion; ///< for a width of one
    };
    /// What stands in place of a corner of a face, in the direction of the face. Mostly one and the same.
    struct Corner
    {
        int first = -1;
        int last = -1;
    };
    /// A bevelled edge. It runs from the corner of the first face to the next one, and the other way in the second.
    struct Strip
    {
        int face;
        int corner;
        int otherFace;
        int otherCorner;
    };

    KMBevelShape() = default;
    KMBevelShape(const KMMeshStore &mesh, const QVector<const KMEdge *> &edges);

    const QVector<Point> &points() const { return m_points; }
    const QVector<Strip> &strips() const { return m_strips; }
    const QVector<QVector<int>> &fills() const { return m_fills; } ///< polygons by their points
    const QVector<int> &faces() const { return m_faces; }          ///< those that lose a corner, ascending
    Corner corner(int face, int corner) const { return m_corners.value(keyOf(face, corner)); } ///< -1 when it stays
    QVector<int> stripPoints(const Strip &strip, const KMMeshStore &mesh) const; ///< three or four in a ring; or fewer
    float widthLimit(const KMMeshStore &mesh) const;                             ///< beyond it faces would turn over

private:
    struct FanFace
    {
        int face;
        int corner;
    };
    using Fan = QVector<FanFace>; // in the order in which the faces run about a vertex

    static quint64 keyOf(int face, int corner) { return quint64(quint32(face)) << 2 | quint32(corner); }
    bool addStrip(const KMMeshStore &mesh, const KMEdge &edge);
    void openVertex(const KMMeshStore &mesh, int vertex);
    void openEnd(const KMMeshStore &mesh, const Fan &fan);
    void openSectors(const KMMeshStore &mesh, const Fan &fan, bool isClosed);
    int addSector(const KMMeshStore &mesh, const Fan &fan, int begin, int end, bool startsAtBorder, bool endsAtBorder);
    int addSlide(const KMMeshStore &mesh, const FanFace &at, int towards);
    void setCorner(const FanFace &at, int first, int last);
    void addFill(QVector<int> points);
    bool isBevelled(const KMMeshStore &mesh, const FanFace &at) const;

    QVector<Point> m_points;
    QVector<Strip> m_strips;
    QVector<QVector<int>> m_fills;
    QVector<int> m_faces;
    QHash<quint64, Corner> m_corners;
    QHash<quint64, int> m_bevelled; // edges by their key
};
