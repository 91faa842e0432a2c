// What the dirty bits of a mesh ask for.

#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "mesh/KMFetchAhead.h"
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
    for (int i = 0; i < tagCount(); ++i) {
        if (!tag(i)->isDeleted())
            tag(i)->rebuildWeights(int(mask));
    }
    // The session refreshes before the frame does; what the chain has to follow must outlive these bits.
    if (!m_modifiers.isEmpty())
        m_chainPending |= mask & (Positions | Weights | SourceMoved);
    tellEarly(mask);
    const int shadersBefore = m_usedShaders.size();
    const bool readsRecords = (mask & ~KeepRecords) && mask != Shaders;
    // Whoever is told below finds the lists as of the last refresh, and what it changes enters them. Where nobody is,
    // they come first: the one walk reads the corners for the normals as well.
    const bool isFirst = readsRecords && !tellsOnTheWay(mask);
    if (isFirst)
        refreshRecords(mask & Edges);
    if (refreshPositions(mask, isFirst) || refreshAttributes(mask))
        return;
    if (readsRecords && !isFirst)
        refreshRecords(mask & Edges);

    if (mask & Topology) {
        tellModifiers(&KMMeshModifier::rebuild);
        m_chainPending = 0;
    }
    if ((mask & Buffers) || m_usedShaders.size() != shadersBefore)
        markRenderDirty(RenderAll);
    finishRefresh(mask);
}

/// Whether tags or stages of a chain hear of the refresh before the lists are to follow.
bool KMMeshNode::tellsOnTheWay(quint32 mask) const
{
    return !m_modifiers.isEmpty() || ((mask & Positions) && liveTagCount() > 0)
           || ((mask & ResultMoved) && m_ownerModifier);
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
bool KMMeshNode::refreshPositions(quint32 mask, bool areCornersRead)
{
    if (mask & Positions) {
        // Tags that lay offsets on the positions take them back and lay them on anew.
        {
            const KMBasePositions laidAnew(this);
        }
        computeNormals(mask & ~KeepRecords, areCornersRead);
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
        fetchAhead(store, i, n);
        KMVertex *vertex = store[i];
        if (!vertex || vertex->faceRefs.isEmpty())
            continue;
        if (vertex->index != i) // a record that isn't written to needn't go back to memory
            vertex->index = i;
        live[count++] = vertex;
    }
    m_liveVertices.resize(count);
    if (count < vertexCount() / 2)
        m_liveVertices.squeeze();
}

void KMMeshNode::refreshRecords(bool withEdges)
{
    refreshLiveVertices();
    refreshLiveFaces();
    if (withEdges)
        updateEdges();
}

/// Lists the live faces, counts their triangles and collects their shaders. The corners are read in the same walk:
/// a large mesh doesn't fit into the cache, and a walk of their own would fetch every face again.
void KMMeshNode::refreshLiveFaces()
{
    beginCorners();
    KMFace *const *store = faces().constData();
    m_liveFaces.resize(faceCount());
    KMFace **live = m_liveFaces.data();
    QSet<int> shaders;
    int lastShader = 0;
    int count = 0;
    m_triangleCount = 0;
    for (int f = 0, n = faceCount(); f < n; ++f) {
        fetchAhead(store, f, n);
        KMFace *face = store[f];
        takeCorners(f, face);
        if (!face)
            continue;
        if (face->isPolygon())
            m_triangleCount += face->count - 2;
        else if (!face->drawn)
            face->drawn = 1;
        if (!face->isLive())
            continue;
        if (face->index != f)
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
    computeNormals(mask & ~KeepRecords, false);
}

void KMMeshNode::computeNormals(bool force, bool areCornersRead)
{
    if (m_suspendNormals)
        return;
    auto *tag = static_cast<KMTagNormal *>(findTag(KMNodeType::TagNormal));
    if (!hasDrawnNormals(tag) || (faceCount() == 0 && !tag))
        return;
    const bool areOthers = corners().faceCount() != faceCount() || corners().vertexCount() != vertexCount();
    if (areOthers || (force && !areCornersRead))
        readCorners();
    m_normals->compute(*this, tag, force);
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

/// Rigs are refreshed after the meshes, and a pose marks those that follow it.
void KMMeshNode::notifyDependents()
{
    if (m_dirtyMask == Positions && !m_modifiers.isEmpty())
        refreshMesh(m_dirtyMask);
    beginFrame();
    if (m_chainPending)
        evaluateModifiers();
}

void KMMeshNode::forceFullRefresh()
{
    refreshMesh(All);
}
