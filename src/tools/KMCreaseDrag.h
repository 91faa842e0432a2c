#pragma once

#include "mesh/KMCreaseEdit.h"
#include "tools/KMDragSubject.h"

/// The crease weights of what is selected in the chosen meshes, as a drag or the slider of the panel changes them. The
/// edit filter says whether mirror images follow.
class KMCreaseDrag : public KMDragSubject
{
public:
    static QList<KMMeshNode *> targets(); ///< whose elements have weights of their own, and can be edited

    KMMeshTargets::Elements kinds() const { return m_kinds; }
    void setKinds(KMMeshTargets::Elements kinds) { m_kinds = kinds; } ///< vertices, edges or both
    KMCreaseRange weights() const;                                    ///< of what is selected, as they are now
    KMCreaseEdit &edit() { return m_edit; }                           ///< the running one
    bool isActive() const { return !m_edit.isEmpty(); }

    bool beginAt(const kvm::Vector3 &point, const KMCameraNode &camera); ///< false where nothing is selected
    std::optional<kvm::Vector3> centre() const override { return {}; }   ///< nothing that a handle could stand at
    kvm::Quaternion localAxes() const override { return {}; }
    bool begin(const Grab &grab) override;
    void commit() override;
    void cancel() override;

private:
    KMMeshTargets::Elements m_kinds = KMMeshTargets::Vertices | KMMeshTargets::Edges;
    KMCreaseEdit m_edit;
};
