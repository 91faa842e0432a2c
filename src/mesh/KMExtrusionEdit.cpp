#include "mesh/KMExtrusionEdit.h"

#include "core/KMSolution.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMFaceTurn.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"

namespace {

/// The same face seen from behind; its diagonal stays.
KMFace turned(const KMFace &face)
{
    KMFace back = face;
    for (int c = 1; c < face.count; ++c)
        copyCorner(back, c, face, face.count - c);
    return back;
}

/// A corner of a wall, which carries what the face has there.
void setCorner(KMFace *wall, int corner, const KMFace &source, int from, int vertex)
{
    copyCorner(*wall, corner, source, from);
    wall->indices[corner] = vertex;
    wall->cornerFlags[corner] = 0;
}

} // namespace

KMExtrusionEdit::KMExtrusionEdit(KMMeshNode &mesh, const KMExtrusionShape &shape, Turns turns)
    : m_mesh(mesh)
    , m_shape(shape)
    , m_turns(turns)
    , m_firstVertex(mesh.vertexCount())
{
}

void KMExtrusionEdit::push(const QVector<kvm::Vector3> &positions, bool keepsSource)
{
    const QVector<KMEdgeState> states = weights();
    addVertices(positions);
    for (const KMExtrusionShape::Face &face : m_shape.faces())
        addCopy(face);
    for (const KMExtrusionShape::Side &side : m_shape.sides())
        addWall(side);
    if (m_turns == Turns::Source)
        turnSource();
    if (!keepsSource)
        removeSource();
    gSolution->push(new buildEdgeCommand(&m_mesh));
    restoreWeights(states);
}

/// Creases, by the vertices that their copies will have.
QVector<KMEdgeState> KMExtrusionEdit::weights() const
{
    QVector<KMEdgeState> states;
    for (const KMExtrusionShape::Face &face : m_shape.faces()) {
        const KMFace *source = m_mesh.face(face.face);
        for (int c = 0; c < face.count; ++c) {
            const KMEdgeState state = edgeStateOf(m_mesh, source->indices[c], source->next(c));
            if (state.weight != 0.0f)
                states.append({m_firstVertex + face.points[size_t(c)], m_firstVertex + face.next(c), 0, state.weight});
        }
    }
    return states;
}

void KMExtrusionEdit::addVertices(const QVector<kvm::Vector3> &positions)
{
    QVector<KMVertexOrigin> origins;
    for (int i = 0; i < positions.size(); ++i) {
        const int source = m_shape.points().at(i).vertex;
        KMVertex record;
        record.pos = positions.at(i);
        record.weight = m_mesh.vertex(source)->weight;
        origins << KMVertexOrigin::copyOf(source, KMMeshEdit::addVertex(m_mesh, record));
    }
    KMMeshEdit::tellVerticesMade(m_mesh, origins);
}

void KMExtrusionEdit::addCopy(const KMExtrusionShape::Face &face)
{
    KMFace copy = *m_mesh.face(face.face);
    copy.flags = KMElementFlag::Selected;
    for (int c = 0; c < face.count; ++c)
        copy.indices[c] = m_firstVertex + face.points[size_t(c)];
    addFace(copy);
}

void KMExtrusionEdit::addWall(const KMExtrusionShape::Side &side)
{
    const KMExtrusionShape::Face &face = m_shape.faces().at(side.face);
    const KMFace *source = m_mesh.face(face.face);
    const int from = side.corner;
    const int to = from + 1 < face.count ? from + 1 : 0;
    KMFace wall;
    wall.count = 4;
    wall.shader = source->shader;
    setCorner(&wall, 0, *source, from, source->indices[from]);
    setCorner(&wall, 1, *source, to, source->indices[to]);
    setCorner(&wall, 2, *source, to, m_firstVertex + face.points[size_t(to)]);
    setCorner(&wall, 3, *source, from, m_firstVertex + face.points[size_t(from)]);
    addFace(wall);
}

void KMExtrusionEdit::addFace(const KMFace &face)
{
    KMMeshEdit::addFace(m_mesh, m_turns == Turns::Copies ? turned(face) : face);
}

void KMExtrusionEdit::turnSource()
{
    for (const KMExtrusionShape::Face &face : m_shape.faces())
        KMMeshEdit::reverseFace(m_mesh, face.face);
}

/// The vertices go that no other face has.
void KMExtrusionEdit::removeSource()
{
    QVector<int> vertices;
    for (const KMExtrusionShape::Point &point : m_shape.points())
        vertices << point.vertex;
    for (const KMExtrusionShape::Face &face : m_shape.faces())
        KMMeshEdit::deleteFace(m_mesh, face.face);
    for (const int i : std::as_const(vertices)) {
        if (m_mesh.vertex(i) && m_mesh.vertex(i)->faceRefs.isEmpty())
            gSolution->push(new deleteVertexCommand(&m_mesh, i));
    }
}

void KMExtrusionEdit::restoreWeights(const QVector<KMEdgeState> &states)
{
    for (const KMEdgeState &state : states)
        KMMeshEdit::setEdgeWeight(m_mesh, state.a, state.b, state.weight);
}
