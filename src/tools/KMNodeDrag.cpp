#include "tools/KMNodeDrag.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "rig/KMBoneContainer.h"
#include "tools/KMFrameAxes.h"

#include <QCoreApplication>

#include <cmath>

using kvm::Matrix4;
using kvm::Quaternion;
using kvm::Vector3;

namespace {

/// The factors of a scaling for the axes of a node: each goes to the axis that runs closest to its own, since a node
/// can't be slanted.
Vector3 factorsFor(const Quaternion &node, const KMDragTransform &transform)
{
    Vector3 factors(1, 1, 1);
    for (int axis = 0; axis < 3; ++axis) {
        Vector3 own;
        own[axis] = 1.0f;
        const Vector3 inHandle = transform.axes.conjugate().rotate(node.rotate(own));
        int closest = 0;
        for (const int other : {1, 2}) {
            if (std::fabs(inHandle[other]) > std::fabs(inHandle[closest]))
                closest = other;
        }
        factors[axis] = transform.factors[closest];
    }
    return factors;
}

bool isMirrored(const Matrix4 &frame)
{
    return dot(cross(frame.transformDirection({1, 0, 0}), frame.transformDirection({0, 1, 0})),
               frame.transformDirection({0, 0, 1}))
           < 0.0f;
}

} // namespace

QList<KMNullNode *> KMNodeDrag::targets()
{
    QList<KMNullNode *> nodes;
    for (const QTreeWidgetItem *row : KMTreeWidget::topSelectedItems(gProject->tree())) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        if (isTransformable(node->type()) && node->isVisible() && !node->isLocked())
            nodes << static_cast<KMNullNode *>(node);
    }
    return nodes;
}

std::optional<Vector3> KMNodeDrag::centre() const
{
    const QList<KMNullNode *> nodes = targets();
    if (nodes.isEmpty())
        return {};
    Vector3 sum;
    for (const KMNullNode *node : nodes)
        sum += node->worldMatrix().translation();
    return sum / float(nodes.size());
}

Quaternion KMNodeDrag::localAxes() const
{
    const QList<KMNullNode *> nodes = targets();
    if (nodes.isEmpty())
        return {};
    KMNode *current = gSolution->currentNode();
    for (const KMNullNode *node : nodes) {
        if (node == current)
            return KMFrameAxes::of(node->worldMatrix());
    }
    return KMFrameAxes::of(nodes.first()->worldMatrix());
}

bool KMNodeDrag::begin(const Grab &)
{
    m_shown = {};
    m_frames.clear();
    m_ends.clear();
    for (KMNullNode *node : targets()) {
        Frame frame{node, node->transform(), {}, {}, {}};
        for (KMMeshNode *mesh : KMObjectTransform::meshesBelow(node)) {
            Shape shape{mesh, QVector<Vector3>(mesh->vertexCount())};
            for (int i = 0; i < shape.starts.size(); ++i) {
                if (mesh->vertex(i))
                    shape.starts[i] = mesh->position(i);
            }
            frame.shapes << shape;
        }
        for (KMNullNode *primitive : KMObjectTransform::placedBelow(node))
            frame.primitives.append({primitive, primitive->transform()});
        for (KMContainerNode *rig : KMObjectTransform::rigsBelow(node))
            frame.rigs.append(KMRigCarry(nodeAs<KMBoneContainer>(rig)));
        m_frames << frame;
        m_ends << frame.start;
    }
    return !m_frames.isEmpty();
}

/// The drag is told in the world, a node stands in its parent.
KMTransform KMNodeDrag::moved(const Frame &frame, const KMDragTransform &transform)
{
    const Matrix4 parent = frame.node->parentMatrix();
    bool isInvertible = true;
    const Matrix4 toParent = parent.inverse(&isInvertible);
    KMTransform end = frame.start;
    if (!isInvertible)
        return end;
    if (transform.kind == KMDragTransform::Kind::Move) {
        end.translation = frame.start.translation + toParent.transformDirection(transform.delta);
        return end;
    }
    const Quaternion above = KMFrameAxes::of(parent);
    const KMDragMap map(transform);
    end.translation =
        frame.start.translation
        + toParent.transformDirection(map(parent * frame.start.translation) - parent * frame.start.translation);
    if (transform.kind == KMDragTransform::Kind::Rotate) {
        Quaternion turn = above.conjugate() * transform.turn() * above;
        if (isMirrored(parent)) { // the axes above leave the reflection along z to us, which turns about x and y around
            turn.x = -turn.x;
            turn.y = -turn.y;
        }
        end.rotation = (turn * frame.start.rotation).normalized();
        return end;
    }
    const Vector3 factors = factorsFor(above * frame.start.rotation, transform);
    for (int axis = 0; axis < 3; ++axis)
        end.scale[axis] *= factors[axis];
    return end;
}

void KMNodeDrag::show(const Frame &frame, const KMTransform &transform)
{
    const Matrix4 step = KMObjectTransform::worldStep(frame.node, frame.start, transform);
    frame.node->setTransform(transform);
    for (const Shape &shape : frame.shapes) {
        if (!shape.mesh)
            continue;
        for (int i = 0; i < shape.starts.size(); ++i) {
            if (shape.mesh->vertex(i))
                shape.mesh->setPosition(i, step * shape.starts.at(i));
        }
        shape.mesh->markMoved();
    }
    for (const auto &[primitive, start] : frame.primitives) {
        if (primitive)
            primitive->setTransform(KMObjectTransform::moved(start, step));
    }
    for (const KMRigCarry &rig : frame.rigs)
        rig.show(step);
}

KMDragTransform KMNodeDrag::apply(const KMDragTransform &transform, const KMCameraNode &)
{
    m_shown.kind = transform.kind;
    QVector<KMTransform> ends = m_ends;
    for (int i = 0; i < m_frames.size(); ++i) {
        const Frame &frame = m_frames.at(i);
        if (!frame.node)
            continue;
        ends[i] = moved(frame, transform);
        if (KMObjectTransform::wouldFlatten(frame.node, ends.at(i)))
            return m_shown; // the way back would be lost: all stay at the last place
    }
    m_ends = ends;
    m_shown = transform;
    for (int i = 0; i < m_frames.size(); ++i) {
        if (m_frames.at(i).node)
            show(m_frames.at(i), ends.at(i));
    }
    return transform;
}

/// The history makes the same moves again from the start, so that undo has it to go back to.
void KMNodeDrag::commit()
{
    const QVector<Frame> frames = m_frames;
    const QVector<KMTransform> ends = m_ends;
    cancel();
    const KMUndoMacro macro(QCoreApplication::translate("KMTransformEdit", "Edit SRT"));
    for (int i = 0; i < frames.size(); ++i) {
        if (frames.at(i).node)
            KMObjectTransform::push(frames.at(i).node, ends.at(i));
    }
}

void KMNodeDrag::cancel()
{
    restore();
    m_frames.clear();
    m_ends.clear();
}

void KMNodeDrag::restore()
{
    for (const Frame &frame : std::as_const(m_frames)) {
        if (frame.node)
            frame.node->setTransform(frame.start);
        for (const Shape &shape : frame.shapes) {
            if (!shape.mesh)
                continue;
            for (int i = 0; i < shape.starts.size(); ++i) {
                if (shape.mesh->vertex(i))
                    shape.mesh->setPosition(i, shape.starts.at(i));
            }
            shape.mesh->markMoved();
        }
        for (const auto &[primitive, start] : frame.primitives) {
            if (primitive)
                primitive->setTransform(start);
        }
        for (const KMRigCarry &rig : frame.rigs)
            rig.restore();
    }
}
