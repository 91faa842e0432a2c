// What one move of the mouse costs in a drag of 1,000 vertices, until the views are to be painted anew, beside a plain
// loop that writes the positions and computes the normals of all faces. Waved grids of quads.

#include "PlainNormals.h"
#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "render/KMCameraNode.h"
#include "tools/KMHandleCode.h"
#include "tools/KMSelectionDrag.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <ctime>

namespace {

constexpr int rounds = 15; // the best of them counts: other programs may be at work
constexpr int dragged = 1000;

double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

/// A grid whose first vertices are selected.
class Scene
{
public:
    explicit Scene(int quads, bool symmetric)
        : mesh(new KMMeshNode)
    {
        const int side = int(std::lround(std::sqrt(double(quads))));
        const int row = side + 1;
        mesh->reserve(row * row, side * side);
        for (int i = 0; i < row * row; ++i) {
            const float x = float(i % row) - float(side) / 2;
            const float y = float(i / row);
            mesh->addVertexRaw({x, y, 3.0f * std::sin(x * x * 0.1f) * std::cos(y * 0.07f)});
        }
        for (int i = 0; i < side * side; ++i) {
            const int first = i / side * row + i % side;
            const int corners[] = {first, first + row, first + row + 1, first + 1};
            mesh->addFaceRaw(4, corners);
        }
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
    NormalPass normals(*scene.mesh);
    double best = 1e9;
    double bestPlain = 1e9;
    for (auto _ : state) {
        for (int round = 1; round <= rounds; ++round) {
            double before = processorSeconds();
            selection.apply(drag.transform(scene.camera, {double(round), 3.0}, false), scene.camera);
            best = std::min(best, processorSeconds() - before);
            before = processorSeconds();
            for (int i = 0; i < dragged; ++i)
                scene.mesh->setPosition(i, scene.mesh->position(i) + kvm::Vector3(0.01f, 0, 0));
            normals.run();
            bestPlain = std::min(bestPlain, processorSeconds() - before);
        }
        state.SetIterationTime(best);
    }
    state.counters["us"] = best * 1e6;
    state.counters["plain_us"] = bestPlain * 1e6;
    state.counters["ratio"] = best / bestPlain;
}

const bool registered = [] {
    for (const bool symmetric : {false, true}) {
        benchmark::RegisterBenchmark(symmetric ? "tools/move of a drag, mirrored" : "tools/move of a drag",
                                     [symmetric](benchmark::State &state) { moves(state, symmetric); })
            ->Arg(10000)
            ->Arg(100000)
            ->Arg(1000000)
            ->Iterations(1)
            ->Unit(benchmark::kMicrosecond)
            ->UseManualTime();
    }
    return true;
}();

} // namespace
