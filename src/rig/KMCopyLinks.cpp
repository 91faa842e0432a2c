#include "rig/KMCopyLinks.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMDisplayAnchorNode.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMPhysicsCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

namespace {

/// What a copy has of the tags of a type, in its order: the live ones alone.
QList<KMTagBase *> liveTags(const KMContainerNode &node, int type)
{
    QList<KMTagBase *> tags;
    for (KMTagBase *tag : node.tags()) {
        if (tag->type() == type && !tag->isDeleted())
            tags << tag;
    }
    return tags;
}

/// The rig or mesh with which something comes and goes.
const KMContainerNode *homeOf(const KMNode *node)
{
    if (node->type() == KMNodeType::Bone)
        return static_cast<const KMBone *>(node)->container();
    if (node->type() == KMNodeType::TagRigidBody) {
        const KMBone *bone = static_cast<const KMTagRigidBody *>(node)->bone();
        return bone ? bone->container() : nullptr;
    }
    const KMTagMorph *tag = static_cast<const KMMorph *>(node)->tag();
    return tag ? tag->mesh() : nullptr;
}

} // namespace

void KMCopyLinks::add(KMNode *source, KMNode *copy)
{
    m_sources << source;
    m_copyOf.insert(source, copy);
}

template <class Node>
Node *KMCopyLinks::copyOf(Node *source) const
{
    return static_cast<Node *>(m_copyOf.value(source, source));
}

void KMCopyLinks::note(const KMContainerNode &source, const KMContainerNode &copy)
{
    if (source.type() == KMNodeType::BoneContainer) {
        const QList<KMBone *> from = static_cast<const KMBoneContainer &>(source).bones();
        const QList<KMBone *> to = static_cast<const KMBoneContainer &>(copy).bones();
        for (int i = 0; i < from.size(); ++i) {
            add(from[i], to[i]);
            const QList<KMTagBase *> bodies = liveTags(*from[i], KMNodeType::TagRigidBody);
            for (int k = 0; k < bodies.size(); ++k)
                add(bodies[k], liveTags(*to[i], KMNodeType::TagRigidBody)[k]);
        }
    }
    const QList<KMTagBase *> tags = liveTags(source, KMNodeType::TagMorph);
    for (int k = 0; k < tags.size(); ++k) {
        const QList<KMMorph *> from = nodeAs<KMTagMorph>(tags[k])->liveMorphs();
        const QList<KMMorph *> to = nodeAs<KMTagMorph>(liveTags(copy, KMNodeType::TagMorph)[k])->liveMorphs();
        for (int i = 0; i < from.size(); ++i)
            add(from[i], to[i]);
    }
}

KMCopyLinks KMCopyLinks::ofGone(const KMCopyLinks &onward) const
{
    KMCopyLinks links;
    for (const QPointer<KMNode> &source : m_sources) {
        const KMContainerNode *home = source ? homeOf(source) : nullptr;
        if (home && home->isDeleted())
            links.add(source, onward.copyOf(copyOf(source.data())));
    }
    return links;
}

void KMCopyLinks::relink(KMContainerNode &node, As as) const
{
    for (KMTagBase *tag : node.tags()) {
        if (!tag->isDeleted())
            relinkTag(tag, as);
    }
    if (node.type() == KMNodeType::ModAnchor)
        relinkAnchors(nodeAs<KMModAnchorNode>(&node), as);
    if (node.type() != KMNodeType::BoneContainer)
        return;
    for (KMBone *bone : nodeAs<KMBoneContainer>(&node)->bones())
        relink(*bone, as);
}

template <class Command, class Tag>
void KMCopyLinks::give(Tag *tag, const typename Tag::Parameters &parameters, As as) const
{
    if (parameters == tag->parameters())
        return;
    if (as == As::Steps)
        gSolution->push(new Command(tag, parameters));
    else
        tag->setParameters(parameters);
}

void KMCopyLinks::relinkTag(KMTagBase *tag, As as) const
{
    if (tag->type() == KMNodeType::TagBoneWeight)
        return relinkWeights(static_cast<KMTagBoneWeight *>(tag), as);
    if (tag->type() == KMNodeType::TagConstraint) {
        auto *constraint = nodeAs<KMTagConstraint>(tag);
        ConstraintData data = constraint->data();
        data.target = copyOf(data.target.data());
        give<editTagConstraintCommand>(constraint, data, as);
    } else if (tag->type() == KMNodeType::TagJoint) {
        auto *joint = nodeAs<KMTagJoint>(tag);
        JointData data = joint->parameters();
        data.bodyA = copyOf(data.bodyA.data());
        data.bodyB = copyOf(data.bodyB.data());
        give<editTagJointCommand>(joint, data, as);
    }
}

void KMCopyLinks::relinkWeights(KMTagBoneWeight *tag, As as) const
{
    QVector<rebindBoneWeightCommand::Exchange> exchanges;
    for (int i = 0; i < tag->bones().size(); ++i) {
        KMBone *bone = tag->bones().at(i);
        if (copyOf(bone) != bone)
            exchanges.append({i, bone, copyOf(bone)});
    }
    if (exchanges.isEmpty())
        return;
    if (as == As::Steps)
        gSolution->push(new rebindBoneWeightCommand(tag->mesh(), tag, exchanges));
    for (int i = 0; as == As::Silent && i < exchanges.size(); ++i)
        tag->exchangeBone(exchanges[i].number, exchanges[i].after);
}

void KMCopyLinks::relinkAnchors(KMModAnchorNode *anchor, As as) const
{
    KMModAnchorNode::Anchors anchors = anchor->anchors();
    for (KMModAnchorNode::Anchor &helper : anchors) {
        KMBone *bone = helper->bone();
        if (copyOf(bone) == bone)
            continue;
        helper.reset(helper->clone()); // steps before this one know the former helper
        helper->setBone(copyOf(bone));
    }
    if (anchors == anchor->anchors())
        return;
    if (as == As::Steps)
        gSolution->push(new modAnchorAddBoneCommand(anchor, anchors));
    else
        anchor->setAnchors(anchors);
}

void KMCopyLinks::pushRelinkGroups() const
{
    for (KMDisplayNode *group : gProject->displayNodes()) {
        KMDisplayNode::Items items = group->items();
        for (DisplayItem &item : items)
            item.node = copyOf(item.node.data());
        if (!group->isDeleted() && items != group->items())
            gSolution->push(new relinkDisplayItemsCommand(group, items));
    }
}

void KMCopyLinks::pushRelinkScene() const
{
    if (m_copyOf.isEmpty())
        return;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
        relink(*KMTreeWidget::nodeOf(row), As::Steps);
    pushRelinkGroups();
}
