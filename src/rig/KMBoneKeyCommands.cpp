#include "rig/KMBoneKeyCommands.h"

#include "rig/KMBoneContainer.h"

KMBoneKeyCommand::KMBoneKeyCommand(const QString &text, KMBoneContainer *container, const QString &name, quint32 frame,
                                   std::optional<KMBoneKey> after)
    : KMUndoCommand(text, container)
    , m_container(container)
    , m_name(name)
    , m_frame(frame)
    , m_after(std::move(after))
    , m_hadTrack(container->animation()->track(name))
{
    if (const KMBoneKey *key = container->animation()->key(name, frame))
        m_before = *key;
}

void KMBoneKeyCommand::apply(Direction direction)
{
    BoneAnimation *animation = m_container->animation();
    if (const std::optional<KMBoneKey> &key = direction == Direction::Redo ? m_after : m_before)
        animation->setKey(*key);
    else if (direction == Direction::Undo && !m_hadTrack)
        animation->removeKey(m_name);
    else
        animation->takeKey(m_name, m_frame);
    m_container->requestFrame();
}

addBoneKeyCommand::addBoneKeyCommand(KMBoneContainer *container, const KMBoneKey &key)
    : KMBoneKeyCommand(tr("Edit BoneKey"), container, key.name, key.frameno, key)
{
}

removeBoneKeyCommand::removeBoneKeyCommand(KMBoneContainer *container, const QString &name, quint32 frame)
    : KMBoneKeyCommand(tr("Remove BoneKey"), container, name, frame, std::nullopt)
{
}

animationBuildBoneCommand::animationBuildBoneCommand(KMBoneContainer *container)
    : KMUndoCommand(QStringLiteral("animationBuildBoneCommand"), container)
    , m_container(container)
{
}

void animationBuildBoneCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        m_relinked = m_container->animation()->relinkTracks();
    else
        m_container->animation()->takeBack(std::move(m_relinked));
    m_container->requestFrame();
}

animationFrameMoveCommand::animationFrameMoveCommand(KMBoneContainer *container, bool onRedo)
    : KMUndoCommand(QStringLiteral("animationFrameMoveCommand"), container)
    , m_container(container)
    , m_onRedo(onRedo)
{
}

void animationFrameMoveCommand::apply(Direction direction)
{
    if ((direction == Direction::Redo) == m_onRedo)
        m_container->requestFrame();
}
