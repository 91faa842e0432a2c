#include "support/SkinReference.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"

using namespace reference;
using Vec = reference::Vec;
using Quat = SkinReference::Quat;

namespace {

Quat times(const Quat &a, const Quat &b)
{
    return {
        a[0] * b[0] - a[1] * b[1] - a[2] * b[2] - a[3] * b[3], a[0] * b[1] + a[1] * b[0] + a[2] * b[3] - a[3] * b[2],
        a[0] * b[2] - a[1] * b[3] + a[2] * b[0] + a[3] * b[1], a[0] * b[3] + a[1] * b[2] - a[2] * b[1] + a[3] * b[0]};
}

Quat conjugate(const Quat &q)
{
    return {q[0], -q[1], -q[2], -q[3]};
}

Quat ofUnitLength(const Quat &q)
{
    const double l = std::sqrt(q[0] * q[0] + q[1] * q[1] + q[2] * q[2] + q[3] * q[3]);
    return l > 0 ? Quat{q[0] / l, q[1] / l, q[2] / l, q[3] / l} : Quat{1, 0, 0, 0};
}

Vec turned(const Quat &q, const Vec &v)
{
    const Quat result = times(times(q, {0, v[0], v[1], v[2]}), conjugate(q));
    return {result[1], result[2], result[3]};
}

Quat nlerp(const Quat &x, const Quat &y, double t)
{
    const double side = x[0] * y[0] + x[1] * y[1] + x[2] * y[2] + x[3] * y[3] >= 0 ? 1 : -1;
    Quat mixed;
    for (size_t i = 0; i < 4; ++i)
        mixed[i] = x[i] + (side * y[i] - x[i]) * t;
    return ofUnitLength(mixed);
}

Vec skinned(const KMBone &bone, const Vec &p)
{
    const kvm::Matrix4 &m = bone.skinMatrix();
    Vec result;
    for (int r = 0; r < 3; ++r)
        result[size_t(r)] = double(m[r]) * p[0] + double(m[4 + r]) * p[1] + double(m[8 + r]) * p[2] + double(m[12 + r]);
    return result;
}

Vec head(const KMBone *bone)
{
    return vec(bone->restHead());
}

Vec tail(const KMBone *bone)
{
    return vec(bone->restTail());
}

Vec direction(const KMBone *bone)
{
    return unit(minus(head(bone), tail(bone)));
}

Vec foot(const KMBone *bone, const Vec &p)
{
    const Vec v = minus(p, tail(bone));
    const double l = length(v);
    const double c = l > 0 ? std::min(1.0, std::max(-1.0, dot(v, direction(bone)) / l)) : 1;
    return plus(tail(bone), direction(bone), c * l);
}

Vec projection(const Vec &x, const Vec &a, const Vec &b)
{
    const Vec along = unit(minus(b, a));
    return plus(a, along, dot(minus(x, a), along));
}

} // namespace

SkinReference::SkinReference(const KMTagBoneWeight &tag)
    : m_tag(tag)
{
    collectPairs();
    for (Pair &pair : m_pairs) {
        measurePair(pair);
        for (const int vertex : std::as_const(pair.vertices))
            addBlend(vertex, pair);
    }
}

Vec SkinReference::place(int vertex) const
{
    return vec(m_tag.mesh()->position(vertex));
}

double SkinReference::weightOf(int vertex, const KMBone *bone) const
{
    return double(m_tag.weight(vertex, bone));
}

void SkinReference::collectPairs()
{
    for (int v = 0; v < m_tag.mesh()->vertexCount(); ++v) {
        QVector<BoneWeightEntry> entries;
        for (const BoneWeightEntry &entry : m_tag.entriesOf(v)) {
            if (!entry.bone->isDeleted())
                entries.append(entry);
        }
        if (!m_tag.mesh()->vertex(v) || !m_tag.hasSdefFlag(v) || entries.size() != 2)
            continue;
        const KMBone *a = entries[0].bone, *b = entries[1].bone;
        if (a->boneIndex() < b->boneIndex())
            std::swap(a, b);
        const bool isBelow = a->parentBone() == b;
        if (isBelow)
            std::swap(a, b);
        Pair pair;
        pair.a = a;
        pair.b = b;
        pair.unrelated = !isBelow && b->parentBone() != a;
        const bool byChild = m_tag.parameters().sdefMethod == 1;
        const Vec through = isBelow || byChild ? head(b) : head(a);
        pair.normal = byChild ? direction(b) : isBelow ? direction(a) : scaled(direction(a), -1);
        pair.d = -dot(pair.normal, through);
        const auto known = std::find_if(m_pairs.begin(), m_pairs.end(),
                                        [&](const Pair &other) { return other.a == a && other.b == b; });
        (known == m_pairs.end() ? *m_pairs.insert(m_pairs.end(), pair) : *known).vertices.append(v);
    }
}

