#include "render/KMGuideBatch.h"

#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"
#include "render/RenderGroup.h"

#include <numeric>

namespace {

constexpr int coreProfile = 2;
constexpr float rimWidth = 2.0f; // pixels more than the line
constexpr float rimOpacity = 0.35f;

/// Grows in steps, so that most frames write into what there is.
template <class Element>
bool upload(RenderGroup &group, const QVector<Element> &elements)
{
    const int count = elements.size();
    if (count > group.elementCount) {
        const int room = count + count / 2;
        if (!group.allocate(room, int(sizeof(Element)), room))
            return false;
        QVector<quint32> indices(room);
        std::iota(indices.begin(), indices.end(), 0u);
        group.ibo.bind();
        group.ibo.write(0, indices.constData(), room * int(sizeof(quint32)));
        group.ibo.release();
    }
    group.vbo.bind();
    group.vbo.write(0, elements.constData(), count * int(sizeof(Element)));
    group.vbo.release();
    group.indexCount = count;
    group.built = true;
    return count > 0;
}

} // namespace

KMGuideBatch::KMGuideBatch() = default;
KMGuideBatch::~KMGuideBatch() = default;

void KMGuideBatch::clear()
{
    for (auto &faces : m_faces)
        faces.second.elements.clear();
    m_rims.clear();
    m_lines.clear();
}

void KMGuideBatch::addTriangle(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, const QColor &color)
{
    Faces &faces = m_faces[color.rgba()];
    faces.color = color;
    const kvm::Vector3 normal = cross(c - b, a - b).normalized();
    for (const kvm::Vector3 &corner : {a, b, c})
        faces.elements.append({corner, normal, toVector(color), {}, 0.0f});
}

void KMGuideBatch::addLine(const kvm::Vector3 &a, const kvm::Vector3 &b, const QColor &colorA, const QColor &colorB)
{
    const kvm::Vector4 rim(0.0f, 0.0f, 0.0f, rimOpacity * float(colorA.alphaF()));
    m_rims << KMLineElement{a, rim, 0.0f} << KMLineElement{b, rim, 0.0f};
    m_lines << KMLineElement{a, toVector(colorA), 0.0f} << KMLineElement{b, toVector(colorB), 0.0f};
}

void KMGuideBatch::draw(KMRenderer &renderer, const KMCameraNode &camera)
{
    drawFaces(renderer, camera);
    drawLines(renderer, camera);
}

void KMGuideBatch::drawFaces(KMRenderer &renderer, const KMCameraNode &camera)
{
    KMOpenGLShaderProgram &pass = renderer.program(KMShaderPrograms::Face);
    if (m_faces.empty() || !pass.begin())
        return;
    pass.setCamera(camera);
    pass.setMatrix3(KMOpenGLShaderProgram::NormalMatrix, KMCameraNode::normalMatrix());
    pass.setVector(KMOpenGLShaderProgram::LightPos, camera.lightDirection());
    pass.setColor3("ambient", Qt::black);
    for (auto &entry : m_faces) {
        Faces &faces = entry.second;
        if (!faces.group)
            faces.group = std::make_unique<RenderGroup>();
        if (!upload(*faces.group, faces.elements))
            continue;
        pass.setColor4("diffuse", faces.color);
        renderer.drawElements(*faces.group, litLayout, GL_TRIANGLES);
    }
    pass.release();
}

void KMGuideBatch::drawLines(KMRenderer &renderer, const KMCameraNode &camera)
{
    KMOpenGLShaderProgram &pass = renderer.program(KMShaderPrograms::Line);
    if (m_lines.isEmpty() || !pass.begin())
        return;
    pass.setCamera(camera);
    renderer.glDisable(GL_DEPTH_TEST);
    const auto drawAll = [&](const QVector<KMLineElement> &lines, std::unique_ptr<RenderGroup> &group, float width) {
        if (!group)
            group = std::make_unique<RenderGroup>();
        if (gSettings->glCore != coreProfile) // wide lines are an error there
            renderer.glLineWidth(width);
        if (upload(*group, lines))
            renderer.drawElements(*group, lineLayout, GL_LINES);
    };
    if (gSettings->glCore != coreProfile)
        drawAll(m_rims, m_rimGroup, gSettings->lineWidth + rimWidth);
    drawAll(m_lines, m_lineGroup, gSettings->lineWidth);
    renderer.glEnable(GL_DEPTH_TEST);
    pass.release();
}
