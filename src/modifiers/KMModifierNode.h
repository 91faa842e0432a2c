#pragma once

#include "core/KMNullNode.h"
#include "mesh/KMMeshModifier.h"
#include "modifiers/KMResultWeights.h"

#include <QVector>

class KMMeshNode;

/// A stage of the chain below a mesh: it makes a second mesh from what the stage before made, or from the mesh itself
/// when it is the first, and never touches that.
///
/// A concrete class says how its result is made anew (rebuildResult) and how it follows a move of the input without
/// new memory (updateResult); it keeps the tables of the base where other stages follow elements through the chain.
/// The base does the frame around both, and knows when a stage has to be made anew.
///
/// Its transform is its place in the world.
class KMModifierNode : public KMNullNode, public KMMeshModifier
{
    Q_OBJECT
public:
    ~KMModifierNode() override;

    KMContainerNode *modifierNode() override { return this; }
    KMMeshNode *modMesh() const override { return m_modMesh; }
    KMMeshNode **modMeshSlot() { return &m_modMesh; } ///< where its result is kept
    KMMeshNode *source() const override { return m_source; }
    KMMeshModifier *previous() const override { return m_previous; }
    KMMeshModifier *next() const override { return m_next; }
    KMMeshNode *
    input() const; ///< what it works on: the result of the stage before, else the source; null when detached

    void attach(KMMeshNode *source, KMMeshModifier *previous) override;
    void detach() override;
    void setNext(KMMeshModifier *next) override { m_next = next; }
    void setLast(bool last) override { m_isLast = last; }
    bool isLast() const override { return m_isLast; }
    void setBypassed(bool bypassed) override { m_isBypassed = bypassed; }
    bool isBypassed() const override { return m_isBypassed; }
    void setFrozen() { setBypassed(true); }

    void rebuild() override;
    bool update() override;
    void clearResult() override;
    void copyFaceFlags() override; ///< selected and hidden, through the table of faces
    void remapIndices() override {}
    void onVertexFlagsChanged() override {}
    void onPositionsChanged() override {}
    void onWeightChanged() override {}
    void onShaderChanged() override {}
    void onModMeshEdited(KMMeshNode *) override {}
    void updateTags() override; ///< the weights; those who carry more begin with this

    // From elements of the input to those of the result; -1 for what has none, or isn't in the table

    int vertexMapAt(int i) const { return m_vertexMap.value(i, -1); }
    int faceMapAt(int f) const { return m_faceMap.value(f, -1); }
    int cornerMapAt(int i) const { return m_cornerMap.value(i, -1); }

    /// A new one of the same class with the same settings, which belongs to no chain.
    KMModifierNode *clone() const override = 0;

    // Hooks of the session

    void setTransform(const KMTransform &transform) override;
    QList<KMContainerNode *> evaluatedMeshes() const override;

public slots:
    void refresh(KMNode *value = nullptr); ///< a setting changed: the chain is made anew from this stage on

protected:
    KMModifierNode(int type, const QString &name);

    /// Fills the empty result. The edges and the live lists of the input are up to date.
    virtual void rebuildResult(KMMeshNode &input, KMMeshNode &result) = 0;
    /// Moves the result after its input, allocating nothing. Answers whether its topology changed on the way, or
    /// anything else that the stages behind it can't follow.
    virtual bool updateResult(const KMMeshNode &input, KMMeshNode &result) = 0;
    /// The input has other UVs on the same faces: copies them. False where the result has to be made anew for that.
    virtual bool takeUVs(const KMMeshNode &, KMMeshNode &) { return false; }
    /// Gives the weights of the input to the vertices of the result that came of them.
    virtual void carryWeights(const KMMeshNode &, KMResultWeights &) {}
    void passUVsOn();            ///< the result has other UVs on the same faces: the stages behind take them over
    void passWeightsOn();        ///< the result has other weights on the same vertices: likewise
    virtual void freeTables() {} ///< of the subclass: there is no result any more

    void markMoved(); ///< the result has to follow, with the topology that it has
    bool isStale() const { return m_isStale; }
    const KMResultWeights &resultWeights() const { return m_weights; }

    /// A copy for clone().
    template <class Node>
    static Node *cloneOf(const Node &node)
    {
        auto *copy = new Node;
        node.copyNullTo(copy);
        copy->setParameters(node.parameters());
        return copy;
    }

    QVector<int> m_vertexMap; // one for each vertex slot of the input
    QVector<int> m_faceMap;   // one for each face slot of the input
    QVector<int> m_cornerMap;

private:
    void clearTables();
    KMModifierNode *stageBehind() const;

    KMMeshNode *m_modMesh; // owned
    KMResultWeights m_weights;
    KMMeshNode *m_source = nullptr;
    KMMeshModifier *m_previous = nullptr;
    KMMeshModifier *m_next = nullptr;
    bool m_isLast = false;
    bool m_isBypassed = false;
    bool m_isRebuilding = false;
    bool m_isStale = false; // a setting changed since the result was made
};
