// What the dirty bits of a mesh ask for.

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMSmoothNormals.h"
#include "mesh/KMTagNormal.h"

#include <algorithm>

using namespace KMMeshDirty;

void KMMeshNode::markMoved()
{
    if (m_ownerModifier) {
        if (KMMeshNode *source = m_ownerModifier->source())
            source->markDirty(Moved);
        markDirty(ResultMoved);
    }
    markDirty(Moved);
}

void KMMeshNode::refreshMesh(quint32 mask)
{
    if (mask == 0)
        return;
    if (mask == All)
        tellTags(&KMTagBase::onFullRefresh);
    // The session refreshes before the frame does; what the chain has to follow must outlive these bits.
    if (!m_modifiers.isEmpty())
        m_chainPending |= mask & (Positions | Weights | SourceMoved);
    tellEarly(mask);
    if (refreshPositions(mask) || refreshAttributes(mask))
        return;

    refreshLiveVertices();
    const int shadersBefore = m_usedShaders.size();
    if (mask & Edges) {
        const QVector<KMEdgeState> states = takeEdges();
        refreshLiveFaces(true);
        giveBack(states);
    } else {
        refreshLiveFaces(false);
    }
    if (mask & Topology) {
        tellModifiers(&KMMeshModifier::rebuild);
        m_chainPending = 0;
    }
    if ((mask & Buffers) || m_usedShaders.size() != shadersBefore)
        markRenderDirty(RenderAll);
    finishRefresh(mask);
}

void KMMeshNode::tellEarly(quint32 mask)
{
    if (mask & Topology)
        tellModifiers(&KMMeshModifier::clearResult);
    if (mask & FaceFlags)
        tellModifiers(&KMMeshModifier::copyFaceFlags);
    if (mask & VertexFlags)
        tellModifiers(&KMMeshModifier::onVertexFlagsChanged);
    if (mask & Colors)
        markRenderDirty(RenderColors);
}

/// Answers whether the refresh ends here.
bool KMMeshNode::refreshPositions(quint32 mask)
{
    if (mask & Positions) {
        // Tags that lay offsets on the positions take them back and lay them on anew.
        tellTags(&KMTagBase::unapply);
        tellTags(&KMTagBase::apply);
        recomputeNormals(mask);
        markRenderDirty(RenderVertices);
        if (mask == Positions) {
            finishRefresh(mask);
            return true;
        }
    }
    if (mask & SourceMoved)
        tellModifiers(&KMMeshModifier::onPositionsChanged);
    if ((mask & ResultMoved) && m_ownerModifier)
        m_ownerModifier->onModMeshEdited(this);
    return false;
}

/// Answers whether the refresh ends here.
bool KMMeshNode::refreshAttributes(quint32 mask)
{
    if (mask & Weights)
        tellModifiers(&KMMeshModifier::onWeightChanged);
    if (mask == Weights) {
        finishRefresh(mask);
        return true;
    }
    if (mask & Shaders)
        tellModifiers(&KMMeshModifier::onShaderChanged);
    if (mask == Shaders) {
        finishRefresh(mask);
        return true;
    }
    return false;
}

void KMMeshNode::refreshLiveVertices()
{
    KMVertex *const *store = vertices().constData();
    m_liveVertices.resize(vertexCount());
    KMVertex **live = m_liveVertices.data();
    int count = 0;
    for (int i = 0, n = vertexCount(); i < n; ++i) {
        KMVertex *vertex = store[i];
        if (!vertex || vertex->faceRefs.isEmpty())
            continue;
        vertex->index = i;
        live[count++] = vertex;
    }
    m_liveVertices.resize(count);
}

/// Lists the live faces, counts their triangles and collects their shaders. The edges come in the same walk:
/// a large mesh doesn't fit into the cache, and a walk of their own would fetch every face again.
void KMMeshNode::refreshLiveFaces(bool withEdges)
{
    KMFace *const *store = faces().constData();
    m_liveFaces.resize(faceCount());
    KMFace **live = m_liveFaces.data();
    QSet<int> shaders;
    int lastShader = 0;
    int count = 0;
    m_triangleCount = 0;
    for (int f = 0, n = faceCount(); f < n; ++f) {
        KMFace *face = store[f];
        if (!face)
            continue;
        if (withEdges)
            insertEdgesOf(f, *face);
        if (face->isPolygon())
            m_triangleCount += face->count - 2;
        else
            face->drawn = 1;
        if (!face->isLive())
            continue;
        face->index = f;
        live[count++] = face;
        if (count == 1 || face->shader != lastShader) { // neighbours mostly share theirs
            lastShader = face->shader;
            shaders.insert(lastShader);
        }
    }
    m_liveFaces.resize(count);
    m_usedShaders = shaders.values();
    std::sort(m_usedShaders.begin(), m_usedShaders.end());
}

void KMMeshNode::recomputeNormals(quint32 mask)
{
    if (m_suspendNormals)
        return;
    auto *tag = static_cast<KMTagNormal *>(findTag(KMNodeType::TagNormal));
    if (hasDrawnNormals(tag))
        m_normals->compute(*this, tag, mask != Positions);
}

/// Only what is drawn, or read by a subdivision, needs normals: without a chain the mesh itself, else the
/// result at its end.
bool KMMeshNode::hasDrawnNormals(const KMTagBase *tag) const
{
    if (!m_ownerModifier)
        return m_modifiers.isEmpty() || tag;
    const KMMeshNode *source = m_ownerModifier->source();
    if (!source || source->m_modifiers.isEmpty())
        return false;
    const KMMeshNode *last = source->m_modifiers.last().second->modMesh();
    if (last == this || (tag && last && last->findTag(KMNodeType::TagNormal)))
        return true;
    KMMeshModifier *next = m_ownerModifier->next();
    return next && next->modifierNode()->type() == KMNodeType::ModSdv;
}

void KMMeshNode::beginFrame()
{
    if (m_dirtyMask == All || m_notifyFlags == 0)
        return;
    tellModifiers(&KMMeshModifier::updateTags);
    const QList<KMTagBase *> told = tags();
    for (KMTagBase *tag : told) {
        if (!tag->isDeleted())
            tag->onNodeEvent(m_notifyFlags);
    }
    m_notifyFlags = 0;
}

void KMMeshNode::evaluateModifiers()
{
    m_chainPending = 0;
    const QList<ModifierEntry> chain = m_modifiers;
    const auto needsRebuild = [](const ModifierEntry &entry) { return entry.second->update(); };
    for (auto entry = std::find_if(chain.cbegin(), chain.cend(), needsRebuild); entry != chain.cend(); ++entry)
        entry->second->rebuild();
}

void KMMeshNode::refreshAfterEdit()
{
    refreshMesh(m_dirtyMask);
}

void KMMeshNode::notifyDependents()
{
    beginFrame();
    if (m_chainPending)
        evaluateModifiers();
}

void KMMeshNode::forceFullRefresh()
{
    refreshMesh(All);
}
