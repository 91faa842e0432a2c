#pragma once

#include "core/KMTagBase.h"

#include <QtGlobal>

class KMSymmetryPlane;

/// A tag that says something about the vertices of its mesh, and that a modifier's result can have as well: there it
/// follows from the tag of the input. The classes stand in higher layers.
class KMCarriedTag : public KMTagBase
{
public:
    /// Notification of a mesh whose tag says other things now: results downstream have to follow.
    static constexpr quint32 Changed = 0x10000;

    virtual KMCarriedTag *cloneEmpty() const = 0;    ///< of the same class, without anything about vertices
    virtual void beginCarry(KMCarriedTag &from) = 0; ///< forgets all, and takes over what isn't told by vertices

    /// The plane of the images that are carried next.
    virtual void mirrorAcross(const KMSymmetryPlane &plane) = 0;
    /// Whether the images of the last carrying would get something else now, across this plane: it, or what the tag
    /// refers to, may stand elsewhere.
    virtual bool isMirrorOther(const KMCarriedTag &from, const KMSymmetryPlane &plane) = 0;

    // After that, from the same tag

    virtual void carry(int fromVertex, int vertex) = 0;
    virtual void carryMirrored(int fromVertex, int vertex) = 0; ///< to an image across the plane of mirrorAcross()
    /// To a vertex that is a weighted sum of others.
    virtual void carryMixed(const int *fromVertices, const float *ratios, int count, int vertex) = 0;

    void markChanged(); ///< the mesh that has it, after an edit: its chain follows
};
