#include "mesh/KMOverlappedFaces.h"

#include "mesh/KMMeshStore.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

/// The corners of a face in ascending order. Lines and triangles are filled up in front with what is no vertex.
struct Corners
{
    std::array<int, KMFace::MaxCorners> sorted;
    int face;

    bool operator<(const Corners &other) const
    {
        return sorted != other.sorted ? sorted < other.sorted : face < other.face;
    }
};

Corners cornersOf(const KMFace &face, int index)
{
    Corners corners{{-1, -1, -1, -1}, index};
    std::copy_n(face.indices, face.count, corners.sorted.begin());
    std::sort(corners.sorted.begin(), corners.sorted.end());
    return corners;
}

struct Overlap
{
    int first;
    int face;

    bool operator<(const Overlap &other) const
    {
        return first != other.first ? first < other.first : face < other.face;
    }
};

} // namespace

QVector<int> KMOverlappedFaces::find(const KMMeshStore &mesh)
{
    std::vector<Corners> faces;
    faces.reserve(size_t(mesh.faceCount()));
    for (int f = 0; f < mesh.faceCount(); ++f) {
        if (mesh.face(f) && mesh.face(f)->isLive())
            faces.push_back(cornersOf(*mesh.face(f), f));
    }
    std::sort(faces.begin(), faces.end());

    std::vector<Overlap> overlaps;
    size_t first = 0;
    for (size_t i = 1; i < faces.size(); ++i) {
        if (faces[i].sorted != faces[first].sorted)
            first = i;
        else
            overlaps.push_back({faces[first].face, faces[i].face});
    }
    std::sort(overlaps.begin(), overlaps.end());

    QVector<int> found;
    for (const Overlap &overlap : overlaps)
        found << overlap.face;
    return found;
}
