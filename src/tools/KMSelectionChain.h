#pragma once

#include <QString>
#include <QVector>

class KMMeshNode;
struct KMEdge;

/// Edges or faces of one mesh that follow from one of them, ready to be shown or selected.
class KMSelectionChain
{
public:
    KMSelectionChain() = default; ///< empty

    static KMSelectionChain loop(KMMeshNode &mesh, KMEdge *start);
    static KMSelectionChain ring(KMMeshNode &mesh, KMEdge *start);
    static KMSelectionChain belt(KMMeshNode &mesh, KMEdge *start); ///< the faces of the ring
    static KMSelectionChain patch(KMMeshNode &mesh, int face);     ///< all faces that hang together with it
    static KMSelectionChain path(KMMeshNode &mesh, const QVector<int> &vertices); ///< the edges from each to the next

    bool isEmpty() const { return m_edges.isEmpty() && m_faces.isEmpty(); }
    KMMeshNode *mesh() const { return m_mesh; }
    QVector<KMEdge *> outline() const; ///< the edges that show it, each once

    /// One step of the history that selects all of it, or takes it out of the selection.
    void select(bool selected) const;

private:
    KMSelectionChain(KMMeshNode &mesh, const char *text);

    KMMeshNode *m_mesh = nullptr;
    const char *m_text = nullptr; // of the step
    QVector<KMEdge *> m_edges;    // until the edges of the mesh are made anew
    QVector<int> m_faces;
};
