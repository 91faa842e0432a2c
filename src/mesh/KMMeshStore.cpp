#include "mesh/KMMeshStore.h"

#include "mesh/KMEdgeState.h"

#include <algorithm>

KMMeshStore::~KMMeshStore()
{
    m_vertexPool.clear(m_vertices);
    m_facePool.clear(m_faces);
}

void KMMeshStore::setVertex(int i, KMVertex *vertex)
{
    m_vertexPool.destroy(m_vertices.at(i));
    m_vertices[i] = vertex;
    m_needsCompact |= !vertex;
}

void KMMeshStore::setFace(int i, KMFace *face)
{
    m_facePool.destroy(m_faces.at(i));
    m_faces[i] = face;
    m_needsCompact |= !face;
}

std::array<int, 4> KMMeshStore::faceCorners(int f) const
{
    const int *indices = m_faces.at(f)->indices;
    return {indices[0], indices[1], indices[2], indices[3]};
}

std::array<kvm::Vector2, 4> KMMeshStore::faceUVs(int f) const
{
    const kvm::Vector2 *uvs = m_faces.at(f)->uvs;
    return {uvs[0], uvs[1], uvs[2], uvs[3]};
}

void KMMeshStore::setFaceUVs(int f, const kvm::Vector2 uvs[4])
{
    std::copy_n(uvs, 4, m_faces.at(f)->uvs);
}

void KMMeshStore::setFaceColors(int f, const kvm::Vector4 colors[4])
{
    std::copy_n(colors, 4, m_faces.at(f)->colors);
}

void KMMeshStore::setFaceColor(int f, const kvm::Vector4 &color)
{
    std::fill_n(m_faces.at(f)->colors, 4, color);
}

int KMMeshStore::addVertexRaw(const kvm::Vector3 &position)
{
    KMVertex *vertex = newVertex();
    vertex->pos = position;
    vertex->index = m_vertices.size();
    m_vertices.append(vertex);
    return vertex->index;
}

int KMMeshStore::addFaceRaw(int count, const int *indices)
{
    KMFace *face = newFace();
    face->count = count;
    std::copy_n(indices, count, face->indices);
    face->index = m_faces.size();
    m_faces.append(face);
    for (int c = 0; c < count; ++c) {
        KMVertex *corner = vertex(indices[c]);
        // The newest face can only stand at the end of a list: the hub of a large fan needs no search.
        if (corner && (corner->faceRefs.isEmpty() || corner->faceRefs.last() != face->index))
            corner->faceRefs.append(face->index);
    }
    return face->index;
}

void KMMeshStore::setFaceRaw(int f, int count, const int *indices)
{
    removeFaceRefs(f);
    KMFace *face = m_faces.at(f);
    KMFace fresh;
    fresh.count = count;
    fresh.index = face->index;
    std::copy_n(indices, count, fresh.indices);
    std::copy_n(face->normals, KMFace::MaxCorners, fresh.normals);
    *face = fresh;
    addFaceRefs(f);
}

void KMMeshStore::reserve(int moreVertices, int moreFaces)
{
    m_vertexPool.reserve(moreVertices);
    m_facePool.reserve(moreFaces);
    m_vertices.reserve(m_vertices.size() + moreVertices);
    m_faces.reserve(m_faces.size() + moreFaces);
}

void KMMeshStore::resizeVertices(int count)
{
    for (int i = count; i < m_vertices.size(); ++i)
        m_vertexPool.destroy(m_vertices.at(i));
    const int from = m_vertices.size();
    m_vertexPool.reserve(std::max(0, count - from));
    m_vertices.resize(count);
    for (int i = from; i < count; ++i) {
        m_vertices[i] = newVertex();
        m_vertices[i]->index = i;
    }
}

void KMMeshStore::resizeFaces(int count)
{
    for (int f = count; f < m_faces.size(); ++f)
        m_facePool.destroy(m_faces.at(f));
    const int from = m_faces.size();
    m_facePool.reserve(std::max(0, count - from));
    m_faces.resize(count);
    for (int f = from; f < count; ++f) {
        m_faces[f] = newFace();
        m_faces[f]->index = f;
    }
}

void KMMeshStore::placeVertex(int i, const KMVertex &record)
{
    while (m_vertices.size() <= i) {
        m_vertices.append(nullptr);
        m_needsCompact |= m_vertices.size() <= i;
    }
    if (!m_vertices.at(i))
        m_vertices[i] = newVertex();
    copyVertex(*m_vertices.at(i), record);
    m_vertices.at(i)->index = i;
}

void KMMeshStore::placeFace(int i, const KMFace &record)
{
    while (m_faces.size() <= i) {
        m_faces.append(nullptr);
        m_needsCompact |= m_faces.size() <= i;
    }
    if (!m_faces.at(i))
        m_faces[i] = newFace();
    copyFace(*m_faces.at(i), record);
    m_faces.at(i)->index = i;
}

void KMMeshStore::takeVertex(int i)
{
    m_vertexPool.destroy(vertex(i));
    m_vertices[i] = nullptr;
    if (i == m_vertices.size() - 1)
        m_vertices.removeLast();
    else
        m_needsCompact = true;
}

void KMMeshStore::takeFace(int i)
{
    m_facePool.destroy(face(i));
    m_faces[i] = nullptr;
    if (i == m_faces.size() - 1)
        m_faces.removeLast();
    else
        m_needsCompact = true;
}

void KMMeshStore::addFaceRefs(int f)
{
    const KMFace *face = m_faces.at(f);
    for (int c = 0; c < face->count; ++c) {
        KMVertex *corner = vertex(face->indices[c]);
        if (corner && !corner->faceRefs.contains(f))
            corner->faceRefs.append(f);
    }
}

void KMMeshStore::removeFaceRefs(int f)
{
    const KMFace *face = m_faces.at(f);
    for (int c = 0; c < face->count; ++c) {
        if (KMVertex *corner = vertex(face->indices[c]))
            corner->faceRefs.removeOne(f);
    }
}

void KMMeshStore::clearRecords()
{
    m_vertexPool.clear(m_vertices);
    m_facePool.clear(m_faces);
    m_vertices = {};
    m_faces = {};
    m_edges.release();
    m_corners.release();
    m_edgesFollow = false;
    m_needsCompact = false;
}

void KMMeshStore::copyRecords(const KMMeshStore &source)
{
    m_vertexPool.reserve(source.vertexCount());
    m_facePool.reserve(source.faceCount());
    m_vertices.resize(source.vertexCount());
    m_faces.resize(source.faceCount());
    for (int i = 0; i < source.vertexCount(); ++i) {
        const KMVertex *from = source.vertex(i);
        m_vertices[i] = from ? newVertex() : nullptr;
        m_needsCompact |= !from;
        if (!from)
            continue;
        m_vertices[i]->pos = from->pos;
        m_vertices[i]->weight = from->weight;
        m_vertices[i]->index = i;
    }
    for (int f = 0; f < source.faceCount(); ++f) {
        const KMFace *from = source.face(f);
        m_faces[f] = from ? newFace() : nullptr;
        m_needsCompact |= !from;
        if (!from)
            continue;
        copyFace(*m_faces[f], *from);
        m_faces[f]->index = f;
        addFaceRefs(f);
    }
    buildEdges();
    for (const KMEdge *from : source.edges()) {
        KMEdge *edge = from->weight == 0.0f ? nullptr : findEdge(from->index0, from->index1);
        if (edge)
            edge->weight = from->weight;
    }
}
