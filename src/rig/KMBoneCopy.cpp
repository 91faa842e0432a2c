#include "rig/KMBoneCopy.h"

#include "core/KMNodeType.h"
#include "rig/KMBone.h"
#include "rig/KMTagConstraint.h"

#include <QHash>

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
    for (const Placed &entry : std::as_const(placed)) {
        for (KMTagBase *tag : entry.copy->tags()) {
            if (tag->type() != KMNodeType::TagConstraint)
                continue;
            auto *constraint = nodeAs<KMTagConstraint>(tag);
            ConstraintData data = constraint->data();
            data.target = copyOf.value(data.target, data.target);
            constraint->setData(data);
        }
    }
    return placed;
}

} // namespace KMBoneCopy
