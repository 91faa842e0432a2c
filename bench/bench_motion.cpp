// How many frames of a motion the bones follow in a second, without any drawing.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "measure.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"

#include <memory>
#include <vector>

namespace {

using kvm::Quaternion;
using kvm::Vector3;

constexpr int boneCount = 150; // a figure with fingers, hair and skirt
constexpr int lastFrame = 60 * 30;
constexpr int keyDistance = 10;
constexpr int bonesOfAVertex = 4;

/// A grid of so many vertices over chains of ten bones, and a motion of 60 seconds.
struct Dancer
{
    explicit Dancer(int vertices)
        : rig(new KMBoneContainer)
    {
        gProject->addNode(rig);
        for (int i = 0; i < boneCount; ++i) {
            auto *bone = new KMBone;
            bone->setName(QStringLiteral("bone%1").arg(i));
            const Vector3 head(float(i % 10), 0, float(i / 10));
            bone->setRest(restBone(head, head + Vector3(1, 0, 0)));
            rig->attachBone(bone, i % 10 ? bones.back() : nullptr);
            bones.push_back(bone);
        }
        rig->rebuildOrder();
        for (const KMBone *bone : bones)
            addTrack(*bone);
        if (vertices > 0)
            addSkin(vertices);
    }
    ~Dancer()
    {
        if (mesh)
            mesh->linkChain({});
    }

    void addTrack(const KMBone &bone)
    {
        for (int frame = 0; frame <= lastFrame; frame += keyDistance) {
            KMBoneKey key;
            key.name = bone.name();
            key.frameno = quint32(frame);
            key.rotation = Quaternion::fromAxisAngle({0, float(frame % 3), 1}, 0.1f * float(frame % 7));
            for (int c = 0; c < KMBoneKey::CurveCount; ++c)
                key.setCurve(KMBoneKey::Curve(c), {0.16f, 0.16f, 0.84f, 0.84f});
            rig->animation()->setKey(key);
        }
    }
    void addSkin(int vertices)
    {
        mesh = new KMMeshNode;
        auto *tag = new KMTagBoneWeight;
        mesh->addTagKeepName(tag);
        addGrid(*mesh, vertices, [](float i, float j) { return Vector3(i * 0.1f, 0, j * 0.1f); });
        for (int v = 0; v < mesh->vertexCount(); ++v) {
            const int first = v * (boneCount - bonesOfAVertex) / mesh->vertexCount();
            for (int k = 0; k < bonesOfAVertex; ++k)
                tag->addEntry({v, 0.25f, bones[size_t(first + k)]});
        }
        gProject->addNode(mesh);
        deform = std::make_unique<KMModBoneDeformNode>();
        mesh->linkChain({{true, deform.get()}});
        mesh->refreshMesh(KMMeshDirty::All);
    }

    KMHeadlessSession session;
    KMBoneContainer *rig;       // of the project
    KMMeshNode *mesh = nullptr; // of the project
    std::unique_ptr<KMModBoneDeformNode> deform;
    std::vector<KMBone *> bones;
};

/// As the playback moves the frame, and as a view then asks for the skin.
void play(benchmark::State &state)
{
    Dancer dancer(int(state.range(0)));
    double best = 1e9;
    for (auto _ : state) {
        const double start = processorSeconds();
        for (int frame = 0; frame <= lastFrame; ++frame) {
            gProject->setCurrentFrame(frame);
            if (dancer.deform)
                dancer.deform->update();
        }
        best = std::min(best, processorSeconds() - start);
        state.SetIterationTime(best);
    }
    state.counters["frames_a_second"] = (lastFrame + 1) / best;
}

const bool registered = [] {
    for (const int vertices : {0, 3000, 20000})
        benchmark::RegisterBenchmark("motion/60 s, 150 bones, vertices", &play)
            ->Arg(vertices)
            ->Iterations(3)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    return true;
}();

} // namespace
