#include "rig/KMMorphBake.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMChainCopy.h"
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
        twins[i]->setDeltas({});
        if (copy.last() && hasSameVertices(*copy.last(), shape)) {
            KMTagMorph::buildDeltas(twins[i], shape, *copy.last(), false, 1.0f);
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
