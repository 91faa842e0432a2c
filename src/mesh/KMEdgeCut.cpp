#include "mesh/KMEdgeCut.h"

#include "core/KMSolution.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMFaceTiling.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"

#include <QHash>

#include <algorithm>
#include <vector>

namespace {

using Weights = KMFaceTiling::Weights;

/// The new vertices of an edge, from the smaller of its ends to the larger.
struct CutEdge
{
    QVector<double> ratios;
    QVector<int> vertices;
    KMEdgeState state;
};

/// The points that a face falls into: what they have of its corners, and their vertices.
struct FacePoints
{
    QVector<Weights> weights;
    QVector<int> vertices;
};

/// The sum over the corners of a face. Where a point is a corner, this is the corner's value to the bit.
template <class Value>
Value blend(const Value *corners, int count, const Weights &weights)
{
    Value sum;
    for (int c = 0; c < count; ++c) {
        if (weights[size_t(c)] != 0.0)
            sum += corners[c] * float(weights[size_t(c)]);
    }
    return sum;
}

/// Set where all that has a part in the point has it set.
template <class Flags>
quint8 commonFlags(int count, const Weights &weights, Flags flagsOf)
{
    int common = 0xff;
    for (int c = 0; c < count; ++c) {
        if (weights[size_t(c)] != 0.0)
            common &= flagsOf(c);
    }
    return quint8(common);
}

KMFace tileOf(const KMFace &face, const KMFaceTiling::Tile &tile, const FacePoints &points)
{
    KMFace made = face;
    made.count = tile.size();
    for (int c = 0; c < tile.size(); ++c) {
        const Weights &weights = points.weights.at(tile.at(c));
        made.indices[c] = points.vertices.at(tile.at(c));
        made.uvs[c] = blend(face.uvs, face.count, weights);
        made.colors[c] = blend(face.colors, face.count, weights);
        made.normals[c] = blend(face.normals, face.count, weights).normalized();
        made.cornerFlags[c] =
            commonFlags(face.count, weights, [&face](int corner) { return face.cornerFlags[corner]; });
    }
    return made;
}

class EdgeCutting
{
public:
    explicit EdgeCutting(KMMeshNode &mesh)
        : m_mesh(mesh)
        , m_isOnCut(size_t(mesh.faceCount()))
    {
    }

    QVector<int> addCut(const KMEdgeCut &cut);
    void splitFaces();
    void restoreEdges();
    const QVector<KMVertexOrigin> &origins() const { return m_origins; } ///< of all new vertices

private:
    bool isWhole(const KMFace &face) const
    {
        return std::all_of(face.indices, face.indices + face.count, [this](int i) { return m_mesh.vertex(i); });
    }
    int addVertexBetween(int a, int b, double ratio);
    void splitFace(const KMFace &face);
    void splitLine(const KMFace &line);
    CutEdge sideOf(const KMFace &face, int corner) const;
    int addVertexInside(const KMFace &face, const Weights &weights);

