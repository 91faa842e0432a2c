#include "mesh/KMFaceTurn.h"

#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

namespace {

/// A function of a corner says which one comes to its place.
template <class From>
void reorder(KMMeshNode &mesh, int f, From from)
{
    const KMFace before = *mesh.face(f);
    KMFace after = before;
    for (int c = 0; c < before.count; ++c)
        copyCorner(after, c, before, from(c));
    const QVector<KMEdgeState> states = edgeStatesOf(mesh, before);
    KMMeshEdit::editFace(mesh, f, after);
    for (const KMEdgeState &state : states) // a crease goes along with the corner that it follows
        KMMeshEdit::setEdgeWeight(mesh, state.a, state.b, state.weight);
}

} // namespace

bool KMMeshEdit::reverseFace(KMMeshNode &mesh, int face)
{
    if (!mesh.face(face) || !mesh.face(face)->isPolygon())
        return false;
    const int count = mesh.face(face)->count;
    reorder(mesh, face, [count](int c) { return c > 0 ? count - c : 0; });
    return true;
}

bool KMMeshEdit::rotateFace(KMMeshNode &mesh, int face)
{
    if (!mesh.face(face) || mesh.face(face)->count != 4)
        return false;
    reorder(mesh, face, [](int c) { return (c + 1) % 4; });
    return true;
}
