#include "mesh/KMMarqueeSelect.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"

#include <QCoreApplication>
#include <QPolygonF>

#include <algorithm>
#include <vector>

using KMMeshSelect::Mode;
using KMMeshTargets::Elements;

namespace {

/// One mesh, with the question which of its elements lie in the area.
template <class Contains>
class Candidate
{
public:
    Candidate(KMMeshNode &mesh, const Contains &contains)
        : m_mesh(mesh)
        , m_inside(mesh.vertexCount())
    {
        for (int i = 0; i < m_inside.size(); ++i) {
            const KMVertex *vertex = mesh.vertex(i);
            m_inside[i] = vertex && vertex->isInView()
                          && contains(QPointF(double(vertex->screenPos.x), double(vertex->screenPos.y)));
        }
    }

    bool hasAny(Elements kinds) const
    {
        return (kinds.testFlag(KMMeshTargets::Vertices) && anyOf(m_mesh.vertices()))
               || (kinds.testFlag(KMMeshTargets::Edges) && anyOf(m_mesh.edges()))
               || (kinds.testFlag(KMMeshTargets::Faces) && anyOf(m_mesh.faces()));
    }

    void select(Elements kinds, Mode mode) const
    {
        if (kinds.testFlag(KMMeshTargets::Vertices)) {
            for (int i = 0; i < m_mesh.vertexCount(); ++i) {
                if (const KMVertex *vertex = m_mesh.vertex(i); vertex && changes(*vertex, mode))
                    KMMeshEdit::selectVertex(m_mesh, i, !isSelected(*vertex));
            }
        }
        if (kinds.testFlag(KMMeshTargets::Edges)) {
            for (const KMEdge *edge : m_mesh.edges()) {
                if (changes(*edge, mode))
                    KMMeshEdit::selectEdge(m_mesh, edge->index0, edge->index1, !isSelected(*edge));
            }
        }
        if (kinds.testFlag(KMMeshTargets::Faces)) {
            for (int f = 0; f < m_mesh.faceCount(); ++f) {
                if (const KMFace *face = m_mesh.face(f); face && changes(*face, mode))
                    KMMeshEdit::selectFace(m_mesh, f, !isSelected(*face));
            }
        }
    }

private:
    bool isVertexInside(int i) const { return m_inside.value(i, false); }
    bool isInside(const KMEdge &edge) const
    {
        return edge.drawn && isVertexInside(edge.index0) && isVertexInside(edge.index1);
    }
    bool isInside(const KMFace &face) const
    {
        return face.drawn && face.isLive() && !face.hasFlag(KMElementFlag::Hidden)
               && std::all_of(face.indices, face.indices + face.count, [this](int i) { return isVertexInside(i); });
    }
    bool isInside(const KMVertex &vertex) const
    {
        // The record knows its place since the refresh that brought it to the screen.
        return vertex.drawn && isVertexInside(vertex.index) && m_mesh.isShown(vertex);
    }
    template <class Records>
    bool anyOf(const Records &records) const
    {
        for (const auto *record : records) {
            if (record && isInside(*record))
                return true;
        }
        return false;
    }

    template <class Record>
    static bool isSelected(const Record &record)
    {
        return record.hasFlag(KMElementFlag::Selected);
    }
    template <class Record>
    bool changes(const Record &record, Mode mode) const
    {
        if (isSelected(record))
            return mode != Mode::Add && isInside(record) == (mode == Mode::Remove);
        return mode != Mode::Remove && isInside(record);
    }

    KMMeshNode &m_mesh;
    QVector<bool> m_inside; // by vertex
};

template <class Contains>
int selectArea(const QString &text, const Contains &contains, Mode mode, KMMeshNode *only)
{
    if (only && KMMeshTargets::stateNode(*only).isLocked())
        return -1;
    const Elements kinds = KMMeshTargets::filteredElements();
    std::vector<Candidate<Contains>> candidates;
    const QList<KMMeshNode *> meshes = only ? QList<KMMeshNode *>{only} : KMMeshTargets::chosen();
    for (KMMeshNode *mesh : meshes) {
        if (KMMeshTargets::isChosen(*mesh) && KMMeshTargets::isEditable(*mesh) && !KMMeshTargets::isUnderControl(*mesh))
            candidates.emplace_back(*mesh, contains);
    }
    const auto hasAny = [&](const Candidate<Contains> &candidate) { return candidate.hasAny(kinds); };
    if (mode == Mode::Replace && std::none_of(candidates.begin(), candidates.end(), hasAny))
        return 0;
    const KMUndoMacro macro(text);
    for (const Candidate<Contains> &candidate : candidates)
        candidate.select(kinds, mode);
    return 0;
}

} // namespace

int KMMarqueeSelect::selectRect(const QRectF &rect, Mode mode, KMMeshNode *only)
{
    const QString text = QCoreApplication::translate("KMMarqueeSelect", "Rect Select");
    return selectArea(
        text, [&rect](const QPointF &point) { return rect.contains(point); }, mode, only);
}

int KMMarqueeSelect::selectLasso(const QPolygonF &polygon, Mode mode, KMMeshNode *only)
{
    const QString text = QCoreApplication::translate("KMMarqueeSelect", "Lasso Select");
    const QRectF bounds = polygon.boundingRect();
    const auto contains = [&](const QPointF &point) {
        return bounds.contains(point) && polygon.containsPoint(point, Qt::WindingFill);
    };
    return selectArea(text, contains, mode, only);
}
