#include "formats/PmxMorphs.h"

#include "core/KMNodeType.h"
#include "formats/PmxMesh.h"
#include "formats/PmxOutput.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"

#include <numeric>

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
        const auto *tag = static_cast<const KMTagMorph *>(mesh.shape().findTag(KMNodeType::TagMorph));
        if (!tag)
            continue;
        const QList<KMMorph *> morphs = tag->liveMorphs();
        for (const KMMorph *morph : morphs) {
            if (!m_places.contains(morph->name())) {
                m_places.insert(morph->name(), m_morphs.size());
                m_morphs.append(QVector<Part>());
            }
            m_morphs[m_places.value(morph->name())].append({morph, m_clones.size()});
        }
        m_clones.append(Clones(mesh));
    }
}

QString PmxMorphs::name(int i) const
{
    return m_morphs.at(i).first().morph->name();
}

int PmxMorphs::panel(int i) const
{
    return m_morphs.at(i).first().morph->panel();
}

void PmxMorphs::writeOffsets(PmxOutput &out, int i, int vertexWidth) const
{
    int count = 0;
    for (const Part &part : m_morphs.at(i)) {
        for (const MorphDelta &delta : part.morph->deltas())
            count += m_clones.at(part.mesh).countOf(delta.vertex);
    }
    out.writeI32(count);
    for (const Part &part : m_morphs.at(i)) {
        const Clones &clones = m_clones.at(part.mesh);
        for (const MorphDelta &delta : part.morph->deltas()) {
            const int first = clones.firsts.value(delta.vertex);
            for (int c = 0, n = clones.countOf(delta.vertex); c < n; ++c) {
                out.writeIndex(clones.vertices.at(first + c), vertexWidth);
                out.writeLength(delta.offset());
            }
        }
    }
}
