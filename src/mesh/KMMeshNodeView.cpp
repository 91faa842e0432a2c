// How a mesh stands on the screen.

#include "mesh/KMMeshNode.h"

#include <algorithm>
#include <cmath>

void KMMeshNode::projectVertices(const kvm::Matrix4 &viewProjection, int width, int height)
{
    const float halfWidth = float(width) / 2.0f;
    const float halfHeight = float(height) / 2.0f;
    for (KMVertex *vertex : std::as_const(m_liveVertices)) {
        const kvm::Vector4 clip = viewProjection * kvm::Vector4(vertex->pos, 1.0f);
        // Behind the eye w is negative; left stays left there, and the sign of the depth tells it apart.
        const float w = std::fabs(clip.w);
        vertex->screenPos = {(clip.x / w + 1.0f) * halfWidth, (1.0f - clip.y / w) * halfHeight, clip.z / clip.w};
    }
}

float KMMeshNode::screenOrientation(const KMFace &face, int b, int c) const
{
    const kvm::Vector3 &p0 = vertex(face.indices[0])->screenPos;
    const kvm::Vector3 &p1 = vertex(face.indices[b])->screenPos;
    const kvm::Vector3 &p2 = vertex(face.indices[c])->screenPos;
    return (p1.x - p0.x) * (p2.y - p1.y) - (p1.y - p0.y) * (p2.x - p1.x);
}

/// Views are left-handed: a face whose normal points to the eye runs counterclockwise on the screen. With y
/// pointing down there, that is an orientation below zero.
bool KMMeshNode::turnsToView(const KMFace &face) const
{
    if (!face.isPolygon())
        return true;
    return screenOrientation(face, 1, 2) < 0.0f || (face.count == 4 && screenOrientation(face, 2, 3) < 0.0f);
}

/// In the midst of an edit a vertex may be gone before its faces are.
bool KMMeshNode::hasAllCorners(const KMFace &face) const
{
    return std::all_of(face.indices, face.indices + face.count, [this](int i) { return vertex(i); });
}

bool KMMeshNode::updateDrawn(bool backFaceCulling, bool isSameShape)
{
    bool isOther = false;
    for (KMFace *face : std::as_const(m_liveFaces)) {
        const bool isDrawn =
            !face->hasFlag(KMElementFlag::Hidden) && hasAllCorners(*face) && (!backFaceCulling || turnsToView(*face));
        isOther = isOther || bool(face->drawn) != isDrawn;
        face->drawn = isDrawn;
    }
    if (!isOther && isSameShape) // the rest follows from the faces
        return false;
    for (KMVertex *vertex : std::as_const(m_liveVertices))
        vertex->drawn = 0;
    for (const KMFace *face : std::as_const(m_liveFaces)) {
        for (int c = 0; face->drawn && c < face->count; ++c)
            vertex(face->indices[c])->drawn = 1;
    }
    for (KMEdge *edge : edges()) {
        const auto isOfDrawn = [this](int f) { return face(f) && face(f)->drawn; };
        const bool isDrawn = std::any_of(edge->faceRefs.begin(), edge->faceRefs.end(), isOfDrawn);
        isOther = isOther || bool(edge->drawn) != isDrawn;
        edge->drawn = isDrawn;
    }
    return isOther;
}
