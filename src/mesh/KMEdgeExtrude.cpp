#include "mesh/KMEdgeExtrude.h"

#include "core/KMSolution.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"

#include <QHash>

#include <algorithm>

namespace {

class EdgeExtrusion
{
public:
    explicit EdgeExtrusion(KMMeshNode &mesh)
        : m_mesh(mesh)
    {
    }

    bool run()
    {
        QVector<KMEdgeEnds> edges = KMSelectedElements::edges(m_mesh);
        const auto isBare = [this](const KMEdgeEnds &edge) { return edge.a == edge.b || !faceOn(edge); };
        edges.erase(std::remove_if(edges.begin(), edges.end(), isBare), edges.end());
        for (const KMEdgeEnds &edge : std::as_const(edges))
            addQuad(edge);
        if (edges.isEmpty())
            return false;
        KMMeshEdit::tellVerticesMade(m_mesh, m_origins);
        gSolution->push(new buildEdgeCommand(&m_mesh));
        for (const KMEdgeEnds &edge : std::as_const(edges)) {
            KMMeshEdit::selectEdge(m_mesh, edge.a, edge.b, false);
            KMMeshEdit::selectEdge(m_mesh, m_copies.value(edge.a), m_copies.value(edge.b), true);
        }
        return true;
    }

private:
    const KMFace *faceOn(const KMEdgeEnds &edge) const;
    int copyOf(int vertex);
    void addQuad(const KMEdgeEnds &edge);

    KMMeshNode &m_mesh;
    QHash<int, int> m_copies;
    QVector<KMVertexOrigin> m_origins; // of the copies
};

/// The first one; a line only where there is nothing else.
const KMFace *EdgeExtrusion::faceOn(const KMEdgeEnds &edge) const
{
    const KMFace *line = nullptr;
    for (const int f : m_mesh.findEdge(edge.a, edge.b)->faceRefs) {
        const KMFace *face = m_mesh.face(f);
        if (face && face->isPolygon())
            return face;
        line = line ? line : face;
    }
    return line;
}

int EdgeExtrusion::copyOf(int vertex)
{
    if (!m_copies.contains(vertex)) {
        KMVertex copy = *m_mesh.vertex(vertex);
        copy.flags &= ~KMElementFlag::Selected;
        m_copies.insert(vertex, KMMeshEdit::addVertex(m_mesh, copy));
        m_origins << KMVertexOrigin::copyOf(vertex, m_copies.value(vertex));
    }
    return m_copies.value(vertex);
}

void EdgeExtrusion::addQuad(const KMEdgeEnds &edge)
{
    const KMFace source = *faceOn(edge);
    const int first = source.cornerOf(edge.a);
    const bool runsForth = source.next(first) == edge.b;
    const int from = runsForth ? source.cornerOf(edge.b) : first;
    const int to = runsForth ? first : source.cornerOf(edge.b);
    KMFace quad;
    quad.shader = source.shader;
    quad.count = 4;
    const int corners[] = {from, to, to, from};
    for (int c = 0; c < quad.count; ++c) {
        copyCorner(quad, c, source, corners[c]);
        quad.cornerFlags[c] = 0;
    }
    quad.indices[2] = copyOf(quad.indices[1]);
    quad.indices[3] = copyOf(quad.indices[0]);
    KMMeshEdit::addFace(m_mesh, quad);
}

} // namespace

bool KMMeshEdit::extrudeEdges(KMMeshNode &mesh)
{
    settleEdges(mesh);
    return EdgeExtrusion(mesh).run();
}
