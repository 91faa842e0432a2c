#include "rig/KMBoneContainer.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMVariantNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCopy.h"
#include "rig/KMBoneNames.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMRigTags.h"

#include <algorithm>
#include <limits>

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
        connect(gProject, &KMProject::frameChanged, this, &KMBoneContainer::onFrameChanged);
}

KMBoneContainer::~KMBoneContainer()
{
    for (KMBone *bone : std::as_const(m_allBones))
        bone->setItem(nullptr);
    m_tree.reset();
    m_animation.reset();
    m_bones.clear();
    m_orderStale = false; // there are no rows any more
    qDeleteAll(m_allBones);
}

KMBoneContainer *KMBoneContainer::activeBoneContainer()
{
    KMBoneContainer *current = KMRigTags::currentRig();
    return current && !current->isLocked() ? current : nullptr;
}

QList<KMBoneContainer *> KMBoneContainer::inTree()
{
    QList<KMBoneContainer *> rigs;
    if (!gProject)
        return rigs;
    for (KMCtrlNode *ctrl : gProject->ctrlsInTree()) {
        if (ctrl->type() == KMNodeType::BoneContainer)
            rigs << nodeAs<KMBoneContainer>(ctrl);
    }
    return rigs;
}

KMBone *KMBoneContainer::bone(const QString &name) const
{
    const auto isOfName = [&name](const KMBone *bone) { return bone->name() == name; };
    const auto found = std::find_if(bones().begin(), bones().end(), isOfName);
    return found == bones().end() ? nullptr : *found;
}

QList<KMBone *> KMBoneContainer::selectedBones() const
{
    QList<KMBone *> selected;
    for (KMBone *bone : bones()) {
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
    return KMBoneNames(*this).unique(bone->name());
}

void KMBoneContainer::attachBone(KMBone *bone, KMBone *parent, int position, QTreeWidgetItem *row)
{
    adoptBone(bone);
    // At the top offsets hold that are held back below a parent; a bone that comes back was left out of other frames.
    if ((!bone->parentBone() != !parent || bone->isDeleted()) && bone->isPosedByKeys())
        requestFrame();
    bone->setParentBone(parent);
    if (!row)
        row = KMTreeWidget::makeRow(bone);
    for (QTreeWidgetItem *member : KMTreeWidget::flatten(row)) {
        KMTreeWidget::nodeOf(member)->setItem(member);
        KMTreeWidget::nodeOf(member)->setDeleted(false);
    }
    const QSignalBlocker quiet(m_tree.get());
    m_tree->insertRow(parent ? parent->item() : nullptr, position, row);
    m_tree->markNewRows(row);
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
    m_bones.removeOne(bone);
}

const QList<KMBone *> &KMBoneContainer::bones() const
{
    if (m_orderStale)
        deriveOrder();
    return m_bones;
}

BoneAnimation::Relinked KMBoneContainer::rebuildOrder()
{
    markOrderStale();
    return relinkTracks();
}

void KMBoneContainer::restoreOrder(BoneAnimation::Relinked &&relinked)
{
    markOrderStale();
    restoreTracks(std::move(relinked));
}

void KMBoneContainer::markOrderStale()
{
    m_orderStale = true;
    m_linkedTracks = std::numeric_limits<quint64>::max();
    if (gProject)
        gProject->rebuildDerivedLists(); // helpers show as long as their bones are there
    requestPose();
}

BoneAnimation::Relinked KMBoneContainer::relinkTracks()
{
    if (m_linkedTracks == m_animation->revision())
        return {};
    BoneAnimation::Relinked relinked = m_animation->relinkTracks();
    m_linkedTracks = m_animation->revision();
    if (!relinked.isEmpty())
        requestFrame();
    return relinked;
}

void KMBoneContainer::restoreTracks(BoneAnimation::Relinked &&relinked)
{
    if (relinked.isEmpty())
        return;
    requestFrame();
    m_animation->takeBack(std::move(relinked));
}

void KMBoneContainer::deriveOrder() const
{
    m_orderStale = false;
    for (KMBone *bone : std::as_const(m_bones)) {
        bone->m_boneIndex = -1;
        bone->setIndex(-1);
        bone->m_children.clear(); // of those that are deleted
    }
    m_bones.clear();
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree.get())) {
        KMBone *bone = KMBoneTreeWidget::boneOf(row);
        KMBone *parent = KMBoneTreeWidget::boneOf(row->parent());
        bone->m_boneIndex = m_bones.size();
        bone->setIndex(m_bones.size());
        bone->setParentBone(parent);
        bone->m_children.clear();
        bone->m_depth = 0;
        if (parent) { // stands before it
            parent->m_children << bone;
            bone->m_depth = parent->m_depth + 1;
        }
        m_bones << bone;
    }
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
    for (KMBone *bone : bones()) {
        bone->setMirrorBone(nullptr);
        bone->setOnMirrorSide(plane.distance(bone->translation()) < 0.0f);
        if (bone->isOnMirrorSide())
            behind << bone;
    }
    const auto isOnPlane = [&plane, tolerance](const kvm::Vector3 &point) {
        return std::abs(plane.distance(point)) < tolerance;
    };
    for (KMBone *bone : bones()) {
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

/// A rig out of the scene, in the history or the clipboard, is posed when it comes back.
void KMBoneContainer::onFrameChanged(int frame)
{
    if (item())
        m_animation->applyFrame(quint32(std::max(frame, 0)));
    else
        requestFrame();
}

void KMBoneContainer::refreshAfterEdit()
{
    if (m_frameStale)
        m_animation->applyFrame(quint32(std::max(gProject->currentFrame(), 0)));
    else if (m_poseStale)
        m_animation->reevaluate();
    m_frameStale = m_poseStale = false;
    for (KMBone *bone : bones())
        bone->refreshShape();
}

KMBoneContainer *KMBoneContainer::clone() const
{
    auto *copy = new KMBoneContainer;
    copyNullTo(copy);
    for (const KMBoneCopy::Placed &placed : KMBoneCopy::copies(bones()))
        copy->attachBone(placed.copy, placed.parentCopy);
    copy->rebuildOrder();
    m_animation->copyTo(*copy->m_animation);
    copy->requestFrame();
    return copy;
}

void KMBoneContainer::pushContentsDeleted()
{
    const QList<KMBone *> bones = this->bones();
    for (int i = bones.size() - 1; i >= 0; --i)
        gSolution->push(new deleteBoneCommand(bones[i]));
}
