#pragma once

#include <QSize>

class KMRenderer;
class KMShaderNode;
struct RenderGroup;

/// A ball that shows a material, lit from the front as the scene is.
class KMMaterialBall
{
public:
    /// Into what is bound in the current context, which is cleared to nothing first.
    void draw(KMRenderer &renderer, const KMShaderNode *shader, const QSize &size) const;

private:
    static bool fill(RenderGroup &group);
};
