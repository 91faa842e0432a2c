#pragma once

class KMMeshNode;

namespace KMMeshEdit {

/// Grows a quad out of each selected edge, as several steps; the caller opens the macro. The new sides lie on the old
/// ones at first and are selected in their place, ready to be moved; edges that met still meet. Quads run against a
/// face on their edge and take its UVs and shader. False, and no step, when no selected edge has a face.
bool extrudeEdges(KMMeshNode &mesh);

} // namespace KMMeshEdit
