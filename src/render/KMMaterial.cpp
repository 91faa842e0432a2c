#include "render/KMMaterial.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "math/Quaternion.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLShaderProgram.h"

#include <QOpenGLTexture>
#include <QVector3D>

namespace {

constexpr double lightStrength = 1.65;

enum Unit { DiffuseUnit, SphereUnit, ToonUnit, NormalUnit, MultiUnit };

KMBasicShader black()
{
    KMBasicShader values;
    values.diffuse = values.ambient = values.emissive = values.specular = Qt::black;
    return values;
}

KMBasicShader valuesOf(const KMShaderNode *shader)
{
    if (!shader || shader->type() != KMNodeType::BasicShader)
        return black();
    return static_cast<const KMBasicShaderNode *>(shader)->values();
}

QVector3D strengthened(const QColor &color)
{
    return {float(color.redF() * lightStrength), float(color.greenF() * lightStrength),
            float(color.blueF() * lightStrength)};
}

} // namespace

void KMMaterial::setView(KMOpenGLShaderProgram &program, const KMCameraNode &camera)
{
    using Program = KMOpenGLShaderProgram;
    // By way of a quaternion, so that the place of the view and any scale fall out.
    kvm::Matrix4 rotation;
    rotation.setRotation(kvm::Quaternion::fromMatrix(camera.modelView()));
    program.setCamera(camera);
    program.setMatrix3(Program::NormalMatrix, KMCameraNode::normalMatrix());
    program.setMatrix(Program::RotMatrix, rotation);
    program.setVector(Program::LightPos, camera.lightDirection());
    program.setVector(Program::CameraPos, camera.eye());
    program.setUniformValue("lightCol", strengthened(lightColor()));
}

void KMMaterial::apply(KMOpenGLShaderProgram &program, const KMShaderNode *shader, bool withTextures, bool isFlat)
{
    const KMBasicShader values = valuesOf(shader);
    program.setColor4("diffuse", values.diffuse);
    program.setColor3("ambient", values.ambient);
    program.setColor3("emissive", values.emissive);
    program.setColor3("specular", values.specular);
    program.setUniformValue("shininess", float(values.shininess));
    program.setUniformValue("shader_type", values.shaderType);

    int used[KMBasicShader::TextureSlotCount] = {};
    if (withTextures) {
        const auto texture = [&values](KMBasicShader::TextureSlot slot) { return values.textures.at(size_t(slot)); };
        used[KMBasicShader::Diffuse] = bind(DiffuseUnit, texture(KMBasicShader::Diffuse), KMTextureCache::Repeated);
        used[KMBasicShader::Sphere] = bind(SphereUnit, texture(KMBasicShader::Sphere), KMTextureCache::Repeated);
        used[KMBasicShader::Toon] = bind(ToonUnit, texture(KMBasicShader::Toon), KMTextureCache::Clamped);
        used[KMBasicShader::Normal] = bind(NormalUnit, texture(KMBasicShader::Normal), KMTextureCache::Repeated);
        used[KMBasicShader::Multi] = bind(MultiUnit, texture(KMBasicShader::Multi), KMTextureCache::Repeated);
    }
    const int diffuse = used[KMBasicShader::Diffuse];
    program.setUniformValue("use_texture", diffuse);
    program.setUniformValue("use_sphere", used[KMBasicShader::Sphere] * (values.sphereAdd ? 2 : 1));
    program.setUniformValue("use_toon", used[KMBasicShader::Toon]);
    program.setUniformValue("use_normal", used[KMBasicShader::Normal]);
    program.setUniformValue("use_multi", diffuse * used[KMBasicShader::Multi] * (values.multiMode + 1));
    program.setUniformValue("isflat", isFlat ? diffuse : 0);
    constexpr const char *units[] = {"dif_tex", "sph_tex", "toon_tex", "normal_tex", "multi_tex"};
    for (int unit = DiffuseUnit; unit <= MultiUnit; ++unit)
        program.setUniformValue(units[unit], unit);
}

/// 1 when there is such a texture, else 0 and the unit is left alone.
int KMMaterial::bind(int unit, int textureIndex, KMTextureCache::Wrap wrap)
{
    QOpenGLTexture *texture = textureIndex < 0 ? nullptr : m_textures.texture(textureIndex, wrap);
    if (!texture)
        return 0;
    texture->bind(uint(unit));
    return 1;
}
