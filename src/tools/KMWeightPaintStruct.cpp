#include "tools/KMWeightPaintStruct.h"

#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMWeightBlur.h"

#include <algorithm>

KMWeightPaintStruct::KMWeightPaintStruct(KMMeshNode &mesh, KMTagBoneWeight &tag, const KMWeightBrush &brush,
                                         KMBone *bone, KMBone *partner)
    : m_mesh(mesh)
    , m_tag(tag)
    , m_brush(brush)
    , m_bones{bone, partner}
    , m_edit(&tag)
{
    const bool hasOther = partner && partner != bone;
    m_amounts[0].resize(size_t(mesh.vertexCount()));
    m_amounts[1].resize(hasOther ? size_t(mesh.vertexCount()) : 0);
}

const QVector<int> &KMWeightPaintStruct::paint(const QVector<Dab> &dabs)
{
    m_changed.clear();
    for (const Dab &dab : dabs) {
        if (dab.isOtherSide && !m_bones[1])
            continue;
        // A bone on the plane is painted on both sides.
        std::vector<float> &amounts = m_amounts[dab.isOtherSide && !m_amounts[1].empty() ? 1 : 0];
        float &amount = amounts[size_t(dab.vertex)];
        if (dab.amount <= amount)
            continue;
        amount = dab.amount;
        m_changed.append(dab.vertex);
    }
    std::sort(m_changed.begin(), m_changed.end());
    m_changed.erase(std::unique(m_changed.begin(), m_changed.end()), m_changed.end());
    const KMWeightBlur blur(m_tag); // of the weights before this move, for all vertices
    for (const int vertex : std::as_const(m_changed)) {
        const float amounts[] = {m_amounts[0][size_t(vertex)],
                                 m_amounts[1].empty() ? 0.0f : m_amounts[1][size_t(vertex)]};
        paintVertex(vertex, amounts, blur);
        for (std::vector<float> &amount : m_amounts) {
            if (m_brush.mode == KMWeightBrush::Blur && !amount.empty())
                amount[size_t(vertex)] = 0.0f;
        }
    }
    m_edit.write(KMWeightEdit::Side::After, m_changed);
    return m_changed;
}

/// From the weights before the stroke; a blur goes on from those of the last move.
void KMWeightPaintStruct::paintVertex(int vertex, const float *amounts, const KMWeightBlur &blur)
{
    const bool isBlur = m_brush.mode == KMWeightBrush::Blur;
    const bool isNamed = m_edit.isNamed(vertex);
    const KMShareView before =
        isNamed && !isBlur ? m_edit.shares(KMWeightEdit::Side::Before, vertex) : m_tag.lists().of(vertex);
    m_entries.clear();
    m_shares.clear();
    for (const KMBoneShare &share : before) {
        if (m_tag.isLive(share.bone)) {
            m_entries.append({vertex, share.weight, m_tag.bones().at(share.bone)});
            m_shares.append({share.weight, false});
        }
    }
    for (int side = 0; side < 2; ++side) {
        if (amounts[side] == 0.0f)
            continue;
        KMBone *bone = m_bones[side];
        const auto isOfBone = [bone](const BoneWeightEntry &entry) { return entry.bone == bone; };
        const int row = int(std::find_if(m_entries.begin(), m_entries.end(), isOfBone) - m_entries.begin());
        if (row == m_entries.size()) {
            m_entries.append({vertex, 0.0f, bone});
            m_shares.append({0.0f, true});
        }
        const float own = m_entries.at(row).weight;
        const float mean = isBlur ? blur.meanOf(vertex, m_tag.knownNumberOf(bone), own) : 0.0f;
        m_shares[row] = {m_brush.painted(own, amounts[side], mean), true};
    }
    if (m_brush.normalizes)
        KMWeightBrush::giveWay(m_shares);
    int kept = 0;
    for (int row = 0; row < m_entries.size(); ++row) {
        if (m_shares.at(row).weight < KMWeightBrush::Least)
            continue;
        m_entries[kept] = m_entries.at(row);
        m_entries[kept++].weight = m_shares.at(row).weight;
    }
    m_entries.resize(kept);
    m_edit.setEntries(vertex, m_entries);
}

void KMWeightPaintStruct::restore() const
{
    m_edit.write(KMWeightEdit::Side::Before);
}
