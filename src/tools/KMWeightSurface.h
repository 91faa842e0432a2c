#pragma once

#include "math/Matrix4.h"
#include "math/Vector3.h"

#include <QPointF>
#include <QPointer>
#include <QSize>
#include <QVector>

#include <memory>
#include <vector>

class KMCameraNode;
class KMMeshNode;
class KMViewSurface;

/// Where the vertices of a mesh stand in the window of a view, sorted into cells, so that a brush looks at those about
/// it alone. Each stands where the end of the mesh's chain of modifiers shows it. It holds for camera and meshes as
/// they were when it was made.
class KMWeightSurface
{
public:
    struct Near
    {
        int vertex;
        float distance; ///< pixels
        float depth;    ///< before the eye
    };

    KMWeightSurface(KMMeshNode &mesh, const KMCameraNode &camera);
    ~KMWeightSurface();

    /// It was made for this mesh, and the camera looks as it did then. What happened to the meshes it can't know.
    bool isOf(const KMMeshNode &mesh, const KMCameraNode &camera) const;

    /// The vertices that a disc touches on its way; with frontOnly those alone that no surface hides. Valid until the
    /// next call.
    const QVector<Near> &touched(const QPointF &from, const QPointF &to, float radius, bool frontOnly);
    /// Of those that nothing hides; -1 for none. Before the surface is known, which takes its time, of those that lie
    /// about as near to the viewer as the nearest of all.
    int nearest(const QPointF &position, float radius);

private:
    struct Place
    {
        int vertex;
        QPointF window;
        kvm::Vector3 point;
        qint8 hidden; // Unknown until it is asked for
    };
    static constexpr qint8 Unknown = -1;

    void addVertices();
    void sortIntoCells(std::vector<Place> &&places);
    int cellOf(const QPointF &window) const;
    float depthOf(const kvm::Vector3 &point) const;
    bool isHidden(Place &place);

    QPointer<KMMeshNode> m_mesh;
    const KMCameraNode &m_camera;
    kvm::Matrix4 m_view;
    QSize m_size;
    int m_columns = 1;
    int m_rows = 1;
    std::vector<Place> m_places;               // cell by cell
    std::vector<int> m_firsts;                 // of the cells in m_places, and the end
    std::unique_ptr<KMViewSurface> m_occluder; // null until it is needed
    QVector<Near> m_near;
};
