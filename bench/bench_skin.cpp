// Weights and skinning, beside plain loops over flat arrays with the same arithmetic. A waved grid below a rig of 300
// bones, each pose another one.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "measure.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMWeightEdit.h"

#include <cmath>
#include <vector>

namespace {

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

constexpr int rounds = 25; // the best of them counts: other programs may be at work
constexpr int boneCount = 300;

Quaternion turnOf(int bone, int round)
{
    const Vector3 axis(0.3f, float(bone % 5) - 2.0f, 1.0f);
    return Quaternion::fromAxisAngle(axis, 0.02f * float(bone % 7) + 0.01f * float(round + 1));
}

/// Chains of ten bones along the rows of a grid.
struct Skin
{
    explicit Skin(int quads)
        : rig(new KMBoneContainer)
        , tag(new KMTagBoneWeight)
    {
        const float side = float(std::sqrt(double(quads)));
        addGrid(mesh, quads, [side](float i, float j) { return Vector3(i, side * 0.1f * std::sin(i * 0.3f), j); });
        mesh.addTagKeepName(tag);
        gProject->addNode(rig);
        for (int i = 0; i < boneCount; ++i) {
            auto *bone = new KMBone;
            const Vector3 head(float(i % 10) * side / 10, 0, float(i / 10) * side / 30);
            bone->setRest(restBone(head, head + Vector3(side / 10, 0, 0)));
            rig->attachBone(bone, i % 10 ? bones.back() : nullptr);
            bones.push_back(bone);
        }
        rig->rebuildOrder();
    }
    ~Skin() { mesh.linkChain({}); }

    void weigh(int bonesOfVertex)
    {
        for (int v = 0; v < mesh.vertexCount(); ++v) {
            const int first = v * (boneCount - 5) / mesh.vertexCount();
            for (int k = 0; k < bonesOfVertex; ++k)
                tag->addEntry({v, 1.0f / float(bonesOfVertex + k % 2), bones[size_t(first + k)]});
        }
    }
    void start()
    {
        mesh.linkChain({{true, &deform}});
        mesh.refreshMesh(KMMeshDirty::All);
    }
    void pose(int round)
    {
        for (int i = 0; i < boneCount; ++i) {
            PoseTransform pose;
            pose.rotation = turnOf(i, round);
            bones[size_t(i)]->setKeyPose(pose);
        }
    }

    KMHeadlessSession session;
    KMMeshNode mesh;
    KMModBoneDeformNode deform;
    KMBoneContainer *rig; // of the project
    KMTagBoneWeight *tag; // of the mesh
    std::vector<KMBone *> bones;
};

struct PlainShare
{
    int bone;
    float weight;
};

/// What a plain program would keep.
struct PlainSkin
{
    explicit PlainSkin(const Skin &skin)
        : turns(boneCount)
        , solved(boneCount)
        , worlds(boneCount)
        , skins(boneCount)
    {
        for (const KMBone *bone : skin.bones) {
            heads.push_back(bone->restHead());
            parents.push_back(bone->parentBone() ? bone->parentBone()->boneIndex() : -1);
        }
        const KMWeightRecords &records = skin.tag->records();
        for (int v = 0; v < skin.mesh.vertexCount(); ++v) {
            rest.push_back(skin.mesh.position(v));
            firsts.push_back(int(shares.size()));
            const VertexWeights record = skin.tag->viewOf(records, v);
            for (int i = 0; i < record.count(); ++i)
                shares.push_back({record.bone(i)->boneIndex(), record.weight(i)});
            sdef.push_back({record.sdefC(), record.sdefR0(), record.sdefR1()});
        }
        firsts.push_back(int(shares.size()));
        moved.resize(rest.size());
    }

