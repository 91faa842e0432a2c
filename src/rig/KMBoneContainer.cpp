#include "rig/KMBoneContainer.h"

#include "core/KMNodeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "core/KMUniqueName.h"
#include "core/KMVariantNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCopy.h"
#include "rig/KMBoneTreeCommands.h"

#include <QRegularExpression>

#include <algorithm>

KMBoneContainer::KMBoneContainer()
    : m_tree(new KMBoneTreeWidget)
    , m_animation(new BoneAnimation(this))
{
    setType(KMNodeType::BoneContainer);
    setName(tr("RootBone"));
    addNodePort(visibleNode(), QStringLiteral("visible"));
    addNodePort(lockedNode(), QStringLiteral("locked"));
    for (KMVariantNode *value :
         {static_cast<KMVariantNode *>(visibleNode()), static_cast<KMVariantNode *>(lockedNode())}) {
        connect(value, &KMVariantNode::refresh, this, [] {
            if (gSolution)
                gSolution->refreshViews(31);
        });
    }
    if (gProject)
        connect(gProject, &KMProject::frameChanged, this,
                [this](int frame) { m_animation->applyFrame(quint32(frame)); });
}

KMBoneContainer::~KMBoneContainer()
{
    for (KMBone *bone : std::as_const(m_allBones))
        bone->setItem(nullptr);
    m_tree.reset();
    m_animation.reset();
    m_bones.clear();
    qDeleteAll(m_allBones);
}

KMBoneContainer *KMBoneContainer::activeBoneContainer()
{
    KMNode *node = gSolution->currentNode();
    KMBoneContainer *container = nullptr;
    if (node && node->type() == KMNodeType::BoneContainer)
        container = nodeAs<KMBoneContainer>(node);
    else if (KMNode *bone = gSolution->currentBone())
        container = nodeAs<KMBone>(bone)->container();
    return container && !container->isLocked() && !container->isDeleted() ? container : nullptr;
}

KMBone *KMBoneContainer::bone(const QString &name) const
{
    const auto isOfName = [&name](const KMBone *bone) { return bone->name() == name; };
    const auto found = std::find_if(m_bones.begin(), m_bones.end(), isOfName);
    return found == m_bones.end() ? nullptr : *found;
}

QList<KMBone *> KMBoneContainer::selectedBones() const
{
    QList<KMBone *> selected;
    for (KMBone *bone : m_bones) {
        if (bone->selectMask())
            selected << bone;
    }
    return selected;
}

QList<KMBone *> KMBoneContainer::topSelectedBones() const
{
    QList<KMBone *> top;
    for (KMBone *bone : selectedBones()) {
        const KMBone *above = bone->parentBone();
        while (above && !above->selectMask())
            above = above->parentBone();
        if (!above)
            top << bone;
    }
    return top;
}

QList<KMBone *> KMBoneContainer::subtree(const QTreeWidgetItem *row) const
{
    QList<KMBone *> bones;
    for (const QTreeWidgetItem *member : KMTreeWidget::flatten(const_cast<QTreeWidgetItem *>(row)))
        bones << KMBoneTreeWidget::boneOf(member);
    return bones;
}

QString KMBoneContainer::uniqueName(const KMBone *bone) const
{
    static const QRegularExpression digit(QStringLiteral("[0-9]"));
    KMNumberedNames names(bone->name().remove(digit));
    for (const KMBone *other : m_bones)
        names.take(other->name());
    return names.firstFree();
}

void KMBoneContainer::attachBone(KMBone *bone, KMBone *parent, int position, QTreeWidgetItem *row)
{
    adoptBone(bone);
    if (!row)
        row = KMTreeWidget::makeRow(bone);
    for (QTreeWidgetItem *member : KMTreeWidget::flatten(row)) {
        KMTreeWidget::nodeOf(member)->setItem(member);
        KMTreeWidget::nodeOf(member)->setDeleted(false);
    }
    const QSignalBlocker quiet(m_tree.get());
    m_tree->insertRow(parent ? parent->item() : nullptr, position, row);
    for (const QTreeWidgetItem *member : KMTreeWidget::flatten(row))
        KMBoneTreeWidget::showSelection(KMBoneTreeWidget::boneOf(member));
}

