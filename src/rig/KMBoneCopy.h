#pragma once

#include <QList>

class KMBone;

/// Copies of bones that know one another: parents and what tags refer to are those of the copies, where they are among
/// the copied.
namespace KMBoneCopy {

struct Placed
{
    KMBone *source;
    KMBone *copy;       ///< in no container yet; the caller owns it
    KMBone *parentCopy; ///< of the source's parent; null where that isn't copied
};

QList<Placed> copies(const QList<KMBone *> &bones); ///< parents stand before their children, and come so

} // namespace KMBoneCopy
