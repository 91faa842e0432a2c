// Edges, vertices and normals.

#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"

namespace {

constexpr float normalUnit = 0.01f;
constexpr float diagonal = 200.0f; // pixels

kvm::Vector4 color(DisplayColor index)
{
    return toVector(gSettings->displayColor(index));
}

} // namespace

KMElementStyle KMRenderer::edgeStyle(const Item &item) const
{
    KMElementStyle style;
    style.plain = color(item.current ? DP_ACT_EDGE : DP_EDGE);
    style.selected = color(DP_SEL_EDGE);
    style.hot = color(DP_HOT_EDGE);
    // Where selected faces aren't tinted, their edges aren't either.
    style.ofSelectedFace = gSettings->faceBlendRatio != 0.0f ? color(DP_SEL_FACE_E) : style.plain;
    style.colors = toolColors(item, false);
    return style;
}

KMElementStyle KMRenderer::pointStyle(const Item &item) const
{
    KMElementStyle style;
    style.plain = color(item.current ? DP_ACT_VERT : DP_VERT);
    style.selected = color(DP_SEL_VERT);
    style.hot = color(DP_HOT_VERT);
    style.colors = toolColors(item, true);
    return style;
}

/// The tool for crease weights shows them on what is selected; that of one bone on the vertices of the mesh at hand.
const KMVertexColors *KMRenderer::toolColors(const Item &item, bool arePoints) const
{
    const KMContainerNode *owner = item.mesh->ownerNode();
    const bool isActive = m_lastActive && (item.mesh == m_lastActive || owner == m_lastActive);
    const bool isAsked = (toolId() == KMViewTool::WeightPaintTool && KMMeshTargets::isChosen(*item.mesh))
                         || (toolId() == KMViewTool::BoneWeightTool && isActive && arePoints);
    return isAsked ? m_frame->tool->vertexColors(*item.mesh) : nullptr;
}

void KMRenderer::drawEdges(const KMCameraNode &camera)
{
    KMOpenGLShaderProgram &line = program(KMShaderPrograms::RealLine);
    if (!line.begin())
        return;
    line.setCamera(camera);
    setLineWidth(gSettings->lineWidth);
    for (const Item &item : std::as_const(m_items)) {
        if (item.mesh->renderFlags() & KMRenderMask::Edges)
            drawElements(item.data->updateEdges(edgeStyle(item)), lineLayout, GL_LINES);
    }
    line.release();
}

void KMRenderer::drawVertices(const KMCameraNode &camera)
{
    KMOpenGLShaderProgram &point = program(KMShaderPrograms::RealPoint);
    if (!point.begin())
        return;
    point.setCamera(camera);
    glPointSize(gSettings->pointSize);
    for (const Item &item : std::as_const(m_items)) {
        if (item.mesh->renderFlags() & KMRenderMask::Vertices)
            drawElements(item.data->updatePoints(pointStyle(item)), lineLayout, GL_POINTS);
    }
    point.release();
}

void KMRenderer::drawNormals(const KMCameraNode &camera)
{
    KMOpenGLShaderProgram &line = program(KMShaderPrograms::Line);
    if (!line.begin())
        return;
    line.setCamera(camera);
    setLineWidth(gSettings->lineWidth);
    KMNormalStyle style;
    style.computed = color(DP_NORMAL);
    style.rotated = color(DP_ROT_NORMAL);
    style.fixed = color(DP_FIX_NORMAL);
    style.selected = color(DP_SEL_NORMAL);
    // A mesh of which nothing is shown would be a cloud of needles.
    constexpr quint32 elements = KMRenderMask::Vertices | KMRenderMask::Edges | KMRenderMask::Faces;
    // As long on the screen from near as from far.
    style.length = gSettings->normalLength * normalUnit * camera.pixelScale(diagonal);
    for (const Item &item : std::as_const(m_items)) {
        if (item.current && (item.mesh->renderFlags() & elements))
            drawElements(item.data->updateNormals(style), lineLayout, GL_LINES);
    }
    line.release();
}
