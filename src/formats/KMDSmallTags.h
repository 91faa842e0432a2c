#pragma once

#include "formats/KMDTagBodies.h"

/// The bodies of selections, texts, groups and numbers on nodes.
namespace KMDSmallTags {

const KMDTagBody *find(int type); ///< null for what is none of them

} // namespace KMDSmallTags
