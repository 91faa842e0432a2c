// A model written as PMX: one grid with a UV for each corner, weights of two bones, and morphs that move a twentieth of
// it each. Beside it a bare QDataStream writes the same numbers from plain arrays into a file of its own.

#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "formats/PmxExporter.h"
#include "measure.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

#include <QDataStream>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <vector>

namespace {

using kvm::Vector3;

constexpr int boneCount = 100;
constexpr int sharePerMorph = 20;

struct Model
{
    Model(int vertices, int morphs)
        : mesh(new KMMeshNode)
    {
        auto *rig = new KMBoneContainer;
        gProject->addNode(rig);
        exporter.root = rig;
        for (int i = 0; i < boneCount; ++i) {
            auto *bone = new KMBone;
            bone->setRest(restBone({float(i), 0, 0}, {float(i + 1), 0, 0}));
            rig->attachBone(bone, nullptr);
            bones.push_back(bone);
        }
        rig->rebuildOrder();
        addGrid(*mesh, vertices, [](float x, float z) { return Vector3(x, 0.25f * float(int(x) % 7), z); });
        for (KMFace *face : mesh->faces()) {
            for (int c = 0; c < face->count; ++c)
                face->uvs[c] = {float(face->indices[c]) / float(vertices), 0.5f};
        }
        mesh->setSmoothAngle(180.0f); // a smooth surface, of which no vertex is split
        weigh();
        mesh->refreshMesh(KMMeshDirty::All);
        auto *tag = new KMTagMorph;
        mesh->addTagKeepName(tag);
        for (int m = 0; m < morphs; ++m)
            tag->addMorph(morph(m));
        gProject->addNode(mesh);
    }

    void weigh() const
    {
        auto *tag = new KMTagBoneWeight;
        mesh->addTagKeepName(tag);
        for (int v = 0; v < mesh->vertexCount(); ++v) {
            tag->addEntry({v, 0.25f, bones[size_t(v % boneCount)]});
            tag->addEntry({v, 0.75f, bones[size_t((v + 1) % boneCount)]});
        }
    }
    KMMorph *morph(int number) const
    {
        auto *morph = new KMMorph;
        morph->setName(QString::number(number));
        MorphDeltas deltas;
        const int count = mesh->vertexCount() / sharePerMorph;
        for (int i = 0; i < count; ++i)
            deltas.append({(number * 997 + i) % mesh->vertexCount(), 1.0f, {0, 1, 0}});
        morph->setDeltas(deltas);
        return morph;
    }

    KMMeshNode *mesh;
    std::vector<KMBone *> bones;
    PmxExporter exporter;
};

/// What takes up nearly all of the file.
struct PlainModel
{
    struct Vertex
    {
        float place[8];
        quint8 deform;
        quint8 bones[2];
        float weight, edge;
    };
    struct Offset
    {
        qint32 vertex;
        float way[3];
    };

    PlainModel(int vertexCount, int triangleCount, int morphCount, int offsetCount)
        : vertices(size_t(vertexCount), Vertex{{1, 2, 3, 4, 5, 6, 7, 8}, 1, {1, 2}, 0.25f, 1.0f})
        , corners(size_t(triangleCount) * 3, 5)
        , morphs(size_t(morphCount), std::vector<Offset>(size_t(offsetCount), Offset{1, {1, 2, 3}}))
    {
    }

    void write(const QString &path) const
    {
        QFile file(path);
        file.open(QIODevice::WriteOnly);
        QDataStream out(&file);
        out.setByteOrder(QDataStream::LittleEndian);
        out.setFloatingPointPrecision(QDataStream::SinglePrecision);
        for (const Vertex &vertex : vertices) {
            for (const float number : vertex.place)
                out << number;
            out << vertex.deform << vertex.bones[0] << vertex.bones[1] << vertex.weight << vertex.edge;
        }
        for (const qint32 corner : corners)
            out << corner;
        for (const std::vector<Offset> &morph : morphs) {
            for (const Offset &offset : morph)
                out << offset.vertex << offset.way[0] << offset.way[1] << offset.way[2];
        }
    }

    std::vector<Vertex> vertices;
    std::vector<qint32> corners;
    std::vector<std::vector<Offset>> morphs;
};

void pmxExport(benchmark::State &state)
{
    const KMHeadlessSession session;
    const QTemporaryDir folder;
    Model model(int(state.range(0)), int(state.range(1)));
    const PlainModel plain(model.mesh->vertexCount(), model.mesh->triangleCount(), int(state.range(1)),
                           model.mesh->vertexCount() / sharePerMorph);
    const QString path = folder.filePath(QStringLiteral("model.pmx"));
    const QString plainPath = folder.filePath(QStringLiteral("plain"));
    measure(
        state, [&] { model.exporter.exportTo(path); }, [&] { plain.write(plainPath); });
    state.counters["bytes"] = double(QFileInfo(path).size());
    state.counters["plain_bytes"] = double(QFileInfo(plainPath).size());
}

const bool registered = [] {
    auto *bench = benchmark::RegisterBenchmark("pmx/export", pmxExport);
    for (const int vertices : {10000, 100000, 1000000})
        bench->Args({vertices, 30});
    for (const int morphs : {0, 60, 120})
        bench->Args({100000, morphs});
    bench->Iterations(1)->Unit(benchmark::kMillisecond)->UseManualTime();
    return true;
}();

} // namespace
