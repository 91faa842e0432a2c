// What an anchor costs: the weighing of a waved grid by 60 boxes, and a dab of the brush below an anchor and a
// deformation by bones, beside plain loops over flat arrays with the same arithmetic.

#include "core/KMHeadlessSession.h"
#include "measure.h"
#include "rig/KMAnchorWeigher.h"
#include "rig/KMAnchorWeights.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMWeightEdit.h"

#include <array>
#include <memory>
#include <numeric>
#include <vector>

namespace {

using kvm::Vector3;

constexpr int boneCount = 60;
constexpr int bonesInRow = 6;
constexpr float boneLength = 24.0f;
constexpr float rowWidth = 14.0f; // so that boxes reach all between their rows
constexpr float marginShare = 0.25f;

/// A grid of some 20,000 vertices is within the reach of the boxes, a larger one in part.
struct Scene
{
    explicit Scene(int quads)
        : tag(new KMTagBoneWeight)
    {
        addGrid(mesh, quads, [](float i, float j) { return Vector3(i, 2.0f * std::sin(i * 0.2f), j); });
        mesh.addTagKeepName(tag);
        for (int i = 0; i < boneCount; ++i) {
            // Off the grid, so that no vertex is as near to two boxes.
            const Vector3 head(float(i % bonesInRow) * boneLength + 0.37f, 0, float(i / bonesInRow) * rowWidth + 0.29f);
            bones[size_t(i)].setRest(restBone(head, head + Vector3(boneLength, 0, 0)));
            anchors << anchor.makeHelper(&bones[size_t(i)]);
        }
    }
    ~Scene() { mesh.linkChain({}); }

    KMHeadlessSession session;
    std::array<KMBone, boneCount> bones;
    KMMeshNode mesh;
    KMTagBoneWeight *tag; // of the mesh
    KMModAnchorNode anchor;
    KMModBoneDeformNode deform;
    KMModAnchorNode::Anchors anchors;
};

/// From nothing but the helpers, with what is built to search them.
struct Weighing
{
    explicit Weighing(Scene &scene)
        : mesh(scene.mesh)
        , map(scene.mesh.vertexCount())
    {
        std::iota(map.begin(), map.end(), 0);
        for (const KMModAnchorNode::Anchor &anchor : std::as_const(scene.anchors))
            helpers << anchor.get();
    }
    void prepare()
    {
        tag.clearEntries();
        weigher.setHelpers(nullptr);
    }
    void operator()()
    {
        weigher.setHelpers(
            std::make_unique<KMAnchorWeights>(helpers, KMAnchorWeights::NearestFace, KMAnchorWeights::Reach::InBoxes));
        weigher.weigh(mesh, map, tag);
    }

