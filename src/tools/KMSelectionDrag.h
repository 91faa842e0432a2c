#pragma once

#include "tools/KMDragSubject.h"
#include "tools/KMSnapSearch.h"
#include "tools/KMSymmetryPairs.h"

#include <QPointer>

#include <memory>
#include <vector>

/// Moves the selected elements of the chosen meshes, with their mirror images where the edit filter asks for
/// symmetry. A move snaps.
class KMSelectionDrag : public KMDragSubject
{
public:
    static QList<KMMeshNode *> targets(); ///< the chosen meshes that can be edited

    std::optional<kvm::Vector3> centre() const override; ///< the mean of all vertices that the selection touches
    kvm::Quaternion localAxes() const override;
    bool begin(const Grab &grab) override;
    KMDragTransform apply(const KMDragTransform &transform, const KMCameraNode &camera) override;
    void commit() override;
    void cancel() override;
    std::optional<kvm::Vector3> snapPoint() const override;

private:
    struct Vertex
    {
        int index;
        kvm::Vector3 start;
        bool isOnPlane;
    };
    struct Follower
    {
        int index;
        kvm::Vector3 start;
        int leader;
    };
    struct Moved
    {
        QPointer<KMMeshNode> mesh;
        std::unique_ptr<KMSymmetryPairs> symmetry; // null without
        QVector<Vertex> vertices;
        QVector<Follower> followers;
    };

    void addMesh(KMMeshNode *mesh, const Grab &grab);
    void beginSnap(const Grab &grab);
    void findSnapVertex(const Grab &grab);
    KMDragTransform snapped(const KMDragTransform &transform, const KMCameraNode &camera);
    void commitSnap(const QList<KMMeshNode *> &meshes);
    QPair<int, int> mirroredSnap() const;
    QList<KMMeshNode *> meshes() const;

    std::vector<Moved> m_moved;
    KMHandleDrag m_drag;
    std::unique_ptr<KMSnapSearch> m_search; // null where nothing snaps
    QPointer<KMMeshNode> m_snapMesh;        // the vertex that snaps; null where it is a mere point
    int m_snapVertex = -1;
    kvm::Vector3 m_snapStart;
    std::optional<KMSnapSearch::Target> m_target;
};
