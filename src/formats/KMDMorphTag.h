#pragma once

class KMDOutput;
class KMTagBase;
struct KMDReadContext;

/// The record of a morph tag: its morphs with their displacements. Schematic and display groups refer to a morph by the
/// id that its record has.
namespace KMDMorphTag {

KMTagBase *make();
void write(KMDOutput &out, const KMTagBase *tag);
void read(KMDReadContext &context, KMTagBase *tag);

} // namespace KMDMorphTag
