#pragma once

#include <QVector>

#include <functional>

class KMMeshNode;
class KMMeshStore;
struct KMEdge;

/// Walks from edge to edge over a mesh: along a loop, which goes straight on at each vertex, and across a ring, which
/// goes through each quad to the opposite edge. Neither goes where all is hidden.
///
/// A walk ends before an edge that has the flag already. So what takes the edges must set it, a selecting command or
/// the highlight, and the start has it before the walk begins, or a closed walk would not end there.
namespace KMEdgeWalk {

using TakeEdge = std::function<void(KMEdge *)>; ///< the walk ends where the edge is left without the flag
using TakeFace = std::function<void(int)>;

enum class Direction { First, Second }; ///< leaves the start by its vertex index0 or index1

/// Stops at a face of three corners, at borders, and at vertices of more than four faces or whose other faces leave
/// no way straight on.
void loop(const KMMeshStore &mesh, KMEdge *start, Direction direction, quint8 flag, const TakeEdge &take);

/// To all sides of the start. Faces are told as they are passed, before the edge behind them; one may come twice. Stops
/// at faces of fewer than four corners.
void ring(const KMMeshStore &mesh, KMEdge *start, quint8 flag, const TakeEdge &take, const TakeFace &pass = {});

// For a preview: mark start and walk with the flag, without a step of the history, and list them

QVector<KMEdge *> markLoop(KMMeshNode &mesh, KMEdge *start, quint8 flag);
QVector<KMEdge *> markRing(KMMeshNode &mesh, KMEdge *start, quint8 flag, QVector<int> *faces = nullptr);

} // namespace KMEdgeWalk
