#include "support/ModifierStage.h"

#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "support/AllocationCount.h"

#include <memory>

namespace {

int anyOf(std::mt19937 &random, int count)
{
    return count > 0 ? int(random() % quint32(count)) : 0;
}

float anyNumber(std::mt19937 &random)
{
    return std::uniform_real_distribution<float>(-20.0f, 20.0f)(random);
}

void moveVertices(KMMeshNode &mesh, std::mt19937 &random)
{
    for (int i = 0; i < 3; ++i) {
        if (KMVertex *vertex = mesh.vertex(anyOf(random, mesh.vertexCount())))
            vertex->pos = {anyNumber(random), anyNumber(random), anyNumber(random)};
    }
    mesh.markMoved();
}

void changeFlag(KMMeshNode &mesh, std::mt19937 &random)
{
    const int f = anyOf(random, mesh.faceCount());
    const quint8 bit = random() % 2 ? KMElementFlag::Hidden : KMElementFlag::Selected;
    if (mesh.face(f) && mesh.face(f)->hasFlag(bit))
        mesh.clearFaceFlag(f, bit);
    else if (mesh.face(f))
        mesh.setFaceFlag(f, bit);
}

void changeWeights(KMMeshNode &mesh, std::mt19937 &random)
{
    if (KMVertex *vertex = mesh.vertex(anyOf(random, mesh.vertexCount())))
        vertex->weight = anyNumber(random);
    const int chosen = anyOf(random, mesh.edgeCount());
    int i = 0;
    for (KMEdge *edge : mesh.edges()) {
        if (i++ == chosen)
            edge->weight = anyNumber(random);
    }
    mesh.markDirty(KMMeshDirty::Weights);
}

void changeShader(KMMeshNode &mesh, std::mt19937 &random)
{
    const int f = anyOf(random, mesh.faceCount());
    if (mesh.face(f))
        mesh.setFaceShader(f, anyOf(random, 4) - 1);
    mesh.markDirty(KMMeshDirty::Shaders);
}

void deleteFace(KMMeshNode &mesh, std::mt19937 &random)
{
    const int f = anyOf(random, mesh.faceCount());
    if (mesh.face(f)) {
        mesh.removeFaceRefs(f);
        mesh.setFace(f, nullptr);
    }
    mesh.markDirty(KMMeshDirty::All);
}

void addFace(KMMeshNode &mesh, std::mt19937 &random)
{
    int corners[4];
    const int count = 2 + anyOf(random, 3);
    for (int c = 0; c < count; ++c) {
        corners[c] = anyOf(random, mesh.vertexCount());
        if (!mesh.vertex(corners[c]))
            return;
    }
    mesh.addFaceRaw(count, corners);
    mesh.markDirty(KMMeshDirty::All);
}

using Edit = void (*)(KMMeshNode &, std::mt19937 &);
constexpr Edit edits[] = {&moveVertices, &changeFlag, &changeWeights, &changeShader, &deleteFace, &addFace};
constexpr int editKinds = sizeof edits / sizeof *edits;

QString firstDifference(const QString &a, const QString &b)
{
    const QStringList left = a.split(QLatin1Char('\n'));
    const QStringList right = b.split(QLatin1Char('\n'));
    for (int i = 0; i < qMin(left.size(), right.size()); ++i) {
        if (left.at(i) != right.at(i))
            return left.at(i) + QStringLiteral(" instead of ") + right.at(i);
    }
    return left.size() == right.size() ? QString() : QStringLiteral("more lines in one of them");
}

KMMeshNode *refreshed(KMMeshNode *mesh)
{
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

} // namespace

ModifierStage::ModifierStage(KMMeshNode *aMesh, KMModifierNode *aModifier)
    : mesh(aMesh)
    , modifier(aModifier)
{
    mesh->linkChain({{true, modifier}});
    evaluate();
}

ModifierStage::~ModifierStage()
{
    delete modifier;
    delete mesh;
}

void ModifierStage::evaluate()
{
    mesh->refreshAfterEdit();
    mesh->notifyDependents();
    result().refreshAfterEdit();
}

KMMeshNode &ModifierStage::result()
{
    return *modifier->modMesh();
}

QString ModifierStage::rebuiltProblem()
{
    const std::unique_ptr<KMModifierNode> fresh(modifier->clone());
    fresh->attach(mesh, nullptr);
    fresh->rebuild();
    const QString problem = firstDifference(meshText(result()), meshText(*fresh->modMesh()));
    fresh->detach();
    return problem;
}

std::size_t ModifierStage::updateAllocations()
{
    const std::size_t before = allocationCount();
    modifier->update();
    return allocationCount() - before;
}

QString ModifierStage::walk(quint32 seed, const std::function<void(std::mt19937 &)> &editSettings)
{
    std::mt19937 random(seed);
    constexpr int steps = 40;
    for (int step = 0; step < steps; ++step) {
        const int kind = anyOf(random, editKinds + 1);
        if (kind < editKinds)
            edits[kind](*mesh, random);
        else
            editSettings(random);
        evaluate();
        QString problem = rebuiltProblem();
        if (problem.isEmpty())
            problem = checkInvariants(result());
        if (!problem.isEmpty())
            return QStringLiteral("seed %1, step %2, edit %3: ").arg(seed).arg(step).arg(kind) + problem;
    }
    return {};
}

KMMeshNode *wire(const QVector<kvm::Vector3> &places, const QVector<QPair<int, int>> &lines)
{
    auto *mesh = new KMMeshNode;
    for (const kvm::Vector3 &place : places)
        mesh->addVertexRaw(place);
    for (const QPair<int, int> &line : lines) {
        const int corners[] = {line.first, line.second};
        mesh->addFaceRaw(2, corners);
    }
    return refreshed(mesh);
}

KMMeshNode *polyline(const QVector<kvm::Vector3> &places, bool isClosed)
{
    QVector<QPair<int, int>> lines;
    for (int i = 0; i + 1 < places.size(); ++i)
        lines.append({i, i + 1});
    if (isClosed)
        lines.append({places.size() - 1, 0});
    return wire(places, lines);
}

QStringList LogNotes::lines;

LogNotes::LogNotes()
{
    lines.clear();
    m_before =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &line) { lines.append(line); });
}

LogNotes::~LogNotes()
{
    qInstallMessageHandler(m_before);
}
