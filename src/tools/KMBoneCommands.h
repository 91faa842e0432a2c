#pragma once

#include "tools/KMBoneCommand.h"

/// Asks for the shape that the selected bones are shown with.
class BoneComEditViewMode : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    Work plan(KMBoneContainer &container) override;
};

/// Base of those that ask for one of six axes, and keep it for the next time.
class KMBoneAxisCommand : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    bool askAxis(); ///< false when cancelled
    int axis() const { return m_choice % 3; }
    float sign() const { return m_choice < 3 ? 1.0f : -1.0f; }

private:
    int m_choice = 1;
};

/// Turns bones about their own axes, so that the chosen axis is up.
class BoneComAlignUpVector : public KMBoneAxisCommand
{
    Q_OBJECT
public:
    using KMBoneAxisCommand::KMBoneAxisCommand;

protected:
    Work plan(KMBoneContainer &container) override;
};

/// Turns bones about the origin by a quarter turn.
class BoneComConvertAxis : public KMBoneAxisCommand
{
    Q_OBJECT
public:
    using KMBoneAxisCommand::KMBoneAxisCommand;

protected:
    Work plan(KMBoneContainer &container) override;
};

/// Gives selected heads and tails the same coordinate.
class BoneComAlignPosition : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    Work plan(KMBoneContainer &container) override;
};

/// Makes two bones each other's image.
class BoneComSymmetrize : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    QString obstacle() const override;
    Work plan(KMBoneContainer &container) override;
};

/// Gives the bones on one side the image of their partners. Partners are those across the plane, and where these lie
/// too far apart, those of the name for the other side.
class BoneComAlignReflectBone : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    Work plan(KMBoneContainer &container) override;

private:
    int m_side = 0; // that is changed
};

/// Gives the selected bones rigid bodies of their length, with joints to their parents where the user wants them. What
/// was chosen last is offered the next time.
class BoneComMakeRigidBody : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    QString obstacle() const override;
    Work plan(KMBoneContainer &container) override;

private:
    int m_shape = 0; // of KMTagRigidBody::Shape
    bool m_withJoints = false;
};

/// Holds the two selected rigid bodies together by a joint half way between them. With Control the other one is the
/// first.
class BoneComMakeSideJoint : public KMBoneCommand
{
    Q_OBJECT
public:
    using KMBoneCommand::KMBoneCommand;

protected:
    QString obstacle() const override;
    Work plan(KMBoneContainer &container) override;
};
