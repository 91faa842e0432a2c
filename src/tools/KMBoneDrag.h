#pragma once

#include "rig/KMJointMove.h"
#include "tools/KMDragSubject.h"
#include "tools/KMSnapSearch.h"

#include <memory>

/// Moves the selected heads and tails of the current rig, or its selected bones as wholes with all below them. With
/// the edit filter's symmetry the partners do the same in the mirror. A move snaps to meshes.
class KMBoneDrag : public KMDragSubject
{
public:
    enum class Reach { Ends, Wholes };

    explicit KMBoneDrag(Reach reach)
        : m_reach(reach)
        , m_takesChildren(reach == Reach::Wholes)
    {
    }

    std::optional<kvm::Vector3> centre() const override; ///< the mean of the places that are selected
    kvm::Quaternion localAxes() const override;          ///< of the current bone, as it is shown
    bool begin(const Grab &grab) override;
    void setTakesChildren(bool takes) { m_takesChildren = takes; } ///< what hangs on a moved joint moves along
    /// A move goes by these bits of KMSnapOption; below 0 it goes by those of the session.
    void setSnapOptions(int options) { m_snapOptions = options; }
    KMDragTransform apply(const KMDragTransform &transform, const KMCameraNode &camera) override;
    void commit() override;
    void cancel() override;
    std::optional<kvm::Vector3> snapPoint() const override;

    /// The world length of the margin of symmetry at a point.
    static float mirrorTolerance(const KMCameraNode &camera, const kvm::Vector3 &point);

private:
    QVector<KMJointMove::Grabbed> grabbed() const;
    void end();

    Reach m_reach;
    bool m_takesChildren;
    int m_snapOptions = -1;
    KMJointMove m_move;
    KMHandleDrag m_drag;
    std::unique_ptr<KMSnapSearch> m_search; // null where nothing snaps
    std::optional<KMSnapSearch::Target> m_target;
};

/// What the mouse means: bones of the current rig while any are selected there, else what it means besides.
class KMElementDrag : public KMDragSubject
{
public:
    KMElementDrag(std::unique_ptr<KMDragSubject> others, KMBoneDrag::Reach reach);

    std::optional<kvm::Vector3> centre() const override { return subject().centre(); }
    kvm::Quaternion localAxes() const override { return subject().localAxes(); }
    bool begin(const Grab &grab) override;
    KMDragTransform apply(const KMDragTransform &transform, const KMCameraNode &camera) override
    {
        return m_dragged->apply(transform, camera);
    }
    void commit() override { m_dragged->commit(); }
    void cancel() override { m_dragged->cancel(); }
    std::optional<kvm::Vector3> snapPoint() const override { return m_dragged->snapPoint(); }

private:
    const KMDragSubject &subject() const;

    std::unique_ptr<KMDragSubject> m_others;
    std::unique_ptr<KMDragSubject> m_bones;
    KMDragSubject *m_dragged;
};
