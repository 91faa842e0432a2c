#include "mesh/KMHoleFill.h"

#include "core/KMSolution.h"
#include "mesh/KMEdgeChains.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMPolygonFill.h"

#include <algorithm>

namespace {

class HoleFilling
{
public:
    HoleFilling(KMMeshNode &mesh, const QVector<int> &polygon)
        : m_mesh(mesh)
        , m_polygon(polygon)
    {
        for (int i = 0; i < polygon.size(); ++i)
            takeSide(i);
    }

    QVector<int> run()
    {
        QVector<int> faces;
        if (m_isClosed || isFilled() || !hasArea())
            return faces;
        const auto isTaken = [this](int a, int b) { return isJoined(a, b); };
        const QVector<KMPolygonFill::Triangle> triangles =
            KMPolygonFill::triangulate(KMPolygonFill::flatten(m_places), isTaken);
        const auto isCovered = [this](const KMPolygonFill::Triangle &t) { return liesOnFace(t); };
        if (std::any_of(triangles.begin(), triangles.end(), isCovered))
            return faces;
        const bool isReversed = runsWithRim();
        for (const KMPolygonFill::Triangle &t : triangles) {
            const int shader = shaderOf(t);
            faces << addFace(isReversed ? KMPolygonFill::Triangle{t[0], t[2], t[1]} : t, shader);
        }
        return faces;
    }

private:
    int next(int i) const { return i + 1 < m_polygon.size() ? i + 1 : 0; }
    void takeSide(int i);
    bool isFilled() const;
    bool hasArea();
    bool isJoined(int a, int b) const;
    bool liesOnFace(const KMPolygonFill::Triangle &triangle) const;
    bool runsWithRim() const;
    int shaderOf(const KMPolygonFill::Triangle &triangle) const;
    void takeCorner(KMFace &face, int corner, int i) const;
    int addFace(const KMPolygonFill::Triangle &triangle, int shader);

    KMMeshNode &m_mesh;
    const QVector<int> &m_polygon;
    QVector<const KMFace *> m_rim; // on each side of the polygon; null for a side that only lines have
    bool m_isClosed = false;       // a side has faces on both hands already: a surface goes on there, no hole
    QVector<kvm::Vector3> m_places;
};

void HoleFilling::takeSide(int i)
{
    m_rim << nullptr;
    const KMEdge *edge = m_mesh.findEdge(m_polygon.at(i), m_polygon.at(next(i)));
    if (!edge)
        return;
    for (const int f : edge->faceRefs) {
        const KMFace *face = m_mesh.face(f);
        if (!face || !face->isPolygon())
            continue;
        m_isClosed = m_isClosed || m_rim.at(i);
        if (!m_rim.at(i))
            m_rim[i] = face;
    }
}

/// The faces on all sides need no points but those of the rim: they lie within it already.
bool HoleFilling::isFilled() const
{
    return std::all_of(m_rim.begin(), m_rim.end(), [this](const KMFace *face) {
        return face && std::all_of(face->indices, face->indices + face->count, [this](int vertex) {
                   return m_polygon.contains(vertex);
               });
    });
}

bool HoleFilling::hasArea()
{
    float outline = 0.0f;
    for (int i = 0; i < m_polygon.size(); ++i) {
        m_places << m_mesh.position(m_polygon.at(i));
        outline += (m_mesh.position(m_polygon.at(next(i))) - m_places.last()).length();
    }
    return KMPolygonFill::normalOf(m_places).length() > 1e-6f * outline * outline;
}

/// Whether two corners have an edge or a face already: a side between them would be the third one there, or cut off a
/// triangle that lies on the face.
bool HoleFilling::isJoined(int a, int b) const
{
    const KMRefList<4> &around = m_mesh.vertex(m_polygon.at(a))->faceRefs;
    return std::any_of(around.begin(), around.end(), [&](int f) {
        const KMFace *face = m_mesh.face(f);
        return face && face->isPolygon() && face->hasVertex(m_polygon.at(b));
    });
}

/// The rim of a single face, or of bare lines that are filled, has one face on each side as that of a hole has.
bool HoleFilling::liesOnFace(const KMPolygonFill::Triangle &triangle) const
{
    const KMRefList<4> &around = m_mesh.vertex(m_polygon.at(triangle[0]))->faceRefs;
    return std::any_of(around.begin(), around.end(), [&](int f) {
        const KMFace *face = m_mesh.face(f);
        return face && std::all_of(triangle.begin(), triangle.end(), [&](int i) {
                   return face->hasVertex(m_polygon.at(i));
               });
    });
}

/// Whether the faces around the hole run along its sides as the polygon does: the filling has to run against them.
bool HoleFilling::runsWithRim() const
{
    int votes = 0;
    for (int i = 0; i < m_polygon.size(); ++i) {
        if (const KMFace *face = m_rim.at(i))
            votes += face->next(face->cornerOf(m_polygon.at(i))) == m_polygon.at(next(i)) ? 1 : -1;
    }
    return votes > 0;
}

/// That of the face beside it; a triangle that lies amid others takes what the hole begins with.
int HoleFilling::shaderOf(const KMPolygonFill::Triangle &triangle) const
{
    for (size_t c = 0; c < 3; ++c) {
        const int i = triangle[c];
        if (m_rim.at(i) && next(i) == triangle[(c + 1) % 3])
            return m_rim.at(i)->shader;
    }
    const auto first = std::find_if(m_rim.begin(), m_rim.end(), [](const KMFace *face) { return face; });
    return first == m_rim.end() ? -1 : (*first)->shader;
}

void HoleFilling::takeCorner(KMFace &face, int corner, int i) const
{
    const int before = i > 0 ? i - 1 : m_polygon.size() - 1;
    face.indices[corner] = m_polygon.at(i);
    if (const KMFace *source = m_rim.at(i) ? m_rim.at(i) : m_rim.at(before)) {
        const int from = source->cornerOf(m_polygon.at(i));
        face.uvs[corner] = source->uvs[from];
        face.colors[corner] = source->colors[from];
    }
}

int HoleFilling::addFace(const KMPolygonFill::Triangle &triangle, int shader)
{
    KMFace face;
    face.count = 3;
    face.shader = shader;
    for (int c = 0; c < 3; ++c)
        takeCorner(face, c, triangle[size_t(c)]);
    return KMMeshEdit::addFace(m_mesh, face);
}

} // namespace

QVector<int> KMMeshEdit::fillHole(KMMeshNode &mesh, const QVector<int> &polygon)
{
    const auto isMissing = [&mesh](int vertex) { return !mesh.vertex(vertex); };
    if (polygon.size() < 3 || std::any_of(polygon.begin(), polygon.end(), isMissing))
        return {};
    return HoleFilling(mesh, polygon).run();
}

int KMMeshEdit::fillSelectedHoles(KMMeshNode &mesh)
{
    settleEdges(mesh);
    int filled = 0;
    const QVector<KMEdgeChain> chains = edgeChains(KMSelectedElements::edges(mesh));
    for (const KMEdgeChain &chain : chains) {
        if (chain.isRound && !fillHole(mesh, chain.vertices).isEmpty())
            ++filled;
    }
    if (filled > 0)
        gSolution->push(new buildEdgeCommand(&mesh));
    return filled;
}
