#pragma once

#include "core/KMHeadlessSession.h"
#include "support/RigDump.h"

#include "math/Vector3.h"

class KMBone;
class KMBoneContainer;

/// A session whose document is a rig without bones, which is current; the history is empty.
class RigScene
{
public:
    RigScene();

    /// A bone between two points, in the history's past. A null parent puts it at the top.
    KMBone *addBone(const QString &name, KMBone *parent, const kvm::Vector3 &head, const kvm::Vector3 &tail);
    QString names() const; ///< of the bones in their order, each behind its depth: "0arm 1elbow"
    void forget();         ///< empties the history; the rig stays current

    KMHeadlessSession session;
    RigDump dump;
    KMBoneContainer *rig;
};
