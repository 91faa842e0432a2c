#include "modifiers/KMResultNormals.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMResultCopy.h"

using kvm::Vector3;

namespace {

const KMTagNormal *tagOf(const KMMeshNode &mesh)
{
    return static_cast<const KMTagNormal *>(mesh.findTag(KMNodeType::TagNormal));
}

/// Into another space.
void turn(KMNormalFace &record, const kvm::Quaternion &rotation)
{
    for (kvm::Quaternion &stored : record.rotation) {
        const Vector3 turned = rotation.rotate(stored.vector());
        stored = {stored.w, turned.x, turned.y, turned.z};
    }
}

/// Overrides count from the frame of their mesh; that of a result is the world.
template <class Carry>
void forEachOverride(const KMMeshNode &input, const QVector<int> &faceMap, const Carry &carry)
{
    for (const KMNormalFace &record : tagOf(input)->faceNormals()) {
        const KMFace *face = input.face(record.face);
        if (!face || !record.hasOverride() || faceMap.value(record.face, -1) < 0)
            continue;
        KMNormalFace world = record;
        world.face = faceMap.at(record.face);
        turn(world, input.rotation().normalized());
        carry(world, face->count);
    }
}

/// A turn keeps its angle; its axis is mirrored the other way round than a direction.
void mirrorCorner(KMNormalFace &to, int toCorner, const KMNormalFace &from, int corner, const Vector3 &plane)
{
    const Vector3 stored = from.rotation[corner].vector();
    const Vector3 mirrored = stored - plane * (2.0f * dot(stored, plane));
    if (from.mode[corner] == KMNormalFace::Fixed)
        to.setFixed(toCorner, mirrored);
    else if (from.mode[corner] == KMNormalFace::Rotated)
        to.setRotated(toCorner, from.rotation[corner].w, -mirrored);
}

} // namespace

KMResultNormals::KMResultNormals(KMMeshNode &result)
    : m_result(result)
    , m_tag(new KMTagNormal)
{
    m_result.addTagKeepName(m_tag);
    m_tag->setDeleted(true);
}

bool KMResultNormals::begin(const KMMeshNode &input)
{
    const bool isNeeded = tagOf(input);
    if (!isNeeded && m_tag->isDeleted())
        return false;
    m_tag->setDeleted(!isNeeded);
    m_tag->clear();
    if (isNeeded)
        m_tag->fit();
    m_result.markDirty(KMMeshDirty::All); // the smoothing of all groups may be another
    return isNeeded;
}

void KMResultNormals::carryCreases(const KMTagNormal &from, const VertexMap &vertices)
{
    const QVector<QPair<int, int>> creases = from.creasesOfMesh();
    for (const auto &[first, second] : creases) {
        const int a = vertices(first), b = vertices(second);
        if (a >= 0 && b >= 0)
            m_tag->setCrease(a, b, true);
    }
}

void KMResultNormals::carry(const KMMeshNode &input, const VertexMap &vertices, const QVector<int> &faceMap)
{
    carryCreases(*tagOf(input), vertices);
    forEachOverride(input, faceMap, [this](const KMNormalFace &record, int) { m_tag->setFaceNormal(record); });
}

void KMResultNormals::carryMirrored(const KMMeshNode &input, const VertexMap &vertices, const QVector<int> &faceMap,
                                    const Vector3 &plane)
{
    carryCreases(*tagOf(input), vertices);
    forEachOverride(input, faceMap, [this, &plane](const KMNormalFace &record, int count) {
        KMNormalFace mirrored;
        mirrored.face = record.face;
        for (int c = 0; c < count; ++c)
            mirrorCorner(mirrored, c, record, KMResultCopy::cornerFor(count, c, KMResultCopy::Winding::Turned), plane);
        m_tag->setFaceNormal(mirrored);
    });
}

void KMResultNormals::settle(const KMMeshNode &result, KMMeshNode &copy)
{
    auto *tag = static_cast<KMTagNormal *>(copy.findTag(KMNodeType::TagNormal));
    if (!tag)
        return;
    bool isEmpty = tag->creaseEdges().isEmpty();
    const kvm::Quaternion toFrame = copy.rotation().normalized().conjugate();
    for (int f = 0; f < result.faceCount(); ++f) {
        const KMFace *face = result.face(f);
        KMNormalFace record = tag->faceNormal(f);
        for (int c = 0; face && face->isPolygon() && result.isNormalsSuspended() && c < face->count; ++c)
            record.setFixed(c, face->normals[c]);
        if (!record.hasOverride())
            continue;
        isEmpty = false;
        turn(record, toFrame);
        tag->setFaceNormal(record);
    }
    if (!isEmpty)
        return;
    copy.removeTag(tag);
    delete tag;
}
