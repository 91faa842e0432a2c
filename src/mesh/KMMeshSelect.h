#pragma once

#include "mesh/KMMeshTargets.h"

#include <Qt>

class KMMeshNode;

/// What a click selects in a mesh, each as one step of the history. Answers are 0, also where nothing had to
/// change, and -1 where the mesh is locked, the element is not there, or it is a hidden face.
namespace KMMeshSelect {

enum class Mode { Replace, Add, Remove };
Mode clickMode(Qt::KeyboardModifiers modifiers);   ///< Shift adds, Control removes; both together add
Mode marqueeMode(Qt::KeyboardModifiers modifiers); ///< the same, but both together remove

/// Replace selects it alone, where it isn't selected yet. Remove on an element that isn't selected does as Replace.
int clickVertex(KMMeshNode &mesh, int index, Mode mode);
int clickEdge(KMMeshNode &mesh, int a, int b, Mode mode); ///< with the line polygon on the edge, where there is one
int clickFace(KMMeshNode &mesh, int index, Mode mode);
int clickUV(KMMeshNode &mesh, int face, int corner, Mode mode);

/// Selects all that is not hidden of some kinds, as several steps; the caller opens the macro.
void selectAll(KMMeshNode &mesh, KMMeshTargets::Elements kinds);

/// Takes all vertices, edges and faces of the chosen meshes that are not locked out of the selection. No step
/// where nothing is selected.
void unselectAll();
void unselectAllUV(); ///< the same for the corners

/// For what makes another selection in its own step: the same as unselectAll(), without a step, and with a mesh that
/// need not be chosen.
void clearSelection(KMMeshNode &mesh);

} // namespace KMMeshSelect
