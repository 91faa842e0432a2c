#include "rig/KMMorphBake.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "rig/KMTagMorph.h"

#include <QCoreApplication>

#include <cmath>

namespace {

constexpr int messageLevel = 4;

bool hasSameVertices(const KMMeshNode &a, const KMMeshNode &b)
{
    if (a.vertexCount() != b.vertexCount())
        return false;
    for (int i = 0; i < a.vertexCount(); ++i) {
        if (!a.vertex(i) != !b.vertex(i))
            return false;
    }
    return true;
}

/// Place by place: where the chain joins vertices under the morph, others may have faces than without it.
MorphDeltas deltasBetween(const KMMeshNode &base, const KMMeshNode &target)
{
    MorphDeltas deltas;
    for (int i = 0; i < base.vertexCount(); ++i) {
        if (!base.vertex(i))
            continue;
        const kvm::Vector3 d = target.position(i) - base.position(i);
        const double length = std::sqrt(double(d.x) * d.x + double(d.y) * d.y + double(d.z) * d.z);
        if (length > 0.0 && std::isfinite(float(length)))
            deltas.append({i, float(length), {float(d.x / length), float(d.y / length), float(d.z / length)}});
    }
    return deltas;
}

} // namespace

QVector<KMMorphBake::Loss> KMMorphBake::sample(const KMMeshNode &source, KMMeshNode &shape)
{
    QVector<Loss> losses;
    if (!source.findTag(KMNodeType::TagMorph))
        return losses;
    KMChainCopy copy(source);
    auto *morphs = static_cast<KMTagMorph *>(copy.source()->findTag(KMNodeType::TagMorph));
    KMTagMorph *carried = morphs->clone();
    const QList<KMMorph *> originals = morphs->liveMorphs();
    for (KMMorph *original : originals)
        original->setValue(0.0f);
    copy.evaluate();
    const QList<KMMorph *> twins = carried->liveMorphs();
    for (int i = 0; i < twins.size(); ++i) {
        originals[i]->setValue(1.0f);
        copy.follow();
        originals[i]->setValue(0.0f);
        if (copy.last() && hasSameVertices(*copy.last(), shape)) {
            twins[i]->setDeltas(deltasBetween(shape, *copy.last()));
            continue;
        }
        losses.append({twins[i]->name(), copy.last() ? copy.last()->vertexCount() : 0, shape.vertexCount()});
        delete twins[i];
    }
    shape.addTagKeepName(carried);
    return losses;
}

void KMMorphBake::carry(const KMMeshNode &source, KMMeshNode &shape)
{
    const QVector<Loss> losses = sample(source, shape);
    for (const Loss &loss : losses) {
        gSolution->showMessage(QCoreApplication::translate("KMMorphBake",
                                                           "The morph %1 was dropped: the modifiers make "
                                                           "other vertices under it")
                                   .arg(loss.morph),
                               messageLevel);
    }
}
