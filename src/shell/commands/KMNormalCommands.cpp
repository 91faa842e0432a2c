#include "shell/commands/KMNormalCommands.h"

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalEdit.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMPrimitiveNode.h"

#include <QDebug>

#include <algorithm>

using namespace KMMeshTargets;

namespace {

/// What the views show of a mesh: the result of its last modifier, where it has some.
KMMeshNode *shownMesh(KMMeshNode *mesh)
{
    KMMeshNode *result = mesh->modifiers().isEmpty() ? mesh : mesh->modifiers().last().second->modMesh();
    return result ? result : mesh;
}

QList<KMMeshNode *> giversFor(const KMMeshNode &receiver)
{
    QList<KMMeshNode *> givers;
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        if (mesh != &receiver && mesh->isSelected())
            givers << shownMesh(mesh);
    }
    for (const KMPrimitiveNode *primitive : gProject->primitivesInTree()) {
        if (primitive->isSelected())
            givers << primitive->mesh();
    }
    return givers;
}

float diagonalOf(const KMMeshNode &mesh)
{
    if (mesh.liveVertices().isEmpty())
        return 0.0f;
    kvm::Vector3 low = mesh.liveVertices().first()->pos;
    kvm::Vector3 high = low;
    for (const KMVertex *vertex : mesh.liveVertices()) {
        for (int k = 0; k < 3; ++k) {
            low[k] = std::min(low[k], vertex->pos[k]);
            high[k] = std::max(high[k], vertex->pos[k]);
        }
    }
    return (high - low).length();
}

} // namespace

NormalComCrease::NormalComCrease(QObject *parent)
    : KMNormalCommand(tr("Crease"), Edges, parent)
{
    setStatusTip(tr("Don't smooth normals across the selected edges"));
}

int NormalComCrease::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::setCreases(mesh, true);
}

NormalComUncrease::NormalComUncrease(QObject *parent)
    : KMNormalCommand(tr("Uncrease"), Edges, parent)
{
    setStatusTip(tr("Smooth normals across the selected edges again"));
}

int NormalComUncrease::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::setCreases(mesh, false);
}

NormalComSelectCrease::NormalComSelectCrease(QObject *parent)
    : KMNormalCommand(tr("Select Crease"), Elements(), parent)
{
    setStatusTip(tr("Select the creased edges"));
}

QList<KMMeshNode *> NormalComSelectCrease::targets() const
{
    QList<KMMeshNode *> meshes = KMNormalCommand::targets();
    const auto hasNone = [](const KMMeshNode *mesh) { return KMNormalEdit::tagOf(*mesh)->creaseEdges().isEmpty(); };
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(), hasNone), meshes.end());
    return meshes;
}

QString NormalComSelectCrease::missingSelection() const
{
    return tr("%1: the mesh has no creases").arg(text());
}

int NormalComSelectCrease::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::selectCreases(mesh);
}

NormalComFixNormal::NormalComFixNormal(QObject *parent)
    : KMNormalCommand(tr("Fix Normal"), Vertices | Faces, parent)
{
    setStatusTip(tr("Keep the normals of the selected corners as they are now"));
}

int NormalComFixNormal::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::fixNormals(mesh);
}

NormalComUnfixNormal::NormalComUnfixNormal(QObject *parent)
    : KMNormalCommand(tr("Unfix Normal"), Vertices | Faces, parent)
{
    setStatusTip(tr("Let fixed normals follow the surface again, from their present direction on"));
}

int NormalComUnfixNormal::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::unfixNormals(mesh);
}

NormalComUnifyNormal::NormalComUnifyNormal(QObject *parent)
    : KMNormalCommand(tr("Unify Normal"), Vertices, parent)
{
    setStatusTip(tr("Give all corners of each selected vertex one normal"));
}

int NormalComUnifyNormal::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::unifyNormals(mesh);
}

