#include "formats/KMDTagBodies.h"

#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "core/KMTagBase.h"
#include "formats/KMDConstraintTag.h"
#include "formats/KMDFormat.h"
#include "formats/KMDMorphTag.h"
#include "formats/KMDNormalTag.h"
#include "formats/KMDPhysicsTags.h"
#include "formats/KMDSkippedBodies.h"
#include "formats/KMDSmallTags.h"
#include "formats/KMDWeightTag.h"

#include <QCoreApplication>

#include <algorithm>
#include <memory>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDTagBodies)
};

const QVector<KMDTagBody> &bodies()
{
    static const QVector<KMDTagBody> rows = {
        {KMNodeType::TagMorph, &KMDMorphTag::make, &KMDMorphTag::write, &KMDMorphTag::read},
        {KMNodeType::TagNormal, &KMDNormalTag::make, &KMDNormalTag::write, &KMDNormalTag::read},
        {KMNodeType::TagRigidBody, &KMDPhysicsTags::makeBody, &KMDPhysicsTags::writeBody, &KMDPhysicsTags::readBody},
        {KMNodeType::TagJoint, &KMDPhysicsTags::makeJoint, &KMDPhysicsTags::writeJoint, &KMDPhysicsTags::readJoint},
        {KMNodeType::TagBoneWeight, &KMDWeightTag::make, &KMDWeightTag::write, &KMDWeightTag::read},
        {KMNodeType::TagConstraint, &KMDConstraintTag::make, &KMDConstraintTag::write, &KMDConstraintTag::read},
    };
    return rows;
}

bool isUnknownToRelease1(int type)
{
    return type == KMNodeType::TagNormal || type == KMNodeType::TagGroup;
}

QList<const KMTagBase *> tagsToWrite(KMDOutput &out, const KMContainerNode *node)
{
    QList<const KMTagBase *> tags;
    for (const KMTagBase *tag : node->tags()) {
        if (tag->isDeleted() || (out.isCompatibility() && isUnknownToRelease1(tag->type())))
            continue;
        if (KMDTagBodies::find(tag->type()))
            tags << tag;
        else
            out.warn(Texts::tr("The tag %1 of %2 has no place in the file").arg(tag->name(), node->name()));
    }
    return tags;
}

/// Such a tag takes room for every face or vertex of its mesh, however short its record is; one of a kind is usual.
bool hasEnoughOf(int type, const KMContainerNode *node)
{
    const QList<KMTagBase *> tags = node->tags();
    const bool isLarge = type == KMNodeType::TagNormal || type == KMNodeType::TagMorph;
    return isLarge && std::count_if(tags.begin(), tags.end(), [type](const KMTagBase *tag) {
                          return tag->type() == type;
                      }) >= KMD::MaxLargeTags;
}

bool canHold(int type, const KMContainerNode *node)
{
    return canHoldTag(node->type(), type) && !hasEnoughOf(type, node);
}

void skipTag(KMDReadContext &context, int type, const QString &name, const KMContainerNode *owner)
{
    if (!KMDSkippedBodies::skipTag(context, type, owner))
        context.in.fail(Texts::tr("A tag of the unknown type 0x%1").arg(uint(type), 0, 16));
    else if (!canHoldTag(owner->type(), type))
        context.in.warn(Texts::tr("The tag %1 was left out: %2 can't hold it").arg(name, owner->name()));
    else if (KMDTagBodies::find(type))
        context.in.warn(
            Texts::tr("The tag %1 of %2 was left out: it has enough of this kind").arg(name, owner->name()));
    else
        context.in.warn(Texts::tr("The tag %1 of %2 was left out: this release has none of its kind, %3")
                            .arg(name, owner->name(), nodeTypeName(type)));
}

} // namespace

const KMDTagBody *KMDTagBodies::find(int type)
{
    for (const KMDTagBody &body : bodies()) {
        if (body.type == type)
            return &body;
    }
    return KMDSmallTags::find(type);
}

void KMDTagBodies::writeTags(KMDOutput &out, const KMContainerNode *node)
{
    const QList<const KMTagBase *> tags = tagsToWrite(out, node);
    out.writeI32(tags.size());
    for (const KMTagBase *tag : tags) {
        out.writeI32(tag->type());
        out.writeString(tag->name());
        find(tag->type())->write(out, tag);
    }
}

void KMDTagBodies::readTags(KMDReadContext &context, KMContainerNode *node)
{
    constexpr int leastBytes = 8; // type and an empty name
    KMDStream &in = context.in;
    if (!in.since(1.6f))
        return;
    for (int left = in.readCount(leastBytes); left > 0 && in.ok(); --left) {
        const int type = in.readI32();
        const QString name = in.readString();
        const KMDTagBody *body = canHold(type, node) ? find(type) : nullptr;
        if (!body) {
            skipTag(context, type, name, node);
            continue;
        }
        std::unique_ptr<KMTagBase> tag(body->make());
        tag->setName(name);
        tag->setOwner(node);
        body->read(context, tag.get());
        if (in.ok())
            node->addTagKeepName(tag.release());
    }
}
