#pragma once

#include "math/Vector3.h"

#include <QPair>
#include <QVector>

#include <tuple>

class KMBone;

/// Two bones that share vertices which are blended spherically, with the vertices that reach farthest along either of
/// them. Of related bones A is the parent.
struct SdefPair
{
    QPair<int, int> key; ///< the places of the bones in their container, the smaller first
    KMBone *boneA = nullptr;
    KMBone *boneB = nullptr;
    int indexA = -1; ///< place in the container
    int indexB = -1;
    int farVertexA = -1; ///< on A's side of the plane between the two
    int farVertexB = -1;
    float farDistanceA = 0.0f;
    float farDistanceB = 0.0f;
    float farWeightA = 0.0f; ///< of the vertex on A
    float farWeightB = 0.0f;
    bool unrelated = false; ///< neither is the other's parent
    float planeD = 0.0f;
    kvm::Vector3 planeNormal;
    QVector<int> vertices;
    bool isMeasured = false; ///< whether the far ones are the farthest of these

    using Farthest = std::tuple<int, int, float, float, float, float>;
    Farthest farthest() const ///< all that the blends of the other vertices depend on
    {
        return {farVertexA, farVertexB, farDistanceA, farDistanceB, farWeightA, farWeightB};
    }
    float planeValue(const kvm::Vector3 &point) const { return dot(point, planeNormal) + planeD; } ///< below 0 for A
};
