#include "mesh/KMSelectionConvert.h"

#include "mesh/KMEdgeWalk.h"
#include "mesh/KMFaceFlood.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"

namespace {

void selectCorners(KMMeshNode &mesh, const KMFace &face, bool selected)
{
    for (int c = 0; c < face.count; ++c)
        KMMeshEdit::selectVertex(mesh, face.indices[c], selected);
}

void selectSides(KMMeshNode &mesh, const KMFace &face, bool selected)
{
    for (int c = 0; c < face.count; ++c)
        KMMeshEdit::selectEdge(mesh, face.indices[c], face.next(c), selected);
}

/// Does something with each selected face and unselects it.
void convertFaces(KMMeshNode &mesh, void (*convert)(KMMeshNode &, const KMFace &, bool))
{
    const QVector<int> faces = KMSelectedElements::faces(mesh);
    for (const int f : faces) {
        convert(mesh, *mesh.face(f), true);
        KMMeshEdit::selectFace(mesh, f, false);
    }
}

void selectFaces(KMMeshNode &mesh, const QVector<int> &faces)
{
    for (const int f : faces)
        KMMeshEdit::selectFace(mesh, f, true);
}

KMEdgeWalk::TakeEdge selecting(KMMeshNode &mesh)
{
    return [&mesh](KMEdge *edge) { KMMeshEdit::selectEdge(mesh, edge->index0, edge->index1, true); };
}

template <class Walk>
void fromSelectedEdges(KMMeshNode &mesh, Walk walk)
{
    const QVector<KMEdgeEnds> edges = KMSelectedElements::edges(mesh);
    for (const KMEdgeEnds &edge : edges)
        walk(mesh.findEdge(edge.a, edge.b));
}

bool isOpen(const KMMeshNode &mesh, const KMEdge &edge)
{
    return edge.faceRefs.size() == 1 && !edge.hasFlag(KMElementFlag::Selected) && mesh.isShown(edge);
}

} // namespace

namespace KMSelectionConvert {

void edgesToVertices(KMMeshNode &mesh)
{
    fromSelectedEdges(mesh, [&mesh](const KMEdge *edge) {
        KMMeshEdit::selectVertex(mesh, edge->index0, true);
        KMMeshEdit::selectVertex(mesh, edge->index1, true);
        KMMeshEdit::selectEdge(mesh, edge->index0, edge->index1, false);
    });
}

void facesToEdges(KMMeshNode &mesh)
{
    convertFaces(mesh, &selectSides);
}

void facesToVertices(KMMeshNode &mesh)
{
    convertFaces(mesh, &selectCorners);
}

void expandVertices(KMMeshNode &mesh)
{
    const QVector<int> vertices = KMSelectedElements::vertices(mesh);
    for (const int vertex : vertices) {
        for (const int f : mesh.vertex(vertex)->faceRefs) {
            if (mesh.isFaceShown(f))
                selectCorners(mesh, *mesh.face(f), true);
        }
    }
}

void expandFaces(KMMeshNode &mesh)
{
    const QVector<int> faces = KMSelectedElements::faces(mesh);
    for (const int f : faces) {
        const KMFace &face = *mesh.face(f);
        for (int c = 0; c < face.count && face.isPolygon(); ++c) {
            const KMEdge *edge = mesh.findEdge(face.indices[c], face.next(c));
            for (int i = 0; edge && i < edge->faceRefs.size(); ++i)
                KMMeshEdit::selectFace(mesh, edge->faceRefs[i], true);
        }
    }
}

void chainedFaces(KMMeshNode &mesh)
{
    selectFaces(mesh, KMFaceFlood::chained(mesh, KMSelectedElements::faces(mesh)));
}

void surroundedFaces(KMMeshNode &mesh)
{
    const auto isSelected = [](const KMEdge &edge) { return edge.hasFlag(KMElementFlag::Selected); };
    selectFaces(mesh, KMFaceFlood::chained(mesh, KMSelectedElements::faces(mesh), isSelected));
}

void loopEdges(KMMeshNode &mesh)
{
    using namespace KMEdgeWalk;
    fromSelectedEdges(mesh, [&mesh](KMEdge *edge) {
        for (const Direction direction : {Direction::First, Direction::Second})
            loop(mesh, edge, direction, KMElementFlag::Selected, selecting(mesh));
    });
}

void ringEdges(KMMeshNode &mesh)
{
    fromSelectedEdges(
        mesh, [&mesh](KMEdge *edge) { KMEdgeWalk::ring(mesh, edge, KMElementFlag::Selected, selecting(mesh)); });
}

void beltFaces(KMMeshNode &mesh)
{
    const QVector<KMEdgeEnds> starts = KMSelectedElements::edges(mesh);
    fromSelectedEdges(mesh, [&mesh](KMEdge *edge) {
        KMEdgeWalk::ring(mesh, edge, KMElementFlag::Selected, selecting(mesh),
                         [&mesh](int f) { KMMeshEdit::selectFace(mesh, f, true); });
    });
    for (const KMEdgeEnds &edge : starts)
        KMMeshEdit::selectEdge(mesh, edge.a, edge.b, false);
}

bool hasOpenEdges(const KMMeshNode &mesh)
{
    for (const KMEdge *edge : mesh.edges()) {
        if (isOpen(mesh, *edge))
            return true;
    }
    return false;
}

void selectOpenEdges(KMMeshNode &mesh)
{
    for (const KMEdge *edge : mesh.edges()) {
        if (isOpen(mesh, *edge))
            KMMeshEdit::selectEdge(mesh, edge->index0, edge->index1, true);
    }
}

void hideFaces(KMMeshNode &mesh)
{
    const QVector<int> faces = KMSelectedElements::faces(mesh);
    for (const int f : faces) {
        selectCorners(mesh, *mesh.face(f), false);
        selectSides(mesh, *mesh.face(f), false);
        KMMeshEdit::selectFace(mesh, f, false);
        KMMeshEdit::hideFace(mesh, f, true);
    }
}

} // namespace KMSelectionConvert
