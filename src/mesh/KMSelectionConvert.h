#pragma once

class KMMeshNode;

/// Makes another selection in a mesh out of the one that it has, as several steps; the caller opens the macro. Hidden
/// faces, and what only they have, are left out.
namespace KMSelectionConvert {

void edgesToVertices(KMMeshNode &mesh); ///< the ends of the selected edges in their place
void facesToEdges(KMMeshNode &mesh);    ///< the sides of the selected faces in their place
void facesToVertices(KMMeshNode &mesh); ///< the corners of the selected faces in their place

void expandVertices(KMMeshNode &mesh); ///< by all that share a face with a selected vertex
void expandFaces(KMMeshNode &mesh);    ///< by all that share an edge with a selected face; lines reach nothing

void chainedFaces(KMMeshNode &mesh);    ///< by all that hang together with the selected faces
void surroundedFaces(KMMeshNode &mesh); ///< the same, but not across selected edges
void loopEdges(KMMeshNode &mesh);       ///< by the loops through the selected edges
void ringEdges(KMMeshNode &mesh);       ///< by the rings across the selected edges
void beltFaces(KMMeshNode &mesh);       ///< the quads of the rings, and the rings without the edges they start from

bool hasOpenEdges(const KMMeshNode &mesh); ///< some that are not selected
void selectOpenEdges(KMMeshNode &mesh);    ///< the border: edges with exactly one face

void hideFaces(
    KMMeshNode &mesh); ///< takes the selected faces, their sides and corners out of the selection, and hides them

} // namespace KMSelectionConvert
