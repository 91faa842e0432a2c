#include "rig/KMDisplayAnchorNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>
#include <utility>

using kvm::Vector3;

namespace {

constexpr float halfLength = 50.0f; // of a bone of the length scale 1
constexpr float widthShare = 0.75f;
constexpr float lengthShare = 1.5f;
constexpr float leastScale = 0.01f; // of a bone without a length

const QVector<KMDisplayAnchorNode::Corners> boxFaces = {{0, 1, 3, 2}, {4, 6, 7, 5}, {0, 4, 5, 1},
                                                        {2, 3, 7, 6}, {0, 2, 6, 4}, {1, 5, 7, 3}};

Vector3 unitCubeCorner(int i)
{
    return {i & 1 ? 0.5f : -0.5f, i & 2 ? 0.5f : -0.5f, i & 4 ? 0.5f : -0.5f};
}

bool isFaceOf(const KMDisplayAnchorNode::Corners &corners, int pointCount)
{
    return corners.size() >= 2 && corners.size() <= KMFace::MaxCorners
           && std::all_of(corners.begin(), corners.end(), [pointCount](int i) { return i >= 0 && i < pointCount; });
}

} // namespace

KMDisplayAnchorNode::KMDisplayAnchorNode()
    : m_mesh(std::make_unique<KMMeshNode>())
{
    setType(KMNodeType::DisplayAnchor);
    setName(tr("AnchorDisp"));
    m_mesh->addTagKeepName(new KMTagBoneWeight);
}

KMDisplayAnchorNode::~KMDisplayAnchorNode() = default;

KMBone *KMDisplayAnchorNode::bone() const
{
    KMContainerNode *node = items().isEmpty() ? nullptr : items().first().node.data();
    return node && node->type() == KMNodeType::Bone ? static_cast<KMBone *>(node) : nullptr;
}

void KMDisplayAnchorNode::setBone(KMBone *bone)
{
    setItems({DisplayItem::of(bone)});
    auto *tag = static_cast<KMTagBoneWeight *>(m_mesh->findTag(KMNodeType::TagBoneWeight));
    tag->clearEntries();
    for (int i = 0; i < m_mesh->vertexCount(); ++i) {
        if (m_mesh->vertex(i))
            tag->addEntry({i, 1.0f, bone});
    }
}

int KMDisplayAnchorNode::setShape(const QVector<Vector3> &points, const QVector<Corners> &faces)
{
    m_mesh->clearGeometry();
    for (const Vector3 &point : points)
        m_mesh->addVertexRaw(point);
    int leftOut = 0;
    for (const Corners &corners : faces) {
        if (isFaceOf(corners, points.size()))
            m_mesh->addFaceRaw(corners.size(), corners.constData());
        else
            ++leftOut;
    }
    m_mesh->buildEdges();
    m_mesh->markDirty(KMMeshDirty::All);
    if (KMBone *bound = bone())
        setBone(bound);
    return leftOut;
}

void KMDisplayAnchorNode::makeBox(const KMBone &bone)
{
    const KMBoneRest rest = bone.rest();
    const float half = halfLength * (rest.lengthScale > 0.0f ? rest.lengthScale : leastScale);
    QVector<Vector3> points;
    for (int i = 0; i < 8; ++i) {
        Vector3 corner = unitCubeCorner(i);
        corner.x *= half * widthShare;
        corner.y *= half * widthShare;
        corner.z = corner.z * half * lengthShare - half;
        points << rest.head + rest.rotation.rotate(corner);
    }
    m_mesh->setName(bone.name());
    setShape(points, boxFaces);
}

bool KMDisplayAnchorNode::isLive() const
{
    return bone() && !bone()->isDeleted() && !isDeleted() && !m_mesh->isDeleted();
}

KMDisplayAnchorNode *KMDisplayAnchorNode::clone() const
{
    auto *copy = new KMDisplayAnchorNode;
    copy->setName(name());
    copy->setItems(items());
    copy->m_mesh.reset(m_mesh->clone());
    return copy;
}
