#include "tools/KMBrushSelect.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "tools/KMWindowGeometry.h"

#include <QPolygonF>

using KMMeshSelect::Mode;
using KMWindowGeometry::distance;
using KMWindowGeometry::pointOf;

namespace {

void setFlag(KMMeshNode &mesh, const KMVertex &vertex, bool on)
{
    on ? mesh.setVertexFlag(vertex.index, KMElementFlag::Selected)
       : mesh.clearVertexFlag(vertex.index, KMElementFlag::Selected);
}

void setFlag(KMMeshNode &mesh, const KMEdge &edge, bool on)
{
    on ? mesh.setEdgeFlag(edge.index0, edge.index1, KMElementFlag::Selected)
       : mesh.clearEdgeFlag(edge.index0, edge.index1, KMElementFlag::Selected);
}

void setFlag(KMMeshNode &mesh, const KMFace &face, bool on)
{
    on ? mesh.setFaceFlag(face.index, KMElementFlag::Selected)
       : mesh.clearFaceFlag(face.index, KMElementFlag::Selected);
}

void select(KMMeshNode &mesh, const KMVertex &vertex, bool on)
{
    KMMeshEdit::selectVertex(mesh, vertex.index, on);
}

void select(KMMeshNode &mesh, const KMEdge &edge, bool on)
{
    KMMeshEdit::selectEdge(mesh, edge.index0, edge.index1, on);
}

void select(KMMeshNode &mesh, const KMFace &face, bool on)
{
    KMMeshEdit::selectFace(mesh, face.index, on);
}

} // namespace

/// Calls it with the state and the record of each element of the wanted kinds.
template <class Visit>
void KMBrushSelect::visit(Stroked &stroked, Visit visit) const
{
    KMMeshNode &mesh = *stroked.mesh;
    for (int i = 0; m_kinds.testFlag(KMMeshTargets::Vertices) && i < int(stroked.vertices.size()); ++i) {
        if (const KMVertex *vertex = mesh.vertex(i); vertex && !vertex->faceRefs.isEmpty())
            visit(stroked.vertices[size_t(i)], *vertex);
    }
    if (m_kinds.testFlag(KMMeshTargets::Edges)) {
        size_t place = 0;
        for (const KMEdge *edge : mesh.edges()) {
            if (place < stroked.edges.size())
                visit(stroked.edges[place++], *edge);
        }
    }
    for (int f = 0; m_kinds.testFlag(KMMeshTargets::Faces) && f < int(stroked.faces.size()); ++f) {
        if (const KMFace *face = mesh.face(f); face && face->isLive())
            visit(stroked.faces[size_t(f)], *face);
    }
}

void KMBrushSelect::begin(Mode mode, float radius)
{
    m_mode = mode;
    m_radius = double(radius);
    m_kinds = KMMeshTargets::filteredElements();
    m_hasTouched = false;
    m_meshes.clear();
    for (KMMeshNode *mesh : KMMeshTargets::chosen()) {
        if (!KMMeshTargets::isEditable(*mesh) || KMMeshTargets::isUnderControl(*mesh))
            continue;
        Stroked stroked{mesh, std::vector<quint8>(size_t(mesh->vertexCount())),
                        std::vector<quint8>(size_t(mesh->edgeCount())), std::vector<quint8>(size_t(mesh->faceCount()))};
        visit(stroked, [](quint8 &state, const auto &record) {
            state = record.hasFlag(KMElementFlag::Selected) ? WasSelected | ShownSelected : 0;
        });
        m_meshes.push_back(std::move(stroked));
    }
}

bool KMBrushSelect::isTouched(const KMMeshNode &, const KMVertex &vertex, const Segment &segment) const
{
    return vertex.drawn && vertex.isInView()
           && distance(pointOf(vertex.screenPos), segment.from, segment.to) <= m_radius;
}

bool KMBrushSelect::isTouched(const KMMeshNode &mesh, const KMEdge &edge, const Segment &segment) const
{
    const KMVertex *a = mesh.vertex(edge.index0);
    const KMVertex *b = mesh.vertex(edge.index1);
    return edge.drawn && a->isInView() && b->isInView()
           && distance(segment.from, segment.to, pointOf(a->screenPos), pointOf(b->screenPos)) <= m_radius;
}

bool KMBrushSelect::isTouched(const KMMeshNode &mesh, const KMFace &face, const Segment &segment) const
{
    if (!face.drawn || face.hasFlag(KMElementFlag::Hidden))
        return false;
    QPolygonF outline;
    for (int c = 0; c < face.count; ++c) {
        const KMVertex *vertex = mesh.vertex(face.indices[c]);
        if (!vertex->isInView())
            return false;
        outline << pointOf(vertex->screenPos);
    }
    const QRectF reach =
        QRectF(segment.from, segment.to).normalized().adjusted(-m_radius, -m_radius, m_radius, m_radius);
    if (!reach.intersects(outline.boundingRect().adjusted(-0.5, -0.5, 0.5, 0.5)))
        return false;
    if (outline.containsPoint(segment.to, Qt::WindingFill))
        return true;
    for (int c = 0; c < outline.size(); ++c) {
        if (distance(segment.from, segment.to, outline.at(c), outline.at((c + 1) % outline.size())) <= m_radius)
            return true;
    }
    return false;
}

void KMBrushSelect::strokeTo(const QPointF &from, const QPointF &to)
{
    const Segment segment{from, to};
    for (Stroked &stroked : m_meshes) {
        if (!stroked.mesh)
            continue;
        visit(stroked, [&](quint8 &state, const auto &record) {
            if (!(state & Touched) && isTouched(*stroked.mesh, record, segment)) {
                state |= Touched;
                m_hasTouched = true;
            }
        });
    }
    for (Stroked &stroked : m_meshes)
        show(stroked, !m_hasTouched);
}

bool KMBrushSelect::isWanted(quint8 state) const
{
    const bool isTouched = state & Touched;
    const bool wasSelected = state & WasSelected;
    switch (m_mode) {
    case Mode::Replace:
        return isTouched;
    case Mode::Add:
        return isTouched || wasSelected;
    case Mode::Remove:
        return wasSelected && !isTouched;
    }
    return wasSelected;
}

void KMBrushSelect::show(Stroked &stroked, bool asItWas) const
{
    if (!stroked.mesh)
        return;
    visit(stroked, [&](quint8 &state, const auto &record) {
        const bool on = asItWas ? state & WasSelected : isWanted(state);
        if (on == bool(state & ShownSelected))
            return;
        state = quint8(on ? state | ShownSelected : state & ~ShownSelected);
        setFlag(*stroked.mesh, record, on);
    });
}

void KMBrushSelect::commit(const QString &text)
{
    for (Stroked &stroked : m_meshes)
        show(stroked, true);
    if (m_hasTouched) {
        const KMUndoMacro macro(text);
        for (Stroked &stroked : m_meshes) {
            if (!stroked.mesh)
                continue;
            visit(stroked, [&](quint8 &state, const auto &record) {
                if (isWanted(state) != bool(state & WasSelected))
                    select(*stroked.mesh, record, isWanted(state));
            });
        }
    }
    m_meshes.clear();
}

void KMBrushSelect::cancel()
{
    for (Stroked &stroked : m_meshes)
        show(stroked, true);
    m_meshes.clear();
}
