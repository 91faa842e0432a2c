#pragma once

#include "core/KMShaderNode.h"

#include <QColor>

#include <array>

/// The values of a basic shader, all that its page edits and files carry.
struct KMBasicShader
{
    /// What each texture slot is for; the number is its place in the native file.
    enum TextureSlot { Diffuse, Sphere, Normal, Toon, Multi, Reserved, TextureSlotCount };

    QColor diffuse{255, 255, 255, 255};
    QColor specular{0, 0, 0, 255};
    QColor ambient{0, 0, 0, 255};
    QColor emissive{0, 0, 0, 255};
    int shininess = 50; ///< specular exponent, 1 to 1000
    std::array<int, TextureSlotCount> textures{-1, -1, -1,
                                               -1, -1, -1}; ///< indices into KMProject::textures(), -1 for none
    int multiMode = 0;                                      ///< how the second texture is mixed with the first
    int shaderType = 0;                                     ///< lighting model
    QColor outlineColor{0, 0, 0, 255};
    bool outlineEnabled = false;
    float outlineSize = 1.0f; ///< as in PMX edge size
    bool doubleSided = false;
    bool sphereAdd = false; ///< the sphere map is multiplied, not added; the name is older than that

    bool operator==(const KMBasicShader &other) const;
    bool operator!=(const KMBasicShader &other) const { return !(*this == other); }
};

/// The toon material of MMD models.
class KMBasicShaderNode : public KMShaderNode
{
    Q_OBJECT
public:
    KMBasicShaderNode();
    KMBasicShaderNode(const QString &name, const QColor &diffuse);

    const KMBasicShader &values() const { return m_values; }
    void setValues(const KMBasicShader &values) { m_values = values; }
    KMContainerNode *clone() const override;
    QSet<int> textureReferences() const override;

private:
    KMBasicShader m_values;
};
