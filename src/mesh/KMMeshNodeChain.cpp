// The chain of modifiers that a mesh starts.

#include "core/KMNodeType.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMBuildModifierCommand.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"

QList<KMMeshNode::ModifierEntry> KMMeshNode::chainInTree() const
{
    QList<ModifierEntry> chain;
    for (int i = 0, n = item() ? item()->childCount() : 0; i < n; ++i) {
        KMContainerNode *child = KMTreeWidget::nodeOf(item()->child(i));
        if (!child || !isModifier(child->type()) || !child->isVisible() || child->isDeleted())
            continue;
        if (auto *modifier = dynamic_cast<KMMeshModifier *>(child))
            chain.append({true, modifier});
    }
    return chain;
}

void KMMeshNode::linkChain(const QList<ModifierEntry> &chain)
{
    for (const ModifierEntry &entry : std::as_const(m_modifiers)) {
        if (entry.second->source() != this)
            continue; // another mesh has it by now
        entry.second->detach();
        entry.second->setLast(false);
        entry.second->setNext(nullptr);
    }
    m_modifiers = chain;
    KMMeshModifier *previous = nullptr;
    for (const ModifierEntry &entry : chain) {
        entry.second->attach(this, previous);
        entry.second->setLast(false);
        entry.second->setNext(nullptr);
        if (previous)
            previous->setNext(entry.second);
        previous = entry.second;
    }
    if (previous) {
        previous->setLast(true);
        if (KMMeshNode *result = previous->modMesh())
            result->markDirty(KMMeshDirty::All);
    }
    markDirty(KMMeshDirty::All);
    markNotify(KMMeshDirty::ModifierBuilt);
}

KMUndoCommand *KMMeshNode::makeBuildCommand()
{
    return new buildModifierCommand(this);
}
