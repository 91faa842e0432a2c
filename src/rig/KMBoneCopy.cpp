#include "rig/KMBoneCopy.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagConstraint.h"

#include <QHash>

namespace {

/// The copy has the live tags alone, in their order.
void noteTags(const KMBone &source, const KMBone &copy, KMRigTags::Copies *copies)
{
    int index = 0;
    for (KMTagBase *tag : source.tags()) {
        if (!tag->isDeleted())
            *copies << KMRigTags::Copied{tag, copy.tag(index++)};
    }
}

} // namespace

namespace KMBoneCopy {

QList<Placed> copies(const QList<KMBone *> &bones)
{
    QHash<KMBone *, KMBone *> copyOf;
    QList<Placed> placed;
    for (KMBone *bone : bones) {
        KMBone *copy = bone->clone(true);
        copy->setMovable(bone->isMovable());
        copy->setEnName(bone->enName());
        copyOf.insert(bone, copy);
        placed.append({bone, copy, copyOf.value(bone->parentBone())});
    }
    KMRigTags::Copies tags;
    for (const Placed &entry : std::as_const(placed))
        noteTags(*entry.source, *entry.copy, &tags);
    KMRigTags::relinkCopies(tags);
    for (const auto &[source, copy] : std::as_const(tags)) {
        if (source->type() != KMNodeType::TagConstraint)
            continue;
        auto *constraint = nodeAs<KMTagConstraint>(copy);
        KMBone *target = constraint->data().target;
        constraint->setTarget(copyOf.value(target, target));
    }
    return placed;
}

} // namespace KMBoneCopy
