#pragma once

#include "core/KMChangeValueCommand.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"

#include <QCoreApplication>

/// Sets all that a tag of the rig says; the tag has parameters() and setParameters().
template <class Tag>
class KMTagParametersCommand : public changeValueCommand<typename Tag::Parameters>
{
public:
    using Parameters = typename Tag::Parameters;

protected:
    KMTagParametersCommand(const QString &text, Tag *tag, const Parameters &parameters)
        : changeValueCommand<Parameters>(text, tag->owner(), tag->parameters(), parameters)
        , m_tag(tag)
    {
    }

    void write(const Parameters &parameters) override { m_tag->setParameters(parameters); }

private:
    Tag *m_tag;
};

class editTagRigidBodyCommand : public KMTagParametersCommand<KMTagRigidBody>
{
    Q_DECLARE_TR_FUNCTIONS(editTagRigidBodyCommand)
public:
    editTagRigidBodyCommand(KMTagRigidBody *tag, const RigidBodyData &data)
        : KMTagParametersCommand(tr("Edit RigidBody"), tag, data)
    {
    }
};

class editTagJointCommand : public KMTagParametersCommand<KMTagJoint>
{
    Q_DECLARE_TR_FUNCTIONS(editTagJointCommand)
public:
    editTagJointCommand(KMTagJoint *tag, const JointData &data)
        : KMTagParametersCommand(tr("Edit Joint"), tag, data)
    {
    }
};

class editTagConstraintCommand : public KMTagParametersCommand<KMTagConstraint>
{
    Q_DECLARE_TR_FUNCTIONS(editTagConstraintCommand)
public:
    editTagConstraintCommand(KMTagConstraint *tag, const ConstraintData &data)
        : KMTagParametersCommand(tr("Edit Constraint"), tag, data)
    {
    }
};
