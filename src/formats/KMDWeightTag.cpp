#include "formats/KMDWeightTag.h"

#include "core/KMNodeType.h"
#include "formats/KMDMeshBody.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"

#include <QCoreApplication>
#include <QPointer>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDWeightTag)
};

struct Entry
{
    quint64 bone;
    int vertex;
    float weight;
};

/// Null for what is no bone that the file holds.
KMBone *boneOf(const KMDReadContext &context, quint64 id)
{
    KMNode *node = id ? context.objects.value(id) : nullptr;
    return node && node->type() == KMNodeType::Bone ? nodeAs<KMBone>(node) : nullptr;
}

bool isOnMesh(const KMTagBoneWeight &tag, int vertex)
{
    return tag.mesh() && tag.mesh()->vertex(vertex);
}

QVector<Entry> readEntries(KMDStream &in, const KMTagBoneWeight &tag)
{
    const int leastBytes = 12 + in.floatBytes();
    QVector<Entry> entries;
    int strays = 0;
    for (int left = in.readCount(leastBytes); left > 0 && in.ok(); --left) {
        Entry entry;
        entry.bone = in.readU64();
        entry.vertex = in.readI32();
        entry.weight = in.readF32();
        if (isOnMesh(tag, entry.vertex))
            entries.append(entry);
        else
            ++strays;
    }
    if (strays > 0 && in.ok())
        in.warn(Texts::tr("%1 weights of vertices that the mesh doesn't have").arg(strays));
    return entries;
}

void bind(const KMDReadContext &context, const QVector<Entry> &entries, KMTagBoneWeight &tag)
{
    int strays = 0;
    for (const Entry &entry : entries) {
        if (KMBone *bone = boneOf(context, entry.bone))
            tag.addEntry({entry.vertex, entry.weight, bone});
        else
            ++strays;
    }
    if (strays > 0)
        context.in.warn(Texts::tr("%1 weights of bones that the file doesn't have").arg(strays));
}

} // namespace

KMTagBase *KMDWeightTag::make()
{
    return new KMTagBoneWeight;
}

void KMDWeightTag::write(KMDOutput &out, const KMTagBase *tag)
{
    const auto *weights = static_cast<const KMTagBoneWeight *>(tag);
    const QVector<int> numbers = weights->mesh() ? KMDMeshBody::vertexNumbers(*weights->mesh()) : QVector<int>();
    QVector<BoneWeightEntry> entries;
    for (const BoneWeightEntry &entry : weights->entries()) {
        if (numbers.value(entry.vertex, -1) >= 0 && !entry.bone->isDeleted())
            entries.append(entry);
    }
    QVector<int> flagged;
    for (const int vertex : weights->sdefVertices()) {
        if (numbers.value(vertex, -1) >= 0)
            flagged.append(numbers.at(vertex));
    }
    out.writeI32(entries.size());
    for (const BoneWeightEntry &entry : std::as_const(entries)) {
        out.writeId(entry.bone);
        out.writeI32(numbers.at(entry.vertex));
        out.writeF32(entry.weight);
    }
    out.writeI32(flagged.size());
    for (const int number : std::as_const(flagged))
        out.writeI32(number);
    out.writeI32(weights->parameters().sdefMethod);
    out.writeI32(weights->parameters().autoNormalize);
    out.writeF32(weights->parameters().sdefBlend);
}

void KMDWeightTag::read(KMDReadContext &context, KMTagBase *tag)
{
    KMDStream &in = context.in;
    auto *weights = static_cast<KMTagBoneWeight *>(tag);
    const QVector<Entry> entries = readEntries(in, *weights);
    constexpr int indexBytes = 4;
    for (int left = in.readCount(indexBytes); left > 0 && in.ok(); --left) {
        const int vertex = in.readI32();
        if (isOnMesh(*weights, vertex))
            weights->setSdefFlag(vertex, true);
    }
    KMWeightParameters parameters;
    parameters.sdefMethod = in.readI32();
    parameters.autoNormalize = in.readI32() != 0;
    parameters.sdefBlend = in.readF32(parameters.sdefBlend);
    weights->setParameters(parameters);
    const QPointer<KMTagBoneWeight> kept(weights); // it goes with a node that is left out
    context.bindings.emplace_back([&context, entries, kept] {
        if (kept)
            bind(context, entries, *kept);
    });
}
