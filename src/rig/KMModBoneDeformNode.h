#pragma once

#include "modifiers/KMElementwiseModifier.h"
#include "rig/KMSkinning.h"

/// Deforms its input by the present pose of the bones that the input's weight tag binds it to: the mesh's own tag for
/// the first stage, that of the result before for the others. Without weights the result is a copy of the input.
///
/// The result has no weights: its vertices have moved already.
class KMModBoneDeformNode : public KMElementwiseModifier
{
    Q_OBJECT
public:
    KMModBoneDeformNode();

    KMModBoneDeformNode *clone() const override;

    /// Some vertices of the input have other weights: moves these alone, at once, and those whose spherical blends
    /// depend on them. False where that isn't enough, since the result is to be made anew anyway or other stages follow
    /// it.
    bool followWeights(const QVector<int> &vertices);

protected:
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;

private:
    KMSkinning m_skinning;
    int m_sdefRevision = -1; // of the records that the result shows
    QVector<int> m_others;   // kept for its memory
};
