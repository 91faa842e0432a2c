#pragma once

#include "render/KMPickRay.h"
#include "render/KMPickRequest.h"

#include <QVector>

#include <vector>

struct KMFace;
struct KMVertex;

/// One search of KMPicker. Two passes over a mesh, the first over its vertices, leave the few elements about the
/// cursor that are then looked at closely.
class KMPickSearch
{
public:
    KMPickSearch(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request);

    void run();

private:
    /// What a mesh has about the cursor.
    struct Nearby
    {
        KMMeshNode *mesh;
        bool isPickable;  // and not only in the way
        bool hasElements; // its vertices and edges may be picked
        bool hasSurface;  // its faces are drawn
        bool isShape;     // they aren't, but may be picked
        bool isCulled;    // the view leaves out what is turned away
        QVector<KMVertex *> vertices;
        QVector<KMFace *> faces;
    };
    /// A face under the cursor.
    struct Surface
    {
        KMMeshNode *mesh = nullptr;
        const KMFace *face = nullptr;
        double depth = 0.0;
    };
    /// Where an edge stands in the window; the part in front of the eye.
    struct Segment
    {
        double x[2], y[2];
        double depth[2];
    };

    bool needsOccluder() const;
    void collectMeshes();
    void collectVertices(Nearby &nearby);
    void collectFaces(Nearby &nearby);
    bool isTurnedAway(const KMMeshNode &mesh, const KMFace &face) const;
    bool isShown(const Nearby &nearby, const KMVertex &vertex) const;
    Surface surfaceUnderCursor(bool pickableOnly) const;
    Surface nearestFace(bool (*counts)(const Nearby &)) const;
    bool depthAtCursor(const KMMeshNode &mesh, const KMFace &face, double &depth) const;
    double occluderDepth(const Surface &surface) const;
    bool isHidden(double depth) const;
    void findVertex();
    void findEdge();
    void tryEdges(KMMeshNode *mesh, const KMFace &face, bool isOccluder);
    bool segmentOf(const KMMeshNode &mesh, int a, int b, Segment &segment) const;
    void findFace();

    const KMCameraNode &m_camera;
    KMPickRequest &m_request;
    KMPickRay m_ray;
    double m_x, m_y;
    float m_margin2; // squared
    std::vector<Nearby> m_nearby;
    QVector<quint8> m_sides; // of each vertex, where it stands about the cursor
    Surface m_occluder;
    double m_edgeDepth = 0.0; // of the edge that was found
};
