#pragma once

class KMDOutput;
class KMTagBase;
struct KMDReadContext;

/// The body of a constraint tag.
namespace KMDConstraintTag {

KMTagBase *make();
void write(KMDOutput &out, const KMTagBase *tag);
void read(KMDReadContext &context, KMTagBase *tag); ///< the target is bound when all bones are there

} // namespace KMDConstraintTag
