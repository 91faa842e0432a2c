#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"
#include "math/Vector4.h"
#include "mesh/KMElementFlag.h"

class QDebug;

/// A line, triangle or quad of a mesh; fewer than two corners make an empty record. Corners run clockwise
/// seen from the front. A quad is drawn and exported as the triangles of corners 0, 1, 2 and 2, 3, 0.
struct KMFace
{
    static constexpr int MaxCorners = 4;

    // What every refresh reads stands together in front.
    int count = 0;                ///< number of corners
    int shader = -1;              ///< place in the project's shader list; -1 for none
    int indices[MaxCorners] = {}; ///< vertices
    int index = -1;               ///< own place in the store as of the last refresh; the source's in a fresh clone
    quint8 drawn = 1;             ///< the view shows it
    quint8 flags = 0;             ///< bits of KMElementFlag
    quint8 cornerFlags[MaxCorners] = {};
    kvm::Vector3 normals[MaxCorners]; ///< written by the normal computation
    kvm::Vector2 uvs[MaxCorners];
    kvm::Vector4 colors[MaxCorners];
    int drawIndices[6] = {}; ///< elements in the render buffer, owned by the renderer
    quint64 source = 0;      ///< copied with the face, for modifiers

    bool hasFlag(quint8 bit) const { return flags & bit; }
    bool isLine() const { return count == 2; }
    bool isPolygon() const { return count == 3 || count == 4; }
    bool isLive() const { return count >= 2; }
    int next(int corner) const { return indices[corner + 1 < count ? corner + 1 : 0]; } ///< vertex of the next corner
    int cornerOf(int vertex) const ///< the first corner at a vertex, else -1
    {
        for (int c = 0; c < count; ++c) {
            if (indices[c] == vertex)
                return c;
        }
        return -1;
    }
    bool hasVertex(int vertex) const { return cornerOf(vertex) >= 0; }
};

void copyFace(KMFace &destination, const KMFace &source);                     ///< all but the index
void copyCorner(KMFace &destination, int to, const KMFace &source, int from); ///< vertex, normal, UV, colour, flags
QDebug operator<<(QDebug debug, const KMFace &face);
