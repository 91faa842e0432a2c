#pragma once

class KMDOutput;
class KMTagBase;
struct KMDReadContext;

/// The body of a weight tag: bone, vertex and weight of each entry, the vertices that shall be blended spherically, and
/// the settings. Vertices are counted as those of the mesh record.
namespace KMDWeightTag {

KMTagBase *make();
void write(KMDOutput &out, const KMTagBase *tag); ///< without bones that are deleted
/// Leaves out, with a warning, entries whose vertex the mesh doesn't have, and those of bones that the file doesn't
/// hold. Bones are bound when the last record was read.
void read(KMDReadContext &context, KMTagBase *tag);

} // namespace KMDWeightTag
