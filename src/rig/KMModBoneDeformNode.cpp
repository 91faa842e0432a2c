#include "rig/KMModBoneDeformNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMFetchAhead.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"
#include "rig/KMTagBoneWeight.h"

#include <algorithm>

KMModBoneDeformNode::KMModBoneDeformNode()
    : KMElementwiseModifier(KMNodeType::ModBoneDeform, tr("BoneDeform"))
{
}

bool KMModBoneDeformNode::updateResult(const KMMeshNode &input, KMMeshNode &result)
{
    const auto *tag = static_cast<const KMTagBoneWeight *>(input.findTag(KMNodeType::TagBoneWeight));
    if (!tag) {
        KMResultCopy::copyPositions(input, result, m_vertexMap);
        return false;
    }
    const KMWeightRecords &records = tag->records();
    m_skinning.prepare(*tag, records);
    m_sdefRevision = records.sdefRevision();
    KMVertex *const *from = input.vertices().constData();
    KMVertex *const *own = result.vertices().constData();
    const int *map = m_vertexMap.constData();
    const int ownCount = result.vertexCount();
    for (int i = 0, n = qMin(m_vertexMap.size(), input.vertexCount()); i < n; ++i) {
        fetchAhead(from, i, n);
        fetchAhead(own, i, ownCount);
        if (from[i] && map[i] >= 0)
            own[map[i]]->pos = m_skinning(i, from[i]->pos);
    }
    return false;
}

bool KMModBoneDeformNode::followWeights(const QVector<int> &vertices)
{
    const KMMeshNode *from = input();
    const auto *tag = from ? static_cast<const KMTagBoneWeight *>(from->findTag(KMNodeType::TagBoneWeight)) : nullptr;
    if (!tag || next() || isStale() || isBypassed() || m_vertexMap.size() != from->vertexCount())
        return false;
    const KMWeightRecords &records = tag->editedRecords();
    m_skinning.prepare(*tag, records);
    const auto move = [this, from](int i) {
        KMVertex *own = modMesh()->vertex(vertexMapAt(i));
        if (own && from->vertex(i))
            own->pos = m_skinning(i, from->position(i));
    };
    std::for_each(vertices.begin(), vertices.end(), move);
    m_others.clear();
    const bool areKnown = records.derivedSince(m_sdefRevision, m_others);
    const QVector<int> &others = areKnown ? m_others : tag->sdefVertices();
    std::for_each(others.begin(), others.end(), move);
    m_sdefRevision = records.sdefRevision();
    modMesh()->markDirty(KMMeshDirty::Positions);
    return true;
}

KMModBoneDeformNode *KMModBoneDeformNode::clone() const
{
    auto *copy = new KMModBoneDeformNode;
    copyNullTo(copy);
    return copy;
}
