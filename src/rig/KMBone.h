#pragma once

#include "math/Matrix4.h"
#include "rig/BoneLimit.h"
#include "rig/KMBoneShape.h"
#include "rig/KMCtrlNode.h"
#include "rig/KMRestBone.h"
#include "rig/PoseTransform.h"

#include <QVector>

#include <limits>

class KMTagRigidBody;
struct KMJointSide;

/// A bone: a name, a rest pose, how it is posed now, and tags with physics and constraints. Its transform is the rest
/// pose: the translation is the head, and the bone points along the negative Z axis of the rotation.
///
/// It belongs to a container, which owns it also while it is deleted. Parent, children, index and depth follow from the
/// rows of the container's tree.
class KMBone : public KMCtrlNode
{
    Q_OBJECT
public:
    enum SelectBit : quint8 { HeadSelected = 1, TailSelected = 2, BothSelected = 3 };

    KMBone();
    ~KMBone() override;

    // Selection

    int selectMask() const { return m_selectMask; } ///< of SelectBit
    void setSelectMask(int mask);                   ///< the node counts as selected with any bit
    /// Likewise, for who marks the rows of many bones at once with KMBoneTreeWidget::showMasks().
    void storeSelectMask(int mask);

    // Rest pose

    KMBoneRest rest() const;
    void setRest(const KMBoneRest &rest);
    void setTransform(const KMTransform &transform) override; ///< the shape follows, and the pose at the next refresh
    // These would leave shape and pose behind.
    void setScale(const kvm::Vector3 &) = delete;
    void setRotation(const kvm::Quaternion &) = delete;
    void setTranslation(const kvm::Vector3 &) = delete;
    float lengthScale() const { return m_lengthScale; } ///< a hundredth of the length
    void setLengthScale(float scale);
    const kvm::Vector3 &restHead() const { return m_restHead; }
    const kvm::Vector3 &restTail() const { return m_restTail; } ///< at the head for the view type Point

    // Attributes

    int viewType() const { return m_viewType; } ///< of KMBoneShape::ViewType
    void setViewType(int viewType);             ///< rebuilds the shape when it is another
    bool isPoint() const { return m_viewType == KMBoneShape::Point; }
    bool isFloating() const { return m_floating; } ///< its head isn't attached to the parent's tail; a chain stops here
    void setFloating(bool floating) { m_floating = floating; }
    bool isMovable() const { return m_movable; } ///< a pose may move it, not only turn it
    void setMovable(bool movable);
    const BoneLimit &limits() const { return m_limits; }
    void setLimits(const BoneLimit &limits) { m_limits = limits; }

    // Pose

    const PoseTransform &poseWorld() const { return m_poseWorld; } ///< local before an evaluation, of the world after
    void setPoseWorld(const PoseTransform &pose) { m_poseWorld = pose; }
    const PoseTransform &keyPose() const { return m_keyPose; } ///< local, as a key or a tool gave it
    void setKeyPose(const PoseTransform &pose) { m_keyPose = pose; }
    const PoseTransform &solvedPose() const { return m_solvedPose; } ///< of the world, by the last evaluation
    const PoseTransform &constraintPose() const { return m_constraintPose; }
    void setConstraintPose(const PoseTransform &pose) { m_constraintPose = pose; }
    const kvm::Matrix4 &worldMatrix() const { return m_worldMatrix; } ///< posed; the one of the null says the rest
    const kvm::Matrix4 &skinMatrix() const { return m_skinMatrix; }   ///< takes a rest position to its posed place
    void resetPose();
    /// The bone step of an evaluation, after that of the parent: turns the local pose into those of the world. The
    /// shape follows when something changed.
    void evaluatePose();

    // Shape

    KMMeshNode *shapeMesh() const { return m_shapeMesh; }
    KMMeshNode *ringMesh() const { return m_ringMesh; }
    KMMeshNode *crossMesh() const { return m_crossMesh; }
    kvm::Vector3 head() const;                        ///< as it is shown, so posed
    kvm::Vector3 tail() const;                        ///< likewise
    void updateShape();                               ///< by rest and solved pose; rest head and tail follow
    void refreshShape();                              ///< computes what the meshes of the shape wait for, where they do
    float pickRadius() const { return m_pickRadius; } ///< pixels

    // Place in the container, derived when it is next asked for

    int boneIndex() const;                     ///< place in the list of live bones; -1 outside of it
    int depth() const;                         ///< parents above it
    const QList<KMBone *> &childBones() const; ///< direct ones, in the order of the list
    bool isBelow(const KMBone *ancestor) const;
    KMBone *mirrorBone() const { return m_mirrorBone; } ///< the bone itself on the plane of symmetry; null without one
    void setMirrorBone(KMBone *bone) { m_mirrorBone = bone; }
    bool isOnMirrorSide() const { return m_mirrorSide; } ///< its head is behind the plane of symmetry
    void setOnMirrorSide(bool behind) { m_mirrorSide = behind; }

    // Reach of the weights, kept by those who know the weights

    float reach() const { return m_reach; } ///< to the farthest vertex that hangs on it
    void setReach(float reach) { m_reach = reach; }
    float nearest() const { return m_nearest; }
    void setNearest(float nearest) { m_nearest = nearest; }
    int farVertex() const { return m_farVertex; } ///< the vertex that gave reach(), -1 for none
    void setFarVertex(int vertex) { m_farVertex = vertex; }

    KMBone *clone(bool copyTags) const; ///< name, rest, look and limits; in no container
    KMContainerNode *clone() const override { return clone(true); }
    void pushAddCommand() override;                       ///< into container(), under parentBone(), both set before
    void pushDeleteCommand() override;                    ///< its children stay
    void pushRenameCommand(const QString &name) override; ///< tracks go by the name: those of the rig follow
    void tagsChanged() override { refreshGizmos(); }

    /// Takes a rigid body that goes away out of all joints of the container. Answers which sides had it.
    QVector<KMJointSide> clearJointRefs(KMTagRigidBody *body);
    QVector<KMJointSide> clearAllJointRefs(); ///< of all live bodies on this bone

private:
    friend class KMBoneContainer; // derives the place of its bones

    void settlePlace() const;
    bool isPosedByKeys() const; ///< has a track
    void refreshGizmos();

    int m_selectMask = 0;
    KMMeshNode *m_shapeMesh; // these three are owned through the lists of the base
    KMMeshNode *m_ringMesh;
    KMMeshNode *m_crossMesh;
    float m_lengthScale = 1.0f;
    KMBone *m_mirrorBone = nullptr; // not owned
    int m_viewType = KMBoneShape::Polygon;
    bool m_floating = false;
    bool m_movable = false;
    float m_pickRadius;
    bool m_mirrorSide = false;
    PoseTransform m_poseWorld;
    PoseTransform m_keyPose;
    PoseTransform m_solvedPose;
    PoseTransform m_shownPose; // the solved one of the last updateShape()
    PoseTransform m_constraintPose;
    kvm::Matrix4 m_worldMatrix;
    kvm::Matrix4 m_skinMatrix;
    int m_boneIndex = -1;
    float m_reach = 0.0f;
    float m_nearest = std::numeric_limits<float>::max();
    kvm::Vector3 m_restHead;
    kvm::Vector3 m_restTail;
    BoneLimit m_limits;
    int m_depth = 0;
    int m_farVertex = -1;
    QList<KMBone *> m_children; // not owned
};
