// What walks over a whole mesh cost beside a plain breadth-first walk from face to face over the same records. Grids of
// quads: the flood reaches all of them, the loops and rings run through all of their rows.

#include "mesh/KMEdgeWalk.h"
#include "mesh/KMFaceFlood.h"
#include "mesh/KMMeshNode.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr int rounds = 7; // the best of them counts: other programs may be at work
constexpr quint8 mark = KMElementFlag::Hot;

double processorSeconds()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return double(now.tv_sec) + 1e-9 * double(now.tv_nsec);
}

std::unique_ptr<KMMeshNode> grid(int quads)
{
    auto mesh = std::make_unique<KMMeshNode>();
    const int side = int(std::lround(std::sqrt(double(quads))));
    const int row = side + 1;
    mesh->reserve(row * row, side * side);
    for (int i = 0; i < row * row; ++i)
        mesh->addVertexRaw({float(i % row), 0.0f, float(i / row)});
    for (int i = 0; i < side * side; ++i) {
        const int first = i / side * row + i % side;
        const int corners[] = {first, first + 1, first + row + 1, first + row};
        mesh->addFaceRaw(4, corners);
    }
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

size_t plainWalk(KMMeshNode &mesh)
{
    std::vector<char> isReached(size_t(mesh.faceCount()));
    std::vector<int> queue{0};
    isReached[0] = 1;
    for (size_t i = 0; i < queue.size(); ++i) {
        const KMFace &face = *mesh.face(queue[i]);
        for (int c = 0; c < face.count; ++c) {
            for (const int f : mesh.findEdge(face.indices[c], face.next(c))->faceRefs) {
                if (!isReached[size_t(f)]) {
                    isReached[size_t(f)] = 1;
                    queue.push_back(f);
                }
            }
        }
    }
    return queue.size();
}

size_t flood(KMMeshNode &mesh)
{
    return size_t(KMFaceFlood::chained(mesh, {0}).size());
}

size_t floodWithStops(KMMeshNode &mesh)
{
    const auto isSelected = [](const KMEdge &edge) { return edge.hasFlag(KMElementFlag::Selected); };
    return size_t(KMFaceFlood::chained(mesh, {0}, isSelected).size());
}

/// From each edge of the first row, along it or across it.
template <class Walk>
size_t throughAllRows(KMMeshNode &mesh, bool isAlong, Walk walk)
{
    const int row = int(std::lround(std::sqrt(double(mesh.vertexCount()))));
    size_t edges = 0;
    for (int i = 0; i + 1 < row; ++i)
        edges += size_t(walk(mesh, isAlong ? mesh.findEdge(i, i + row) : mesh.findEdge(i, i + 1)).size());
    return edges;
}

size_t loops(KMMeshNode &mesh)
{
    return throughAllRows(mesh, true, [](KMMeshNode &m, KMEdge *edge) { return KMEdgeWalk::markLoop(m, edge, mark); });
}

size_t rings(KMMeshNode &mesh)
{
    return throughAllRows(mesh, false, [](KMMeshNode &m, KMEdge *edge) { return KMEdgeWalk::markRing(m, edge, mark); });
}

double secondsOf(KMMeshNode &mesh, size_t (*walk)(KMMeshNode &))
{
    mesh.clearAllEdgeFlags(mark);
    const double start = processorSeconds();
    benchmark::DoNotOptimize(walk(mesh));
    return processorSeconds() - start;
}

template <size_t (*ours)(KMMeshNode &)>
void compare(benchmark::State &state)
{
    const std::unique_ptr<KMMeshNode> mesh = grid(int(state.range(0)));
    double best = 1e9;
    double bestPlain = 1e9;
    for (auto _ : state) {
        for (int round = 0; round < rounds; ++round) {
            best = std::min(best, secondsOf(*mesh, ours));
            bestPlain = std::min(bestPlain, secondsOf(*mesh, &plainWalk));
        }
        state.SetIterationTime(best);
    }
    state.counters["ms"] = best * 1e3;
    state.counters["plain_ms"] = bestPlain * 1e3;
    state.counters["ratio"] = best / bestPlain;
}

void registerSizes(const char *name, void (*run)(benchmark::State &))
{
    benchmark::RegisterBenchmark((std::string("selection/") + name).c_str(), run)
        ->Arg(10000)
        ->Arg(100000)
        ->Arg(1000000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

const bool registered = [] {
    registerSizes("flood", compare<flood>);
    registerSizes("flood with stops", compare<floodWithStops>);
    registerSizes("loops", compare<loops>);
    registerSizes("rings", compare<rings>);
    return true;
}();

} // namespace
