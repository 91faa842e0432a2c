// The lists of what is in the scene, in the order of the tree.

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMTreeWidget.h"

#include <QMap>

#include <algorithm>

namespace {

constexpr int mostRows = 32;  // with more below it, one walk over the whole tree costs less
constexpr int mostSteps = 64; // likewise, when no neighbour of the family is found so soon

/// Goes through the tree backwards: each row comes after all below it and before its parent.
/// A place among siblings has to be looked for only where the walk leaves them.
class BackwardWalk
{
public:
    explicit BackwardWalk(const QTreeWidgetItem *row)
        : m_row(row)
        , m_position(KMTreeWidget::positionOf(row))
    {
    }

    /// The row before the last one; null at the start of the tree, or when the steps are used up.
    const QTreeWidgetItem *next(const KMTreeWidget *tree)
    {
        const QTreeWidgetItem *parent = m_row->parent();
        if (m_position == 0) {
            m_row = parent;
            m_position = parent ? KMTreeWidget::positionOf(parent) : 0;
            return spend() ? m_row : nullptr;
        }
        m_row = (parent ? parent : tree->invisibleRootItem())->child(--m_position);
        while (m_row->childCount() > 0 && spend()) {
            m_position = m_row->childCount() - 1;
            m_row = m_row->child(m_position);
        }
        return spend() ? m_row : nullptr;
    }
    bool isExhausted() const { return m_steps > mostSteps; }

private:
    bool spend() { return ++m_steps <= mostSteps; }

    const QTreeWidgetItem *m_row;
    int m_position;
    int m_steps = 0;
};

} // namespace

KMProject::List KMProject::derivedListOf(const KMContainerNode *node)
{
    const int type = node->type();
    if (type == KMNodeType::Mesh)
        return MeshesInTree;
    return isModifier(type)    ? ModifiersInTree
           : isPrimitive(type) ? PrimitivesInTree
           : isCtrl(type)      ? CtrlsInTree
                               : NoList;
}

const QList<KMNode *> &KMProject::currentList(List list) const
{
    if (m_derivedStale || (m_renderMeshesStale && list == RenderMeshes))
        refillDerivedLists();
    return m_lists[list];
}

void KMProject::rebuildDerivedLists()
{
    // Commands come in long macros; walking the tree once at the next question is enough for all of them.
    m_derivedStale = true;
}

void KMProject::refillDerivedLists() const
{
    for (const List list : {MeshesInTree, RenderMeshes, ModifiersInTree, PrimitivesInTree, CtrlsInTree})
        m_lists[list].clear();
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree.get())) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        const List list = derivedListOf(node);
        if (list != NoList)
            m_lists[list] << node;
        if (list == MeshesInTree)
            m_lists[RenderMeshes] << node;
        const QList<KMContainerNode *> made = node->evaluatedMeshes();
        for (KMContainerNode *mesh : made)
            m_lists[RenderMeshes] << mesh;
    }
    m_derivedStale = m_renderMeshesStale = false;
}

void KMProject::followRow(QTreeWidgetItem *row, RowChange change)
{
    if (m_derivedStale)
        return;
    const QList<QTreeWidgetItem *> members = KMTreeWidget::flatten(row);
    if (members.size() > mostRows)
        return rebuildDerivedLists();
    // A row and all below it follow one another in the tree, and so do their nodes in each list.
    QMap<List, QList<KMNode *>> runs;
    for (const QTreeWidgetItem *member : members) {
        KMContainerNode *node = KMTreeWidget::nodeOf(member);
        const List list = derivedListOf(node);
        if (list != NoList)
            runs[list] << node;
        m_renderMeshesStale |= list == MeshesInTree || !node->evaluatedMeshes().isEmpty();
    }
    for (auto run = runs.cbegin(); run != runs.cend(); ++run) {
        const bool isOut = change == RowChange::Entered || takeFromDerived(run.key(), *run);
        if (!isOut || (change != RowChange::Left && !insertIntoDerived(run.key(), *run, row)))
            return rebuildDerivedLists();
    }
}

/// False when they don't stand there in a row: somebody moved rows without a word.
bool KMProject::takeFromDerived(List list, const QList<KMNode *> &run)
{
    QList<KMNode *> &nodes = m_lists[list];
    const int first = nodes.indexOf(run.first());
    if (first < 0 || nodes.size() - first < run.size() || !std::equal(run.begin(), run.end(), nodes.begin() + first))
        return false;
    nodes.erase(nodes.begin() + first, nodes.begin() + first + run.size());
    return true;
}

/// False when it takes a walk over the tree to tell where they belong.
bool KMProject::insertIntoDerived(List list, const QList<KMNode *> &run, QTreeWidgetItem *row)
{
    int place = derivedPlace(list, row);
    if (place < 0)
        return false;
    for (KMNode *node : run)
        m_lists[list].insert(place++, node);
    return true;
}

/// Where in the list the row's part of it belongs: behind the nearest one before it in the tree. -1 when that
/// is far away.
int KMProject::derivedPlace(List list, QTreeWidgetItem *row) const
{
    const QList<KMNode *> &nodes = m_lists[list];
    if (nodes.isEmpty())
        return 0;
    BackwardWalk walk(row);
    while (const QTreeWidgetItem *before = walk.next(m_tree.get())) {
        KMContainerNode *node = KMTreeWidget::nodeOf(before);
        if (derivedListOf(node) != list)
            continue;
        const int index = nodes.lastIndexOf(node);
        return index < 0 ? -1 : index + 1;
    }
    return walk.isExhausted() ? -1 : 0;
}
