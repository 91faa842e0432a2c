#include "rig/KMDisplayNode.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMMorph.h"
#include "rig/KMTagMorph.h"

bool DisplayItem::isLive() const
{
    if (!node || node->isDeleted() || type != Morph)
        return node && !node->isDeleted();
    const KMTagMorph *tag = nodeAs<KMMorph>(node)->tag();
    return tag && !tag->isDeleted() && tag->owner() && !nodeAs<KMContainerNode>(tag->owner())->isDeleted();
}

bool DisplayItem::canHold(const KMNode *node)
{
    return node && (node->type() == KMNodeType::Bone || node->type() == KMNodeType::Morph);
}

DisplayItem DisplayItem::of(KMContainerNode *node)
{
    return {node, node->type() == KMNodeType::Morph ? Morph : Bone};
}

KMDisplayNode::KMDisplayNode()
{
    setType(KMNodeType::Display);
    setName(tr("Disp"));
}

KMDisplayNode::Items KMDisplayNode::liveItems() const
{
    Items live;
    for (const DisplayItem &item : m_items) {
        if (item.isLive())
            live << item;
    }
    return live;
}

bool KMDisplayNode::isSpecial() const
{
    return m_special.value_or(name() == QLatin1String("Root") || name() == QString::fromUtf8("表情"));
}

void KMDisplayNode::pushAddCommand()
{
    gSolution->push(new addDisplayNodeCommand(this));
}

void KMDisplayNode::pushDeleteCommand()
{
    gSolution->push(new removeDisplayNodeCommand(this));
}
