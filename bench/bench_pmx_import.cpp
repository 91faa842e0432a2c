// Models that come in: a grid with weights, materials, bones and morphs. Beside it a bare QDataStream walks over the
// same file into plain arrays. And the most memory that it takes on the way, beside what the document keeps.

#include "core/KMHeadlessSession.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "formats/PmxImporter.h"
#include "measure.h"

#include <QDataStream>
#include <QFile>
#include <QTemporaryDir>

#include <fstream>
#include <malloc.h>
#include <vector>

namespace {

/// Nobody is there to answer.
class QuietPrompt : public KMPrompt
{
public:
    QMessageBox::StandardButton message(const KMMessage &) override { return QMessageBox::Ok; }
    QString openFile(const KMFileRequest &) override { return {}; }
    QString saveFile(const KMFileRequest &) override { return {}; }
    QString folder(const KMFileRequest &) override { return {}; }
    QColor color(const QColor &, const QString &, QWidget *) override { return {}; }
    QString text(const QString &, const QString &, const QString &, QWidget *, bool *) override { return {}; }
    bool options(KMOptionForm &) override { return false; }
    bool dialog(QDialog &) override { return false; }
};

/// The numbers of a model in plain arrays. Vertices have indices of four bytes, everything else of one.
struct PlainModel
{
    struct Vertex
    {
        float values[8]; // position, normal, UV
        quint8 type;     // one, two or four bones
        quint8 bones[4];
        float weights[4];
        float edge;
    };
    struct Material
    {
        QString name, universal, memo;
        float colors[11];
        quint8 flags;
        float edge[5];
        quint8 textures[5]; // texture, sphere, its mode, shared toon, toon
        qint32 corners;
    };
    struct Bone
    {
        QString name, universal;
        float head[3];
        quint8 parent;
        qint32 layer;
        quint16 flags; // with local axes
        float tail[3];
        float axes[6];
    };
    struct Offset
    {
        qint32 vertex;
        float values[3];
    };
    struct Morph
    {
        QString name, universal;
        quint8 panel, type;
        qint32 count;
        std::vector<Offset> offsets;
    };

    explicit PlainModel(int vertexCount);
    PlainModel() = default;

    /// One order for both directions: the operation streams a number or a text in or out.
    template <class Operation>
    void walk(Operation field)
    {
        for (quint8 &byte : head)
            field(byte);
        for (QString &text : texts)
            field(text);
        walkSurface(field);
        qint32 textures = 0;
        field(textures);
        list(field, materials, [&field](Material &m) {
            field(m.name);
            field(m.universal);
            each(field, m.colors);
            field(m.flags);
            each(field, m.edge);
            each(field, m.textures);
            field(m.memo);
            field(m.corners);
        });
        list(field, bones, [&field](Bone &b) {
            field(b.name);
            field(b.universal);
            each(field, b.head);
            field(b.parent);
            field(b.layer);
            field(b.flags);
            each(field, b.tail);
            each(field, b.axes);
        });
        list(field, morphs, [&field](Morph &m) {
            field(m.name);
            field(m.universal);
            field(m.panel);
            field(m.type);
            list(field, m.offsets, [&field](Offset &o) {
                field(o.vertex);
                each(field, o.values);
            });
        });
        for (qint32 &none : rest)
            field(none);
    }

    template <class Operation>
    void walkSurface(Operation field)
    {
        list(field, vertices, [&field](Vertex &v) {
            each(field, v.values);
            field(v.type);
            const int boneCount = v.type == 2 ? 4 : v.type + 1;
            for (int b = 0; b < boneCount; ++b)
                field(v.bones[b]);
            for (int w = 0; w < (boneCount == 4 ? 4 : boneCount - 1); ++w)
                field(v.weights[w]);
            field(v.edge);
        });
        list(field, corners, [&field](qint32 &corner) { field(corner); });
    }

    template <class Operation, class Values>
    static void each(Operation field, Values &values)
    {
        for (auto &value : values)
            field(value);
    }

    template <class Operation, class Record, class Walk>
    static void list(Operation field, std::vector<Record> &records, Walk walk)
    {
        auto count = qint32(records.size());
        field(count);
        records.resize(size_t(count));
        for (Record &record : records)
            walk(record);
    }

