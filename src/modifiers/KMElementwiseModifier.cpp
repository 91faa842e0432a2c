#include "modifiers/KMElementwiseModifier.h"

#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"
#include "modifiers/KMResultLimit.h"

KMElementwiseModifier::KMElementwiseModifier(int type, const QString &name)
    : KMModifierNode(type, name)
    , m_normals(*modMesh())
{
}

void KMElementwiseModifier::rebuildResult(KMMeshNode &input, KMMeshNode &result)
{
    if (!KMResultLimit::allows(name(), input.vertexCount(), input.faceCount()))
        return;
    KMResultCopy::copyMesh(input, result, m_vertexMap, m_faceMap);
    result.buildEdges();
    onWeightChanged();
}

bool KMElementwiseModifier::takeUVs(const KMMeshNode &input, KMMeshNode &result)
{
    KMResultCopy::copyUVs(input, result, m_faceMap);
    return true;
}

void KMElementwiseModifier::onWeightChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyWeights(*from, *modMesh(), m_vertexMap);
}

void KMElementwiseModifier::onShaderChanged()
{
    if (const KMMeshNode *from = input())
        KMResultCopy::copyShaders(*from, *modMesh(), m_faceMap);
}

void KMElementwiseModifier::updateTags()
{
    KMModifierNode::updateTags();
    carryNormals();
}

void KMElementwiseModifier::carryNormals()
{
    const KMMeshNode *from = input();
    if (from && m_normals.begin(*from))
        m_normals.carry(
            *from, [this](int i) { return vertexMapAt(i); }, m_faceMap);
}
