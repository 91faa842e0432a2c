#pragma once

class KMPrimitiveBuilder;
struct KMPathMesh;

/// Makes a body from a flat area: the area stands at z = 0 and faces -Z, from where the front view looks and X runs
/// to the right; walls of the given depth lead to its back. UVs of front and back are the place in the bounds of the
/// area, those of a wall run along the outline and from the front to the back.
namespace KMPathExtruder {

/// A depth of 0 gives the front alone; below 0 the body stands before the area.
void extrude(const KMPathMesh &area, float depth, int segments, KMPrimitiveBuilder &builder);

/// How many faces that are; the area is walked for it.
long long faceCount(const KMPathMesh &area, float depth, int segments);

} // namespace KMPathExtruder
