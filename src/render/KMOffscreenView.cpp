#include "render/KMOffscreenView.h"

#include "render/KMMaterialBall.h"
#include "render/KMRenderer.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFramebufferObject>
#include <QOpenGLFunctions>

KMOffscreenView::KMOffscreenView(const QSize &size, int samples)
    : m_size(size)
    , m_surface(std::make_unique<QOffscreenSurface>())
    , m_context(std::make_unique<QOpenGLContext>())
{
    if (size.isEmpty() || !KMRenderer::ensure())
        return;
    QOpenGLContext *shared = QOpenGLContext::globalShareContext();
    m_context->setFormat(shared->format());
    m_context->setShareContext(shared);
    m_surface->setFormat(shared->format());
    m_surface->create();
    if (!m_context->create() || !m_context->makeCurrent(m_surface.get()))
        return;
    QOpenGLFramebufferObjectFormat format;
    format.setAttachment(QOpenGLFramebufferObject::CombinedDepthStencil);
    format.setSamples(samples);
    auto target = std::make_unique<QOpenGLFramebufferObject>(size, format);
    if (target->isValid())
        m_target = std::move(target);
    m_context->doneCurrent();
}

KMOffscreenView::~KMOffscreenView()
{
    if (!m_target || !m_context->makeCurrent(m_surface.get()))
        return;
    m_target.reset();
    m_context->doneCurrent();
}

QImage KMOffscreenView::paint(KMCameraNode &camera, const QColor &background)
{
    KMFrame frame;
    frame.camera = &camera;
    frame.background = background;
    return paint(frame);
}

QImage KMOffscreenView::paint(const KMFrame &frame)
{
    KMFrame sized = frame;
    sized.size = m_size;
    return grab([&sized] { gRenderer->paintScene(sized); });
}

QImage KMOffscreenView::paintMaterial(const KMShaderNode *shader)
{
    return grab([this, shader] { KMMaterialBall().draw(*gRenderer, shader, m_size); });
}

QImage KMOffscreenView::grab(const std::function<void()> &draw)
{
    if (!m_target || !gRenderer || !m_context->makeCurrent(m_surface.get()))
        return {};
    m_target->bind();
    m_context->functions()->glViewport(0, 0, m_size.width(), m_size.height());
    draw();
    const QImage image = m_target->toImage();
    m_target->release();
    m_context->doneCurrent();
    return image;
}
