// Mirrors overridden normals from one side of a mesh to the other.

#include "mesh/KMCornerEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMirrorMap.h"
#include "mesh/KMNormalEdit.h"

using kvm::Vector3;

namespace {

/// The side that gives: 1 for that of the plane's normal, else -1.
float givingSide(const KMMeshNode &mesh, const KMMirrorMap &mirror)
{
    int surplus = 0;
    for (int i = 0; i < mesh.vertexCount(); ++i) {
        const KMVertex *vertex = mesh.vertex(i);
        if (vertex && vertex->hasFlag(KMElementFlag::Selected) && !mirror.isOnPlane(i))
            surplus += mirror.plane().distance(vertex->pos) < 0.0f ? -1 : 1;
    }
    return surplus < 0 ? -1.0f : 1.0f;
}

Vector3 centreOf(const KMMeshNode &mesh, const KMFace &face)
{
    Vector3 sum;
    for (int c = 0; c < face.count; ++c)
        sum += mesh.position(face.indices[c]);
    return sum / float(face.count);
}

/// On the plane a corner belongs to the side of its face.
bool isGiver(const KMMeshNode &mesh, const KMMirrorMap &mirror, const KMFace &face, int corner, float side)
{
    const int i = face.indices[corner];
    const KMVertex *vertex = mesh.vertex(i);
    if (!vertex || !vertex->hasFlag(KMElementFlag::Selected))
        return false;
    return side * mirror.plane().distance(mirror.isOnPlane(i) ? centreOf(mesh, face) : vertex->pos) > 0.0f;
}

/// The override mirrored across a plane through the origin. A turn keeps its angle; its axis is mirrored as a
/// turn is, the other way round than a direction.
void copyMirrored(KMNormalFace &to, int toCorner, const KMNormalFace &from, int corner, const Vector3 &plane)
{
    const kvm::Quaternion &stored = from.rotation[corner];
    const Vector3 mirrored = stored.vector() - plane * (2.0f * dot(stored.vector(), plane));
    switch (KMNormalFace::Mode(from.mode[corner])) {
    case KMNormalFace::Computed:
        return to.setComputed(toCorner);
    case KMNormalFace::Fixed:
        return to.setFixed(toCorner, mirrored);
    case KMNormalFace::Rotated:
        return to.setRotated(toCorner, stored.w, -mirrored);
    }
}

} // namespace

int KMNormalEdit::symmetrizeNormals(KMMeshNode &mesh, float tolerance)
{
    const KMMirrorMap mirror(mesh, tolerance);
    const float side = givingSide(mesh, mirror);
    const Vector3 plane = mesh.rotation().normalized().conjugate().rotate(mirror.plane().normal());
    const KMTagNormal *tag = tagOf(mesh);
    KMCornerEdit edit(mesh);
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        if (!face || !face->isPolygon())
            continue;
        KMMirrorMap::FaceImage image;
        for (int c = 0; c < face->count; ++c) {
            if (!isGiver(mesh, mirror, *face, c, side))
                continue;
            if (image.face < 0)
                image = mirror.faceImage(f);
            if (image.face >= 0)
                copyMirrored(edit.record(image.face), image.corners[size_t(c)], tag->faceNormal(f), c, plane);
        }
    }
    return edit.push();
}
