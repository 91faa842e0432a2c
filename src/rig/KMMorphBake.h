#pragma once

class KMMeshNode;

/// Takes the morphs of a mesh through its chain of modifiers, which may make other vertices of it.
namespace KMMorphBake {

/// Gives the shape, which is the result of the source's chain without morphs, a tag with the same morphs: each moves
/// its vertices as the chain does when the morph alone has the value 1. A morph under which the chain makes other
/// vertices is dropped, and the line of messages says so. Nothing for a source without a morph tag.
void carry(const KMMeshNode &source, KMMeshNode &shape);

} // namespace KMMorphBake
