#include "rig/KMSkinning.h"

#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

/// From no turn to q, along the chord and by the shorter way.
Quaternion nlerpFromIdentity(const Quaternion &q, float t)
{
    const Quaternion start;
    const Quaternion mixed = dot(start, q) >= 0.0f ? start + (q + -start) * t : start + (q + start) * -t;
    return mixed.length() > 0.0f ? mixed.normalized() : Quaternion();
}

Vector3 moved(const Matrix4 &matrix, const Vector3 &point)
{
    return matrix * point - point;
}

} // namespace

void KMSkinning::prepare(const KMTagBoneWeight &tag, const KMWeightRecords &records)
{
    m_records = &records;
    const QVector<KMBone *> &bones = tag.bones();
    if (m_matrices.size() != bones.size()) {
        m_matrices.resize(bones.size());
        m_poses.resize(bones.size());
    }
    Matrix4 *matrices = m_matrices.data();
    Pose *poses = m_poses.data();
    for (int i = 0, n = bones.size(); i < n; ++i) {
        const KMBone *bone = bones.at(i);
        const bool isThere = bone && !bone->isDeleted();
        matrices[i] = isThere ? bone->skinMatrix() : Matrix4();
        poses[i] = isThere ? Pose{bone->solvedPose().rotation, bone->keyPose().rotation} : Pose();
    }
    m_matrixData = m_matrices.constData();
}

Vector3 KMSkinning::operator()(int vertex, const Vector3 &rest) const
{
    const KMSdefVertex *record = m_records->sdefOf(vertex);
    return record ? spherical(*record, rest) : linear(vertex, rest);
}

Vector3 KMSkinning::linear(int vertex, const Vector3 &rest) const
{
    Vector3 way;
    for (const KMBoneShare &share : m_records->of(vertex))
        way += moved(m_matrixData[share.bone], rest) * share.weight;
    return rest + way;
}

Vector3 KMSkinning::spherical(const KMSdefVertex &record, const Vector3 &rest) const
{
    const KMShareView shares = m_records->of(record.vertex);
    const float w0 = shares[0].weight, w1 = shares[1].weight;
    const Quaternion q0 = m_poses.at(shares[0].bone).solved;
    const Quaternion q1 = m_poses.at(shares[1].bone).solved;
    const KMSdefParameters &sdef = record.parameters;

    Quaternion key = m_poses.at(shares[1].bone).key;
    Vector3 r0 = q1.rotate(sdef.r0);
    if (record.unrelated) {
        r0 = (q0.conjugate() * q1).rotate(sdef.r0);
        key = key * q0.conjugate();
    }
    const Vector3 r1 = q0.rotate(sdef.r1);
    const Vector3 between = r0 * w1 + r1 * w0;
    const Vector3 centre =
        sdef.c + moved(m_matrixData[shares[0].bone], sdef.c) * w0 + moved(m_matrixData[shares[1].bone], sdef.c) * w1;
    const Vector3 base = (between + centre + centre) * 0.5f;
    const Quaternion turn = (q0 * nlerpFromIdentity(key, w1)).normalized();
    return turn.rotate(rest - sdef.c) + base;
}
