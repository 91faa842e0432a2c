#include "tools/KMSelComContainer.h"

#include "mesh/KMEdgeExtrude.h"
#include "mesh/KMEdgeSmooth.h"
#include "mesh/KMEdgeSplit.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMHoleFill.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"
#include "mesh/KMSelectionConvert.h"
#include "mesh/KMVertexWeld.h"
#include "tools/KMSelectionCommands.h"

#include <algorithm>

namespace {

using Row = KMSelectionCommand::Row;
using Reach = KMSelectionCommand::Reach;
using namespace KMMeshTargets;
using namespace KMSelectedElements;

void linesOnEdges(KMMeshNode &mesh)
{
    const QVector<KMEdgeEnds> selected = edges(mesh);
    for (const KMEdgeEnds &edge : selected) {
        const int corners[] = {edge.a, edge.b};
        if (mesh.faceOfEdge(edge.a, edge.b) < 0)
            KMMeshEdit::addFace(mesh, 2, corners);
    }
}

void reverseFaces(KMMeshNode &mesh)
{
    const QVector<int> selected = faces(mesh);
    for (const int f : selected)
        KMMeshEdit::reverseFace(mesh, f);
}

void rotateFaces(KMMeshNode &mesh)
{
    const QVector<int> selected = faces(mesh);
    for (const int f : selected)
        KMMeshEdit::rotateFace(mesh, f);
}

void triangulate(KMMeshNode &mesh)
{
    const QVector<int> selected = faces(mesh);
    for (const int f : selected)
        KMMeshEdit::splitQuad(mesh, f);
}

bool hasSelectedQuad(const KMMeshNode &mesh)
{
    return std::any_of(mesh.faces().begin(), mesh.faces().end(), [](const KMFace *face) {
        return face && face->count == 4 && face->hasFlag(KMElementFlag::Selected);
    });
}

void fillHoles(KMMeshNode &mesh)
{
    KMMeshEdit::fillSelectedHoles(mesh);
}

void separateEdges(KMMeshNode &mesh)
{
    KMMeshEdit::splitEdges(mesh, KMElementFlag::Selected);
}

void separateVertices(KMMeshNode &mesh)
{
    KMMeshEdit::separateVertices(mesh, vertices(mesh));
}

void mergeVertices(KMMeshNode &mesh)
{
    KMMeshEdit::weldToMean(mesh, vertices(mesh));
}

void mergeSamePlace(KMMeshNode &mesh)
{
    KMMeshEdit::weldSamePlace(mesh, vertices(mesh));
}

void extrudeEdges(KMMeshNode &mesh)
{
    KMMeshEdit::extrudeEdges(mesh);
}

void smoothEdges(KMMeshNode &mesh)
{
    KMMeshEdit::smoothEdges(mesh);
}

struct Entry
{
    bool isConversion;
    Row row;
    KMRowCommand *(*make)(const Row &row, QObject *parent) = &makeCommand<KMSelectionCommand>;
};

namespace Convert = KMSelectionConvert;

const Entry entries[] = {
    {false,
     {"SelComAlignVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Align Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Move the selected vertices onto one value along chosen axes"), "",
      Vertices, Reach::Points, nullptr},
     &makeCommand<SelComAlignVertex>},
    {false,
     {"SelComAssignShader", QT_TRANSLATE_NOOP("KMSelectionCommand", "Assign Shader"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Give the selected faces the current shader"), "", Faces, Reach::Own,
      nullptr},
     &makeCommand<SelComAssignShader>},
    {true,
     {"SelComBeltFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Belt Sellect Face"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the belts of quads that cross the selected edges"), "", Edges,
      Reach::WithResults, &Convert::beltFaces}},
    {true,
     {"SelComChainedFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Select Chained Face"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select all faces that hang together with the selected ones"), "Ctrl+J",
      Faces, Reach::WithResults, &Convert::chainedFaces}},
    {false,
     {"SelComDivideEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Divide Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Cut the selected edges into equal parts, and the faces on them"), "",
      Edges, Reach::Own, nullptr},
     &makeCommand<SelComDivideEdge>},
    {false,
     {"SelComEdgeExtrude", QT_TRANSLATE_NOOP("KMSelectionCommand", "Edge Extrude"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Grow a quad out of each selected edge, ready to be moved"), "Ctrl+E",
      Edges, Reach::Own, &extrudeEdges}},
    {false,
     {"SelComEdgeToLinePolygon", QT_TRANSLATE_NOOP("KMSelectionCommand", "Edge To LinePolygon"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Put a line polygon on each selected edge"), "", Edges, Reach::Own,
      &linesOnEdges}},
    {true,
     {"SelComEdgeToVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Edge To Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the ends of the selected edges in their place"), "", Edges,
      Reach::WithResults, &Convert::edgesToVertices}},
    {true,
     {"SelComExpandFaceSel", QT_TRANSLATE_NOOP("KMSelectionCommand", "Expand Face Selection"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the faces beside the selected ones as well"), "", Faces,
      Reach::WithResults, &Convert::expandFaces}},
    {true,
     {"SelComExpandVertSel", QT_TRANSLATE_NOOP("KMSelectionCommand", "Expand Vertex Selection"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the vertices around the selected ones as well"), "", Vertices,
      Reach::WithResults, &Convert::expandVertices}},
    {true,
     {"SelComFaceToEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Face To Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the edges of the selected faces in their place"), "", Faces,
      Reach::WithResults, &Convert::facesToEdges}},
    {true,
     {"SelComFaceToVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Face To Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the vertices of the selected faces in their place"), "", Faces,
      Reach::WithResults, &Convert::facesToVertices}},
    {false,
     {"SelComFillHole", QT_TRANSLATE_NOOP("KMSelectionCommand", "Fill Hole"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Close the holes around which the selected edges run"), "", Edges,
      Reach::Own, &fillHoles}},
    {false,
     {"SelComHideFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Hide Face"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Hide the selected faces"), "Ctrl+H", Faces, Reach::Own,
      &Convert::hideFaces}},
    {true,
     {"SelComLoopSelectEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Loop Select Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the loops that run on from the selected edges"), "Ctrl+L", Edges,
      Reach::WithResults, &Convert::loopEdges}},
    {false,
     {"SelComMergeSamePosVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Merge Same Pos Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Merge those of the selected vertices that lie at the same place"), "",
      Vertices, Reach::Own, &mergeSamePlace}},
    {false,
     {"SelComMergeVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Merge Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Merge the selected vertices of each mesh into one in their middle"),
      "Ctrl+M", Vertices, Reach::Own, &mergeVertices}},
    {false,
     {"SelComReverseFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Reverse Face"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Turn the selected faces to the other side"), "", Faces, Reach::Own,
      &reverseFaces}},
    {true,
     {"SelComRidgeEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Select Ridge Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the open border: all edges with exactly one face"), "", Edges,
      Reach::WithResults, &Convert::selectOpenEdges, &Convert::hasOpenEdges}},
    {true,
     {"SelComRingSelectEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Ring Select Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select the rings across the quads beside the selected edges"), "Ctrl+R",
      Edges, Reach::WithResults, &Convert::ringEdges}},
    {false,
     {"SelComRotateFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Rotate Face"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Lay the diagonal of the selected quads the other way"), "", Faces,
      Reach::Own, &rotateFaces, &hasSelectedQuad}},
    {false,
     {"SelComSeparateEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Separate Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Cut the mesh open along the selected edges"), "", Edges, Reach::Own,
      &separateEdges}},
    {false,
     {"SelComSeparateVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Separate Vertex"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Give each face at the selected vertices a vertex of its own"), "",
      Vertices, Reach::Own, &separateVertices}},
    {false,
     {"SelComSmoothEdge", QT_TRANSLATE_NOOP("KMSelectionCommand", "Smooth Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Lay the chains of selected edges along smooth curves"), "", Edges,
      Reach::Points, &smoothEdges}},
    {true,
     {"SelComSurroundedFace", QT_TRANSLATE_NOOP("KMSelectionCommand", "Select Surrounded By Edge"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Select from the selected faces on as far as the selected edges"), "",
      Faces, Reach::WithResults, &Convert::surroundedFaces}},
    {false,
     {"SelComSymmetrizingVertex", QT_TRANSLATE_NOOP("KMSelectionCommand", "Symmetrize"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Make two selected vertices mirror images of each other"), "", Vertices,
      Reach::Points, nullptr},
     &makeCommand<SelComSymmetrizingVertex>},
    {false,
     {"SelComTest", QT_TRANSLATE_NOOP("KMSelectionCommand", "Sel TestCommand"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Does nothing: for those who work on the program"), "", Vertices,
      Reach::Own, nullptr},
     &makeCommand<SelComTest>},
    {false,
     {"SelComTriangulate", QT_TRANSLATE_NOOP("KMSelectionCommand", "Triangulate"),
      QT_TRANSLATE_NOOP("KMSelectionCommand", "Split the selected quads into triangles"), "", Faces, Reach::Own,
      &triangulate, &hasSelectedQuad}},
};

} // namespace

KMSelComContainer::KMSelComContainer(QObject *parent)
    : KMCommandContainer(parent)
{
    for (const Entry &entry : entries)
        add(entry.make(entry.row, this), entry.row.objectName);
}

QList<QAction *> KMSelComContainer::group(bool conversions) const
{
    QList<QAction *> actions;
    for (const Entry &entry : entries) {
        if (entry.isConversion == conversions)
            actions << command(QString::fromLatin1(entry.row.objectName));
    }
    return actions;
}
