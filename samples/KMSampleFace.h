#pragma once

class KMSampleMesh;
struct KMSampleHead;

/// What lies on the face: iris, lashes and brow of the left side, each a closed surface of its own.
namespace KMSampleFace {

void build(KMSampleMesh &mesh, KMSampleHead &head);

} // namespace KMSampleFace
