#pragma once

#include "rig/KMTagValueCommands.h"
#include "shell/attributes/KMParameterPage.h"
#include "shell/attributes/KMTagPage.h"
#include "shell/widgets/KMShownAngles.h"

class KMVectorField;

/// Where a tag stands against its bone, besides its other parameters.
template <class Tag, class Command>
class KMPosedTagPage : public KMParameterPage<KMTagPage, Tag, Command>
{
protected:
    using Parameters = typename Tag::Parameters;
    using Base = KMParameterPage<KMTagPage, Tag, Command>;
    using Base::Base;

    void addPose();
    /// Three numbers of the parameters in one row.
    KMVectorField *bindVector(const QString &label, const QString &key,
                              const std::function<kvm::Vector3(const Parameters &)> &get,
                              const std::function<void(Parameters &, const kvm::Vector3 &)> &set);

private:
    KMShownAngles m_angles;
};

class KMRigidBodyPage : public KMPosedTagPage<KMTagRigidBody, editTagRigidBodyCommand>
{
    Q_OBJECT
public:
    explicit KMRigidBodyPage(KMTagRigidBody *tag);

private:
    void addSizes();
    void addGroups();
};

class KMJointPage : public KMPosedTagPage<KMTagJoint, editTagJointCommand>
{
    Q_OBJECT
public:
    explicit KMJointPage(KMTagJoint *tag);

private:
    void addConnection(const QString &label, const QString &key, QPointer<KMTagRigidBody> JointData::*side);
    void addLimits(const QString &label, const QString &key, JointData::Limits JointData::*limits);

    KMTagJoint *m_tag;
};

class KMTagGroupPage : public KMParameterPage<KMTagPage, KMTagGroup, editTagGroupCommand>
{
    Q_OBJECT
public:
    explicit KMTagGroupPage(KMTagGroup *tag);
};

class KMTagFloatValuePage : public KMParameterPage<KMTagPage, KMTagFloatValue, editTagFloatCommand>
{
    Q_OBJECT
public:
    explicit KMTagFloatValuePage(KMTagFloatValue *tag);
};

class KMTagTextPage : public KMTagPage
{
    Q_OBJECT
public:
    explicit KMTagTextPage(KMTagText *tag);
};

class KMTagSelectionPage : public KMTagPage
{
    Q_OBJECT
public:
    explicit KMTagSelectionPage(KMTagSelection *tag);
};
