#pragma once

class KMAttributePage;
class KMNode;

/// Which page shows which class of nodes.
namespace KMAttributePages {

KMAttributePage *makeFor(KMNode *node); ///< a new page, not filled yet; null for what has none

} // namespace KMAttributePages
