#include "tools/KMSelectionChain.h"

#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeWalk.h"
#include "mesh/KMFaceFlood.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshTargets.h"
#include "tools/KMElementClick.h"

#include <QCoreApplication>
#include <QSet>

namespace {

constexpr quint8 mark = KMElementFlag::Hot;

/// What a walk has marked, without the marks.
template <class Walk>
QVector<KMEdge *> unmarked(KMMeshNode &mesh, Walk walk)
{
    mesh.clearAllEdgeFlags(mark);
    const QVector<KMEdge *> edges = walk();
    mesh.clearAllEdgeFlags(mark);
    return edges;
}

} // namespace

KMSelectionChain::KMSelectionChain(KMMeshNode &mesh, const char *text)
    : m_mesh(&mesh)
    , m_text(text)
{
}

KMSelectionChain KMSelectionChain::loop(KMMeshNode &mesh, KMEdge *start)
{
    KMSelectionChain chain(mesh, QT_TRANSLATE_NOOP("KMSelectionChain", "Loop Select"));
    chain.m_edges = unmarked(mesh, [&] { return KMEdgeWalk::markLoop(mesh, start, mark); });
    return chain;
}

KMSelectionChain KMSelectionChain::ring(KMMeshNode &mesh, KMEdge *start)
{
    KMSelectionChain chain(mesh, QT_TRANSLATE_NOOP("KMSelectionChain", "Ring Select"));
    chain.m_edges = unmarked(mesh, [&] { return KMEdgeWalk::markRing(mesh, start, mark); });
    return chain;
}

KMSelectionChain KMSelectionChain::belt(KMMeshNode &mesh, KMEdge *start)
{
    KMSelectionChain chain(mesh, QT_TRANSLATE_NOOP("KMSelectionChain", "Belt Select"));
    unmarked(mesh, [&] { return KMEdgeWalk::markRing(mesh, start, mark, &chain.m_faces); });
    return chain;
}

KMSelectionChain KMSelectionChain::patch(KMMeshNode &mesh, int face)
{
    KMSelectionChain chain(mesh, QT_TRANSLATE_NOOP("KMSelectionChain", "Chained Select"));
    chain.m_faces = KMFaceFlood::chained(mesh, {face});
    return chain;
}

KMSelectionChain KMSelectionChain::path(KMMeshNode &mesh, const QVector<int> &vertices)
{
    KMSelectionChain chain(mesh, QT_TRANSLATE_NOOP("KMSelectionChain", "Root Select"));
    for (int i = 1; i < vertices.size(); ++i) {
        if (KMEdge *edge = mesh.findEdge(vertices.at(i - 1), vertices.at(i)))
            chain.m_edges << edge;
    }
    return chain;
}

QVector<KMEdge *> KMSelectionChain::outline() const
{
    QVector<KMEdge *> edges = m_edges;
    QSet<const KMEdge *> known;
    for (const int f : m_faces) {
        const KMFace *face = m_mesh->face(f);
        for (int c = 0; c < face->count; ++c) {
            KMEdge *edge = m_mesh->findEdge(face->indices[c], face->next(c));
            const int before = known.size();
            known.insert(edge);
            if (edge && known.size() > before)
                edges << edge;
        }
    }
    return edges;
}

void KMSelectionChain::select(bool selected) const
{
    const KMUndoMacro macro(QCoreApplication::translate("KMSelectionChain", m_text));
    for (const KMEdge *edge : m_edges)
        KMMeshEdit::selectEdge(*m_mesh, edge->index0, edge->index1, selected);
    for (const int f : m_faces)
        KMMeshEdit::selectFace(*m_mesh, f, selected);
    if (selected && !KMMeshTargets::isChosen(*m_mesh)) // else no command would reach what is selected
        KMElementClick::choose(m_mesh, KMMeshSelect::Mode::Add);
}
