#include "mesh/KMElementErase.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMMirrorMap.h"
#include "mesh/KMSelectedElements.h"

#include <QCoreApplication>
#include <QSet>

#include <algorithm>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMElementErase)
};

bool isEditable(const KMMeshNode &mesh)
{
    return KMMeshTargets::hasOwnTopology(mesh) && KMMeshTargets::isEditable(mesh);
}

/// What nobody sees isn't erased on the way.
bool isShown(const KMMeshNode &mesh, int f)
{
    const KMFace *face = mesh.face(f);
    return face && !face->hasFlag(KMElementFlag::Hidden);
}

QList<int> inOrder(const QSet<int> &faces)
{
    QList<int> list(faces.begin(), faces.end());
    std::sort(list.begin(), list.end()); // the set gives another order in each run
    return list;
}

template <class Delete>
bool eraseInOneStep(KMMeshNode &mesh, const QString &text, Delete deleteElements)
{
    const KMUndoMacro macro(text);
    deleteElements();
    gSolution->push(new buildEdgeCommand(&mesh));
    return true;
}

} // namespace

bool KMElementErase::eraseVertex(KMMeshNode &mesh, int index, const KMMirrorMap *mirror)
{
    if (!mesh.vertex(index) || !isEditable(mesh))
        return false;
    return eraseInOneStep(mesh, Texts::tr("Delete Vertex"), [&] {
        const int image = mirror ? mirror->vertexImage(index) : -1;
        if (image >= 0 && image != index)
            KMMeshEdit::deleteVertex(mesh, image);
        KMMeshEdit::deleteVertex(mesh, index);
    });
}

bool KMElementErase::eraseEdge(KMMeshNode &mesh, int a, int b, const KMMirrorMap *mirror)
{
    if (!mesh.findEdge(a, b) || !isEditable(mesh))
        return false;
    QSet<int> faces;
    for (const int f : mesh.findEdge(a, b)->faceRefs) {
        const int image = mirror ? mirror->faceImage(f).face : -1;
        for (const int face : {f, image}) {
            if (isShown(mesh, face))
                faces << face;
        }
    }
    QVector<KMEdgeEnds> edges{{a, b}};
    const KMEdge *edgeImage = mirror ? mirror->edgeImage(a, b) : nullptr;
    if (edgeImage && edgeImage != mesh.findEdge(a, b))
        edges.append({edgeImage->index0, edgeImage->index1});
    return eraseInOneStep(mesh, Texts::tr("Delete Edge"), [&] {
        for (const KMEdgeEnds &edge : std::as_const(edges)) {
            KMMeshEdit::selectEdge(mesh, edge.a, edge.b, false);
            KMMeshEdit::setEdgeWeight(mesh, edge.a, edge.b, 0.0f);
        }
        for (const int f : inOrder(faces))
            KMMeshEdit::deleteFace(mesh, f);
    });
}

bool KMElementErase::eraseFace(KMMeshNode &mesh, int index, const KMMirrorMap *mirror)
{
    if (!mesh.face(index) || !isEditable(mesh))
        return false;
    return eraseInOneStep(mesh, Texts::tr("Delete Face"), [&] {
        const int image = mirror ? mirror->faceImage(index).face : -1;
        if (image != index && isShown(mesh, image))
            KMMeshEdit::deleteFace(mesh, image);
        KMMeshEdit::deleteFace(mesh, index);
    });
}
