#pragma once

#include "math/Vector3.h"

#include <QPointF>
#include <QVector>

#include <optional>
#include <vector>

class KMCameraNode;
class KMMeshNode;
struct KMFace;

/// Finds what a dragged point snaps to, by the snap options: the nearest vertex about a place of the window, else the
/// nearest edge, else the face there. What moves itself is left out, and so is what a surface hides.
class KMSnapSearch
{
public:
    struct Target
    {
        KMMeshNode *mesh = nullptr;
        int vertex = -1; ///< -1 on an edge or a face
        kvm::Vector3 point;
    };
    /// A mesh with a mark for each vertex that the drag moves.
    struct Moving
    {
        const KMMeshNode *mesh;
        std::vector<bool> vertices;
    };

    static bool isOn();                                       ///< the options ask for any snapping
    explicit KMSnapSearch(const QVector<Moving> &moving);     ///< by the options of the session
    KMSnapSearch(const QVector<Moving> &moving, int options); ///< bits of KMSnapOption; a Stop among them is ignored

    /// The window coordinates of the meshes have to be those of the camera.
    std::optional<Target> find(const KMCameraNode &camera, const QPointF &position) const;

private:
    struct Candidate;
    struct Source
    {
        KMMeshNode *mesh;
        std::vector<bool> moving; // empty: nothing in it moves
        bool moves(int vertex) const { return size_t(vertex) < moving.size() && moving[size_t(vertex)]; }
    };

    struct Surface
    {
        const KMMeshNode *mesh;
        const KMFace *face;
    };

    void collectVertices(const Source &source, const QPointF &position, std::vector<Candidate> &found) const;
    void collectEdges(const Source &source, const KMCameraNode &camera, const QPointF &position,
                      std::vector<Candidate> &found) const;
    std::optional<Target> nearest(std::vector<Candidate> &candidates, const KMCameraNode &camera,
                                  const QPointF &position) const;
    std::vector<Surface> surfacesAbout(const QPointF &position) const;
    bool isHidden(const Candidate &candidate, const KMCameraNode &camera, const std::vector<Surface> &surfaces) const;
    std::optional<Target> surfaceAt(const KMCameraNode &camera, const QPointF &position) const;

    std::vector<Source> m_sources;
    std::vector<Source> m_screens; // whose surfaces hide
    int m_options;
};
