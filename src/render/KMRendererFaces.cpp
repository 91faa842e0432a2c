// Faces: lit, and the hull of their outlines.

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMOutlinePercent.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMGuideBatch.h"
#include "render/KMRenderMask.h"
#include "render/KMRenderer.h"
#include "render/KMViewFilter.h"

#include <QVector3D>

namespace {

constexpr float outlineUnit = 0.001f;

const KMShaderNode *shaderOf(const RenderGroup &group)
{
    return gProject->shader(group.shader);
}

bool hasOutline(const KMShaderNode *shader)
{
    if (!shader || shader->type() != KMNodeType::BasicShader)
        return false;
    const KMBasicShader &values = static_cast<const KMBasicShaderNode *>(shader)->values();
    return values.outlineEnabled && values.outlineSize != 0.0f;
}

} // namespace

/// The tool that paints the weights of bones shows them on the surface.
KMFaceStyle KMRenderer::faceStyle(const Item &item) const
{
    KMFaceStyle style{toVector(gSettings->displayColor(DP_SEL_FACE)), toVector(gSettings->displayColor(DP_HOT_FACE)),
                      gSettings->faceBlendRatio};
    if (toolId() == KMViewTool::BoneWeightTool)
        style.colors = m_frame->tool->faceColors(*item.mesh);
    return style;
}

void KMRenderer::drawFaces(const KMCameraNode &camera)
{
    QVector<Item> shown;
    QVector<Item> outlined;
    const bool isFrontView = camera.viewFlag(KMCameraNode::FrontOnly);
    for (const Item &item : std::as_const(m_items)) {
        const quint32 mask = item.mesh->renderFlags();
        if (!(mask & KMRenderMask::Faces) || (mask & KMRenderMask::BoundsOnly))
            continue;
        shown.append(item);
        // A hull needs the far side, which a mesh of front faces alone doesn't have.
        if (!isFrontView || !(mask & KMRenderMask::FrontOnly))
            outlined.append(item);
    }
    for (const Item &item : std::as_const(shown))
        item.data->updateFaces(faceStyle(item));
    drawOutlines(camera, outlined);
    KMOpenGLShaderProgram &real = program(KMShaderPrograms::Real);
    if (!real.begin())
        return;
    m_material->setView(real, camera);
    for (const Item &item : std::as_const(shown))
        drawReal(item);
    real.release();
}

void KMRenderer::drawMarkedFaces(const KMCameraNode &camera)
{
    m_marks->clear();
    const auto markColor = [](DisplayColor index) {
        QColor color = gSettings->displayColor(index);
        color.setAlphaF(qreal(gSettings->faceBlendRatio));
        return color;
    };
    const QColor selected = markColor(DP_SEL_FACE);
    const QColor hot = markColor(DP_HOT_FACE);
    for (const Item &item : std::as_const(m_items)) {
        const bool hasMarks = item.mesh->renderFlags() & KMRenderMask::MarkedFaces;
        for (const KMFace *face : hasMarks ? item.mesh->liveFaces() : QVector<KMFace *>()) {
            const bool isHot = face->hasFlag(KMElementFlag::Hot | KMElementFlag::HotSecond);
            if (!face->drawn || !face->isPolygon() || !(isHot || face->hasFlag(KMElementFlag::Selected)))
                continue;
            const auto corner = [&](int c) { return item.mesh->position(face->indices[c]); };
            m_marks->addTriangle(corner(0), corner(1), corner(2), isHot ? hot : selected);
            if (face->count == 4)
                m_marks->addTriangle(corner(2), corner(3), corner(0), isHot ? hot : selected);
        }
    }
    glDepthMask(GL_FALSE);
    m_marks->draw(*this, camera);
    glDepthMask(GL_TRUE);
}

void KMRenderer::drawOutlines(const KMCameraNode &camera, const QVector<Item> &items)
{
    KMOpenGLShaderProgram &outline = program(KMShaderPrograms::Outline);
    if (!KMViewFilter::isOn(KMViewFilter::Outline) || KMOutlinePercent::current() == 0 || !outline.begin())
        return;
    outline.setCamera(camera);
    glEnable(GL_CULL_FACE);
    glCullFace(GL_FRONT);
    for (const Item &item : items)
        drawOutline(item);
    glCullFace(GL_BACK);
    glDisable(GL_CULL_FACE);
    outline.release();
}

/// The far side of the mesh, blown up along its normals: around the near side a rim of it stays in sight.
void KMRenderer::drawOutline(const Item &item)
{
    KMOpenGLShaderProgram &outline = program(KMShaderPrograms::Outline);
    for (const auto &group : item.data->updateFaces(faceStyle(item))) {
        const KMShaderNode *shader = shaderOf(*group);
        if (!hasOutline(shader))
            continue;
        const KMBasicShader &values = static_cast<const KMBasicShaderNode *>(shader)->values();
        const float size = values.outlineSize * float(KMOutlinePercent::current()) * outlineUnit;
        QColor color = values.outlineColor;
        color.setAlpha(255);
        outline.setUniformValue("outline_size", QVector3D(size, size, size));
        outline.setColor4("outlineCol", color);
        drawElements(*group, hullLayout, GL_TRIANGLES);
    }
}

void KMRenderer::drawReal(const Item &item)
{
    KMOpenGLShaderProgram &real = program(KMShaderPrograms::Real);
    const bool cullsBack = item.mesh->renderFlags() & KMRenderMask::CullBack;
    if (cullsBack) {
        glEnable(GL_CULL_FACE);
        glCullFace(GL_BACK);
    }
    const bool withTextures = KMViewFilter::isOn(KMViewFilter::Texture);
    const bool isFlat = KMViewFilter::isOn(KMViewFilter::FlatTexture);
    for (const auto &group : item.data->updateFaces(faceStyle(item))) {
        m_material->apply(real, shaderOf(*group), withTextures, isFlat);
        drawElements(*group, faceLayout, GL_TRIANGLES);
    }
    if (cullsBack)
        glDisable(GL_CULL_FACE);
}
