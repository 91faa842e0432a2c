#pragma once

#include "mesh/KMMeshRenderData.h"
#include "render/KMFaceBuffers.h"
#include "render/KMLineBuffers.h"
#include "render/KMNormalBuffer.h"
#include "render/KMUVBuffers.h"

class KMMeshNode;

/// What the graphics card holds of one mesh. The mesh owns it. The buffers are made by the pass that needs them first
/// and in its context; what a mesh never shows costs nothing.
class KMRendererMesh : public KMMeshRenderData
{
    Q_DISABLE_COPY(KMRendererMesh)
public:
    explicit KMRendererMesh(const KMMeshNode &mesh);
    ~KMRendererMesh() override;

    static KMRendererMesh &of(KMMeshNode &mesh); ///< made when the mesh has none yet

    void invalidate() override { rebuild(); }
    void rebuild();                      ///< before the next use: other faces than before
    void markDirty(quint32 renderDirty); ///< bits of KMMeshDirty::RenderMask
    void markVisibilityChanged();        ///< other elements of the mesh are drawn

    // What the frame before left, so that a change shows

    bool wasCulled() const { return m_wasCulled; } ///< only the elements that face the view were drawn
    void setCulled(bool culled) { m_wasCulled = culled; }
    quint64 projectedView() const { return m_projectedView; } ///< number of the view that the screen positions are of
    void setProjectedView(quint64 number) { m_projectedView = number; }

    // Each brings its buffers up to date, which costs nothing when nothing changed. A context must be current.

    const KMFaceBuffers::Groups &updateFaces(const KMFaceStyle &style);
    RenderGroup &updateEdges(const KMElementStyle &style);
    RenderGroup &updatePoints(const KMElementStyle &style);
    KMUVBuffers &updateUVs(const KMUVStyle &style);
    RenderGroup &updateNormals(const KMNormalStyle &style);

private:
    struct Buffers
    {
        KMFaceBuffers groups;
        KMEdgeBuffers edgeBuffer;
        KMPointBuffers pointBuffer;
        KMUVBuffers uvBuffers;
        KMNormalBuffer normalBuffer;
    };

    void markStale(quint32 parts);
    Buffers &buffers();

    const KMMeshNode &m_mesh;
    std::unique_ptr<Buffers> m_buffers; // null until something is drawn
    bool m_wasCulled = false;
    quint64 m_projectedView = 0;
};
