#include "render/KMUVBuffers.h"

#include "mesh/KMMeshNode.h"
#include "render/KMBufferMap.h"

namespace {

constexpr int roomOfFace = KMFace::MaxCorners;
constexpr int indicesOfFace = 2 * KMFace::MaxCorners;

} // namespace

void KMUVBuffers::update(const KMMeshNode &mesh, const KMUVStyle &style)
{
    if (!(style == m_style)) {
        m_style = style;
        markStale(Colors);
    }
    if (stale() == 0)
        return;
    const int faces = mesh.liveFaces().size();
    if (needsBuild() || m_uvEdgeBuffer.elementCount != roomOfFace * faces) {
        m_uvEdgeBuffer.allocate(roomOfFace * faces, int(sizeof(KMLineElement)), indicesOfFace * faces);
        m_uvPointBuffer.allocate(roomOfFace * faces, int(sizeof(KMLineElement)), roomOfFace * faces);
        markStale(Contents);
    }
    if (noteHidden(mesh))
        markStale(Visibility);
    if (m_uvEdgeBuffer.elementCount > 0 && m_uvPointBuffer.elementCount > 0) {
        if (stale() & (Positions | Colors)) {
            writeCorners(mesh, m_uvEdgeBuffer, false);
            writeCorners(mesh, m_uvPointBuffer, true);
        }
        if (stale() & Visibility) {
            writeEdgeIndices(mesh);
            writePointIndices(mesh);
        }
    } else if (faces > 0) {
        noteRefusal();
    }
    finishUpdate();
}

/// In this plane no face is turned away, so what the view of the model leaves out says nothing. Whether other faces
/// are hidden than before.
bool KMUVBuffers::noteHidden(const KMMeshNode &mesh)
{
    const QVector<KMFace *> &faces = mesh.liveFaces();
    bool isOther = m_hidden.size() != size_t(faces.size());
    m_hidden.resize(size_t(faces.size()));
    for (int i = 0; i < faces.size(); ++i) {
        const bool isHidden = faces[i]->hasFlag(KMElementFlag::Hidden);
        isOther = isOther || m_hidden[size_t(i)] != isHidden;
        m_hidden[size_t(i)] = isHidden;
    }
    return isOther;
}

void KMUVBuffers::writeCorners(const KMMeshNode &mesh, RenderGroup &group, bool isPoints)
{
    const KMBufferMap<KMLineElement> map(group.vbo);
    if (!map)
        return noteRefusal();
    KMLineElement *element = map.data();
    for (const KMFace *face : mesh.liveFaces()) {
        for (int c = 0; c < roomOfFace; ++c, ++element) {
            const quint8 flags = face->cornerFlags[c];
            if (stale() & Positions)
                element->vertex = kvm::Vector3(face->uvs[c] * PlateSize);
            if (!(stale() & Colors))
                continue;
            element->status = 0.0f;
            if (flags & KMElementFlag::Selected)
                element->color = m_style.selected;
            else
                element->color = isPoints && (flags & KMElementFlag::UVLocked) ? m_style.pinned : m_style.plain;
        }
    }
    group.built = true;
}

void KMUVBuffers::writeEdgeIndices(const KMMeshNode &mesh)
{
    const KMBufferMap<quint32> map(m_uvEdgeBuffer.ibo);
    if (!map)
        return noteRefusal();
    quint32 *index = map.data();
    quint32 first = 0;
    for (const KMFace *face : mesh.liveFaces()) {
        for (int c = 0; face->isPolygon() && !face->hasFlag(KMElementFlag::Hidden) && c < face->count; ++c) {
            *index++ = first + quint32(c);
            *index++ = first + quint32(c + 1 < face->count ? c + 1 : 0);
        }
        first += roomOfFace;
    }
    m_uvEdgeBuffer.indexCount = int(index - map.data());
}

void KMUVBuffers::writePointIndices(const KMMeshNode &mesh)
{
    const KMBufferMap<quint32> map(m_uvPointBuffer.ibo);
    if (!map)
        return noteRefusal();
    quint32 *index = map.data();
    quint32 first = 0;
    for (const KMFace *face : mesh.liveFaces()) {
        for (int c = 0; face->isPolygon() && !face->hasFlag(KMElementFlag::Hidden) && c < face->count; ++c)
            *index++ = first + quint32(c);
        first += roomOfFace;
    }
    m_uvPointBuffer.indexCount = int(index - map.data());
}
