#pragma once

class KMBoneContainer;
class KMDOutput;
struct KMDReadContext;

/// The block of the native file that holds the keys of a rig.
namespace KMDBoneKeys {

void write(KMDOutput &out, const KMBoneContainer *rig);
void read(KMDReadContext &context, KMBoneContainer *rig); ///< drops, and says so, the keys of bones that aren't there

} // namespace KMDBoneKeys
