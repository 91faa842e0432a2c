#include "tools/KMBoneCommand.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshTargets.h"
#include "rig/KMBoneContainer.h"

#include <algorithm>

namespace {

bool hasSelectedEdges()
{
    const QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    return std::any_of(meshes.begin(), meshes.end(),
                       [](const KMMeshNode *mesh) { return KMMeshTargets::hasSelected(*mesh, KMMeshTargets::Edges); });
}

} // namespace

KMBoneCommand::KMBoneCommand(const Row &row, QObject *parent)
    : KMRowCommand(row, "KMBoneCommand", parent)
    , m_row(row)
{
}

QString KMBoneCommand::obstacle() const
{
    const KMBoneContainer *container = KMBoneContainer::activeBoneContainer();
    if (!container)
        return tr("RootBone Selection not found.");
    if (m_row.needed == Need::Bones && container->selectedBones().isEmpty())
        return tr("Bone Selection not found.");
    if (m_row.needed == Need::Edges && !hasSelectedEdges())
        return tr("Edge Selection not found.");
    return {};
}

void KMBoneCommand::run()
{
    const Work work = plan(*KMBoneContainer::activeBoneContainer());
    if (!work)
        return;
    const KMUndoMacro macro(text());
    work();
}

KMBoneCommand::Work KMBoneCommand::plan(KMBoneContainer &container)
{
    return m_row.plan(container);
}
