#pragma once

#include "core/KMVertexFollower.h"

#include <QMap>
#include <QVector>

class KMMeshNode;

/// Parts faces at their vertices: corners move over to copies of their vertex. UVs, shaders and all else that a face
/// has stay; edges that come apart keep selection and crease on both sides. Steps of the history; the caller opens the
/// macro.
class KMCornerSplit
{
public:
    explicit KMCornerSplit(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }

    int addCopy(int vertex); ///< of its place, weight and selection; returns its index
    void moveCorner(int face, int vertex, int copy) { m_moves[face].append({vertex, copy}); }
    bool apply(); ///< one step for each face with a corner to move; false, and no step, where there is none

private:
    struct Move
    {
        int vertex;
        int copy;
    };

    KMMeshNode &m_mesh;
    QMap<int, QVector<Move>> m_moves;  // by face
    QVector<KMVertexOrigin> m_origins; // of the copies
};
