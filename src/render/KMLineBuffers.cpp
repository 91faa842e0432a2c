#include "render/KMLineBuffers.h"

#include "mesh/KMMeshNode.h"
#include "render/KMBufferMap.h"

#include <algorithm>

namespace {

constexpr quint8 hotFlags = KMElementFlag::Hot | KMElementFlag::HotSecond;

/// An edge may have lost its end for a while. It isn't drawn then.
kvm::Vector3 placeOf(const KMVertex *vertex)
{
    return vertex ? vertex->pos : kvm::Vector3();
}

bool hasSelectedFace(const KMMeshNode &mesh, const KMEdge &edge)
{
    return std::any_of(edge.faceRefs.begin(), edge.faceRefs.end(), [&mesh](int f) {
        const KMFace *face = mesh.face(f);
        return face && face->hasFlag(KMElementFlag::Selected);
    });
}

void paintEdge(const KMMeshNode &mesh, const KMEdge &edge, const KMElementStyle &style, KMLineElement *element)
{
    const bool isSelected = edge.hasFlag(KMElementFlag::Selected);
    const bool isHot = edge.hasFlag(hotFlags);
    kvm::Vector4 color = style.plain;
    if (isHot)
        color = style.hot;
    else if (isSelected)
        color = style.selected;
    else if (hasSelectedFace(mesh, edge))
        color = style.ofSelectedFace;
    std::optional<kvm::Vector4> whole = color;
    if (style.colors)
        whole = style.colors->edgeColor(mesh, edge, color);
    for (int end = 0; end < 2; ++end) {
        element[end].color = whole ? *whole : style.colors->vertexColor(mesh, end == 0 ? edge.index0 : edge.index1);
        element[end].status = isSelected || isHot ? 1.0f : 0.0f;
    }
}

void paintPoint(const KMMeshNode &mesh, int index, const KMElementStyle &style, KMLineElement &element)
{
    const KMVertex &vertex = *mesh.vertex(index);
    const bool isHot = vertex.hasFlag(hotFlags);
    element.status = isHot ? 1.0f : 0.0f;
    element.color = isHot ? style.hot : vertex.hasFlag(KMElementFlag::Selected) ? style.selected : style.plain;
    if (style.colors)
        element.color = style.colors->pointColor(mesh, index, element.color);
}

} // namespace

void KMLineBuffers::update(const KMMeshNode &mesh, const KMElementStyle &style)
{
    QVector<int> repainted;
    const auto change = m_colors.follow(mesh, style.colors, repainted);
    if (!(style == m_style) || change == KMVertexColorFollower::Change::All) {
        m_style = style;
        markStale(Colors);
    }
    if (stale() == 0 && repainted.isEmpty())
        return;
    const int count = elementCount(mesh);
    if (needsBuild() || m_group.elementCount != count) {
        m_group.allocate(count, int(sizeof(KMLineElement)), count);
        markStale(Contents);
    }
    if (m_group.elementCount != count)
        noteRefusal();
    else if (count > 0) {
        if (stale() & (Positions | Colors))
            writeElements(mesh, stale());
        if (!(stale() & Colors) && !repainted.isEmpty())
            repaint(mesh, repainted);
        if (stale() & Visibility)
            writeIndices(mesh);
    }
    finishUpdate();
}

int KMEdgeBuffers::elementCount(const KMMeshNode &mesh) const
{
    return 2 * mesh.edgeCount();
}

void KMEdgeBuffers::writeElements(const KMMeshNode &mesh, quint32 parts)
{
    const KMBufferMap<KMLineElement> map(m_group.vbo);
    if (!map)
        return noteRefusal();
    KMVertex *const *vertices = mesh.vertices().constData();
    KMLineElement *element = map.data();
    for (const KMEdge *edge : mesh.edges()) {
        if (parts & Positions) {
            element[0].vertex = placeOf(vertices[edge->index0]);
            element[1].vertex = placeOf(vertices[edge->index1]);
        }
        if (parts & Colors)
            paintEdge(mesh, *edge, style(), element);
        element += 2;
    }
    m_group.built = true;
}

void KMEdgeBuffers::writeIndices(const KMMeshNode &mesh)
{
    const KMBufferMap<quint32> map(m_group.ibo);
    if (!map)
        return noteRefusal();
    quint32 *index = map.data();
    quint32 number = 0;
    for (const KMEdge *edge : mesh.edges()) {
        if (edge->drawn) {
            *index++ = number;
            *index++ = number + 1;
        }
        number += 2;
    }
    m_group.indexCount = int(index - map.data());
}

int KMPointBuffers::elementCount(const KMMeshNode &mesh) const
{
    return mesh.vertexCount();
}

void KMPointBuffers::writeElements(const KMMeshNode &mesh, quint32 parts)
{
    const KMBufferMap<KMLineElement> map(m_group.vbo);
    if (!map)
        return noteRefusal();
    for (const KMVertex *vertex : mesh.liveVertices()) {
        KMLineElement &element = map.data()[vertex->index];
        if (parts & Positions)
            element.vertex = vertex->pos;
        if (parts & Colors)
            paintPoint(mesh, vertex->index, style(), element);
    }
    m_group.built = true;
}

void KMPointBuffers::repaint(const KMMeshNode &mesh, const QVector<int> &vertices)
{
    const KMBufferMap<KMLineElement> map(m_group.vbo);
    if (!map) {
        markStale(Colors);
        return noteRefusal();
    }
    for (const int i : vertices) {
        if (mesh.vertex(i))
            paintPoint(mesh, i, style(), map.data()[i]);
    }
}

void KMPointBuffers::writeIndices(const KMMeshNode &mesh)
{
    const KMBufferMap<quint32> map(m_group.ibo);
    if (!map)
        return noteRefusal();
    quint32 *index = map.data();
    for (const KMVertex *vertex : mesh.liveVertices()) {
        if (vertex->drawn)
            *index++ = quint32(vertex->index);
    }
    m_group.indexCount = int(index - map.data());
}
