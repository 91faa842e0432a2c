#include "render/KMHUDQuad.h"

#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

#include <QImage>
#include <QOpenGLTexture>

KMHUDQuad::KMHUDQuad() = default;

KMHUDQuad::~KMHUDQuad() = default;

void KMHUDQuad::setPicture(const QImage &picture)
{
    m_texture = std::make_unique<QOpenGLTexture>(picture);
    m_texture->setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    m_texture->setWrapMode(QOpenGLTexture::ClampToEdge);
}

void KMHUDQuad::draw(KMRenderer &renderer, const KMCameraNode &camera, const QRectF &place)
{
    KMOpenGLShaderProgram &program = renderer.program(KMShaderPrograms::HUD);
    if (!m_texture || !program.begin())
        return;
    if (!m_corners)
        m_corners = std::make_unique<RenderGroup>();
    if (place != m_place || !m_corners->built) {
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
    program.setMatrix(KMOpenGLShaderProgram::VertMatrix, camera.screenMatrix());
    program.setUniformValue("texture", 0);
    m_texture->bind(0);
    renderer.drawElements(*m_corners, quadLayout, GL_TRIANGLES);
    m_texture->release(0);
    program.release();
}