QTreeWidgetItem *KMBoneContainer::detachBone(KMBone *bone)
{
    QTreeWidgetItem *row = bone->item();
    const QSignalBlocker quiet(m_tree.get()); // else the view makes a neighbour current
    m_tree->takeRow(row);
    return row;
}

void KMBoneContainer::adoptBone(KMBone *bone)
{
    if (!m_allBones.contains(bone))
        m_allBones << bone;
    bone->setContainer(this);
}

void KMBoneContainer::releaseBone(KMBone *bone)
{
    m_allBones.removeOne(bone);
}

BoneAnimation::Relinked KMBoneContainer::rebuildOrder()
{
    deriveOrder();
    return m_animation->relinkTracks();
}

void KMBoneContainer::restoreOrder(BoneAnimation::Relinked &&relinked)
{
    deriveOrder();
    m_animation->takeBack(std::move(relinked));
}

void KMBoneContainer::deriveOrder()
{
    for (KMBone *bone : std::as_const(m_bones)) {
        if (bone->container() != this)
            continue; // another rig has numbered it
        bone->m_boneIndex = -1;
        bone->setIndex(-1);
    }
    m_bones.clear();
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree.get())) {
        KMBone *bone = KMBoneTreeWidget::boneOf(row);
        bone->m_boneIndex = m_bones.size();
        bone->setIndex(m_bones.size());
        bone->setParentBone(KMBoneTreeWidget::boneOf(row->parent()));
        m_bones << bone;
    }
    for (KMBone *bone : std::as_const(m_bones)) {
        bone->m_children.clear();
        bone->m_depth = 0;
    }
    for (KMBone *bone : std::as_const(m_bones)) {
        if (KMBone *parent = bone->parentBone()) {
            parent->m_children << bone;
            bone->m_depth = parent->m_depth + 1;
        }
    }
    requestPose();
}

KMSymmetryPlane KMBoneContainer::mirrorPlane() const
{
    return {translation(), rotation().rotate({1.0f, 0.0f, 0.0f})};
}

void KMBoneContainer::pairMirrorBones(float tolerance)
{
    if (tolerance < 0.0f)
        tolerance = gSettings->symmetryMargin;
    const KMSymmetryPlane plane = mirrorPlane();
    QList<KMBone *> behind;
    for (KMBone *bone : std::as_const(m_bones)) {
        bone->setMirrorBone(nullptr);
        bone->setOnMirrorSide(plane.distance(bone->translation()) < 0.0f);
        if (bone->isOnMirrorSide())
            behind << bone;
    }
    const auto isOnPlane = [&plane, tolerance](const kvm::Vector3 &point) {
        return std::abs(plane.distance(point)) < tolerance;
    };
    for (KMBone *bone : std::as_const(m_bones)) {
        if (isOnPlane(bone->restHead()) && isOnPlane(bone->restTail())) {
            bone->setMirrorBone(bone);
            continue;
        }
        if (bone->isOnMirrorSide())
            continue;
        const kvm::Vector3 head = plane.reflected(bone->restHead());
        const kvm::Vector3 tail = plane.reflected(bone->restTail());
        for (KMBone *other : std::as_const(behind)) {
            if ((other->restHead() - head).length() >= tolerance || (other->restTail() - tail).length() >= tolerance)
                continue;
            bone->setMirrorBone(other);
            other->setMirrorBone(bone);
        }
    }
}

void KMBoneContainer::refreshAfterEdit()
{
    if (m_frameStale)
        m_animation->applyFrame(quint32(gProject->currentFrame()));
    else if (m_poseStale)
        m_animation->reevaluate();
    m_frameStale = m_poseStale = false;
    for (KMBone *bone : std::as_const(m_bones))
        bone->refreshShape();
}

KMBoneContainer *KMBoneContainer::clone() const
{
    auto *copy = new KMBoneContainer;
    copyNullTo(copy);
    for (const KMBoneCopy::Placed &placed : KMBoneCopy::copies(m_bones))
        copy->attachBone(placed.copy, placed.parentCopy);
    copy->rebuildOrder();
    m_animation->copyTo(*copy->m_animation);
    return copy;
}

void KMBoneContainer::pushDeleteCommand()
{
    const KMUndoMacro macro(tr("Delete Node"));
    for (int i = m_bones.size() - 1; i >= 0; --i)
        gSolution->push(new deleteBoneCommand(m_bones[i]));
    gSolution->push(new deleteNodeCommand(this));
}
