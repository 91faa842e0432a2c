// What the tool in the user's hand lays over the scene.

#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

namespace {

struct GroupRow
{
    KMViewTool::OverlayGroup group;
    bool clearsDepth; ///< afterwards, so that what follows covers it
};

constexpr GroupRow groupRows[] = {
    {KMViewTool::PointMeshes, true},
    {KMViewTool::FaceMeshes, true},
    {KMViewTool::EdgeMeshes, true},
    {KMViewTool::ScreenLines, false},
};

/// Overlays stand in no tree, so the frame brings them up to date here.
KMRendererMesh &refreshed(KMMeshNode &mesh)
{
    KMRendererMesh &data = KMRendererMesh::of(mesh);
    mesh.refreshMesh(mesh.dirtyMask());
    if (mesh.renderDirty() != 0) {
        mesh.updateDrawn(false);
        data.markDirty(mesh.renderDirty());
        data.markVisibilityChanged();
        mesh.clearRenderDirty(~0u);
    }
    return data;
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
    for (const GroupRow &row : groupRows) {
        const bool isInScene = row.group == KMViewTool::PointMeshes;
        if (isInScene && camera.isUV())
            continue;
        drawOverlayGroup(camera, row.group);
        if (row.clearsDepth)
            clearDepth();
    }
}

void KMRenderer::drawOverlayGroup(const KMCameraNode &camera, KMViewTool::OverlayGroup group)
{
    const QVector<KMToolOverlay> overlays = m_frame->tool->overlays(group);
    for (const KMToolOverlay &overlay : overlays) {
        if (overlay.mesh && overlay.mesh->isVisible())
            drawOverlay(camera, overlay, group);
    }
}

void KMRenderer::drawOverlay(const KMCameraNode &camera, const KMToolOverlay &overlay, KMViewTool::OverlayGroup group)
{
    KMRendererMesh &data = refreshed(*overlay.mesh);
    const bool showsFaces = group == KMViewTool::FaceMeshes && (overlay.elements & KMToolOverlay::Faces);
    const bool showsEdges = group == KMViewTool::EdgeMeshes || group == KMViewTool::ScreenLines
                            || (group == KMViewTool::FaceMeshes && (overlay.elements & KMToolOverlay::Edges));
    const bool showsPoints = group == KMViewTool::PointMeshes
                             || (group == KMViewTool::FaceMeshes && (overlay.elements & KMToolOverlay::Points));
    if (showsFaces)
        drawOverlayFaces(camera, data, overlay);
    KMOpenGLShaderProgram &line = program(KMShaderPrograms::Line);
    if (showsEdges && line.begin()) {
        if (group == KMViewTool::ScreenLines) {
            line.setMatrix(KMOpenGLShaderProgram::ProjMatrix, camera.screenMatrix());
            line.setMatrix(KMOpenGLShaderProgram::MvMatrix, kvm::Matrix4());
        } else {
            line.setCamera(camera);
        }
        drawElements(data.updateEdges(oneColor(overlay.color)), lineLayout, GL_LINES);
        line.release();
    }
    KMOpenGLShaderProgram &point = program(KMShaderPrograms::RealPoint);
    if (showsPoints && point.begin()) {
        point.setCamera(camera);
        drawElements(data.updatePoints(oneColor(overlay.color)), lineLayout, GL_POINTS);
        point.release();
    }
}

void KMRenderer::drawOverlayFaces(const KMCameraNode &camera, KMRendererMesh &data, const KMToolOverlay &overlay)
{
    KMOpenGLShaderProgram &face = program(KMShaderPrograms::Face);
    if (!face.begin())
        return;
    face.setCamera(camera);
    face.setMatrix3(KMOpenGLShaderProgram::NormalMatrix, KMCameraNode::normalMatrix());
    face.setVector(KMOpenGLShaderProgram::LightPos, camera.lightDirection());
    face.setColor4("diffuse", overlay.color);
    face.setColor3("ambient", Qt::black);
    for (const auto &group : data.updateFaces(KMFaceStyle()))
        drawElements(*group, litLayout, GL_TRIANGLES);
    face.release();
}
