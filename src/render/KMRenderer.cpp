#include "render/KMRenderer.h"

#include "core/KMResources.h"
#include "core/KMSettings.h"
#include "render/KMBufferMap.h"
#include "render/KMGuideBatch.h"
#include "render/KMShareContext.h"

#include <QCoreApplication>
#include <QDebug>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLVertexArrayObject>

KMRenderer *gRenderer = nullptr;

namespace {

void deleteRenderer()
{
    delete gRenderer;
}

} // namespace

KMRenderer *KMRenderer::ensure()
{
    static bool isImpossible = false;
    if (gRenderer || isImpossible)
        return gRenderer;
    gRenderer = new KMRenderer;
    if (!gRenderer->initialize()) {
        qDebug() << "no OpenGL context";
        isImpossible = true;
        deleteRenderer();
        return nullptr;
    }
    // The contexts go with the application, and what stands in them has to go before.
    static bool isRegistered = false;
    if (!std::exchange(isRegistered, true))
        qAddPostRoutine(deleteRenderer);
    return gRenderer;
}

KMRenderer::KMRenderer() = default;

KMRenderer::~KMRenderer()
{
    {
        const KMShareContext context;
        if (m_textures) {
            qDebug() << "v_tex.size()" << m_textures->size();
            m_textures->clear();
        }
        m_background.reset();
        m_plate.reset();
        m_blueprint.reset();
        m_marks.reset();
        m_programs.clear();
    }
    gRenderer = nullptr;
}

bool KMRenderer::initialize()
{
    QOpenGLContext *shared = QOpenGLContext::globalShareContext();
    if (!shared || !shared->isValid())
        return false;
    initKelmoResources();
    m_surface = std::make_unique<QOffscreenSurface>();
    m_surface->setFormat(shared->format());
    m_surface->create();
    const KMShareContext context;
    // Where the shared context refuses, that of the view which asks serves as well: it shares all that is made here.
    if (!QOpenGLContext::currentContext())
        return false;
    initializeOpenGLFunctions();
    m_programs.load();
    m_textures = std::make_unique<KMTextureCache>();
    m_material = std::make_unique<KMMaterial>(*m_textures);
    m_background = std::make_unique<RenderGroup>();
    m_plate = std::make_unique<RenderGroup>();
    m_blueprint = std::make_unique<RenderGroup>();
    m_marks = std::make_unique<KMGuideBatch>();
    glFlush(); // other contexts draw with all this from now on
    return true;
}

void KMRenderer::makeShareCurrent()
{
    QOpenGLContext *current = QOpenGLContext::currentContext();
    m_saved.append({current, current ? current->surface() : nullptr});
    QOpenGLContext *shared = QOpenGLContext::globalShareContext();
    if (shared && m_surface && current != shared)
        shared->makeCurrent(m_surface.get());
}

void KMRenderer::doneShareCurrent()
{
    const Saved former = m_saved.takeLast();
    QOpenGLContext *current = QOpenGLContext::currentContext();
    if (former.context == current)
        return;
    if (former.context)
        former.context->makeCurrent(former.surface);
    else if (current)
        current->doneCurrent();
}

/// A core profile draws nothing without a vertex array object. Each context keeps one of its own, bound for good.
void KMRenderer::bindVertexArray()
{
    QOpenGLContext *context = QOpenGLContext::currentContext();
    if (context->format().profile() != QSurfaceFormat::CoreProfile)
        return;
    const QString name = QStringLiteral("kelmoVertexArray");
    auto *object = context->findChild<QOpenGLVertexArrayObject *>(name, Qt::FindDirectChildrenOnly);
    if (!object) {
        object = new QOpenGLVertexArrayObject(context);
        object->setObjectName(name);
        object->create();
    }
    object->bind();
}

void KMRenderer::beginScene()
{
    bindVertexArray();
    resetState();
}

/// A painter on the same surface leaves the state as it needed it.
void KMRenderer::resetState()
{
    if (gSettings->glSamples != 0)
        glEnable(GL_MULTISAMPLE);
    glDisable(GL_SCISSOR_TEST);
    glDisable(GL_STENCIL_TEST);
    glDisable(GL_CULL_FACE);
    glFrontFace(GL_CCW);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glDepthMask(GL_TRUE);
    glDepthFunc(GL_LESS);
    glClearDepthf(1.0f);
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    setPlainBlending();
}

/// The alpha of the picture itself stays what the background has, or windows would show through glass.
void KMRenderer::setPlainBlending()
{
    glBlendFuncSeparate(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA, GL_ONE, GL_ONE_MINUS_SRC_ALPHA);
}

void KMRenderer::clearDepth()
{
    glClear(GL_DEPTH_BUFFER_BIT);
}

void KMRenderer::setLineWidth(float width)
{
    if (gSettings->glCore != 2) // wide lines are an error in a core profile
        glLineWidth(width);
}

void KMRenderer::drawElements(RenderGroup &group, const KMVertexLayout &layout, GLenum mode)
{
    if (!group.built || group.indexCount == 0 || !group.vbo.bind())
        return;
    GLuint location = 0;
    for (const KMVertexLayout::Attribute &attribute : layout.attributes) {
        if (attribute.floats == 0)
            break;
        glEnableVertexAttribArray(location);
        glVertexAttribPointer(location++, attribute.floats, GL_FLOAT, GL_FALSE, layout.stride,
                              reinterpret_cast<const void *>(quintptr(attribute.offset)));
    }
    if (group.ibo.bind()) {
        glDrawElements(mode, group.indexCount, GL_UNSIGNED_INT, nullptr);
        group.ibo.release();
    }
    while (location > 0)
        glDisableVertexAttribArray(--location);
    group.vbo.release();
}

/// Four elements of a quad that stands in the order of a fan.
bool KMRenderer::writeQuad(RenderGroup &group, const void *elements, int elementBytes)
{
    constexpr quint32 indices[] = {0, 1, 2, 2, 3, 0};
    if (group.elementCount == 0 && !group.allocate(4, elementBytes, int(std::size(indices))))
        return false;
    const KMBufferMap<char> vertexMap(group.vbo);
    const KMBufferMap<quint32> indexMap(group.ibo);
    if (!vertexMap || !indexMap)
        return false;
    memcpy(vertexMap.data(), elements, size_t(4 * elementBytes));
    std::copy(std::begin(indices), std::end(indices), indexMap.data());
    group.indexCount = int(std::size(indices));
    group.built = true;
    return true;
}

int KMRenderer::toolId() const
{
    return m_frame && m_frame->tool ? m_frame->tool->toolId() : -1;
}
