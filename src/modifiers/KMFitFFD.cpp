#include "modifiers/KMFitFFD.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "math/Box3.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMObjectTransform.h"

#include <QCoreApplication>

using kvm::Vector3;

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KMFitFFD", text);
}

bool refuse(const QString &why)
{
    constexpr int warningLevel = 4;
    gSolution->showMessage(why, warningLevel);
    return false;
}

QVector<Vector3> selectedPositions(const KMMeshNode &mesh)
{
    QVector<Vector3> positions;
    for (const KMVertex *vertex : mesh.vertices()) {
        if (vertex && vertex->hasFlag(KMElementFlag::Selected))
            positions << vertex->pos;
    }
    return positions;
}

/// The place of the mesh in the world, where its vertices are.
KMTransform worldTransform(const KMMeshNode &mesh)
{
    const kvm::Matrix4 parent = mesh.parentMatrix();
    return KMObjectTransform::sound(parent == kvm::Matrix4() ? mesh.transform()
                                                             : KMObjectTransform::moved(mesh.transform(), parent));
}

} // namespace

bool KMFitFFD::run(KMNode *node)
{
    auto *lattice = node && node->type() == KMNodeType::ModFFD ? static_cast<KMModFFDNode *>(node) : nullptr;
    if (!lattice)
        return refuse(tr("Please Select FFDNode."));
    if (!lattice->source())
        return refuse(tr("Please insert FFDNode in as a MeshNode child."));
    constexpr int fewest = 3;
    const QVector<Vector3> positions = selectedPositions(*lattice->source());
    if (positions.size() < fewest)
        return false;

    KMTransform place = worldTransform(*lattice->source());
    kvm::Box3 box;
    for (const Vector3 &position : positions)
        box.add(KMFFDBox::toLocal(place, position));
    if (box.isEmpty())
        return false; // none of them is anywhere
    place.translation = KMFFDBox::toWorld(place, box.centre());
    const KMUndoMacro macro(tr("Fit FFD"));
    gSolution->push(new editSRTCommand(lattice, place));
    KMModFFDNode::Parameters parameters = lattice->parameters();
    parameters.size = box.size();
    gSolution->push(new editModFFDCommand(lattice, parameters));
    return true;
}
