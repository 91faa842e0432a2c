#pragma once

#include "mesh/KMMeshSelect.h"

#include <QPointF>
#include <QPointer>
#include <QVector>

#include <vector>

struct KMEdge;
struct KMFace;
struct KMVertex;

/// Selection by a stroke of a round brush: what it touches, as one step of the history. The stroke shows at once what
/// it will select. It works on the window coordinates of the last frame, and on the same elements as the other
/// marquees.
class KMBrushSelect
{
public:
    void begin(KMMeshSelect::Mode mode, float radius); ///< pixels
    void strokeTo(const QPointF &from, const QPointF &to);
    bool hasTouched() const { return m_hasTouched; }
    void commit(const QString &text); ///< as a step of that text; none where nothing was touched
    void cancel();                    ///< the selection is as it was

private:
    enum State : quint8 { Touched = 1, WasSelected = 2, ShownSelected = 4 };
    /// The state of each element, in the order of the stores and of the table of edges.
    struct Stroked
    {
        QPointer<KMMeshNode> mesh;
        std::vector<quint8> vertices, edges, faces;
    };
    struct Segment
    {
        QPointF from, to;
    };

    template <class Visit>
    void visit(Stroked &stroked, Visit visit) const;
    void show(Stroked &stroked, bool asItWas) const;
    bool isWanted(quint8 state) const;
    bool isTouched(const KMMeshNode &mesh, const KMVertex &vertex, const Segment &segment) const;
    bool isTouched(const KMMeshNode &mesh, const KMEdge &edge, const Segment &segment) const;
    bool isTouched(const KMMeshNode &mesh, const KMFace &face, const Segment &segment) const;

    KMMeshSelect::Mode m_mode = KMMeshSelect::Mode::Replace;
    KMMeshTargets::Elements m_kinds;
    double m_radius = 0.0;
    bool m_hasTouched = false;
    std::vector<Stroked> m_meshes;
};
