#include "mesh/KMSelectedElements.h"

#include "mesh/KMMeshStore.h"

namespace {

template <class Records>
QVector<int> selectedIndices(const Records &records)
{
    QVector<int> indices;
    for (int i = 0; i < records.size(); ++i) {
        if (records.at(i) && records.at(i)->hasFlag(KMElementFlag::Selected))
            indices << i;
    }
    return indices;
}

} // namespace

QVector<int> KMSelectedElements::vertices(const KMMeshStore &mesh)
{
    return selectedIndices(mesh.vertices());
}

QVector<int> KMSelectedElements::faces(const KMMeshStore &mesh)
{
    return selectedIndices(mesh.faces());
}

QVector<KMEdgeEnds> KMSelectedElements::edges(const KMMeshStore &mesh)
{
    QVector<KMEdgeEnds> edges;
    for (const KMEdge *edge : mesh.edges()) {
        if (edge->hasFlag(KMElementFlag::Selected))
            edges.append({edge->index0, edge->index1});
    }
    return edges;
}
