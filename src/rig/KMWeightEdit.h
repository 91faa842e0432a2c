#pragma once

#include "rig/BoneWeightEntry.h"
#include "rig/KMWeightLists.h"

#include <QHash>
#include <QVector>

class KMTagBoneWeight;

/// Other weights for some vertices of a tag: what they had when each of them was first named here, and what they shall
/// have. The tag itself is left alone until write(); a brush that writes at each move, and then gives the whole stroke
/// to a step of the history, keeps one of these for the stroke.
class KMWeightEdit
{
public:
    enum class Side { Before, After };

    explicit KMWeightEdit(KMTagBoneWeight *tag);

    KMTagBoneWeight *tag() const { return m_tag; }
    const QVector<int> &vertices() const { return m_vertices; } ///< those that were named, in that order
    bool isNamed(int vertex) const { return m_places.contains(vertex); }
    bool isEmpty() const; ///< nothing would change

    // What the vertices shall have. Weights are brought into 0 to 1

    float weight(int vertex, KMBone *bone) const; ///< 0 without an entry
    bool hasEntry(int vertex, KMBone *bone) const;
    QVector<BoneWeightEntry> entriesOf(int vertex) const;
    void setWeight(int vertex, KMBone *bone, float weight); ///< adds an entry where there is none
    void removeEntry(int vertex, KMBone *bone);             ///< leaves a vertex without that entry alone
    /// In place of all that it had; bones that it had keep their places. Entries of deleted bones stay, for whoever
    /// takes the deletion back.
    void setEntries(int vertex, const QVector<BoneWeightEntry> &entries);
    void normalize(int vertex); ///< those of live bones to the sum 1, by the rule of KMTagBoneWeight

    void write(Side side) const;                               ///< into the tag
    void write(Side side, const QVector<int> &vertices) const; ///< these alone, of those that were named
    KMShareView shares(Side side, int vertex) const;           ///< of one that was named

private:
    int place(int vertex); // of a vertex that is now named
    KMShareView now(int vertex) const;

    KMTagBoneWeight *m_tag;
    QVector<int> m_vertices;
    QHash<int, int> m_places; // in m_vertices
    KMWeightLists m_before;   // by place
    KMWeightLists m_after;
};
