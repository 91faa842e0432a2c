#pragma once

#include <QHash>
#include <QPointer>
#include <QVector>

#include <array>

class KMMeshNode;
struct KMFace;

/// The corners of the live faces of meshes, close together in memory: a pick asks all faces for nothing else, and the
/// records themselves are many times as large. It follows the meshes by itself.
class KMPickFaceCache
{
public:
    /// Four vertices for each face; one of fewer corners repeats its last.
    using Corners = std::array<int, 4>;

    /// In the order of the live faces. Valid until the mesh is refreshed or the next call.
    const QVector<Corners> &cornersOf(KMMeshNode *mesh);

private:
    struct Entry
    {
        QPointer<KMMeshNode> mesh;
        QVector<KMFace *> faces; // shares the list of the mesh for as long as that is the same
        QVector<Corners> corners;
    };

    void dropDeadMeshes();

    QHash<const KMMeshNode *, Entry> m_entries;
};
