#include "tools/KMSelectionCommands.h"

#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMSymmetryPlane.h"
#include "mesh/KMVertexCommands.h"
#include "tools/KMAlignVertexDialog.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

namespace {

/// Of a mesh: from the space in which vertices are aligned to the world.
kvm::Matrix4 spaceOf(const KMMeshNode &mesh, bool isWorld)
{
    return isWorld ? kvm::Matrix4() : mesh.worldMatrix();
}

kvm::Vector3 meanOf(const QList<KMMeshNode *> &meshes, bool isWorld)
{
    double sum[3] = {};
    int count = 0;
    for (const KMMeshNode *mesh : meshes) {
        const kvm::Matrix4 toSpace = spaceOf(*mesh, isWorld).inverse();
        const QVector<int> vertices = KMSelectedElements::vertices(*mesh);
        for (const int vertex : vertices) {
            const kvm::Vector3 place = toSpace * mesh->position(vertex);
            for (int k = 0; k < 3; ++k)
                sum[k] += double(place[k]);
        }
        count += vertices.size();
    }
    return {float(sum[0] / count), float(sum[1] / count), float(sum[2] / count)};
}

/// Where the two selected vertices of a mesh stand, above 0 on one side of its plane and below on the other.
struct MirrorPair
{
    explicit MirrorPair(const KMMeshNode &mesh)
        : plane(mesh)
        , vertices(KMSelectedElements::vertices(mesh))
    {
        for (const int vertex : vertices)
            distances << plane.distance(mesh.position(vertex));
    }

    bool isPair() const { return vertices.size() == 2; }
    /// On two sides; one of them may be on the plane itself.
    bool isApart() const
    {
        return isPair() && distances.at(0) * distances.at(1) <= 0.0f && distances.at(0) != distances.at(1);
    }

    KMSymmetryPlane plane;
    QVector<int> vertices;
    QVector<float> distances;
};

bool isApart(const KMMeshNode *mesh)
{
    return MirrorPair(*mesh).isApart();
}

} // namespace

bool SelComAlignVertex::ask(const QList<KMMeshNode *> &meshes)
{
    KMAlignVertexDialog dialog(QApplication::activeWindow());
    dialog.setWindowTitle(text());
    connect(&dialog, &KMAlignVertexDialog::onSetWorld, this,
            [&meshes](KMAlignVertexDialog *shown, bool isWorld) { shown->setValues(meanOf(meshes, isWorld)); });
    dialog.setWorld(m_isWorld);
    dialog.setValues(meanOf(meshes, m_isWorld));
    for (int axis = 0; axis < 3; ++axis)
        dialog.setAligns(axis, m_aligns[axis]);
    if (!KMPrompt::current().dialog(dialog))
        return false;
    m_isWorld = dialog.isWorld();
    m_values = dialog.values();
    for (int axis = 0; axis < 3; ++axis)
        m_aligns[axis] = dialog.aligns(axis);
    return std::any_of(std::begin(m_aligns), std::end(m_aligns), [](bool aligns) { return aligns; });
}

void SelComAlignVertex::runOn(KMMeshNode &mesh)
{
    const kvm::Matrix4 toWorld = spaceOf(mesh, m_isWorld);
    const kvm::Matrix4 toSpace = toWorld.inverse();
    QVector<KMMovedVertex> moves;
    const QVector<int> vertices = KMSelectedElements::vertices(mesh);
    for (const int vertex : vertices) {
        const kvm::Vector3 before = mesh.position(vertex);
        kvm::Vector3 place = m_isWorld ? before : toSpace * before;
        for (int axis = 0; axis < 3; ++axis)
            place[axis] = m_aligns[axis] ? m_values[axis] : place[axis];
        moves.append({vertex, before, m_isWorld ? place : toWorld * place});
    }
    gSolution->push(new moveVertexArrayCommand(&mesh, moves));
    mesh.rebuildSelectionCache();
}

QString SelComAssignShader::obstacle() const
{
    const QString reason = KMSelectionCommand::obstacle();
    const bool hasShader = gProject->shaders().indexOf(gSolution->currentShader()) >= 0;
    return !reason.isEmpty() || hasShader ? reason : tr("Shader Selection not found.");
}

void SelComAssignShader::runOn(KMMeshNode &mesh)
{
    KMMeshEdit::assignShader(mesh, gProject->shaders().indexOf(gSolution->currentShader()));
}

bool SelComDivideEdge::ask(const QList<KMMeshNode *> &)
{
    constexpr int most = 64;
    KMOptionForm form{text(),
                      {{QStringLiteral("division"), tr("division"), KMOption::Int, m_division, 2, most}},
                      QApplication::activeWindow()};
    if (!KMPrompt::current().options(form))
        return false;
    m_division = std::clamp(form.value(QStringLiteral("division")).toInt(), 2, most);
    return true;
}

void SelComDivideEdge::runOn(KMMeshNode &mesh)
{
    QVector<float> ratios;
    for (int i = 1; i < m_division; ++i)
        ratios << float(i) / float(m_division);
    QVector<KMEdgeCut> cuts;
    const QVector<KMEdgeEnds> edges = KMSelectedElements::edges(mesh);
    for (const KMEdgeEnds &edge : edges) {
        if (mesh.findEdge(edge.a, edge.b)->faceRefs.size() < 3)
            cuts.append({edge.a, edge.b, ratios});
    }
    KMMeshEdit::cutEdges(mesh, cuts);
}

QString SelComSymmetrizingVertex::obstacle() const
{
    const QList<KMMeshNode *> meshes = targets();
    const auto isPair = [](const KMMeshNode *mesh) { return MirrorPair(*mesh).isPair(); };
    if (std::none_of(meshes.begin(), meshes.end(), isPair))
        return tr("Vertex Selection not found.");
    return std::any_of(meshes.begin(), meshes.end(), &isApart) ? QString() : tr("illegal vertex position.");
}

/// The second vertex becomes the image of the first; both end as far from the plane as they were in the mean.
void SelComSymmetrizingVertex::runOn(KMMeshNode &mesh)
{
    const MirrorPair pair(mesh);
    if (!pair.isApart())
        return;
    const float distance = 0.5f * (std::abs(pair.distances.at(0)) + std::abs(pair.distances.at(1)));
    const bool isFirstAhead = pair.distances.at(0) > 0.0f || pair.distances.at(1) < 0.0f;
    const kvm::Vector3 &first = mesh.position(pair.vertices.at(0));
    const kvm::Vector3 foot = first - pair.plane.normal() * pair.distances.at(0);
    const kvm::Vector3 offset = pair.plane.normal() * (isFirstAhead ? distance : -distance);
    QVector<KMMovedVertex> moves{{pair.vertices.at(0), first, foot + offset},
                                 {pair.vertices.at(1), mesh.position(pair.vertices.at(1)), foot - offset}};
    gSolution->push(new moveVertexArrayCommand(&mesh, moves));
}
