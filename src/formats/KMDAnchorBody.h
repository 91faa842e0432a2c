#pragma once

struct KMDReadContext;
class KMDOutput;
class KMModAnchorNode;

/// What the native file holds of an anchor modifier between its transform and its tags: its settings and its helpers.
/// The weights of a helper aren't stored: all of its vertices belong to its bone.
namespace KMDAnchorBody {

void write(KMDOutput &out, const KMModAnchorNode &node); ///< helpers of deleted bones are left out
/// The helpers come when the whole file was read, since their bones may stand behind.
void read(KMDReadContext &context, KMModAnchorNode &node);

} // namespace KMDAnchorBody
