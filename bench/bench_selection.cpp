// What walks over a whole mesh cost beside a plain breadth-first walk from face to face over the same records. Grids of
// quads: the flood reaches all of them, the loops and rings run through all of their rows.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "measure.h"
#include "mesh/KMEdgeWalk.h"
#include "mesh/KMFaceFlood.h"
#include "mesh/KMMarqueeSelect.h"
#include "mesh/KMMeshNode.h"

#include <QRectF>

#include <algorithm>
#include <cmath>
#include <memory>
#include <vector>

namespace {

constexpr quint8 mark = KMElementFlag::Hot;

std::unique_ptr<KMMeshNode> grid(int quads)
{
    auto mesh = std::make_unique<KMMeshNode>();
    addGrid(*mesh, quads, [](float i, float j) { return kvm::Vector3(i, 0.0f, j); });
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
template <class Step>
size_t throughAllRows(KMMeshNode &mesh, bool isAlong, Step walk)
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

class Walk
{
public:
    Walk(KMMeshNode &mesh, size_t (*walk)(KMMeshNode &))
        : m_mesh(mesh)
        , m_walk(walk)
    {
    }
    void prepare() { m_mesh.clearAllEdgeFlags(mark); }
    void operator()() { benchmark::DoNotOptimize(m_walk(m_mesh)); }

private:
    KMMeshNode &m_mesh;
    size_t (*m_walk)(KMMeshNode &);
};

template <size_t (*ours)(KMMeshNode &)>
void compare(benchmark::State &state)
{
    const std::unique_ptr<KMMeshNode> mesh = grid(int(state.range(0)));
    measure(state, Walk(*mesh, ours), Walk(*mesh, &plainWalk));
}

/// A rectangle about all vertices of the chosen mesh, as a step of the history. Beside it one pass that notes a record
/// for each and sets its flag.
void rectangle(benchmark::State &state)
{
    const KMHeadlessSession session;
    KMMeshNode *mesh = grid(int(state.range(0))).release();
    gProject->addNode(mesh);
    mesh->setSelected(true);
    gSolution->setEditFilter({true, false, false});
    for (KMVertex *vertex : mesh->vertices()) {
        vertex->screenPos = {vertex->pos.x, vertex->pos.z, 0.5f};
        vertex->drawn = true;
    }
    struct Select
    {
        void prepare() const
        {
            gSolution->clearHistory();
            mesh->setSelected(true);
            for (int i = 0; i < mesh->vertexCount(); ++i)
                mesh->clearVertexFlag(i, KMElementFlag::Selected);
        }
        void operator()() const { KMMarqueeSelect::selectRect(QRectF(-1, -1, 1e6, 1e6), KMMeshSelect::Mode::Replace); }
        KMMeshNode *mesh;
    } ours{mesh};
    struct Note
    {
        int index;
        quint8 before;
    };
    const auto plain = [mesh] {
        std::vector<Note> notes;
        for (KMVertex *vertex : mesh->vertices()) {
            notes.push_back({vertex->index, vertex->flags});
            vertex->flags |= KMElementFlag::Selected;
        }
        benchmark::DoNotOptimize(notes.data());
    };
    measure(state, ours, plain);
    state.counters["us_each"] = state.counters["ms"] * 1e3 / mesh->vertexCount();
}

const bool registered = [] {
    registerSizes("selection/flood", compare<flood>);
    registerSizes("selection/flood with stops", compare<floodWithStops>);
    registerSizes("selection/loops", compare<loops>);
    registerSizes("selection/rings", compare<rings>);
    registerSizes("selection/rectangle", rectangle);
    return true;
}();

} // namespace