    void pose()
    {
        for (size_t i = 0; i < boneCount; ++i) {
            const Matrix4 turned = turns[i].toMatrix();
            if (parents[i] < 0) {
                worlds[i] = turned * Matrix4::fromTranslation(heads[i]);
                solved[i] = turns[i];
            } else {
                const size_t parent = size_t(parents[i]);
                worlds[i] = turned * Matrix4::fromTranslation(heads[i] - heads[parent]) * worlds[parent];
                solved[i] = (solved[parent] * turns[i]).normalized();
            }
            skins[i] = Matrix4::fromTranslation(-heads[i]) * worlds[i];
        }
    }
    void linear() { linear(rest.size()); }
    void linear(size_t count)
    {
        for (size_t v = 0; v < count; ++v) {
            const Vector3 p = rest[v];
            Vector3 way;
            for (int s = firsts[v]; s < firsts[v + 1]; ++s)
                way += (skins[size_t(shares[size_t(s)].bone)] * p - p) * shares[size_t(s)].weight;
            moved[v] = p + way;
        }
        benchmark::DoNotOptimize(moved.data());
    }
    void spherical()
    {
        for (size_t v = 0; v < rest.size(); ++v) {
            const PlainShare &a = shares[size_t(firsts[v])], &b = shares[size_t(firsts[v]) + 1];
            const Quaternion &q0 = solved[size_t(a.bone)], &q1 = solved[size_t(b.bone)], &k = turns[size_t(b.bone)];
            const Vector3 &c = sdef[v].c;
            const Vector3 between = q1.rotate(sdef[v].r0) * b.weight + q0.rotate(sdef[v].r1) * a.weight;
            const Vector3 centre =
                c + (skins[size_t(a.bone)] * c - c) * a.weight + (skins[size_t(b.bone)] * c - c) * b.weight;
            const Quaternion one;
            const Quaternion n = dot(one, k) >= 0 ? one + (k + -one) * b.weight : one + (k + one) * -b.weight;
            moved[v] = (q0 * n.normalized()).normalized().rotate(rest[v] - c) + (between + centre + centre) * 0.5f;
        }
        benchmark::DoNotOptimize(moved.data());
    }

