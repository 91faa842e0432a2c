#include "formats/PmxMorphs.h"

#include "formats/PmxMesh.h"
#include "formats/PmxOutput.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphBake.h"
#include "rig/KMMorphDeltas.h"
#include "rig/KMTagMorph.h"

#include <QMap>

#include <numeric>

namespace {

/// Each vertex once, as players want it.
MorphDeltas sumOf(const MorphDeltas &a, const MorphDeltas &b)
{
    QMap<int, kvm::Vector3> offsets;
    for (const MorphDeltas *deltas : {&a, &b}) {
        for (const MorphDelta &delta : *deltas)
            offsets[delta.vertex] += delta.offset();
    }
    MorphDeltas sum;
    for (auto it = offsets.cbegin(); it != offsets.cend(); ++it)
        appendDelta(sum, it.key(), it.value());
    return sum;
}

} // namespace

PmxMorphs::Clones::Clones(const PmxMesh &mesh)
    : firsts(mesh.shape().vertexCount() + 1, 0)
    , vertices(mesh.data.vertices().size())
{
    for (const PmxVertex &vertex : mesh.data.vertices())
        ++firsts[vertex.source + 1];
    std::partial_sum(firsts.cbegin(), firsts.cend(), firsts.begin());
    QVector<int> next = firsts;
    for (int i = 0; i < vertices.size(); ++i)
        vertices[next[mesh.data.vertices().at(i).source]++] = mesh.offset + i;
}

PmxMorphs::PmxMorphs(const std::vector<PmxMesh> &meshes)
{
    for (const PmxMesh &mesh : meshes) {
        const QVector<KMTagMorph *> tags = KMMorphBake::tagsOf(mesh.shape());
        for (const KMTagMorph *tag : tags)
            append(tag->liveMorphs());
        if (!tags.isEmpty())
            m_clones.append(Clones(mesh));
    }
}

/// Those of the mesh whose vertices are listed next.
void PmxMorphs::append(const QList<KMMorph *> &morphs)
{
    for (const KMMorph *morph : morphs) {
        if (!m_places.contains(morph->name())) {
            m_places.insert(morph->name(), m_morphs.size());
            m_morphs.append({morph->name(), morph->panel(), {}});
        }
        QVector<Part> &parts = m_morphs[m_places.value(morph->name())].parts;
        if (!parts.isEmpty() && parts.last().mesh == m_clones.size())
            parts.last().deltas = sumOf(parts.last().deltas, morph->deltas());
        else
            parts.append({m_clones.size(), morph->deltas()});
    }
}

void PmxMorphs::writeOffsets(PmxOutput &out, int i, int vertexWidth) const
{
    int count = 0;
    for (const Part &part : m_morphs.at(i).parts) {
        for (const MorphDelta &delta : part.deltas)
            count += m_clones.at(part.mesh).countOf(delta.vertex);
    }
    out.writeI32(count);
    for (const Part &part : m_morphs.at(i).parts) {
        const Clones &clones = m_clones.at(part.mesh);
        for (const MorphDelta &delta : part.deltas) {
            const int first = clones.firsts.value(delta.vertex);
            for (int c = 0, n = clones.countOf(delta.vertex); c < n; ++c) {
                out.writeIndex(clones.vertices.at(first + c), vertexWidth);
                out.writeLength(delta.offset());
            }
        }
    }
}
