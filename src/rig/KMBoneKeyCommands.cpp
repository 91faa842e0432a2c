#include "rig/KMBoneKeyCommands.h"

#include "rig/KMBoneContainer.h"

KMBoneKeyCommand::KMBoneKeyCommand(const QString &text, KMBoneContainer *container, const QString &name, quint32 frame,
                                   std::optional<KMBoneKey> after)
    : KMUndoCommand(text, container)
    , m_container(container)
    , m_name(name)
    , m_frame(frame)
    , m_after(std::move(after))
{
}

void KMBoneKeyCommand::apply(Direction direction)
{
    if (direction == Direction::Redo)
        write();
    else
        takeBack();
    m_container->requestFrame();
}

void KMBoneKeyCommand::write()
{
    BoneAnimation *animation = m_container->animation();
    m_hadTrack = animation->track(m_name);
    const KMBoneKey *key = animation->key(m_name, m_frame);
    m_before = key ? std::make_optional(*key) : std::nullopt;
    if (m_after)
        animation->setKey(*m_after);
    else
        animation->takeKey(m_name, m_frame);
}

/// Keys that others have written since, without a step of the history, are left alone.
void KMBoneKeyCommand::takeBack()
{
    BoneAnimation *animation = m_container->animation();
    const KMBoneKey *key = animation->key(m_name, m_frame);
    if (m_after ? !key || !(*key == *m_after) : key != nullptr)
        return;
    if (m_before)
        return animation->setKey(*m_before);
    animation->takeKey(m_name, m_frame);
    const BoneTrack *track = animation->track(m_name);
    if (!m_hadTrack && track && track->keys.empty())
        animation->removeKey(m_name);
}

addBoneKeyCommand::addBoneKeyCommand(KMBoneContainer *container, const KMBoneKey &key)
    : KMBoneKeyCommand(tr("Edit BoneKey"), container, key.name, key.frameno, key)
{
}

removeBoneKeyCommand::removeBoneKeyCommand(KMBoneContainer *container, const QString &name, quint32 frame)
    : KMBoneKeyCommand(tr("Remove BoneKey"), container, name, frame, std::nullopt)
{
}

replaceMotionCommand::replaceMotionCommand(const QString &text, KMBoneContainer *container,
                                           std::unique_ptr<BoneAnimation> motion)
    : KMUndoCommand(text, container)
    , m_container(container)
    , m_other(std::move(motion))
{
}

void replaceMotionCommand::apply(Direction)
{
    m_container->animation()->swapTracks(*m_other);
    m_container->requestFrame();
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
