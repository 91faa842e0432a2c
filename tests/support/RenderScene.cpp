#include "support/RenderScene.h"

#include "core/KMEmbeddedTextureNode.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveNode.h"
#include "render/KMViewFilter.h"

namespace {

/// What is new is selected and active; a test chooses for itself.
void release(KMContainerNode *node)
{
    node->setSelected(false);
    gSolution->setCurrentNode(nullptr);
}

} // namespace

RenderScene::RenderScene(const QSize &size)
    : view(size)
{
    gSettings->gradBG = -1;
    gSettings->glSamples = 0;
    KMViewFilter::reset();
}

KMMeshNode *RenderScene::add(KMMeshNode *mesh)
{
    gProject->addToScene(mesh);
    release(mesh);
    return mesh;
}

KMPrimitiveNode *RenderScene::add(KMPrimitiveNode *primitive, const kvm::Vector3 &place)
{
    gProject->addToScene(primitive);
    release(primitive);
    KMTransform transform;
    transform.translation = place;
    primitive->setTransform(transform);
    return primitive;
}

int RenderScene::addShader(const KMBasicShader &values)
{
    auto *shader = new KMBasicShaderNode;
    shader->setValues(values);
    gProject->addToScene(shader);
    return gProject->shaders().indexOf(shader);
}

int RenderScene::addTexture(const QImage &picture)
{
    auto *texture = new KMEmbeddedTextureNode;
    texture->setImage(picture);
    gProject->addToScene(texture);
    return gProject->textures().indexOf(texture);
}

void RenderScene::setFilter(int filter, bool on)
{
    KMSolution::ViewFlags flags = gSolution->viewFlags();
    flags.at(size_t(filter)) = on;
    gSolution->setViewFlags(flags);
}
