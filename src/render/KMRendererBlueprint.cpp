// Pictures that stand behind the model or in front of it, to model by.

#include "core/KMBluePrint.h"
#include "core/KMProject.h"
#include "core/KMTextureNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

#include <QOpenGLTexture>

#include <algorithm>
#include <array>

namespace {

constexpr float longerSide = 50.0f; // of a plate that isn't scaled, in the world

struct BlendRow
{
    int blend;
    GLenum source;
    GLenum destination;
};

constexpr BlendRow blendRows[] = {
    {KMBluePrintValues::Mix, GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA},
    {KMBluePrintValues::Add, GL_SRC_ALPHA, GL_ONE},
    {KMBluePrintValues::Multiply, GL_ZERO, GL_SRC_COLOR},
};

const BlendRow &blendRow(int blend)
{
    const auto isOf = [blend](const BlendRow &row) { return row.blend == blend; };
    const BlendRow *row = std::find_if(std::begin(blendRows), std::end(blendRows), isOf);
    return row == std::end(blendRows) ? blendRows[0] : *row;
}

/// picture: its full size. That of the texture is rounded where the card takes a smaller one, and a template has to
/// be true.
std::array<KMQuadElement, 4> cornersOf(const QSize &picture, const kvm::Matrix4 &place, float alpha)
{
    const float unit = 0.5f * longerSide / float(std::max(picture.width(), picture.height()));
    const float x = unit * float(picture.width());
    const float y = unit * float(picture.height());
    const kvm::Vector4 color(1.0f, 1.0f, 1.0f, alpha);
    return {{{place * kvm::Vector3(-x, -y, 0), color, {0, 1}},
             {place * kvm::Vector3(x, -y, 0), color, {1, 1}},
             {place * kvm::Vector3(x, y, 0), color, {1, 0}},
             {place * kvm::Vector3(-x, y, 0), color, {0, 0}}}};
}

} // namespace

void KMRenderer::drawBlueprints(const KMCameraNode &camera, bool foreground)
{
    KMOpenGLShaderProgram &plate = program(KMShaderPrograms::Blueprint);
    if (!gProject || gProject->bluePrints().isEmpty() || !camera.isPerspectiveKind() || !plate.begin())
        return;
    for (const KMBluePrint *bluePrint : gProject->bluePrints()) {
        if (!bluePrint->isDeleted() && bluePrint->isVisible() && (bluePrint->values().foreground == 1) == foreground)
            drawBlueprint(camera, *bluePrint);
    }
    plate.release();
    setPlainBlending();
    if (!foreground)
        clearDepth(); // nothing of the model is hidden by them
}

void KMRenderer::drawBlueprint(const KMCameraNode &camera, const KMBluePrint &bluePrint)
{
    const KMBluePrintValues &values = bluePrint.values();
    // Clamped, or the opposite edge would show through.
    QOpenGLTexture *texture = m_textures->texture(values.texture, KMTextureCache::Clamped);
    if (!texture)
        return;
    KMOpenGLShaderProgram &plate = program(KMShaderPrograms::Blueprint);
    kvm::Matrix4 place = bluePrint.worldMatrix();
    const bool isFixed = values.mode == KMBluePrintValues::FixedOnScreen;
    if (isFixed) {
        // It keeps its place in the world, and turns against the view.
        kvm::Matrix4 facing = camera.viewRotation().rotationInverse();
        facing.setTranslation(place.translation());
        place.setTranslation({});
        plate.setMatrix(KMOpenGLShaderProgram::ProjMatrix, facing);
        plate.setMatrix(KMOpenGLShaderProgram::MvMatrix, camera.viewProjection());
    } else {
        plate.setCamera(camera);
    }
    const float alpha = qBound(0.0f, values.alpha, 1.0f);
    QSize picture = gProject->textures().at(values.texture)->image().size();
    if (picture.isEmpty()) // it can't be read any more, and what was there stays
        picture = {texture->width(), texture->height()};
    const auto corners = cornersOf(picture, place, alpha);
    if (!writeQuad(*m_blueprint, corners.data(), int(sizeof(KMQuadElement))))
        return;
    const BlendRow &blend = blendRow(values.blend);
    glBlendFuncSeparate(blend.source, blend.destination, GL_ZERO, GL_ONE); // windows stay opaque
    plate.setUniformValue("mode", isFixed ? 1 : 0);
    plate.setUniformValue("blend", blend.blend);
    plate.setUniformValue("alpha", alpha);
    plate.setUniformValue("texture", 0);
    texture->bind(0);
    drawElements(*m_blueprint, quadLayout, GL_TRIANGLES);
}
