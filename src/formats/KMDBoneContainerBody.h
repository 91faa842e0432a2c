#pragma once

#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"

class KMContainerNode;

/// The node record of a rig: its bones with their tags, and the keys of its motion.
namespace KMDBoneContainerBody {

KMContainerNode *make();
void write(KMDOutput &out, const KMContainerNode *node);
/// Bones whose parents aren't to be had, or would stand below themselves, come to the top with a warning.
void read(KMDReadContext &context, KMContainerNode *node);

} // namespace KMDBoneContainerBody
