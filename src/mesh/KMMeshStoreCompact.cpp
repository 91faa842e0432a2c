// How the records of a mesh are renumbered, and back.

#include "mesh/KMMeshStore.h"

#include <QDebug>

#include <algorithm>

namespace {

/// Opens the gaps again, all of them null at first. The remap leads from the closed indices to the open ones.
template <class T>
void openGaps(QVector<T *> &store, QVector<int> &remap, const QVector<int> &gaps)
{
    const QVector<T *> closed = store;
    remap.resize(closed.size());
    store.resize(closed.size() + gaps.size());
    auto gap = gaps.cbegin();
    int from = 0;
    for (int i = 0, n = store.size(); i < n; ++i) {
        if (gap != gaps.cend() && *gap == i) {
            store[i] = nullptr;
            ++gap;
            continue;
        }
        remap[from] = i;
        store[i] = closed.at(from++);
        store[i]->index = i;
    }
}

} // namespace

bool KMMeshStore::isUsed(const KMFace &face) const
{
    return face.isLive() && std::all_of(face.indices, face.indices + face.count, [this](int i) { return vertex(i); });
}

/// Takes a face out of the lists of its vertices, and tells where it stood.
QVector<KMMeshStore::DroppedRef> KMMeshStore::takeRefs(int f)
{
    QVector<DroppedRef> refs;
    const KMFace *face = m_faces.at(f);
    for (int c = 0; c < face->count; ++c) {
        KMVertex *corner = vertex(face->indices[c]);
        const int place = corner ? corner->faceRefs.indexOf(f) : -1;
        if (place < 0)
            continue;
        corner->faceRefs.removeAt(place);
        refs.append({face->indices[c], place, f});
    }
    return refs;
}

/// Drops the unused faces with their references. The vertices still stand under their old indices.
void KMMeshStore::closeFaceGaps(Dropped *dropped)
{
    KMFace **records = m_faces.data();
    m_faceRemap.resize(m_faces.size());
    int next = 0;
    for (int f = 0, n = m_faces.size(); f < n; ++f) {
        KMFace *face = records[f];
        if (face && isUsed(*face)) {
            face->index = next;
            m_faceRemap[f] = next;
            records[next++] = face;
            continue;
        }
        m_faceRemap[f] = -1;
        dropped->faces.indices.append(f);
        if (!face)
            continue;
        dropped->edges += edgeStatesOf(*this, *face);
        dropped->faces.records.append({f, *face});
        m_facePool.destroy(face);
    }
    m_faces.resize(next);
}

/// Drops the vertices without faces, and leads the lists of the others over to the new indices of the faces.
void KMMeshStore::closeVertexGaps(Dropped *dropped)
{
    const int *faceRemap = m_faceRemap.constData();
    KMVertex **records = m_vertices.data();
    m_vertexRemap.resize(m_vertices.size());
    int next = 0;
    for (int i = 0, n = m_vertices.size(); i < n; ++i) {
        KMVertex *vertex = records[i];
        if (vertex && !vertex->faceRefs.isEmpty()) {
            int *refs = vertex->faceRefs.data();
            for (int r = 0, count = vertex->faceRefs.size(); r < count; ++r)
                refs[r] = faceRemap[refs[r]];
            vertex->index = next;
            m_vertexRemap[i] = next;
            records[next++] = vertex;
            continue;
        }
        m_vertexRemap[i] = -1;
        dropped->vertices.indices.append(i);
        if (!vertex)
            continue;
        dropped->vertices.records.append({i, *vertex});
        m_vertexPool.destroy(vertex);
    }
    m_vertices.resize(next);
}

void KMMeshStore::renumberCorners(KMFace *face) const
{
    const int *vertexRemap = m_vertexRemap.constData();
    for (int c = 0; c < face->count; ++c)
        face->indices[c] = vertexRemap[face->indices[c]];
}

KMMeshStore::Dropped KMMeshStore::compactStore()
{
    Dropped dropped;
    dropped.neededCompact = m_needsCompact;
    // Faces go first: a vertex that only unused faces use goes with them.
    for (int f = 0; f < m_faces.size(); ++f) {
        if (face(f) && !isUsed(*face(f)))
            dropped.refs += takeRefs(f);
    }
    closeFaceGaps(&dropped);
    closeVertexGaps(&dropped);
    const QVector<KMEdgeState> states = remapped(takeEdges(), &dropped.edges);
    beginCorners();
    KMFace *const *faces = m_faces.constData();
    for (int f = 0, n = m_faces.size(); f < n; ++f) {
        renumberCorners(faces[f]);
        takeCorners(f, faces[f]);
    }
    insertEdges();
    giveBack(states);
    logNullSlots();
    m_needsCompact = false;
    return dropped;
}

void KMMeshStore::expandStore(const Dropped &dropped)
{
    openGaps(m_vertices, m_vertexRemap, dropped.vertices.indices);
    openGaps(m_faces, m_faceRemap, dropped.faces.indices);
    renumberRefs();
    for (const auto &slot : dropped.vertices.records)
        placeVertex(slot.first, slot.second);
    for (const auto &slot : dropped.faces.records)
        placeFace(slot.first, slot.second);
    for (auto ref = dropped.refs.crbegin(); ref != dropped.refs.crend(); ++ref)
        vertex(ref->vertex)->faceRefs.insert(ref->place, ref->face);
    const QVector<KMEdgeState> states = remapped(takeEdges(), nullptr);
    readCorners();
    insertEdges();
    giveBack(states);
    restoreEdgeStates(*this, dropped.edges);
    m_needsCompact = dropped.neededCompact;
}

/// Leads all references over to the new indices.
void KMMeshStore::renumberRefs()
{
    for (KMVertex *vertex : std::as_const(m_vertices)) {
        if (!vertex)
            continue;
        int *refs = vertex->faceRefs.data();
        for (int i = 0, n = vertex->faceRefs.size(); i < n; ++i)
            refs[i] = m_faceRemap.at(refs[i]);
    }
    for (KMFace *face : std::as_const(m_faces)) {
        if (face)
            renumberCorners(face);
    }
}

/// What edges carry, under the new indices. What belongs to vertices that are gone is lost.
QVector<KMEdgeState> KMMeshStore::remapped(const QVector<KMEdgeState> &states, QVector<KMEdgeState> *lost) const
{
    QVector<KMEdgeState> result;
    for (const KMEdgeState &state : states) {
        const int a = m_vertexRemap.value(state.a, -1);
        const int b = m_vertexRemap.value(state.b, -1);
        if (a >= 0 && b >= 0)
            result.append({a, b, state.flags, state.weight});
        else if (lost)
            lost->append(state);
    }
    return result;
}

void KMMeshStore::logNullSlots() const
{
#ifndef QT_NO_DEBUG
    for (int i = 0; i < m_vertices.size(); ++i) {
        if (!m_vertices.at(i))
            qDebug() << "NULL vertex:" << i;
    }
    for (int i = 0; i < m_faces.size(); ++i) {
        if (!m_faces.at(i))
            qDebug() << "NULL face:" << i;
    }
#endif
}
