#pragma once

#include "core/KMNullNode.h"
#include "math/Matrix4.h"
#include "mesh/KMMeshDirty.h"
#include "mesh/KMMeshStore.h"

#include <QList>
#include <QPair>
#include <QSet>
#include <QVector>

#include <memory>
#include <vector>

class KMFloatNode;
class KMMeshModifier;
class KMMeshRenderData;
class KMSmoothNormals;

/// A node that owns a mesh, with its selection, its dirty state and its chain of modifiers. Results of
/// modifiers and primitives are meshes too, with an owner and outside the tree.
///
/// Positions are in world space; the transform of the node is only its frame: symmetry plane, axes, handles.
/// Edits raise dirty bits, and refreshMesh() computes what they ask for. A refresh touches this mesh only, so
/// meshes may be refreshed at the same time on different threads.
class KMMeshNode : public KMNullNode, public KMMeshStore
{
    Q_OBJECT
public:
    using ModifierEntry = QPair<bool, KMMeshModifier *>; ///< with its enable state when the chain was built

    static constexpr float DefaultSmoothAngle = 60.0f; // degrees

    KMMeshNode();
    ~KMMeshNode() override;

    // Dirty state

    void markDirty(quint32 mask) { m_dirtyMask |= mask; }
    void requestRefresh(quint32 mask) { markDirty(mask); }
    void markMoved(); ///< positions were changed, also for the chain that this mesh starts or belongs to
    quint32 dirtyMask() const { return m_dirtyMask; }
    void setDirtyMask(quint32 mask) { m_dirtyMask = mask; }
    quint32 renderDirty() const { return m_renderDirty; }
    void markRenderDirty(quint32 mask) { m_renderDirty |= mask; }
    void clearRenderDirty(quint32 mask) { m_renderDirty &= ~mask; }
    quint32 renderFlags() const { return m_renderFlags; } ///< draw switches of the frame
    void setRenderFlags(quint32 flags) { m_renderFlags = flags; }
    quint32 notifyFlags() const { return m_notifyFlags; }
    void markNotify(quint32 flags) { m_notifyFlags |= flags; } ///< for the tags and the chain, once, at the next frame
    bool isNormalsSuspended() const { return m_suspendNormals != 0; }
    void suspendNormals() { ++m_suspendNormals; } ///< until as many calls of resumeNormals()
    void resumeNormals() { --m_suspendNormals; }

    /// Computes what the mask names and takes it off the dirty mask; nothing for 0. Exactly 1, 32 and 64 end
    /// early and leave the live lists alone.
    void refreshMesh(quint32 mask);
    void recomputeNormals(quint32 mask); ///< exactly 1: the faces are as they were at the last refresh
    void beginFrame();                   ///< hands pending notifications to tags and chain
    /// A refresh took bits that the results of the chain don't show yet.
    bool isChainPending() const { return m_chainPending; }
    void evaluateModifiers(); ///< brings the results of the chain up to date; main thread only

    // Derived by the refresh

    const QVector<KMVertex *> &liveVertices() const { return m_liveVertices; } ///< used by a face
    const QVector<KMFace *> &liveFaces() const { return m_liveFaces; }         ///< of two corners or more
    const QList<int> &usedShaders() const { return m_usedShaders; } ///< of the live faces, ascending, each once
    int triangleCount() const { return m_triangleCount; }

    // Flags. A change raises what chain and renderer wait for; a null slot is ignored

    void setVertexFlag(int i, quint8 bit);
    void clearVertexFlag(int i, quint8 bit);
    void setFaceFlag(int f, quint8 bit);
    void clearFaceFlag(int f, quint8 bit);
    void setCornerFlag(int f, int corner, quint8 bit);
    void clearCornerFlag(int f, int corner, quint8 bit);
    void setEdgeFlag(int a, int b, quint8 bit);
    void clearEdgeFlag(int a, int b, quint8 bit);
    void setEdgeFlag(KMEdge *edge, quint8 bit);
    void clearEdgeFlag(KMEdge *edge, quint8 bit);
    void clearAllEdgeFlags(quint8 bit); ///< the highlight goes with both of its stages

    // Attributes

    float smoothAngle() const; ///< degrees
    void setSmoothAngle(float degrees);
    KMFloatNode *smoothAngleNode() const { return m_smoothAngle; }
    void setTransform(const KMTransform &transform) override; ///< moves the frame, not the vertices

    // Tags and modifiers

    KMTagBase *findTag(int type) const;                                   ///< the first live one of the type, else null
    const QList<ModifierEntry> &modifiers() const { return m_modifiers; } ///< in evaluation order
    void addModifierEntry(bool enabled, KMMeshModifier *modifier);
    void removeModifierEntry(KMMeshModifier *modifier);
    void clearModifierEntries() { m_modifiers.clear(); }
    QList<ModifierEntry> chainInTree() const; ///< the modifiers below it in the tree that are switched on
    /// Takes the present chain apart and makes these its stages, each working on the result of the one before.
    void linkChain(const QList<ModifierEntry> &chain);
    KMMeshModifier *findModifierOfType(int type) const;               ///< the first enabled one, else null
    KMContainerNode *ownerNode() const { return m_ownerNode; }        ///< modifier or primitive that made it, else null
    KMMeshModifier *ownerModifier() const { return m_ownerModifier; } ///< null unless it is a modifier's result
    void setOwner(KMContainerNode *node, KMMeshModifier *modifier = nullptr);

