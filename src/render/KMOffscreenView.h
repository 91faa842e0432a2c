#pragma once

#include "render/KMFrame.h"

#include <QImage>

#include <functional>
#include <memory>

class KMShaderNode;
class QOffscreenSurface;
class QOpenGLContext;
class QOpenGLFramebufferObject;

/// Paints the scene without a window, in the same order as a view does.
class KMOffscreenView
{
    Q_DISABLE_COPY(KMOffscreenView)
public:
    /// samples: of each pixel, 0 for plain edges; the driver may give fewer.
    explicit KMOffscreenView(const QSize &size, int samples = 0);
    ~KMOffscreenView();

    bool isValid() const { return m_target != nullptr; } ///< false without OpenGL or for an impossible size
    QSize size() const { return m_size; }

    QImage paint(KMCameraNode &camera, const QColor &background); ///< null when this isn't valid
    QImage paint(const KMFrame &frame);                           ///< the size of the frame is that of this view
    /// A material as a lit ball on a transparent ground.
    QImage paintMaterial(const KMShaderNode *shader);

private:
    QImage grab(const std::function<void()> &draw);

    QSize m_size;
    std::unique_ptr<QOffscreenSurface> m_surface;
    std::unique_ptr<QOpenGLContext> m_context;
    std::unique_ptr<QOpenGLFramebufferObject> m_target;
};
