// How the morphs of a mesh follow when an edit makes vertices from others.

#include "core/KMSolution.h"
#include "math/Matrix4.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSymmetryPlane.h"
#include "mesh/KMVertexCommands.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMMorphDeltas.h"
#include "rig/KMTagMorph.h"

#include <QSet>

#include <algorithm>

using kvm::Vector3;

namespace {

using Offsets = QHash<int, Vector3>; // by vertex; there may be several displacements of one

Offsets offsetsOf(const MorphDeltas &deltas, const QSet<int> &vertices)
{
    Offsets offsets;
    for (const MorphDelta &delta : deltas) {
        if (vertices.contains(delta.vertex))
            offsets[delta.vertex] += delta.offset();
    }
    return offsets;
}

/// The displacements with those of the new vertices, each the mean of what its sources have.
MorphDeltas withMeans(const MorphDeltas &deltas, const QVector<KMVertexOrigin> &origins, const QSet<int> &sources,
                      const QSet<int> &made)
{
    const Offsets offsets = offsetsOf(deltas, sources);
    MorphDeltas after;
    after.reserve(deltas.size());
    // what stands there of vertices that the mesh never had
    std::copy_if(deltas.begin(), deltas.end(), std::back_inserter(after),
                 [&made](const MorphDelta &delta) { return !made.contains(delta.vertex); });
    for (const KMVertexOrigin &origin : origins) {
        const Vector3 mean = origin.mean([&offsets](int i) { return offsets.value(i); });
        appendDelta(after, origin.vertex, origin.mirror ? origin.mirror->reflectedWay(mean) : mean);
    }
    return after;
}

} // namespace

/// New vertices stand where they are shown, on an offset that none of them has yet: they go back by it first, so that
/// the displacements bring them there again.
void KMTagMorph::pushVerticesMade(const QVector<KMVertexOrigin> &origins)
{
    KMMeshNode *store = mesh();
    if (!store)
        return;
    QSet<int> sources, made;
    for (const KMVertexOrigin &origin : origins) {
        made.insert(origin.vertex);
        for (const KMVertexOrigin::Source &source : origin.sources)
            sources.insert(source.vertex);
    }
    QVector<QPair<KMMorph *, MorphDeltas>> changes;
    Offsets sums;
    for (KMMorph *morph : liveMorphs()) {
        const MorphDeltas after = withMeans(morph->deltas(), origins, sources, made);
        if (after != morph->deltas())
            changes.append({morph, after});
        for (const MorphDelta &delta : after) {
            if (morph->weight() != 0.0f && made.contains(delta.vertex))
                sums[delta.vertex] += delta.direction * (morph->weight() * delta.length);
        }
    }
    QVector<KMMovedVertex> moves;
    for (const KMVertexOrigin &origin : origins) {
        const Vector3 shown = store->position(origin.vertex);
        const auto sum = sums.constFind(origin.vertex);
        if (sum != sums.constEnd())
            moves.append({origin.vertex, shown, shown - *sum});
    }
    if (!moves.isEmpty())
        gSolution->push(new moveVertexArrayCommand(store, moves));
    for (const auto &[morph, deltas] : std::as_const(changes))
        gSolution->push(new editMorphDataCommand(morph, deltas));
}

/// The vertices have moved without the offsets that lie on them.
void KMTagMorph::pushCarried(const kvm::Matrix4 &step)
{
    if (step == kvm::Matrix4::fromTranslation(step.translation()))
        return;
    const QList<KMMorph *> live = liveMorphs();
    for (KMMorph *morph : live) {
        MorphDeltas after;
        after.reserve(morph->deltas().size());
        for (const MorphDelta &delta : morph->deltas())
            appendDelta(after, delta.vertex, step.transformDirection(delta.offset()));
        if (after != morph->deltas())
            gSolution->push(new editMorphDataCommand(morph, after));
    }
}
