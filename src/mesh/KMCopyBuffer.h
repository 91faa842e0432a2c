#pragma once

#include "mesh/KMFace.h"

#include <QString>
#include <QVector>

#include <array>

/// What the clipboard holds of meshes: selected faces with all that belongs to their corners, and their vertices.
/// It is meant for this run of the program; ids in it are those of the run.
class KMCopyBuffer
{
public:
    struct Face
    {
        KMFace face;                                     ///< its corners lead into the vertices of the buffer's mesh
        std::array<float, KMFace::MaxCorners> weights{}; ///< crease of the edge after each corner
    };
    struct Vertex
    {
        kvm::Vector3 position;
        float weight = 0.0f;
        int index = -1; ///< in the mesh that it was copied from
    };
    struct Mesh
    {
        quint64 source = 0; ///< the mesh that it was copied from
        QVector<Face> faces;
        QVector<Vertex> vertices;
    };

    static const QString MimeType;

    /// The selected faces of all meshes in the tree; empty when there are none.
    static QByteArray copySelection();

    /// Reads what copySelection() wrote. Anything else, cut short or with indices or numbers that can't be, is
    /// refused and gives an empty list.
    static QVector<Mesh> read(const QByteArray &bytes);
};
