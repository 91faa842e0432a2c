#include "modifiers/KMModifierNode.h"

#include "core/KMVariantNode.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMResultCopy.h"

#include <algorithm>

KMModifierNode::KMModifierNode(int type, const QString &name)
    : m_modMesh(new KMMeshNode)
    , m_weights(*m_modMesh)
{
    setType(type);
    setName(name);
    m_modMesh->setOwner(this, this);
    addNodePort(visibleNode(), QStringLiteral("visible"));
    addNodePort(lockedNode(), QStringLiteral("locked"));
}

KMModifierNode::~KMModifierNode()
{
    if (m_source) {
        KMMeshNode *source = m_source;
        QList<KMMeshNode::ModifierEntry> rest = source->modifiers();
        const auto isOwn = [this](const KMMeshNode::ModifierEntry &entry) { return entry.second == this; };
        rest.erase(std::remove_if(rest.begin(), rest.end(), isOwn), rest.end());
        source->linkChain(rest);
    }
    delete m_modMesh;
}

KMMeshNode *KMModifierNode::input() const
{
    return m_previous ? m_previous->modMesh() : m_source;
}

void KMModifierNode::attach(KMMeshNode *source, KMMeshModifier *previous)
{
    m_source = source;
    m_previous = previous;
}

void KMModifierNode::detach()
{
    m_source = nullptr;
    m_previous = nullptr;
    m_next = nullptr;
    m_isLast = false;
    clearResult();
}

void KMModifierNode::clearTables()
{
    m_vertexMap.clear();
    m_faceMap.clear();
    m_cornerMap.clear();
    freeTables();
}

void KMModifierNode::clearResult()
{
    clearTables();
    m_modMesh->clearGeometry();
}

void KMModifierNode::rebuild()
{
    KMMeshNode *from = input();
    if (!from)
        return;
    m_isStale = false;
    clearResult();
    if (m_modMesh->name() != from->name())
        m_modMesh->setName(from->name());
    if (m_previous)
        from->rebuildEdges(); // the refresh that would do it comes after the whole chain
    m_isRebuilding = true;
    rebuildResult(*from, *m_modMesh);
    m_modMesh->markDirty(KMMeshDirty::All);
    update();
    m_isRebuilding = false;
    copyFaceFlags();
    updateTags();
}

bool KMModifierNode::update()
{
    const KMMeshNode *from = input();
    if (!from || m_isStale)
        return m_isStale && from;
    const bool isOther = updateResult(*from, *m_modMesh);
    if (m_modMesh->smoothAngle() != from->smoothAngle())
        m_modMesh->setSmoothAngle(from->smoothAngle());
    m_modMesh->markDirty(isOther ? KMMeshDirty::All : KMMeshDirty::Positions);
    return isOther;
}

void KMModifierNode::copyFaceFlags()
{
    const KMMeshNode *from = input();
    if (!from)
        return;
    for (int f = 0, n = qMin(m_faceMap.size(), from->faceCount()); f < n; ++f) {
        if (from->face(f) && m_modMesh->face(m_faceMap.at(f)))
            KMResultCopy::copyFlags(from->face(f), *m_modMesh, m_faceMap.at(f));
    }
}

void KMModifierNode::updateTags()
{
    if (const KMMeshNode *from = input())
        carryWeights(*from, m_weights);
}

/// The next one that has a result to be kept. While that of this stage is made anew those behind wait for the same.
KMModifierNode *KMModifierNode::stageBehind() const
{
    auto *behind = m_next && !m_isRebuilding ? qobject_cast<KMModifierNode *>(m_next->modifierNode()) : nullptr;
    return behind && !behind->m_isStale ? behind : nullptr;
}

void KMModifierNode::passWeightsOn()
{
    for (KMModifierNode *behind = stageBehind(); behind; behind = behind->stageBehind())
        behind->carryWeights(*behind->input(), behind->m_weights);
}

void KMModifierNode::passUVsOn()
{
    KMModifierNode *behind = stageBehind();
    if (!behind)
        return;
    if (behind->takeUVs(*m_modMesh, *behind->m_modMesh))
        behind->passUVsOn();
    else
        behind->m_isStale = true;
}

void KMModifierNode::refresh(KMNode *)
{
    m_isStale = true;
    markMoved();
}

void KMModifierNode::markMoved()
{
    if (m_source)
        m_source->markDirty(KMMeshDirty::Moved);
}

void KMModifierNode::setTransform(const KMTransform &transform)
{
    KMNullNode::setTransform(transform);
    markMoved();
}

QList<KMContainerNode *> KMModifierNode::evaluatedMeshes() const
{
    return {m_modMesh};
}
