// What has to be computed before a frame, and only that.

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"

#include <QtConcurrent>

#include <algorithm>

namespace {

/// One mesh isn't worth a thread.
template <class Function>
void runParallel(QVector<RendeFuncStruct> &calls, Function function)
{
    if (calls.size() == 1)
        function(calls.first());
    else if (!calls.isEmpty())
        QtConcurrent::map(calls, function).waitForFinished();
}

/// Its refresh changes the meshes of others too.
bool reachesOut(const KMMeshNode &mesh)
{
    return !mesh.modifiers().isEmpty() || (mesh.dirtyMask() & KMMeshDirty::ResultMoved);
}

void refresh(RendeFuncStruct &call)
{
    call.node->refreshMesh(call.node->dirtyMask());
}

void project(RendeFuncStruct &call)
{
    const KMCameraNode &camera = *call.camera;
    if (call.isMoved)
        call.node->projectVertices(camera.viewProjection(), camera.width(), camera.height());
    if (call.isRedrawn)
        call.isOther = call.node->updateDrawn(call.node->renderFlags() & KMRenderMask::FrontOnly, !call.isAnew);
}

} // namespace

void KMRenderer::prepareFrame(const KMCameraNode &camera)
{
    m_busy = true;
    m_items.clear();
    if (!gProject)
        return;
    noteView(camera);
    if (m_quickFrame) {
        refreshMeshes(camera);
        return;
    }
    refreshChains();
    refreshMeshes(camera);
    prepareMeshes(camera);
    projectMeshes(camera);
}

void KMRenderer::noteView(const KMCameraNode &camera)
{
    const QSize size(camera.width(), camera.height());
    if (m_lastCamera == &camera && m_lastViewProjection == camera.viewProjection() && m_lastSize == size)
        return;
    m_lastCamera = &camera;
    m_lastViewProjection = camera.viewProjection();
    m_lastSize = size;
    ++m_viewNumber;
}

/// Stages of a chain write into the meshes of others, so that they come one after the other and before what runs in
/// parallel.
void KMRenderer::refreshChains()
{
    for (KMMeshNode *mesh : gProject->renderMeshes())
        mesh->beginFrame();
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        if (!reachesOut(*mesh) || !KMRenderMask::isShown(*mesh))
            continue;
        mesh->refreshMesh(mesh->dirtyMask());
        if (mesh->isChainPending())
            mesh->evaluateModifiers();
    }
}

void KMRenderer::refreshMeshes(const KMCameraNode &camera)
{
    QVector<RendeFuncStruct> calls;
    for (KMMeshNode *mesh : gProject->renderMeshes()) {
        const bool isForLater = m_quickFrame && reachesOut(*mesh); // no chain was brought up to date before
        if (mesh->dirtyMask() != 0 && !isForLater && KMRenderMask::isShown(*mesh))
            calls.append({mesh, &camera});
    }
    runParallel(calls, &refresh);
}

void KMRenderer::prepareMeshes(const KMCameraNode &camera)
{
    const KMNode *active = gSolution ? gSolution->currentNode() : nullptr;
    const quint32 changed = active != m_lastActive ? quint32(KMRenderMask::ActiveChanged) : 0u;
    m_lastActive = active;
    for (KMMeshNode *mesh : gProject->renderMeshes())
        prepareMesh(*mesh, camera, changed);
    // What the user works at lies over the rest.
    const auto rank = [active](const Item &item) {
        return !item.current ? 0 : item.mesh == active || item.mesh->ownerNode() == active ? 2 : 1;
    };
    std::stable_sort(m_items.begin(), m_items.end(),
                     [rank](const Item &a, const Item &b) { return rank(a) < rank(b); });
}

void KMRenderer::prepareMesh(KMMeshNode &mesh, const KMCameraNode &camera, quint32 changed)
{
    const quint32 mask = KMRenderMask::of(mesh, camera);
    mesh.setRenderFlags(mask ? mask | changed : 0);
    if (mesh.renderer())
        KMRendererMesh::of(mesh).markDirty(mesh.renderDirty());
    if (mask && KMRenderMask::isShown(mesh))
        m_items.append({&mesh, &KMRendererMesh::of(mesh), KMRenderMask::isCurrent(mesh)});
    else if (mesh.renderer() && mesh.renderDirty() != 0)
        KMRendererMesh::of(mesh).setProjectedView(0); // stale when it is shown again
}

/// Screen positions are of one view, and what is drawn of a mesh depends on them where it is culled.
void KMRenderer::projectMeshes(const KMCameraNode &camera)
{
    constexpr quint32 shape = KMMeshDirty::RenderAll;
    constexpr quint32 otherRecords = KMMeshDirty::RenderIndices | KMMeshDirty::RenderEdges;
    QVector<RendeFuncStruct> calls;
    for (const Item &item : std::as_const(m_items)) {
        const quint32 dirty = item.mesh->renderDirty();
        const bool culled = item.mesh->renderFlags() & KMRenderMask::FrontOnly;
        RendeFuncStruct call{item.mesh, &camera};
        call.isMoved = item.data->projectedView() != m_viewNumber || (dirty & shape);
        call.isAnew = item.data->projectedView() == 0 || (dirty & otherRecords);
        call.isRedrawn = call.isAnew || dirty != 0 || culled != item.data->wasCulled() || (culled && call.isMoved);
        if (call.isMoved || call.isRedrawn)
            calls.append(call);
        item.data->setProjectedView(m_viewNumber);
        item.data->setCulled(culled);
    }
    runParallel(calls, &project);
    for (const RendeFuncStruct &call : std::as_const(calls)) {
        if (call.isOther)
            KMRendererMesh::of(*call.node).markVisibilityChanged();
    }
}

void KMRenderer::refreshWindowCoords(const KMCameraNode &camera)
{
    if (m_busy)
        return;
    const bool quick = std::exchange(m_quickFrame, false);
    prepareFrame(camera);
    m_quickFrame = quick;
    m_items.clear();
    m_busy = false;
}

void KMRenderer::finishFrame()
{
    if (gProject && !m_quickFrame) { // no buffer was told of a change
        for (KMMeshNode *mesh : gProject->renderMeshes())
            mesh->clearRenderDirty(~0u);
    }
    m_items.clear();
    m_busy = false;
}
