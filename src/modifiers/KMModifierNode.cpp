#include "modifiers/KMModifierNode.h"

#include "core/KMVariantNode.h"
#include "mesh/KMMeshNode.h"

#include <algorithm>

KMModifierNode::KMModifierNode(int type, const QString &name)
    : m_modMesh(new KMMeshNode)
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
    rebuildResult(*from, *m_modMesh);
    m_modMesh->markDirty(KMMeshDirty::All);
    update();
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
        const KMFace *face = from->face(f);
        const KMFace *own = m_modMesh->face(m_faceMap.at(f));
        if (!face || !own)
            continue;
        for (const quint8 bit : {KMElementFlag::Selected, KMElementFlag::Hidden}) {
            if (face->hasFlag(bit))
                m_modMesh->setFaceFlag(m_faceMap.at(f), bit);
            else
                m_modMesh->clearFaceFlag(m_faceMap.at(f), bit);
        }
    }
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
