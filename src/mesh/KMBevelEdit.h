#pragma once

#include "mesh/KMBevelShape.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMFace.h"

class KMMeshNode;
struct KMVertexOrigin;

/// Writes a bevel into the mesh, as steps of the history; the caller opens the macro.
class KMBevelEdit
{
    Q_DISABLE_COPY(KMBevelEdit)
public:
    KMBevelEdit(KMMeshNode &mesh, const KMBevelShape &shape, float width);
    void push();

private:
    /// Corners with all that they carry; a face has room for four of them.
    using Corners = QVector<KMFace>; // each with its one corner at 0

    void makeVertices();
    void makeFaces();
    void rewriteFace(int f);
    void addStrip(const KMBevelShape::Strip &strip);
    void addFill(const QVector<int> &fill);
    void addTiles(const Corners &corners, const KMFace &like, quint8 flags);
    KMFace cornerAt(int point, int face, int corner) const;
    KMFace cornerAt(int point, int face, int corner, bool staysInFace) const;
    bool hasSeam(const KMBevelShape::Strip &strip) const;
    int nearestPoint(int vertex, const kvm::Vector3 &to) const;
    void moveLines();
    void collectWeights();
    KMVertexOrigin originOf(int point) const; ///< by its place in its face
    kvm::Vector3 placeOf(int vertex) const;   ///< also of one that isn't in the mesh yet

    KMMeshNode &m_mesh;
    const KMBevelShape &m_shape;
    int m_firstVertex; // of the new ones, in the order of the points
    QVector<kvm::Vector3> m_places;
    QVector<KMFace> m_faces;
    QVector<QPair<int, KMFace>> m_lines; // line polygons that lose a vertex
    QVector<KMEdgeState> m_weights;
};
