#pragma once

#include "core/KMNullNode.h"
#include "rig/KMRestBone.h"
#include "rig/PoseTransform.h"

#include <QPointer>
#include <QVector>

class KMBone;
class KMBoneContainer;

/// Takes a rig along with what it stands in: bones at rest and posed, keys, physics and the plane of symmetry. Bones
/// can't be slanted, bodies keep their proportions.
class KMRigCarry
{
public:
    explicit KMRigCarry(KMBoneContainer *rig); ///< as it stands now

    void show(const kvm::Matrix4 &step) const; ///< from there, without the history; keys and physics wait for the step
    void restore() const;                      ///< bit for bit

    static void push(KMBoneContainer *rig, const kvm::Matrix4 &step); ///< opens no macro

private:
    struct Start
    {
        KMBone *bone;
        KMBoneRest rest;
        PoseTransform pose;
    };

    QPointer<KMBoneContainer> m_rig; // the bones go with it
    KMTransform m_transform;
    QVector<Start> m_bones;
};
