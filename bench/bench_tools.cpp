// What one move of the mouse costs in a drag of 1,000 vertices, until the views are to be painted anew, beside a plain
// loop that writes the positions and computes the normals of all faces. Waved grids of quads.

#include "PlainNormals.h"
#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "measure.h"
#include "render/KMCameraNode.h"
#include "tools/KMHandleCode.h"
#include "tools/KMSelectionDrag.h"

#include <cmath>
#include <vector>

namespace {

constexpr int rounds = 15; // the best of them counts: other programs may be at work
constexpr int dragged = 1000;

/// A grid whose first vertices are selected.
class Scene
{
public:
    explicit Scene(int quads, bool symmetric)
        : mesh(new KMMeshNode)
    {
        const float middle = 0.5f * std::sqrt(float(quads));
        addGrid(*mesh, quads, [middle](float i, float j) {
            const float x = i - middle;
            return kvm::Vector3(x, j, 3.0f * std::sin(x * x * 0.1f) * std::cos(j * 0.07f));
        });
        gProject->addNode(mesh);
        gProject->tree()->setCurrentItem(mesh->item());
        mesh->setSelected(true);
        mesh->refreshMesh(KMMeshDirty::All);
        for (int i = 0; i < dragged; ++i)
            mesh->setVertexFlag(i, KMElementFlag::Selected);
        KMEditFilter filter;
        filter.symmetry = symmetric;
        gSolution->setEditFilter(filter);
        camera.resize(1280, 680);
    }

    KMHeadlessSession session;
    KMMeshNode *mesh;
    KMCameraNode camera;
};

void moves(benchmark::State &state, bool symmetric)
{
    Scene scene(int(state.range(0)), symmetric);
    KMHandleDrag::Start start;
    start.code = KMHandleCode::Move;
    start.anchor = scene.mesh->position(0);
    const KMHandleDrag drag(scene.camera, start);
    KMSelectionDrag selection;
    if (!selection.begin({scene.camera, drag}))
        return state.SkipWithError("nothing is dragged");
    double step = 0.0;
    const auto move = [&] { selection.apply(drag.transform(scene.camera, {step += 1.0, 3.0}, false), scene.camera); };
    NormalPass normals(*scene.mesh);
    const auto plain = [&] {
        for (int i = 0; i < dragged; ++i)
            scene.mesh->setPosition(i, scene.mesh->position(i) + kvm::Vector3(0.01f, 0, 0));
        normals();
    };
    measure(state, move, plain, rounds);
}

/// The press of a drag with symmetry, the mesh some twenty pixels wide: most of it lies within the margin of each
/// place.
void mirroredPress(benchmark::State &state)
{
    Scene scene(int(state.range(0)), true);
    KMHandleDrag::Start start;
    start.code = KMHandleCode::Move;
    start.anchor = scene.mesh->position(0);
    scene.camera.setDistance(scene.camera.distance() * std::sqrt(float(state.range(0))) * 0.2f);
    const KMHandleDrag drag(scene.camera, start);
    const auto press = [&] {
        KMSelectionDrag selection;
        selection.begin({scene.camera, drag});
        selection.cancel();
    };
    std::vector<kvm::Vector3> images(size_t(scene.mesh->vertexCount()));
    const auto plain = [&] {
        for (size_t i = 0; i < images.size(); ++i) {
            const kvm::Vector3 &place = scene.mesh->position(int(i));
            images[i] = {-place.x, place.y, place.z};
        }
        benchmark::DoNotOptimize(images.data());
    };
    measure(state, press, plain, 3);
}

const bool registered = [] {
    registerSizes("tools/move of a drag", [](benchmark::State &state) { moves(state, false); });
    registerSizes("tools/move of a drag, mirrored", [](benchmark::State &state) { moves(state, true); });
    registerSizes("tools/press of a drag, mirrored", mirroredPress);
    return true;
}();

} // namespace
