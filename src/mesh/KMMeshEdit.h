#pragma once

#include "math/Vector2.h"
#include "math/Vector3.h"

#include <QVector>

class KMMeshNode;
struct KMFace;
struct KMVertex;
struct KMVertexOrigin;

/// Single undoable edits of a mesh: each makes its command and pushes it. An edit that would change nothing
/// pushes nothing; what answers a bool says whether it pushed. Callers open the macro.
namespace KMMeshEdit {

int addVertex(KMMeshNode &mesh, const kvm::Vector3 &position); ///< returns the new index
int addVertex(KMMeshNode &mesh, const KMVertex &record);       ///< without its faces
int addFace(KMMeshNode &mesh, int count, const int *indices);  ///< returns the new index
int addFace(KMMeshNode &mesh, const KMFace &record);
bool deleteVertex(KMMeshNode &mesh, int index); ///< with the faces around it
bool deleteFace(KMMeshNode &mesh, int index);
bool editVertex(KMMeshNode &mesh, int index, const KMVertex &record); ///< always pushes for a record that is there
bool editFace(KMMeshNode &mesh, int index, const KMFace &record);
bool moveVertex(KMMeshNode &mesh, int index, const kvm::Vector3 &position);
bool setVertexWeight(KMMeshNode &mesh, int index, float weight);
bool setEdgeWeight(KMMeshNode &mesh, int a, int b, float weight);

bool selectVertex(KMMeshNode &mesh, int index, bool selected);
bool selectFace(KMMeshNode &mesh, int index, bool selected); ///< a hidden face is not selected
bool selectEdge(KMMeshNode &mesh, int a, int b, bool selected);
bool selectUV(KMMeshNode &mesh, int face, int corner, bool selected);
bool lockUV(KMMeshNode &mesh, int face, int corner, bool locked);
bool hideFace(KMMeshNode &mesh, int face, bool hidden);

bool editFaceShader(KMMeshNode &mesh, int face, int shader);
bool editFaceUV(KMMeshNode &mesh, int face, int corner, const kvm::Vector2 &uv);

/// For edits that make vertices from others, once for all that they have made in a mesh and while their sources are
/// there: gives the mesh's tags the occasion to push steps of their own (KMVertexFollower).
void tellVerticesMade(KMMeshNode &mesh, const QVector<KMVertexOrigin> &origins);

/// Derives the edges anew where edits before, within the same step, left them behind: for edits that go by the edges.
void settleEdges(KMMeshNode &mesh);

/// Splits a quad into the triangles of corners 0, 1, 2 and 2, 3, 0; false for any other face.
bool splitQuad(KMMeshNode &mesh, int face);

/// Drops unused records and closes the gaps, where there are any: as a step of the history when it has
/// steps, else at once.
bool compact(KMMeshNode &mesh);

/// Sets the shader of all selected faces in one macro "Assign Shader"; returns how many changed. No macro when none
/// does, or the mesh is locked.
int assignShader(KMMeshNode &mesh, int shader);
int assignShader(KMMeshNode &mesh, int face, int shader); ///< the same for one face

} // namespace KMMeshEdit
