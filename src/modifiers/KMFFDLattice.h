#pragma once

#include "modifiers/KMFFDBox.h"

#include <QPair>
#include <QVector>

#include <memory>

class KMMeshNode;
class KMModifierNode;
struct KMVertex;

/// A control point, and where it stands in the mesh of the lattice.
struct KMFFDPoint
{
    KMVertex *vertex = nullptr;
    int index = -1;
};

/// The control points of a box as the vertices of a mesh, with a line for each two neighbours.
///
/// Tools move the vertices. What the points are to the box is read from there when the box moves next, so that nothing
/// is lost by moves of the box alone, however many there are.
class KMFFDLattice
{
    Q_DISABLE_COPY(KMFFDLattice)
public:
    /// What is selected of the mesh.
    struct Selection
    {
        QVector<int> vertices;
        QVector<int> faces;
        QVector<QPair<int, int>> edges;
    };

    explicit KMFFDLattice(KMModifierNode *owner);
    ~KMFFDLattice();

    KMMeshNode *mesh() const { return m_mesh.get(); }
    const KMFFDBox &box() const { return m_box; }
    const QVector<KMFFDPoint> &lattice() const { return m_lattice; }

    /// Divides the box; the points are at rest.
    void build(const KMFFDBox &box, const KMTransform &transform);
    QVector<kvm::Vector3> positions() const;                         ///< in the world
    void setPositions(const QVector<kvm::Vector3> &positions);       ///< as many as there are points
    QVector<kvm::Vector3> positionsAt(const KMTransform &transform); ///< those to which the box would take them
    void carryTo(const KMTransform &transform);

    Selection selection() const;
    void select(const Selection &selection);

private:
    void buildMesh();
    void readMoves();
    kvm::Vector3 localOf(int index, const kvm::Vector3 &position) const;

    KMFFDBox m_box;
    KMTransform m_transform;       // of the box, as it is now
    QVector<kvm::Vector3> m_world; // to which it took the points
    QVector<kvm::Vector3> m_local; // in the space of the box
    KMTransform m_home;            // at which the points were last moved by others
    QVector<kvm::Vector3> m_homeWorld;
    QVector<KMFFDPoint> m_lattice;
    std::unique_ptr<KMMeshNode> m_mesh;
};
