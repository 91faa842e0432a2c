#pragma once

#include "math/MathReference.h"

#include <QHash>
#include <QVector>

class KMBone;
class KMTagBoneWeight;

/// Where bones take the vertices of a mesh, computed in double from what the user entered: entries, flags and settings
/// of the tag, rest places, and the solved poses of the bones.
class SkinReference
{
public:
    using Vec = reference::Vec;
    using Quat = std::array<double, 4>; ///< w first

    /// Of a vertex that is blended spherically between two bones, the parent first.
    struct Blend
    {
        const KMBone *p, *q;
        double w0, w1;
        bool unrelated;
        Vec c, r0, r1;
    };

    explicit SkinReference(const KMTagBoneWeight &tag);

    Vec at(int vertex) const;
    bool isSpherical(int vertex) const { return m_blends.contains(vertex); }
    Blend blend(int vertex) const { return m_blends.value(vertex); } ///< where isSpherical()
    Vec rigid(int vertex) const; ///< an unrelated pair in the form that follows a turn of both bones

    static Quat quat(const kvm::Quaternion &q) { return {double(q.w), double(q.x), double(q.y), double(q.z)}; }

private:
    struct Pair
    {
        const KMBone *a = nullptr, *b = nullptr;
        bool unrelated = false;
        Vec normal{};
        double d = 0;
        int farA = -1, farB = -1;
        double distanceA = 0, distanceB = 0, weightA = 0, weightB = 0;
        QVector<int> vertices;
    };
    Vec place(int vertex) const;
    double weightOf(int vertex, const KMBone *bone) const;
    void collectPairs();
    void measurePair(Pair &pair) const;
    void addBlend(int vertex, const Pair &pair);
    QVector<double> normalized(QVector<double> weights) const;
    Vec spherical(const Blend &blend, const Vec &p, bool rigid) const;

    const KMTagBoneWeight &m_tag;
    QVector<Pair> m_pairs;
    QHash<int, Blend> m_blends;
};
