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
    m_buffers->groups.markStale(parts);
    m_buffers->edgeBuffer.markStale(parts);
    m_buffers->pointBuffer.markStale(parts);
    m_buffers->uvBuffers.markStale(parts);
    m_buffers->normalBuffer.markStale(parts);
}

KMRendererMesh::Buffers &KMRendererMesh::buffers()
{
    if (!m_buffers)
        m_buffers = std::make_unique<Buffers>();
    return *m_buffers;
}

const KMFaceBuffers::Groups &KMRendererMesh::updateFaces(const KMFaceStyle &style)
{
    buffers().groups.update(m_mesh, style);
    return m_buffers->groups.groups();
}

RenderGroup &KMRendererMesh::updateEdges(const KMElementStyle &style)
{
    buffers().edgeBuffer.update(m_mesh, style);
    return m_buffers->edgeBuffer.group();
}

RenderGroup &KMRendererMesh::updatePoints(const KMElementStyle &style)
{
    buffers().pointBuffer.update(m_mesh, style);
    return m_buffers->pointBuffer.group();
}

KMUVBuffers &KMRendererMesh::updateUVs(const KMUVStyle &style)
{
    buffers().uvBuffers.update(m_mesh, style);
    return m_buffers->uvBuffers;
}

RenderGroup &KMRendererMesh::updateNormals(const KMNormalStyle &style)
{
    buffers().normalBuffer.update(m_mesh, style);
    return m_buffers->normalBuffer.group();
}
