#pragma once

#include <QRectF>

#include <memory>

class KMCameraNode;
class KMRenderer;
class QImage;
class QOpenGLTexture;
struct RenderGroup;

/// A picture on a rectangle of window pixels, over all that was drawn before. It is made by the first draw.
class KMHUDQuad
{
    Q_DISABLE_COPY(KMHUDQuad)
public:
    KMHUDQuad();
    ~KMHUDQuad(); ///< with a context current that shares the buffers, once it was drawn

    bool hasPicture() const { return m_texture != nullptr; }
    void setPicture(const QImage &picture);                                           ///< with a context current
    void draw(KMRenderer &renderer, const KMCameraNode &camera, const QRectF &place); ///< with a context current

private:
    std::unique_ptr<RenderGroup> m_corners;
    std::unique_ptr<QOpenGLTexture> m_texture;
    QRectF m_place; // what the buffers hold
};
