#pragma once

class KMMeshNode;
class KMPrimitiveNode;

/// Turns primitives into meshes that can be edited vertex by vertex.
namespace KMPolygonize {

/// A mesh in the shape of a primitive, in no document yet. The primitive's transform is in the vertices, so the mesh
/// itself is at rest. The caller owns it.
KMMeshNode *meshOf(const KMPrimitiveNode &primitive);

/// Puts such a mesh in the primitive's place in the tree, with its name and what lies below it, and makes it current.
/// Pushes several commands; the caller opens the macro. The primitive goes into the history.
KMMeshNode *replace(KMPrimitiveNode *primitive);

} // namespace KMPolygonize