    KMMeshNode &mesh;
    QVector<int> map;
    QList<KMDisplayAnchorNode *> helpers;
    KMAnchorWeigher weigher;
    KMTagBoneWeight tag;
};

struct PlainTriangle
{
    Vector3 p[3];
};

struct PlainHelper
{
    std::vector<PlainTriangle> triangles;
    Vector3 low{1e9f, 1e9f, 1e9f}, high{-1e9f, -1e9f, -1e9f};
    float margin = 0.0f;
};

PlainHelper plainOf(const KMMeshNode &mesh)
{
    PlainHelper helper;
    for (const KMFace *face : mesh.faces()) {
        const auto at = [&](int c) { return mesh.position(face->indices[c]); };
        helper.triangles.push_back({{at(0), at(1), at(2)}});
        helper.triangles.push_back({{at(2), at(3), at(0)}});
    }
    for (const KMVertex *vertex : mesh.vertices()) {
        for (int k = 0; k < 3; ++k) {
            helper.low[k] = std::min(helper.low[k], vertex->pos[k]);
            helper.high[k] = std::max(helper.high[k], vertex->pos[k]);
        }
    }
    const Vector3 size = helper.high - helper.low;
    helper.margin = marginShare * std::max({size.x, size.y, size.z});
    return helper;
}

bool isInside(const PlainTriangle &t, const Vector3 &point, const Vector3 &normal, float area2, float *weights)
{
    for (int i = 0; i < 3; ++i) {
        const Vector3 &a = t.p[(i + 1) % 3];
        weights[i] = dot(cross(t.p[(i + 2) % 3] - a, point - a), normal) / area2;
        if (weights[i] < 0.0f)
            return false;
    }
    return true;
}

/// Squared, with the weights of the corners at the nearest point.
float distance2(const PlainTriangle &t, const Vector3 &point, float *weights)
{
    const Vector3 normal = cross(t.p[1] - t.p[0], t.p[2] - t.p[0]);
    if (isInside(t, point, normal, normal.lengthSquared(), weights))
        return (point - (t.p[0] * weights[0] + t.p[1] * weights[1] + t.p[2] * weights[2])).lengthSquared();
    float best = 1e30f;
    for (int i = 0; i < 3; ++i) {
        const int j = (i + 1) % 3;
        const Vector3 side = t.p[j] - t.p[i];
        const float s = std::clamp(dot(point - t.p[i], side) / side.lengthSquared(), 0.0f, 1.0f);
        const float found = (point - (t.p[i] * (1.0f - s) + t.p[j] * s)).lengthSquared();
        if (found >= best)
            continue;
        best = found;
        weights[i] = 1.0f - s;
        weights[j] = s;
        weights[(i + 2) % 3] = 0.0f;
    }
    return best;
}

struct PlainShare
{
    int bone = -1; ///< no box reaches the place
    float weight = 0.0f;
};

/// The box of each bone has no other bone's weights.
PlainShare plainShare(const std::vector<PlainHelper> &helpers, const Vector3 &place)
{
    PlainShare share;
    float best = 1e30f;
    for (size_t h = 0; h < helpers.size(); ++h) {
        const PlainHelper &helper = helpers[h];
        float outside2 = 0.0f;
        bool isReached = true;
        for (int k = 0; k < 3; ++k) {
            const float outside = std::max({helper.low[k] - place[k], place[k] - helper.high[k], 0.0f});
            isReached = isReached && outside <= helper.margin;
            outside2 += outside * outside;
        }
        if (!isReached || outside2 > best)
            continue;
        for (const PlainTriangle &triangle : helper.triangles) {
            float weights[3];
            const float found = distance2(triangle, place, weights);
            if (found < best) {
                best = found;
                share = {int(h), weights[0] + weights[1] + weights[2]};
            }
        }
    }
    return share;
}

void weighing(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    Weighing ours(scene);
    std::vector<PlainHelper> helpers;
    for (const KMModAnchorNode::Anchor &anchor : std::as_const(scene.anchors))
        helpers.push_back(plainOf(*anchor->mesh()));
    std::vector<Vector3> places;
    for (const KMVertex *vertex : scene.mesh.vertices())
        places.push_back(vertex->pos);
    std::vector<PlainShare> shares(places.size());
    const auto plain = [&] {
        for (size_t i = 0; i < places.size(); ++i)
            shares[i] = plainShare(helpers, places[i]);
        benchmark::DoNotOptimize(shares.data());
    };
    measure(state, ours, plain);
    int reached = 0, same = 0;
    for (size_t i = 0; i < shares.size(); ++i) {
        reached += shares[i].bone >= 0;
        same += shares[i].bone >= 0 ? ours.tag.weight(int(i), &scene.bones[size_t(shares[i].bone)]) > 0.99f
                                    : ours.tag.lists().of(int(i)).isEmpty();
    }
    state.counters["vertices"] = scene.mesh.vertexCount();
    state.counters["reached"] = reached;
    if (same != scene.mesh.vertexCount())
        state.SkipWithError("other weights than the plain loop's");
}

/// The weights of 2,000 vertices all over the mesh, and what follows from them up to the places in the result. Beside
/// it the plain blend of as many.
void dab(benchmark::State &state)
{
    constexpr int painted = 2000;
    Scene scene(int(state.range(0)));
    const int count = scene.mesh.vertexCount();
    QVector<int> vertices;
    for (int v = 0; v < count; ++v) {
        scene.tag->addEntry({v, 0.4f, &scene.bones[0]});
        scene.tag->addEntry({v, 0.6f, &scene.bones[1]});
        if (v < painted)
            vertices.append(v * (count / painted));
    }
    scene.anchor.setAnchors(scene.anchors);
    scene.mesh.linkChain({{true, &scene.anchor}, {true, &scene.deform}});
    scene.mesh.refreshMesh(KMMeshDirty::All);
    scene.mesh.notifyDependents();
    float weight = 0.5f;
    bool follows = true;
    const auto ours = [&] {
        weight = 1.0f - weight * 0.9f;
        KMWeightEdit edit(scene.tag);
        for (const int v : std::as_const(vertices))
            edit.setWeight(v, &scene.bones[0], weight);
        edit.write(KMWeightEdit::Side::After);
        follows = scene.anchor.followWeights(vertices) && follows;
    };
    const kvm::Matrix4 skins[] = {scene.bones[0].skinMatrix(), scene.bones[1].skinMatrix()};
    std::vector<Vector3> rest, moved(painted);
    for (const int v : std::as_const(vertices))
        rest.push_back(scene.mesh.position(v));
    const auto plain = [&] {
        for (size_t i = 0; i < rest.size(); ++i)
            moved[i] = (skins[0] * rest[i]) * weight + (skins[1] * rest[i]) * (1.0f - weight);
        benchmark::DoNotOptimize(moved.data());
    };
    measure(state, ours, plain, 25);
    state.counters["reached"] =
        double(std::count_if(vertices.begin(), vertices.end(), [&](int v) { return scene.anchor.reaches(v); }));
    if (!follows)
        state.SkipWithError("a whole stage is made anew");
}

const bool registered = [] {
    benchmark::RegisterBenchmark("anchor/weigh by 60 boxes", &weighing)
        ->Arg(20000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    benchmark::RegisterBenchmark("anchor/brush below an anchor", &dab)
        ->Arg(100000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    return true;
}();

} // namespace
