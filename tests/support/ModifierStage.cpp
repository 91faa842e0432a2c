#include "support/ModifierStage.h"

#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"
#include "support/AllocationCount.h"

#include <memory>

namespace {

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
