// How the records of a mesh are renumbered, and back.

#include "mesh/KMMeshStore.h"

#include <QDebug>

#include <algorithm>

namespace {

/// Closes the gaps of a store. The remap gets the new index of every old one, -1 for null slots.
template <class T>
void closeGaps(QVector<T *> &store, QVector<int> &remap)
{
    remap.resize(store.size());
    int next = 0;
    T **records = store.data();
    for (int i = 0, n = store.size(); i < n; ++i) {
        T *record = records[i];
        remap[i] = record ? next : -1;
        if (!record)
            continue;
        record->index = next;
        records[next++] = record;
    }
    store.resize(next);
}

/// Opens the gaps again, all of them null at first. The remap leads from the closed indices to the open ones.
template <class T>
void openGaps(QVector<T *> &store, QVector<int> &remap, const QVector<KMMeshStore::DroppedSlot<T>> &dropped)
{
    const QVector<T *> closed = store;
    remap.resize(closed.size());
    store.resize(closed.size() + dropped.size());
    auto gap = dropped.cbegin();
    int from = 0;
    for (int i = 0, n = store.size(); i < n; ++i) {
        if (gap != dropped.cend() && gap->index == i) {
            store[i] = nullptr;
            ++gap;
            continue;
        }
        remap[from] = i;
        store[i] = closed.at(from++);
        store[i]->index = i;
    }
}

/// Notes the null slots and the records that nothing needs, and frees the latter.
template <class T, class IsUnused>
QVector<KMMeshStore::DroppedSlot<T>> dropUnused(QVector<T *> &store, KMRecordPool<T> &pool, IsUnused isUnused)
{
    QVector<KMMeshStore::DroppedSlot<T>> dropped;
    T *const *records = store.constData();
    for (int i = 0, n = store.size(); i < n; ++i) {
        T *record = records[i];
        if (record && !isUnused(*record))
            continue;
        dropped.append({i, record != nullptr, record ? *record : T()});
        pool.destroy(record);
        store[i] = nullptr;
        records = store.constData();
    }
    return dropped;
}

} // namespace

/// Leads all references over to the new indices. The lists have no references to records that are gone.
void KMMeshStore::renumberRefs()
{
    const int *faceRemap = m_faceRemap.constData();
    for (KMVertex *vertex : std::as_const(m_vertices)) {
        if (!vertex)
            continue;
        int *refs = vertex->faceRefs.data();
        for (int i = 0, n = vertex->faceRefs.size(); i < n; ++i)
            refs[i] = faceRemap[refs[i]];
    }
    const int *vertexRemap = m_vertexRemap.constData();
    for (KMFace *face : std::as_const(m_faces)) {
        if (!face)
            continue;
        for (int c = 0; c < face->count; ++c)
            face->indices[c] = vertexRemap[face->indices[c]];
    }
}

bool KMMeshStore::isUsed(const KMFace &face) const
{
    return face.isLive() && std::all_of(face.indices, face.indices + face.count, [this](int i) { return vertex(i); });
}

QVector<KMMeshStore::DroppedRef> KMMeshStore::removeRefsOfUnusedFaces()
{
    QVector<DroppedRef> refs;
    for (int f = 0; f < m_faces.size(); ++f) {
        const KMFace *face = m_faces.at(f);
        if (!face || isUsed(*face))
            continue;
        for (int c = 0; c < face->count; ++c) {
            KMVertex *corner = vertex(face->indices[c]);
            const int place = corner ? corner->faceRefs.indexOf(f) : -1;
            if (place < 0)
                continue;
            corner->faceRefs.removeAt(place);
            refs.append({face->indices[c], place, f});
        }
    }
    return refs;
}

KMMeshStore::Dropped KMMeshStore::compactStore()
{
    Dropped dropped;
    dropped.neededCompact = m_needsCompact;
    // Faces go first: a vertex that only such faces use goes with them.
    for (const KMFace *face : std::as_const(m_faces)) {
        if (face && !isUsed(*face))
            dropped.edges += edgeStatesOf(*this, *face);
    }
    dropped.refs = removeRefsOfUnusedFaces();
    dropped.faces = dropUnused(m_faces, m_facePool, [this](const KMFace &face) { return !isUsed(face); });
    dropped.vertices =
        dropUnused(m_vertices, m_vertexPool, [](const KMVertex &vertex) { return vertex.faceRefs.isEmpty(); });
    closeGaps(m_vertices, m_vertexRemap);
    closeGaps(m_faces, m_faceRemap);
    renumberRefs();
    dropped.edges += rekeyEdges();
    logNullSlots();
    m_needsCompact = false;
    return dropped;
}

void KMMeshStore::expandStore(const Dropped &dropped)
{
    openGaps(m_vertices, m_vertexRemap, dropped.vertices);
    openGaps(m_faces, m_faceRemap, dropped.faces);
    renumberRefs();
    for (const auto &slot : dropped.vertices) {
        if (slot.hadRecord)
            placeVertex(slot.index, slot.record);
    }
    for (const auto &slot : dropped.faces) {
        if (slot.hadRecord)
            placeFace(slot.index, slot.record);
    }
    for (auto ref = dropped.refs.crbegin(); ref != dropped.refs.crend(); ++ref)
        vertex(ref->vertex)->faceRefs.insert(ref->place, ref->face);
    rekeyEdges();
    restoreEdgeStates(*this, dropped.edges);
    m_needsCompact = dropped.neededCompact;
}

/// Derives the edges again under the new indices; what they carried goes along. Returns, under the old
/// indices, what edges carried that are gone.
QVector<KMEdgeState> KMMeshStore::rekeyEdges()
{
    QVector<KMEdgeState> lost;
    QVector<KMEdgeState> states;
    for (const KMEdgeState &old : edgeStates()) {
        KMEdgeState state = old;
        state.a = m_vertexRemap.value(old.a, -1);
        state.b = m_vertexRemap.value(old.b, -1);
        (state.a < 0 || state.b < 0 ? lost : states).append(state.a < 0 || state.b < 0 ? old : state);
    }
    rederiveEdges(states);
    return lost;
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
