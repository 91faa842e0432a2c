#pragma once

#include <QVector>

struct KMFace;
class KMMeshStore;

/// What an edge carries beyond its faces, and loses when the last of them goes.
struct KMEdgeState
{
    int a;
    int b;
    quint8 flags;
    float weight;
};
Q_DECLARE_TYPEINFO(KMEdgeState, Q_PRIMITIVE_TYPE);

/// The edges of a face that have a lasting flag or a weight, as they are now.
QVector<KMEdgeState> edgeStatesOf(const KMMeshStore &mesh, const KMFace &face);

/// Writes flags and weights back; edges that are missing are made, without faces until the next rebuild.
void restoreEdgeStates(KMMeshStore &mesh, const QVector<KMEdgeState> &states);
