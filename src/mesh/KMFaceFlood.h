#pragma once

#include <QVector>

#include <functional>

class KMMeshStore;
struct KMEdge;

/// Reaches from face to face over shared edges.
namespace KMFaceFlood {

using StopsAt = std::function<bool(const KMEdge &)>;

/// The starts and all faces that hang together with them, in the order in which they are reached; across no edge at
/// which the flood stops, and not into hidden faces. Time grows with the faces that are reached.
QVector<int> chained(const KMMeshStore &mesh, const QVector<int> &starts, const StopsAt &stopsAt = {});

} // namespace KMFaceFlood
