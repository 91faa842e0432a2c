// What a move of the cage costs in the stages of a chain that keep their topology, beside a plain loop over the same
// positions. Waved grids of quads.

#include "PlainNormals.h"
#include "measure.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModSymNode.h"

#include <cmath>
#include <vector>

namespace {

using kvm::Vector3;

constexpr int rounds = 25; // the best of them counts: other programs may be at work

/// A cage whose vertices are nowhere near the middle, with a stage on it.
template <class Modifier>
struct Stage
{
    explicit Stage(int quads)
        : extent(float(std::sqrt(double(quads))))
    {
        const float reach = extent;
        addGrid(mesh, quads, [reach](float i, float j) {
            return Vector3(i - reach - 1.0f, reach * 0.1f * std::sin(i * 0.3f), j - reach * 0.5f);
        });
    }
    ~Stage() { mesh.linkChain({}); }
    void start()
    {
        mesh.linkChain({{true, &node}});
        mesh.refreshMesh(KMMeshDirty::All);
    }

    float extent;
    KMMeshNode mesh;
    Modifier node;
};

std::vector<Vector3> positionsOf(const KMMeshNode &mesh)
{
    std::vector<Vector3> positions;
    for (const KMVertex *vertex : mesh.vertices())
        positions.push_back(vertex->pos);
    return positions;
}

/// Beside two writes for each vertex: into records as those of the result, or into arrays.
void symmetry(benchmark::State &state, bool besideRecords)
{
    Stage<KMModSymNode> stage(int(state.range(0)));
    stage.start();
    const std::vector<Vector3> from = positionsOf(stage.mesh);
    std::vector<Vector3> to(2 * from.size());
    KMMeshNode records;
    for (size_t i = 0; i < to.size(); ++i)
        records.addVertexRaw({});
    const auto ours = [&] {
        if (stage.node.update())
            state.SkipWithError("the seam changed");
    };
    const auto plain = [&] {
        for (size_t i = 0; i < from.size(); ++i) {
            to[i] = from[i];
            to[i + from.size()] = {-from[i].x, from[i].y, from[i].z};
        }
        benchmark::DoNotOptimize(to.data());
    };
    const auto plainRecords = [&] {
        KMVertex *const *cage = stage.mesh.vertices().constData();
        KMVertex *const *own = records.vertices().constData();
        const int count = stage.mesh.vertexCount();
        for (int i = 0; i < count; ++i) {
            const Vector3 p = cage[i]->pos;
            own[i]->pos = p;
            own[i + count]->pos = {-p.x, p.y, p.z};
        }
        benchmark::DoNotOptimize(own);
    };
    if (besideRecords)
        measure(state, ours, plainRecords, rounds);
    else
        measure(state, ours, plain, rounds);
}

/// The three values of a polynomial of the second degree.
struct Basis
{
    explicit Basis(float t)
        : values{(1 - t) * (1 - t), 2 * t * (1 - t), t * t}
    {
    }
    float values[3];
};

void lattice(benchmark::State &state)
{
    Stage<KMModFFDNode> stage(int(state.range(0)));
    KMModFFDNode::Parameters parameters;
    parameters.size = Vector3(1, 1, 1) * (4 * stage.extent);
    stage.node.setParameters(parameters);
    QVector<Vector3> points = stage.node.controlPoints();
    points[26] += Vector3(3, 2, 1);
    stage.node.setControlPoints(points);
    stage.start();
    const std::vector<Vector3> from = positionsOf(stage.mesh);
    std::vector<Vector3> to(from.size());
    const auto ours = [&] { stage.node.update(); };
    const auto plain = [&] {
        const float scale = 1.0f / parameters.size.x;
        for (size_t v = 0; v < from.size(); ++v) {
            const Basis s(from[v].x * scale + 0.5f), t(from[v].y * scale + 0.5f), u(from[v].z * scale + 0.5f);
            const Vector3 *point = points.constData();
            Vector3 sum;
            for (const float a : s.values) {
                for (const float b : t.values) {
                    for (const float c : u.values)
                        sum += *point++ * (a * b * c);
                }
            }
            to[v] = sum;
        }
        benchmark::DoNotOptimize(to.data());
    };
    measure(state, ours, plain, rounds);
}

template <class Run>
void registerCages(const char *name, Run run)
{
    benchmark::RegisterBenchmark(name, run)->Arg(5000)->Arg(20000)->Arg(200000)->Iterations(1)->UseManualTime()->Unit(
        benchmark::kMillisecond);
}

const bool registered = [] {
    registerCages("modifiers/symmetry, beside records", [](benchmark::State &state) { symmetry(state, true); });
    registerCages("modifiers/symmetry, beside arrays", [](benchmark::State &state) { symmetry(state, false); });
    registerCages("modifiers/lattice", lattice);
    return true;
}();

} // namespace
