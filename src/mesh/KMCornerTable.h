#pragma once

#include "mesh/KMFace.h"
#include "mesh/KMLargeArray.h"

#include <array>

struct KMVertex;

/// The corners of all faces of a mesh side by side, as of the last reading. Edges and normals follow from nothing but
/// these and the positions, so a reading that finds all as before tells that the edges are as before too; and a walk
/// over the table fetches a small part of what the faces take.
class KMCornerTable
{
public:
    static constexpr int None = -1;    ///< behind the last corner of a face
    static constexpr int Missing = -2; ///< the slot of the corner is null
    static constexpr int Outside = -3; ///< the corner points to no slot
    using Corners = std::array<int, KMFace::MaxCorners>;

    int faceCount() const { return m_faceCount; }
    int vertexCount() const { return m_vertexCount; }
    const Corners &of(int face) const { return m_corners[size_t(face)]; }

    void begin(int vertexCount, int faceCount); ///< of a reading: each face has to be taken then, in any order
    /// Takes over the corners of a face, null for an empty slot. Answers whether they are others than before.
    bool take(int f, const KMFace *face, KMVertex *const *vertices)
    {
        Corners corners = {None, None, None, None};
        for (int c = 0, count = face ? face->count : 0; c < count; ++c) {
            const int i = face->indices[c];
            corners[size_t(c)] = uint(i) >= uint(m_vertexCount) ? Outside : vertices[i] ? i : Missing;
        }
        if (m_corners[size_t(f)] == corners)
            return false;
        m_corners[size_t(f)] = corners;
        return true;
    }
    void release() ///< empties the table and gives its memory back
    {
        m_corners.reset();
        m_vertexCount = m_faceCount = 0;
    }

    /// Corners of a face that has a surface, else 0. Vertices of such a face may be missing.
    static int surfaceCount(const Corners &corners)
    {
        if (corners[2] == None || corners[0] == Outside || corners[1] == Outside || corners[2] == Outside)
            return 0;
        return corners[3] == None ? 3 : corners[3] == Outside ? 0 : 4;
    }

    /// Calls visit(a, b, side) with the ends of each side of a face whose vertices are there.
    template <class Visit>
    static void forEachSide(const Corners &corners, const Visit &visit)
    {
        for (size_t c = 0; c < corners.size() && corners[c] != None; ++c) {
            const bool isLast = c + 1 == corners.size() || corners[c + 1] == None;
            const int a = corners[c];
            const int b = corners[isLast ? 0 : c + 1];
            if (a >= 0 && b >= 0)
                visit(a, b, int(c));
        }
    }

private:
    KMLargeArray<Corners> m_corners; // some more places than faces once it has grown
    int m_vertexCount = 0;
    int m_faceCount = 0;
};
