#include "tools/KMCreaseDrag.h"

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "tools/KMSelectionDrag.h"

#include <algorithm>
#include <utility>

/// The points of a lattice are none of a surface.
QList<KMMeshNode *> KMCreaseDrag::targets()
{
    QList<KMMeshNode *> meshes = KMSelectionDrag::targets();
    const auto isMade = [](const KMMeshNode *mesh) { return mesh->ownerNode(); };
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(), isMade), meshes.end());
    return meshes;
}

KMCreaseRange KMCreaseDrag::weights() const
{
    return isActive() ? m_edit.weights() : KMCreaseEdit::weightsOf(targets(), m_kinds);
}

bool KMCreaseDrag::begin(const Grab &grab)
{
    return beginAt(grab.drag.start().anchor, grab.camera);
}

bool KMCreaseDrag::beginAt(const kvm::Vector3 &point, const KMCameraNode &camera)
{
    KMCreaseEdit::Options options;
    options.kinds = m_kinds;
    options.isSymmetric = gSolution->editFilter().symmetry;
    options.mirrorTolerance = camera.pixelScale(gSettings->symmetryMargin);
    options.leadingPoint = point;
    m_edit = KMCreaseEdit(targets(), options);
    return isActive();
}

void KMCreaseDrag::commit()
{
    std::exchange(m_edit, {}).commit();
}

void KMCreaseDrag::cancel()
{
    std::exchange(m_edit, {}).cancel();
}
