#include "render/KMCameraBox.h"

#include "core/KMDpi.h"
#include "math/Vector4.h"
#include "render/KMBufferMap.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLShaderProgram.h"
#include "render/RenderGroup.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QtMath>

#include <cmath>

namespace {

constexpr int sizeInPixels = 28;
constexpr int margin = 16;
constexpr float quiet = 0.3f; // opacity of what isn't hot
constexpr float depthScale = 0.1f;

} // namespace

struct KMCameraBox::Element
{
    kvm::Vector3 vertex;
    kvm::Vector4 color;
};

KMCameraBox::KMCameraBox(int topEdge)
    : m_size(float(dpiScaled(sizeInPixels)))
    , m_topEdge(topEdge)
{
}

KMCameraBox::~KMCameraBox() = default;

QPointF KMCameraBox::centre(const KMCameraNode &camera) const
{
    const double reach = double(m_size * KMCameraBoxShape::OuterRadius) + dpiScaled(margin);
    return {camera.width() - reach, m_topEdge + reach};
}

int KMCameraBox::triangleAt(const KMCameraNode &camera, const QPointF &position) const
{
    const QPointF place = (position - centre(camera)) / double(m_size);
    return KMCameraBoxShape::triangleAt(KMCameraBoxShape::turned(camera.pitch(), camera.yaw()),
                                        {float(place.x()), float(-place.y())});
}

int KMCameraBox::codeAt(const KMCameraNode &camera, const QPointF &position) const
{
    return KMCameraBoxShape::codeOf(triangleAt(camera, position));
}

bool KMCameraBox::setHotAt(const KMCameraNode &camera, const QPointF &position)
{
    return setHot(KMCameraBoxShape::elementOf(triangleAt(camera, position)));
}

bool KMCameraBox::clearHot()
{
    return setHot({});
}

bool KMCameraBox::setHot(const KMCameraBoxShape::Element &element)
{
    if (element == m_hot)
        return false;
    m_hot = element;
    m_isStale = true;
    return true;
}

void KMCameraBox::beginRing(const KMCameraNode &camera, const QPointF &position)
{
    m_ringPress = position;
    m_ringYaw = camera.yaw();
}

/// Counter-clockwise, radians.
double KMCameraBox::angleAt(const KMCameraNode &camera, const QPointF &position) const
{
    const QPointF arm = position - centre(camera);
    return std::atan2(-arm.y(), arm.x());
}

/// The ring follows the cursor: seen from above, the scene turns against the camera.
void KMCameraBox::dragRing(KMCameraNode &camera, const QPointF &position, bool inSteps) const
{
    constexpr int step = 15; // degrees
    const double radians = std::remainder(angleAt(camera, position) - angleAt(camera, m_ringPress), 2.0 * M_PI);
    double degrees = qRadiansToDegrees(radians);
    if (inSteps)
        degrees = int(degrees) / step * step;
    const double yaw = std::fmod(double(m_ringYaw) - degrees, 360.0);
    camera.setAngles(camera.pitch(), float(yaw < 0.0 ? yaw + 360.0 : yaw), 0.0f);
}

bool KMCameraBox::allocate()
{
    using KMCameraBoxShape::triangles;
    m_buffers = std::make_unique<RenderGroup>();
    constexpr int indexCount = 3 * KMCameraBoxShape::TriangleCount;
    if (m_buffers->allocate(KMCameraBoxShape::VertexCount, int(sizeof(Element)), indexCount)) {
        const KMBufferMap<quint32> indices(m_buffers->ibo);
        quint32 *out = indices ? indices.data() : nullptr;
        for (const KMCameraBoxShape::Triangle &triangle : triangles()) {
            for (const int vertex : triangle) {
                if (out)
                    *out++ = quint32(vertex);
            }
        }
        if (out)
            m_buffers->indexCount = indexCount;
    }
    if (m_buffers->indexCount == 0)
        m_buffers.reset(); // the next frame tries again
    return m_buffers != nullptr;
}

/// A driver that doesn't hand out its memory leaves the picture that there was.
void KMCameraBox::update(const KMCameraNode &camera)
{
    const QPointF middle = centre(camera);
    const bool isSame = m_builtPitch == camera.pitch() && m_builtYaw == camera.yaw() && m_builtCentre == middle;
    if (m_buffers && isSame && !m_isStale)
        return;
    if (!m_buffers && !allocate())
        return;
    const KMBufferMap<Element> elements(m_buffers->vbo);
    if (!elements)
        return;
    write(elements.data(), camera);
    m_builtPitch = camera.pitch();
    m_builtYaw = camera.yaw();
    m_builtCentre = middle;
    m_isStale = false;
}

void KMCameraBox::write(Element *elements, const KMCameraNode &camera) const
{
    const KMCameraBoxShape::Points points = KMCameraBoxShape::turned(camera.pitch(), camera.yaw());
    const QPointF middle = centre(camera);
    for (size_t i = 0; i < points.size(); ++i) {
        const kvm::Vector3 &p = points[i];
        elements[i].vertex = {float(middle.x()) + p.x * m_size, float(middle.y()) - p.y * m_size, p.z * depthScale};
        elements[i].color = kvm::Vector4(KMCameraBoxShape::colors()[i], quiet);
    }
    for (int i = m_hot.first; i < m_hot.first + m_hot.count; ++i) {
        for (const int vertex : KMCameraBoxShape::triangles()[size_t(i)])
            elements[vertex].color.w = 1.0f;
    }
}

void KMCameraBox::draw(KMOpenGLShaderProgram &program, const KMCameraNode &camera)
{
    enum Attribute { Vertex, Color };
    update(camera);
    if (!m_buffers || m_buffers->indexCount == 0 || !program.begin())
        return;
    program.setMatrix(KMOpenGLShaderProgram::VertMatrix, camera.screenMatrix());
    m_buffers->vbo.bind();
    m_buffers->ibo.bind();
    program.enableAttributeArray(Vertex);
    program.enableAttributeArray(Color);
    program.setAttributeBuffer(Vertex, GL_FLOAT, offsetof(Element, vertex), 3, sizeof(Element));
    program.setAttributeBuffer(Color, GL_FLOAT, offsetof(Element, color), 4, sizeof(Element));
    QOpenGLFunctions *gl = QOpenGLContext::currentContext()->functions();
    // Front faces are told to run clockwise and are culled: what stays is what the hit test sees.
    gl->glFrontFace(GL_CW);
    gl->glEnable(GL_CULL_FACE);
    gl->glCullFace(GL_FRONT);
    gl->glDrawElements(GL_TRIANGLES, m_buffers->indexCount, GL_UNSIGNED_INT, nullptr);
    gl->glDisable(GL_CULL_FACE);
    gl->glCullFace(GL_BACK);
    gl->glFrontFace(GL_CCW);
    program.disableAttributeArray(Vertex);
    program.disableAttributeArray(Color);
    program.release();
    m_buffers->vbo.release();
    m_buffers->ibo.release();
}
