#include "formats/PmxRigBuilder.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMParentLoops.h"
#include "formats/PmxLayout.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMTagConstraint.h"

#include <cmath>

namespace {

constexpr float lengthOfScale = 0.01f; // a length scale is a hundredth of the length

} // namespace

PmxRigBuilder::PmxRigBuilder(const PmxFile &file, const PmxScale &scale)
    : m_file(file)
    , m_scale(scale)
{
}

void PmxRigBuilder::push()
{
    m_rig = new KMBoneContainer;
    gProject->addToScene(m_rig);
    makeBones();
    // Tags come and go with their new bones: a step for each would walk over all of a bone's tags each time.
    addConstraints();
    addBodies();
    addJoints();
    hangBones();
}

void PmxRigBuilder::makeBones()
{
    m_bones.reserve(int(m_file.bones.size()));
    for (const PmxFile::Bone &record : m_file.bones) {
        auto *bone = new KMBone;
        bone->setName(record.name.local);
        bone->setEnName(record.name.universal);
        bone->setRest(restOf(record));
        bone->setMovable(record.flags & Pmx::Movable);
        m_bones << bone;
    }
}

KMBoneRest PmxRigBuilder::restOf(const PmxFile::Bone &record) const
{
    KMBoneRest rest;
    rest.head = m_scale(record.position);
    const float length = m_scale(record.tailOffset).length();
    rest.lengthScale = std::isfinite(length) ? length * lengthOfScale : 0.0f;
    if (record.flags & Pmx::HasLocalAxes)
        rest.rotation = rotationOf(record.axisX, record.axisZ);
    return rest;
}

kvm::Quaternion PmxRigBuilder::rotationOf(const kvm::Vector3 &axisX, const kvm::Vector3 &axisZ)
{
    const kvm::Vector3 z = axisZ.normalized();
    return directionToQuaternion(z, cross(z, axisX.normalized()));
}

QVector<int> PmxRigBuilder::soundParents()
{
    QVector<int> parents;
    parents.reserve(m_bones.size());
    for (const PmxFile::Bone &record : m_file.bones)
        parents << record.parent;
    for (const int cut : cutParentLoops(parents))
        m_warnings
            << tr("The bone %1 stands below itself and was put at the top").arg(m_file.bones[size_t(cut)].name.brief());
    return parents;
}

/// In the order of the file, which is that of children below their parent too; a bone in front of its parent waits for
/// it.
void PmxRigBuilder::hangBones()
{
    const QVector<int> parents = soundParents();
    QVector<QVector<int>> waiting(m_bones.size());
    m_depths.fill(-1, m_bones.size());
    m_parents.fill(-1, m_bones.size());
    for (int i = 0; i < m_bones.size(); ++i) {
        if (parents[i] >= 0 && m_depths[parents[i]] < 0) {
            waiting[parents[i]] << i;
            continue;
        }
        QVector<int> open{i};
        while (!open.isEmpty()) {
            const int next = open.takeLast();
            hang(next, parents[next]);
            for (int w = waiting[next].size() - 1; w >= 0; --w)
                open << waiting[next][w];
        }
    }
}

void PmxRigBuilder::hang(int bone, int parent)
{
    // Below the limit children come beside their parent: many walks recurse.
    if (parent >= 0 && m_depths[parent] >= KMBoneEdit::MaxDepth) {
        m_warnings
            << tr("The bone %1 lies too deep in its rig and was moved up").arg(m_file.bones[size_t(bone)].name.brief());
        parent = m_parents[parent];
    }
    m_parents[bone] = parent;
    m_depths[bone] = parent < 0 ? 0 : m_depths[parent] + 1;
    gSolution->push(new addBoneCommand(m_rig, m_bones[bone], this->bone(parent)));
}

/// In doubles, and rounded once.
float PmxRigBuilder::inDegrees(float radians, double sign) const
{
    return m_scale.finite(float(sign * Pmx::DegreesPerRadian * double(radians)));
}

void PmxRigBuilder::addConstraints()
{
    for (int i = 0; i < m_bones.size(); ++i) {
        const PmxFile::Bone &record = m_file.bones[size_t(i)];
        if (record.flags & Pmx::InheritsRotation)
            addConstraint(i, {bone(record.rotation.bone), record.rotation.ratio, 0, KMTagConstraint::Rotate, 0});
        if (record.flags & Pmx::InheritsTranslation)
            addConstraint(i,
                          {bone(record.translation.bone), record.translation.ratio, 0, KMTagConstraint::Translate, 0});
        if (record.flags & Pmx::HasFixedAxis)
            addConstraint(i, {nullptr, 0.0f, 0, KMTagConstraint::Twist, 0});
        if (!(record.flags & Pmx::HasIK))
            continue;
        const float angle = inDegrees(record.ikAngle);
        addConstraint(i, {bone(record.ikTarget), angle, record.ikLoop, KMTagConstraint::IK, int(record.links.size())});
        setLimits(record);
    }
}

void PmxRigBuilder::addConstraint(int bone, const ConstraintData &data)
{
    auto *tag = new KMTagConstraint;
    tag->setName(m_bones[bone]->name());
    tag->setData(data);
    m_bones[bone]->addTagKeepName(tag);
}

/// The bones are new: what undoes them undoes their limits.
void PmxRigBuilder::setLimits(const PmxFile::Bone &record)
{
    for (const PmxFile::Link &link : record.links) {
        if (!link.isLimited || !bone(link.bone))
            continue;
        BoneLimit limits;
        limits.minH = link.lower.x;
        limits.maxH = link.upper.x;
        limits.minP = link.lower.y;
        limits.maxP = link.upper.y;
        limits.minB = link.lower.z;
        limits.maxB = link.upper.z;
        limits.enabled = true;
        bone(link.bone)->setLimits(limits);
    }
}
