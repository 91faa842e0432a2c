#include "mesh/KMEdgeWalk.h"

#include "mesh/KMMeshNode.h"

#include <QSet>
#include <QVarLengthArray>

#include <algorithm>

namespace {

using FaceList = QVarLengthArray<const KMFace *, 4>;

bool isTriangle(const KMFace *face)
{
    return face->count == 3;
}

bool isLine(const KMFace *face)
{
    return face->isLine();
}

/// One step of a loop: an edge, the vertex at which the walk leaves it, and the faces there.
class LoopStep
{
public:
    static constexpr int MostFaces = 4; ///< at a vertex that a loop runs through

    LoopStep(const KMMeshStore &mesh, const KMEdge &edge, int pivot)
        : m_mesh(mesh)
        , m_edge(edge)
        , m_pivot(pivot)
        , m_other(edge.otherEnd(pivot))
    {
    }

    KMEdge *next(); ///< null where the loop ends

private:
    bool isOpen();
    int nextVertex() const;
    int between() const;
    int along() const;
    bool isOnNear(int vertex) const
    {
        return std::any_of(m_near.begin(), m_near.end(), [=](const KMFace *face) { return face->hasVertex(vertex); });
    }

    const KMMeshStore &m_mesh;
    const KMEdge &m_edge;
    int m_pivot;
    int m_other;
    FaceList m_near; // at the pivot, with the other end of the edge
    FaceList m_far;  // at the pivot, without it
};

bool LoopStep::isOpen()
{
    for (const int f : m_edge.faceRefs) {
        if (m_mesh.face(f) && isTriangle(m_mesh.face(f)))
            return false;
    }
    const KMVertex *vertex = m_mesh.vertex(m_pivot);
    if (!vertex || vertex->faceRefs.size() < 2 || vertex->faceRefs.size() > MostFaces)
        return false;
    for (const int f : vertex->faceRefs) {
        if (const KMFace *face = m_mesh.face(f))
            (face->hasVertex(m_other) ? m_near : m_far).append(face);
    }
    return true;
}

/// Two faces lie ahead: the loop runs on between them.
int LoopStep::between() const
{
    const bool areTriangles = std::all_of(m_far.begin(), m_far.end(), isTriangle);
    if ((areTriangles && (m_near.size() == 1 || m_edge.faceRefs.isEmpty()))
        || std::all_of(m_far.begin(), m_far.end(), isLine))
        return -1;
    for (int c = 0; c < m_far[0]->count; ++c) {
        const int vertex = m_far[0]->indices[c];
        if (vertex != m_pivot && m_far[1]->hasVertex(vertex))
            return vertex;
    }
    return -1;
}

/// One face lies ahead, as at the border of a hole: the loop runs on along its far side.
int LoopStep::along() const
{
    const KMFace *face = m_far[0];
    const int opposite = face->count == 4 ? face->indices[(face->cornerOf(m_pivot) + 2) % 4] : -1;
    for (int c = 0; c < face->count; ++c) {
        const int vertex = face->indices[c];
        if (vertex != m_pivot && vertex != opposite && (face->isLine() || !isOnNear(vertex)))
            return vertex;
    }
    return -1;
}

int LoopStep::nextVertex() const
{
    if (m_far.size() == 2)
        return between();
    return m_far.size() == 1 && !m_edge.faceRefs.isEmpty() ? along() : -1;
}

KMEdge *LoopStep::next()
{
    const int vertex = isOpen() ? nextVertex() : -1;
    return vertex < 0 ? nullptr : m_mesh.findEdge(m_pivot, vertex);
}

/// The edge between the first two corners of a face that are not ends of the given one; null where there is none.
KMEdge *oppositeEdge(const KMMeshStore &mesh, const KMFace &face, const KMEdge &edge)
{
    int first = -1;
    for (int c = 0; c < face.count; ++c) {
        const int vertex = face.indices[c];
        if (vertex == edge.index0 || vertex == edge.index1 || vertex == first)
            continue;
        if (first >= 0)
            return mesh.findEdge(first, vertex);
        first = vertex;
    }
    return nullptr;
}

/// From an edge through a face of it and on.
class RingWalk
{
public:
    RingWalk(const KMMeshStore &mesh, quint8 flag, const KMEdgeWalk::TakeEdge &take, const KMEdgeWalk::TakeFace &pass)
        : m_mesh(mesh)
        , m_flag(flag)
        , m_take(take)
        , m_pass(pass)
    {
    }

