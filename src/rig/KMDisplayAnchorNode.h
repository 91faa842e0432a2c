#pragma once

#include "math/Vector3.h"
#include "rig/KMDisplayNode.h"

#include <memory>

class KMBone;
class KMMeshNode;

/// A display group of the anchor modifier's own: its list isn't the project's. It holds one bone, and beside it the
/// helper, a coarse mesh about the bone whose surface says how far the bone reaches.
class KMDisplayAnchorNode : public KMDisplayNode
{
    Q_OBJECT
public:
    using Corners = QVector<int>;

    KMDisplayAnchorNode();
    ~KMDisplayAnchorNode() override;

    KMBone *bone() const;       ///< null when it is gone for good
    void setBone(KMBone *bone); ///< binds all vertices of the helper to it, and to no other

    KMMeshNode *mesh() const { return m_mesh.get(); }
    /// In place of what the helper holds. Faces whose corners it doesn't have are left out; answers how many.
    int setShape(const QVector<kvm::Vector3> &points, const QVector<Corners> &faces);
    void makeBox(const KMBone &bone); ///< about the bone at rest, along it

    bool isLive() const; ///< its bone and its mesh are
    KMDisplayAnchorNode *clone() const override;

private:
    std::unique_ptr<KMMeshNode> m_mesh;
};
