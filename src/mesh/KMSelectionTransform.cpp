#include "mesh/KMSelectionTransform.h"

#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"
#include "mesh/KMVertexMerge.h"

#include <QCoreApplication>

#include <algorithm>

namespace KMSelectionTransform {

namespace {

using MovedMeshes = QList<QPair<KMMeshNode *, QVector<KMMovedVertex>>>;

QVector<KMMovedVertex> movesOf(const KMMeshNode &mesh)
{
    QVector<KMMovedVertex> moves;
    moves.reserve(mesh.selectedVertices().size());
    for (const int i : mesh.selectedVertices()) {
        if (mesh.vertex(i) && i < mesh.selectionPositions().size())
            moves.append({i, mesh.selectionPositions().at(i), mesh.position(i)});
    }
    const auto byIndex = [](const KMMovedVertex &a, const KMMovedVertex &b) { return a.index < b.index; };
    std::sort(moves.begin(), moves.end(), byIndex); // the set gives another order in each run
    return moves;
}

MovedMeshes movesOf(const QList<KMMeshNode *> &meshes)
{
    MovedMeshes moved;
    for (KMMeshNode *mesh : meshes) {
        const QVector<KMMovedVertex> moves = movesOf(*mesh);
        if (!moves.isEmpty())
            moved.append({mesh, moves});
    }
    return moved;
}

void push(MovedMeshes &moved, const QVector<MovedNode> &nodes)
{
    for (auto &[mesh, moves] : moved) {
        for (const KMMovedVertex &move : std::as_const(moves))
            mesh->rememberVertex(move.index); // the next drag starts here
        gSolution->push(new moveVertexArrayCommand(mesh, moves));
    }
    for (const MovedNode &moved : nodes)
        gSolution->push(new editSRTCommand(moved.node, moved.before, moved.node->transform()));
}

bool mergesOnSnap()
{
    return (gSolution->snapOptions() & (KMSnapOption::Merge | KMSnapOption::Stop)) == KMSnapOption::Merge;
}

} // namespace

bool commit(Kind kind, const QList<KMMeshNode *> &meshes, const QVector<MovedNode> &nodes)
{
    static constexpr const char *texts[] = {QT_TRANSLATE_NOOP("KMSelectionTransform", "Move Selection"),
                                            QT_TRANSLATE_NOOP("KMSelectionTransform", "Scale Selection"),
                                            QT_TRANSLATE_NOOP("KMSelectionTransform", "Rotate Selection")};
    MovedMeshes moved = movesOf(meshes);
    if (moved.isEmpty() && nodes.isEmpty())
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMSelectionTransform", texts[int(kind)]));
    push(moved, nodes);
    return true;
}

bool commitSnap(const SnapEnd &dragged, const SnapEnd &target, const QList<KMMeshNode *> &meshes,
                const QVector<MovedNode> &nodes)
{
    MovedMeshes moved = movesOf(meshes);
    if (moved.isEmpty() && nodes.isEmpty())
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMSelectionTransform", "Snap Vertex"));
    push(moved, nodes);
    const bool merged = mergesOnSnap() && dragged.mesh == target.mesh
                        && KMMeshEdit::mergeVertex(*dragged.mesh, dragged.vertex, target.vertex);
    for (KMMeshNode *mesh : {dragged.mesh, target.mesh})
        mesh->markDirty(merged ? KMMeshDirty::All : KMMeshDirty::Positions);
    return true;
}

} // namespace KMSelectionTransform
