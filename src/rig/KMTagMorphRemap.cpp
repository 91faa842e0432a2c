// How the morphs of a mesh follow when its vertices are renumbered.

#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"

void KMTagMorph::remapIndices()
{
    const KMMeshNode *store = mesh();
    if (!store)
        return;
    Lost lost;
    remapDeltas(&lost);
    remapSlots(&lost);
    mesh()->keepLoss(this, lost);
    if (const Lost *found = store->lossOf<Lost>(this))
        restore(*found);
    collectTouched();
}

void KMTagMorph::remapDeltas(Lost *lost)
{
    const KMMeshNode &store = *mesh();
    for (KMMorph *morph : liveMorphs()) { // one that is out comes back to the numbers with which it went
        MorphDeltas moved;
        moved.reserve(morph->deltas().size());
        for (MorphDelta delta : morph->deltas()) {
            delta.vertex = store.remappedVertex(delta.vertex);
            if (delta.vertex >= 0)
                moved.append(delta);
        }
        if (moved.size() != morph->deltas().size())
            lost->deltas.append({morph, morph->deltas()});
        morph->followMesh(moved);
    }
}

/// The records of the vertices were moved with the offsets on them.
void KMTagMorph::remapSlots(Lost *lost)
{
    const KMMeshNode &store = *mesh();
    const QVector<float> offsets = m_offsets;
    const QVector<float> base = m_base;
    m_vertexCount = store.vertexCount();
    m_offsets = QVector<float>(3 * m_vertexCount, 0.0f);
    m_base = m_offsets;
    for (int old = 0; old < base.size() / 3; ++old) { // an empty slot without an offset may get its vertex and one back
        const Place place{old, vectorAt(offsets, old), vectorAt(base, old)};
        const int i = store.remappedVertex(old);
        if (i >= 0)
            setPlace(i, place);
        else
            lost->places.append(place);
    }
    QHash<int, QVector<Origin>> origins;
    for (auto entry = m_origins.constBegin(); entry != m_origins.constEnd(); ++entry) {
        const int i = store.remappedVertex(entry.key());
        (i >= 0 ? origins : lost->origins).insert(i >= 0 ? i : entry.key(), entry.value());
    }
    m_origins = origins;
}

void KMTagMorph::setPlace(int i, const Place &place)
{
    if (i >= m_vertexCount)
        return;
    setVectorAt(m_offsets, i, place.offset);
    setVectorAt(m_base, i, place.base);
}

void KMTagMorph::restore(const Lost &lost)
{
    for (const auto &entry : lost.deltas) {
        if (entry.first)
            entry.first->followMesh(entry.second);
    }
    for (const Place &place : lost.places)
        setPlace(place.slot, place);
    for (auto entry = lost.origins.constBegin(); entry != lost.origins.constEnd(); ++entry)
        m_origins.insert(entry.key(), entry.value());
}
