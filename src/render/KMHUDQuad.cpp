#include "render/KMHUDQuad.h"

#include "render/KMCameraNode.h"
#include "render/KMHUDPicture.h"
#include "render/KMRenderer.h"

KMHUDQuad::KMHUDQuad() = default;

KMHUDQuad::~KMHUDQuad() = default;

void KMHUDQuad::build(KMRenderer &renderer, const QRectF &place)
{
    if (!m_corners)
        m_corners = std::make_unique<RenderGroup>();
    if (place == m_place && m_corners->built)
        return;
    const kvm::Vector4 white(1, 1, 1, 1);
    const float left = float(place.left());
    const float right = float(place.right());
    const float top = float(place.top());
    const float bottom = float(place.bottom());
    const KMQuadElement corners[] = {{{left, bottom, 0}, white, {0, 1}},
                                     {{right, bottom, 0}, white, {1, 1}},
                                     {{right, top, 0}, white, {1, 0}},
                                     {{left, top, 0}, white, {0, 0}}};
    renderer.writeQuad(*m_corners, corners, int(sizeof(KMQuadElement)));
    m_place = place;
}

void KMHUDQuad::draw(KMRenderer &renderer, const KMCameraNode &camera, const QRectF &place, KMHUDPicture &picture)
{
    KMOpenGLShaderProgram &program = renderer.program(KMShaderPrograms::HUD);
    build(renderer, place);
    if (!program.begin())
        return;
    program.setMatrix(KMOpenGLShaderProgram::VertMatrix, camera.screenMatrix());
    program.setUniformValue("texture", 0);
    if (picture.bind()) {
        renderer.drawElements(*m_corners, quadLayout, GL_TRIANGLES);
        picture.release();
    }
    program.release();
}
