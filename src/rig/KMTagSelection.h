#pragma once

#include "core/KMTagBase.h"

#include <QCoreApplication>
#include <QPair>
#include <QVector>

class KMMeshNode;

/// Elements of a mesh by index.
struct KMStoredSelection
{
    using Pair = QPair<int, int>;

    QVector<int> vertices;
    QVector<int> faces;
    QVector<Pair> edges;   ///< the smaller vertex first
    QVector<Pair> corners; ///< face and corner of a UV

    bool isEmpty() const { return vertices.isEmpty() && faces.isEmpty() && edges.isEmpty() && corners.isEmpty(); }
    bool operator==(const KMStoredSelection &other) const;
};

/// A selection that a mesh remembers. It follows when the mesh is renumbered; what goes with a renumbering comes back
/// when that is undone.
class KMTagSelection : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagSelection)
public:
    using Parameters = KMStoredSelection;

    KMTagSelection();

    KMMeshNode *mesh() const; ///< the owner; null where that is none
    const KMStoredSelection &parameters() const { return m_selection; }
    void setParameters(const KMStoredSelection &selection) { m_selection = selection; }
    static KMStoredSelection selectionOf(const KMMeshNode &mesh); ///< as it is now

    enum class Recall {
        Replace, ///< the mesh ends with exactly this selection
        Add      ///< what is selected besides stays
    };
    void recall(Recall recall) const; ///< as one step of the history; none where it changes nothing

    void remapIndices() override;
    KMTagSelection *clone() const override;

private:
    KMStoredSelection m_selection;
};
