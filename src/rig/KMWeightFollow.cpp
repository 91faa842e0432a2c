// How the weights of a mesh follow when an edit makes vertices from others.

#include "core/KMSolution.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

namespace {

using Entries = QVector<BoneWeightEntry>;

Entries meanOf(const KMTagBoneWeight &tag, const KMVertexOrigin &origin)
{
    Entries sums;
    for (const KMVertexOrigin::Source &source : origin.sources) {
        if (source.vertex < 0)
            break;
        const Entries entries = tag.entriesOf(source.vertex);
        for (const BoneWeightEntry &entry : entries)
            addTo(sums, {entry.vertex, entry.weight * source.share, entry.bone});
    }
    return sums;
}

/// What the bones bear on the other side of a plane is their partners'; a bone without one stands for itself.
class Images
{
public:
    explicit Images(const KMTagBoneWeight &tag)
        : m_tag(tag)
    {
    }
    Entries of(const Entries &entries, const KMSymmetryPlane &plane)
    {
        if (&plane != m_plane)
            m_partners.follow(m_tag.bones(), plane);
        m_plane = &plane;
        Entries images;
        for (BoneWeightEntry entry : entries) {
            if (KMBone *partner = m_partners.of(m_tag.knownNumberOf(entry.bone)))
                entry.bone = partner;
            addTo(images, entry);
        }
        return images;
    }

private:
    const KMTagBoneWeight &m_tag;
    KMBonePartners m_partners;
    const KMSymmetryPlane *m_plane = nullptr; // of the partners
};

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
    Images images(*this);
    QVector<int> flagged;
    for (const KMVertexOrigin &origin : origins) {
        const Entries mean = meanOf(*this, origin);
        edit.setEntries(origin.vertex, origin.mirror ? images.of(mean, *origin.mirror) : mean);
        if (areAllFlagged(*this, origin))
            flagged.append(origin.vertex);
    }
    if (!edit.isEmpty())
        gSolution->push(new addBoneWeightCommand(store, edit));
    if (!flagged.isEmpty())
        gSolution->push(new setSdefFlagCommand(store, this, flagged));
}
