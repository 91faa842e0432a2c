#include "rig/KMTagSelection.h"

#include "core/KMCommand.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMWaitingMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSelectedElements.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace {

using Pair = KMStoredSelection::Pair;

/// What a renumbering leaves of a list. The function answers false for what is gone; then the whole list is kept
/// besides, for its order.
template <class Element, class Renumber>
void renumberList(QVector<Element> &elements, QVector<Element> *lost, const Renumber &renumber)
{
    QVector<Element> kept;
    for (Element element : std::as_const(elements)) {
        if (renumber(element))
            kept << element;
    }
    if (kept.size() != elements.size())
        *lost = elements;
    elements = kept;
}

template <class Element>
void bringBack(QVector<Element> &elements, const QVector<Element> &lost)
{
    if (!lost.isEmpty())
        elements = lost;
}

QVector<Pair> selectedCorners(const KMMeshNode &mesh)
{
    QVector<Pair> corners;
    for (int f = 0; f < mesh.faceCount(); ++f) {
        const KMFace *face = mesh.face(f);
        for (int c = 0; face && c < face->count; ++c) {
            if (face->cornerFlags[c] & KMElementFlag::Selected)
                corners.append({f, c});
        }
    }
    return corners;
}

template <class Element>
QVector<Element> sorted(QVector<Element> elements)
{
    std::sort(elements.begin(), elements.end());
    return elements;
}

/// Calls a function for what is in one of two lists only. A file may hold lists in any order.
template <class Element, class Switch>
void switchOver(const QVector<Element> &before, const QVector<Element> &after, const Switch &select)
{
    const QVector<Element> old = sorted(before);
    const QVector<Element> wanted = sorted(after);
    QVector<Element> cleared, set;
    std::set_difference(old.begin(), old.end(), wanted.begin(), wanted.end(), std::back_inserter(cleared));
    std::set_difference(wanted.begin(), wanted.end(), old.begin(), old.end(), std::back_inserter(set));
    for (const Element &element : std::as_const(cleared))
        select(element, false);
    for (const Element &element : std::as_const(set))
        select(element, true);
}

} // namespace

bool KMStoredSelection::operator==(const KMStoredSelection &other) const
{
    return vertices == other.vertices && faces == other.faces && edges == other.edges && corners == other.corners;
}

KMTagSelection::KMTagSelection()
{
    setType(KMNodeType::TagSelection);
    setName(tr("Selection"));
}

KMMeshNode *KMTagSelection::mesh() const
{
    return owner() && owner()->type() == KMNodeType::Mesh ? static_cast<KMMeshNode *>(owner()) : nullptr;
}

KMStoredSelection KMTagSelection::selectionOf(const KMMeshNode &mesh)
{
    KMStoredSelection selection{
        KMSelectedElements::vertices(mesh), KMSelectedElements::faces(mesh), {}, selectedCorners(mesh)};
    for (const KMEdgeEnds &edge : KMSelectedElements::edges(mesh))
        selection.edges.append({edge.a, edge.b});
    selection.edges = sorted(selection.edges);
    return selection;
}

void KMTagSelection::recall(Recall recall) const
{
    KMMeshNode *target = mesh();
    if (!target)
        return;
    if (target->isLocked())
        return gSolution->showMessage(tr("%1 is locked").arg(target->name()), KMCommand::MessageLevel);
    const KMWaitingMacro macro(tr("Restore Selection"));
    KMMeshEdit::settleEdges(*target);
    const KMStoredSelection before = recall == Recall::Replace ? selectionOf(*target) : KMStoredSelection();
    const KMStoredSelection &after = m_selection;
    switchOver(before.vertices, after.vertices, [&](int v, bool on) { KMMeshEdit::selectVertex(*target, v, on); });
    switchOver(before.edges, after.edges,
               [&](const Pair &edge, bool on) { KMMeshEdit::selectEdge(*target, edge.first, edge.second, on); });
    switchOver(before.faces, after.faces, [&](int f, bool on) { KMMeshEdit::selectFace(*target, f, on); });
    switchOver(before.corners, after.corners,
               [&](const Pair &corner, bool on) { KMMeshEdit::selectUV(*target, corner.first, corner.second, on); });
}

void KMTagSelection::remapIndices()
{
    const KMMeshNode *store = mesh();
    if (!store)
        return;
    KMStoredSelection lost;
    const auto vertex = [store](int &v) { return (v = store->remappedVertex(v)) >= 0; };
    const auto face = [store](int &f) { return (f = store->remappedFace(f)) >= 0; };
    const auto edge = [&vertex](Pair &ends) {
        const bool isThere = vertex(ends.first) & vertex(ends.second);
        if (ends.first > ends.second)
            std::swap(ends.first, ends.second);
        return isThere;
    };
    const auto corner = [&face](Pair &place) { return face(place.first); };
    renumberList(m_selection.vertices, &lost.vertices, vertex);
    renumberList(m_selection.faces, &lost.faces, face);
    renumberList(m_selection.edges, &lost.edges, edge);
    renumberList(m_selection.corners, &lost.corners, corner);
    mesh()->keepLoss(this, lost);
    if (const auto *found = store->lossOf<KMStoredSelection>(this)) {
        bringBack(m_selection.vertices, found->vertices);
        bringBack(m_selection.faces, found->faces);
        bringBack(m_selection.edges, found->edges);
        bringBack(m_selection.corners, found->corners);
    }
}

KMTagSelection *KMTagSelection::clone() const
{
    auto *copy = new KMTagSelection;
    copy->setName(name());
    copy->setParameters(m_selection);
    return copy;
}
