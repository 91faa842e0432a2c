#pragma once

#include <QtGlobal>

#include <memory>

class QImage;
class QOpenGLTexture;

/// A picture for KMHUDQuad on the graphics card. It belongs to the context that all views share, so any number of
/// views may draw the same one, and it outlives each of them.
class KMHUDPicture
{
    Q_DISABLE_COPY(KMHUDPicture)
public:
    explicit KMHUDPicture(const QImage &picture);
    ~KMHUDPicture();

    bool bind();    ///< to the first unit of the current context; false where the driver had no room for it
    void release(); ///< after bind()

private:
    std::unique_ptr<QOpenGLTexture> m_texture; // null where it couldn't be made
};
