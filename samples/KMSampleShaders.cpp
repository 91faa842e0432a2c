#include "KMSampleShaders.h"

#include "KMSampleTextures.h"
#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMProject.h"

namespace {

constexpr int unlit = 1; // lighting model of what has no toon
constexpr int none = -1;

/// A material. What has no toon is drawn as it is, without light.
struct Row
{
    const char *name;
    QRgb color;
    int picture;
    int toon;
    QRgb outline; ///< 0 for none
};

constexpr Row rows[KMSampleShaders::ShaderCount] = {
    {"Skin", 0xffe9d9, none, KMSampleTextures::SkinToon, 0xff8a4a40},
    {"Face", 0xffffff, KMSampleTextures::SkinPicture, KMSampleTextures::SkinToon, 0xff8a4a40},
    {"Mouth", 0xa83c46, none, none, 0},
    {"Eye White", 0xffffff, KMSampleTextures::WhitePicture, none, 0},
    {"Iris", 0xffffff, KMSampleTextures::IrisPicture, none, 0},
    {"Lash", 0x4a2a2c, none, none, 0},
    {"Brow", 0x8c5244, none, none, 0},
    {"Hair", 0xffffff, KMSampleTextures::HairPicture, KMSampleTextures::ClothToon, 0xff5a2c28},
    {"Jacket", 0xffffff, KMSampleTextures::JacketPicture, KMSampleTextures::ClothToon, 0xff141c30},
    {"Collar", 0xf7f5f8, none, KMSampleTextures::ClothToon, 0xff4c4a60},
    {"Bow", 0xe0525a, none, KMSampleTextures::ClothToon, 0xff601c28},
    {"Skirt", 0xffffff, KMSampleTextures::SkirtPicture, KMSampleTextures::ClothToon, 0xff141c30},
    {"Sock", 0x3a3c4c, none, KMSampleTextures::ClothToon, 0xff14141e},
    {"Shoe", 0x7a4634, none, KMSampleTextures::ClothToon, 0xff2c140e},
};

/// Diffuse and ambient share the colour as players and this program add them up.
KMBasicShader valuesOf(const Row &row)
{
    constexpr int brightness = 84; // percent, of the diffuse colour
    KMBasicShader values;
    const QColor color(row.color);
    const auto share = [&color](int percent) {
        return QColor(color.red() * percent / 100, color.green() * percent / 100, color.blue() * percent / 100);
    };
    const bool isLit = row.toon != none;
    values.diffuse = isLit ? share(brightness) : share(60);
    values.ambient = share(isLit ? 100 - brightness : 40);
    values.specular = QColor(0, 0, 0);
    values.textures[KMBasicShader::Diffuse] = row.picture;
    values.textures[KMBasicShader::Toon] = row.toon;
    values.shaderType = isLit ? 0 : unlit;
    values.outlineEnabled = row.outline != 0;
    values.outlineColor = QColor::fromRgba(row.outline | 0xff000000);
    values.outlineSize = 1.0f;
    return values;
}

} // namespace

void KMSampleShaders::addToDocument()
{
    for (int texture = 0; texture < KMSampleTextures::TextureCount; ++texture)
        gProject->addTextureFile(KMSampleTextures::path(texture));
    for (const Row &row : rows) {
        auto *shader = new KMBasicShaderNode;
        shader->setName(QLatin1String(row.name));
        shader->setValues(valuesOf(row));
        gProject->addToScene(shader, KMProject::Naming::Keep);
    }
}