    KMMeshNode &m_mesh;
    QHash<quint64, CutEdge> m_cuts;
    QVector<quint64> m_order;
    QVector<KMVertexOrigin> m_origins;
    QVector<int> m_faces; // on the cut edges, each once
    std::vector<bool> m_isOnCut;
};

QVector<int> EdgeCutting::addCut(const KMEdgeCut &cut)
{
    const KMEdge *edge = m_mesh.findEdge(cut.a, cut.b);
    if (!edge || cut.a == cut.b || m_cuts.contains(edge->key()))
        return {};
    CutEdge made;
    made.state = edgeStateOf(m_mesh, edge->index0, edge->index1);
    for (const float ratio : cut.ratios) {
        if (ratio > 0.0f && ratio < 1.0f)
            made.ratios << (cut.a == edge->index0 ? double(ratio) : 1.0 - double(ratio));
    }
    std::sort(made.ratios.begin(), made.ratios.end());
    made.ratios.erase(std::unique(made.ratios.begin(), made.ratios.end()), made.ratios.end());
    if (made.ratios.isEmpty())
        return {};
    for (const double ratio : std::as_const(made.ratios))
        made.vertices << addVertexBetween(edge->index0, edge->index1, ratio);
    for (const int f : edge->faceRefs) {
        if (!m_isOnCut[size_t(f)] && isWhole(*m_mesh.face(f)))
            m_faces << f;
        m_isOnCut[size_t(f)] = true;
    }
    m_cuts.insert(edge->key(), made);
    m_order << edge->key();
    if (cut.a != edge->index0)
        std::reverse(made.vertices.begin(), made.vertices.end());
    return made.vertices;
}

int EdgeCutting::addVertexBetween(int a, int b, double ratio)
{
    const KMVertex &from = *m_mesh.vertex(a);
    const KMVertex &to = *m_mesh.vertex(b);
    KMVertex vertex;
    for (int k = 0; k < 3; ++k)
        vertex.pos[k] = float(from.pos[k] + (double(to.pos[k]) - from.pos[k]) * ratio);
    vertex.weight = float(from.weight + (double(to.weight) - from.weight) * ratio);
    vertex.flags = from.flags & to.flags;
    const int made = KMMeshEdit::addVertex(m_mesh, vertex);
    m_origins << KMVertexOrigin::between(a, b, float(ratio), made);
    return made;
}

int EdgeCutting::addVertexInside(const KMFace &face, const Weights &weights)
{
    KMVertex vertex;
    KMVertexOrigin origin;
    vertex.flags = commonFlags(face.count, weights, [&](int c) { return m_mesh.vertex(face.indices[c])->flags; });
    for (int c = 0; c < face.count; ++c) {
        const KMVertex &corner = *m_mesh.vertex(face.indices[c]);
        vertex.pos += corner.pos * float(weights[size_t(c)]);
        vertex.weight += corner.weight * float(weights[size_t(c)]);
        origin.sources[size_t(c)] = {face.indices[c], float(weights[size_t(c)])};
    }
    origin.vertex = KMMeshEdit::addVertex(m_mesh, vertex);
    m_origins << origin;
    return origin.vertex;
}

void EdgeCutting::splitFaces()
{
    for (const int f : std::as_const(m_faces)) {
        const KMFace face = *m_mesh.face(f);
        KMMeshEdit::deleteFace(m_mesh, f);
        if (face.isLine())
            splitLine(face);
        else
            splitFace(face);
    }
}

/// The cuts in the side after a corner, in the direction of the face.
CutEdge EdgeCutting::sideOf(const KMFace &face, int corner) const
{
    CutEdge side = m_cuts.value(KMEdge::keyOf(face.indices[corner], face.next(corner)));
    if (face.indices[corner] < face.next(corner))
        return side;
    for (double &ratio : side.ratios)
        ratio = 1.0 - ratio;
    std::reverse(side.ratios.begin(), side.ratios.end());
    std::reverse(side.vertices.begin(), side.vertices.end());
    return side;
}

void EdgeCutting::splitLine(const KMFace &line)
{
    const CutEdge side = sideOf(line, 0);
    FacePoints points{{Weights{1.0, 0.0}}, {line.indices[0]}};
    for (int i = 0; i < side.vertices.size(); ++i) {
        points.vertices << side.vertices.at(i);
        points.weights << Weights{1.0 - side.ratios.at(i), side.ratios.at(i)};
    }
    points.vertices << line.indices[1];
    points.weights << Weights{0.0, 1.0};
    for (int i = 1; i < points.vertices.size(); ++i)
        KMMeshEdit::addFace(m_mesh, tileOf(line, {i - 1, i}, points));
}

void EdgeCutting::splitFace(const KMFace &face)
{
    QVector<kvm::Vector3> corners;
    QVector<QVector<double>> ratios;
    FacePoints points;
    QVector<int> onSides;
    for (int c = 0; c < face.count; ++c) {
        const CutEdge side = sideOf(face, c);
        corners << m_mesh.position(face.indices[c]);
        ratios << side.ratios;
        points.vertices << face.indices[c];
        onSides << side.vertices;
    }
    const KMFaceTiling tiling(corners, ratios);
    points.weights = tiling.points();
    points.vertices << onSides;
    for (int i = tiling.firstInside(); i < tiling.points().size(); ++i)
        points.vertices << addVertexInside(face, tiling.points().at(i));
    for (const KMFaceTiling::Tile &tile : tiling.tiles())
        KMMeshEdit::addFace(m_mesh, tileOf(face, tile, points));
}

/// The parts of an edge carry what the edge did.
void EdgeCutting::restoreEdges()
{
    gSolution->push(new buildEdgeCommand(&m_mesh));
    for (const quint64 key : std::as_const(m_order)) {
        const CutEdge cut = m_cuts.value(key);
        int from = cut.state.a;
        for (const int to : cut.vertices + QVector<int>{cut.state.b}) {
            KMMeshEdit::setEdgeWeight(m_mesh, from, to, cut.state.weight);
            KMMeshEdit::selectEdge(m_mesh, from, to, cut.state.flags & KMElementFlag::Selected);
            from = to;
        }
    }
}

} // namespace

QVector<QVector<int>> KMMeshEdit::cutEdges(KMMeshNode &mesh, const QVector<KMEdgeCut> &cuts)
{
    settleEdges(mesh);
    EdgeCutting cutting(mesh);
    QVector<QVector<int>> vertices;
    bool cutsAny = false;
    for (const KMEdgeCut &cut : cuts) {
        vertices << cutting.addCut(cut);
        cutsAny |= !vertices.last().isEmpty();
    }
    if (cutsAny) {
        cutting.splitFaces();
        tellVerticesMade(mesh, cutting.origins());
        cutting.restoreEdges();
    }
    return vertices;
}
