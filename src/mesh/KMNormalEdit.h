#pragma once

#include "mesh/KMMeshTargets.h"

class KMMeshNode;
class KMTagNormal;

/// Undoable edits of the normal tags of meshes. Each pushes one command for every edge or face that it changes
/// and answers how many those were. Callers open the macro; the meshes have a live normal tag.
namespace KMNormalEdit {

KMTagNormal *tagOf(const KMMeshNode &mesh); ///< the one that counts, null when there is none

int setCreases(KMMeshNode &mesh, bool crease); ///< of the selected edges
int selectCreases(KMMeshNode &mesh);

// On the corners of selected vertices and faces

int fixNormals(KMMeshNode &mesh);        ///< as they are now, whatever the surface does
int unfixNormals(KMMeshNode &mesh);      ///< fixed ones keep their direction, and follow the surface from now on
int initializeNormals(KMMeshNode &mesh); ///< back to the computed ones

// On the corners of selected vertices

int unifyNormals(KMMeshNode &mesh);                    ///< one normal for all corners of a vertex
int averageNormals(const QList<KMMeshNode *> &meshes); ///< one normal for all of them
int flattenX(KMMeshNode &mesh);                        ///< into the plane across the x axis of the world

/// Corners at the ends of selected edges take the normal of the nearest point of the givers' surfaces.
int transferNormals(KMMeshNode &mesh, const QList<KMMeshNode *> &givers);

/// Copies the overrides at selected vertices to their mirror images across the plane of the mesh's frame that
/// stands on its x axis. The side gives on which most of the selected vertices lie, the positive one where
/// neither has more. Vertices are images of each other within the tolerance, in world units.
int symmetrizeNormals(KMMeshNode &mesh, float tolerance);

} // namespace KMNormalEdit
