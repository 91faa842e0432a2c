#include "render/KMNormalBuffer.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "render/KMBufferMap.h"

namespace {

int cornersOf(const KMMeshNode &mesh)
{
    int count = 0;
    for (const KMFace *face : mesh.liveFaces())
        count += face->isPolygon() ? face->count : 0;
    return count;
}

const kvm::Vector4 &colorOf(const KMFace &face, int corner, const KMNormalFace &record, const KMNormalStyle &style)
{
    if (face.cornerFlags[corner] & KMElementFlag::Selected)
        return style.selected;
    if (record.mode[corner] == KMNormalFace::Fixed)
        return style.fixed;
    return record.mode[corner] == KMNormalFace::Rotated ? style.rotated : style.computed;
}

} // namespace

void KMNormalBuffer::update(const KMMeshNode &mesh, const KMNormalStyle &style)
{
    if (!(style == m_style)) {
        m_style = style;
        markStale(Positions | Colors);
    }
    if (stale() == 0)
        return;
    const auto *tag = static_cast<const KMTagNormal *>(mesh.findTag(KMNodeType::TagNormal));
    const int corners = tag ? cornersOf(mesh) : 0;
    if (needsBuild() || m_group.elementCount != 2 * corners) {
        m_group.allocate(2 * corners, int(sizeof(KMLineElement)), 2 * corners);
        markStale(Contents);
    }
    if (m_group.elementCount > 0) {
        if (stale() & (Positions | Colors))
            writeElements(mesh, *tag);
        if (stale() & Visibility)
            writeIndices(mesh);
    } else if (corners > 0) {
        noteRefusal();
    }
    finishUpdate();
}

void KMNormalBuffer::writeElements(const KMMeshNode &mesh, const KMTagNormal &tag)
{
    const KMBufferMap<KMLineElement> map(m_group.vbo);
    if (!map)
        return noteRefusal();
    KMLineElement *element = map.data();
    for (const KMFace *face : mesh.liveFaces()) {
        const KMNormalFace record = tag.faceNormal(face->index);
        for (int c = 0; face->isPolygon() && c < face->count; ++c, element += 2) {
            if (stale() & Positions) {
                const KMVertex *vertex = mesh.vertex(face->indices[c]);
                const kvm::Vector3 start = vertex ? vertex->pos : kvm::Vector3();
                element[0].vertex = start;
                element[1].vertex = start + face->normals[c] * m_style.length;
            }
            const kvm::Vector4 &color = colorOf(*face, c, record, m_style); // also after a turn: it may be fixed now
            for (int end = 0; end < 2; ++end) {
                element[end].color = color;
                element[end].status = 0.0f;
            }
        }
    }
    m_group.built = true;
}

void KMNormalBuffer::writeIndices(const KMMeshNode &mesh)
{
    const KMBufferMap<quint32> map(m_group.ibo);
    if (!map)
        return noteRefusal();
    quint32 *index = map.data();
    quint32 number = 0;
    for (const KMFace *face : mesh.liveFaces()) {
        const quint32 end = number + quint32(face->isPolygon() ? 2 * face->count : 0);
        if (face->drawn) {
            for (quint32 i = number; i < end; ++i)
                *index++ = i;
        }
        number = end;
    }
    m_group.indexCount = int(index - map.data());
}
