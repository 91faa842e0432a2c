#pragma once

#include "math/Vector3.h"
#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshCommand.h"
#include "mesh/KMVertex.h"

#include <QCoreApplication>

/// Adds a vertex at the end of the store. The slot is taken at construction, so index() is known at once.
class addVertexCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(addVertexCommand)
public:
    addVertexCommand(KMMeshNode *mesh, const kvm::Vector3 &position);
    addVertexCommand(KMMeshNode *mesh, const KMVertex &record); ///< face list not taken over
    int index() const { return m_index; }

protected:
    void apply(Direction direction) override;

private:
    KMVertex m_record;
    int m_index;
};

/// Leaves a null slot. Does nothing where the slot was null already.
class deleteVertexCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(deleteVertexCommand)
public:
    deleteVertexCommand(KMMeshNode *mesh, int index);

protected:
    void apply(Direction direction) override;

private:
    int m_index;
    bool m_kept; // there was nothing to delete
    KMVertex m_record;
    QVector<KMEdgeState> m_edges; // those at the vertex
};

/// Replaces the whole record, face list included.
class editVertexTopologyCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editVertexTopologyCommand)
public:
    editVertexTopologyCommand(KMMeshNode *mesh, int index, const KMVertex &record);

protected:
    void apply(Direction direction) override;

private:
    int m_index;
    KMVertex m_before;
    KMVertex m_after;
};

/// Sets one position.
class moveVertexCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveVertexCommand)
public:
    moveVertexCommand(KMMeshNode *mesh, int index, const kvm::Vector3 &position);
    /// For a vertex that was already moved on the screen.
    moveVertexCommand(KMMeshNode *mesh, int index, const kvm::Vector3 &before, const kvm::Vector3 &after);

protected:
    void apply(Direction direction) override;

private:
    int m_index;
    kvm::Vector3 m_before;
    kvm::Vector3 m_after;
};

struct KMMovedVertex
{
    int index;
    kvm::Vector3 before;
    kvm::Vector3 after;
};
Q_DECLARE_TYPEINFO(KMMovedVertex, Q_MOVABLE_TYPE);

/// Sets many positions.
class moveVertexArrayCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(moveVertexArrayCommand)
public:
    /// Takes the moves out of the caller's list, which is empty afterwards. Each vertex stands there once.
    moveVertexArrayCommand(KMMeshNode *mesh, QVector<KMMovedVertex> &moves);

protected:
    void apply(Direction direction) override;

private:
    QVector<KMMovedVertex> m_moves;
};

/// Sets the positions of all vertices; a place for each slot, those of null slots are not used.
class editAllVertexCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(editAllVertexCommand)
public:
    editAllVertexCommand(KMMeshNode *mesh, const QVector<kvm::Vector3> &positions);

protected:
    void apply(Direction direction) override;

private:
    QVector<kvm::Vector3> m_before;
    QVector<kvm::Vector3> m_after;
};

/// Holds the positions of all vertices against changes outside the history: writes them in both directions.
/// Raises no dirty bits.
class memoryVertexCommand : public KMMeshBothWaysCommand
{
    Q_DECLARE_TR_FUNCTIONS(memoryVertexCommand)
public:
    explicit memoryVertexCommand(KMMeshNode *mesh);                         ///< the present positions
    memoryVertexCommand(KMMeshNode *mesh, const QVector<float> &positions); ///< three for each vertex slot

protected:
    void restore() override;

private:
    QVector<float> m_positions;
};

/// Sets the crease weight of a vertex.
class setVertexWeightCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(setVertexWeightCommand)
public:
    setVertexWeightCommand(KMMeshNode *mesh, int index, float weight);

protected:
    void apply(Direction direction) override;

private:
    int m_index;
    float m_before;
    float m_after;
};
