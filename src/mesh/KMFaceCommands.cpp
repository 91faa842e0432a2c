#include "mesh/KMFaceCommands.h"

#include "mesh/KMMeshNode.h"

#include <algorithm>

namespace {

using RefPlaces = std::array<int, KMFace::MaxCorners>;

/// Where the face stands in the lists of its corners' vertices; -1 where a vertex is missing, or came before.
RefPlaces refPlacesOf(const KMMeshNode &mesh, const KMFace &face, int index)
{
    RefPlaces places;
    places.fill(-1);
    for (int c = 0; c < face.count; ++c) {
        const KMVertex *vertex = mesh.vertex(face.indices[c]);
        if (vertex && face.cornerOf(face.indices[c]) == c)
            places[size_t(c)] = vertex->faceRefs.indexOf(index);
    }
    return places;
}

/// Puts the face back where it stood in the lists; vertices that list it still are left alone.
void restoreRefs(KMMeshNode &mesh, const KMFace &face, int index, const RefPlaces &places)
{
    for (int c = 0; c < face.count; ++c) {
        KMVertex *vertex = mesh.vertex(face.indices[c]);
        const int place = places[size_t(c)];
        if (vertex && place >= 0 && !vertex->faceRefs.contains(index))
            vertex->faceRefs.insert(std::min(place, vertex->faceRefs.size()), index);
    }
}

/// Takes the face out of the lists of the vertices that it doesn't keep.
void leaveVertices(KMMeshNode &mesh, int index, const KMFace &left, const KMFace &entered)
{
    for (int c = 0; c < left.count; ++c) {
        KMVertex *vertex = mesh.vertex(left.indices[c]);
        if (vertex && !entered.hasVertex(left.indices[c]))
            vertex->faceRefs.removeOne(index);
    }
}

} // namespace

addFaceCommand::addFaceCommand(KMMeshNode *mesh, int count, const int *indices)
    : KMMeshCommand(tr("Add Face"), mesh)
    , m_index(mesh->addFaceRaw(count, indices))
{
    m_record = *mesh->face(m_index);
    m_edges = edgeStatesOf(*mesh, m_record);
}

addFaceCommand::addFaceCommand(KMMeshNode *mesh, const KMFace &record)
    : KMMeshCommand(tr("Add Face"), mesh)
    , m_record(record)
    , m_index(mesh->addFaceRaw(record.count, record.indices))
    , m_edges(edgeStatesOf(*mesh, record))
{
}

void addFaceCommand::apply(Direction direction)
{
    if (direction == Direction::Redo) {
        mesh()->placeFace(m_index, m_record);
        mesh()->addFaceRefs(m_index);
        restoreEdgeStates(*mesh(), m_edges);
    } else {
        mesh()->removeFaceRefs(m_index);
        mesh()->takeFace(m_index);
    }
    mesh()->markDirty(KMMeshDirty::All);
}

deleteFaceCommand::deleteFaceCommand(KMMeshNode *mesh, int index)
    : KMMeshCommand(tr("Delete Face"), mesh)
    , m_index(index)
    , m_kept(!mesh->face(index))
{
    if (m_kept)
        return;
    m_record = *mesh->face(index);
    m_refPlaces = refPlacesOf(*mesh, m_record, index);
    m_edges = edgeStatesOf(*mesh, m_record);
}

void deleteFaceCommand::apply(Direction direction)
{
    if (m_kept)
        return;
    if (direction == Direction::Redo) {
        mesh()->removeFaceRefs(m_index);
        mesh()->setFace(m_index, nullptr);
    } else {
        mesh()->placeFace(m_index, m_record);
        restoreRefs(*mesh(), m_record, m_index, m_refPlaces);
        restoreEdgeStates(*mesh(), m_edges);
    }
    mesh()->markDirty(KMMeshDirty::All);
}

