#include "rig/KMSdefParameters.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMWeightParameters.h"

#include <algorithm>
#include <cmath>

using kvm::Vector3;

namespace {

/// The point on the line of a bone that is nearest to a place.
Vector3 footOn(const KMBone &bone, const Vector3 &place)
{
    const Vector3 along = (bone.restHead() - bone.restTail()).normalized();
    const Vector3 way = place - bone.restTail();
    const float length = way.length();
    const float angle = length > 0.0f ? std::acos(std::clamp(dot(way, along) / length, -1.0f, 1.0f)) : 0.0f;
    return bone.restTail() + along * (std::cos(angle) * length);
}

Vector3 projected(const Vector3 &x, const Vector3 &a, const Vector3 &b)
{
    const Vector3 along = (b - a).normalized();
    return a + along * dot(x - a, along);
}

Vector3 centreOf(const Vector3 &place, const KMBone &p, const KMBone &q)
{
    const Vector3 onP = footOn(p, place);
    const Vector3 onQ = footOn(q, place);
    return (onQ - place).length() > (onP - place).length() ? onP : onQ;
}

float withoutOwnShare(float reach, float weight)
{
    const float rest = 1.0f - weight;
    return rest == 0.0f ? reach : reach / rest;
}

} // namespace

KMSdefParameters KMSdefParameters::of(const Vector3 &place, const KMBone &p, const KMBone &q, float weightP,
                                      float weightQ, const SdefPair &pair, const KMMeshNode &mesh,
                                      const KMWeightParameters &parameters)
{
    const Vector3 joint = q.restHead();
    Vector3 dirB = joint - q.restTail();
    Vector3 dirA = pair.unrelated ? p.restHead() - p.restTail() : joint - p.restHead();
    if (parameters.sdefMethod == KMWeightParameters::Parent)
        dirB = -dirA;
    else if (parameters.sdefMethod == KMWeightParameters::Child)
        dirA = -dirB;

    KMSdefParameters result;
    result.c = centreOf(place, p, q);
    result.r0 = result.r1 = joint;
    const KMVertex *farA = mesh.vertex(pair.farVertexA);
    const KMVertex *farB = mesh.vertex(pair.farVertexB);
    if (farA && farB) {
        float ra = (projected(farA->pos, joint, q.restTail()) - joint).length();
        float rb = (projected(farB->pos, p.restHead(), joint) - joint).length();
        ra = withoutOwnShare(ra, pair.farWeightA) * (parameters.sdefBlend * 0.01f);
        rb = withoutOwnShare(rb, pair.farWeightB) * (parameters.sdefBlend * 0.01f);
        result.r0 = joint + dirA.normalized() * ra;
        result.r1 = joint + dirB.normalized() * rb;
    }
    const Vector3 middle = result.r0 * weightQ + result.r1 * weightP; // each by the weight of the other
    result.r0 -= middle;
    result.r1 -= middle;
    return result;
}
