#include "rig/KMMorphBake.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
#include "rig/KMMorphDeltas.h"
#include "rig/KMTagMorph.h"

#include <QCoreApplication>

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
        if (base.vertex(i))
            appendDelta(deltas, i, target.position(i) - base.position(i));
    }
    return deltas;
}

/// Gives the morphs of one tag their displacements. Those of the copy, by which they are sampled, are all at 0.
void sampleMorphs(const KMTagMorph &tag, const KMTagMorph &carried, KMChainCopy &copy, const KMMeshNode &shape,
                  QVector<KMMorphBake::Loss> &losses)
{
    const QList<KMMorph *> originals = tag.liveMorphs();
    const QList<KMMorph *> twins = carried.liveMorphs();
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
}

} // namespace

QVector<KMTagMorph *> KMMorphBake::tagsOf(const KMMeshNode &mesh)
{
    QVector<KMTagMorph *> found;
    const QList<KMTagBase *> tags = mesh.tags();
    for (KMTagBase *tag : tags) {
        if (tag->type() == KMNodeType::TagMorph && !tag->isDeleted())
            found.append(static_cast<KMTagMorph *>(tag));
    }
    return found;
}

void KMMorphBake::rest(const QVector<KMTagMorph *> &tags)
{
    for (const KMTagMorph *tag : tags) {
        const QList<KMMorph *> morphs = tag->liveMorphs();
        for (KMMorph *morph : morphs)
            morph->setValue(0.0f);
    }
}

QVector<KMMorphBake::Loss> KMMorphBake::sample(const KMMeshNode &source, KMMeshNode &shape)
{
    QVector<Loss> losses;
    if (tagsOf(source).isEmpty())
        return losses;
    KMChainCopy copy(source);
    const QVector<KMTagMorph *> tags = tagsOf(*copy.source());
    QVector<KMTagMorph *> carried;
    // The copies of the tags keep the values.
    for (const KMTagMorph *tag : tags)
        carried.append(tag->clone());
    rest(tags);
    copy.evaluate();
    for (int i = 0; i < tags.size(); ++i) {
        sampleMorphs(*tags.at(i), *carried.at(i), copy, shape, losses);
        shape.addTagKeepName(carried.at(i));
    }
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
