#include "modifiers/KMFitFFD.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMObjectTransform.h"

#include <QCoreApplication>

#include <algorithm>
#include <limits>

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
    constexpr float most = std::numeric_limits<float>::max();
    Vector3 least(most, most, most);
    Vector3 greatest(-most, -most, -most);
    for (const Vector3 &position : positions) {
        const Vector3 local = KMFFDBox::toLocal(place, position);
        for (int axis = 0; axis < 3; ++axis) {
            least[axis] = std::min(least[axis], local[axis]);
            greatest[axis] = std::max(greatest[axis], local[axis]);
        }
    }
    place.translation = KMFFDBox::toWorld(place, (least + greatest) * 0.5f);
    const KMUndoMacro macro(tr("Fit FFD"));
    gSolution->push(new editSRTCommand(lattice, place));
    KMModFFDNode::Parameters parameters = lattice->parameters();
    parameters.size = greatest - least;
    gSolution->push(new editModFFDCommand(lattice, parameters));
    return true;
}
