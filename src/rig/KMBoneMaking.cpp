// How bones are made: new ones, copies, images and parts of others.

#include "core/KMCommand.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeChains.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneCommands.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneCopy.h"
#include "rig/KMBoneEdit.h"
#include "rig/KMBoneNames.h"
#include "rig/KMBoneTreeCommands.h"

#include <QSet>

#include <algorithm>

namespace KMBoneEdit {

namespace {

void pushAdd(KMBoneContainer *container, KMBoneNames &names, KMBone *bone, KMBone *parent, int position = -1)
{
    bone->setName(names.unique(bone->name()));
    gSolution->push(new addBoneCommand(container, bone, parent, position));
}

void pushAdd(KMBoneContainer *container, KMBone *bone, KMBone *parent, int position = -1)
{
    KMBoneNames names(*container);
    pushAdd(container, names, bone, parent, position);
}

QString mirroredNameFor(const KMBone *bone, KMBoneNames &names)
{
    const QString name = mirroredName(bone->name());
    if (name.isEmpty() || names.isTaken(name))
        return names.unique(bone->name());
    names.take(name);
    return name;
}

/// The places of the vertices along a run, closed where it is a round.
QVector<kvm::Vector3> pointsOf(const KMEdgeChain &chain, const KMMeshNode &mesh)
{
    QVector<kvm::Vector3> points;
    for (const int vertex : chain.vertices)
        points << mesh.position(vertex);
    if (chain.isRound)
        points << points.first();
    return points;
}

bool tellNoRoom()
{
    gSolution->showMessage(KMBone::tr("A rig can't be deeper than %1 bones").arg(MaxDepth), KMCommand::MessageLevel);
    return false;
}

} // namespace

bool hasRoom(const KMBone *parent, int levels)
{
    return (parent ? parent->depth() : -1) + levels <= MaxDepth || tellNoRoom();
}

bool hasRoomFor(const KMBone *bone, const KMBone *parent)
{
    return KMTreeWidget::hasRoom(parent ? parent->item() : nullptr, bone->item(), MaxDepth) || tellNoRoom();
}

/// Wherever in its chain the other bone of each comes, a chain gets no longer than the deepest one and those of a
/// chain.
bool hasRoomForDoubles(const KMBoneContainer &rig, const QList<KMBone *> &bones)
{
    const QSet<KMBone *> doubled(bones.begin(), bones.end());
    QVector<int> inChain; // by the index of the bone at its end
    int deepest = 0;
    int most = 0;
    for (KMBone *bone : rig.bones()) { // parents come before their children
        const KMBone *parent = bone->parentBone();
        inChain << (parent ? inChain[parent->boneIndex()] : 0) + doubled.contains(bone);
        most = std::max(most, inChain.last());
        deepest = std::max(deepest, bone->depth());
    }
    return deepest + most <= MaxDepth || tellNoRoom();
}

KMBone *pushNewBone(KMBoneContainer *container)
{
    KMBone *parent = container->selectedBones().value(0);
    auto *bone = new KMBone;
    if (parent) {
        KMBoneRest rest = parent->rest();
        rest.head = parent->restTail();
        bone->setRest(rest);
    }
    pushAdd(container, bone, parent, 0);
    pushSelected(container, {bone});
    return bone;
}

KMBone *createBone()
{
    const KMBoneContainer *active = KMBoneContainer::activeBoneContainer();
    if (active && !hasRoom(active->selectedBones().value(0), 1))
        return nullptr;
    const KMUndoMacro macro(KMBone::tr("Add Bone"));
    return pushNewBone(containerForNew());
}

KMBoneContainer *containerAtHand()
{
    KMBoneContainer *active = KMBoneContainer::activeBoneContainer();
    if (active && active->isVisible())
        return active;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    const auto isOpen = [](const KMBoneContainer *rig) { return !rig->isLocked() && rig->isVisible(); };
    const auto found = std::find_if(rigs.begin(), rigs.end(), isOpen);
    return found == rigs.end() ? nullptr : *found;
}

KMBoneContainer *addContainer()
{
    auto *container = new KMBoneContainer;
    gProject->addToScene(container);
    return container;
}

KMBoneContainer *containerForNew()
{
    if (KMBoneContainer *active = KMBoneContainer::activeBoneContainer())
        return active; // hidden or not: the panel shows its bones
    KMBoneContainer *container = containerAtHand();
    return container ? container : addContainer();
}

kvm::Vector3 placeAtRest(const KMBone *parent, const kvm::Vector3 &shown)
{
    if (!parent)
        return shown;
    return parent->solvedPose().rotation.conjugate().rotate(shown - parent->head()) + parent->restHead();
}

kvm::Vector3 placeAsShown(const KMBone *parent, const kvm::Vector3 &atRest)
{
    if (!parent)
        return atRest;
    return parent->solvedPose().rotation.rotate(atRest - parent->restHead()) + parent->head();
}

KMBone *pushDrawnBone(KMBoneContainer *container, KMBone *parent, const kvm::Vector3 &head, const kvm::Vector3 &tail,
                      bool isFloating)
{
    auto *bone = new KMBone;
    bone->setRest(restBone(placeAtRest(parent, head), placeAtRest(parent, tail)));
    bone->setFloating(isFloating);
    pushAdd(container, bone, parent);
    pushSelected(container, {bone});
    return bone;
}

void pushCopies(KMBoneContainer *container)
{
    QList<KMBone *> sources;
    const QList<KMBone *> tops = container->topSelectedBones();
    for (const KMBone *top : tops)
        sources += container->subtree(top->item());
    QList<KMBone *> copiesOfTops;
    const QList<KMBoneCopy::Placed> placed = KMBoneCopy::copies(sources);
    KMBoneNames names(*container);
    for (const KMBoneCopy::Placed &entry : placed) {
        pushAdd(container, names, entry.copy, entry.parentCopy ? entry.parentCopy : entry.source->parentBone());
        if (!entry.parentCopy)
            copiesOfTops << entry.copy;
    }
    pushSelected(container, copiesOfTops);
}

void pushMirrored(KMBoneContainer *container, const QList<KMBone *> &bones)
{
    const KMSymmetryPlane plane = container->mirrorPlane();
    KMBoneNames names(*container);
    QHash<KMBone *, KMBone *> partners;
    for (KMBone *bone : bones) {
        auto *image = new KMBone;
        image->setName(mirroredNameFor(bone, names));
        image->setViewType(bone->viewType());
        image->setFloating(bone->isFloating());
        image->setMovable(bone->isMovable());
        image->setRest(reflected(bone->rest(), plane));
        KMBone *parent = bone->parentBone();
        if (KMBone *partner = parent ? partners.value(parent, parent->mirrorBone()) : nullptr)
            parent = partner;
        gSolution->push(new addBoneCommand(container, image, parent));
        partners.insert(bone, image);
    }
}

void pushDivided(KMBone *bone)
{
    KMBoneContainer *container = bone->container();
    const QList<KMBone *> children = KMBoneTreeWidget::childrenOf(bone->item());
    KMBoneRest first = bone->rest();
    KMBoneRest second = first;
    first.lengthScale = second.lengthScale = first.lengthScale * 0.5f;
    second.head = first.tail();
    KMBone *half = bone->clone(false);
    half->setMovable(bone->isMovable());
    half->setFloating(false);
    half->setRest(second);
    gSolution->push(new editBoneGeometryCommand(bone, first));
    pushAdd(container, half, bone);
    for (KMBone *child : children)
        gSolution->push(new setCtrlParentCommand(child, half));
}

void pushLayered(KMBone *bone)
{
    auto *layer = new KMBone;
    layer->setName(bone->name() + QStringLiteral("親2"));
    layer->setViewType(KMBoneShape::Point);
    layer->setFloating(bone->isFloating());
    layer->setMovable(bone->isMovable());
    layer->setRest(bone->rest());
    const int position = KMTreeWidget::positionOf(bone->item());
    gSolution->push(new addBoneCommand(bone->container(), layer, bone->parentBone(), position));
    gSolution->push(new setCtrlParentCommand(bone, layer));
}

int longestRun(const KMMeshNode &mesh)
{
    int longest = 0;
    for (const KMEdgeChain &chain : edgeChains(KMSelectedElements::edges(mesh)))
        longest = std::max(longest, chain.vertices.size());
    return longest;
}

void pushFromEdges(KMBoneContainer *container, const KMMeshNode &mesh, KMBone *parent)
{
    const QVector<KMEdgeChain> chains = edgeChains(KMSelectedElements::edges(mesh));
    KMBoneNames names(*container);
    for (const KMEdgeChain &chain : chains) {
        QVector<kvm::Vector3> points = pointsOf(chain, mesh);
        // It goes on from the parent, so it begins with the end that is nearer to that.
        if (parent && (points.last() - parent->restTail()).length() < (points.first() - parent->restTail()).length())
            std::reverse(points.begin(), points.end());
        KMBone *last = parent;
        for (int i = 1; i < points.size(); ++i) {
            auto *bone = new KMBone;
            bone->setRest(restBone(points[i - 1], points[i]));
            bone->setFloating(i == 1);
            pushAdd(container, names, bone, last);
            last = bone;
        }
    }
}

} // namespace KMBoneEdit
