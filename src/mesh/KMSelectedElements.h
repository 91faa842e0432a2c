#pragma once

#include <QVector>

class KMMeshStore;

/// An edge by its vertices, for what works on through edits that make the edges of a mesh anew.
struct KMEdgeEnds
{
    int a;
    int b;
};
Q_DECLARE_TYPEINFO(KMEdgeEnds, Q_PRIMITIVE_TYPE);

/// The elements with the selected flag, as they are now.
namespace KMSelectedElements {

QVector<int> vertices(const KMMeshStore &mesh);     ///< ascending
QVector<int> faces(const KMMeshStore &mesh);        ///< ascending
QVector<KMEdgeEnds> edges(const KMMeshStore &mesh); ///< in the order of the mesh, the smaller vertex first

} // namespace KMSelectedElements
