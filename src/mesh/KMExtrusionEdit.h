#pragma once

#include "mesh/KMEdgeState.h"
#include "mesh/KMExtrusionShape.h"

class KMMeshNode;
struct KMFace;

/// Brings the copy of an extrusion and its walls into the mesh, as steps of the history; the caller opens the macro.
class KMExtrusionEdit
{
    Q_DISABLE_COPY(KMExtrusionEdit)
public:
    enum class Turns { None, Source, Copies }; ///< what is turned over to look outward; walls go with the copies

    KMExtrusionEdit(KMMeshNode &mesh, const KMExtrusionShape &shape, Turns turns);

    /// Positions are those of the points. Without its source the extrusion takes the place of the faces.
    void push(const QVector<kvm::Vector3> &positions, bool keepsSource);

private:
    QVector<KMEdgeState> weights() const;
    void addVertices(const QVector<kvm::Vector3> &positions);
    void addCopy(const KMExtrusionShape::Face &face);
    void addWall(const KMExtrusionShape::Side &side);
    void addFace(const KMFace &face);
    void turnSource();
    void removeSource();
    void restoreWeights(const QVector<KMEdgeState> &states);

    KMMeshNode &m_mesh;
    const KMExtrusionShape &m_shape;
    Turns m_turns;
    int m_firstVertex; // of the new ones, in the order of the points
};
