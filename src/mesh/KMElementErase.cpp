#include "mesh/KMElementErase.h"

#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMirrorMap.h"
#include "mesh/KMSelectionDelete.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMElementErase)
};

bool isEditable(const KMMeshNode &mesh)
{
    return !mesh.ownerNode() && KMMeshTargets::isEditable(mesh);
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
    return eraseInOneStep(mesh, Texts::tr("Delete Edge"), [&] {
        const int imageA = mirror ? mirror->vertexImage(a) : -1;
        const int imageB = mirror ? mirror->vertexImage(b) : -1;
        const KMEdge *image = imageA >= 0 && imageB >= 0 ? mesh.findEdge(imageA, imageB) : nullptr;
        if (image && image != mesh.findEdge(a, b))
            KMMeshEdit::deleteEdge(mesh, imageA, imageB);
        KMMeshEdit::deleteEdge(mesh, a, b);
    });
}

bool KMElementErase::eraseFace(KMMeshNode &mesh, int index, const KMMirrorMap *mirror)
{
    if (!mesh.face(index) || !isEditable(mesh))
        return false;
    return eraseInOneStep(mesh, Texts::tr("Delete Face"), [&] {
        const int image = mirror ? mirror->faceImage(index).face : -1;
        if (image >= 0 && image != index)
            KMMeshEdit::deleteFace(mesh, image);
        KMMeshEdit::deleteFace(mesh, index);
    });
}
