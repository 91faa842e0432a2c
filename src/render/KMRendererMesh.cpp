#include "render/KMRendererMesh.h"

#include "mesh/KMMeshNode.h"
#include "render/KMShareContext.h"

namespace {

struct StaleRow
{
    quint32 renderDirty;
    quint32 parts;
};

constexpr StaleRow staleRows[] = {
    {KMMeshDirty::RenderIndices | KMMeshDirty::RenderEdges, KMMeshBuffers::Everything},
    {KMMeshDirty::RenderVertices, KMMeshBuffers::Positions},
    {KMMeshDirty::RenderColors, KMMeshBuffers::Colors},
};

} // namespace

KMRendererMesh::KMRendererMesh(const KMMeshNode &mesh)
    : m_mesh(mesh)
{
}

KMRendererMesh::~KMRendererMesh()
{
    if (!m_buffers)
        return;
    const KMShareContext context;
    m_buffers.reset();
}

KMRendererMesh &KMRendererMesh::of(KMMeshNode &mesh)
{
    if (!mesh.renderer())
        mesh.setRenderer(std::make_unique<KMRendererMesh>(mesh));
    return *static_cast<KMRendererMesh *>(mesh.renderer());
}

void KMRendererMesh::rebuild()
{
    markStale(KMMeshBuffers::Everything);
}

void KMRendererMesh::markDirty(quint32 renderDirty)
{
    quint32 parts = 0;
    for (const StaleRow &row : staleRows) {
        if (renderDirty & row.renderDirty)
            parts |= row.parts;
    }
    markStale(parts);
}

void KMRendererMesh::markVisibilityChanged()
{
    markStale(KMMeshBuffers::Visibility);
}

void KMRendererMesh::markStale(quint32 parts)
{
    if (!m_buffers || parts == 0)
        return;
    m_buffers->faces.markStale(parts);
    m_buffers->edges.markStale(parts);
    m_buffers->points.markStale(parts);
    m_buffers->uvs.markStale(parts);
    m_buffers->normals.markStale(parts);
}

KMRendererMesh::Buffers &KMRendererMesh::buffers()
{
    if (!m_buffers)
        m_buffers = std::make_unique<Buffers>();
    return *m_buffers;
}

const KMFaceBuffers::Groups &KMRendererMesh::updateFaces(const KMFaceStyle &style)
{
    buffers().faces.update(m_mesh, style);
    return m_buffers->faces.groups();
}

RenderGroup &KMRendererMesh::updateEdges(const KMElementStyle &style)
{
    buffers().edges.update(m_mesh, style);
    return m_buffers->edges.group();
}

RenderGroup &KMRendererMesh::updatePoints(const KMElementStyle &style)
{
    buffers().points.update(m_mesh, style);
    return m_buffers->points.group();
}

KMUVBuffers &KMRendererMesh::updateUVs(const KMUVStyle &style)
{
    buffers().uvs.update(m_mesh, style);
    return m_buffers->uvs;
}

RenderGroup &KMRendererMesh::updateNormals(const KMNormalStyle &style)
{
    buffers().normals.update(m_mesh, style);
    return m_buffers->normals.group();
}
