#pragma once

#include "math/Vector3.h"
#include "rig/KMWeightLists.h"

#include <QVector>

class KMBone;
struct KMSdefVertex;

/// The record of one vertex of a weight tag: a light view of the tag's arrays, valid until weights, bones or the mesh
/// change.
class VertexWeights
{
public:
    VertexWeights(int vertex, KMShareView shares, const KMSdefVertex *sdef, const QVector<KMBone *> &bones)
        : m_vertex(vertex)
        , m_shares(shares)
        , m_sdef(sdef)
        , m_bones(bones)
    {
    }

    int vertex() const { return m_vertex; } ///< -1 for an empty slot of the mesh
    int count() const { return m_shares.size(); }
    float weight(int i) const { return m_shares[i].weight; }
    KMBone *bone(int i) const { return m_bones.at(m_shares[i].bone); } ///< null for one that is gone for good
    QVector<float> weights() const;  ///< one for each bone, of a spherical blend the parent's first
    QVector<KMBone *> bones() const; ///< parallel to them

    bool sdef() const { return m_sdef; } ///< blended spherically: flagged, and with exactly two bones
    bool unrelated() const;              ///< of these neither is the other's parent
    kvm::Vector3 sdefC() const;          ///< centre; zero for a vertex without a spherical blend, as the next two
    kvm::Vector3 sdefR0() const;         ///< reference points, relative to the weighted middle of the two
    kvm::Vector3 sdefR1() const;

private:
    int m_vertex;
    KMShareView m_shares;
    const KMSdefVertex *m_sdef;
    const QVector<KMBone *> &m_bones;
};
