#pragma once

#include <QList>

class KMContainerNode;
class KMMeshNode;

/// Puts a mesh into the tree where another node stands, as several steps of the history; the caller opens the macro.
namespace KMMeshReplacement {

/// The mesh takes the name, the place and the children of the node, which goes with those children that shall not be
/// kept, and becomes current.
void put(KMContainerNode *replaced, KMMeshNode *mesh, bool (*isKept)(int type));

} // namespace KMMeshReplacement
