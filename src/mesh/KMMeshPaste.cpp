#include "mesh/KMMeshPaste.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "core/KMVertexFollower.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMEdgeCommands.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshSelect.h"
#include "mesh/KMMeshTargets.h"
#include "mesh/KMSymmetryPlane.h"

#include <QCoreApplication>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>

using kvm::Vector3;

namespace {

using Place = std::array<float, 3>;

Place placeOf(const Vector3 &position)
{
    return {position.x, position.y, position.z};
}

class Pasting
{
public:
    Pasting(KMMeshNode &mesh, KMMeshPaste::Kind kind)
        : m_mesh(mesh)
        , m_kind(kind)
        , m_plane(mesh)
    {
        for (int i = 0; kind == KMMeshPaste::Kind::Insert && i < mesh.vertexCount(); ++i) {
            // Only finite places have an order.
            if (mesh.vertex(i) && std::isfinite(mesh.position(i).lengthSquared()))
                m_places.emplace(placeOf(mesh.position(i)), i); // of several the first counts
        }
    }

    /// Finds out what has to be added. False when nothing has.
    bool prepare(const QVector<KMCopyBuffer::Mesh> &copied)
    {
        for (const KMCopyBuffer::Mesh &mesh : copied)
            prepareMesh(mesh);
        return !m_faces.isEmpty();
    }
    void push();

private:
    void prepareMesh(const KMCopyBuffer::Mesh &copied);
    KMCopyBuffer::Face prepared(const KMCopyBuffer::Face &copied) const;
    int indexOf(const KMCopyBuffer::Vertex &vertex);
    bool isStillThere(const KMCopyBuffer::Vertex &vertex) const;
    bool standsThere(const KMFace &face) const;
    void pushWeights();

    KMMeshNode &m_mesh;
    KMMeshPaste::Kind m_kind;
    KMSymmetryPlane m_plane;
    bool m_isOwn = false;                     // what is being prepared was copied from this mesh
    std::map<Place, int> m_places;            // vertices of the mesh that can be joined to
    QVector<KMCopyBuffer::Vertex> m_vertices; // new ones; they follow those of the mesh
    QVector<KMCopyBuffer::Face> m_faces;      // with indices of the mesh
};

/// A new vertex gets the index that it will have.
int Pasting::indexOf(const KMCopyBuffer::Vertex &vertex)
{
    KMCopyBuffer::Vertex placed = vertex;
    if (m_kind == KMMeshPaste::Kind::Mirror)
        placed.position = m_plane.reflected(vertex.position);
    if (!isStillThere(vertex))
        placed.index = -1;
    const auto known = m_places.find(placeOf(placed.position));
    if (known != m_places.end())
        return known->second;
    m_vertices << placed;
    return m_mesh.vertexCount() + m_vertices.size() - 1;
}

/// In the mesh that gets the copy, under its number and at its place, so that the copy can have what hangs on it.
bool Pasting::isStillThere(const KMCopyBuffer::Vertex &vertex) const
{
    const KMVertex *record = m_isOwn ? m_mesh.vertex(vertex.index) : nullptr;
    return record && record->pos == vertex.position;
}

void Pasting::prepareMesh(const KMCopyBuffer::Mesh &copied)
{
    QVector<KMCopyBuffer::Face> faces;
    QVector<int> indices(copied.vertices.size(), -1);
    m_isOwn = copied.source == quint64(reinterpret_cast<quintptr>(&m_mesh));
    for (const KMCopyBuffer::Face &face : copied.faces) {
        KMCopyBuffer::Face added = prepared(face);
        for (int c = 0; c < added.face.count; ++c) {
            int &index = indices[added.face.indices[c]];
            if (index < 0)
                index = indexOf(copied.vertices.at(added.face.indices[c]));
            added.face.indices[c] = index;
        }
        if (m_kind != KMMeshPaste::Kind::Insert || !standsThere(added.face))
            m_faces << added;
    }
}

/// A mirrored face would look inward: its corners run the other way.
KMCopyBuffer::Face Pasting::prepared(const KMCopyBuffer::Face &copied) const
{
    KMCopyBuffer::Face face = copied;
    face.face.flags = KMElementFlag::Selected;
    if (!gProject->shader(face.face.shader))
        face.face.shader = -1;
    if (m_kind != KMMeshPaste::Kind::Mirror)
        return face;
    const int count = copied.face.count;
    for (int c = 0; c < count; ++c) {
        copyCorner(face.face, c, copied.face, count - 1 - c);
        face.weights[size_t(c)] = copied.weights[size_t((2 * count - 2 - c) % count)];
    }
    return face;
}

bool Pasting::standsThere(const KMFace &face) const
{
    const KMVertex *first = m_mesh.vertex(face.indices[0]);
    return first && std::any_of(first->faceRefs.begin(), first->faceRefs.end(), [&](int f) {
               const KMFace *other = m_mesh.face(f);
               return other && other->count == face.count
                      && std::is_permutation(face.indices, face.indices + face.count, other->indices);
           });
}

void Pasting::push()
{
    QVector<KMVertexOrigin> origins;
    for (const KMCopyBuffer::Vertex &vertex : std::as_const(m_vertices)) {
        KMVertex record;
        record.pos = vertex.position;
        record.weight = vertex.weight;
        record.flags = KMElementFlag::Selected;
        const int made = KMMeshEdit::addVertex(m_mesh, record);
        if (vertex.index < 0)
            continue;
        origins << KMVertexOrigin::copyOf(vertex.index, made);
        if (m_kind == KMMeshPaste::Kind::Mirror)
            origins.last().mirror = &m_plane;
    }
    KMMeshEdit::tellVerticesMade(m_mesh, origins);
    for (const KMCopyBuffer::Face &added : std::as_const(m_faces))
        KMMeshEdit::addFace(m_mesh, added.face);
    gSolution->push(new buildEdgeCommand(&m_mesh));
    pushWeights();
}

void Pasting::pushWeights()
{
    for (const KMCopyBuffer::Face &added : std::as_const(m_faces)) {
        for (int c = 0; c < added.face.count; ++c) {
            if (const float weight = added.weights[size_t(c)]; weight != 0.0f)
                KMMeshEdit::setEdgeWeight(m_mesh, added.face.indices[c], added.face.next(c), weight);
        }
    }
}

} // namespace

bool KMMeshPaste::paste(KMMeshNode &mesh, const QByteArray &buffer, Kind kind)
{
    if (mesh.isLocked() || mesh.ownerNode())
        return false;
    Pasting pasting(mesh, kind);
    if (!pasting.prepare(KMCopyBuffer::read(buffer)))
        return false;
    const KMUndoMacro macro(QCoreApplication::translate("KMMeshPaste", "Paste Mesh"));
    KMMeshSelect::clearSelection(mesh);
    pasting.push();
    return true;
}