    void run(KMEdge *edge, int f)
    {
        int previous = -1;
        while (isQuad(f)) {
            if (m_pass)
                m_pass(f);
            edge = oppositeEdge(m_mesh, *m_mesh.face(f), *edge);
            if (!edge || edge->hasFlag(m_flag))
                return;
            m_take(edge);
            if (!edge->hasFlag(m_flag))
                return;
            const int passed = f;
            f = faceBehind(*edge, f, previous);
            previous = passed;
        }
    }

private:
    bool isQuad(int f) const { return m_mesh.isFaceShown(f) && m_mesh.face(f)->count >= 4; }
    static int faceBehind(const KMEdge &edge, int f, int previous)
    {
        const auto isOther = [=](int other) { return other != f && other != previous; };
        const int *found = std::find_if(edge.faceRefs.begin(), edge.faceRefs.end(), isOther);
        return found == edge.faceRefs.end() ? -1 : *found;
    }

    const KMMeshStore &m_mesh;
    quint8 m_flag;
    const KMEdgeWalk::TakeEdge &m_take;
    const KMEdgeWalk::TakeFace &m_pass;
};

/// Marks edges and lists them.
KMEdgeWalk::TakeEdge marking(KMMeshNode &mesh, quint8 flag, QVector<KMEdge *> *edges)
{
    return [&mesh, flag, edges](KMEdge *edge) {
        mesh.setEdgeFlag(edge, flag);
        edges->append(edge);
    };
}

} // namespace

void KMEdgeWalk::loop(const KMMeshStore &mesh, KMEdge *start, Direction direction, quint8 flag, const TakeEdge &take)
{
    int pivot = direction == Direction::First ? start->index0 : start->index1;
    for (KMEdge *edge = start;;) {
        KMEdge *next = LoopStep(mesh, *edge, pivot).next();
        if (!next || next->hasFlag(flag) || mesh.isHidden(*next))
            return;
        take(next);
        if (!next->hasFlag(flag))
            return;
        edge = next;
        pivot = edge->otherEnd(pivot);
    }
}

void KMEdgeWalk::ring(const KMMeshStore &mesh, KMEdge *start, quint8 flag, const TakeEdge &take, const TakeFace &pass)
{
    for (const int f : start->faceRefs)
        RingWalk(mesh, flag, take, pass).run(start, f);
}

QVector<KMEdge *> KMEdgeWalk::markLoop(KMMeshNode &mesh, KMEdge *start, quint8 flag)
{
    QVector<KMEdge *> edges;
    const TakeEdge take = marking(mesh, flag, &edges);
    take(start);
    for (const Direction direction : {Direction::First, Direction::Second})
        loop(mesh, start, direction, flag, take);
    return edges;
}

QVector<KMEdge *> KMEdgeWalk::markRing(KMMeshNode &mesh, KMEdge *start, quint8 flag, QVector<int> *faces)
{
    QVector<KMEdge *> edges;
    const TakeEdge take = marking(mesh, flag, &edges);
    take(start);
    QSet<int> passed;
    const TakeFace pass = [faces, &passed](int f) {
        const int before = passed.size();
        passed.insert(f);
        if (faces && passed.size() > before)
            faces->append(f);
    };
    ring(mesh, start, flag, take, pass);
    return edges;
}
