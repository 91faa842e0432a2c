#pragma once

class KMMeshNode;

/// Faces with their corners in another order, all that a corner has going along; edges keep selection and crease. One
/// step each, or several with creases; the caller opens the macro. False, and no step, for a face that has no sides to
/// turn or is not there.
namespace KMMeshEdit {

bool reverseFace(KMMeshNode &mesh, int face); ///< turns its front to the other side; corner 0 and the diagonal stay
bool rotateFace(KMMeshNode &mesh, int face);  ///< of a quad the second corner becomes the first: the diagonal changes

} // namespace KMMeshEdit
