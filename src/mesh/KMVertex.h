#pragma once

#include "math/Vector3.h"
#include "mesh/KMElementFlag.h"
#include "mesh/KMRefList.h"

class QDebug;

/// A point of a mesh. Its faces refer to it by its place in the mesh's store.
struct KMVertex
{
    kvm::Vector3 pos;       ///< in world space
    kvm::Vector3 screenPos; ///< pixels and depth of the last projection
    quint8 flags = 0;       ///< bits of KMElementFlag
    quint8 drawn = 0;       ///< a face that the view shows uses it
    float weight = 0.0f;    ///< crease weight for subdivision
    KMRefList<4> faceRefs;  ///< the faces that use it, each once, in order of arrival
    int index = -1;         ///< own place in the store as of the last refresh; the source's in a fresh clone

    bool hasFlag(quint8 bit) const { return flags & bit; }
    /// Not behind the eye nor beyond the far end as of the last projection. It may lie beside the window.
    bool isInView() const { return screenPos.z >= 0.0f && screenPos.z <= 1.0f; }
};

void copyVertex(KMVertex &destination, const KMVertex &source); ///< all but the index
QDebug operator<<(QDebug debug, const KMVertex &vertex);
