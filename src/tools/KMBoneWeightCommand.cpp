#include "tools/KMBoneWeightCommand.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagBoneWeight.h"
#include "tools/KMWeightTargets.h"

#include <algorithm>

KMBoneWeightCommand::KMBoneWeightCommand(const Row &row, QObject *parent)
    : KMRowCommand(row, "KMBoneWeightCommand", parent)
    , m_row(row)
{
}

QString KMBoneWeightCommand::obstacle() const
{
    const KMMeshNode *mesh = needs(Mesh) ? KMWeightTargets::mesh() : nullptr;
    if (needs(Mesh) && !mesh)
        return tr("Mesh Selection not found.");
    if (mesh && mesh->isLocked())
        return tr("%1 is locked.").arg(mesh->name());
    if (needs(Tag) && !KMWeightTargets::tag(*mesh))
        return tr("BoneWeightTag not found.");
    if (needs(Vertices)) {
        const std::vector<bool> marks = mesh->selectionMarks();
        if (std::find(marks.begin(), marks.end(), true) == marks.end())
            return tr("Vertex Selection not found.");
    }
    if (needs(Bone) && !KMWeightTargets::bone())
        return tr("Bone Selection not found.");
    return {};
}

void KMBoneWeightCommand::run()
{
    Target target;
    if (needs(Mesh)) {
        target.mesh = KMWeightTargets::mesh();
        target.tag = KMWeightTargets::tag(*target.mesh);
    }
    if (needs(Vertices))
        target.vertices = KMWeightTargets::selectedVertices(*target.mesh);
    if (needs(Bone))
        target.bone = KMWeightTargets::bone();
    const Work work = plan(target);
    if (!work)
        return;
    const KMUndoMacro macro(text());
    work();
}

KMBoneWeightCommand::Work KMBoneWeightCommand::plan(const Target &target)
{
    return m_row.plan(target);
}
