#pragma once

struct KMDNodeBody;

/// The bodies of the modifiers: transform, settings, tags. Results are in no file; the chains make them again.
namespace KMDModifierBodies {

const KMDNodeBody *find(int type); ///< null for what is no modifier

} // namespace KMDModifierBodies
