#include "mesh/KMMeshNode.h"

#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMTagBase.h"
#include "core/KMVariantNode.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshRenderData.h"
#include "mesh/KMSmoothNormals.h"

KMMeshNode::KMMeshNode()
    : m_normals(std::make_unique<KMSmoothNormals>())
    , m_smoothAngle(new KMFloatNode(this))
{
    setType(KMNodeType::Mesh);
    setName(tr("Mesh"));
    m_smoothAngle->setObjectName(QStringLiteral("smooth angle"));
    m_smoothAngle->setFloat(DefaultSmoothAngle);
    addNodePort(visibleNode(), QStringLiteral("visible"));
    addNodePort(lockedNode(), QStringLiteral("locked"));
    addNodePort(m_smoothAngle, QStringLiteral("smooth angle"));
    connect(visibleNode(), &KMVariantNode::refresh, this, [this] { markDirty(KMMeshDirty::All); });
    connect(m_smoothAngle, &KMVariantNode::refresh, this, [this] {
        if (faceCount() > 0)
            markDirty(KMMeshDirty::Positions);
    });
    connect(this, &KMContainerNode::selectionChanged, this, &KMMeshNode::onSelectionChanged);
}

KMMeshNode::~KMMeshNode()
{
    for (const ModifierEntry &entry : std::as_const(m_modifiers)) {
        if (entry.second->source() == this)
            entry.second->detach();
    }
    delete m_smoothAngle;
}

void KMMeshNode::onSelectionChanged(bool)
{
    markDirty(KMMeshDirty::Colors); // a mesh shows its elements otherwise while it is selected
}

void KMMeshNode::setRenderer(std::unique_ptr<KMMeshRenderData> renderer)
{
    m_renderer = std::move(renderer);
}

float KMMeshNode::smoothAngle() const
{
    return m_smoothAngle->toFloat();
}

void KMMeshNode::setSmoothAngle(float degrees)
{
    m_smoothAngle->setFloat(degrees);
}

void KMMeshNode::setTransform(const KMTransform &transform)
{
    KMNullNode::setTransform(transform);
    // Symmetry planes and normals fixed in the frame follow it.
    markDirty(KMMeshDirty::Moved);
    if (!m_modifiers.isEmpty() && findTag(KMNodeType::TagNormal))
        markDirty(KMMeshDirty::VertexFlags); // results carry them in the world
}

KMTagBase *KMMeshNode::findTag(int type) const
{
    for (int i = 0; i < tagCount(); ++i) {
        KMTagBase *candidate = tag(i);
        if (!candidate->isDeleted() && candidate->type() == type)
            return candidate;
    }
    return nullptr;
}

void KMMeshNode::tellTags(void (KMTagBase::*hook)())
{
    const QList<KMTagBase *> told = tags();
    for (KMTagBase *tag : told) {
        if (!tag->isDeleted())
            (tag->*hook)();
    }
}

void KMMeshNode::addModifierEntry(bool enabled, KMMeshModifier *modifier)
{
    m_modifiers.append({enabled, modifier});
}

void KMMeshNode::removeModifierEntry(KMMeshModifier *modifier)
{
    const auto isEntry = [modifier](const ModifierEntry &entry) { return entry.second == modifier; };
    const auto entry = std::find_if(m_modifiers.begin(), m_modifiers.end(), isEntry);
    if (entry != m_modifiers.end())
        m_modifiers.erase(entry);
}

KMMeshModifier *KMMeshNode::findModifierOfType(int type) const
{
    for (const ModifierEntry &entry : m_modifiers) {
        const KMContainerNode *node = entry.second->modifierNode();
        if (entry.first && !node->isDeleted() && node->type() == type)
            return entry.second;
    }
    return nullptr;
}

void KMMeshNode::tellModifiers(void (KMMeshModifier::*hook)())
{
    const QList<ModifierEntry> told = m_modifiers;
    for (const ModifierEntry &entry : told)
        (entry.second->*hook)();
}

void KMMeshNode::setOwner(KMContainerNode *node, KMMeshModifier *modifier)
{
    m_ownerNode = node;
    m_ownerModifier = modifier;
}

void KMMeshNode::clearGeometry()
{
    clearRecords();
    m_liveVertices = {};
    m_liveFaces = {};
    m_usedShaders.clear();
    m_selectedVertices.clear();
    m_selectedFaces.clear();
    m_selectionPositions.clear();
    m_memoryPositions.clear();
    m_triangleCount = 0;
    markDirty(KMMeshDirty::All);
}

KMMeshNode *KMMeshNode::clone() const
{
    auto *copy = new KMMeshNode;
    {
        const KMBasePositions base(this); // the copies of the tags lay their offsets on anew
        copy->copyRecords(*this);         // before the tags, which follow the records
    }
    copyNullTo(copy);
    copy->setSmoothAngle(smoothAngle());
    copy->refreshMesh(KMMeshDirty::All);
    copy->markDirty(KMMeshDirty::All);
    return copy;
}

void KMMeshNode::compact()
{
    applyCompact(nullptr);
}

void KMMeshNode::applyCompact(Dropped *dropped)
{
    Dropped taken = compactStore();
    m_closing = &taken;
    afterRenumbering();
    m_closing = nullptr;
    if (dropped)
        *dropped = std::move(taken);
}

void KMMeshNode::applyExpand(const Dropped &dropped)
{
    expandStore(dropped);
    m_opening = &dropped;
    afterRenumbering();
    m_opening = nullptr;
}

void KMMeshNode::afterRenumbering()
{
    // What was remembered by index means other vertices now.
    m_selectedVertices.clear();
    m_selectedFaces.clear();
    m_selectionPositions.clear();
    m_memoryPositions.clear();
    tellTags(&KMTagBase::remapIndices);
    tellModifiers(&KMMeshModifier::remapIndices);
    markDirty(KMMeshDirty::All);
}
