#include "formats/KMDMorphTag.h"

#include "core/KMNodeType.h"
#include "formats/KMDMeshBody.h"
#include "formats/KMDOutput.h"
#include "formats/KMDReadContext.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"

#include <QCoreApplication>

#include <cmath>
#include <memory>

namespace {

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDMorphTag)
};

void writeMorph(KMDOutput &out, const KMMorph &morph, const QVector<int> &numbers)
{
    out.writeI32(KMNodeType::Morph);
    out.writeId(&morph);
    out.writeString(morph.name());
    out.writeF32(morph.value());
    out.writeI32(morph.panel());
    MorphDeltas written;
    for (const MorphDelta &delta : morph.deltas()) {
        if (numbers.value(delta.vertex, -1) >= 0)
            written.append(delta);
    }
    out.writeI32(written.size());
    for (const MorphDelta &delta : std::as_const(written)) {
        out.writeI32(numbers.at(delta.vertex));
        out.writeF32(delta.length);
        out.writeVector3(delta.direction);
    }
}

/// False for one that moves nothing: a vertex that the mesh doesn't have, or no length.
bool readDelta(KMDReadContext &context, const KMMeshNode *mesh, MorphDelta &delta)
{
    KMDStream &in = context.in;
    delta.vertex = in.readI32();
    delta.length = in.readF32() * context.importScale;
    delta.direction = in.readVector3();
    if (!in.ok())
        return false;
    if (!mesh || !mesh->vertex(delta.vertex)) {
        in.warn(Texts::tr("A morph of the vertex %1, which the mesh doesn't have").arg(delta.vertex));
        return false;
    }
    if (delta.length < 0.0f) {
        delta.length = -delta.length;
        delta.direction = delta.direction * -1.0f;
    }
    return std::isfinite(delta.length) && delta.length != 0.0f && delta.direction.lengthSquared() > 0.0f;
}

void readMorph(KMDReadContext &context, KMTagMorph *tag)
{
    KMDStream &in = context.in;
    in.readI32(); // the type: there is only one
    auto morph = std::make_unique<KMMorph>();
    const quint64 id = in.readU64();
    morph->setName(in.readString());
    morph->setValue(in.readF32());
    morph->setPanel(in.readI32());
    MorphDeltas deltas;
    for (int left = in.readCount(4 + 4 * in.floatBytes()); left > 0 && in.ok(); --left) {
        MorphDelta delta;
        if (readDelta(context, tag->mesh(), delta))
            deltas.append(delta);
    }
    if (!in.ok())
        return;
    morph->setDeltas(deltas);
    if (id != 0)
        context.objects.insert(id, morph.get());
    tag->addMorph(morph.release());
}

} // namespace

KMTagBase *KMDMorphTag::make()
{
    return new KMTagMorph;
}

void KMDMorphTag::write(KMDOutput &out, const KMTagBase *tag)
{
    const auto *morphs = static_cast<const KMTagMorph *>(tag);
    const KMMeshNode *mesh = morphs->mesh();
    const QVector<int> numbers = mesh ? KMDMeshBody::vertexNumbers(*mesh) : QVector<int>();
    const QList<KMMorph *> live = morphs->liveMorphs();
    out.writeI32(live.size());
    for (const KMMorph *morph : live)
        writeMorph(out, *morph, numbers);
}

void KMDMorphTag::read(KMDReadContext &context, KMTagBase *tag)
{
    constexpr int leastBytes = 28; // of a morph without name and displacements
    for (int left = context.in.readCount(leastBytes); left > 0 && context.in.ok(); --left)
        readMorph(context, static_cast<KMTagMorph *>(tag));
}
