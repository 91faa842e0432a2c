#include "rig/KMBoneKeys.h"

#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QCoreApplication>

namespace KMBoneKeys {

QString fault(const KMBone &bone)
{
    if (bone.isLocked())
        return QCoreApplication::translate("KMBoneKeys", "%1 is locked").arg(bone.name());
    if (bone.container()->isLocked())
        return QCoreApplication::translate("KMBoneKeys", "%1 is locked").arg(bone.container()->name());
    if (bone.container()->bone(bone.name()) != &bone)
        return QCoreApplication::translate("KMBoneKeys", "Another bone has the name %1: keys go by names")
            .arg(bone.name());
    return {};
}

KMBoneKey ofPose(const KMBone &bone, quint32 frame)
{
    KMBoneKey key;
    key.name = bone.name();
    key.frameno = frame;
    key.rotation = bone.keyPose().rotation;
    key.position = bone.keyPose().offset;
    const BoneTrack *track = bone.container()->animation()->track(bone.name());
    if (!bone.isMovable() && bone.parentBone() && track && !track->keys.empty())
        key.position = track->keyAt(frame).position;
    return key;
}

} // namespace KMBoneKeys
