#include "mesh/KMFaceAlign.h"

#include "mesh/KMMeshStore.h"

#include <algorithm>
#include <array>
#include <vector>

namespace {

struct Side
{
    quint64 key;
    int face;
    int corner;
    bool isForward; // from the smaller vertex to the larger

    bool operator<(const Side &other) const
    {
        return key != other.key ? key < other.key : face != other.face ? face < other.face : corner < other.corner;
    }
};

/// What lies beyond a side of a face.
struct Neighbour
{
    int face = -1;
    bool agrees = true;
};

using Neighbours = std::array<Neighbour, KMFace::MaxCorners>;

std::vector<Side> sidesOf(const KMMeshStore &mesh)
{
    std::vector<Side> sides;
    sides.reserve(size_t(mesh.faceCount()) * KMFace::MaxCorners);
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        if (!face || !face->isPolygon())
            continue;
        for (int c = 0; c < face->count; ++c) {
            const int from = face->indices[c], to = face->next(c);
            if (from != to)
                sides.push_back({KMEdge::keyOf(from, to), f, c, from < to});
        }
    }
    std::sort(sides.begin(), sides.end());
    return sides;
}

std::vector<Neighbours> neighboursOf(const KMMeshStore &mesh)
{
    std::vector<Neighbours> neighbours(size_t(mesh.faceCount()));
    const std::vector<Side> sides = sidesOf(mesh);
    for (size_t i = 0, end = 0; i < sides.size(); i = end) {
        end = i + 1;
        while (end < sides.size() && sides[end].key == sides[i].key)
            ++end;
        if (end - i != 2 || sides[i].face == sides[i + 1].face)
            continue;
        const Side &a = sides[i], &b = sides[i + 1];
        const bool agrees = a.isForward != b.isForward;
        neighbours[size_t(a.face)][size_t(a.corner)] = {b.face, agrees};
        neighbours[size_t(b.face)][size_t(b.corner)] = {a.face, agrees};
    }
    // By number and not by corner, or the walk would go another way once faces were reversed, and move the seam.
    for (Neighbours &row : neighbours)
        std::sort(row.begin(), row.end(), [](const Neighbour &a, const Neighbour &b) { return a.face < b.face; });
    return neighbours;
}

} // namespace

QVector<int> KMFaceAlign::disagreeing(const KMMeshStore &mesh)
{
    enum State : quint8 { Unseen, Kept, Reversed };
    const std::vector<Neighbours> neighbours = neighboursOf(mesh);
    std::vector<State> states(neighbours.size(), Unseen);
    std::vector<int> open;
    for (int first = 0; first < int(states.size()); ++first) {
        if (states[size_t(first)] != Unseen)
            continue;
        states[size_t(first)] = Kept;
        open.push_back(first);
        for (size_t at = 0; at < open.size(); ++at) { // in the order of arrival: a seam comes to lie far off
            const State own = states[size_t(open[at])];
            for (const Neighbour &next : neighbours[size_t(open[at])]) {
                if (next.face < 0 || states[size_t(next.face)] != Unseen)
                    continue;
                states[size_t(next.face)] = next.agrees == (own == Kept) ? Kept : Reversed;
                open.push_back(next.face);
            }
        }
        open.clear();
    }
    QVector<int> faces;
    for (int f = 0; f < int(states.size()); ++f) {
        if (states[size_t(f)] == Reversed)
            faces << f;
    }
    return faces;
}
