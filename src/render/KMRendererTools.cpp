// What the tool in the user's hand lays over the scene.

#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

namespace {

struct PassRow
{
    KMViewTool::OverlayGroup group;
    KMToolOverlay::Element element;
    bool clearsDepth; ///< afterwards, so that what follows covers it
};

constexpr PassRow passRows[] = {
    {KMViewTool::PointMeshes, KMToolOverlay::Points, true}, {KMViewTool::FaceMeshes, KMToolOverlay::Faces, false},
    {KMViewTool::FaceMeshes, KMToolOverlay::Edges, false},  {KMViewTool::FaceMeshes, KMToolOverlay::Points, true},
    {KMViewTool::EdgeMeshes, KMToolOverlay::Edges, true},   {KMViewTool::ScreenLines, KMToolOverlay::Edges, false},
};

KMShaderPrograms::Id programFor(KMToolOverlay::Element element)
{
    if (element == KMToolOverlay::Faces)
        return KMShaderPrograms::Face;
    return element == KMToolOverlay::Points ? KMShaderPrograms::RealPoint : KMShaderPrograms::Line;
}

KMElementStyle oneColor(const QColor &color)
{
    KMElementStyle style;
    style.plain = style.selected = style.hot = style.ofSelectedFace = toVector(color);
    return style;
}

} // namespace

void KMRenderer::drawToolPasses(const KMCameraNode &camera)
{
    setLineWidth(gSettings->lineWidthTools);
    glPointSize(gSettings->pointSizeTools);
    for (const PassRow &row : passRows) {
        const bool isInScene = row.group == KMViewTool::PointMeshes;
        if (isInScene && camera.isUV())
            continue;
        drawToolPass(camera, row.group, row.element);
        if (row.clearsDepth)
            clearDepth();
    }
}

void KMRenderer::drawToolPass(const KMCameraNode &camera, KMViewTool::OverlayGroup group,
                              KMToolOverlay::Element element)
{
    const QVector<KMToolOverlay> overlays = m_frame->tool->overlays(group);
    KMOpenGLShaderProgram &pass = program(programFor(element));
    if (overlays.isEmpty() || !pass.begin())
        return;
    if (group == KMViewTool::ScreenLines) {
        pass.setMatrix(KMOpenGLShaderProgram::ProjMatrix, camera.screenMatrix());
        pass.setMatrix(KMOpenGLShaderProgram::MvMatrix, kvm::Matrix4());
    } else {
        pass.setCamera(camera);
    }
    if (element == KMToolOverlay::Faces) {
        pass.setMatrix3(KMOpenGLShaderProgram::NormalMatrix, KMCameraNode::normalMatrix());
        pass.setVector(KMOpenGLShaderProgram::LightPos, camera.lightDirection());
        pass.setColor3("ambient", Qt::black);
    }
    for (const KMToolOverlay &overlay : overlays) {
        // In the other groups the elements are those of the group.
        const bool isAsked = group != KMViewTool::FaceMeshes || (overlay.elements & element);
        if (overlay.mesh && overlay.mesh->isVisible() && isAsked)
            drawOverlay(camera, overlay, element);
    }
    pass.release();
}

void KMRenderer::drawOverlay(const KMCameraNode &camera, const KMToolOverlay &overlay, KMToolOverlay::Element element)
{
    KMRendererMesh &data = refreshOverlay(camera, overlay);
    if (element == KMToolOverlay::Edges) {
        drawElements(data.updateEdges(oneColor(overlay.color)), lineLayout, GL_LINES);
    } else if (element == KMToolOverlay::Points) {
        drawElements(data.updatePoints(oneColor(overlay.color)), lineLayout, GL_POINTS);
    } else {
        program(KMShaderPrograms::Face).setColor4("diffuse", overlay.color);
        for (const auto &group : data.updateFaces(KMFaceStyle()))
            drawElements(*group, litLayout, GL_TRIANGLES);
    }
}

/// Overlays stand in no tree, so the frame brings them up to date here.
KMRendererMesh &KMRenderer::refreshOverlay(const KMCameraNode &camera, const KMToolOverlay &overlay)
{
    KMMeshNode &mesh = *overlay.mesh;
    KMRendererMesh &data = KMRendererMesh::of(mesh);
    mesh.refreshMesh(mesh.dirtyMask());
    const bool isFront = overlay.elements & KMToolOverlay::Front;
    const bool isOfThisView = !isFront || data.projectedView() == m_viewNumber;
    if (mesh.renderDirty() == 0 && isFront == data.wasCulled() && isOfThisView)
        return data;
    if (isFront)
        mesh.projectVertices(camera.viewProjection(), camera.width(), camera.height());
    if (mesh.updateDrawn(isFront))
        data.markVisibilityChanged();
    data.setProjectedView(m_viewNumber);
    data.setCulled(isFront);
    data.markDirty(mesh.renderDirty());
    mesh.clearRenderDirty(~0u);
    return data;
}
