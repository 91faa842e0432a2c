#pragma once

class KMNode;

/// A copy of a value container, null, mesh, primitive, modifier, bone container or blueprint, not yet in the
/// tree; the caller pushes the command that adds it. Null for any other class.
KMNode *cloneNode(KMNode *node);
