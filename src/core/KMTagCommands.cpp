#include "core/KMTagCommands.h"

#include "core/KMBasePositions.h"
#include "core/KMContainerNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"

#include <algorithm>

namespace {

KMContainerNode *containerOf(const KMTagBase *tag)
{
    return nodeAs<KMContainerNode>(tag->owner());
}

/// The index at which a tag has to be inserted to stand behind a number of live tags.
int indexBehindLive(const KMContainerNode *node, int liveTags, const KMTagBase *moved)
{
    int index = 0;
    for (const KMTagBase *tag : node->tags()) {
        if (tag == moved)
            continue;
        if (!tag->isDeleted() && liveTags-- == 0)
            return index;
        ++index;
    }
    return index;
}

} // namespace

addTagCommand::addTagCommand(KMContainerNode *node, KMTagBase *tag, int index, Name name)
    : KMUndoCommand(tr("Add Tag"), node)
    , m_target(node)
    , m_tag(tag)
    , m_index(index < 0 ? node->tagCount() : index)
{
    if (name == Name::Numbered)
        tag->setName(node->numberedTagName(tag->name()));
}

addTagCommand::~addTagCommand()
{
    if (!m_applied)
        delete m_tag.data();
}

void addTagCommand::apply(Direction direction)
{
    m_applied = direction == Direction::Redo;
    const KMBasePositions base(m_target); // at once: the next steps of a macro read positions
    m_tag->setDeleted(!m_applied);
    if (m_applied) {
        m_target->insertTag(m_index, m_tag);
    } else {
        // Tags before it may have gone for good since, when the history let go of their deletion.
        m_index = m_target->indexOfTag(m_tag);
        m_target->removeTag(m_tag);
        m_tag->setOwner(nullptr); // the node may be destroyed before the tag
        gSolution->forgetTag(m_tag);
    }
    m_target->tagsChanged();
}

deleteTagCommand::deleteTagCommand(KMContainerNode *node, KMTagBase *tag)
    : KMUndoCommand(tr("Delete Tag"), node)
    , m_target(node)
    , m_tag(tag)
{
}

deleteTagCommand::~deleteTagCommand()
{
    if (!m_applied || !m_tag) // a node that was destroyed took its tags along
        return;
    m_target->removeTag(m_tag);
    delete m_tag.data();
}

void deleteTagCommand::apply(Direction direction)
{
    m_applied = direction == Direction::Redo;
    const KMBasePositions base(m_target);
    m_tag->setDeleted(m_applied);
    if (m_applied) {
        m_tag->setSelected(false);
        gSolution->forgetTag(m_tag);
    }
    m_target->tagsChanged();
}

moveTagCommand::moveTagCommand(KMTagBase *tag, KMContainerNode *target, int position)
    : KMUndoCommand(tr("Move Tag"), containerOf(tag))
    , m_tag(tag)
    , m_source(containerOf(tag))
    , m_target(target)
    , m_index(indexBehindLive(target, position < 0 ? target->tagCount() : position, tag))
{
    touch(target);
    const QList<KMTagBase *> tags = m_source->tags();
    for (KMTagBase *other : tags.mid(0, tags.indexOf(tag)))
        m_predecessors << other;
}

void moveTagCommand::apply(Direction direction)
{
    const KMBasePositions source(m_source);
    const KMBasePositions target(m_target == m_source ? nullptr : m_target);
    if (direction == Direction::Redo) {
        m_source->removeTag(m_tag);
        m_target->insertTag(m_index, m_tag);
    } else {
        m_index = m_target->indexOfTag(m_tag);
        m_target->removeTag(m_tag);
        m_source->insertTag(indexOnSource(), m_tag);
    }
    m_source->tagsChanged();
    if (m_target != m_source)
        m_target->tagsChanged();
}

int moveTagCommand::indexOnSource() const
{
    const auto isThere = [](const QPointer<KMTagBase> &tag) { return !tag.isNull(); };
    return int(std::count_if(m_predecessors.cbegin(), m_predecessors.cend(), isThere));
}

renameTagCommand::renameTagCommand(KMTagBase *tag, const QString &name)
    : changeValueCommand(tr("Rename Tag"), tag->owner(), tag->name(), name)
    , m_tag(tag)
{
}

void renameTagCommand::write(const QString &name)
{
    m_tag->setName(name);
    gProject->retitleBlock(m_tag, name);
}
