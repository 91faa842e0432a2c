#pragma once

#include <QVector>
#include <QtGlobal>

class KMMeshNode;

namespace KMMeshEdit {

/// Cuts a mesh open along the edges that have the flag, as several steps; the caller opens the macro. Where the faces
/// around a vertex come apart, all parts but one get a copy of it; a line that ends within the surface leaves its end
/// closed. False, and no step, when nothing comes apart.
bool splitEdges(KMMeshNode &mesh, quint8 flag);

/// Gives each face at a vertex a vertex of its own in place of it, where there is more than one, as several steps.
/// False, and no step, when there is none of the kind.
bool separateVertices(KMMeshNode &mesh, const QVector<int> &vertices);

} // namespace KMMeshEdit
