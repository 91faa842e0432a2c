#include "formats/KMDBoneKeys.h"

#include "core/KMNodeType.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"

#include <QCoreApplication>
#include <QDebug>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDBoneKeys)
};

constexpr quint8 formatMark = 1;

/// Tracks that lost their last key say nothing.
QList<const BoneTrack *> tracksWithKeys(const KMBoneContainer *rig)
{
    QList<const BoneTrack *> tracks;
    for (const BoneTrack *track : rig->animation()->tracks()) {
        if (track->bone && !track->keys.empty())
            tracks << track;
    }
    return tracks;
}

void writeKey(KMDOutput &out, const KMBoneKey &key)
{
    out.writeString(key.name);
    out.writeU32(key.frameno);
    out.writeVector3(key.position);
    out.writeVector3(key.position);
    out.writeVector3({key.rotation.x, key.rotation.y, key.rotation.z});
    out.writeF32(key.rotation.w);
    for (const float number : key.curves)
        out.writeF32(number);
}

KMBoneKey readKey(KMDReadContext &context)
{
    KMDStream &in = context.in;
    KMBoneKey key;
    in.readString(); // the name stands at the track too
    key.frameno = in.readU32();
    key.position = context.readPosition();
    in.readVector3();
    const kvm::Vector3 imaginary = in.readVector3();
    key.rotation = {in.readF32(1.0f), imaginary.x, imaginary.y, imaginary.z};
    in.readFloats(key.curves.data(), int(key.curves.size()));
    return key;
}

/// The bone of an id when it is one of this rig.
const KMBone *boneOf(const KMDReadContext &context, quint64 id, const KMBoneContainer *rig)
{
    KMNode *node = context.objects.value(id);
    if (!node || node->type() != KMNodeType::Bone)
        return nullptr;
    const auto *bone = nodeAs<KMBone>(node);
    return bone->container() == rig ? bone : nullptr;
}

void readTrack(KMDReadContext &context, KMBoneContainer *rig)
{
    constexpr int leastKeyNumbers = 26; // of floating point
    KMDStream &in = context.in;
    const QString name = in.readString();
    const KMBone *bone = boneOf(context, in.readU64(), rig);
    if (in.ok() && !bone) {
        qDebug("bone not found.");
        in.warn(Texts::tr("The keys of %1 were left out: there is no such bone").arg(name));
    }
    const int leastBytes = 8 + leastKeyNumbers * in.floatBytes();
    for (int left = in.readCount(leastBytes); left > 0 && in.ok(); --left) {
        KMBoneKey key = readKey(context);
        if (!bone || !in.ok())
            continue;
        key.name = bone->name();
        rig->animation()->setKey(key);
    }
}

} // namespace

void KMDBoneKeys::write(KMDOutput &out, const KMBoneContainer *rig)
{
    const QList<const BoneTrack *> tracks = tracksWithKeys(rig);
    out.writeU8(formatMark);
    out.writeId(rig);
    out.writeI32(tracks.size());
    for (const BoneTrack *track : tracks) {
        out.writeString(track->name);
        out.writeId(track->bone);
        out.writeI32(int(track->keys.size()));
        for (const auto &entry : track->keys)
            writeKey(out, entry.second);
    }
    out.writeI32(0);
}

void KMDBoneKeys::read(KMDReadContext &context, KMBoneContainer *rig)
{
    constexpr int leastTrackBytes = 16; // an empty name, an id and a count
    KMDStream &in = context.in;
    in.readU8(); // other marks were never written
    in.readU64();
    for (int left = in.readCount(leastTrackBytes); left > 0 && in.ok(); --left)
        readTrack(context, rig);
    in.readI32();
}
