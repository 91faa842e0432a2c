#pragma once

class KMNode;

/// Fits the box of a lattice around what is selected.
namespace KMFitFFD {

/// One step "Fit FFD": the box of the lattice modifier encloses the selected vertices of the mesh that it belongs to,
/// along the axes of that mesh. Says what is missing when the node is none, or has no mesh. False, and nothing
/// happens, then and with fewer than three vertices.
bool run(KMNode *node);

} // namespace KMFitFFD
