#pragma once

#include "core/KMNullNode.h"

class KMMeshNode;

/// A node that makes a mesh from a few numbers. The mesh is its own and stands in no tree; the transform of the
/// node is in the vertices, so that it is made anew whenever shape, transform or shader change.
///
/// Concrete classes derive from KMParametricPrimitive.
class KMPrimitiveNode : public KMNullNode
{
    Q_OBJECT
public:
    /// Shapes of more faces are refused: they would take more than half a gigabyte.
    static constexpr int MaxFaces = 1000000;

    KMPrimitiveNode();
    ~KMPrimitiveNode() override;

    virtual KMMeshNode **meshSlot() { return &m_mesh; } ///< where the generated mesh is kept
    virtual void rebuild() = 0;                         ///< makes the mesh from the parameters that are set
    virtual void setShader(int shader);                 ///< of all faces; an index as in a face. The mesh follows
    virtual int shader() const { return m_shader; }
    KMPrimitiveNode *clone() const override = 0;

    KMMeshNode *mesh() const { return m_mesh; }

    // Hooks of the session

    void setTransform(const KMTransform &transform) override;
    QList<KMContainerNode *> evaluatedMeshes() const override;
    void refreshAfterEdit() override;
    void forceFullRefresh() override;
    QSet<int> shaderReferences() const override;
    void pushShaderRemoved(int index) override;

protected:
    /// Keeps value nodes from starting a rebuild while several of them are set.
    class Hold
    {
        Q_DISABLE_COPY(Hold)
    public:
        explicit Hold(KMPrimitiveNode *node)
            : m_node(node)
        {
            ++m_node->m_holds;
        }
        ~Hold() { --m_node->m_holds; }

    private:
        KMPrimitiveNode *m_node;
    };

    void onParameterChanged();                                ///< a value node that holds a parameter was set
    bool isWithinLimit(qint64 faces) const;                   ///< tells the user when it isn't
    void report(const QString &what) const;                   ///< to the log and the line of messages
    void copyPrimitiveTo(KMPrimitiveNode *destination) const; ///< all but the parameters; doesn't regenerate

private:
    KMMeshNode *m_mesh; // owned
    int m_shader = -1;
    int m_holds = 0;
};
