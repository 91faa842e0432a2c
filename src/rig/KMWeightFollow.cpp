// How the weights of a mesh follow when an edit makes vertices from others.

#include "core/KMSolution.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

namespace {

using Entries = QVector<BoneWeightEntry>;

void add(Entries &sums, const BoneWeightEntry &entry, float share)
{
    const auto isOfBone = [&entry](const BoneWeightEntry &sum) { return sum.bone == entry.bone; };
    const auto known = std::find_if(sums.begin(), sums.end(), isOfBone);
    if (known == sums.end())
        sums.append({entry.vertex, entry.weight * share, entry.bone});
    else
        known->weight += entry.weight * share;
}

Entries meanOf(const KMTagBoneWeight &tag, const KMVertexOrigin &origin)
{
    Entries sums;
    for (const KMVertexOrigin::Source &source : origin.sources) {
        if (source.vertex < 0)
            break;
        if (source.share == 0.0f)
            continue;
        const Entries entries = tag.entriesOf(source.vertex);
        for (const BoneWeightEntry &entry : entries)
            add(sums, entry, source.share);
    }
    return sums;
}

bool areAllFlagged(const KMTagBoneWeight &tag, const KMVertexOrigin &origin)
{
    return std::all_of(origin.sources.begin(), origin.sources.end(), [&tag](const KMVertexOrigin::Source &source) {
        return source.vertex < 0 || tag.hasSdefFlag(source.vertex);
    });
}

} // namespace

void KMTagBoneWeight::pushVerticesMade(const QVector<KMVertexOrigin> &origins)
{
    KMMeshNode *store = mesh();
    if (!store)
        return;
    KMWeightEdit edit(this);
    QVector<int> flagged;
    for (const KMVertexOrigin &origin : origins) {
        edit.setEntries(origin.vertex, meanOf(*this, origin));
        if (areAllFlagged(*this, origin))
            flagged.append(origin.vertex);
    }
    if (!edit.isEmpty())
        gSolution->push(new addBoneWeightCommand(store, edit));
    if (!flagged.isEmpty())
        gSolution->push(new setSdefFlagCommand(store, this, flagged));
}
