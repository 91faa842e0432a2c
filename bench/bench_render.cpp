// What the renderer costs the processor, beside plain loops over the same data. Grids of quads.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMBufferMap.h"
#include "render/KMCameraNode.h"
#include "render/KMOffscreenView.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

namespace {

using kvm::Vector3;

constexpr int rounds = 7; // the best of them counts: other programs may be at work
const QColor grey(127, 127, 127);

double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

/// A document of one grid, painted once.
class Scene
{
public:
    explicit Scene(int quads)
        : mesh(new KMMeshNode)
        , view({320, 240})
    {
        const int side = int(std::lround(std::sqrt(double(quads))));
        const int row = side + 1;
        mesh->reserve(row * row, side * side);
        for (int i = 0; i < row * row; ++i)
            mesh->addVertexRaw({float(i % row), std::sin(float(i) * 0.1f), float(i / row)});
        for (int i = 0; i < side * side; ++i) {
            const int first = i / side * row + i % side;
            const int corners[] = {first, first + 1, first + row + 1, first + row};
            mesh->addFaceRaw(4, corners);
        }
        gProject->addToScene(mesh);
        gSolution->setCurrentNode(mesh);
        view.paint(camera, grey);
    }

    KMHeadlessSession session;
    KMMeshNode *mesh; // of the project
    KMCameraNode camera;
    KMOffscreenView view;
};

template <class Work>
double bestOf(Work work)
{
    double best = 1e9;
    for (int round = 0; round < rounds; ++round) {
        const double start = processorSeconds();
        work();
        best = std::min(best, processorSeconds() - start);
    }
    return best;
}

void report(benchmark::State &state, double ours, double plain)
{
    state.SetIterationTime(ours);
    state.counters["ms"] = ours * 1e3;
    state.counters["plain_ms"] = plain * 1e3;
    state.counters["ratio"] = plain > 0.0 ? ours / plain : 0.0;
}

/// prepareFrame() and finishFrame() with nothing changed.
void stillFrame(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    for (auto _ : state) {
        const double ours = bestOf([&scene] {
            gRenderer->prepareFrame(scene.camera);
            gRenderer->finishFrame();
        });
        report(state, ours, 0.0);
    }
}

/// Screen positions of all vertices, beside the same arithmetic over arrays.
void project(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    std::vector<Vector3> points;
    for (const KMVertex *vertex : scene.mesh->liveVertices())
        points.push_back(vertex->pos);
    std::vector<Vector3> projected(points.size());
    const kvm::Matrix4 matrix = scene.camera.viewProjection();
    for (auto _ : state) {
        const double ours = bestOf([&] { scene.mesh->projectVertices(matrix, 320, 240); });
        const double plain = bestOf([&] {
            for (size_t i = 0; i < points.size(); ++i) {
                const kvm::Vector4 clip = matrix * kvm::Vector4(points[i], 1.0f);
                const float w = std::fabs(clip.w);
                projected[i] = {(clip.x / w + 1.0f) * 160.0f, (1.0f - clip.y / w) * 120.0f, clip.z / clip.w};
            }
            benchmark::DoNotOptimize(projected.data());
        });
        report(state, ours, plain);
    }
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
    for (auto _ : state) {
        const double ours = bestOf([&] {
            data.markDirty(KMMeshDirty::RenderVertices);
            data.updateFaces(KMFaceStyle());
        });
        const double plain = bestOf([&] {
            std::memcpy(to.data(), from.data(), bytes);
            benchmark::DoNotOptimize(to.data());
        });
        report(state, ours, plain);
    }
}

template <void (*run)(benchmark::State &)>
void withOpenGL(benchmark::State &state)
{
    if (KMRenderer::ensure())
        run(state);
    else
        state.SkipWithError("no OpenGL: it takes a display");
}

void registerSizes(const char *name, void (*run)(benchmark::State &))
{
    benchmark::RegisterBenchmark((std::string("render/") + name).c_str(), run)
        ->Arg(10000)
        ->Arg(100000)
        ->Arg(1000000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

const bool registered = [] {
    registerSizes("still frame", withOpenGL<stillFrame>);
    registerSizes("project", withOpenGL<project>);
    registerSizes("rewrite faces", withOpenGL<rewriteFaces>);
    return true;
}();

} // namespace
