// What one move of the brush for bone weights costs over about 2,000 vertices, until the views are to be painted anew,
// beside a plain loop that finds the same vertices in a list of them and writes their weights. Waved grids of quads,
// each vertex with two bones. The press builds what the moves are found by; it has a row of its own.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "measure.h"
#include "render/KMCameraNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"
#include "tools/KMWeightColors.h"
#include "tools/KMWeightPaintStruct.h"
#include "tools/KMWeightSurface.h"

#include <memory>
#include <vector>

namespace {

constexpr int painted = 2000;

/// A grid that fills the window, and two bones.
class Scene
{
public:
    explicit Scene(int quads)
        : mesh(new KMMeshNode)
        , tag(new KMTagBoneWeight)
    {
        const float middle = 0.5f * std::sqrt(float(quads));
        addGrid(*mesh, quads, [middle](float i, float j) {
            return kvm::Vector3(i - middle, j - middle, std::sin(i * 0.1f) * std::cos(j * 0.07f));
        });
        gProject->addNode(mesh);
        mesh->addTag(tag);
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            tag->addEntry({i, 0.5f, &bones[0]});
            tag->addEntry({i, 0.5f, &bones[1]});
        }
        mesh->refreshMesh(KMMeshDirty::All);
        tag->records();
        camera.resize(1280, 720);
        camera.setDistance(middle * 3.0f);
        camera.updateMatrices();
        gSolution->setCurrentNode(mesh);
        // So wide that the brush covers as many.
        const kvm::Vector3 step = camera.worldToWindow({1, 0, 0}) - camera.worldToWindow({0, 0, 0});
        brush.radius = std::sqrt(float(painted) / 3.14159265f) * step.length();
        centre = {double(camera.worldToWindow({0, 0, 0}).x), double(camera.worldToWindow({0, 0, 0}).y)};
    }

    KMHeadlessSession session;
    KMBone bones[2];
    KMMeshNode *mesh;
    KMTagBoneWeight *tag;
    KMCameraNode camera;
    KMWeightBrush brush;
    QPointF centre;
};

/// A step of a stroke that has not been here before: all vertices are touched for the first time.
struct Step
{
    Scene &scene;
    KMWeightSurface surface{*scene.mesh, scene.camera};
    KMWeightColors colors{false};
    std::unique_ptr<KMWeightPaintStruct> stroke = {};
    int touched = 0;

    void prepare()
    {
        if (stroke)
            stroke->restore();
        stroke = std::make_unique<KMWeightPaintStruct>(*scene.mesh, *scene.tag, scene.brush, &scene.bones[0], nullptr);
        colors.show(scene.mesh, &scene.bones[0]);
        scene.tag->records();
    }
    void operator()()
    {
        QVector<KMWeightPaintStruct::Dab> dabs;
        for (const KMWeightSurface::Near &near : surface.touched(scene.centre, scene.centre, scene.brush.radius, true))
            dabs.append({near.vertex, scene.brush.amountAt(near.distance, 1.0), false});
        const QVector<int> &changed = stroke->paint(dabs);
        colors.change(changed);
        touched = changed.size();
    }
};

void brushStep(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    Step step{scene};
    step.prepare();
    step(); // what hides the vertices is found once for a stroke
    struct Flat
    {
        int vertex;
        float distance;
    };
    std::vector<Flat> near;
    for (const KMWeightSurface::Near &found :
         step.surface.touched(scene.centre, scene.centre, scene.brush.radius, false))
        near.push_back({found.vertex, found.distance});
    std::vector<float> weights(size_t(2 * scene.mesh->vertexCount()), 0.5f);
    const auto plain = [&] {
        for (const Flat &flat : near) {
            float *pair = &weights[size_t(2 * flat.vertex)];
            pair[0] = std::min(1.0f, pair[0] + scene.brush.amountAt(flat.distance, 1.0));
            pair[1] = 1.0f - pair[0];
        }
        benchmark::DoNotOptimize(weights.data());
    };
    measure(state, step, plain, 15);
    state.counters["vertices"] = step.touched;
}

void brushPress(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const auto press = [&] {
        KMWeightSurface surface(*scene.mesh, scene.camera);
        benchmark::DoNotOptimize(surface.touched(scene.centre, scene.centre, scene.brush.radius, true).size());
    };
    std::vector<kvm::Vector3> windows(size_t(scene.mesh->vertexCount()));
    const auto plain = [&] {
        for (size_t i = 0; i < windows.size(); ++i)
            windows[i] = scene.camera.worldToWindow(scene.mesh->position(int(i)));
        benchmark::DoNotOptimize(windows.data());
    };
    measure(state, press, plain, 5);
}

const bool registered = [] {
    registerSizes("brush/move over 2,000 vertices", brushStep);
    registerSizes("brush/press", brushPress);
    return true;
}();

} // namespace
