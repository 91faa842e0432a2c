#pragma once

#include "math/Vector3.h"
#include "rig/KMSdefPairs.h"
#include "rig/KMSdefParameters.h"
#include "rig/KMWeightLists.h"
#include "rig/KMWeightParameters.h"

class KMBone;
class KMMeshNode;

/// A vertex that is blended spherically.
struct KMSdefVertex
{
    int vertex = -1;
    int pair = -1; ///< of KMWeightRecords::pairs()
    bool unrelated = false;
    kvm::Vector3 place; ///< for which the parameters hold
    KMSdefParameters parameters;
};

/// What the records of a weight tag are derived from.
struct KMWeightSource
{
    const KMMeshNode &mesh;
    const QVector<KMBone *> &bones; ///< by the number in a share; null for one that is gone
    const KMWeightLists &lists;
    const QVector<int> &sdefVertices; ///< flagged by the user; ascending
    const KMWeightParameters &parameters;
};

/// The weights of all vertices as they count: normalised where that is asked for, those of spherically blended
/// vertices with the parent's first, and with the parameters of the blend.
///
/// A bone that is gone for good has no say. The weight of a deleted one counts in the sum, since its share of a linear
/// blend stays at rest; between two live bones a vertex is blended spherically without it.
class KMWeightRecords
{
public:
    void rebuild(const KMWeightSource &source);
    void follow(const KMWeightSource &source, const QVector<int> &vertices); ///< other weights or flags of these
    /// Vertices or bones stand elsewhere: the spherical blends follow where they have to.
    void followPlaces(const KMWeightSource &source);
    void clear();

    KMShareView of(int vertex) const { return m_lists.of(vertex); }
    const KMSdefVertex *sdefOf(int vertex) const ///< null for one that is blended linearly
    {
        const int place = m_sdefOf.isEmpty() ? -1 : m_sdefOf.value(vertex, -1);
        return place < 0 ? nullptr : m_sdef.constData() + place;
    }
    bool hasSdef() const { return !m_sdef.isEmpty(); }
    const QVector<SdefPair> &pairs() const { return m_pairs.pairs(); }
    int sdefRevision() const { return m_sdefRevision; } ///< another whenever spherical blends were derived anew
    /// Appends the vertices, beside those that were edited, whose spherical blends were derived anew since a revision;
    /// false when it may be all.
    bool derivedSince(int revision, QVector<int> &vertices) const;

private:
    /// What a bone was like when the blends were derived.
    struct Rest
    {
        kvm::Vector3 head, tail;
        const KMBone *parent;
        int index;
        bool isGone;

        bool operator==(const Rest &other) const;
    };

    static Rest restOf(const KMBone *bone);
    bool arePlacesOther(const KMWeightSource &source) const;
    void takeOver(const KMWeightSource &source, int vertex, bool blends);
    bool count(const KMWeightSource &source, int vertex, bool isFlagged);
    void normalize(const KMWeightSource &source, int vertex);
    void rebuildSdef(const KMWeightSource &source);
    bool followPair(const KMWeightSource &source, int vertex, bool blends, QVector<int> &touched);
    void placeRecord(int vertex, int pair);
    void dropRecord(int vertex);
    bool measure(const KMWeightSource &source, int pair);
    void derive(const KMWeightSource &source, KMSdefVertex &record);

    KMWeightLists m_lists;
    QVector<int> m_sdefOf; // by vertex; empty while there is none
    QVector<KMSdefVertex> m_sdef;
    KMSdefPairs m_pairs;
    int m_sdefRevision = 0;
    QVector<int> m_derived;      // by the last step to a revision
    bool m_areAllDerived = true; // by that step, or it is about the first
    QVector<Rest> m_rests;       // by the number of the bone; kept while there are flagged vertices
};
