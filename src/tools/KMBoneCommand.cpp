#include "tools/KMBoneCommand.h"

#include "core/KMSolution.h"
#include "core/KMWaitingMacro.h"
#include "mesh/KMMeshTargets.h"
#include "rig/KMBoneContainer.h"

#include <algorithm>

namespace {

bool hasSelectedEdges(const QList<KMMeshNode *> &meshes)
{
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
    if (m_row.needed != Need::Edges)
        return {};
    const QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    for (KMMeshNode *mesh : meshes)
        followFaces(*mesh);
    return hasSelectedEdges(meshes) ? QString() : tr("Edge Selection not found.");
}

KMBoneCommand::Work KMBoneCommand::nothing(const QString &reason)
{
    gSolution->showMessage(reason, MessageLevel);
    return {};
}

KMBoneCommand::Work KMBoneCommand::workOf(const KMBoneEdit::Changes &changes, const QString &ifEmpty)
{
    if (!KMBoneEdit::areNeeded(changes))
        return nothing(changes.isEmpty() && !ifEmpty.isEmpty() ? ifEmpty : tr("The bones stand so already."));
    return [changes] { KMBoneEdit::pushChanges(changes); };
}

void KMBoneCommand::run()
{
    const Work work = plan(*KMBoneContainer::activeBoneContainer());
    if (!work)
        return;
    const KMWaitingMacro macro(text());
    work();
}

KMBoneCommand::Work KMBoneCommand::plan(KMBoneContainer &container)
{
    return m_row.plan(container);
}
