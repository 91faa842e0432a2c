#include "formats/KMDConstraintTag.h"

#include "core/KMNodeType.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "rig/KMBone.h"
#include "rig/KMTagConstraint.h"

#include <QPointer>

namespace {

/// Null for what is no bone that the file holds.
KMBone *boneOf(const KMDReadContext &context, quint64 id)
{
    KMNode *node = id ? context.objects.value(id) : nullptr;
    return node && node->type() == KMNodeType::Bone ? nodeAs<KMBone>(node) : nullptr;
}

} // namespace

KMTagBase *KMDConstraintTag::make()
{
    return new KMTagConstraint;
}

void KMDConstraintTag::write(KMDOutput &out, const KMTagBase *tag)
{
    const ConstraintData &data = static_cast<const KMTagConstraint *>(tag)->data();
    const bool hasTarget = data.target && !data.target->isDeleted();
    out.writeI32(data.type);
    out.writeId(hasTarget ? data.target : nullptr);
    out.writeF32(data.value);
    out.writeI32(data.loop);
    out.writeF32(0.0f);
    out.writeI32(data.ikDepth);
}

void KMDConstraintTag::read(KMDReadContext &context, KMTagBase *tag)
{
    auto *constraint = static_cast<KMTagConstraint *>(tag);
    ConstraintData data;
    data.type = context.in.readI32();
    const quint64 target = context.in.readU64();
    data.value = context.in.readF32();
    data.loop = context.in.readI32();
    context.in.readF32();
    data.ikDepth = context.in.readI32();
    constraint->setData(data);
    const QPointer<KMTagConstraint> kept(constraint); // it goes with a node that is left out
    context.bindings.emplace_back([&context, kept, data, target]() mutable {
        data.target = boneOf(context, target);
        if (kept)
            kept->setData(data);
    });
}
