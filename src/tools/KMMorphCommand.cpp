#include "tools/KMMorphCommand.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"
#include "tools/KMMorphTargets.h"

KMMorphCommand::KMMorphCommand(const Row &row, QObject *parent)
    : KMRowCommand(row, "KMMorphCommand", parent)
    , m_row(row)
{
}

QString KMMorphCommand::obstacle() const
{
    const KMTagMorph *tag = KMMorphTargets::tag();
    if (!tag)
        return tr("MorphTag Not Selected.");
    if (m_row.needed & OpenMesh && tag->mesh()->isLocked())
        return tr("%1 is locked.").arg(tag->mesh()->name());
    if ((m_row.needed & Selection) == Selection && KMMorphTargets::selectedMorphs(*tag).isEmpty())
        return tr("MorphNode Not Selected.");
    return {};
}

void KMMorphCommand::run()
{
    KMTagMorph &tag = *KMMorphTargets::tag();
    const Work work = plan(tag, KMMorphTargets::selectedMorphs(tag));
    if (!work)
        return;
    const KMUndoMacro macro(text());
    work();
}

KMMorphCommand::Work KMMorphCommand::plan(KMTagMorph &tag, const Morphs &selected)
{
    return m_row.plan(tag, selected);
}
