#include "render/KMPickFaceCache.h"

#include "mesh/KMMeshNode.h"

namespace {

/// Edits that the live faces don't show before the next refresh.
constexpr quint32 unsettled = KMMeshDirty::Edges | KMMeshDirty::Topology;

QVector<KMPickFaceCache::Corners> gathered(const QVector<KMFace *> &faces)
{
    QVector<KMPickFaceCache::Corners> corners(faces.size());
    KMPickFaceCache::Corners *out = corners.data();
    for (const KMFace *face : faces) {
        const int last = face->count - 1;
        for (int c = 0; c < KMFace::MaxCorners; ++c)
            (*out)[size_t(c)] = face->indices[qMin(c, last)];
        ++out;
    }
    return corners;
}

} // namespace

void KMPickFaceCache::dropDeadMeshes()
{
    for (auto it = m_entries.begin(); it != m_entries.end();) {
        if (it->mesh)
            ++it;
        else
            it = m_entries.erase(it);
    }
}

const QVector<KMPickFaceCache::Corners> &KMPickFaceCache::cornersOf(KMMeshNode *mesh)
{
    const QVector<KMFace *> &faces = mesh->liveFaces();
    Entry &entry = m_entries[mesh];
    const bool isSame = entry.mesh == mesh && entry.faces.constData() == faces.constData();
    if (isSame && !(mesh->dirtyMask() & unsettled))
        return entry.corners;
    entry = {mesh, faces, gathered(faces)};
    dropDeadMeshes();
    return m_entries[mesh].corners;
}
