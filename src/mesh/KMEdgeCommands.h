#pragma once

#include "mesh/KMEdgeState.h"
#include "mesh/KMMeshCommand.h"

#include <QCoreApplication>

/// Sets the crease weight of an edge; does nothing where there was no such edge.
class setEdgeWeightCommand : public KMMeshCommand
{
    Q_DECLARE_TR_FUNCTIONS(setEdgeWeightCommand)
public:
    setEdgeWeightCommand(KMMeshNode *mesh, int a, int b, float weight);

protected:
    void apply(Direction direction) override;

private:
    int m_a;
    int m_b;
    bool m_exists;
    float m_before;
    float m_after;
};

/// Holds the weights of all edges against changes outside the history: writes them in both directions.
/// Raises no dirty bits.
class memoryEdgeWeightCommand : public KMMeshBothWaysCommand
{
    Q_DECLARE_TR_FUNCTIONS(memoryEdgeWeightCommand)
public:
    explicit memoryEdgeWeightCommand(KMMeshNode *mesh);

protected:
    void restore() override;

private:
    QVector<KMEdgeState> m_weights;
};

/// Derives the edges from the faces, in both directions.
class buildEdgeCommand : public KMMeshBothWaysCommand
{
    Q_DECLARE_TR_FUNCTIONS(buildEdgeCommand)
public:
    explicit buildEdgeCommand(KMMeshNode *mesh);

protected:
    void restore() override;
};
