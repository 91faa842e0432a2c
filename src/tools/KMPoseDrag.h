#pragma once

#include "rig/PoseTransform.h"
#include "tools/KMDragSubject.h"

#include <QPointer>

class KMBone;

/// Poses the current bone: it turns about its head, and moves where it may. The step at the end is a key at the current
/// frame.
class KMPoseDrag : public KMDragSubject
{
public:
    static KMBone *bone(); ///< the current one, while it is shown and not locked; else null

    std::optional<kvm::Vector3> centre() const override;
    kvm::Quaternion localAxes() const override;
    bool begin(const Grab &grab) override;
    KMDragTransform apply(const KMDragTransform &transform, const KMCameraNode &camera) override;
    void commit() override;
    void cancel() override;

private:
    void show(const PoseTransform &pose) const;

    QPointer<KMBone> m_bone;
    PoseTransform m_start;   // of the bone, local
    kvm::Quaternion m_world; // its rotation then
    kvm::Quaternion m_parent;
};
