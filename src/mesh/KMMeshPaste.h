#pragma once

#include <QtGlobal>

class KMMeshNode;
class QByteArray;

/// Pastes faces of a copy buffer into a mesh.
namespace KMMeshPaste {

enum class Kind {
    Plain,
    Insert, ///< joined to vertices of the mesh at exactly the same place; faces that stand there already stay out
    Mirror  ///< on the other side of the symmetry plane of the mesh's frame
};

/// One step "Paste Mesh", after which what it added is all that is selected. False, and no step, when the mesh is
/// locked or the result of a modifier, or the bytes are no copy buffer or hold nothing to add.
bool paste(KMMeshNode &mesh, const QByteArray &buffer, Kind kind);

} // namespace KMMeshPaste
