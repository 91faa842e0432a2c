// What a mesh costs beside plain loops over the same data: refreshes, renumbering, memory. Grids of quads.

#include "PlainNormals.h"
#include "measure.h"
#include "mesh/KMMeshNode.h"

#include <QHash>

#include <malloc.h>
#include <unistd.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <memory>
#include <vector>

namespace {

using kvm::Vector3;

std::unique_ptr<KMMeshNode> waveGrid(int quads)
{
    auto mesh = std::make_unique<KMMeshNode>();
    addGrid(*mesh, quads,
            [](float x, float z) { return Vector3(x, 3.0f * std::sin(x * 0.1f) * std::cos(z * 0.07f), z); });
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// The edges of all faces into a table that has its room already.
class EdgePass
{
public:
    explicit EdgePass(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
        m_table.reserve(mesh.edgeCount());
    }
    void prepare() { m_table.clear(); }
    void operator()()
    {
        KMFace *const *faces = m_mesh.faces().constData();
        for (int f = 0, n = m_mesh.faceCount(); f < n; ++f) {
            for (int c = 0; c < faces[f]->count; ++c)
                m_table.findOrAdd(faces[f]->indices[c], faces[f]->next(c))->faceRefs.append(f);
        }
    }

private:
    KMMeshNode &m_mesh;
    KMEdgeTable m_table;
};

/// The same with a hash of single records, as one writes it down first.
class HashPass
{
public:
    explicit HashPass(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }
    ~HashPass() { qDeleteAll(m_table); }
    void prepare()
    {
        qDeleteAll(m_table);
        m_table.clear();
        m_table.reserve(m_mesh.edgeCount());
    }
    void operator()()
    {
        KMFace *const *faces = m_mesh.faces().constData();
        for (int f = 0, n = m_mesh.faceCount(); f < n; ++f) {
            for (int c = 0; c < faces[f]->count; ++c) {
                KMEdge *&edge = m_table[KMEdge::keyOf(faces[f]->indices[c], faces[f]->next(c))];
                if (!edge)
                    edge = new KMEdge;
                edge->faceRefs.append(f);
            }
        }
    }

private:
    KMMeshNode &m_mesh;
    QHash<quint64, KMEdge *> m_table;
};

/// One copy of all records.
class CopyPass
{
public:
    explicit CopyPass(KMMeshNode &mesh)
        : m_mesh(mesh)
        , m_vertices(size_t(mesh.vertexCount()))
        , m_faces(size_t(mesh.faceCount()))
        , m_edges(size_t(mesh.edgeCount()))
    {
    }
    void operator()()
    {
        size_t next = 0;
        for (const KMVertex *vertex : m_mesh.vertices())
            m_vertices[next++] = *vertex;
        next = 0;
        for (const KMFace *face : m_mesh.faces())
            m_faces[next++] = *face;
        next = 0;
        for (const KMEdge *edge : m_mesh.edges())
            m_edges[next++] = *edge;
    }

private:
    KMMeshNode &m_mesh;
    std::vector<KMVertex> m_vertices;
    std::vector<KMFace> m_faces;
    std::vector<KMEdge> m_edges;
};

/// A refresh with a fixed mask.
template <quint32 mask>
class Refresh
{
public:
    explicit Refresh(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }
    void operator()() { m_mesh.refreshMesh(mask); }

private:
    KMMeshNode &m_mesh;
};

/// All that an edit of the topology asks for when it did change the topology: a face lost or got back its last corner.
class RefreshAfterEdit
{
public:
    explicit RefreshAfterEdit(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }
    void prepare() { m_mesh.face(m_mesh.faceCount() / 2)->count ^= 3 ^ 4; }
    void operator()() { m_mesh.refreshMesh(KMMeshDirty::All); }

private:
    KMMeshNode &m_mesh;
};

/// Renumbering after every tenth face went.
class Compact
{
public:
    explicit Compact(KMMeshNode &mesh)
        : m_quads(mesh.faceCount())
    {
    }
    void prepare()
    {
        m_mesh = waveGrid(m_quads);
        for (int f = 0; f < m_mesh->faceCount(); f += 10) {
            m_mesh->removeFaceRefs(f);
            m_mesh->setFace(f, nullptr);
        }
        m_mesh->refreshMesh(KMMeshDirty::All);
    }
    void operator()() { m_mesh->compact(); }

private:
    int m_quads;
    std::unique_ptr<KMMeshNode> m_mesh;
};

template <class Ours, class Plain>
void compare(benchmark::State &state)
{
    const std::unique_ptr<KMMeshNode> mesh = waveGrid(int(state.range(0)));
    measure(state, Ours(*mesh), Plain(*mesh));
}

size_t residentBytes()
{
    malloc_trim(0);
    size_t pages = 0;
    size_t resident = 0;
    std::ifstream("/proc/self/statm") >> pages >> resident;
    return resident * size_t(sysconf(_SC_PAGESIZE));
}

/// Resident bytes for each quad, beside what the records and the lists that hold them come to.
void memory(benchmark::State &state)
{
    const size_t meshCount =
        size_t(std::max<int64_t>(1, 200000 / state.range(0))); // small ones drown in the heap's slack
    size_t bytes = 0;
    size_t plain = 0;
    for (auto _ : state) {
        const size_t before = residentBytes();
        std::vector<std::unique_ptr<KMMeshNode>> meshes(meshCount);
        for (std::unique_ptr<KMMeshNode> &mesh : meshes)
            mesh = waveGrid(int(state.range(0)));
        bytes = (residentBytes() - before) / meshCount;
        // A record stands in its store and in a live list, an edge in the table.
        const KMMeshNode &mesh = *meshes.front();
        plain = size_t(mesh.vertexCount()) * (sizeof(KMVertex) + 2 * sizeof(void *))
                + size_t(mesh.faceCount()) * (sizeof(KMFace) + 2 * sizeof(void *))
                + size_t(mesh.edgeCount()) * (sizeof(KMEdge) + sizeof(quint32));
        state.SetIterationTime(1e-3);
    }
    state.counters["bytes_per_quad"] = double(bytes) / double(state.range(0));
    state.counters["plain_bytes"] = double(plain) / double(state.range(0));
    state.counters["ratio"] = double(bytes) / double(plain);
}

const bool registered = [] {
    registerSizes("mesh/refresh all, edge table", compare<Refresh<KMMeshDirty::All>, EdgePass>);
    registerSizes("mesh/refresh all, QHash", compare<Refresh<KMMeshDirty::All>, HashPass>);
    registerSizes("mesh/refresh all after an edit, edge table", compare<RefreshAfterEdit, EdgePass>);
    registerSizes("mesh/refresh edges, edge table", compare<Refresh<KMMeshDirty::Edges>, EdgePass>);
    registerSizes("mesh/refresh positions", compare<Refresh<KMMeshDirty::Positions>, NormalPass>);
    registerSizes("mesh/compact", compare<Compact, CopyPass>);
    registerSizes("mesh/memory", memory);
    return true;
}();

} // namespace
