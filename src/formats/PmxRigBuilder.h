#pragma once

#include "formats/PmxFile.h"
#include "formats/PmxScale.h"
#include "rig/KMRestBone.h"
#include "rig/KMTagJoint.h"

#include <QCoreApplication>
#include <QStringList>
#include <QVector>

class KMBone;
class KMBoneContainer;
struct ConstraintData;
struct PoseTransform;

/// The bones, constraints, rigid bodies and joints of a PMX file as a rig of the document. Opens no macro.
class PmxRigBuilder
{
    Q_DECLARE_TR_FUNCTIONS(PmxRigBuilder)
public:
    PmxRigBuilder(const PmxFile &file, const PmxScale &scale);

    void push();
    const QVector<KMBone *> &bones() const { return m_bones; } ///< in the order of the file
    QStringList warnings() const { return m_warnings; }

    /// The axes that a bone of this rotation gets in a file are the ones that the rotation was made from.
    static kvm::Quaternion rotationOf(const kvm::Vector3 &axisX, const kvm::Vector3 &axisZ);

private:
    void makeBones();
    KMBoneRest restOf(const PmxFile::Bone &record) const;
    QVector<int> soundParents();
    void hangBones();
    void hang(int bone, int parent);
    void addConstraints();
    void addConstraint(int bone, const ConstraintData &data);
    void setLimits(const PmxFile::Bone &record);
    void addBodies();
    KMTagRigidBody *makeBody(const PmxFile::Body &record, const KMBone &bone);
    int kind(const QString &what, int value, int count, const PmxFile::Body &record);
    JointData::Limits angularLimits(const PmxFile::Joint &record) const;
    float inDegrees(float radians, double sign = 1.0) const;
    void addJoints();
    PoseTransform poseOn(const KMBone &bone, const kvm::Vector3 &position, const kvm::Vector3 &rotation) const;
    KMBone *bone(int index) const { return m_bones.value(index, nullptr); }

    const PmxFile &m_file;
    const PmxScale &m_scale;
    KMBoneContainer *m_rig = nullptr;
    QVector<KMBone *> m_bones;
    QVector<int> m_depths;              // in the tree
    QVector<int> m_parents;             // likewise
    QVector<KMTagRigidBody *> m_bodies; // in the order of the file; null for one without a bone
    QStringList m_warnings;
};
