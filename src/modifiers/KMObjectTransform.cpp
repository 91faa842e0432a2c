#include "modifiers/KMObjectTransform.h"

#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMTransformFollower.h"
#include "core/KMTreeWidget.h"
#include "math/Matrix4.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMVertexCommands.h"

#include <algorithm>
#include <cmath>

namespace {

/// The node and all below it, of one class of nodes.
template <class Node, class IsOf>
QList<Node *> below(const KMNullNode *node, const IsOf &isOf)
{
    QList<Node *> found;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(node->item())) {
        KMContainerNode *member = KMTreeWidget::nodeOf(row);
        if (isOf(member->type()))
            found << static_cast<Node *>(member);
    }
    return found;
}

float ratio(float before, float after)
{
    return before == 0.0f || after == 0.0f ? 1.0f : after / before;
}

QVector<kvm::Vector3> positionsOf(const KMMeshNode &mesh)
{
    QVector<kvm::Vector3> positions(mesh.vertexCount());
    for (int i = 0; i < positions.size(); ++i) {
        if (mesh.vertex(i))
            positions[i] = mesh.position(i);
    }
    return positions;
}

/// The offsets of tags stay as they are: these tags follow by themselves.
void pushVertices(KMMeshNode *mesh, const kvm::Matrix4 &step)
{
    const QVector<kvm::Vector3> shown = positionsOf(*mesh);
    QVector<kvm::Vector3> positions;
    {
        const KMBasePositions base(mesh);
        positions = positionsOf(*mesh);
    }
    for (int i = 0; i < positions.size(); ++i) {
        const kvm::Vector3 moved = step * positions.at(i);
        positions[i] = shown.at(i) == positions.at(i) ? moved : moved + (shown.at(i) - positions.at(i));
    }
    if (!positions.isEmpty())
        gSolution->push(new editAllVertexCommand(mesh, positions));
}

template <class Holder>
void pushCarried(Holder *holder, const kvm::Matrix4 &step)
{
    if (auto *follower = dynamic_cast<KMTransformFollower *>(holder))
        follower->pushCarried(step);
}

} // namespace

QList<KMMeshNode *> KMObjectTransform::meshesBelow(const KMNullNode *node)
{
    return below<KMMeshNode>(node, [](int type) { return type == KMNodeType::Mesh; });
}

QList<KMContainerNode *> KMObjectTransform::rigsBelow(const KMNullNode *node)
{
    QList<KMContainerNode *> rigs =
        below<KMContainerNode>(node, [](int type) { return type == KMNodeType::BoneContainer; });
    rigs.removeOne(const_cast<KMNullNode *>(node));
    return rigs;
}

QList<KMNullNode *> KMObjectTransform::placedBelow(const KMNullNode *node)
{
    QList<KMNullNode *> placed = below<KMNullNode>(node, standsInWorld);
    placed.removeOne(const_cast<KMNullNode *>(node));
    return placed;
}

/// Plain sums where only the place changes, so that no digit is lost.
kvm::Matrix4 KMObjectTransform::worldStep(const KMNullNode *node, const KMTransform &before, const KMTransform &after)
{
    const kvm::Matrix4 parent = node->parentMatrix();
    if (before.scale == after.scale && before.rotation.w == after.rotation.w
        && before.rotation.vector() == after.rotation.vector())
        return kvm::Matrix4::fromTranslation(parent.transformDirection(after.translation - before.translation));

    kvm::Matrix4 step = kvm::Matrix4::fromTranslation(before.translation * -1.0f);
    step *= before.rotation.conjugate();
    step *= kvm::Matrix4::fromScale({ratio(before.scale.x, after.scale.x), ratio(before.scale.y, after.scale.y),
                                     ratio(before.scale.z, after.scale.z)});
    step *= after.rotation;
    step += after.translation;
    bool invertible = true;
    const kvm::Matrix4 back = parent.inverse(&invertible);
    return invertible ? back * step * parent : kvm::Matrix4();
}

KMTransform KMObjectTransform::moved(const KMTransform &transform, const kvm::Matrix4 &step)
{
    if (step == kvm::Matrix4::fromTranslation(step.translation()))
        return {transform.scale, transform.rotation, step * transform.translation};
    const kvm::Vector3 axes[] = {
        step.transformDirection(transform.rotation.rotate({1.0f, 0.0f, 0.0f})),
        step.transformDirection(transform.rotation.rotate({0.0f, 1.0f, 0.0f})),
        step.transformDirection(transform.rotation.rotate({0.0f, 0.0f, 1.0f})),
    };
    KMTransform result = transform;
    result.translation = step * transform.translation;
    const float turn = dot(cross(axes[0], axes[1]), axes[2]) < 0.0f ? -1.0f : 1.0f; // mirrored: one axis runs backwards
    result.scale = {transform.scale.x * axes[0].length() * turn, transform.scale.y * axes[1].length(),
                    transform.scale.z * axes[2].length()};
    const kvm::Vector3 x = (axes[0] * turn).normalized();
    const kvm::Vector3 y = (axes[1] - x * dot(axes[1], x)).normalized();
    const kvm::Vector3 z = cross(x, y);
    const kvm::Matrix4 frame{{x.x, x.y, x.z, 0, y.x, y.y, y.z, 0, z.x, z.y, z.z, 0, 0, 0, 0, 1}};
    result.rotation = kvm::Quaternion::fromMatrix(frame);
    return result;
}

KMTransform KMObjectTransform::sound(const KMTransform &transform)
{
    const KMTransform rest;
    KMTransform result = transform;
    for (int axis = 0; axis < 3; ++axis) {
        if (!std::isfinite(transform.scale[axis]))
            result.scale[axis] = rest.scale[axis];
        if (!std::isfinite(transform.translation[axis]))
            result.translation[axis] = rest.translation[axis];
    }
    constexpr float shortest = 1e-6f;
    const float length = transform.rotation.length();
    if (!std::isfinite(length) || length < shortest)
        result.rotation = rest.rotation;
    else if (std::fabs(length - 1.0f) > shortest)
        result.rotation.normalize();
    return result;
}

bool KMObjectTransform::isSame(const KMTransform &a, const KMTransform &b)
{
    return a.scale == b.scale && a.rotation == b.rotation && a.translation == b.translation;
}

bool KMObjectTransform::wouldFlatten(const KMNullNode *node, const KMTransform &transform)
{
    const kvm::Vector3 &scale = transform.scale;
    return (scale.x == 0.0f || scale.y == 0.0f || scale.z == 0.0f) && !meshesBelow(node).isEmpty();
}

void KMObjectTransform::push(KMNullNode *node, const KMTransform &transform)
{
    const kvm::Matrix4 step = worldStep(node, node->transform(), transform);
    gSolution->push(new editSRTCommand(node, transform));
    if (step == kvm::Matrix4())
        return;
    for (KMMeshNode *mesh : meshesBelow(node)) {
        pushVertices(mesh, step);
        for (KMTagBase *tag : mesh->tags())
            pushCarried(tag->isDeleted() ? nullptr : tag, step);
    }
    for (KMContainerNode *rig : rigsBelow(node))
        pushCarried(rig, step);
    for (KMNullNode *placed : placedBelow(node))
        gSolution->push(new editSRTCommand(placed, moved(placed->transform(), step)));
}
