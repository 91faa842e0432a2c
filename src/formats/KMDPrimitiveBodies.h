#pragma once

struct KMDNodeBody;

/// The bodies of the primitives: transform, shader, parameters, tags. That of an SVG shape is empty: the layout has
/// no place for its file, so the shape keeps its place in the tree and comes back without name and file.
namespace KMDPrimitiveBodies {

const KMDNodeBody *find(int type); ///< null for what is no primitive

} // namespace KMDPrimitiveBodies