    // Selection

    std::vector<bool> selectionMarks() const; ///< a mark for each vertex slot that a selected element touches now
    void rebuildSelectionCache();
    const QSet<int> &selectedVertices() const { return m_selectedVertices; } ///< touched by any selected element
    const QSet<int> &selectedFaces() const { return m_selectedFaces; }
    const QVector<kvm::Vector3> &selectionPositions() const { return m_selectionPositions; } ///< a slot for each vertex
    const kvm::Vector3 &selectionCentre() const { return m_selectionCentre; }
    void rememberVertex(int i);     ///< its present position becomes the remembered one
    void joinSelectionCache(int i); ///< a vertex that isn't selected, and that a drag takes along
    /// Stores all positions. tellChildren: those without the offsets that tags lay on.
    void rememberPositions(bool tellChildren);
    const QVector<float> &memoryPositions() const { return m_memoryPositions; } ///< three for each vertex slot

    // View

    /// Screen positions of the live vertices: pixels from the upper left corner, and depth.
    void projectVertices(const kvm::Matrix4 &viewProjection, int width, int height);
    /// Marks faces, edges and vertices that the view shows, by the screen positions and the hidden flags. Answers
    /// whether that is anything else than before. isSameShape: edges and vertices are those of the last call.
    bool updateDrawn(bool backFaceCulling, bool isSameShape = false);
    KMMeshRenderData *renderer() const { return m_renderer.get(); }
    void setRenderer(std::unique_ptr<KMMeshRenderData> renderer);

    // Whole mesh

    void clearGeometry();
    void compact();                      ///< renumbers at once; only where no step of the history knows the old indices
    void applyCompact(Dropped *dropped); ///< for the command: renumbers and tells tags and chain
    void applyExpand(const Dropped &dropped);
    /// For a tag that is told to renumber: what it had of the slots that go stays with the step of the history that
    /// took them, and goes with it. Nothing is kept while slots come back.
    template <class Loss>
    void keepLoss(const KMTagBase *tag, const Loss &loss)
    {
        if (m_closing)
            m_closing->tags.insert(tag, std::make_shared<Loss>(loss));
    }
    /// What the tag gave away when the slots went that come back now; null when there is nothing.
    template <class Loss>
    const Loss *lossOf(const KMTagBase *tag) const
    {
        return m_opening ? static_cast<const Loss *>(m_opening->tags.value(tag).get()) : nullptr;
    }

    // Hooks of the session

    KMMeshNode *clone() const override;
    bool isRefreshDeferred() const override { return m_refreshDeferred; }
    void setRefreshDeferred(bool deferred) { m_refreshDeferred = deferred; }
    void refreshAfterEdit() override;
    void notifyDependents() override;
    void forceFullRefresh() override;
    QSet<int> shaderReferences() const override; ///< of the faces as they are now, refreshed or not
    void pushShaderRemoved(int index) override;
    void tagsChanged() override { markDirty(KMMeshDirty::All); }
    bool isChainStale() const override { return chainInTree() != m_modifiers; }
    KMUndoCommand *makeBuildCommand() override;

private:
    void onSelectionChanged(bool selected);
    void tellTags(void (KMTagBase::*hook)());
    void tellModifiers(void (KMMeshModifier::*hook)());
    void tellEarly(quint32 mask);
    bool tellsOnTheWay(quint32 mask) const;
    bool refreshPositions(quint32 mask, bool areCornersRead);
    bool refreshAttributes(quint32 mask);
    void refreshRecords(bool withEdges);
    void refreshLiveVertices();
    void refreshLiveFaces();
    void computeNormals(bool force, bool areCornersRead);
    void finishRefresh(quint32 mask) { m_dirtyMask &= ~mask; }
    void changeFlags(quint8 &flags, quint8 bit, bool on, quint32 mask);
    bool hasDrawnNormals(const KMTagBase *tag) const;
    void afterRenumbering();
    bool hasAllCorners(const KMFace &face) const;
    bool turnsToView(const KMFace &face) const;
    float screenOrientation(const KMFace &face, int b, int c) const;

    std::unique_ptr<KMMeshRenderData> m_renderer; // null without a view
    std::unique_ptr<KMSmoothNormals> m_normals;
    QVector<KMVertex *> m_liveVertices;
    QVector<KMFace *> m_liveFaces;
    QList<int> m_usedShaders;
    QSet<int> m_selectedVertices;
    QSet<int> m_selectedFaces;
    QVector<kvm::Vector3> m_selectionPositions;
    QVector<float> m_memoryPositions;
    Dropped *m_closing = nullptr;       // while tags are told that slots went
    const Dropped *m_opening = nullptr; // while they are told that slots came back
    kvm::Vector3 m_selectionCentre;
    QList<ModifierEntry> m_modifiers; // not owned
    int m_triangleCount = 0;
    quint32 m_dirtyMask = KMMeshDirty::All;
    quint32 m_renderDirty = KMMeshDirty::RenderAll;
    quint32 m_renderFlags = 0;
    quint32 m_notifyFlags = 0;
    quint32 m_chainPending = 0; // what a refresh took and the chain's results don't show yet
    quint16 m_suspendNormals = 0;
    bool m_refreshDeferred = false;
    KMFloatNode *m_smoothAngle;                // owned
    KMContainerNode *m_ownerNode = nullptr;    // not owned
    KMMeshModifier *m_ownerModifier = nullptr; // the same node, where it is a modifier
};
