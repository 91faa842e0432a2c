#pragma once

#include "core/KMNullNode.h"

#include <QList>
#include <QVector>

class KMMeshNode;

/// Makes steps of the history out of drags that have moved vertices and nodes on the screen already. Undo goes back
/// to where the vertices were when the selection cache was built.
namespace KMSelectionTransform {

enum class Kind { Move, Scale, Rotate };

/// A node that the drag has moved with the selection.
struct MovedNode
{
    KMNullNode *node;
    KMTransform before;
};

/// One step "Move Selection", "Scale Selection" or "Rotate Selection". All vertices that the selection touches enter
/// it, moved or not. False, and no step, when there is none and no node either.
bool commit(Kind kind, const QList<KMMeshNode *> &meshes, const QVector<MovedNode> &nodes = {});

struct SnapEnd
{
    KMMeshNode *mesh;
    int vertex;
};

/// The same as a step "Snap Vertex", after a drag onto another vertex. With the snap option to merge, and within
/// one mesh, the dragged vertex goes into the target.
bool commitSnap(const SnapEnd &dragged, const SnapEnd &target, const QList<KMMeshNode *> &meshes,
                const QVector<MovedNode> &nodes = {});

} // namespace KMSelectionTransform
