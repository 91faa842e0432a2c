#pragma once

#include "mesh/KMElementFlag.h"
#include "mesh/KMRefList.h"

class QDebug;

/// An undirected edge between two vertices, derived from the faces that have it.
struct KMEdge
{
    int index0 = -1;       ///< the smaller vertex index
    int index1 = -1;       ///< the larger vertex index
    float weight = 0.0f;   ///< crease weight for subdivision
    quint8 flags = 0;      ///< bits of KMElementFlag
    quint8 drawn = 0;      ///< part of a face that the view shows
    KMRefList<2> faceRefs; ///< two is the manifold case, more or fewer are legal; a line polygon stands here twice

    quint64 key() const { return keyOf(index0, index1); }
    bool hasFlag(quint8 bit) const { return flags & bit; }
    int otherEnd(int vertex) const { return vertex == index0 ? index1 : index0; }

    static quint64 keyOf(int a, int b) ///< the larger index in the upper half; a and b in either order
    {
        return a < b ? quint64(quint32(b)) << 32 | quint32(a) : quint64(quint32(a)) << 32 | quint32(b);
    }
};

void copyEdge(KMEdge &destination, const KMEdge &source);
QDebug operator<<(QDebug debug, const KMEdge &edge);
