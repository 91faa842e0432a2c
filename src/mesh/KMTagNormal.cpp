#include "mesh/KMTagNormal.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

namespace {

QPair<int, int> endsOf(quint64 key)
{
    return {int(quint32(key)), int(quint32(key >> 32))};
}

bool hasSide(const KMFace &face, int a, int b)
{
    for (int c = 0; c < face.count; ++c) {
        const int from = face.indices[c];
        const int to = face.next(c);
        if ((from == a && to == b) || (from == b && to == a))
            return true;
    }
    return false;
}

} // namespace

void KMNormalFace::setFixed(int corner, const kvm::Vector3 &normal)
{
    mode[corner] = Fixed;
    rotation[corner] = {0.0f, normal.x, normal.y, normal.z};
}

void KMNormalFace::setRotated(int corner, float angle, const kvm::Vector3 &axis)
{
    mode[corner] = Rotated;
    rotation[corner] = {angle, axis.x, axis.y, axis.z};
}

void KMNormalFace::setComputed(int corner)
{
    mode[corner] = Computed;
    rotation[corner] = {};
}

bool KMNormalFace::isSameOverride(const KMNormalFace &other) const
{
    return std::equal(std::begin(mode), std::end(mode), std::begin(other.mode))
           && std::equal(std::begin(rotation), std::end(rotation), std::begin(other.rotation));
}

KMTagNormal::KMTagNormal()
{
    setType(KMNodeType::TagNormal);
    setName(tr("Normal"));
}

KMMeshNode *KMTagNormal::mesh() const
{
    return owner() && owner()->type() == KMNodeType::Mesh ? static_cast<KMMeshNode *>(owner()) : nullptr;
}

bool KMTagNormal::isCrease(int a, int b) const
{
    return m_creaseEdges.contains(KMEdge::keyOf(a, b));
}

void KMTagNormal::setCrease(int a, int b, bool crease)
{
    if (isCrease(a, b) == crease)
        return;
    if (crease) {
        m_creaseEdges.insert(KMEdge::keyOf(a, b));
        addFacePairs(a, b);
    } else {
        m_creaseEdges.remove(KMEdge::keyOf(a, b));
        removeFacePairs(a, b);
    }
}

quint64 KMTagNormal::facePair(int f, int g)
{
    return quint64(quint32(std::max(f, g))) << 32 | quint32(std::min(f, g));
}

QVector<QPair<int, int>> KMTagNormal::creasesOfMesh() const
{
    QVector<QPair<int, int>> creases;
    for (const quint64 key : m_creaseEdges) {
        const QPair<int, int> ends = endsOf(key);
        if (!facesOf(ends.first, ends.second).isEmpty())
            creases.append(ends);
    }
    std::sort(creases.begin(), creases.end());
    return creases;
}

KMNormalFace KMTagNormal::faceNormal(int face) const
{
    KMNormalFace unknown;
    unknown.face = face;
    return m_faceNormals.value(face, unknown);
}

void KMTagNormal::setFaceNormal(const KMNormalFace &record)
{
    for (int f = m_faceNormals.size(); f <= record.face; ++f)
        m_faceNormals.append(faceNormal(f));
    KMNormalFace &own = m_faceNormals[record.face];
    std::copy(std::begin(record.mode), std::end(record.mode), own.mode);
    std::copy(std::begin(record.rotation), std::end(record.rotation), own.rotation);
}

/// Faces without a surface have no normal to part; a line polygon that lies on the crease doesn't count.
KMTagNormal::FaceList KMTagNormal::facesOf(int a, int b) const
{
    FaceList faces;
    const KMMeshNode *store = mesh();
    const KMVertex *first = store ? store->vertex(a) : nullptr;
    const KMVertex *second = store ? store->vertex(b) : nullptr;
    if (!first || !second)
        return faces;
    // The hub of a fan has all the faces, the end at the rim a few.
    for (const int f : first->faceRefs.size() < second->faceRefs.size() ? first->faceRefs : second->faceRefs) {
        const KMFace *face = store->face(f);
        if (face && face->isPolygon() && hasSide(*face, a, b))
            faces.append(f);
    }
    std::sort(faces.begin(), faces.end());
    return faces;
}

void KMTagNormal::addFacePairs(int a, int b)
{
    const FaceList faces = facesOf(a, b);
    for (int i = 1; i < faces.size(); ++i)
        m_creaseFaces.insert(facePair(faces.at(0), faces.at(i)));
}

/// Two faces may share further edges, which part them still.
void KMTagNormal::removeFacePairs(int a, int b)
{
    const FaceList faces = facesOf(a, b);
    for (int i = 1; i < faces.size(); ++i)
        m_creaseFaces.remove(facePair(faces.at(0), faces.at(i)));
    for (const int f : faces) {
        const KMFace *face = mesh()->face(f);
        for (int c = 0; c < face->count; ++c) {
            if (isCrease(face->indices[c], face->next(c)))
                addFacePairs(face->indices[c], face->next(c));
        }
    }
}

void KMTagNormal::rebuildCreaseFaces()
{
    m_creaseFaces.clear();
    for (const quint64 key : std::as_const(m_creaseEdges))
        addFacePairs(endsOf(key).first, endsOf(key).second);
}

void KMTagNormal::clear()
{
    m_creaseEdges.clear();
    m_creaseFaces.clear();
    m_faceNormals.clear();
}

void KMTagNormal::fit()
{
    const KMMeshNode *store = mesh();
    if (!store)
        return;
    m_faceNormals.resize(store->faceCount());
    for (int f = 0; f < m_faceNormals.size(); ++f)
        m_faceNormals[f].face = f;
    rebuildCreaseFaces();
}

void KMTagNormal::remapIndices()
{
    const KMMeshNode *store = mesh();
    if (!store)
        return;
    Lost lost;
    QSet<quint64> edges;
    for (const quint64 key : std::as_const(m_creaseEdges)) {
        const int a = store->remappedVertex(endsOf(key).first);
        const int b = store->remappedVertex(endsOf(key).second);
        if (a < 0 || b < 0)
            lost.creaseEdges.insert(key);
        else
            edges.insert(KMEdge::keyOf(a, b));
    }
    const QVector<KMNormalFace> former = m_faceNormals;
    m_faceNormals = QVector<KMNormalFace>(store->faceCount());
    for (const KMNormalFace &record : former) {
        const int f = store->remappedFace(record.face);
        if (f >= 0)
            m_faceNormals[f] = record;
        else if (record.hasOverride())
            lost.faces.append(record);
    }
    m_creaseEdges = edges;
    mesh()->keepLoss(this, lost);
    if (const Lost *found = store->lossOf<Lost>(this))
        restore(*found);
    fit();
}

void KMTagNormal::restore(const Lost &lost)
{
    m_creaseEdges.unite(lost.creaseEdges);
    for (const KMNormalFace &record : lost.faces)
        setFaceNormal(record);
}

KMTagNormal *KMTagNormal::clone() const
{
    auto *copy = new KMTagNormal;
    copy->setName(name());
    copy->m_creaseEdges = m_creaseEdges;
    copy->m_creaseFaces = m_creaseFaces;
    copy->m_faceNormals = m_faceNormals;
    return copy;
}
