#include "mesh/KMSelectionDelete.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"

#include <QCoreApplication>

#include <algorithm>

using KMMeshTargets::Elements;

namespace {

/// Answers whether there was any.
bool deleteLines(KMMeshNode &mesh, int a, int b)
{
    const int first = mesh.faceOfEdge(a, b);
    for (int line = first; line >= 0; line = mesh.faceOfEdge(a, b))
        KMMeshEdit::deleteFace(mesh, line);
    return first >= 0;
}

/// A line polygon on the edge goes in place of the faces beside it. An edge that goes leaves nothing behind: one that
/// comes back at the same vertices starts plain.
void deleteEdge(KMMeshNode &mesh, int a, int b)
{
    KMMeshEdit::selectEdge(mesh, a, b, false);
    if (deleteLines(mesh, a, b))
        return;
    KMMeshEdit::setEdgeWeight(mesh, a, b, 0.0f);
    const KMRefList<2> faces = mesh.findEdge(a, b)->faceRefs;
    for (const int f : faces) {
        const KMFace *face = mesh.face(f);
        if (face && face->hasVertex(a) && face->hasVertex(b))
            KMMeshEdit::deleteFace(mesh, f);
    }
}

void deleteSelected(KMMeshNode &mesh, Elements kinds)
{
    using namespace KMSelectedElements;
    const QVector<KMEdgeEnds> lostEdges = kinds.testFlag(KMMeshTargets::Edges) ? edges(mesh) : QVector<KMEdgeEnds>();
    const QVector<int> lostFaces = kinds.testFlag(KMMeshTargets::Faces) ? faces(mesh) : QVector<int>();
    const QVector<int> lostVertices = kinds.testFlag(KMMeshTargets::Vertices) ? vertices(mesh) : QVector<int>();
    for (const int i : lostVertices)
        KMMeshEdit::deleteVertex(mesh, i);
    for (const KMEdgeEnds &edge : lostEdges)
        deleteEdge(mesh, edge.a, edge.b);
    for (const int f : lostFaces)
        KMMeshEdit::deleteFace(mesh, f);
    gSolution->push(new buildEdgeCommand(&mesh));
}

} // namespace

bool KMMeshEdit::deleteSelection(Elements kinds)
{
    QList<KMMeshNode *> meshes = KMMeshTargets::chosen();
    const auto hasNothing = [kinds](const KMMeshNode *mesh) {
        return !KMMeshTargets::hasOwnTopology(*mesh) || !KMMeshTargets::isEditable(*mesh)
               || !KMMeshTargets::hasSelected(*mesh, kinds);
    };
    meshes.erase(std::remove_if(meshes.begin(), meshes.end(), hasNothing), meshes.end());
    if (meshes.isEmpty())
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshEdit", "Delete Selection Node"));
    for (KMMeshNode *mesh : std::as_const(meshes))
        deleteSelected(*mesh, kinds);
    return true;
}

bool KMMeshEdit::deleteSelection()
{
    return deleteSelection(KMMeshTargets::filteredElements());
}
