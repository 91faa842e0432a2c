#pragma once

#include "core/KMTagBase.h"
#include "core/KMVertexFollower.h"
#include "rig/KMMorph.h"

#include <QCoreApplication>
#include <QHash>
#include <QPair>
#include <QPointer>

class KMMeshNode;

/// The morphs of a mesh. The tag sums those with a value and lays the sum over the positions of the vertices, so that
/// everything behind them, the chain of modifiers included, sees the morphed shape. A step of the history holds
/// positions as they are shown.
///
/// Adding floats loses digits, so the tag remembers where each vertex stood before. A vertex that nobody moved gets
/// exactly that place back, however often the values change; a place that was given up by a move comes back with the
/// undo of the move.
class KMTagMorph : public KMTagBase, public KMVertexFollower
{
    Q_DECLARE_TR_FUNCTIONS(KMTagMorph)
public:
    KMTagMorph();
    ~KMTagMorph() override;

    KMMeshNode *mesh() const; ///< the owner, null when that is no mesh

    const QList<KMMorph *> &morphs() const { return m_morphs; } ///< those that only the history keeps included; owned
    QList<KMMorph *> liveMorphs() const;                        ///< in the order of their rows
    KMMorph *findMorph(const QString &name) const;              ///< the first live one, else null
    void addMorph(KMMorph *morph);                              ///< behind the others; the tag owns it now
    void dropMorph(KMMorph *morph);                             ///< out of the list; for one that is being deleted
    /// Of the live ones; those that the list doesn't name keep their places. Morphs of other tags are left out.
    void setOrder(const QList<KMMorph *> &order);

    /// Brings the positions up to values and displacements as they are now, where the tag hangs on a mesh.
    void layAnew();
    const QVector<float> &offsets() const { return m_offsets; } ///< three for each vertex slot
    /// Where a vertex that is shown at a place would be shown without the offset of the tag.
    kvm::Vector3 placeWithout(int vertex, const kvm::Vector3 &shown) const;
    int vertexCount() const { return m_vertexCount; } ///< slots at the last apply(); -1 before

    /// The vertices that faces use, ascending: by their rank in this list those of different meshes are paired.
    static QVector<int> rankedVertices(const KMMeshNode &mesh);
    /// Gives a morph what leads from one mesh to another, as both are without their own morphs. Vertices are
    /// paired by their rank. onlySelected: only where the target's vertex is selected.
    static void buildDeltas(KMMorph *morph, const KMMeshNode &baseMesh, const KMMeshNode &targetMesh, bool onlySelected,
                            float ratio);

    void setOwner(KMNode *owner) override;
    void unapply() override;
    void apply() override;
    void removeOffsets() override; ///< until the next apply()
    void resetValues() override;   ///< as a step of the history; none when all are at 0
    void remapIndices() override;
    void pushVerticesMade(const QVector<KMVertexOrigin> &origins) override; ///< they stay where they are shown
    QList<KMNode *> blockNodes() const override;
    KMTagMorph *clone() const override;

private:
    /// Where a vertex stood before the offset was laid on, for a place that doesn't tell by itself.
    struct Origin
    {
        kvm::Vector3 shown;
        kvm::Vector3 offset;
        kvm::Vector3 base;
    };
    struct Place
    {
        int slot;
        kvm::Vector3 offset;
        kvm::Vector3 base;
    };
    /// What a renumbering dropped, under the indices before it.
    struct Lost
    {
        QVector<QPair<QPointer<KMMorph>, MorphDeltas>> deltas; // of morphs that lost some: all as they were
        QVector<Place> places;
        QHash<int, QVector<Origin>> origins;
    };

    bool isInUse() const;
    void fit(int vertexCount);
    void sumUp();
    void collectTouched();
    kvm::Vector3 offsetAt(int i) const { return vectorAt(m_offsets, i); }
    static kvm::Vector3 vectorAt(const QVector<float> &values, int i);
    static void setVectorAt(QVector<float> &values, int i, const kvm::Vector3 &vector);
    kvm::Vector3 baseOf(int i, const kvm::Vector3 &shown);
    kvm::Vector3 baseOfMoved(int i, const kvm::Vector3 &shown);
    void remapDeltas(Lost *lost);
    void remapSlots(Lost *lost);
    void setPlace(int i, const Place &place);
    void restore(const Lost &lost);

    QList<KMMorph *> m_morphs; // owned
    int m_vertexCount = -1;
    QVector<float> m_offsets;
    QVector<float> m_base;                 // positions without offsets, of the touched slots
    QVector<int> m_touched;                // slots with an offset, ascending
    QHash<int, QVector<Origin>> m_origins; // by slot, the last one at the end
    bool m_isOn = false;                   // the positions hold the offsets
    bool m_isHeldOff = false;              // a refresh shall not lay them on
};
