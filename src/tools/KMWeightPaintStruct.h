#pragma once

#include "rig/KMWeightEdit.h"
#include "tools/KMWeightBrush.h"

#include <QVector>

#include <vector>

class KMBone;
class KMMeshNode;
class KMTagBoneWeight;
class KMWeightBlur;

/// A stroke of the bone-weight tool: which bone it paints, on the other side of the plane of symmetry which partner,
/// and how strongly it has touched each vertex. The tag shows the stroke while it goes on; what it touched alone is
/// written.
class KMWeightPaintStruct
{
public:
    /// A vertex under the brush. On the other side it is painted with the partner.
    struct Dab
    {
        int vertex;
        float amount;
        bool isOtherSide;
    };

    /// The tag is on the mesh. The partner is null where nothing is mirrored; it may be the bone itself.
    KMWeightPaintStruct(KMMeshNode &mesh, KMTagBoneWeight &tag, const KMWeightBrush &brush, KMBone *bone,
                        KMBone *partner);

    KMBone *bone() const { return m_bones[0]; }
    KMTagBoneWeight &tag() const { return m_tag; }
    const KMWeightBrush &brush() const { return m_brush; }
    /// Paints, and answers the vertices with other weights than before.
    const QVector<int> &paint(const QVector<Dab> &dabs);
    void restore() const; ///< the tag has the weights from before the stroke
    const KMWeightEdit &edit() const { return m_edit; }

private:
    void paintVertex(int vertex, const float *amounts, const KMWeightBlur &blur);

    KMMeshNode &m_mesh;
    KMTagBoneWeight &m_tag;
    KMWeightBrush m_brush;
    KMBone *m_bones[2];
    std::vector<float> m_amounts[2]; // by vertex: the greatest of the stroke, or that of this move for Blur
    KMWeightEdit m_edit;
    QVector<int> m_changed;
    QVector<KMWeightBrush::Share> m_shares;
    QVector<BoneWeightEntry> m_entries;
};
