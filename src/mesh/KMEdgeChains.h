#pragma once

#include "mesh/KMSelectedElements.h"

/// Vertices along edges that go on from one another.
struct KMEdgeChain
{
    QVector<int> vertices; ///< of a round each once, else from end to end
    bool isRound;          ///< it has no ends
    bool isCrossed;        ///< a round that meets other chains at its first vertex
};

/// Sorts edges into chains, which end where no further edge or more than one goes on. Each edge stands in one chain.
/// Where an even number of edges meets, what leads back there is a round; with one edge too many it is none.
QVector<KMEdgeChain> edgeChains(const QVector<KMEdgeEnds> &edges);
