// The order of one frame.

#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"
#include "render/KMViewFilter.h"

#include <QOpenGLContext>

namespace {

/// Called where a view has nothing to add.
KMFrameParts *noParts()
{
    static KMFrameParts none;
    return &none;
}

} // namespace

void KMRenderer::paintScene(const KMFrame &frame)
{
    if (m_busy || !frame.camera || frame.size.isEmpty() || !QOpenGLContext::currentContext())
        return;
    KMFrame complete = frame;
    if (!complete.parts)
        complete.parts = noParts();
    m_frame = &complete;
    beginScene();
    KMCameraNode &camera = *complete.camera;
    camera.resize(complete.size.width(), complete.size.height());
    camera.updateMatrices();
    if (!drawBackground(camera, complete.background)) {
        glClearColor(float(complete.background.redF()), float(complete.background.greenF()),
                     float(complete.background.blueF()), float(complete.background.alphaF()));
        glClear(GL_COLOR_BUFFER_BIT);
    }
    clearDepth();
    prepareFrame(camera);
    drawBlueprints(camera, false);
    complete.parts->drawGrid(camera);
    drawParts(camera);
    finishFrame();
    if (complete.isFirst)
        clearDepth();
    glActiveTexture(GL_TEXTURE0);
    glUseProgram(0);
    m_frame = nullptr;
}

void KMRenderer::drawParts(const KMCameraNode &camera)
{
    if (m_quickFrame) {
        if (!camera.isUV())
            drawControls(camera);
        return;
    }
    if (camera.isUV())
        drawUVScene(camera);
    else
        drawScene(camera);
    drawOverlays(camera);
}

void KMRenderer::drawScene(const KMCameraNode &camera)
{
    drawFaces(camera);
    drawMarkedFaces(camera);
    clearFaceDepth();
    drawEdges(camera);
    clearFaceDepth();
    drawVertices(camera);
    clearFaceDepth();
    if (toolId() == KMViewTool::NormalTool)
        drawNormals(camera);
    drawControls(camera);
    drawBlueprints(camera, true);
}

void KMRenderer::drawControls(const KMCameraNode &camera)
{
    clearDepth();
    m_frame->parts->drawBones(camera);
    m_frame->parts->drawTags(camera);
}

void KMRenderer::drawUVScene(const KMCameraNode &camera)
{
    drawUVPlate(camera);
    glDisable(GL_DEPTH_TEST);
    drawUVEdges(camera);
    drawUVVertices(camera);
    drawModelEdgesInUV();
    glEnable(GL_DEPTH_TEST);
}

/// With this switch what comes later covers the faces, whatever the depth.
void KMRenderer::clearFaceDepth()
{
    if (KMViewFilter::isOn(KMViewFilter::OverwriteFaces))
        clearDepth();
}

void KMRenderer::drawOverlays(const KMCameraNode &camera)
{
    m_frame->parts->drawToolIcons(camera);
    if (m_frame->tool) {
        clearDepth();
        m_frame->tool->draw(m_frame->widget);
        drawToolPasses(camera);
    }
    clearDepth();
    m_frame->parts->drawNavigationIcons(camera);
    glEnable(GL_CULL_FACE);
    glFrontFace(GL_CW);
    glCullFace(GL_FRONT);
    m_frame->parts->drawCameraBox(camera);
    glFrontFace(GL_CCW);
    glCullFace(GL_BACK);
    glDisable(GL_CULL_FACE);
}
