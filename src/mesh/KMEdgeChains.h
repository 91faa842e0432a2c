#pragma once

#include "mesh/KMSelectedElements.h"

/// Vertices along edges that go on from one another.
struct KMEdgeChain
{
    QVector<int> vertices; ///< of a round each once, else from end to end
    bool isRound;          ///< it has no ends; what starts and ends at a branching is none
};

/// Sorts edges into chains, which end where no further edge or more than one goes on. Each edge stands in one chain.
QVector<KMEdgeChain> edgeChains(const QVector<KMEdgeEnds> &edges);
