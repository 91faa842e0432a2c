// Subdivision at level 2 beside the same work on bare arrays and plain records.

#include "core/KMHeadlessSession.h"
#include "measure.h"
#include "modifiers/KMModSdvNode.h"

#include <opensubdiv/far/primvarRefiner.h>
#include <opensubdiv/far/stencilTableFactory.h>
#include <opensubdiv/far/topologyDescriptor.h>

#include <cmath>
#include <memory>
#include <vector>

namespace {

namespace Far = OpenSubdiv::Far;
namespace Sdc = OpenSubdiv::Sdc;

constexpr int levels = 2;
constexpr int rounds = 9;

struct Point
{
    float x = 0.0f, y = 0.0f, z = 0.0f;

    void Clear(void * = nullptr) { x = y = z = 0.0f; }
    void AddWithWeight(const Point &other, float weight)
    {
        x += weight * other.x;
        y += weight * other.y;
        z += weight * other.z;
    }
};

/// A waved grid with a UV for each vertex.
class Scene
{
public:
    explicit Scene(int quads)
    {
        addGrid(mesh, quads,
                [](float i, float j) { return kvm::Vector3(i, j, 3.0f * std::sin(i * 0.3f) * std::cos(j * 0.07f)); });
        for (KMFace *face : mesh.faces()) {
            for (int c = 0; c < 4; ++c)
                face->uvs[c] = {mesh.position(face->indices[c]).x, mesh.position(face->indices[c]).y};
        }
        mesh.linkChain({{true, &node}});
        mesh.refreshMesh(KMMeshDirty::All);
        for (const KMVertex *vertex : mesh.vertices()) {
            points.push_back({vertex->pos.x, vertex->pos.y, vertex->pos.z});
            uvs.push_back({vertex->pos.x, vertex->pos.y, 0.0f});
        }
        for (const KMFace *face : mesh.faces()) {
            counts.push_back(face->count);
            corners.insert(corners.end(), face->indices, face->indices + face->count);
        }
    }

    std::unique_ptr<Far::TopologyRefiner> refiner()
    {
        Far::TopologyDescriptor::FVarChannel channel;
        channel.numValues = int(uvs.size());
        channel.valueIndices = corners.data();
        Far::TopologyDescriptor descriptor;
        descriptor.numVertices = int(points.size());
        descriptor.numFaces = int(counts.size());
        descriptor.numVertsPerFace = counts.data();
        descriptor.vertIndicesPerFace = corners.data();
        descriptor.numFVarChannels = 1;
        descriptor.fvarChannels = &channel;
        Sdc::Options options;
        options.SetVtxBoundaryInterpolation(Sdc::Options::VTX_BOUNDARY_EDGE_ONLY);
        options.SetCreasingMethod(Sdc::Options::CREASE_CHAIKIN);
        options.SetTriangleSubdivision(Sdc::Options::TRI_SUB_SMOOTH);
        using Factory = Far::TopologyRefinerFactory<Far::TopologyDescriptor>;
        std::unique_ptr<Far::TopologyRefiner> made(
            Factory::Create(descriptor, Factory::Options(Sdc::SCHEME_CATMARK, options)));
        Far::TopologyRefiner::UniformOptions uniform(levels);
        uniform.fullTopologyInLastLevel = true;
        made->RefineUniform(uniform);
        return made;
    }

    static std::unique_ptr<const Far::StencilTable> table(const Far::TopologyRefiner &refiner)
    {
        Far::StencilTableFactory::Options options;
        options.generateOffsets = true;
        options.generateIntermediateLevels = false;
        options.maxLevel = levels;
        return std::unique_ptr<const Far::StencilTable>(Far::StencilTableFactory::Create(refiner, options));
    }

    KMHeadlessSession session;
    KMMeshNode mesh;
    KMModSdvNode node;
    std::vector<Point> points;
    std::vector<Point> uvs;
    std::vector<int> counts;
    std::vector<int> corners;
};

void update(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const auto refiner = scene.refiner();
    const auto table = Scene::table(*refiner);
    std::vector<Point> fine(size_t(table->GetNumStencils()));
    const auto ours = [&] { scene.node.update(); };
    const auto plain = [&] {
        table->UpdateValues(scene.points.data(), fine.data());
        benchmark::DoNotOptimize(fine.data());
    };
    measure(state, ours, plain, rounds);
}

/// Refines, makes the table of the vertices and fills a mesh, which is emptied first as ours is.
class PlainRebuild
{
public:
    explicit PlainRebuild(Scene &scene)
        : m_scene(scene)
    {
    }
    void operator()()
    {
        m_result.clearGeometry();
        const auto refiner = m_scene.refiner();
        m_table = Scene::table(*refiner);
        const Far::PrimvarRefiner primvar(*refiner);
        std::vector<Point> uvs = m_scene.uvs;
        for (int level = 1; level <= levels; ++level) {
            std::vector<Point> fine(size_t(refiner->GetLevel(level).GetNumFVarValues(0)));
            primvar.InterpolateFaceVarying(level, uvs, fine);
            uvs = std::move(fine);
        }
        std::vector<Point> points(size_t(m_table->GetNumStencils()));
        m_table->UpdateValues(m_scene.points.data(), points.data());
        fill(refiner->GetLevel(levels), points, uvs);
    }

private:
    void fill(const Far::TopologyLevel &last, const std::vector<Point> &points, const std::vector<Point> &uvs)
    {
        m_result.reserve(last.GetNumVertices(), last.GetNumFaces());
        for (const Point &point : points)
            m_result.addVertexRaw({point.x, point.y, point.z});
        for (int f = 0; f < last.GetNumFaces(); ++f) {
            KMFace &face = *m_result.face(m_result.addFaceRaw(4, last.GetFaceVertices(f).begin()));
            const Far::ConstIndexArray values = last.GetFaceFVarValues(f);
            for (int c = 0; c < 4; ++c)
                face.uvs[c] = {uvs[size_t(values[c])].x, uvs[size_t(values[c])].y};
        }
    }

    Scene &m_scene;
    KMMeshNode m_result;
    std::unique_ptr<const Far::StencilTable> m_table;
};

void rebuild(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    const auto ours = [&] { scene.node.rebuild(); };
    PlainRebuild plain(scene);
    measure(state, ours, plain, rounds);
}

void registerCages(const char *name, void (*run)(benchmark::State &))
{
    benchmark::RegisterBenchmark(name, run)
        ->Arg(5000)
        ->Arg(20000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
}

const bool registered = [] {
    registerCages("subdivision/update", update);
    registerCages("subdivision/rebuild", rebuild);
    return true;
}();

} // namespace
