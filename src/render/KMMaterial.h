#pragma once

#include "render/KMTextureCache.h"

#include <QColor>

class KMCameraNode;
class KMOpenGLShaderProgram;
class KMShaderNode;

/// Sets the program of lit faces to a view and to materials, textures included.
class KMMaterial
{
public:
    explicit KMMaterial(KMTextureCache &textures)
        : m_textures(textures)
    {
    }

    /// The light of the scene, before it is strengthened.
    static QColor lightColor() { return {154, 154, 154}; }

    void setView(KMOpenGLShaderProgram &program, const KMCameraNode &camera);
    /// All about a material. A null shader, and one of a kind that isn't drawn, is black.
    void apply(KMOpenGLShaderProgram &program, const KMShaderNode *shader, bool withTextures, bool isFlat);

private:
    int bind(int unit, int textureIndex, KMTextureCache::Wrap wrap);

    KMTextureCache &m_textures;
};