editFaceTopologyCommand::editFaceTopologyCommand(KMMeshNode *mesh, int index, const KMFace &record)
    : KMMeshCommand(tr("Edit Face Topology"), mesh)
    , m_index(index)
    , m_before(*mesh->face(index))
    , m_after(record)
    , m_refPlaces(refPlacesOf(*mesh, m_before, index))
    , m_edgesBefore(edgeStatesOf(*mesh, m_before))
    , m_edgesAfter(edgeStatesOf(*mesh, m_after))
{
    moveWeights(*mesh);
    m_edgesBefore += edgeStatesOf(*mesh, m_after);
}

/// The edge after each new corner takes the weight that the edge after the old corner has.
void editFaceTopologyCommand::moveWeights(const KMMeshNode &mesh)
{
    for (int c = 0; c < std::min(m_before.count, m_after.count); ++c) {
        const float weight = edgeStateOf(mesh, m_before.indices[c], m_before.next(c)).weight;
        if (weight == 0.0f)
            continue;
        const quint64 key = KMEdge::keyOf(m_after.indices[c], m_after.next(c));
        for (KMEdgeState &state : m_edgesAfter) {
            if (KMEdge::keyOf(state.a, state.b) == key) // corners may lie on the same edge
                state.weight = weight;
        }
    }
}

void editFaceTopologyCommand::apply(Direction direction)
{
    if (direction == Direction::Redo) {
        mesh()->placeFace(m_index, m_after);
        leaveVertices(*mesh(), m_index, m_before, m_after);
        mesh()->addFaceRefs(m_index);
        restoreEdgeStates(*mesh(), m_edgesAfter);
    } else {
        mesh()->placeFace(m_index, m_before);
        leaveVertices(*mesh(), m_index, m_after, m_before);
        restoreRefs(*mesh(), m_before, m_index, m_refPlaces);
        restoreEdgeStates(*mesh(), m_edgesBefore);
    }
    mesh()->markDirty(KMMeshDirty::All);
}

editFaceShaderCommand::editFaceShaderCommand(KMMeshNode *mesh, int face, int shader)
    : KMMeshCommand(tr("Edit Face Shader"), mesh)
    , m_face(face)
    , m_before(mesh->faceShader(face))
    , m_after(shader)
{
}

void editFaceShaderCommand::apply(Direction direction)
{
    mesh()->setFaceShader(m_face, direction == Direction::Redo ? m_after : m_before);
    mesh()->markDirty(KMMeshDirty::All);
}

setFaceShaderListCommand::setFaceShaderListCommand(KMMeshNode *mesh, const QVector<int> &faces, int shader)
    : setFaceShaderListCommand(mesh, faces, QVector<int>(faces.size(), shader))
{
}

setFaceShaderListCommand::setFaceShaderListCommand(KMMeshNode *mesh, const QVector<int> &faces,
                                                   const QVector<int> &shaders)
    : KMMeshCommand(tr("SetShaderIndexList"), mesh)
    , m_faces(faces)
    , m_after(shaders)
{
    m_before.reserve(faces.size());
    for (const int face : faces)
        m_before.append(mesh->faceShader(face));
}

void setFaceShaderListCommand::apply(Direction direction)
{
    const QVector<int> &shaders = direction == Direction::Redo ? m_after : m_before;
    for (int i = 0; i < m_faces.size(); ++i)
        mesh()->setFaceShader(m_faces.at(i), shaders.at(i));
    mesh()->markDirty(KMMeshDirty::All);
}

decrementShaderIndexCommand::decrementShaderIndexCommand(KMMeshNode *mesh, int deleted)
    : KMMeshCommand(tr("Decrement ShaderIndex"), mesh)
    , m_faces(mesh->faceCount())
{
    for (int f = 0; f < mesh->faceCount(); ++f) {
        const KMFace *face = mesh->face(f);
        m_faces.setBit(f, face && face->shader > deleted);
    }
}

void decrementShaderIndexCommand::apply(Direction direction)
{
    const int step = direction == Direction::Redo ? -1 : +1;
    for (int f = 0; f < m_faces.size(); ++f) {
        if (m_faces.testBit(f))
            mesh()->setFaceShader(f, mesh()->faceShader(f) + step);
    }
    mesh()->markDirty(KMMeshDirty::All);
}
