#pragma once

#include "core/KMNullNode.h"
#include "rig/KMRigCarry.h"
#include "tools/KMDragSubject.h"

#include <QPointer>

/// Moves the selected nodes that have a transform, with all that stands below them.
class KMNodeDrag : public KMDragSubject
{
public:
    static QList<KMNullNode *> targets(); ///< selected, shown, not locked, and below no other one of them

    std::optional<kvm::Vector3> centre() const override; ///< the mean of their places
    kvm::Quaternion localAxes() const override;          ///< of the current one of them
    bool begin(const Grab &grab) override;
    KMDragTransform apply(const KMDragTransform &transform, const KMCameraNode &camera) override;
    void commit() override;
    void cancel() override;

private:
    struct Shape
    {
        QPointer<KMMeshNode> mesh;
        QVector<kvm::Vector3> starts; // a place for each slot
    };
    struct Frame
    {
        QPointer<KMNullNode> node;
        KMTransform start;
        QVector<Shape> shapes;
        QVector<QPair<QPointer<KMNullNode>, KMTransform>> primitives;
        QVector<KMRigCarry> rigs;
    };

    static KMTransform moved(const Frame &frame, const KMDragTransform &transform);
    static void show(const Frame &frame, const KMTransform &transform);
    void restore();

    QVector<Frame> m_frames;
    KMDragTransform m_shown;     // the last one that was done
    QVector<KMTransform> m_ends; // one for each frame
};