NormalComAveragingNormal::NormalComAveragingNormal(QObject *parent)
    : KMNormalCommand(tr("Averaging Normal"), Vertices, parent)
{
    setStatusTip(tr("Give all corners of the selected vertices one normal"));
}

int NormalComAveragingNormal::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::averageNormals({&mesh});
}

void NormalComAveragingNormal::run()
{
    report(KMNormalEdit::averageNormals(targets()));
}

NormalComInitializeNormal::NormalComInitializeNormal(QObject *parent)
    : KMNormalCommand(tr("Initialize Normal"), Vertices | Faces, parent)
{
    setStatusTip(tr("Go back to the computed normals"));
}

int NormalComInitializeNormal::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::initializeNormals(mesh);
}

NormalComFlatX::NormalComFlatX(QObject *parent)
    : KMNormalCommand(tr("Flatten to X axis"), Vertices, parent)
{
    setStatusTip(tr("Turn the normals of the selected vertices into the plane across the X axis"));
}

int NormalComFlatX::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::flattenX(mesh);
}

NormalComTransfer::NormalComTransfer(QObject *parent)
    : KMNormalCommand(tr("Transfer Normal"), Edges, parent)
{
    setStatusTip(tr(
        "Take the normals at the selected edges from the nearest surface of the other selected meshes and primitives"));
}

QList<KMMeshNode *> NormalComTransfer::targets() const
{
    const QList<KMMeshNode *> receivers = KMNormalCommand::targets();
    for (KMMeshNode *mesh : receivers) {
        if (mesh == gSolution->currentNode())
            return {mesh};
    }
    return receivers;
}

QString NormalComTransfer::obstacle() const
{
    const QString reason = KMNormalCommand::obstacle();
    if (!reason.isEmpty())
        return reason;
    return giversFor(*targets().first()).isEmpty()
               ? tr("%1: select another mesh or primitive as well, to take the normals from").arg(text())
               : QString();
}

int NormalComTransfer::runOn(KMMeshNode &mesh)
{
    return KMNormalEdit::transferNormals(mesh, giversFor(mesh));
}

NormalComSymmetrize::NormalComSymmetrize(QObject *parent)
    : KMNormalCommand(tr("Symmetrize Normal"), Vertices, parent)
{
    setStatusTip(tr("Mirror the overridden normals of the selected vertices to the other side of the mesh"));
}

int NormalComSymmetrize::runOn(KMMeshNode &mesh)
{
    // The margin is one of pixels; no view is asked here, so the mesh is taken to fill one of this size.
    constexpr float viewPixels = 1000.0f;
    const float tolerance = diagonalOf(mesh) * gSettings->symmetryMargin / viewPixels;
    return KMNormalEdit::symmetrizeNormals(mesh, tolerance);
}

NormalComTest::NormalComTest(QObject *parent)
    : KMNormalCommand(tr("Normal Test"), Elements(), parent)
{
    setStatusTip(tr("Write what the normal tags of the selected meshes hold to the output"));
}

void NormalComTest::run()
{
    for (KMMeshNode *mesh : targets())
        runOn(*mesh);
}

int NormalComTest::runOn(KMMeshNode &mesh)
{
    const KMTagNormal *tag = KMNormalEdit::tagOf(mesh);
    int corners[3] = {};
    for (const KMNormalFace &record : tag->faceNormals()) {
        for (const quint8 mode : record.mode)
            ++corners[std::min(int(mode), 2)];
    }
    const QString line = tr("%1: %2 creases, %3 parted faces, %4 fixed, %5 rotated")
                             .arg(mesh.name())
                             .arg(tag->creaseEdges().size())
                             .arg(tag->creaseFaces().size())
                             .arg(corners[KMNormalFace::Fixed])
                             .arg(corners[KMNormalFace::Rotated]);
    qDebug().noquote() << line;
    gSolution->showMessage(line, MessageLevel);
    return 0;
}
