#pragma once

#include "modifiers/KMModifierNode.h"
#include "modifiers/KMResultNormals.h"
#include "rig/KMSkinning.h"

/// Deforms its input by the present pose of the bones that the input's weight tag binds it to: the mesh's own tag for
/// the first stage, that of the result before for the others. Without weights the result is a copy of the input.
///
/// The result has no weights: its vertices have moved already.
class KMModBoneDeformNode : public KMModifierNode
{
    Q_OBJECT
public:
    KMModBoneDeformNode();

    void onVertexFlagsChanged() override { carryNormals(); }
    void onWeightChanged() override;
    void onShaderChanged() override;
    void updateTags() override;
    KMModBoneDeformNode *clone() const override;

    /// Some vertices of the input have other weights: moves these alone, at once, and where a
    /// spherical blend is among them those that are blended with it. False where that isn't enough, since
    /// the result is to be made anew anyway or other stages follow it.
    bool followWeights(const QVector<int> &vertices);

protected:
    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &input, KMMeshNode &result) override;

private:
    void carryNormals();

    KMSkinning m_skinning;
    int m_sdefRevision = -1; // of the records that the result shows
    KMResultNormals m_normals;
};