    struct Sdef
    {
        Vector3 c, r0, r1;
    };
    std::vector<Quaternion> turns, solved;
    std::vector<Matrix4> worlds, skins;
    std::vector<Vector3> heads, rest, moved;
    std::vector<int> parents, firsts;
    std::vector<PlainShare> shares;
    std::vector<Sdef> sdef;
};

template <class Blend>
void skinning(benchmark::State &state, Skin &skin, Blend blend)
{
    skin.start();
    PlainSkin plain(skin);
    struct Ours
    {
        void prepare() { skin.pose(round++); }
        void operator()()
        {
            skin.rig->animation()->reevaluate();
            skin.deform.update();
        }
        Skin &skin;
        int round;
    } ours{skin, 0};
    struct Plain
    {
        void prepare()
        {
            for (int i = 0; i < boneCount; ++i)
                skin.turns[size_t(i)] = turnOf(i, round);
            ++round;
        }
        void operator()()
        {
            skin.pose();
            blend(skin);
        }
        PlainSkin &skin;
        Blend blend;
        int round;
    } bare{plain, blend, 0};
    measure(state, ours, bare, rounds);
    double worst = 0;
    for (int v = 0; v < skin.mesh.vertexCount(); ++v)
        worst = std::max(worst, double((skin.deform.modMesh()->position(v) - plain.moved[size_t(v)]).length()));
    if (!(worst < 1e-2))
        state.SkipWithError("the two differ");
}

void linear(benchmark::State &state)
{
    Skin skin(int(state.range(0)));
    skin.weigh(4);
    skinning(state, skin, [](PlainSkin &plain) { plain.linear(); });
}

void spherical(benchmark::State &state)
{
    Skin skin(int(state.range(0)));
    for (int v = 0; v < skin.mesh.vertexCount(); ++v) {
        const int bone = v * boneCount / skin.mesh.vertexCount() / 10 * 10 + v % 9;
        skin.tag->addEntry({v, 0.4f, skin.bones[size_t(bone)]});
        skin.tag->addEntry({v, 0.6f, skin.bones[size_t(bone) + 1]});
        skin.tag->setSdefFlag(v, true);
    }
    skinning(state, skin, [](PlainSkin &plain) { plain.spherical(); });
}

/// Beside a pass that fills two lists for each vertex.
void records(benchmark::State &state, bool withSdef)
{
    Skin skin(int(state.range(0)));
    skin.weigh(3);
    if (withSdef) {
        for (int v = 0; v < skin.mesh.vertexCount(); ++v) {
            if (v % 5)
                continue;
            skin.tag->removeEntry(v, skin.tag->entriesOf(v).last().bone);
            skin.tag->setSdefFlag(v, true);
        }
    }
    const QVector<BoneWeightEntry> entries = skin.tag->entries();
    struct Lists
    {
        QList<float> weights;
        QList<KMBone *> bones;
    };
    const auto ours = [&] {
        skin.tag->markDirty();
        skin.tag->rebuildWeights(KMMeshDirty::All);
        benchmark::DoNotOptimize(&skin.tag->records());
    };
    const auto plain = [&] {
        std::vector<Lists> lists(size_t(skin.mesh.vertexCount()));
        for (const BoneWeightEntry &entry : entries) {
            lists[size_t(entry.vertex)].weights.append(entry.weight);
            lists[size_t(entry.vertex)].bones.append(entry.bone);
        }
        benchmark::DoNotOptimize(lists.data());
    };
    measure(state, ours, plain);
}

/// What the weights of 2,000 vertices cost to write, their records, and their places in the result of the deformation,
/// which the brush asks for with each of its moves. Every other one is blended spherically. Beside two written floats
/// each and the plain blend of as many.
void brush(benchmark::State &state)
{
    constexpr int reached = 2000;
    Skin skin(int(state.range(0)));
    QVector<int> vertices;
    for (int v = 0; v < skin.mesh.vertexCount(); ++v) {
        const int bone = v * boneCount / skin.mesh.vertexCount() / 10 * 10 + v % 9;
        skin.tag->addEntry({v, 0.4f, skin.bones[size_t(bone)]});
        skin.tag->addEntry({v, 0.6f, skin.bones[size_t(bone) + 1]});
        skin.tag->setSdefFlag(v, v % 2);
        if (v < reached)
            vertices.append(v * (skin.mesh.vertexCount() / reached) | (v & 1));
    }
    skin.start();
    skin.pose(1);
    skin.rig->animation()->reevaluate();
    skin.deform.update();
    float weight = 0.5f;
    bool follows = true;
    const auto ours = [&] {
        weight = 1.0f - weight * 0.9f;
        KMWeightEdit edit(skin.tag);
        for (int v : std::as_const(vertices))
            edit.setWeight(v, skin.tag->entriesOf(v).first().bone, weight);
        edit.write(KMWeightEdit::Side::After);
        follows = skin.deform.followWeights(vertices) && follows;
    };
    PlainSkin flat(skin);
    const auto plain = [&] { flat.linear(reached); };
    measure(state, ours, plain, rounds);
    if (!follows)
        state.SkipWithError("the whole stage is made anew");
}

void once(const char *name, void (*run)(benchmark::State &), int vertices)
{
    benchmark::RegisterBenchmark(name, run)
        ->Arg(vertices)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

const bool registered = [] {
    once("skin/pose and linear blend", &linear, 100000);
    once("skin/pose and spherical blend", &spherical, 20000);
    once(
        "skin/records", [](benchmark::State &state) { records(state, false); }, 100000);
    once(
        "skin/records, every fifth vertex spherical", [](benchmark::State &state) { records(state, true); }, 100000);
    once("skin/brush below a deformation", &brush, 100000);
    return true;
}();

} // namespace
