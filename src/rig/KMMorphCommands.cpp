#include "rig/KMMorphCommands.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"

namespace {

KMNode *meshOf(const KMMorph *morph)
{
    return morph->tag()->owner();
}

} // namespace

KMMorphPresenceCommand::KMMorphPresenceCommand(const QString &text, KMTagMorph *tag, KMMorph *morph, Direction bringing)
    : KMUndoCommand(text, tag->owner())
    , m_tag(tag)
    , m_morph(morph)
    , m_bringing(bringing)
    , m_isIn(bringing == Direction::Undo)
{
}

KMMorphPresenceCommand::~KMMorphPresenceCommand()
{
    if (!m_isIn)
        delete m_morph.data();
}

void KMMorphPresenceCommand::apply(Direction direction)
{
    m_isIn = direction == m_bringing;
    m_morph->setDeleted(!m_isIn);
    if (!m_isIn && gSolution->currentNode() == m_morph)
        gSolution->forgetNode(m_morph);
    m_tag->layAnew();
}

addMorphCommand::addMorphCommand(KMTagMorph *tag, KMMorph *morph)
    : KMMorphPresenceCommand(tr("Add MorphNode"), tag, morph, Direction::Redo)
{
    morph->setDeleted(true); // until the step runs
    tag->addMorph(morph);
}

removeMorphCommand::removeMorphCommand(KMTagMorph *tag, KMMorph *morph)
    : KMMorphPresenceCommand(tr("Remove MorphNode"), tag, morph, Direction::Undo)
{
}

editMorphValueCommand::editMorphValueCommand(KMMorph *morph, float value)
    : editMorphValueCommand(morph, morph->value(), value)
{
}

editMorphValueCommand::editMorphValueCommand(KMMorph *morph, float before, float after)
    : changeValueCommand(tr("Edit MorphNode"), meshOf(morph), before, after)
    , m_morph(morph)
{
}

void editMorphValueCommand::write(const float &value)
{
    m_morph->setValue(value);
}

editMorphTypeCommand::editMorphTypeCommand(KMMorph *morph, int panel)
    : changeValueCommand(tr("Edit MorphNode"), meshOf(morph), morph->panel(), panel)
    , m_morph(morph)
{
}

void editMorphTypeCommand::write(const int &panel)
{
    m_morph->setPanel(panel);
}

editMorphDataCommand::editMorphDataCommand(KMMorph *morph, const MorphDeltas &deltas)
    : changeValueCommand(tr("Edit MorphNode"), meshOf(morph), morph->deltas(), deltas)
    , m_morph(morph)
{
}

void editMorphDataCommand::write(const MorphDeltas &deltas)
{
    m_morph->setDeltas(deltas);
}

reorderMorphCommand::reorderMorphCommand(KMTagMorph *tag, const QList<KMMorph *> &order)
    : changeValueCommand(tr("Reorder MorphNode"), tag->owner(), tag->liveMorphs(), order)
    , m_tag(tag)
{
}

void reorderMorphCommand::write(const QList<KMMorph *> &order)
{
    m_tag->setOrder(order);
}

redrawTagCommand::redrawTagCommand(KMTagMorph *tag)
    : KMUndoCommand(tr("Redraw Tag"), tag->owner())
    , m_tag(tag)
{
}

void redrawTagCommand::apply(Direction)
{
    if (KMMeshNode *mesh = m_tag->mesh())
        mesh->markMoved();
}
