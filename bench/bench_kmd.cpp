// Saving and loading a document that is one grid. Beside it a bare QDataStream walks over the same numbers between
// plain arrays and memory.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMDReader.h"
#include "formats/KMDWriter.h"
#include "measure.h"
#include "mesh/KMMeshNode.h"

#include <QBuffer>
#include <QDataStream>

#include <algorithm>
#include <vector>

namespace {

KMMeshNode *grid(int quads)
{
    auto *mesh = new KMMeshNode;
    addGrid(*mesh, quads, [](float x, float z) { return kvm::Vector3(x, 0.25f * float(int(x) % 7), z); });
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

QByteArray savedDocument()
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    KMDWriter(KMDOutput::Form::Present, {}, nullptr).write(&buffer);
    return buffer.data();
}

/// The numbers of a mesh body in plain arrays.
struct PlainMesh
{
    struct Vertex
    {
        float values[4];
    };
    struct Face
    {
        qint32 count, shader;
        qint32 indices[4];
        float values[4][6];
    };
    struct Edge
    {
        qint32 a, b;
        float weight;
    };

    explicit PlainMesh(const KMMeshNode &mesh)
    {
        for (const KMVertex *v : mesh.vertices())
            vertices.push_back({{v->pos.x, v->pos.y, v->pos.z, v->weight}});
        for (const KMFace *f : mesh.faces()) {
            Face face{f->count, f->shader, {}, {}};
            std::copy_n(f->indices, 4, face.indices);
            faces.push_back(face);
        }
        for (const KMEdge *e : mesh.edges())
            edges.push_back({e->index0, e->index1, e->weight});
    }

    /// One order for both directions: the operation streams a number in or out.
    template <class Operation>
    void walk(Operation number)
    {
        for (Vertex &vertex : vertices) {
            for (float &value : vertex.values)
                number(value);
        }
        for (Face &face : faces) {
            number(face.count);
            for (int c = 0; c < 4; ++c) {
                number(face.indices[c]);
                for (float &value : face.values[c])
                    number(value);
            }
            number(face.shader);
        }
        for (Edge &edge : edges) {
            number(edge.a);
            number(edge.b);
            number(edge.weight);
        }
    }

    std::vector<Vertex> vertices;
    std::vector<Face> faces;
    std::vector<Edge> edges;
};

double plainWrite(PlainMesh &plain, QByteArray &bytes)
{
    const double start = processorSeconds();
    bytes.clear();
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    plain.walk([&out](auto &value) { out << value; });
    return processorSeconds() - start;
}

double plainRead(PlainMesh &plain, const QByteArray &bytes)
{
    const double start = processorSeconds();
    QDataStream in(bytes);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    plain.walk([&in](auto &value) { in >> value; });
    return processorSeconds() - start;
}

double save(QByteArray &bytes)
{
    const double start = processorSeconds();
    bytes = savedDocument();
    return processorSeconds() - start;
}

double load(const QByteArray &bytes)
{
    gSolution->newDocument();
    const double start = processorSeconds();
    KMDReader().readBytes(bytes);
    return processorSeconds() - start;
}

enum Direction { Save, Load };

void kmd(benchmark::State &state, Direction direction)
{
    const KMHeadlessSession session;
    KMMeshNode *mesh = grid(int(state.range(0)));
    PlainMesh plain(*mesh);
    gProject->addNode(mesh);
    QByteArray bytes;
    QByteArray plainBytes;
    save(bytes);
    plainWrite(plain, plainBytes);
    double ours = 1e9; // the best of all rounds: other programs may be at work
    double bare = 1e9;
    for (auto _ : state) {
        const double seconds = direction == Save ? save(bytes) : load(bytes);
        state.SetIterationTime(seconds);
        ours = std::min(ours, seconds);
        bare = std::min(bare, direction == Save ? plainWrite(plain, plainBytes) : plainRead(plain, plainBytes));
    }
    state.counters["ms"] = ours * 1e3;
    state.counters["plain_ms"] = bare * 1e3;
    state.counters["ratio"] = ours / bare;
}

const bool registered = [] {
    for (const Direction direction : {Save, Load}) {
        benchmark::RegisterBenchmark(direction == Save ? "kmd/save" : "kmd/load", kmd, direction)
            ->Arg(10000)
            ->Arg(100000)
            ->Arg(1000000)
            ->Iterations(7)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
    return true;
}();

} // namespace
