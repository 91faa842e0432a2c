#pragma once

#include "core/KMVertexFollower.h"
#include "modifiers/KMCarriedTag.h"
#include "rig/BoneWeightEntry.h"
#include "rig/KMBonePartners.h"
#include "rig/KMWeightRecords.h"
#include "rig/VertexWeights.h"

#include <QCoreApplication>
#include <QHash>

#include <optional>

class KMMeshNode;

/// Binds the vertices of a mesh to bones. What the user says are entries, one for a vertex and a bone; what counts are
/// the records of the vertices, which are derived from them together with the parameters of spherical blends.
///
/// Storage is dense: the tag numbers its bones, and the entries of a vertex are a short list of numbers and weights in
/// one array for all vertices, in the order in which they were entered. So a pair is found by looking through the few
/// entries of its vertex, and lists of a few vertices are exchanged without touching the others. Numbers are never
/// given anew while the tag lives, and steps of the history may keep them (but for tags of results); a bone that is
/// destroyed leaves null.
///
/// Records follow when they are next asked for: all of them after a refresh of the whole mesh, else those of the
/// vertices that were edited, and the spherical blends when bones or their vertices stand elsewhere. The reach of the
/// bones is measured with all of them only, since a drag would measure it for nobody.
///
/// An empty slot of the mesh keeps its entries, so that undoing a deletion brings them back; a renumbering drops them
/// until it is undone.
class KMTagBoneWeight : public KMCarriedTag, public KMVertexFollower
{
    Q_DECLARE_TR_FUNCTIONS(KMTagBoneWeight)
public:
    /// Mask of a rebuild that leaves meshes alone which a chain of modifiers evaluates.
    static constexpr int OnlyEditable = 65535;

    KMTagBoneWeight();

    KMMeshNode *mesh() const; ///< the owner, null when that is no mesh
    const KMWeightParameters &parameters() const { return m_parameters; }
    void setParameters(const KMWeightParameters &parameters);

    // Entries. A weight that is no number becomes 0, one out of 0 to 1 the nearest

    void addEntry(const BoneWeightEntry &entry); ///< at the end of its vertex's; sets the weight of one that is there
    bool removeEntry(int vertex, const KMBone *bone); ///< whether there was one
    std::optional<BoneWeightEntry> entry(int vertex, const KMBone *bone) const;
    bool hasEntry(int vertex, const KMBone *bone) const;
    float weight(int vertex, const KMBone *bone) const; ///< 0 without an entry
    QVector<BoneWeightEntry> entriesOf(int vertex) const;
    QVector<BoneWeightEntry> entries() const; ///< vertex by vertex; without bones that are gone for good
    bool isEmpty() const { return m_lists.isEmpty(); }
    void clearEntries();                        ///< and the flags
    int revision() const { return m_revision; } ///< another whenever entries, flags or numbers may be others

    // The same by numbers, for steps that change many

    const KMWeightLists &lists() const { return m_lists; }
    void setShares(int vertex, KMShareView shares); ///< all of a vertex, in place of what it had
    int numberOf(KMBone *bone);                     ///< gives it one the first time
    void exchangeBone(int number, KMBone *bone);    ///< all entries of it go to another bone, that has no number yet
    int knownNumberOf(const KMBone *bone) const { return m_numbers.value(bone, -1); }
    const QVector<KMBone *> &bones() const { return m_bones; } ///< by number; null for one that is gone for good
    bool isLive(int number) const;                             ///< its bone is neither gone for good nor deleted
    static float bounded(float weight);

    // Vertices that shall be blended spherically

    bool hasSdefFlag(int vertex) const { return m_sdefFlags.value(vertex, 0); }
    void setSdefFlag(int vertex, bool flagged);
    const QVector<int> &sdefVertices() const; ///< the flagged ones, ascending

    // Derived

    void markDirty();                       ///< everything derived is to be made anew
    void rebuildWeights(int mask) override; ///< bits of KMMeshDirty, or OnlyEditable: what the mesh's refresh changed
    VertexWeights vertexWeights(int vertex) const; ///< for one; who walks over many takes records() and viewOf()
    const KMWeightRecords &records() const;        ///< of a tag that isn't on a mesh there are none
    /// The same for a brush, which needs them for a few other weights at each of its moves: what bones and vertices
    /// that stand elsewhere make of them is left to whoever asks for all.
    const KMWeightRecords &editedRecords() const;
    VertexWeights viewOf(const KMWeightRecords &derived, int vertex) const; ///< in records() as they are now
    const QVector<SdefPair> &sdefPairs() const { return records().pairs(); }
    /// Brings the weights of each record to the sum 1, where autoNormalize asks for that; the entries stay.
    void normalizeAll();
    /// Tells the bones how far their vertices are from their heads, as they stand now: for whoever reads that.
    void measureReach() const;

    void remapIndices() override;
    void
    pushVerticesMade(const QVector<KMVertexOrigin> &origins) override; ///< each gets the mean of its sources' weights
    KMTagBoneWeight *clone() const override;

    // For results of modifiers

    KMTagBoneWeight *cloneEmpty() const override;
    void beginCarry(KMCarriedTag &from) override;
    void carry(int fromVertex, int vertex) override;
    void mirrorAcross(const KMSymmetryPlane &plane) override; ///< bones have partners across it
    bool isMirrorOther(const KMCarriedTag &from, const KMSymmetryPlane &plane) override;
    void carryMirrored(int fromVertex, int vertex) override;
    void carryMixed(const int *fromVertices, const float *ratios, int count, int vertex) override;

private:
    /// What a renumbering dropped, under the indices before it.
    struct Lost
    {
        QVector<int> flagged;
        QVector<int> vertices;
        KMWeightLists lists; // by place in vertices
    };
    struct Reach
    {
        kvm::Vector3 head;
        float distance = 0.0f;
        int vertex = -1;
    };

    void forgetBone(KMNode *bone);
    void touch(int vertex);
    void staleAll();
    KMWeightSource source() const;
    void restore(const Lost &lost);
    void carryShares(KMShareView shares, const QVector<int> &numbers, int vertex);

    KMWeightParameters m_parameters;
    KMWeightLists m_lists;
    QVector<KMBone *> m_bones; // not owned
    QHash<const KMBone *, int> m_numbers;
    int m_revision = 0;
    QVector<quint8> m_sdefFlags; // by vertex; the vertices from its end on have none

    // Of the tag that is carried over
    const KMTagBoneWeight *m_from = nullptr;
    QVector<int> m_carried;  // from its numbers to those here
    QVector<int> m_mirrored; // likewise, to the partners
    KMBonePartners m_partners;

    mutable KMWeightRecords m_records;
    mutable QVector<int> m_sdefVertices;
    mutable bool m_areSdefVerticesKnown = false;
    mutable bool m_isStale = true;  // all of the records
    mutable QVector<int> m_touched; // edited since the records were derived
    mutable QVector<Reach> m_reach; // of the bones, while it is measured
};
