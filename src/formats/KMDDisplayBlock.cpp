#include "formats/KMDDisplayBlock.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "formats/KMDContents.h"
#include "formats/KMDOutput.h"
#include "formats/KMDStream.h"
#include "rig/KMDisplayCommands.h"

#include <QCoreApplication>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDDisplayBlock)
};

QList<const KMDisplayNode *> writtenGroups()
{
    QList<const KMDisplayNode *> groups;
    for (const KMDisplayNode *group : moveDisplayNodeCommand::liveGroups()) {
        if (group->items().isEmpty() || !group->liveItems().isEmpty())
            groups << group;
    }
    return groups;
}

} // namespace

void KMDDisplayBlock::write(KMDOutput &out)
{
    const QList<const KMDisplayNode *> groups = writtenGroups();
    out.writeI32(groups.size());
    for (const KMDisplayNode *group : groups) {
        const KMDisplayNode::Items items = group->liveItems();
        out.writeI32(group->type());
        out.writeId(group);
        out.writeString(group->name());
        out.writeI32(items.size());
        for (const DisplayItem &item : items) {
            out.writeI32(item.type);
            out.writeId(item.node);
            out.writeString(item.node->name());
        }
    }
}

void KMDDisplayBlock::read(KMDStream &in, KMDContents &contents)
{
    constexpr int leastGroupBytes = 20;
    constexpr int leastItemBytes = 16;
    in.enterSection(Texts::tr("display groups"));
    const int count = in.readCount(leastGroupBytes);
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        in.skip(12); // type and id, which nothing refers to
        KMDDisplayRecord group;
        group.name = in.readString();
        int missing = 0;
        for (int left = in.readCount(leastItemBytes); left > 0 && in.ok(); --left) {
            in.readI32(); // the node itself tells its kind
            const quint64 id = in.readU64();
            in.readString();
            KMNode *node = id ? contents.objects.value(id) : nullptr;
            if (DisplayItem::canHold(node))
                group.items << node;
            else
                ++missing;
        }
        if (missing > 0)
            in.warn(Texts::tr("%1 items of the display group %2 aren't in the file").arg(missing).arg(group.name));
        contents.displayGroups.push_back(group);
    }
}

void KMDDisplayBlock::build(const KMDContents &contents)
{
    for (const KMDDisplayRecord &record : contents.displayGroups) {
        KMDisplayNode::Items items;
        for (KMNode *node : record.items)
            items << DisplayItem::of(nodeAs<KMContainerNode>(node));
        auto *group = new KMDisplayNode;
        group->setName(record.name);
        group->setItems(items);
        gProject->addToScene(group, KMProject::Naming::Keep);
    }
}
