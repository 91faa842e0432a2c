#pragma once

#include "mesh/KMSymmetryPlane.h"
#include "rig/BoneAnimation.h"
#include "rig/KMBoneTreeWidget.h"
#include "rig/KMCtrlNode.h"

#include <memory>

/// A rig: owns its bones and their motion, and keeps the bones in a flat list in the order of evaluation, parents
/// before children. Order and parenthood are those of the rows of its tree. The list, children, indices and depths are
/// derived from these when they are next asked for after rebuildOrder(), so that many steps in a row cost one walk.
class KMBoneContainer : public KMCtrlNode
{
    Q_OBJECT
public:
    KMBoneContainer();
    ~KMBoneContainer() override;

    /// The rig that commands work on: the current node when it is one, else that of the current bone. Null when there
    /// is none, or it is locked.
    static KMBoneContainer *activeBoneContainer();
    static QList<KMBoneContainer *> inTree(); ///< the rigs of the scene, in the order of the tree

    const QList<KMBone *> &allBones() const { return m_allBones; } ///< with those that are deleted
    const QList<KMBone *> &bones() const;                          ///< live ones, in the order of evaluation
    KMBone *bone(const QString &name) const;                       ///< the first live one of the name, else null
    QList<KMBone *> selectedBones() const;                         ///< in the order of the list
    QList<KMBone *> topSelectedBones() const;                      ///< those without a selected one above them
    QList<KMBone *> subtree(const QTreeWidgetItem *row) const;     ///< of a row and all below it; empty for null
    QString uniqueName(const KMBone *bone) const; ///< its name without digits, and the first free number behind it
    KMBoneTreeWidget *tree() const { return m_tree.get(); }
    BoneAnimation *animation() const { return m_animation.get(); }

    // Rows. The list follows when the order is rebuilt

    /// Puts a bone under a parent, null for the top, before the row that is at the position now; -1 puts it last.
    /// Takes the bone over, and the row where the bone had one before.
    void attachBone(KMBone *bone, KMBone *parent, int position = -1, QTreeWidgetItem *row = nullptr);
    /// Takes the row of a bone out, with all below it. The bone stays one of allBones(); the caller owns the row.
    QTreeWidgetItem *detachBone(KMBone *bone);
    void adoptBone(KMBone *bone);   ///< owns it from now on; its row came with that of a bone above it
    void releaseBone(KMBone *bone); ///< another container takes it over
    /// The rows have changed: list and places are derived anew, and the bones of the tracks found again.
    BoneAnimation::Relinked rebuildOrder();
    void restoreOrder(BoneAnimation::Relinked &&relinked); ///< the reverse, with the rows as they were before
    /// Finds the bones of the tracks again; those that get or lose one are posed anew.
    BoneAnimation::Relinked relinkTracks();
    void restoreTracks(BoneAnimation::Relinked &&relinked);

    // Symmetry

    KMSymmetryPlane mirrorPlane() const; ///< through the translation, across the X axis of the rotation
    /// Finds for each bone the partner across the plane. A tolerance below 0 takes that of the settings.
    void pairMirrorBones(float tolerance = -1.0f);

    // Derived data, computed at the next refresh

    void requestPose() { m_poseStale = true; }   ///< rest poses or the order have changed
    void requestFrame() { m_frameStale = true; } ///< keys have changed
    void refreshAfterEdit() override;

    KMBoneContainer *clone() const override; ///< with copies of the bones and the keys
    void pushContentsDeleted() override;     ///< its bones: what hangs on them has to follow

private:
    void onFrameChanged(int frame);
    void markOrderStale();
    void deriveOrder() const;

    QList<KMBone *> m_allBones;      // owned
    mutable QList<KMBone *> m_bones; // not owned; derived from the rows
    mutable bool m_orderStale = false;
    std::unique_ptr<KMBoneTreeWidget> m_tree;
    std::unique_ptr<BoneAnimation> m_animation;
    quint64 m_linkedTracks = 0; // the revision of the motion that was linked to the rows as they are
    bool m_poseStale = false;
    bool m_frameStale = false;
};
