#pragma once

#include <QMetaType>
#include <QVector>

#include <algorithm>

class KMBone;

/// What the user says about a vertex and a bone: how much of the bone's motion the vertex takes, 0 to 1.
struct BoneWeightEntry
{
    int vertex = -1;
    float weight = 0.0f;
    KMBone *bone = nullptr; ///< not owned

    bool operator==(const BoneWeightEntry &other) const
    {
        return vertex == other.vertex && weight == other.weight && bone == other.bone;
    }
};

Q_DECLARE_TYPEINFO(BoneWeightEntry, Q_MOVABLE_TYPE);

/// Adds an entry to that of its bone, or as a new one.
inline void addTo(QVector<BoneWeightEntry> &sums, const BoneWeightEntry &entry)
{
    const auto isOfBone = [&entry](const BoneWeightEntry &sum) { return sum.bone == entry.bone; };
    const auto known = std::find_if(sums.begin(), sums.end(), isOfBone);
    if (known == sums.end())
        sums.append(entry);
    else
        known->weight += entry.weight;
}
