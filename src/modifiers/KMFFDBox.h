#pragma once

#include "core/KMNullNode.h"

#include <QtGlobal>

#include <array>

/// The box of a lattice about the origin of its node, and how many control points divide its sides.
struct KMFFDBox
{
    static constexpr int MinNodes = 2;
    static constexpr int MaxNodes = 128;        ///< along a side
    static constexpr float MaxSize = 1e9f;      ///< whose third power is a number still
    static constexpr qint64 MaxPoints = 300000; ///< the lines between more would take half a gigabyte

    kvm::Vector3 size{50.0f, 50.0f, 50.0f};
    std::array<int, 3> nodeCounts{{3, 3, 3}};

    KMFFDBox sound() const; ///< with the nearest values that are in range; the number of points apart
    qint64 pointCount() const { return qint64(nodeCounts[0]) * nodeCounts[1] * nodeCounts[2]; }
    int indexOf(int i, int j, int k) const { return (i * nodeCounts[1] + j) * nodeCounts[2] + k; }
    kvm::Vector3 restPoint(int index) const; ///< where an untouched control point is in the space of the node
    bool operator==(const KMFFDBox &other) const { return size == other.size && nodeCounts == other.nodeCounts; }

    /// Out of the space of a node and back. Along an axis that the scale presses flat the way back leads to what
    /// `flat` says.
    static kvm::Vector3 toWorld(const KMTransform &transform, const kvm::Vector3 &point);
    static kvm::Vector3 toLocal(const KMTransform &transform, const kvm::Vector3 &point, const kvm::Vector3 &flat = {});
};
