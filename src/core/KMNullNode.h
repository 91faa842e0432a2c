#pragma once

#include "core/KMContainerNode.h"
#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "math/Vector3.h"

/// A scale, a rotation and a translation, applied in this order.
struct KMTransform
{
    kvm::Vector3 scale{1.0f, 1.0f, 1.0f};
    kvm::Quaternion rotation;
    kvm::Vector3 translation;
};

/// A node with a transform, local to its parent. On its own it groups other nodes.
class KMNullNode : public KMContainerNode
{
    Q_OBJECT
public:
    KMNullNode();

    const kvm::Vector3 &scale() const { return m_transform.scale; }
    const kvm::Quaternion &rotation() const { return m_transform.rotation; }
    const kvm::Vector3 &translation() const { return m_transform.translation; }
    const KMTransform &transform() const { return m_transform; }
    void setScale(const kvm::Vector3 &scale) { m_transform.scale = scale; }
    void setRotation(const kvm::Quaternion &rotation) { m_transform.rotation = rotation; }
    void setTranslation(const kvm::Vector3 &translation) { m_transform.translation = translation; }

    kvm::Matrix4 worldMatrix() const;  ///< of its transform and those of its parents, as far as they count for it
    kvm::Matrix4 parentMatrix() const; ///< of its parents alone; the identity for what stands in the world

    /// Sets all three at once and lets the class follow: bones and meshes raise their dirty bits here.
    virtual void setTransform(const KMTransform &transform);

    KMContainerNode *clone() const override;

protected:
    void copyNullTo(KMNullNode *destination) const; ///< name, visible, locked, transform and tags

private:
    KMTransform m_transform;
};
