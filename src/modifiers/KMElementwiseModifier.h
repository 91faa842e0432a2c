#pragma once

#include "modifiers/KMModifierNode.h"
#include "modifiers/KMResultNormals.h"

/// A stage whose result has the vertices, faces and edges of its input, one for one. The classes say where the vertices
/// go, by updateResult(), and which weights they have.
class KMElementwiseModifier : public KMModifierNode
{
    Q_OBJECT
public:
    void onVertexFlagsChanged() override { carryNormals(); }
    void onWeightChanged() override;
    void onShaderChanged() override;
    void updateTags() override;

protected:
    KMElementwiseModifier(int type, const QString &name);

    void rebuildResult(KMMeshNode &input, KMMeshNode &result) override;
    bool takeUVs(const KMMeshNode &input, KMMeshNode &result) override;

private:
    void carryNormals();

    KMResultNormals m_normals;
};
