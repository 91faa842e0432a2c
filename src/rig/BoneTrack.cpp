#include "rig/BoneTrack.h"

#include "rig/UnitRotation.h"

namespace {

kvm::Quaternion between(const kvm::Quaternion &p, const kvm::Quaternion &n, float s)
{
    // Of the two ways round the shorter one.
    const kvm::Quaternion q = dot(p, n) >= 0.0f ? p + (n + -p) * s : p + (n + p) * -s;
    return unitRotation(q.normalized());
}

KMBoneKey between(const KMBoneKey &p, const KMBoneKey &n, quint32 frame)
{
    const float r = float(frame - p.frameno) / float(n.frameno - p.frameno);
    const float s = p.curve(KMBoneKey::RotationCurve).evaluate(r);
    KMBoneKey key = p;
    key.frameno = frame;
    key.rotation = between(p.rotation, n.rotation, s);
    // The curves of the position take the eased parameter of the rotation: poses line up by it.
    for (int axis = 0; axis < 3; ++axis) {
        const float u = p.curve(KMBoneKey::Curve(axis)).evaluate(s);
        key.position[axis] = p.position[axis] + (n.position[axis] - p.position[axis]) * u;
    }
    return key;
}

} // namespace

KMBoneKey BoneTrack::keyAt(quint32 frame) const
{
    const auto next = keys.lower_bound(frame);
    if (next == keys.end())
        return keys.rbegin()->second;
    if (next->first == frame || next == keys.begin())
        return next->second;
    return between(std::prev(next)->second, next->second, frame);
}
