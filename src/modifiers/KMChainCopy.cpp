#include "modifiers/KMChainCopy.h"

#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"

KMChainCopy::KMChainCopy(const KMMeshNode &source)
    : m_source(source.clone())
{
    QList<KMMeshNode::ModifierEntry> chain;
    for (const KMMeshNode::ModifierEntry &entry : source.modifiers()) {
        m_stages.emplace_back(entry.second->modifierNode()->clone());
        if (auto *modifier = dynamic_cast<KMMeshModifier *>(m_stages.back().get())) {
            m_chain.push_back(modifier);
            chain.append({entry.first, modifier});
        }
    }
    m_source->linkChain(chain);
}

KMChainCopy::~KMChainCopy() = default;

void KMChainCopy::evaluate()
{
    m_source->refreshMesh(KMMeshDirty::All);
    if (KMMeshNode *result = last())
        result->refreshMesh(KMMeshDirty::All);
}

void KMChainCopy::follow()
{
    m_source->refreshMesh(KMMeshDirty::Moved);
    m_source->evaluateModifiers();
}

KMMeshNode *KMChainCopy::last() const
{
    return m_chain.empty() ? nullptr : m_chain.back()->modMesh();
}
