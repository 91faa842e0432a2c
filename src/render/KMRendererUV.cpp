// The view of the texture's plane.

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"
#include "render/KMViewFilter.h"

#include <QOpenGLTexture>

namespace {

constexpr int ofActiveShader = 1; // value of the setting

/// Clamped, or the opposite edge would show through.
QOpenGLTexture *plateTexture(KMTextureCache &textures)
{
    if (gSettings->uvViewMode != ofActiveShader)
        return textures.texture(nodeAs<KMTextureNode>(gSolution->currentTexture()), KMTextureCache::Clamped);
    KMNode *shader = gSolution->currentShader();
    if (!shader || shader->type() != KMNodeType::BasicShader)
        return nullptr;
    const int diffuse = nodeAs<KMBasicShaderNode>(shader)->values().textures[KMBasicShader::Diffuse];
    return textures.texture(diffuse, KMTextureCache::Clamped);
}

KMUVStyle uvStyle()
{
    return {toVector(gSettings->displayColor(DP_UV_EDGE)), toVector(gSettings->displayColor(DP_SEL_UV)),
            toVector(gSettings->displayColor(DP_PIN_UV))};
}

} // namespace

/// The texture with its upper left corner in the origin, dimmed so that lines stand out; a painter sees its true
/// colours.
void KMRenderer::drawUVPlate(const KMCameraNode &camera)
{
    if (!KMViewFilter::isOn(KMViewFilter::UVTexture))
        return;
    QOpenGLTexture *texture = plateTexture(*m_textures);
    KMOpenGLShaderProgram &uvt = program(KMShaderPrograms::UVT);
    if (!texture || !uvt.begin())
        return;
    const float light = toolId() == KMViewTool::PaintTool ? 1.0f : gSettings->uvBrightness;
    const kvm::Vector4 color(light, light, light, 1.0f);
    constexpr float side = KMUVBuffers::PlateSize;
    const KMQuadElement corners[] = {{{0, 0, 0}, color, {0, 0}},
                                     {{side, 0, 0}, color, {1, 0}},
                                     {{side, side, 0}, color, {1, 1}},
                                     {{0, side, 0}, color, {0, 1}}};
    if (!writeQuad(*m_plate, corners, int(sizeof(KMQuadElement)))) {
        uvt.release();
        return;
    }
    uvt.setCamera(camera);
    uvt.setUniformValue("texture", 0);
    texture->bind(0);
    drawElements(*m_plate, quadLayout, GL_TRIANGLES);
    uvt.release();
}

void KMRenderer::drawUVEdges(const KMCameraNode &camera)
{
    setLineWidth(gSettings->lineWidth);
    drawUV(camera, KMRenderMask::UVEdges, false);
}

void KMRenderer::drawUVVertices(const KMCameraNode &camera)
{
    glPointSize(gSettings->pointSize);
    drawUV(camera, KMRenderMask::UVVertices, true);
}

void KMRenderer::drawUV(const KMCameraNode &camera, quint32 maskBit, bool asPoints)
{
    KMOpenGLShaderProgram &line = program(KMShaderPrograms::Line);
    if (!line.begin())
        return;
    line.setCamera(camera);
    const KMUVStyle style = uvStyle();
    for (const Item &item : std::as_const(m_items)) {
        if (!(item.mesh->renderFlags() & maskBit))
            continue;
        KMUVBuffers &buffers = item.data->updateUVs(style);
        if (asPoints)
            drawElements(buffers.uvPointBuffer(), lineLayout, GL_POINTS);
        else
            drawElements(buffers.uvEdgeBuffer(), lineLayout, GL_LINES);
    }
    line.release();
}

/// The current mesh as the other view shows it, in the proportions of that view: texture coordinates can be laid over
/// it. Its colours in the buffer are those of the other view, marks included, and stay so: here one plain colour does.
void KMRenderer::drawModelEdgesInUV()
{
    KMOpenGLShaderProgram &line = program(KMShaderPrograms::Line);
    const bool isAsked =
        !m_items.isEmpty() && m_items.last().current && (m_items.last().mesh->renderFlags() & KMRenderMask::UVEdges);
    if (!isAsked || !m_frame || !m_frame->referenceCamera || !line.begin())
        return;
    const kvm::Matrix4 stretch = kvm::Matrix4::fromScale({m_frame->referenceWidthRatio, 1.0f, 1.0f});
    line.setMatrix(KMOpenGLShaderProgram::ProjMatrix, m_frame->referenceCamera->projection() * stretch);
    line.setMatrix(KMOpenGLShaderProgram::MvMatrix, m_frame->referenceCamera->modelView());
    setLineWidth(gSettings->lineWidth);
    constexpr GLuint colorPlace = 1; // of the program
    const kvm::Vector4 plain = toVector(gSettings->displayColor(DP_ACT_EDGE));
    glVertexAttrib4f(colorPlace, plain.x, plain.y, plain.z, plain.w);
    const Item &item = m_items.last();
    drawElements(item.data->updateEdges(edgeStyle(item)), placeLayout, GL_LINES);
    line.release();
}
