#pragma once

#include "modifiers/KMElementwiseModifier.h"
#include "rig/KMSkinning.h"
#include "rig/KMWeightStage.h"

/// Deforms its input by the present pose of the bones that the input's weight tag binds it to: the mesh's own tag for
/// the first stage, that of the result before for the others. Without weights the result is a copy of the input.
///
/// The result has no weights: its vertices have moved already.
class KMModBoneDeformNode : public KMElementwiseModifier, public KMWeightStage
{
    Q_OBJECT
public:
    KMModBoneDeformNode();

    KMModBoneDeformNode *clone() const override;

    /// Moves these, and those whose spherical blends depend on them.
    bool followWeights(const QVector<int> &vertices) override;

protected:
    bool updateResult(const KMMeshNode &input, KMMeshNode &result) override;

private:
    KMSkinning m_skinning;
    int m_sdefRevision = -1; // of the records that the result shows
    QVector<int> m_others;   // kept for its memory
};