void SkinReference::measurePair(Pair &pair) const
{
    for (const int v : std::as_const(pair.vertices)) {
        const Vec p = place(v);
        const double value = dot(p, pair.normal) + pair.d;
        const double fromA = length(minus(head(pair.unrelated ? pair.a : pair.b), p));
        const double fromB = length(minus(head(pair.b), p));
        if (fromA >= pair.distanceA && value < 0) {
            pair.farA = v;
            pair.distanceA = fromA;
            pair.weightA = weightOf(v, pair.a);
        }
        if (fromB >= pair.distanceB && value >= 0) {
            pair.farB = v;
            pair.distanceB = fromB;
            pair.weightB = weightOf(v, pair.b);
        }
    }
}

QVector<double> SkinReference::normalized(QVector<double> weights) const
{
    if (!m_tag.parameters().autoNormalize)
        return weights;
    double sum = 0;
    for (const double w : std::as_const(weights))
        sum += w;
    if (weights.size() == 1 || sum == 0) {
        weights.last() = 1;
        return weights;
    }
    for (double &w : weights)
        w /= sum;
    return weights;
}

void SkinReference::addBlend(int vertex, const Pair &pair)
{
    const Vec p = place(vertex);
    // The last of the two, which takes the rest, is the one that comes earlier in the rig.
    const bool isAFirst = pair.a->boneIndex() > pair.b->boneIndex();
    const KMBone *first = isAFirst ? pair.a : pair.b, *second = isAFirst ? pair.b : pair.a;
    const QVector<double> w = normalized({weightOf(vertex, first), weightOf(vertex, second)});
    Blend blend{pair.a, pair.b, isAFirst ? w[0] : w[1], isAFirst ? w[1] : w[0], pair.unrelated, {}, {}, {}};
    const Vec joint = head(blend.q);
    Vec dirB = minus(joint, tail(blend.q));
    Vec dirA = pair.unrelated ? minus(head(blend.p), tail(blend.p)) : minus(joint, head(blend.p));
    if (m_tag.parameters().sdefMethod == 0)
        dirB = scaled(dirA, -1);
    if (m_tag.parameters().sdefMethod == 1)
        dirA = scaled(dirB, -1);
    const Vec onP = foot(blend.p, p), onQ = foot(blend.q, p);
    blend.c = length(minus(onQ, p)) > length(minus(onP, p)) ? onP : onQ;
    blend.r0 = blend.r1 = joint;
    if (pair.farA >= 0 && pair.farB >= 0) {
        double ra = length(minus(projection(place(pair.farA), joint, tail(blend.q)), joint));
        double rb = length(minus(projection(place(pair.farB), head(blend.p), joint), joint));
        if (1 - pair.weightA != 0)
            ra /= 1 - pair.weightA;
        if (1 - pair.weightB != 0)
            rb /= 1 - pair.weightB;
        const double share = double(m_tag.parameters().sdefBlend) * 0.01;
        blend.r0 = plus(joint, unit(dirA), ra * share);
        blend.r1 = plus(joint, unit(dirB), rb * share);
    }
    const Vec middle = plus(scaled(blend.r0, blend.w1), blend.r1, blend.w0);
    blend.r0 = minus(blend.r0, middle);
    blend.r1 = minus(blend.r1, middle);
    m_blends.insert(vertex, blend);
}

Vec SkinReference::spherical(const Blend &blend, const Vec &p, bool rigid) const
{
    const Quat q0 = quat(blend.p->solvedPose().rotation), q1 = quat(blend.q->solvedPose().rotation);
    Quat k = quat(blend.q->keyPose().rotation);
    Vec r0 = turned(q1, blend.r0);
    if (blend.unrelated && rigid) {
        k = times(conjugate(q0), q1);
    } else if (blend.unrelated) {
        r0 = turned(times(conjugate(q0), q1), blend.r0);
        k = times(k, conjugate(q0));
    }
    const Vec r1 = turned(q0, blend.r1);
    const Vec a = plus(scaled(r0, blend.w1), r1, blend.w0);
    const Vec centre = plus(plus(blend.c, minus(skinned(*blend.p, blend.c), blend.c), blend.w0),
                            minus(skinned(*blend.q, blend.c), blend.c), blend.w1);
    const Vec base = scaled(plus(plus(a, centre), centre), 0.5);
    const Quat q = ofUnitLength(times(q0, nlerp({1, 0, 0, 0}, k, blend.w1)));
    return plus(turned(q, minus(p, blend.c)), base);
}

Vec SkinReference::at(int vertex) const
{
    const Vec p = place(vertex);
    const auto blend = m_blends.constFind(vertex);
    if (blend != m_blends.constEnd())
        return spherical(*blend, p, false);
    const QVector<BoneWeightEntry> entries = m_tag.entriesOf(vertex);
    QVector<double> weights;
    for (const BoneWeightEntry &entry : entries)
        weights.append(double(entry.weight));
    if (!weights.isEmpty())
        weights = normalized(weights);
    Vec result = p;
    for (int i = 0; i < entries.size(); ++i) {
        if (!entries[i].bone->isDeleted())
            result = plus(result, minus(skinned(*entries[i].bone, p), p), weights[i]);
    }
    return result;
}

Vec SkinReference::rigid(int vertex) const
{
    return spherical(m_blends.value(vertex), place(vertex), true);
}
