#include "mesh/KMEdgeSmooth.h"

#include "core/KMSolution.h"
#include "mesh/KMEdgeChains.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"

namespace {

using Places = QVector<kvm::Vector3>;

/// A cubic from end to end whose speed at the ends is the length of the chain. A straight chain stays as it is.
Places alongCurve(const Places &chain)
{
    QVector<float> lengths{0.0f};
    for (int i = 1; i < chain.size(); ++i)
        lengths << lengths.last() + (chain.at(i) - chain.at(i - 1)).length();
    const float length = lengths.last();
    if (length <= 0.0f)
        return chain;
    const kvm::Vector3 &start = chain.first();
    const kvm::Vector3 &end = chain.last();
    const kvm::Vector3 out = (chain.at(1) - start).normalized() * length;
    const kvm::Vector3 in = (end - chain.at(chain.size() - 2)).normalized() * length;
    Places places = chain;
    for (int i = 1; i + 1 < chain.size(); ++i) {
        const float t = lengths.at(i) / length;
        const float rest = 1.0f - t;
        places[i] = start * (rest * rest * (1.0f + 2.0f * t)) + out * (t * rest * rest)
                    + end * (t * t * (1.0f + 2.0f * rest)) - in * (t * t * rest);
    }
    return places;
}

/// Each point towards the middle of its neighbours, or away from it.
Places relaxed(const Places &round, float share)
{
    Places places = round;
    const int size = round.size();
    for (int i = 0; i < size; ++i) {
        const kvm::Vector3 middle = (round.at((i + 1) % size) + round.at((i + size - 1) % size)) * 0.5f;
        places[i] += (middle - round.at(i)) * share;
    }
    return places;
}

Places smoothed(const Places &places, bool isRound)
{
    // The second pass gives back what the first took off the size, and no more than that of the corners.
    constexpr float inward = 0.5f;
    constexpr float outward = -0.53f;
    return isRound ? relaxed(relaxed(places, inward), outward) : alongCurve(places);
}

} // namespace

bool KMMeshEdit::smoothEdges(KMMeshNode &mesh)
{
    QVector<KMMovedVertex> moves;
    const QVector<KMEdgeChain> chains = edgeChains(KMSelectedElements::edges(mesh));
    for (const KMEdgeChain &chain : chains) {
        Places before;
        for (const int vertex : chain.vertices)
            before << mesh.position(vertex);
        if (before.size() < 3)
            continue;
        const Places after = smoothed(before, chain.isRound);
        // Rounds that cross stay joined: none of them moves the vertex that they share.
        for (int i = chain.isCrossed ? 1 : 0; i < before.size(); ++i) {
            if (after.at(i) != before.at(i))
                moves.append({chain.vertices.at(i), before.at(i), after.at(i)});
        }
    }
    if (moves.isEmpty())
        return false;
    gSolution->push(new moveVertexArrayCommand(&mesh, moves));
    return true;
}
