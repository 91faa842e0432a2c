#include "formats/KMDBoneContainerBody.h"

#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDBoneKeys.h"
#include "formats/KMDFormat.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDTagBodies.h"
#include "formats/KMParentLoops.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"

#include <QCoreApplication>
#include <QSet>

#include <cmath>
#include <memory>
#include <vector>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDBoneContainerBody)
};

/// A bone that was read and hangs on nothing yet.
struct Record
{
    std::unique_ptr<KMBone> bone;
    quint64 id = 0;
    quint64 parentId = 0;
    bool expanded = false;
    int parent = -1;       // the record of the parent, -1 at the top
    QVector<int> children; // in the order of the file
};

using Records = std::vector<Record>;

/// High before low: the order in the file, which is also that of the record.
QVector<float *> angles(BoneLimit &limits)
{
    return {&limits.maxH, &limits.minH, &limits.maxP, &limits.minP, &limits.maxB, &limits.minB};
}

void writeBone(KMDOutput &out, const KMBone *bone)
{
    const QTreeWidgetItem *row = bone->item();
    out.writeI32(bone->type());
    out.writeId(bone);
    out.writeId(row);
    out.writeId(row->parent());
    out.writeBool(row->isExpanded());
    KMDNodeBodies::writeTransform(out, bone);
    out.writeF32(bone->lengthScale());
    out.writeId(bone->parentBone());
    out.writeI32(bone->viewType());
    out.writeBool(bone->isFloating());
    out.writeI32(bone->isMovable());
    out.writeI32(0);
    out.writeI32(0);
    BoneLimit limits = bone->limits();
    out.writeBool(limits.enabled);
    for (const float *angle : angles(limits))
        out.writeF32(*angle);
    KMDTagBodies::writeTags(out, bone);
}

void readLength(KMDReadContext &context, KMBone *bone)
{
    const float length = context.in.readF32(bone->lengthScale()) * context.importScale;
    if (std::isfinite(length))
        bone->setLengthScale(length);
    else
        context.in.warn(Texts::tr("The scale makes the bone %1 endless; it keeps its length").arg(bone->name()));
}

void readViewType(KMDStream &in, KMBone *bone)
{
    const int viewType = in.readI32();
    if (viewType >= KMBoneShape::Polygon && viewType <= KMBoneShape::Line)
        bone->setViewType(viewType);
    else
        in.warn(Texts::tr("The bone %1 has the unknown view type %2").arg(bone->name(), QString::number(viewType)));
}

void readLimits(KMDStream &in, KMBone *bone)
{
    if (!in.since(2.6f))
        return;
    BoneLimit limits;
    limits.enabled = in.readBool();
    for (float *angle : angles(limits))
        *angle = in.readF32(*angle);
    bone->setLimits(limits);
}

Record readBone(KMDReadContext &context)
{
    KMDStream &in = context.in;
    Record record;
    const int type = in.readI32();
    if (in.ok() && type != KMNodeType::Bone)
        in.fail(Texts::tr("A record of type 0x%1 is no bone").arg(uint(type), 0, 16));
    record.id = in.readU64();
    in.skip(16); // rows: bones name their parents themselves
    record.expanded = in.since(1.7f) && in.readBool();
    record.bone = std::make_unique<KMBone>();
    KMBone *bone = record.bone.get();
    KMDNodeBodies::readTransform(context, bone);
    readLength(context, bone);
    record.parentId = in.readU64();
    readViewType(in, bone);
    bone->setFloating(in.readBool());
    bone->setMovable(in.readI32() != 0);
    in.skip(2 * sizeof(qint32));
    readLimits(in, bone);
    KMDTagBodies::readTags(context, bone);
    return record;
}

Records readBones(KMDReadContext &context)
{
    constexpr int headBytes = 28;   // type and three ids
    constexpr qint64 bodyFaces = 8; // of a mesh: a bone takes as much
    Records records;
    for (int left = context.in.readCount(headBytes); left > 0 && context.in.ok(); --left) {
        const qint64 start = context.in.position();
        Record record = readBone(context);
        if (!context.takeFaces(bodyFaces, context.in.position() - start))
            context.in.fail(Texts::tr("The file has more bones than it can be believed to hold"));
        if (context.in.ok())
            records.push_back(std::move(record));
    }
    return records;
}

/// Parents may stand behind their children.
void findParents(KMDStream &in, Records &records)
{
    QHash<quint64, int> places;
    for (size_t i = 0; i < records.size(); ++i)
        places.insert(records[i].id, int(i));
    for (Record &record : records) {
        record.parent = record.parentId ? places.value(record.parentId, -1) : -1;
        if (record.parentId && record.parent < 0)
            in.warn(Texts::tr("The bone %1 names an unknown parent and was put at the top").arg(record.bone->name()));
    }
}

void breakLoops(KMDStream &in, Records &records)
{
    QVector<int> parents;
    for (const Record &record : records)
        parents << record.parent;
    for (const int cut : cutParentLoops(parents)) {
        records[size_t(cut)].parent = -1;
        in.warn(
            Texts::tr("The bone %1 stands below itself and was put at the top").arg(records[size_t(cut)].bone->name()));
    }
}

/// Gives the bones to the rig, parents before children.
void hang(KMDReadContext &context, Records &records, KMBoneContainer *rig)
{
    struct Place
    {
        int record;
        KMBone *parent;
        int depth;
    };
    std::vector<Place> open;
    QSet<const KMBone *> expanded;
    for (int i = int(records.size()) - 1; i >= 0; --i) {
        if (records[size_t(i)].parent >= 0)
            records[size_t(records[size_t(i)].parent)].children.prepend(i);
        else
            open.push_back({i, nullptr, 0});
    }
    while (!open.empty()) {
        const Place place = open.back();
        open.pop_back();
        Record &record = records[size_t(place.record)];
        KMBone *bone = record.bone.release();
        context.objects.insert(record.id, bone);
        rig->attachBone(bone, place.parent);
        if (record.expanded)
            expanded.insert(bone);
        // Below the limit children come beside their parent.
        const bool isDeepest = place.depth >= KMBoneEdit::MaxDepth;
        if (isDeepest && !record.children.isEmpty())
            context.in.warn(Texts::tr("A bone lies too deep in its rig and was moved up"));
        for (int c = record.children.size() - 1; c >= 0; --c)
            open.push_back({record.children[c], isDeepest ? place.parent : bone, place.depth + !isDeepest});
    }
    rig->rebuildOrder();
    for (KMBone *bone : rig->bones())
        bone->item()->setExpanded(expanded.contains(bone));
}

} // namespace

KMContainerNode *KMDBoneContainerBody::make()
{
    return new KMBoneContainer;
}

void KMDBoneContainerBody::write(KMDOutput &out, const KMContainerNode *node)
{
    const auto *rig = static_cast<const KMBoneContainer *>(node);
    KMDNodeBodies::writeTransform(out, rig);
    KMDTagBodies::writeTags(out, rig);
    out.writeI32(rig->bones().size());
    for (const KMBone *bone : rig->bones())
        writeBone(out, bone);
    KMDBoneKeys::write(out, rig);
}

void KMDBoneContainerBody::read(KMDReadContext &context, KMContainerNode *node)
{
    auto *rig = static_cast<KMBoneContainer *>(node);
    KMDNodeBodies::readTransform(context, rig);
    KMDTagBodies::readTags(context, rig);
    Records records = readBones(context);
    findParents(context.in, records);
    breakLoops(context.in, records);
    hang(context, records, rig);
    if (context.in.ok() && context.in.since(2.4f))
        KMDBoneKeys::read(context, rig);
    rig->requestFrame();
}
