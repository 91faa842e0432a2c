#include "rig/KMBoneWeightCommands.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMTagBoneWeight.h"

namespace {

KMWeightEdit editOf(KMTagBoneWeight *tag, const QVector<BoneWeightEntry> &entries)
{
    KMWeightEdit edit(tag);
    for (const BoneWeightEntry &entry : entries)
        edit.setWeight(entry.vertex, entry.bone, entry.weight);
    return edit;
}

KMWeightEdit removalOf(KMTagBoneWeight *tag, const QVector<BoneWeightEntry> &entries)
{
    KMWeightEdit edit(tag);
    for (const BoneWeightEntry &entry : entries)
        edit.removeEntry(entry.vertex, entry.bone);
    return edit;
}

} // namespace

KMWeightListsCommand::KMWeightListsCommand(const QString &text, KMMeshNode *mesh, const KMWeightEdit &edit)
    : KMMeshCommand(text, mesh)
    , m_edit(edit)
{
}

void KMWeightListsCommand::apply(Direction direction)
{
    m_edit.write(direction == Direction::Redo ? KMWeightEdit::Side::After : KMWeightEdit::Side::Before);
    m_edit.tag()->markChanged();
}

addBoneWeightCommand::addBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag,
                                           const QVector<BoneWeightEntry> &entries)
    : addBoneWeightCommand(mesh, editOf(tag, entries))
{
}

addBoneWeightCommand::addBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit)
    : KMWeightListsCommand(tr("Add BoneWeight"), mesh, edit)
{
}

deleteBoneWeightCommand::deleteBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag,
                                                 const QVector<BoneWeightEntry> &entries)
    : deleteBoneWeightCommand(mesh, removalOf(tag, entries))
{
}

deleteBoneWeightCommand::deleteBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit)
    : KMWeightListsCommand(tr("Delete BoneWeight"), mesh, edit)
{
}

editBoneWeightCommand::editBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag,
                                             const QVector<BoneWeightEntry> &entries)
    : editBoneWeightCommand(mesh, editOf(tag, entries))
{
}

editBoneWeightCommand::editBoneWeightCommand(KMMeshNode *mesh, const KMWeightEdit &edit)
    : KMWeightListsCommand(tr("Edit BoneWeight"), mesh, edit)
{
}

editTagBoneWeightCommand::editTagBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag,
                                                   const KMWeightParameters &parameters)
    : changeValueCommand(tr("Edit BoneWeight"), mesh, tag->parameters(), parameters)
    , m_tag(tag)
{
}

void editTagBoneWeightCommand::write(const KMWeightParameters &parameters)
{
    m_tag->setParameters(parameters);
    m_tag->markChanged();
}

rebindBoneWeightCommand::rebindBoneWeightCommand(KMMeshNode *mesh, KMTagBoneWeight *tag,
                                                 const QVector<Exchange> &exchanges)
    : KMMeshCommand(tr("Rebind BoneWeight"), mesh)
    , m_tag(tag)
    , m_exchanges(exchanges)
{
}

void rebindBoneWeightCommand::apply(Direction direction)
{
    for (const Exchange &exchange : std::as_const(m_exchanges))
        m_tag->exchangeBone(exchange.number, direction == Direction::Redo ? exchange.after : exchange.before);
    m_tag->markChanged();
}

KMSdefFlagCommand::KMSdefFlagCommand(const QString &text, KMMeshNode *mesh, KMTagBoneWeight *tag,
                                     const QVector<int> &vertices, bool flagged)
    : KMMeshCommand(text, mesh)
    , m_tag(tag)
    , m_flagged(flagged)
{
    for (const int vertex : vertices) {
        if (tag->hasSdefFlag(vertex) != flagged)
            m_vertices.append(vertex);
    }
}

void KMSdefFlagCommand::apply(Direction direction)
{
    for (const int vertex : std::as_const(m_vertices))
        m_tag->setSdefFlag(vertex, (direction == Direction::Redo) == m_flagged);
    m_tag->markChanged();
}

setSdefFlagCommand::setSdefFlagCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<int> &vertices)
    : KMSdefFlagCommand(tr("Set Sdef Flag"), mesh, tag, vertices, true)
{
}

removeSdefFlagCommand::removeSdefFlagCommand(KMMeshNode *mesh, KMTagBoneWeight *tag, const QVector<int> &vertices)
    : KMSdefFlagCommand(tr("Remove Sdef Flag"), mesh, tag, vertices, false)
{
}
