#pragma once

class KMMeshNode;

namespace KMMeshEdit {

/// Moves the vertices within each chain of selected edges onto a curve that leaves its ends in the direction of the
/// first and the last edge, each as far along it as before. A round has no ends: its corners are softened, and it keeps
/// its size; where it meets other chains it stays. The edges have to be settled. One step; false, and no step, when no
/// vertex would move.
bool smoothEdges(KMMeshNode &mesh);

} // namespace KMMeshEdit