    quint8 head[17] = {'P', 'M', 'X', ' ', 0, 0, 0, 0x40, 8, 0, 0, 4, 1, 1, 1, 1, 1};
    QString texts[4];
    std::vector<Vertex> vertices;
    std::vector<qint32> corners;
    std::vector<Material> materials;
    std::vector<Bone> bones;
    std::vector<Morph> morphs;
    qint32 rest[3] = {}; // display frames, bodies, joints
};

PlainModel::PlainModel(int vertexCount)
{
    const int side = int(std::sqrt(double(vertexCount)));
    constexpr int boneCount = 200;
    for (int i = 0; i < side * side; ++i) {
        const auto x = float(i % side), y = float(i / side);
        const auto bone = quint8(i * boneCount / (side * side));
        const auto other = quint8((bone + 1) % boneCount);
        vertices.push_back({{x, y, 0.25f * float(i % 7), 0.0f, 0.0f, -1.0f, x / float(side), y / float(side)},
                            quint8(i % 3),
                            {bone, other, 0, 1},
                            {0.5f, 0.25f, 0.125f, 0.125f},
                            1.0f});
    }
    for (int i = 0; i < (side - 1) * (side - 1); ++i) {
        const int first = i / (side - 1) * side + i % (side - 1);
        for (const int corner : {first, first + side, first + 1, first + 1, first + side, first + side + 1})
            corners.push_back(corner);
    }
    constexpr int materialCount = 10;
    const int cornersOfEach = int(corners.size()) / 3 / materialCount * 3;
    for (int m = 0; m < materialCount; ++m)
        materials.push_back(
            {QStringLiteral("material"), {}, {}, {}, 0x10, {}, {0xff, 0xff, 0, 0, 0xff}, cornersOfEach});
    for (int b = 0; b < boneCount; ++b)
        bones.push_back({QStringLiteral("bone %1").arg(b),
                         {},
                         {float(b), 0.0f, 0.0f},
                         quint8(b % 20 == 0 ? 0xff : b - 1),
                         0,
                         0x081e,
                         {0.0f, 1.0f, 0.0f},
                         {1.0f, 0.0f, 0.0f, 0.0f, 0.0f, 1.0f}});
    constexpr int morphCount = 30;
    for (int m = 0; m < morphCount; ++m) {
        Morph morph{QStringLiteral("morph %1").arg(m), {}, 1, 1, 0, {}};
        for (int i = m; i < side * side; i += 50)
            morph.offsets.push_back({i, {0.0f, 0.5f, 0.25f}});
        morphs.push_back(morph);
    }
}

void prepareStream(QDataStream &stream)
{
    stream.setVersion(16);
    stream.setByteOrder(QDataStream::LittleEndian);
    stream.setFloatingPointPrecision(QDataStream::SinglePrecision);
}

/// A model file of so many vertices, for as long as it lives.
class ModelFile
{
public:
    explicit ModelFile(int vertexCount)
        : m_path(m_folder.filePath(QStringLiteral("model.pmx")))
    {
        QFile file(m_path);
        if (!file.open(QIODevice::WriteOnly))
            return;
        QDataStream out(&file);
        prepareStream(out);
        PlainModel(vertexCount).walk([&out](auto &field) { out << field; });
    }

    const QString &path() const { return m_path; }

    double plainRead() const
    {
        const double start = processorSeconds();
        PlainModel model;
        QFile file(m_path);
        if (file.open(QIODevice::ReadOnly)) {
            QDataStream in(&file);
            prepareStream(in);
            model.walk([&in](auto &field) { in >> field; });
        }
        return processorSeconds() - start;
    }

private:
    QTemporaryDir m_folder;
    QString m_path;
};

double import(const QString &path)
{
    gSolution->newDocument();
    const double start = processorSeconds();
    PmxImporter().load(path);
    return processorSeconds() - start;
}

void pmxImport(benchmark::State &state)
{
    const KMHeadlessSession session;
    QuietPrompt prompt;
    const KMPromptScope quiet(&prompt);
    const ModelFile file(int(state.range(0)));
    double ours = 1e9; // the best of all rounds: other programs may be at work
    double plain = 1e9;
    for (auto _ : state) {
        const double seconds = import(file.path());
        state.SetIterationTime(seconds);
        ours = std::min(ours, seconds);
        plain = std::min(plain, file.plainRead());
    }
    state.counters["ms"] = ours * 1e3;
    state.counters["plain_ms"] = plain * 1e3;
    state.counters["ratio"] = ours / plain;
}

/// Resident bytes: those of now, or the most since the last call of forgetPeak().
size_t residentBytes(const char *which)
{
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        size_t kilobytes = 0;
        if (word == which && status >> kilobytes)
            return kilobytes << 10;
    }
    return 0;
}

void forgetPeak()
{
    malloc_trim(0);
    std::ofstream("/proc/self/clear_refs") << 5;
}

void pmxImportMemory(benchmark::State &state)
{
    const KMHeadlessSession session;
    QuietPrompt prompt;
    const KMPromptScope quiet(&prompt);
    const ModelFile file(int(state.range(0)));
    size_t peak = 0;
    size_t kept = 0;
    for (auto _ : state) {
        gSolution->newDocument();
        forgetPeak();
        const size_t before = residentBytes("VmRSS:");
        PmxImporter().load(file.path());
        peak = residentBytes("VmHWM:") - before;
        malloc_trim(0);
        kept = residentBytes("VmRSS:") - before;
        state.SetIterationTime(1e-3);
    }
    state.counters["peak_MB"] = double(peak) / 1e6;
    state.counters["kept_MB"] = double(kept) / 1e6;
    state.counters["ratio"] = double(peak) / double(kept);
}

const bool registered = [] {
    for (const int vertices : {10000, 100000, 1000000}) {
        benchmark::RegisterBenchmark("pmx/import", pmxImport)
            ->Arg(vertices)
            ->Iterations(7)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
        benchmark::RegisterBenchmark("pmx/import_memory", pmxImportMemory)
            ->Arg(vertices)
            ->Iterations(1)
            ->UseManualTime();
    }
    return true;
}();

} // namespace
