// What it costs to lay the morphs of a mesh on and to take them off, beside a loop over the same displacements that
// knows nothing but the sum.

#include "measure.h"
#include "rig/KMTagMorph.h"

#include <random>
#include <vector>

namespace {

using kvm::Vector3;

constexpr int morphCount = 30;
constexpr int deltasOfEach = 5000;
constexpr int rounds = 25;

float withoutDust(float value)
{
    return value > -1.1920929e-7f && value < 1.1920929e-7f ? 0.0f : value;
}

/// Each morph reaches a run of neighbours, as lids and lips do, or vertices from anywhere.
void morphs(benchmark::State &state, bool fromAnywhere)
{
    KMMeshNode mesh;
    addGrid(mesh, int(state.range(0)), [](float i, float j) { return Vector3(i, 0.0f, j); });
    auto *tag = new KMTagMorph;
    mesh.addTagKeepName(tag);
    std::mt19937 random(7);
    for (int m = 0; m < morphCount; ++m) {
        MorphDeltas deltas;
        const int first = int(random() % uint(mesh.vertexCount() - deltasOfEach));
        for (int d = 0; d < deltasOfEach; ++d) {
            const int vertex = fromAnywhere ? int(random() % uint(mesh.vertexCount())) : first + d;
            deltas.append({vertex, 0.5f, Vector3(0.6f, 0.8f, 0.0f)});
        }
        auto *morph = new KMMorph;
        morph->setValue(0.5f);
        morph->setDeltas(deltas);
        tag->addMorph(morph);
    }
    tag->unapply();
    const auto ours = [tag] {
        tag->apply();
        tag->unapply();
    };
    std::vector<float> offsets(size_t(3 * mesh.vertexCount()));
    const auto addAll = [&](float sign) {
        const float *offset = offsets.data();
        for (KMVertex *vertex : mesh.vertices()) {
            vertex->pos.x += sign * withoutDust(offset[0]);
            vertex->pos.y += sign * withoutDust(offset[1]);
            vertex->pos.z += sign * withoutDust(offset[2]);
            offset += 3;
        }
    };
    const auto plain = [&] {
        std::fill(offsets.begin(), offsets.end(), 0.0f);
        for (const KMMorph *morph : tag->morphs()) {
            for (const MorphDelta &delta : morph->deltas()) {
                float *offset = offsets.data() + 3 * delta.vertex;
                offset[0] += 0.5f * delta.length * delta.direction.x;
                offset[1] += 0.5f * delta.length * delta.direction.y;
                offset[2] += 0.5f * delta.length * delta.direction.z;
            }
        }
        addAll(1.0f);
        addAll(-1.0f);
        benchmark::DoNotOptimize(offsets.data());
    };
    measure(state, ours, plain, rounds);
}

[[maybe_unused]] const bool registered = [] {
    registerSizes("morphs/neighbours", [](benchmark::State &state) { morphs(state, false); });
    registerSizes("morphs/anywhere", [](benchmark::State &state) { morphs(state, true); });
    return true;
}();

} // namespace
