#pragma once

#include <QMetaType>

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
