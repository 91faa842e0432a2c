#include "formats/PmxSkin.h"

#include "core/KMNodeType.h"
#include "formats/PmxLayout.h"
#include "formats/PmxModel.h"
#include "formats/PmxOutput.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"

namespace {

constexpr int mostBones = 4; // of a vertex in the file

} // namespace

int pmxBoneIndex(const KMBone *bone, const KMBoneContainer &root)
{
    return bone && !bone->isDeleted() && bone->container() == &root ? bone->boneIndex() : -1;
}

void PmxSkin::enter(const KMMeshNode *mesh)
{
    m_mesh = mesh;
    m_records = nullptr;
    m_bones.clear();
    const auto *tag = static_cast<const KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
    if (!tag)
        return;
    m_records = &tag->records();
    for (const KMBone *bone : tag->bones())
        m_bones.append(pmxBoneIndex(bone, m_root));
}

/// Bones that aren't in the file have no say.
void PmxSkin::write(const PmxVertex &vertex)
{
    if (vertex.bones != m_mesh)
        enter(vertex.bones);
    int bones[mostBones] = {};
    float weights[mostBones] = {};
    int count = 0;
    if (m_records) {
        const KMShareView shares = m_records->of(vertex.source);
        const KMSdefVertex *spherical = m_records->sdefOf(vertex.source);
        if (spherical && m_bones.at(shares[0].bone) >= 0 && m_bones.at(shares[1].bone) >= 0)
            return writeSpherical(*spherical);
        for (const KMBoneShare &share : shares) {
            if (m_bones.at(share.bone) < 0 || count == mostBones)
                continue;
            bones[count] = m_bones.at(share.bone);
            weights[count++] = share.weight;
        }
    }
    writeLinear(bones, weights, count);
}

void PmxSkin::writeBone(int bone)
{
    m_out.writeIndex(bone, m_boneWidth);
}

/// In the document the second point goes with the weight of the first bone; in the file the first one does.
void PmxSkin::writeSpherical(const KMSdefVertex &record)
{
    const KMShareView shares = m_records->of(record.vertex);
    m_out.writeU8(Pmx::Sdef);
    writeBone(m_bones.at(shares[0].bone));
    writeBone(m_bones.at(shares[1].bone));
    m_out.writeF32(shares[0].weight);
    m_out.writeLength(record.parameters.c);
    m_out.writeLength(record.parameters.r1);
    m_out.writeLength(record.parameters.r0);
}

void PmxSkin::writeLinear(const int *bones, const float *weights, int count)
{
    if (count <= 1) {
        m_out.writeU8(Pmx::Bdef1);
        writeBone(bones[0]);
    } else if (count == 2) {
        m_out.writeU8(Pmx::Bdef2);
        writeBone(bones[0]);
        writeBone(bones[1]);
        m_out.writeF32(weights[0]);
    } else {
        m_out.writeU8(Pmx::Bdef4);
        for (int i = 0; i < mostBones; ++i)
            writeBone(bones[i]);
        for (int i = 0; i < mostBones - 1; ++i)
            m_out.writeF32(weights[i]);
        m_out.writeF32(count < mostBones ? 0.0f : 1.0f - (weights[0] + weights[1] + weights[2]));
    }
}
