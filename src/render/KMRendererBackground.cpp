// What lies behind the scene.

#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

#include <QtGlobal>

namespace {

enum Gradient { Flat, Gradation, Reverse }; // values of the setting

/// What is added to red, green and blue at the upper and the lower edge.
struct Tint
{
    float top;
    float bottom;
};

/// Looking up shows more of the sky, looking down more of the ground.
Tint tintFor(int gradient, float pitch)
{
    const float a = pitch * 0.011111111f * 0.5f;
    if (gradient == Gradation)
        return {qBound(0.0f, a + 0.3f, 0.4f), qBound(-0.15f, a - 0.15f, 0.0f)};
    if (gradient == Reverse)
        return {qBound(0.0f, 0.15f - a, 0.2f), qBound(-0.15f, -0.35f - a, 0.0f)};
    return {0.0f, 0.0f};
}

kvm::Vector4 tinted(const QColor &color, float tint)
{
    const kvm::Vector4 plain = toVector(color);
    return {qBound(0.0f, plain.x + tint, 1.0f), qBound(0.0f, plain.y + tint, 1.0f), qBound(0.0f, plain.z + tint, 1.0f),
            plain.w};
}

} // namespace

bool KMRenderer::drawBackground(const KMCameraNode &camera, const QColor &color)
{
    const int gradient = gSettings->gradBG;
    KMOpenGLShaderProgram &plane = program(KMShaderPrograms::Face2D);
    if (!camera.isPerspectiveKind() || gradient < Flat || gradient > Reverse || !plane.begin())
        return false;
    const Tint tint = tintFor(gradient, camera.pitch());
    const kvm::Vector4 top = tinted(color, tint.top);
    const kvm::Vector4 bottom = tinted(color, tint.bottom);
    const KMLineElement corners[] = {
        {{-1, -1, 0}, bottom, 0}, {{1, -1, 0}, bottom, 0}, {{1, 1, 0}, top, 0}, {{-1, 1, 0}, top, 0}};
    if (!writeQuad(*m_background, corners, int(sizeof(KMLineElement)))) {
        plane.release();
        return false;
    }
    plane.setMatrix(KMOpenGLShaderProgram::VertMatrix, kvm::Matrix4());
    glDisable(GL_DEPTH_TEST);
    glDisable(GL_BLEND);
    drawElements(*m_background, planeLayout, GL_TRIANGLES);
    glEnable(GL_BLEND);
    glEnable(GL_DEPTH_TEST);
    plane.release();
    return true;
}
