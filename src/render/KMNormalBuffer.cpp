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
        markStale(Contents);
    }
    if (stale() == 0)
        return;
    const auto *tag = static_cast<const KMTagNormal *>(mesh.findTag(KMNodeType::TagNormal));
    const int corners = tag ? cornersOf(mesh) : 0;
    if (needsBuild() || m_group.elementCount != 2 * corners)
        m_group.allocate(2 * corners, int(sizeof(KMLineElement)), 2 * corners);
    m_group.indexCount = 0;
    if (m_group.elementCount > 0)
        write(mesh, *tag);
    finishUpdate();
}

void KMNormalBuffer::write(const KMMeshNode &mesh, const KMTagNormal &tag)
{
    const KMBufferMap<KMLineElement> elements(m_group.vbo);
    const KMBufferMap<quint32> indices(m_group.ibo);
    if (!elements || !indices)
        return noteRefusal();
    KMLineElement *element = elements.data();
    quint32 *index = indices.data();
    for (const KMFace *face : mesh.liveFaces()) {
        const KMNormalFace record = tag.faceNormal(face->index);
        for (int c = 0; face->isPolygon() && c < face->count; ++c) {
            const KMVertex *vertex = mesh.vertex(face->indices[c]);
            const kvm::Vector3 start = vertex ? vertex->pos : kvm::Vector3();
            const kvm::Vector4 &color = colorOf(*face, c, record, m_style);
            if (face->drawn) {
                *index++ = quint32(element - elements.data());
                *index++ = quint32(element - elements.data()) + 1;
            }
            *element++ = {start, color, 0.0f};
            *element++ = {start + face->normals[c] * m_style.length, color, 0.0f};
        }
    }
    m_group.indexCount = int(index - indices.data());
    m_group.built = true;
}
