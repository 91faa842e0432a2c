#pragma once

#include "core/KMUndoCommand.h"
#include "rig/BoneAnimation.h"

#include <QCoreApplication>

#include <memory>
#include <optional>

class KMBoneContainer;

/// Base of what sets or takes one key: keeps what stood there at the last redo. The pose follows at the next refresh.
class KMBoneKeyCommand : public KMUndoCommand
{
protected:
    /// Without a key after it, the one at the frame goes.
    KMBoneKeyCommand(const QString &text, KMBoneContainer *container, const QString &name, quint32 frame,
                     std::optional<KMBoneKey> after);

    void apply(Direction direction) override;

private:
    void write();
    void takeBack();

    KMBoneContainer *m_container;
    QString m_name;
    quint32 m_frame;
    std::optional<KMBoneKey> m_before;
    std::optional<KMBoneKey> m_after;
    bool m_hadTrack = false;
};

/// Stores a key in the track of its name, in place of one at the same frame.
class addBoneKeyCommand : public KMBoneKeyCommand
{
    Q_DECLARE_TR_FUNCTIONS(addBoneKeyCommand)
public:
    addBoneKeyCommand(KMBoneContainer *container, const KMBoneKey &key);
};

/// Takes the key at a frame out of the track of a bone.
class removeBoneKeyCommand : public KMBoneKeyCommand
{
    Q_DECLARE_TR_FUNCTIONS(removeBoneKeyCommand)
public:
    removeBoneKeyCommand(KMBoneContainer *container, const QString &name, quint32 frame);
};

/// Puts a whole motion in place of the one that the container has.
class replaceMotionCommand : public KMUndoCommand
{
public:
    /// The motion was made for the container; its tracks are taken over.
    replaceMotionCommand(const QString &text, KMBoneContainer *container, std::unique_ptr<BoneAnimation> motion);

protected:
    void apply(Direction direction) override;

private:
    KMBoneContainer *m_container;
    std::unique_ptr<BoneAnimation> m_other; // the one that isn't in the scene
};

/// Finds the bones of all tracks by name again. Its text is for the history of those who work on the program.
class animationBuildBoneCommand : public KMUndoCommand
{
public:
    explicit animationBuildBoneCommand(KMBoneContainer *container);

protected:
    void apply(Direction direction) override;

private:
    KMBoneContainer *m_container;
    BoneAnimation::Relinked m_relinked;
};

/// Poses the bones by the current frame in one direction of the history, so that several edits of keys between two of
/// these end with the right pose.
class animationFrameMoveCommand : public KMUndoCommand
{
public:
    animationFrameMoveCommand(KMBoneContainer *container, bool onRedo); ///< else on undo

protected:
    void apply(Direction direction) override;

private:
    KMBoneContainer *m_container;
    bool m_onRedo;
};
