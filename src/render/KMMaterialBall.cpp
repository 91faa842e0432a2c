#include "render/KMMaterialBall.h"

#include "render/KMBufferMap.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderer.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr int rings = 24;
constexpr int sectors = 48;
constexpr float radius = 100.0f;
constexpr float rim = 1.06f; // room around the ball

KMFaceElement elementAt(int ring, int sector)
{
    const float latitude = float(M_PI) * float(ring) / float(rings);
    const float longitude = 2.0f * float(M_PI) * float(sector) / float(sectors);
    const kvm::Vector3 normal(-std::sin(latitude) * std::sin(longitude), std::cos(latitude),
                              std::sin(latitude) * std::cos(longitude));
    // The front shows the picture once, from its left to its right edge.
    const kvm::Vector2 texcoord(2.0f * float(sector) / float(sectors) - 0.5f, float(ring) / float(rings));
    return {normal * radius, normal, {}, texcoord, 0.0f};
}

} // namespace

bool KMMaterialBall::fill(RenderGroup &group)
{
    constexpr int count = 6 * rings * sectors;
    if (!group.allocate(count, int(sizeof(KMFaceElement)), count))
        return false;
    const KMBufferMap<KMFaceElement> elements(group.vbo);
    const KMBufferMap<quint32> indices(group.ibo);
    if (!elements || !indices)
        return false;
    KMFaceElement *element = elements.data();
    for (int ring = 0; ring < rings; ++ring) {
        for (int sector = 0; sector < sectors; ++sector) {
            const int steps[][2] = {{0, 0}, {1, 0}, {1, 1}, {1, 1}, {0, 1}, {0, 0}};
            for (const auto &step : steps)
                *element++ = elementAt(ring + step[0], sector + step[1]);
        }
    }
    for (int i = 0; i < count; ++i)
        indices.data()[i] = quint32(i);
    group.indexCount = count;
    group.built = true;
    return true;
}

void KMMaterialBall::draw(KMRenderer &renderer, const KMShaderNode *shader, const QSize &size) const
{
    renderer.beginScene();
    renderer.glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
    renderer.glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    KMOpenGLShaderProgram &real = renderer.program(KMShaderPrograms::Real);
    RenderGroup ball;
    if (!fill(ball) || !real.begin())
        return;
    KMCameraNode camera(KMCameraNode::Front);
    camera.resize(size.width(), size.height());
    // The zoom follows the width; in a picture that is wider than high the height is what the ball has to fit into.
    const float aspect = float(size.width()) / float(std::max(size.height(), 1));
    camera.setOrthoZoom(1000.0f / (radius * rim * std::max(aspect, 1.0f)));
    camera.updateMatrices();
    renderer.material().setView(real, camera);
    renderer.material().apply(real, shader, true, false);
    renderer.glEnable(GL_CULL_FACE); // through glass the far side would show in patches
    renderer.glCullFace(GL_BACK);
    renderer.drawElements(ball, faceLayout, GL_TRIANGLES);
    renderer.glDisable(GL_CULL_FACE);
    real.release();
}
