// What a view costs without drawing: window coordinates and picking, beside plain loops. Grids of quads that fill the
// window.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "measure.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMPicker.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace {

using kvm::Vector3;

constexpr int rounds = 15; // of work that is over soon

/// A waved grid in the middle of a perspective view.
class Scene
{
public:
    explicit Scene(int quads)
        : mesh(new KMMeshNode)
    {
        const float side = std::sqrt(float(quads));
        addGrid(*mesh, quads, [side](float i, float j) {
            const float x = j / side - 0.5f;
            const float y = i / side - 0.5f;
            return Vector3(x * 300, y * 300, 10.0f * std::sin(x * 9) * std::cos(y * 7));
        });
        gProject->addNode(mesh);
        mesh->refreshMesh(KMMeshDirty::All);
        camera.resize(1280, 680);
        mesh->projectVertices(camera.viewProjection(), camera.width(), camera.height());
    }

    KMHeadlessSession session;
    KMMeshNode *mesh;
    KMCameraNode camera;
};

class Project
{
public:
    explicit Project(Scene &scene)
        : m_scene(scene)
    {
    }
    void operator()()
    {
        m_scene.mesh->projectVertices(m_scene.camera.viewProjection(), m_scene.camera.width(), m_scene.camera.height());
    }

private:
    Scene &m_scene;
};

/// The same arithmetic over an array of points.
class PlainProject
{
public:
    explicit PlainProject(Scene &scene)
        : m_matrix(scene.camera.viewProjection())
        , m_halfWidth(float(scene.camera.width()) / 2)
        , m_halfHeight(float(scene.camera.height()) / 2)
        , m_windows(size_t(scene.mesh->vertexCount()))
    {
        for (const KMVertex *vertex : scene.mesh->vertices())
            m_points.push_back(vertex->pos);
    }
    void operator()()
    {
        for (size_t i = 0; i < m_points.size(); ++i) {
            const kvm::Vector4 clip = m_matrix * kvm::Vector4(m_points[i], 1.0f);
            const float w = std::fabs(clip.w);
            m_windows[i] = {(clip.x / w + 1.0f) * m_halfWidth, (1.0f - clip.y / w) * m_halfHeight, clip.z / clip.w};
        }
        benchmark::DoNotOptimize(m_windows.data());
    }

private:
    kvm::Matrix4 m_matrix;
    float m_halfWidth, m_halfHeight;
    std::vector<Vector3> m_points;
    std::vector<Vector3> m_windows;
};

/// The cursor moves over the window; each place asks for all kinds of elements.
class Hover
{
public:
    explicit Hover(Scene &scene)
        : m_scene(scene)
    {
    }
    void operator()()
    {
        KMPickRequest request;
        request.wantVertex = request.wantEdge = request.wantFace = true;
        m_place = std::fmod(m_place + 37.0, 400.0);
        KMPicker::pick(m_scene.camera, {440.0 + m_place, 140.0 + m_place}, request);
        benchmark::DoNotOptimize(request.distance2);
    }

private:
    Scene &m_scene;
    double m_place = 0;
};

/// One pass over the window coordinates that the vertices keep: the nearest to a place.
class NearestPass
{
public:
    explicit NearestPass(Scene &scene)
        : m_scene(scene)
    {
    }
    void operator()()
    {
        float best = 1e30f;
        for (const KMVertex *vertex : m_scene.mesh->vertices()) {
            const float dx = vertex->screenPos.x - 600;
            const float dy = vertex->screenPos.y - 300;
            best = std::min(best, dx * dx + dy * dy);
        }
        benchmark::DoNotOptimize(best);
    }

private:
    Scene &m_scene;
};

template <class Ours, class Plain>
void compare(benchmark::State &state)
{
    Scene scene(int(state.range(0)));
    measure(state, Ours(scene), Plain(scene), rounds);
}

const bool registered = [] {
    registerSizes("view/window coordinates, array", compare<Project, PlainProject>);
    registerSizes("view/hover pick, one pass", compare<Hover, NearestPass>);
    return true;
}();

} // namespace
