// What the renderer costs the processor, beside plain loops over the same data. Grids of quads.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "measure.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOffscreenView.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"

#include <cmath>
#include <cstring>
#include <vector>

namespace {

using kvm::Vector3;

const QColor grey(127, 127, 127);

/// A document of one grid, painted once.
class Scene
{
public:
    explicit Scene(int quads)
        : mesh(new KMMeshNode)
        , view({320, 240})
    {
        addGrid(*mesh, quads, [](float x, float z) { return Vector3(x, std::sin((x + z) * 0.1f), z); });
        gProject->addToScene(mesh);
        gSolution->setCurrentNode(mesh);
        view.paint(camera, grey);
    }

    KMHeadlessSession session;
    KMMeshNode *mesh; // of the project
    KMCameraNode camera;
    KMOffscreenView view;
};

/// prepareFrame() and finishFrame() with nothing changed. There is nothing to do.
void stillFrame(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const auto ours = [&scene] {
        gRenderer->prepareFrame(scene.camera);
        gRenderer->finishFrame();
    };
    measure(state, ours, [] {});
}

/// All faces after a move of all vertices, beside a copy of the same bytes.
void rewriteFaces(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const KMShareContext context;
    KMRendererMesh &data = KMRendererMesh::of(*scene.mesh);
    size_t bytes = 0;
    for (const auto &group : data.updateFaces(KMFaceStyle()))
        bytes += size_t(group->elementCount) * sizeof(KMFaceElement);
    std::vector<char> from(bytes, 1);
    std::vector<char> to(bytes, 2);
    const auto ours = [&data] {
        data.markDirty(KMMeshDirty::RenderVertices);
        data.updateFaces(KMFaceStyle());
    };
    const auto plain = [&from, &to] {
        std::memcpy(to.data(), from.data(), from.size());
        benchmark::DoNotOptimize(to.data());
    };
    measure(state, ours, plain);
}

/// What a selected vertex costs a view that shows faces, edges and vertices, beside a copy of the colours alone,
/// element by element.
void flagFrame(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const KMShareContext context;
    KMRendererMesh &data = KMRendererMesh::of(*scene.mesh);
    const auto update = [&scene, &data] {
        gRenderer->prepareFrame(scene.camera);
        data.updateFaces(KMFaceStyle());
        data.updateEdges(KMElementStyle());
        data.updatePoints(KMElementStyle());
        gRenderer->finishFrame();
    };
    update();
    size_t faceElements = 0;
    for (const auto &group : data.updateFaces(KMFaceStyle()))
        faceElements += size_t(group->elementCount);
    std::vector<KMFaceElement> faces(faceElements);
    std::vector<KMLineElement> lines(size_t(2 * scene.mesh->edgeCount() + scene.mesh->vertexCount()));
    bool on = false;
    const auto ours = [&] {
        on = !on;
        if (on)
            scene.mesh->setVertexFlag(7, KMElementFlag::Selected);
        else
            scene.mesh->clearVertexFlag(7, KMElementFlag::Selected);
        update();
    };
    const auto plain = [&faces, &lines] {
        for (KMFaceElement &element : faces) {
            element.color = {};
            element.status = 0.0f;
        }
        for (KMLineElement &element : lines) {
            element.color = {};
            element.status = 0.0f;
        }
        benchmark::DoNotOptimize(faces.data());
        benchmark::DoNotOptimize(lines.data());
    };
    measure(state, ours, plain);
}

template <void (*run)(benchmark::State &)>
void withOpenGL(benchmark::State &state)
{
    if (KMRenderer::ensure())
        run(state);
    else
        state.SkipWithError("no OpenGL: it takes a display");
}

const bool registered = [] {
    registerSizes("render/still frame", withOpenGL<stillFrame>);
    registerSizes("render/rewrite faces", withOpenGL<rewriteFaces>);
    registerSizes("render/flag frame", withOpenGL<flagFrame>);
    return true;
}();

} // namespace
