#pragma once

#include <QVector>

struct KMFace;
class KMMeshStore;

/// What an edge carries beyond its faces, and loses at the refresh after the last of them went.
///
/// Steps of the history are also walked several at a time, with one refresh at the end. Edges that a refresh
/// would have dropped are still there then, and new ones are not there yet. So commands that bring faces in
/// write the full state of their edges, and make edges that are missing and carry something.
struct KMEdgeState
{
    int a;
    int b;
    quint8 flags; ///< without the highlight
    float weight;

    bool isPlain() const { return flags == 0 && weight == 0.0f; }
};
Q_DECLARE_TYPEINFO(KMEdgeState, Q_PRIMITIVE_TYPE);

KMEdgeState edgeStateOf(const KMMeshStore &mesh, int a, int b);                 ///< plain when there is no such edge
QVector<KMEdgeState> edgeStatesOf(const KMMeshStore &mesh, const KMFace &face); ///< after each of its corners

/// Writes the states. What is missing and not plain is made, without faces until the next rebuild.
void restoreEdgeState(KMMeshStore &mesh, const KMEdgeState &state);
void restoreEdgeStates(KMMeshStore &mesh, const QVector<KMEdgeState> &states);
