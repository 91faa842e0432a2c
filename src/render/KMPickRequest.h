#pragma once

#include "math/Vector3.h"

#include <limits>

class KMMeshNode;
struct KMEdge;

/// What to look for under the cursor, and what KMPicker found there.
struct KMPickRequest
{
    bool wantVertex = false; ///< vertices go before edges, and edges before faces
    bool wantEdge = false;
    bool wantFace = false;
    bool testActiveOnly = false;      ///< only the active mesh is picked; the others still hide what lies behind them
    KMMeshNode *only = nullptr;       ///< only this one is picked, and what its modifiers made hides nothing of it
    bool skipActiveMesh = false;      ///< as if it weren't there
    bool refreshWindowCoords = false; ///< those that the meshes keep may be of another camera, or from before an
                                      ///< edit; in the program only those of hidden meshes are
    bool includeChildren = false;     ///< vertices and edges also of what modifiers and primitives made
    bool includeShapes = false;       ///< faces also of the shapes that the current modifier offers to be edited
    bool includeHidden = false;       ///< also hidden meshes and faces
    bool visibleOnly = false;         ///< only elements that the view drew
    float margin = 10.0f;             ///< pixels; how far from the cursor a vertex or an edge may be

    // Found. Without a hit they are as they stand here

    KMMeshNode *mesh = nullptr;
    int vertex = -1;
    KMEdge *edge = nullptr;
    int face = -1;
    kvm::Vector3 point; ///< the vertex, the middle of the edge, or the point of the face under the cursor
    float distance2 = std::numeric_limits<float>::max(); ///< of the vertex or edge from the cursor, pixels squared

    void clearResult();
    bool isHit() const { return mesh; }
};

inline void KMPickRequest::clearResult()
{
    const KMPickRequest none;
    mesh = none.mesh;
    vertex = none.vertex;
    edge = none.edge;
    face = none.face;
    point = none.point;
    distance2 = none.distance2;
}
